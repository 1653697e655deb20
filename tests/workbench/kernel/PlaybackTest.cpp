#include "kernel/Playback.h"

#include "kernel/SceneFile.h"
#include "kernel/Session.h"

#include <gtest/gtest.h>

using namespace kernel;

namespace {

class PlaybackTest : public testing::Test {
protected:
    PlaybackTest()
    {
        session.scene.setPlaybackRange({1, 4});
        session.events.add("timeChanged", [this] { shown += numberText(session.scene.currentTime().value) + " "; });
    }

    /// The frames of a few steps.
    std::string frames(int steps)
    {
        shown.clear();
        for (int i = 0; i < steps; ++i)
            session.playback.advance();
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
    EXPECT_EQ(session.playback.frameDuration(), 1000.0 / 24);
    session.playback.options.speed = 1e-12;
    EXPECT_EQ(session.playback.frameDuration(), 3600 * 1000) << "what a timer can count";
    session.playback.options.speed = 0;
    EXPECT_EQ(session.playback.frameDuration(), 0);
}
