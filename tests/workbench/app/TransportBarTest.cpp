#include "app/TransportBar.h"

#include "app/RateBox.h"
#include "app/Theme.h"
#include "support/HostFixture.h"

#include <QLabel>
#include <QToolButton>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

class TransportBarTest : public HostFixture {
protected:
    TransportBarTest() { run("playbackOptions -min 5 -max 30 -by 2; currentTime 10"); }

    QToolButton* button(const char* name) { return bar.findChild<QToolButton*>(name); }
    void click(const char* name) { button(name)->click(); }
    bool stops(const char* name) { return button(name)->toolTip().startsWith("Stop"); }
    std::string value(const std::string& script) { return kernel::toText(evaluate(script)); }
    std::vector<std::string> ran;
    app::TransportBar bar{session(), [this](const std::string& text) {
                              ran.push_back(text);
                              return run(text);
                          }};
};

}  // namespace

TEST_F(TransportBarTest, ThePlayButtonInUseStops)
{
    click("playForwards");
    EXPECT_TRUE(session().playback.isPlaying());
    EXPECT_TRUE(stops("playForwards"));
    EXPECT_FALSE(stops("playBackwards"));
    click("playBackwards");
    EXPECT_FALSE(session().playback.isForward()) << "turns round";
    EXPECT_TRUE(stops("playBackwards"));
    EXPECT_FALSE(stops("playForwards"));
    session().playback.setForward(true);  // oscillating
    click("playBackwards");
    EXPECT_FALSE(session().playback.isPlaying());
    EXPECT_FALSE(stops("playBackwards"));
    EXPECT_THAT(ran, testing::ElementsAre("play -forward on", "play -forward off", "play -state off"));

    run("play");
    EXPECT_TRUE(stops("playForwards")) << "started elsewhere";
}

TEST_F(TransportBarTest, TheLoopButtonGoesThroughTheWaysOfLooping)
{
    for (const char* loop : {"oscillate", "once", "continuous"}) {
        const QString before = button("loopMode")->toolTip();
        click("loopMode");
        EXPECT_EQ(value("playbackOptions -q -loop"), loop);
        EXPECT_NE(button("loopMode")->toolTip(), before);
    }
    const QString shown = button("loopMode")->toolTip();
    run("playbackOptions -loop once");
    EXPECT_NE(button("loopMode")->toolTip(), shown);
}

TEST_F(TransportBarTest, TheRateBoxFollowsAndSetsTheUnit)
{
    auto* const box = bar.findChild<QComboBox*>("frameRate");
    EXPECT_EQ(box->currentText(), "24 fps");
    EXPECT_EQ(box->count(), 7);
    box->setCurrentIndex(box->findText("23.976 fps"));
    emit box->activated(box->currentIndex());
    EXPECT_EQ(value("currentUnit -q -time"), "23.976fps");
    run("currentUnit -time \"8fps\"");
    EXPECT_EQ(box->currentText(), "8 fps") << "one that is not usual is there while it is used";
    run("currentUnit -time pal");
    EXPECT_EQ(box->currentText(), "25 fps");
    EXPECT_EQ(box->count(), 7);
    EXPECT_EQ(app::frameRateText(kernel::TimeUnit::Fps44100), "44100 fps");
}

TEST_F(TransportBarTest, TheRateReachedWarnsOfDroppedFrames)
{
    auto* const label = bar.findChild<QLabel*>("reachedRate");
    const auto warns = [&] {
        return label->palette().color(QPalette::WindowText) == app::messageColour(kernel::Severity::Warning);
    };
    run("play");
    bar.ShowRate(23.96);
    EXPECT_EQ(label->text(), "24.0 fps");
    EXPECT_FALSE(warns());
    bar.ShowRate(22.7);
    EXPECT_TRUE(warns());
    run("playbackOptions -playbackSpeed 0.5");
    bar.ShowRate(12);
    EXPECT_FALSE(warns()) << "half the speed was asked for";
    run("playbackOptions -playbackSpeed 0");
    bar.ShowRate(3);
    EXPECT_FALSE(warns()) << "nothing is dropped";
    run("play -state off");
    EXPECT_EQ(label->text(), "");
}
