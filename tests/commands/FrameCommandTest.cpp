#include "support/CommandFixture.h"
#include "support/TestView.h"

#include "commands/FrameCommand.h"

namespace {

using Keys = QList<int>;
using testing::IsEmpty;

/// A view that looks through persp; persp and top each have a layer with drawings, persp's first.
class FrameCommandTest : public CommandFixture {
protected:
    FrameCommandTest()
    {
        addCommand(names::kFrameCommand, FrameCommand::creator, FrameCommand::newSyntax);
        drawing();
        goTo(1);
    }

    static std::string frame(const std::string& arguments) { return "tqLumisketchFrame " + arguments; }
    void highlight(int first, int end) { session().scene.highlightSliderRange({double(first), double(end)}); }
    Keys keys(const QString& camera = "persp") { return drawing().frameNumbers(camera); }
    /// The drawing at a frame number, as its hash; "none" for a blank one.
    QString picture(int frameNumber, const QString& camera = "persp")
    {
        const Frame* found = drawing().activeLayer(camera)->frameNumbered(frameNumber);
        if (!found || found->isBlank()) {
            return found ? "none" : "missing";
        }
        return pixels::hash(decodePng(found->png()));
    }
    /// The exact times and drawings of a camera's layer, the lowest unless another is named.
    QString exactly(const QString& camera = "persp", int index = 0)
    {
        QStringList frames;
        const Layer* layer = drawing().layer(camera, index);
        for (int i = 0; layer && i < layer->frameCount(); ++i) {
            const Frame& frame = *layer->frameAt(i);
            frames << QString("%1:%2").arg(frame.time().asUnits(MTime::k6000FPS)).arg(frame.picture().id());
        }
        return frames.join(" ");
    }
    static int now() { return currentFrameNumber(); }

