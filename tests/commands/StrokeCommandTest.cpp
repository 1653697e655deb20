#include "model/Canvas.h"
#include "support/CommandFixture.h"
#include "support/HeldEncoder.h"

#include "commands/FrameCommand.h"
#include "commands/LayerCommand.h"
#include "commands/StrokeCommand.h"

namespace {

class StrokeCommandTest : public CommandFixture {
protected:
    StrokeCommandTest() { addCommand(names::kStrokeCommand, StrokeCommand::creator, StrokeCommand::newSyntax); }

    bool command(const std::string& arguments) { return run("tqLumisketchStroke " + arguments); }

    /// What the draw tool leaves behind for the command: a line across the canvas, not yet in the frame.
    void drag(const QString& camera, int y, ToolType tool = ToolType::Pencil)
    {
        Preferences::instance().setActiveTool(tool);
        ActiveStroke* stroke = drawing().beginStroke(camera, false);
        ASSERT_NE(stroke, nullptr);
        for (int x = 100; x <= 900; x += 100) {
            stroke->points.append({20, 1.0f, 1.0f, QPoint(x, y)});
        }
        stroke->changed = true;
    }
    QImage shown() { return drawing().layer("persp", 0)->frameAt(0)->image(); }
    /// A stroke, not yet in the frame, on what the draw tool finds, or makes, at this time.
    void press(const QString& camera)
    {
        int newLayer = -1;
        bool frameMade = false;
        ASSERT_TRUE(node().drawingTarget(camera, newLayer, frameMade));
        drag(camera, 300);
        ActiveStroke& stroke = *drawing().stroke(camera);
        stroke.layerMade = newLayer >= 0;
        stroke.frameMade = frameMade;
    }
    void sketch(const QString& camera, const std::string& arguments)
    {
        press(camera);
        ASSERT_TRUE(command(arguments));
    }
    void keyed(const QString& camera, std::initializer_list<int> frameNumbers)
    {
        drawing().insertLayer(camera, -1, "Ink");
        for (int frameNumber : frameNumbers) {
            drawing().addFrame(camera, timeOfFrame(frameNumber));
        }
    }
};

TEST_F(StrokeCommandTest, ARedoneLayerHasTheStateItHadWhateverThePreferenceSaysByThen)
{
    sketch("persp", "-la 0 -fa persp");
    run("undo");
    Preferences::instance().setDefaultLayerState(kLayerStatic);
    run("redo");
    EXPECT_EQ(drawing().layerState("persp", 0), kLayerAnim);
}

TEST_F(StrokeCommandTest, AFloatingPasteIsPutDownOnTheFrameMadeForItAndMakesWayForARedo)
{
    keyed("persp", {1});
    goTo(5);
    const QString before = describeDrawing();
    floatPaste("persp");
    ASSERT_TRUE(command("-fa persp"));
    const QString after = describeDrawing();
    EXPECT_EQ(drawing().frameNumbers("persp"), (QList<int>{1, 5}));
    expectUndoAndRedo(before, after);
    run("undo");
    floatPaste("persp");
    EXPECT_TRUE(run("redo"));
    EXPECT_EQ(describeDrawing(), after);
    expectUndoAndRedo(before, after);
}

TEST_F(StrokeCommandTest, AStrokeEndsAtOnceWhenItsFrameOrItsLayerIsTaken)
{
    addCommand(names::kFrameCommand, FrameCommand::creator, FrameCommand::newSyntax);
    addCommand(names::kLayerCommand, LayerCommand::creator, LayerCommand::newSyntax);
    keyed("persp", {1, 5});
    goTo(1);
    const QString before = describeDrawing();
    for (const char* taking : {"tqLumisketchFrame -delete persp", "tqLumisketchLayer -delete 0 persp"}) {
        for (const char* text : {taking, "redo"}) {
            drag("persp", 300);
            ASSERT_TRUE(run(text)) << taking;
            EXPECT_FALSE(drawing().hasStroke()) << text << " of " << taking;
            run("undo");
            EXPECT_EQ(describeDrawing(), before);
        }
    }
    goTo(5);
    drag("persp", 300);
    goTo(1);
    run("tqLumisketchFrame -delete persp");
    EXPECT_TRUE(drawing().hasStroke()) << "it was not its own";
}

TEST_F(StrokeCommandTest, AStrokeBegunBeforePlaybackMovedOnUndoesItsOwnFrame)
{
    goTo(1);
    press("persp");
    goTo(8);
    ASSERT_TRUE(command("-la 0 -fa persp"));
    EXPECT_EQ(drawing().frameNumbers("persp"), QList<int>{1});
    run("undo");
    EXPECT_EQ(drawing().totalLayerCount(), 0);
    run("redo");
    EXPECT_EQ(drawing().frameNumbers("persp"), QList<int>{1});
}

TEST_F(StrokeCommandTest, AUnitChangedBehindTheUndoQueueDoesNotSendTheStrokeToAnotherFrame)
{
    for (const char* unit : {"12fps", "show"}) {
        for (int frameNumber : {10, 11}) {  // frame 11 is made for the stroke
            run("file -f -new; currentUnit -t film");
            keyed("persp", {5, 10, 20, 22});
            goTo(frameNumber);
            const QString before = describeDrawing();
            sketch("persp", frameNumber == 11 ? "-fa persp" : "persp");
            const QString after = describeDrawing();
            for (const char* step : {"undo", "redo", "undo", "redo"}) {
                SCOPED_TRACE(std::string(unit) + ", frame " + std::to_string(frameNumber) + ", " + step);
                changeUnitBehindTheQueue(unit);
                EXPECT_TRUE(run(step));
                changeUnitBehindTheQueue("film");
                goTo(1);
                goTo(frameNumber);
                EXPECT_EQ(describeDrawing(), step == std::string("undo") ? before : after);
            }
        }
    }
}

TEST_F(StrokeCommandTest, AUnitChangedUnderAStrokeInProgressLeavesItOnItsFrame)
{
    run("currentUnit -t film");
    keyed("persp", {5, 10});
    goTo(10);
    drag("persp", 300);
    run("currentUnit -t show");
    goTo(10);
    ASSERT_TRUE(command("persp"));
    EXPECT_TRUE(drawing().layer("persp", 0)->frameAt(0)->isBlank());
    EXPECT_FALSE(drawing().layer("persp", 0)->frameAt(1)->isBlank());
}

TEST_F(StrokeCommandTest, AUnitChangedUnderAFloatingPasteLeavesNothingOfWhatWasMadeForIt)
{
    for (bool onALayer : {true, false}) {
        run("file -f -new; currentUnit -t film");
        if (onALayer) {
            keyed("persp", {10});
        }
        goTo(12);
        const QString before = describeDrawing();
        floatPaste("persp");
        run("currentUnit -t show");
        node().withdrawMadeStroke();
        run("currentUnit -t film");
        EXPECT_EQ(describeDrawing(), before) << onALayer;
        floatPaste("persp");
        run("currentUnit -t \"12fps\"");
        ASSERT_TRUE(node().commitStroke("persp"));
        run("undo; currentUnit -t film");
        EXPECT_EQ(describeDrawing(), before) << onALayer;
    }
}

TEST_F(StrokeCommandTest, UndoTakesTheLayerOfTheStrokeWhereverItIsByThen)
{
    sketch("persp", "-la 0 -fa persp");
    drawing().insertLayer("persp", 0, "Lower");  // as -insert does, without a step
    const QString after = describeDrawing();
    run("undo");
    EXPECT_EQ(stack("persp"), "Lower*");
    run("redo");
    EXPECT_EQ(drawing().layerCount("persp"), 2);
    run("undo");
    EXPECT_EQ(stack("persp"), "Lower*");
}

TEST_F(StrokeCommandTest, OnlyWhatTheToolMadeIsTakenForMade)
{
    keyed("persp", {1});
    keyed("persp", {1});
    drag("persp", 300);
    const struct {
        bool layerMade;
        bool frameMade;
        const char* arguments;
    } refused[] = {{false, false, "-la 0 persp"},   {false, false, "-la 1 persp"},   {false, false, "-fa persp"},
                   {true, true, "-la 1 persp"},     {true, true, "-la 7 -fa persp"}, {true, false, "-la 0 -fa persp"},
                   {false, true, "-la 0 -fa persp"}};
    for (const auto& r : refused) {
        ActiveStroke* const stroke = drawing().stroke("persp");
        ASSERT_NE(stroke, nullptr) << r.arguments;
        stroke->layerMade = r.layerMade;
        stroke->frameMade = r.frameMade;
        expectSilentlyRefused(std::string("tqLumisketchStroke ") + r.arguments);
        EXPECT_EQ(drawing().stroke("persp"), stroke) << r.arguments;
    }
}

TEST_F(StrokeCommandTest, ARedoNeverReplacesAFrameThatWasKeyedMeanwhile)
{
    keyed("persp", {1});
    goTo(5);
    sketch("persp", "-fa persp");
    run("undo");
    drawing().addFrame("persp", timeOfFrame(5));
    const QString meanwhile = describeDrawing();
    run("redo");
    EXPECT_EQ(describeDrawing(), meanwhile);
}

// Undo may come before the picture it needs is packed, while it is, and afterwards.
TEST_F(StrokeCommandTest, UndoNeverNeedsToWaitForThePicturesToBePacked)
{
    keyed("persp", {1});
    std::vector<QImage> stages = {shown()};
    const auto strokes = [&](int count) {
        for (int i = 0; i < count; ++i) {
            drag("persp", 100 * static_cast<int>(stages.size()), ToolType::Brush);
            ASSERT_TRUE(command("persp"));
            stages.push_back(shown());
        }
    };
    const auto rewind = [&] {
        for (const char* step : {"undo", "redo"}) {
            for (std::size_t i = 1; i < stages.size(); ++i) {
                run(step);
                const std::size_t at = step == std::string("undo") ? stages.size() - 1 - i : i;
                ASSERT_TRUE(pixels::same(shown(), stages[at])) << step << " to " << at;
            }
        }
    };
    {
        HeldEncoder held;
        strokes(3);
        rewind();
        held.letGo();
        strokes(2);
        rewind();
    }
    rewind();
}

TEST_F(StrokeCommandTest, ABurstOfStrokesKeepsFewPicturesWaitingAndAllArePackedInTheEnd)
{
    constexpr qint64 kCanvasBytes = qint64(kCanvasSize) * kCanvasSize * 4;
    const qint64 before = PixelBudget::instance().bytes();
    keyed("persp", {1});
    HeldEncoder held;
    for (int i = 0; i < 12; ++i) {
        drag("persp", 20 + 80 * i);
        EXPECT_LE(PictureEncoder::instance().waiting(), 8);
        ASSERT_TRUE(command("persp"));
        EXPECT_GE(PictureEncoder::instance().waiting(), std::min(i, 8)) << "nothing is packed at the pen's lifting";
    }
    held.letGo();
    PictureEncoder::instance().finish();
    PixelBudget::instance().trim();
    EXPECT_EQ(PixelBudget::instance().bytes(), before + kCanvasBytes) << "the frame's own";
}

}  // namespace
