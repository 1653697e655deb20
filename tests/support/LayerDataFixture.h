#pragma once

#include "model/BaseNodeLayerData.h"
#include "model/PngCodec.h"
#include "settings/Preferences.h"
#include "support/DrawingFixture.h"

#include <maya/MArgList.h>

#include <QRegularExpression>
#include <QSet>

#include <cmath>
#include <sstream>

/// As in a scene, other tokens stand before the record's own.
constexpr unsigned kLead = 3;

inline QStringList tokensOf(const std::string& record)
{
    QStringList tokens;
    const QString text = QString::fromStdString(record);
    for (int i = 0; i < text.size();) {
        if (text[i].isSpace()) {
            ++i;
            continue;
        }
        int end = i + 1;
        const bool quoted = text[i] == '"';
        while (end < text.size() && (quoted ? text[end] != '"' : !text[end].isSpace())) {
            ++end;
        }
        tokens << text.mid(i, end - i) + (quoted ? "\"" : "");
        i = quoted ? end + 1 : end;
    }
    return tokens;
}

inline MArgList argumentsOf(const QStringList& tokens)
{
    MArgList list;
    list.addArg(MString(".ld"));
    list.addArg(MString("-type"));
    list.addArg(MString("tqLayerData"));
    for (const QString& token : tokens) {
        bool isNumber = false;
        const double number = token.toDouble(&isNumber);
        if (isNumber && std::abs(number) < 1e9 && number == static_cast<int>(number)) {
            list.addArg(static_cast<int>(number));
        } else if (isNumber) {
            list.addArg(number);
        } else {
            QString bare = token;
            MString text;
            text.setUTF8(bare.remove('"').toUtf8().constData());
            list.addArg(text);
        }
    }
    return list;
}

/// A picture small enough to spell out.
inline QImage dot()
{
    QImage image(2, 2, QImage::Format_ARGB32);
    image.fill(QColor(1, 2, 3, 4));
    return image;
}

/// A drawing that is saved, and what is loaded of records.
class LayerDataFixture : public DrawingFixture {
protected:
    LayerDataFixture() : m_manager(std::make_shared<LayerManager>()) { m_data.setLayerManager(m_manager); }

    LayerManager& saved() { return *m_manager; }
    BaseNodeLayerData& data() { return m_data; }

    std::string text()
    {
        std::ostringstream out;
        EXPECT_TRUE(m_data.writeASCII(out));
        return out.str();
    }
    std::string binary()
    {
        std::ostringstream out;
        EXPECT_TRUE(m_data.writeBinary(out));
        return out.str();
    }

    struct Loaded {
        std::shared_ptr<LayerManager> manager;
        MStatus status;
        unsigned next;
    };
    static Loaded readText(const QStringList& tokens)
    {
        BaseNodeLayerData data;
        unsigned next = kLead;
        const MStatus status = data.readASCII(argumentsOf(tokens), next);
        return {data.layerManager(), status, next};
    }
    static Loaded readBinary(const std::string& bytes)
    {
        BaseNodeLayerData data;
        std::istringstream in(bytes);
        const MStatus status = data.readBinary(in, static_cast<unsigned>(bytes.size()));
        return {data.layerManager(), status, 0};
    }

    enum class Form { Text, Binary };
    /// The saved drawing, read back.
    Loaded reloaded(Form form) { return form == Form::Text ? readText(tokensOf(text())) : readBinary(binary()); }

    void addSavedLayer(const QString& camera, std::unique_ptr<Layer> layer)
    {
        saved().insertLayer(camera, -1, std::move(layer));
    }

