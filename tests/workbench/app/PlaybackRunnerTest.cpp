#include "app/PlaybackRunner.h"

#include "support/HostFixture.h"
#include "workbench/app/WindowSession.h"

#include <QEventLoop>
#include <QTimer>

namespace {

class PlaybackRunnerTest : public HostFixture {};

constexpr int kPatience = 20000;  // ms

}  // namespace

TEST_F(PlaybackRunnerTest, ShowsFrameAfterFrameUntilPlaybackEnds)
{
    const app::PlaybackRunner runner(session());
    std::vector<double> shown;
    QEventLoop loop;
    session().events.watch("playingBack", [&](bool isPlaying) {
        if (!isPlaying) {
            loop.quit();
        }
    });
    ASSERT_TRUE(run("playbackOptions -min 1 -max 4 -loop once -playbackSpeed 0; currentTime 1"));
    session().events.add("timeChanged", [&] { shown.push_back(session().scene.currentTime().value); });
    ASSERT_TRUE(run("play"));
    EXPECT_EQ(evaluate("play -q -state"), kernel::Value(1));
    EXPECT_TRUE(shown.empty()) << "nothing moves before the event loop turns";
    QTimer::singleShot(kPatience, &loop, SLOT(quit()));
    loop.exec();
    EXPECT_EQ(shown, (std::vector<double>{2, 3, 4}));
    EXPECT_EQ(evaluate("play -q -state"), kernel::Value(0));
}

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
