#include "app/PlaybackRunner.h"

#include "support/HostFixture.h"
#include "workbench/app/WindowSession.h"

namespace {

class PlaybackRunnerTest : public HostFixture {};

}  // namespace

TEST_F(PlaybackRunnerTest, FollowsTheSpeedWhilePlaying)
{
    const app::PlaybackRunner runner(session());
    int shown = 0;
    ASSERT_TRUE(run("playbackOptions -min 1 -max 9 -loop once -playbackSpeed 0; currentTime 1"));
    session().events.add("timeChanged", [&] {
        ++shown;
        run("playbackOptions -playbackSpeed 0.00001");
    });
    ASSERT_TRUE(run("play"));
    turnEventLoop();
    EXPECT_EQ(shown, 1) << "the next one is due in an hour";
}