    TestViews m_views;
};

TEST_F(FrameCommandTest, InsertsOnANewLayerWhenTheCameraHasNone)
{
    goTo(7);
    runAndRewind(frame("-ins persp"));
    EXPECT_EQ(stack("persp"), "Layer*");
    EXPECT_EQ(keys(), Keys{7});
    run("undo");
    EXPECT_EQ(drawing().totalLayerCount(), 0);
    drawing().setCurrentCamera("top");
    Preferences::instance().setDefaultLayerState(kLayerLocked);
    run("redo");
    EXPECT_EQ(drawing().currentCamera(), "persp") << "the first layer's";
    EXPECT_EQ(drawing().layerState("persp", 0), kLayerAnim) << "as it was made";
    run("undo");
    EXPECT_EQ(drawing().currentCamera(), "top");
}

TEST_F(FrameCommandTest, InsertsWhereverTheSpanHasNoFrame)
{
    keyed("persp", "A", {3});
    const QString kept = picture(3);
    highlight(1, 6);
    runAndRewind(frame("-insert"));
    EXPECT_EQ(keys(), (Keys{1, 2, 3, 4, 5}));
    EXPECT_EQ(picture(3), kept);
    run("undo");
    EXPECT_EQ(keys(), Keys{3});
    highlight(20, 30);
    run("redo");  // the span is that of the first run
    EXPECT_EQ(keys(), (Keys{1, 2, 3, 4, 5}));
}

// Each would take minutes if it went frame by frame.
TEST_F(FrameCommandTest, WorksOnManyFramesAtOnce)
{
    keyed("persp", "A", {});
    Frames every;
    for (int frameNumber = 0; frameNumber < 200000; frameNumber += 2) {
        every.emplace_back(new Frame(timeOfFrame(frameNumber)));
    }
    drawing().activeLayer("persp")->restoreFrames(std::move(every));
    highlight(0, 200000);
    const struct {
        const char* arguments;
        int count;
    } cases[] = {{"-ins", 200000}, {"-del", 0},      {"-clr", 100000},
                 {"-cut", 0},      {"-pst", 100000}, {"-mv 1 0 199999", 100000}};
    for (const auto& c : cases) {
        const Keys before = keys();
        ASSERT_TRUE(run(frame(c.arguments)));
        const Keys after = keys();
        EXPECT_EQ(after.size(), c.count) << c.arguments;
        run("undo");
        EXPECT_TRUE(keys() == before) << c.arguments;
        run("redo");
        EXPECT_TRUE(keys() == after) << c.arguments;
        run("undo");
    }
    run("file -f -new");  // what is left would be written as text when the fixture goes
}

TEST_F(FrameCommandTest, DuplicatesThePreviousDrawingToTheCurrentTime)
{
    keyed("persp", "A", {2, 5, 9});
    goTo(7);
    runAndRewind(frame("-dup"));
    EXPECT_EQ(keys(), (Keys{2, 5, 7, 9}));
    EXPECT_EQ(picture(7), picture(5));
    expectRefused(frame("-dup"), "A frame already exists at the current time.");
    goTo(30);
    run("undo");
    EXPECT_EQ(keys(), (Keys{2, 5, 9}));
    goTo(1);
    expectSilentlyRefused(frame("-duplicate"));
    goTo(7);
    drawing().setLayerState("persp", 0, kLayerStatic);
    expectRefused(frame("-dup"), "A frame already exists at the current time.");
}

TEST_F(FrameCommandTest, SaysWhenADuplicateIsGoneBeforeItIsUndone)
{
    keyed("persp", "A", {2});
    goTo(7);
    run(frame("-dup"));
    drawing().takeFrame("persp", timeOfFrame(7));
    forgetLines();
    run("undo");
    EXPECT_THAT(errors(), testing::Contains("[Lumisketch2] Failed to undo duplicate frame operation."));
    EXPECT_EQ(keys(), Keys{2});
}

TEST_F(FrameCommandTest, DeletesCutsAndClearsTheFramesOfTheSpan)
{
    keyed("persp", "A", {1, 3, 4, 8});
    highlight(3, 6);
    const QString third = picture(3);
    runAndRewind(frame("-del"));
    EXPECT_EQ(keys(), (Keys{1, 8}));
    run("undo");
    runAndRewind(frame("-cut persp"));
    EXPECT_EQ(keys(), (Keys{1, 8}));
    run("undo");
    EXPECT_EQ(picture(3), third);
    runAndRewind(frame("-clr"));
    EXPECT_EQ(keys(), (Keys{1, 3, 4, 8}));
    EXPECT_EQ(picture(3), "none");
    run("undo");
    EXPECT_EQ(picture(3), third);
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(FrameCommandTest, PastesWhatWasCopiedAsOftenAsOneLikes)
{
    keyed("persp", "A", {10, 12, 21});
    keyed("top", "X", {1});
    const QString copied[] = {picture(10), picture(12)};
    const QString replaced = picture(21);
    highlight(10, 13);
    const unsigned steps = session().undo.count();
    ASSERT_TRUE(run(frame("-cp")));
    EXPECT_EQ(session().undo.count(), steps);
    highlight(19, 20);
    runAndRewind(frame("-pst"));
    EXPECT_EQ(keys(), (Keys{10, 12, 19, 21}));
    EXPECT_EQ(picture(19), copied[0]);
    EXPECT_EQ(picture(21), copied[1]);
    run("undo");
    EXPECT_EQ(picture(21), replaced);
    highlight(-3, -2);
    runAndRewind(frame("-paste top"));
    EXPECT_EQ(keys("top"), (Keys{-3, -1, 1}));
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(FrameCommandTest, ACopyOrCutReplacesTheWholeClipboard)
{
    keyed("persp", "A", {1, 2, 3});
    highlight(1, 4);
    run(frame("-copy"));
    highlight(2, 3);
    run(frame("-cut"));
    highlight(50, 51);
    run(frame("-paste"));
    EXPECT_EQ(keys(), (Keys{1, 3, 50}));
    highlight(100, 101);
    run(frame("-copy"));  // nothing there
    run(frame("-paste"));
    EXPECT_EQ(keys(), (Keys{1, 3, 50}));
}

TEST_F(FrameCommandTest, ARedoneCutIsWhatIsPastedNext)
{
    keyed("persp", "A", {1, 5});
    const QString cut = picture(1);
    run(frame("-cut"));
    run("undo");
    goTo(5);
    run(frame("-copy"));
    run("redo");
    goTo(9);
    run(frame("-paste"));
    EXPECT_EQ(picture(9), cut);
}

TEST_F(FrameCommandTest, AGhostThatIsReplacedIsSeen)
{
    Preferences::instance().setGhostNext(true);
    keyed("persp", "A", {1, 5, 9});
    run(frame("-copy"));
    goTo(5);
    run(frame("-clear"));  // nothing covers the ghost
    const QString ghosts = pixels::hash(pixels::seen(*drawing().composite("persp")));
    highlight(9, 10);
    run(frame("-paste"));
    EXPECT_NE(pixels::hash(pixels::seen(*drawing().composite("persp"))), ghosts);
    run("undo");
    EXPECT_EQ(pixels::hash(pixels::seen(*drawing().composite("persp"))), ghosts);
}

TEST_F(FrameCommandTest, LeavesALockedLayerAlone)
{
    keyed("persp", "A", {1, 3});
    goTo(3);
    run(frame("-copy"));
    drawing().setLayerState("persp", 0, kLayerLocked);
    const struct {
        const char* mode;
        const char* message;
    } cases[] = {
        {"-ins", "Cannot add frames to a locked layer"},      {"-dup", "Cannot duplicate frames on a locked layer"},
        {"-del", "Cannot remove frames from a locked layer"}, {"-clr", "Cannot remove frames from a locked layer"},
        {"-cut", "Cannot cut frames from a locked layer"},    {"-pst", "Cannot paste frames to a locked layer"},
    };
    for (const auto& c : cases) {
        expectRefused(frame(c.mode), c.message);
    }
    EXPECT_TRUE(run(frame("-retime 5")));
    EXPECT_TRUE(run(frame("-move 1 3 3")));
}

TEST_F(FrameCommandTest, ALayerLockedMeanwhileDoesNotStopARedo)
{
    keyed("persp", "A", {1, 3});
    run(frame("-del"));
    run("undo");
    drawing().setLayerState("persp", 0, kLayerLocked);
    run("redo");
    EXPECT_EQ(keys(), Keys{3});
}

TEST_F(FrameCommandTest, StepsThroughTheDrawingsAndAround)
{
    keyed("persp", "A", {1, 5, 9});
    const struct {
        const char* mode;
        int from;
        int to;
    } cases[] = {
        {"-sf", 1, 5}, {"-stepForward", 9, 1}, {"-sf", 6, 9}, {"-sb", 9, 5}, {"-stepBack", 1, 9}, {"-sb", 7, 5},
    };
    for (const auto& c : cases) {
        goTo(c.from);
        ASSERT_TRUE(run(frame(c.mode))) << c.mode << c.from;
        EXPECT_EQ(now(), c.to) << c.mode << c.from;
        EXPECT_EQ(drawing().activeLayer("persp")->currentFrame()->frameNumber(), c.to) << c.mode << c.from;
    }
}

TEST_F(FrameCommandTest, WithNowhereToGoOnlyTheStepBackSucceeds)
{
    expectSilentlyRefused(frame("-sf"));  // no layer at all
    EXPECT_TRUE(run(frame("-sb")));
    keyed("persp", "A", {5});
    goTo(5);
    expectSilentlyRefused(frame("-sf"));
    EXPECT_TRUE(run(frame("-sb")));
    EXPECT_EQ(now(), 5);
}

TEST_F(FrameCommandTest, AStepBackWithNowhereToGoLeavesAFloatingPaste)
{
    for (const bool hasLayer : {false, true}) {
        if (hasLayer) {
            keyed("persp", "A", {});
        }
        drawing().setCurrentCamera("persp");
        floatPaste("persp");
        const QString before = describeDrawing();
        EXPECT_TRUE(run(frame("-sb")));
        EXPECT_TRUE(drawing().hasStroke());
        EXPECT_EQ(describeDrawing(), before);
        node().withdrawMadeStroke();
    }
}

TEST_F(FrameCommandTest, RetimesTheCurrentCamerasFramesAndGoesToOneOfThem)
{
    const struct {
        const char* arguments;
        std::initializer_list<int> keys;
        int time;
        Keys retimed;
        int landing;
    } cases[] = {
        {"-ret 3", {1, 2, 3, 10}, 2, {1, 2, 5, 12}, 2},
        {"-retime 3 -moveToNext", {1, 2, 3, 10}, 2, {1, 2, 5, 12}, 5},
        {"-retime -5 -relative", {1, 2, 3}, 1, {1, 2, 3}, 1},
        {"-ret 4 -rel -mvn", {1, 2, 3}, 2, {1, 2, 7}, 7},
        {"-ret 2 top", {1, 2, 3}, 1, {1, 3, 4}, 1},  // the camera named makes no difference
        {"-ret 2 -mvn", {4, 6}, 6, {4, 6}, 6},
    };
    for (const auto& c : cases) {
        run("file -f -new");
        keyed("persp", "A", c.keys);
        keyed("top", "X", {1, 2});
        goTo(c.time);
        const QString before = describeDrawing();
        ASSERT_TRUE(run(frame(c.arguments))) << c.arguments;
        const QString after = describeDrawing();
        EXPECT_EQ(keys(), c.retimed) << c.arguments;
        EXPECT_EQ(keys("top"), (Keys{1, 2})) << c.arguments;
        EXPECT_EQ(now(), c.landing) << c.arguments;
        goTo(33);
        run("undo");
        EXPECT_EQ(describeDrawing(), before) << c.arguments;
        EXPECT_EQ(now(), c.time) << c.arguments;
        run("redo");
        EXPECT_EQ(describeDrawing(), after) << c.arguments;
        EXPECT_EQ(now(), c.landing) << c.arguments;
    }
}

TEST_F(FrameCommandTest, MovesFramesByAnOffset)
{
    keyed("persp", "A", {1, 2, 4, 9});
    keyed("top", "X", {1, 2});
    const struct {
        const char* arguments;
        Keys persp;
        Keys top;
    } cases[] = {
        {"-mv 1 1 2", {2, 3, 4, 9}, {1, 2}},
        {"-move -3 1 4", {-2, -1, 1, 9}, {1, 2}},
        {"-move 100 4 2147483647 persp", {1, 2, 104, 109}, {1, 2}},
        {"-move 1 1 2 top", {1, 2, 4, 9}, {2, 3}},
    };
    for (const auto& c : cases) {
        runAndRewind(frame(c.arguments));
        EXPECT_EQ(keys(), c.persp) << c.arguments;
        EXPECT_EQ(keys("top"), c.top) << c.arguments;
        run("undo");
    }
    EXPECT_TRUE(run(frame("-move 5 5 8")));  // none there
    EXPECT_EQ(keys(), (Keys{1, 2, 4, 9}));
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(FrameCommandTest, FramesBetweenTwoOfASlowerTimeUnitComeBackWhereTheyWere)
{
    run("currentUnit -t film");
    keyed("persp", "A", {3, 4, 5});
    run("currentUnit -t \"12fps\"");
    ASSERT_EQ(keys(), (Keys{1, 2, 2}));
    for (const char* arguments : {"-del", "-cut", "-clr", "-pst", "-retime 4", "-move 5 1 1", "-move 5 1 2"}) {
        goTo(2);
        runAndRewind(frame(arguments));
        run("undo");
        run("currentUnit -t film");
        EXPECT_EQ(keys(), (Keys{3, 4, 5})) << arguments;
        run("currentUnit -t \"12fps\"");
    }
}

TEST_F(FrameCommandTest, AUnitChangedBehindTheUndoQueueSendsNeitherUndoNorRedoToOtherFrames)
{
    for (const char* unit : {"show", "12fps"}) {
        for (const char* arguments : {"-ins", "-dup", "-del", "-cut", "-clr", "-pst", "-retime 3", "-mv 5 20 20"}) {
            SCOPED_TRACE(arguments + std::string(" and ") + unit);
            run("file -f -new; currentUnit -t film");
            keyed("persp", "A", {5, 10, 20, 21, 23});
            goTo(10);
            run(frame("-copy"));
            goTo(std::string(arguments) == "-ins" || std::string(arguments) == "-dup" ? 12 : 20);
            const QString before = exactly();
            ASSERT_TRUE(run(frame(arguments)));
            const QString after = exactly();
            EXPECT_NE(after, before);
            changeUnitBehindTheQueue(unit);
            run("undo");
            EXPECT_EQ(exactly(), before);
            run("redo");
            EXPECT_EQ(exactly(), after);
            run("undo");
            EXPECT_EQ(exactly(), before);
        }
    }
}

TEST_F(FrameCommandTest, ARedoneCutIsWhatWasCutWhateverTheTimeUnitIsByThen)
{
    run("currentUnit -t film");
    keyed("persp", "A", {10, 20});
    const QString cut = picture(10);
    goTo(10);
    run(frame("-cut"));
    run("undo");
    changeUnitBehindTheQueue("12fps");
    run("redo");
    goTo(40);
    run(frame("-paste"));
    EXPECT_EQ(keys(), (Keys{10, 40}));
    EXPECT_EQ(picture(40), cut);
}

TEST_F(FrameCommandTest, StepsFindTheirLayerAgainWhenOneWasInsertedBelowIt)
{
    keyed("persp", "A", {1, 5, 9});
    run(frame("-copy"));
    for (const char* arguments : {"-ins", "-dup", "-del", "-cut", "-clr", "-pst", "-retime 3", "-mv 2 5 5"}) {
        goTo(std::string(arguments) == "-ins" || std::string(arguments) == "-dup" ? 7 : 5);
        const QString before = exactly();
        ASSERT_TRUE(run(frame(arguments))) << arguments;
        const QString after = exactly();
        drawing().insertLayer("persp", 0, QString("Z"));
        run("undo");
        EXPECT_EQ(exactly("persp", 1), before) << arguments;
        run("redo");
        EXPECT_EQ(exactly("persp", 1), after) << arguments;
        run("undo");
        EXPECT_EQ(exactly("persp", 0), QString()) << arguments;
        drawing().takeLayer("persp", 0);
    }
}

TEST_F(FrameCommandTest, UndoOfTheFirstFrameTakesItsOwnLayerAndLeavesTheUserWhereHeHasGoneSince)
{
    keyed("persp", "A", {1});
    keyed("side", "S", {1});
    ASSERT_EQ(drawing().currentCamera(), "persp");
    run(frame("-ins top"));
    const Layer* made = drawing().layer("top", 0);
    drawing().setCurrentCamera("side");
    drawing().insertLayer("top", 0, QString("Z"));
    run("undo");
    EXPECT_EQ(stack("top").remove('*'), "Z");
    EXPECT_EQ(drawing().currentCamera(), "side");
    run("redo");
    EXPECT_EQ(drawing().layer("top", 1), made);
}

TEST_F(FrameCommandTest, ATransformIsTakenBackWhenAnotherDrawingTakesThePlaceOfTheOneItCopied)
{
    keyed("persp", "A", {1, 2, 8});
    const struct {
        const char* arguments;
        bool floatsOnWhenDone;
        bool floatsOnWhenUndone;
    } cases[] = {
        {"-clear", false, false}, {"-pst", false, false},    {"-mv 1 1 2", false, false},  // frame 1 becomes frame 2
        {"-del", false, true},  // by then it is on the frame that was held in its place
        {"-ins", true, true},     {"-mv 3 1 1", true, true},
    };
    run(frame("-copy"));
    goTo(2);
    for (const auto& c : cases) {
        for (const bool isUndo : {false, true}) {
            const std::string text = isUndo ? "undo" : frame(c.arguments);
            ActiveStroke* stroke = drawing().beginStroke("persp", true);
            ASSERT_NE(stroke, nullptr) << text << " of " << c.arguments;
            stroke->tool = ToolType::Transform;
            stroke->region = QRect(0, 0, 8, 8);
            stroke->takeRegion = true;
            drawing().advanceStroke("persp");
            ASSERT_TRUE(run(text));
            EXPECT_EQ(drawing().hasStroke(), isUndo ? c.floatsOnWhenUndone : c.floatsOnWhenDone)
                << text << " of " << c.arguments;
            drawing().dropStroke();
        }
    }
}

TEST_F(FrameCommandTest, UndoAndRedoTakeNothingThatAFloatingPasteMadeForADrawing)
{
    keyed("persp", "A", {1, 5});
    const struct {
        int time;  // of the edit and of the pastes
        const char* arguments;
    } cases[] = {{5, "-del"}, {5, "-cut"}, {5, "-mv 3 5 5"}, {5, "-retime 9 -mvn"}, {1, "-retime 9"}, {7, "-dup"}};
    for (const auto& c : cases) {
        goTo(c.time);
        const QString before = describeDrawing();
        ASSERT_TRUE(run(frame(c.arguments)));
        goTo(c.time);
        const QString after = describeDrawing();
        floatPaste("persp");
        EXPECT_TRUE(run("undo")) << c.arguments;
        goTo(c.time);
        EXPECT_EQ(describeDrawing(), before) << c.arguments;
        drawing().dropStroke();
        floatPaste("persp");
        EXPECT_TRUE(run("redo")) << c.arguments;
        goTo(c.time);
        EXPECT_EQ(describeDrawing(), after) << c.arguments;
        drawing().dropStroke();
        run("undo");
    }
    EXPECT_EQ(keys(), (Keys{1, 5}));
}

TEST_F(FrameCommandTest, ARedoneNewLayerTakesThePlaceOfTheOneMadeForAFloatingPaste)
{
    run(frame("-ins persp"));
    const QString after = describeDrawing();
    run("undo");
    floatPaste("persp");
    run("redo");
    EXPECT_EQ(describeDrawing(), after);
    EXPECT_FALSE(drawing().hasStroke());
}

TEST_F(FrameCommandTest, AnEditUnderAFloatingPasteFindsTheDrawingWithoutWhatWasMadeForIt)
{
    keyed("persp", "A", {1, 9});
    run(frame("-copy"));
    for (const char* arguments : {"-del", "-mv 1 1 9", "-retime 3", "-pst", "-dup"}) {
        goTo(5);
        const QString before = describeDrawing();
        ASSERT_TRUE(run(frame(arguments)));
        const QString after = describeDrawing();
        run("undo");
        goTo(5);
        floatPaste("persp");
        ASSERT_TRUE(run(frame(arguments))) << arguments;
        EXPECT_EQ(describeDrawing(), after) << arguments;
        EXPECT_FALSE(drawing().hasStroke()) << arguments;
        run("undo");
        goTo(5);
        EXPECT_EQ(describeDrawing(), before) << arguments;
    }
}

TEST_F(FrameCommandTest, AMoveThatCannotBeRedoneForAllFramesMovesNone)
{
    keyed("persp", "A", {1, 2, 4});
    run(frame("-mv 10 1 2"));
    run("undo");
    drawing().activeLayer("persp")->takeFrame(timeOfFrame(1));  // the one that is moved last
    run("redo");
    EXPECT_EQ(keys(), (Keys{2, 4}));
}

TEST_F(FrameCommandTest, OfCopiesThatComeToShareANumberTheFirstIsPasted)
{
    run("currentUnit -t film");
    keyed("persp", "A", {2, 3});
    const QString first = picture(2);
    highlight(2, 4);
    run(frame("-copy"));
    run("currentUnit -t \"12fps\"");
    highlight(40, 41);
    runAndRewind(frame("-paste"));
    EXPECT_EQ(keys(), (Keys{1, 1, 40}));
    EXPECT_EQ(picture(40), first);
}

TEST_F(FrameCommandTest, WorksOnTheActiveViewsCameraUnlessOneIsNamed)
{
    keyed("persp", "A", {});
    keyed("top", "X", {});
    m_views.activate(m_views.top());
    EXPECT_TRUE(run(frame("-ins")));
    EXPECT_EQ(keys("top"), Keys{1});
    EXPECT_TRUE(run(frame("-ins persp")));
    EXPECT_EQ(keys("persp"), Keys{1});
}

TEST_F(FrameCommandTest, EditsOfACameraWithoutLayersSucceedAndDoNothing)
{
    for (const char* mode : {"-del", "-cut", "-clr", "-pst", "-move 1 1 5 top"}) {
        EXPECT_TRUE(run(frame(mode))) << mode;
        run("undo");
        EXPECT_EQ(drawing().totalLayerCount(), 0) << mode;
    }
    expectSilentlyRefused(frame("-dup"));
    expectSilentlyRefused(frame("-retime 3"));
}

TEST_F(FrameCommandTest, TheFirstModeInOrderOfPrecedenceIsTaken)
{
    keyed("persp", "A", {1, 5});
    EXPECT_TRUE(run(frame("-move 1 1 1 -sf -clr -del")));
    EXPECT_EQ(keys(), Keys{5});
    EXPECT_TRUE(run(frame("-move 1 5 5 -ret 1 -sb -sf")));
    EXPECT_EQ(now(), 5);
}

class FrameCommandWithoutViewTest : public CommandFixture {};

TEST_F(FrameCommandWithoutViewTest, OnlyWhatUsesTheViewsCameraFailsForItsAbsence)
{
    addCommand(names::kFrameCommand, FrameCommand::creator, FrameCommand::newSyntax);
    keyed("persp", "A", {1, 5});
    goTo(1);
    for (const char* mode : {"-ins", "-dup", "-del", "-cut", "-cp", "-pst", "-clr"}) {
        expectRefused(std::string("tqLumisketchFrame ") + mode, "Camera not specified");
    }
    EXPECT_TRUE(run("tqLumisketchFrame -sf"));
    EXPECT_TRUE(run("tqLumisketchFrame -sb"));
    EXPECT_TRUE(run("tqLumisketchFrame -retime 2"));
    EXPECT_EQ(drawing().frameNumbers("persp"), (Keys{1, 3}));
    EXPECT_TRUE(run("tqLumisketchFrame -move 4 3 3"));
    EXPECT_EQ(drawing().frameNumbers("persp"), (Keys{1, 7}));
    EXPECT_THAT(errors(), testing::Not(testing::Contains(testing::HasSubstr("Node not found"))));
}

}  // namespace
