#include "model/MadeTarget.h"
#include "support/NodeFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DrawingTargetTest : public NodeFixture {
protected:
    struct Outcome {
        bool found;
        int newLayer;
        bool frameCreated;
    };

    Outcome resolve(const QString& camera = "persp")
    {
        Outcome outcome = {false, 77, true};
        outcome.found = node().drawingTarget(camera, outcome.newLayer, outcome.frameCreated);
        return outcome;
    }

    void expectRefused(const char* message)
    {
        const QString before = describeDrawing();
        const Outcome outcome = resolve();
        EXPECT_FALSE(outcome.found);
        EXPECT_EQ(outcome.newLayer, -1);
        EXPECT_FALSE(outcome.frameCreated);
        EXPECT_THAT(errors(), ElementsAre(std::string(names::kMessagePrefix) + message));
        EXPECT_EQ(describeDrawing(), before);
        forgetLines();
    }

    Preferences& preferences = Preferences::instance();
};

TEST_F(DrawingTargetTest, AFirstStrokeGetsALayerAndAFrame)
{
    goTo(7);
    const Outcome outcome = resolve();
    EXPECT_TRUE(outcome.found);
    EXPECT_EQ(outcome.newLayer, 0);
    EXPECT_TRUE(outcome.frameCreated);
    EXPECT_EQ(drawing().frameNumbers("persp"), QList<int>{7});

    const Outcome again = resolve();
    EXPECT_TRUE(again.found);
    EXPECT_EQ(again.newLayer, -1);
    EXPECT_FALSE(again.frameCreated);
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(DrawingTargetTest, WhereALayerHoldsAnAnimatedOneIsKeyedAndAStaticOneDrawnOn)
{
    drawing().insertLayer("persp", -1, "Ink");
    drawing().addFrame("persp", timeOfFrame(3));
    goTo(7);
    for (const int state : {kLayerStatic, kLayerAnim}) {
        drawing().setLayerState("persp", 0, state);
        const Outcome outcome = resolve();
        EXPECT_TRUE(outcome.found);
        EXPECT_EQ(outcome.newLayer, -1);
        EXPECT_EQ(outcome.frameCreated, state == kLayerAnim);
        EXPECT_EQ(drawing().frameNumbers("persp"), state == kLayerAnim ? (QList<int>{3, 7}) : QList<int>{3});
    }
}

TEST_F(DrawingTargetTest, AStaticLayerWithoutAFrameTakesTheDefaultOneWhenThatIsNotAhead)
{
    preferences.setDefaultLayerState(kLayerStatic);
    goTo(7);
    preferences.setDefaultStaticFrameTime(8);
    expectRefused("Static layer: A frame is required at or before the current time.");
    preferences.setDefaultStaticFrameTime(-999);
    preferences.setInsertDefaultStaticFrame(false);
    expectRefused("Static layer: A frame is required at or before the current time.");

    preferences.setInsertDefaultStaticFrame(true);
    const Outcome outcome = resolve();
    EXPECT_TRUE(outcome.found);
    EXPECT_EQ(outcome.newLayer, 0);
    EXPECT_TRUE(outcome.frameCreated);
    EXPECT_EQ(drawing().frameNumbers("persp"), QList<int>{-999});
}

TEST_F(DrawingTargetTest, RefusesWithAMessageAndLeavesNothingBehind)
{
    preferences.setAutomaticallyAddFirstLayer(false);
    expectRefused("A layer does not exist for the current camera");

    preferences.setAutomaticallyAddFirstLayer(true);
    preferences.setDefaultLayerState(kLayerLocked);  // the layer made for the stroke is taken back
    expectRefused("Active layer is locked.");

    preferences.setDefaultLayerState(kLayerAnim);
    drawing().insertLayer("persp", -1, "Ink");
    drawing().setLayerState("persp", 0, kLayerLocked);
    expectRefused("Active layer is locked.");
    drawing().setLayerVisible("persp", 0, false);
    expectRefused("Active layer is not visible.");
    drawing().layer("persp", 0)->setActive(false);
    expectRefused("An active layer does not exist.");
}

TEST_F(DrawingTargetTest, AnEmptyCameraIsRefusedSilently)
{
    EXPECT_FALSE(resolve(QString()).found);
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(DrawingTargetTest, WithdrawingTakesBackTheFrameOrTheLayerWhereverTimeHasMoved)
{
    const auto withdrawLater = [this] {
        goTo(5);
        const Outcome made = resolve();
        ASSERT_TRUE(made.frameCreated);
        ActiveStroke* stroke = drawing().beginStroke("persp", false);
        stroke->layerMade = made.newLayer >= 0;
        stroke->frameMade = true;
        goTo(8);
        node().withdrawMadeStroke();
        EXPECT_FALSE(drawing().hasStroke());
    };
    withdrawLater();
    EXPECT_EQ(drawing().totalLayerCount(), 0);

    drawing().insertLayer("persp", -1, "Ink");
    drawing().addFrame("persp", timeOfFrame(1));
    drawing().addFrame("persp", timeOfFrame(8));
    goTo(8);
    const QString before = describeDrawing();
    withdrawLater();
    EXPECT_EQ(describeDrawing(), before);
    EXPECT_EQ(drawing().activeLayer("persp")->currentFrameIndex(), 1);
}

TEST_F(DrawingTargetTest, WhatWasMadeAndTakenOutComesBackUnlessItIsDropped)
{
    goTo(5);
    for (int framesWithout : {0, 1}) {  // a layer is made, then only a frame
        const Outcome made = resolve();
        ActiveStroke* stroke = drawing().beginStroke("persp", false);
        stroke->layerMade = made.newLayer >= 0;
        stroke->frameMade = made.frameCreated;
        const QString before = describeDrawing();
        {
            const MadeTarget target(drawing());
            EXPECT_EQ(drawing().frameNumbers("persp").size(), framesWithout);
        }
        EXPECT_EQ(describeDrawing(), before);
        EXPECT_EQ(drawing().stroke("persp"), stroke);
        drawing().dropStroke();
        goTo(9);
    }
}

}  // namespace
