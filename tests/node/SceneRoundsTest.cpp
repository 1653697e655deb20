// One varied drawing on its way through every kind of scene file and back.

#include "support/Drawings.h"
#include "support/NodeFixture.h"

#include <QCryptographicHash>

#include <cstdio>

namespace {

class SceneRounds : public NodeFixture {
protected:
    // Three cameras, all layer states, held, blank, packed and foreign frames, non-ASCII and equal names.
    void makeVariedScene()
    {
        run("camera -n shot; rename shot1 shotCam; createNode tqLumisketch -n sketch");
        LayerManager& made = drawing();
        made.insertLayer("persp", -1, drawings::layer(QString::fromUtf8("Tusche 日本 ß"), {1, 5, 40}));
        made.layer("persp", 0)->frameAt(1)->pack();
        made.setLayerOpacity("persp", 0, 0.25f);
        made.insertLayer("persp", -1, drawings::layer("same", {-999}));
        made.layer("persp", 1)->addFrame(timeOfFrame(7));
        made.setLayerState("persp", 1, kLayerStatic);
        made.setLayerVisible("persp", 1, false);
        made.insertLayer("shotCam", -1, drawings::layer("same", {2, 3}));
        made.setLayerState("shotCam", 0, kLayerLocked);
        QImage foreign(16, 9, QImage::Format_Grayscale8);
        foreign.fill(90);
        auto grey = std::make_unique<Frame>(timeOfFrame(12));
        grey->setImage(foreign);
        made.layer("shotCam", 0)->insertFrame(std::move(grey));
        made.insertLayer("top", -1, drawings::layer("empty", {}));
        made.setActiveLayer("persp", 0, true);
        made.setCurrentCamera("shotCam");
    }

    std::string path(const char* name) const { return prefsDir().toStdString() + "/" + name; }
    void save(const char* name, const char* type)
    {
        EXPECT_TRUE(run("file -rename \"" + path(name) + "\"; file -type \"" + type + "\"; file -save")) << name;
    }
    void open(const char* name) { EXPECT_TRUE(run("file -force -open \"" + path(name) + "\"")) << name; }
    void addToNew(const char* flags, const char* name)
    {
        EXPECT_TRUE(run(std::string("file -force -new; file ") + flags + " \"" + path(name) + "\"")) << name;
    }

    // The one drawing node of the scene, at a time that several layers hold.
    BaseNode* shown()
    {
        goTo(10);
        const std::vector<BaseNode*> nodes = BaseNode::allNodes();
        return nodes.size() == 1 ? nodes.front() : nullptr;
    }
    std::shared_ptr<LayerManager> shownDrawing()
    {
        BaseNode* node = shown();
        return node ? node->layerManager() : nullptr;
    }
};

QString shortHash(const QByteArray& bytes)
{
    return QString(QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex().left(12));
}

// Every pixel of every frame, and what the cameras show of them.
QString pixelHash(LayerManager& drawing)
{
    QByteArray pixels;
    for (const QString& camera : drawing.cameras()) {
        for (int i = 0; i < drawing.layerCount(camera); ++i) {
            const Layer& layer = *drawing.layer(camera, i);
            for (int f = 0; f < layer.frameCount(); ++f) {
                pixels += pixels::hash(asCanvas(decodePng(layer.frameAt(f)->png()))).toUtf8();
            }
        }
        if (const QImage* picture = drawing.composite(camera)) {
            pixels += pixels::hash(pixels::seen(*picture)).toUtf8();
        }
    }
    return shortHash(pixels);
}

TEST_F(SceneRounds, GiveTheSameDrawingEveryTime)
{
    const struct {
        const char* name;
        std::function<void()> go;
        bool master;
    } steps[] = {
        {"saved and opened as text", [this] { save("a.ma", "mayaAscii"), open("a.ma"); }, true},
        {"then as binary", [this] { save("a.mb", "mayaBinary"), open("a.mb"); }, true},
        {"then as text again", [this] { save("b.ma", "mayaAscii"), open("b.ma"); }, true},
        {"then as binary again", [this] { save("b.mb", "mayaBinary"), open("b.mb"); }, true},
        {"text imported", [this] { addToNew("-import", "b.ma"); }, true},
        {"binary imported", [this] { addToNew("-import", "b.mb"); }, true},
        {"saved after import", [this] { save("c.ma", "mayaAscii"), open("c.ma"); }, true},
        {"text referenced", [this] { addToNew("-reference -namespace shot", "b.ma"); }, false},
        {"saved as text with it", [this] { save("d.ma", "mayaAscii"), open("d.ma"); }, false},
        {"saved as binary with it", [this] { save("d.mb", "mayaBinary"), open("d.mb"); }, false},
        {"binary referenced", [this] { addToNew("-reference -namespace shot", "b.mb"); }, false},
        {"referenced and then imported", [this] { addToNew("-import", "d.ma"); }, false},
    };
    makeVariedScene();
    ASSERT_NE(shown(), nullptr);
    const QString made = describe(*shownDrawing());
    const QString madePixels = pixelHash(*shownDrawing());
    const auto print = [](const char* name, const QString& structure, const QString& pixels) {
        std::printf("%-30s structure %s  pixels %s\n", name, qPrintable(shortHash(structure.toUtf8())),
                    qPrintable(pixels));
    };
    print("as drawn", made, madePixels);
    for (const auto& step : steps) {
        step.go();
        const std::shared_ptr<LayerManager> drawing = shownDrawing();
        ASSERT_TRUE(drawing) << step.name;
        const QString pixels = pixelHash(*drawing);
        print(step.name, describe(*drawing), pixels);
        EXPECT_EQ(describe(*drawing), made) << step.name;
        EXPECT_EQ(pixels, madePixels) << step.name;
        EXPECT_EQ(BaseNode::masterNode() != nullptr, step.master) << step.name;
        EXPECT_THAT(errors(), testing::IsEmpty()) << step.name;
    }
}

TEST_F(SceneRounds, ASceneSavedTwiceIsTheSameFile)
{
    const auto bytes = [this](const char* name) {
        QFile file(QString::fromStdString(path(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    makeVariedScene();
    for (const auto& form : {std::make_pair("a.ma", "mayaAscii"), std::make_pair("a.mb", "mayaBinary")}) {
        save(form.first, form.second);
        const QByteArray first = bytes(form.first);
        ASSERT_FALSE(first.isEmpty());
        open(form.first);
        save(form.first, form.second);
        EXPECT_EQ(bytes(form.first), first) << form.second;
    }
}

}  // namespace
