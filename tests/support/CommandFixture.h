#pragma once

#include "support/NodeFixture.h"

/// Commands as the user meets them: text in; drawing, result, messages and undo out.
class CommandFixture : public NodeFixture {
protected:
    /// A layer on top of a camera's, with a different drawing at each frame number.
    void keyed(const QString& camera, const QString& name, std::initializer_list<int> frameNumbers)
    {
        const int index = drawing().insertLayer(camera, -1, name);
        for (int frameNumber : frameNumbers) {
            drawing().layer(camera, index)->insertFrame(Frame::fromPng(timeOfFrame(frameNumber), nextPicture()));
        }
    }
    /// The names of a camera's layers from the bottom up, the active one with a star; "A B* C".
    QString stack(const QString& camera)
    {
        QStringList names;
        for (int i = 0; i < drawing().layerCount(camera); ++i) {
            const Layer& layer = *drawing().layer(camera, i);
            names << layer.name() + (layer.isActive() ? "*" : "");
        }
        return names.join(" ");
    }

    /// Floats a paste on a camera as the transform tool does, on a layer and a frame made for it where there are none.
    void floatPaste(const QString& camera)
    {
        int newLayer = -1;
        bool frameMade = false;
        ASSERT_TRUE(node().drawingTarget(camera, newLayer, frameMade));
        ActiveStroke* const stroke = drawing().beginStroke(camera, true);
        ASSERT_NE(stroke, nullptr);
        stroke->tool = ToolType::Transform;
        stroke->region = QRect(0, 0, 8, 8);
        stroke->takeRegion = true;
        stroke->layerMade = newLayer >= 0;
        stroke->frameMade = frameMade;
        drawing().advanceStroke(camera);
    }

    /// Leaves no step.
    void changeUnitBehindTheQueue(const std::string& unit)
    {
        run("undoInfo -stateWithoutFlush off; currentUnit -t \"" + unit + "\"; undoInfo -stateWithoutFlush on");
    }

    /// Runs a text that succeeds as one step, which can be undone to the same drawing and redone, again and again.
    void runAndRewind(const std::string& text)
    {
        const QString before = describeDrawing();
        const unsigned steps = session().undo.count();
        ASSERT_TRUE(run(text)) << text;
        EXPECT_EQ(session().undo.count(), steps + 1) << text;
        const QString after = describeDrawing();
        SCOPED_TRACE(text);
        expectUndoAndRedo(before, after);
    }
    /// Undo gives `before` again and redo `after`, as often as one likes.
    void expectUndoAndRedo(const QString& before, const QString& after)
    {
        EXPECT_NE(before, after);
        for (int round = 0; round < 2; ++round) {
            run("undo");
            EXPECT_EQ(describeDrawing(), before) << "round " << round;
            run("redo");
            EXPECT_EQ(describeDrawing(), after) << "round " << round;
        }
    }
    /// Runs a text that fails, changes nothing and leaves nothing to undo. error: what the plug-in says of it.
    void expectRefused(const std::string& text, const char* error = nullptr)
    {
        const QString before = BaseNode::masterNode() ? describeDrawing() : QString();
        const unsigned steps = session().undo.count();
        forgetLines();
        EXPECT_FALSE(run(text)) << text;
        if (error) {
            EXPECT_THAT(errors(), testing::Contains(std::string("[Lumisketch2] ") + error)) << text;
        }
        EXPECT_EQ(session().undo.count(), steps) << text;
        EXPECT_EQ(BaseNode::masterNode() ? describeDrawing() : QString(), before) << text;
    }
    /// The same; the plug-in says nothing.
    void expectSilentlyRefused(const std::string& text)
    {
        expectRefused(text);
        EXPECT_THAT(errors(), testing::Each(testing::Not(testing::StartsWith("[Lumisketch2] ")))) << text;
    }

private:
    /// Small, so that drawings are compared quickly.
    QByteArray nextPicture()
    {
        QImage image(8, 8, QImage::Format_RGBA8888);
        image.fill(QColor(m_nextDrawing * 37 % 256, m_nextDrawing * 91 % 256, 200));
        ++m_nextDrawing;
        return encodePng(image);
    }

    int m_nextDrawing = 1;
};
