#include "kernel/Playback.h"

#include "kernel/SceneFile.h"
#include "kernel/Session.h"

#include <gtest/gtest.h>

#include <vector>

using namespace kernel;

namespace {

class PlaybackTest : public testing::Test {
protected:
    PlaybackTest()
    {
        session.scene.setPlaybackRange({1, 4});
        session.events.add("timeChanged", [this] { shown += numberText(session.scene.currentTime().value) + " "; });
    }

    /// The frames shown by so many calls, each of them some steps on.
    std::string frames(int calls, int steps = 1)
    {
        shown.clear();
        for (int i = 0; i < calls; ++i)
            session.playback.advance(steps);
        return shown;
    }

    void goTo(double time) { session.scene.setCurrentTime({time, session.scene.timeUnit()}); }

    Session session;
    std::string shown;
};

}  // namespace

TEST_F(PlaybackTest, EndsEachRoundAsItIsTold)
{
    const struct {
        Playback::Loop loop;
        bool forward;
        double by;
        const char* frames;
    } cases[] = {
        {Playback::Loop::Once, true, 1, "3 4 "},
        {Playback::Loop::Once, false, 1, "1 "},
        {Playback::Loop::Continuous, true, 1, "3 4 1 2 3 "},
        {Playback::Loop::Continuous, false, 1, "1 4 3 2 1 "},
        {Playback::Loop::Oscillate, true, 1, "3 4 3 2 1 "},
        {Playback::Loop::Continuous, true, 2, "4 1 3 1 3 "},
        {Playback::Loop::Oscillate, true, 0.5, "2.5 3 3.5 4 3.5 "},
    };
    for (const auto& c : cases) {
        goTo(2);
        session.playback.options.loop = c.loop;
        session.playback.options.by = c.by;
        session.playback.setForward(c.forward);
        session.playback.start();
        EXPECT_EQ(frames(5), c.frames);
        EXPECT_EQ(session.playback.isPlaying(), c.loop != Playback::Loop::Once);
        session.playback.stop();
    }
}

TEST_F(PlaybackTest, StartsOverWhenNothingIsAhead)
{
    for (const double time : {4.0, 9.0, -3.0}) {
        goTo(time);
        session.playback.start();
        EXPECT_EQ(session.scene.currentTime().value, 1) << "from " << time;
        session.playback.stop();
    }
    EXPECT_EQ(frames(3), "") << "nothing moves while it does not play";
}

TEST_F(PlaybackTest, RunsThroughOnceUnlessStoppedOnTheWay)
{
    std::string log;
    session.events.watch("playingBack", [&](bool on) { log += on ? '+' : '-'; });
    session.playback.runThrough();
    EXPECT_EQ(shown, "1 2 3 4 ");
    session.playback.setForward(false);
    session.events.add("timeChanged", [&] {
        if (session.scene.currentTime().value == 3)
            session.playback.stop();
    });
    shown.clear();
    session.playback.runThrough();
    EXPECT_EQ(shown, "4 3 ");
    EXPECT_EQ(log, "+-+-");
    EXPECT_FALSE(session.undo.canUndo());
}

TEST_F(PlaybackTest, RunningThroughNumbersTooGreatForItsStepsEnds)
{
    session.scene.setPlaybackRange({1e17, 2e17});
    session.events.add("timeChanged", [&] {
        if (shown.size() > 1000)
            session.playback.stop();
    });
    shown.clear();
    session.playback.runThrough();
    EXPECT_EQ(shown, "1e+17 ");
    EXPECT_FALSE(session.playback.isPlaying());
}

TEST_F(PlaybackTest, ARangeOfOneFrameKeepsShowingIt)
{
    session.scene.setPlaybackRange({2, 2});
    for (const Playback::Loop loop : {Playback::Loop::Continuous, Playback::Loop::Oscillate}) {
        session.playback.options.loop = loop;
        session.playback.start();
        EXPECT_EQ(frames(2), "2 2 ");
        session.playback.stop();
    }
}

TEST_F(PlaybackTest, ANewSceneEndsIt)
{
    session.playback.start();
    newScene(session);
    EXPECT_FALSE(session.playback.isPlaying());
}

TEST_F(PlaybackTest, DroppedFramesLeadWhereShownOnesDo)
{
    session.scene.setPlaybackRange({1, 7.5});
    for (const Playback::Loop loop : {Playback::Loop::Continuous, Playback::Loop::Oscillate}) {
        for (const double by : {0.25, 1.0, 2.0, 4.0, 9.0}) {
            session.playback.options.loop = loop;
            session.playback.options.by = by;
            std::vector<double> ends;
            for (const int steps : {1, 5, 35}) {
                goTo(2);
                session.playback.setForward(true);
                session.playback.start();
                frames(35 / steps, steps);
                ends.push_back(session.scene.currentTime().value);
                session.playback.stop();
            }
            EXPECT_EQ(ends, std::vector<double>(3, ends.front())) << "by " << by;
        }
    }
}

TEST_F(PlaybackTest, DroppedFramesDoNotHideTheLastOneOfASingleRound)
{
    session.playback.options.loop = Playback::Loop::Once;
    session.playback.start();
    EXPECT_EQ(frames(2, 100), "4 ");
    EXPECT_FALSE(session.playback.isPlaying());
    session.playback.setForward(false);
    session.playback.start();
    EXPECT_EQ(frames(1, 3), "1 ");
    EXPECT_TRUE(session.playback.isPlaying()) << "it has its own time to be shown";
}

TEST_F(PlaybackTest, AFrameLastsAsLongAsItsSpeedSays)
{
    Playback::Options& options = session.playback.options;
    const auto duration = [&](double speed, double maxSpeed) {
        options.speed = speed;
        options.maxSpeed = maxSpeed;
        return session.playback.frameDuration();
    };
    EXPECT_EQ(duration(1, 0), 1000.0 / 24);
    EXPECT_EQ(duration(0.5, 1), 1000.0 / 12) << "the greatest speed is for playing every frame";
    EXPECT_EQ(duration(0, 0), 0);
    EXPECT_EQ(duration(0, 2), 1000.0 / 48);
    EXPECT_EQ(duration(1e-12, 0), 3600 * 1000) << "what a timer can count";
    EXPECT_EQ(duration(1e12, 0), 1e-3) << "or one late moment would be too many frames to count";
    session.scene.setTimeUnit(TimeUnit::PalFrame);
    EXPECT_EQ(duration(1, 0), 40);
}