    /// Several cameras, all states, hidden, blank, packed and foreign frames, non-ASCII names, duplicate names.
    void makeVariedDrawing()
    {
        saved().setMaster(true);
        auto ink = drawings::layer(QString::fromUtf8("Tusche 日本"), {1, 5, 10});
        ink->frameAt(1)->pack();
        ink->setOpacity(0.3f);
        addSavedLayer("persp", std::move(ink));
        auto blank = drawings::layer("blank", {-999});
        blank->addFrame(timeOfFrame(7));
        blank->setState(kLayerStatic);
        blank->setVisible(false);
        addSavedLayer("persp", std::move(blank));
        auto foreign = drawings::layer("blank", {});
        foreign->insertFrame(Frame::fromPng(timeOfFrame(3), encodePng(dot())));
        foreign->setState(kLayerLocked);
        addSavedLayer("|group|cam", std::move(foreign));
        addSavedLayer("top", drawings::layer("empty", {}));
        saved().setActiveLayer("persp", 1, true);
        saved().setCurrentCamera("top");
        saved().updateCurrentFrames(currentFrameNumber(), false);
    }

    /// One layer with one tiny frame.
    void makeSmallDrawing()
    {
        auto layer = drawings::layer("Ink", {});
        layer->insertFrame(Frame::fromPng(timeOfFrame(4), encodePng(dot())));
        addSavedLayer("persp", std::move(layer));
    }

    /// Does with every frame of what was loaded, in views with ghosts, what an animator does; undoes it, and expects
    /// that both forms hold the drawing as it was loaded.
    void use(const Loaded& loaded)
    {
        const QString before = describe(*loaded.manager);
        if (loaded.manager->totalLayerCount() == 0 || m_used.contains(before)) {
            return;
        }
        m_used.insert(before);
        const MTime now = MAnimControl::currentTime();
        for (const QString& camera : loaded.manager->cameras()) {
            for (int i = 0; i < loaded.manager->layerCount(camera); ++i) {
                for (const int frameNumber : loaded.manager->layer(camera, i)->frameNumbers()) {
                    drawAndUndo(*loaded.manager, camera, i, frameNumber);
                }
            }
        }
        MAnimControl::setCurrentTime(now);
        const std::shared_ptr<LayerManager> savedOtherwise = m_data.layerManager();
        m_data.setLayerManager(loaded.manager);
        for (const Form form : {Form::Text, Form::Binary}) {
            EXPECT_EQ(frames(*reloaded(form).manager), frames(*loaded.manager));
        }
        m_data.setLayerManager(savedOtherwise);
    }

private:
    static void drawAndUndo(LayerManager& drawing, const QString& camera, int index, int frameNumber)
    {
        Preferences& preferences = Preferences::instance();
        preferences.setGhostPrev(true);
        preferences.setGhostNext(true);
        Layer& layer = *drawing.layer(camera, index);
        MAnimControl::setCurrentTime(timeOfFrame(frameNumber));
        drawing.updateCurrentFrames(frameNumber, false);
        ASSERT_TRUE(drawing.setActiveLayer(camera, index, true));
        for (const ToolType tool : {ToolType::Eraser, ToolType::Brush}) {
            const QString before = pixels::hash(layer.currentFrame()->image());
            preferences.setActiveTool(tool);
            ActiveStroke* record = drawing.beginStroke(camera, false);
            ASSERT_NE(record, nullptr);
            record->points = drawings::line({-60, -60}, {1100, 1100}, 40);
            record->changed = true;
            ASSERT_NE(drawing.composite(camera), nullptr);
            Picture undo;
            ASSERT_TRUE(drawing.commitStroke(camera, undo));
            drawing.composite(camera);
            ASSERT_TRUE(drawing.swapImage({camera, layer.id(), layer.currentFrame()->time()}, undo));
            EXPECT_EQ(pixels::hash(layer.currentFrame()->image()), before);
        }
    }

    // Each layer's frames; what is active or current has changed while they were used.
    static QStringList frames(const LayerManager& drawing)
    {
        return describe(drawing).replace(QRegularExpression("\\*|shown \\S+"), QString()).split('\n');
    }

    QSet<QString> m_used;
    std::shared_ptr<LayerManager> m_manager;
    BaseNodeLayerData m_data;
};
