#include "app/TimeSlider.h"

#include "support/HostFixture.h"

#include <QApplication>
#include <QMouseEvent>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace {

using app::TimeScale;

class TimeSliderTest : public HostFixture {
protected:
    TimeSliderTest()
    {
        slider.resize(1000, slider.height());
        run("playbackOptions -min 1 -max 100; currentTime 1");
        session().undo.flush();
        session().events.add("timeChanged", [this] { times.push_back(session().scene.currentTime().value); });
    }

    void send(QEvent::Type type, double frame, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {})
    {
        const TimeScale scale{session().scene.playbackRange(), slider.width()};
        const bool isHeld = type != QEvent::MouseButtonRelease;
        QMouseEvent event(type, QPointF(scale.x(frame), 10), type == QEvent::MouseMove ? Qt::NoButton : button,
                          isHeld ? button : Qt::NoButton, modifiers);
        QApplication::sendEvent(&slider, &event);
    }
    /// Each frame is met in its middle, unless a fraction says otherwise.
    void press(double frame, Qt::KeyboardModifiers modifiers = {})
    {
        send(QEvent::MouseButtonPress, frame, Qt::LeftButton, modifiers);
    }
    void moveTo(double frame) { send(QEvent::MouseMove, frame, Qt::LeftButton); }
    void letGo(double frame) { send(QEvent::MouseButtonRelease, frame, Qt::LeftButton); }
    void drag(double from, double to, Qt::KeyboardModifiers modifiers = {})
    {
        press(from, modifiers);
        moveTo(to);
        letGo(to);
    }
    std::string block() { return kernel::toText(evaluate("timeControl -q -rangeArray x")); }
    /// The frames with a key's mark.
    std::vector<int> marked()
    {
        slider.ScheduleKeys();
        QCoreApplication::processEvents();
        const QImage picture = slider.grab().toImage();
        const TimeScale scale{session().scene.playbackRange(), slider.width()};
        std::vector<int> frames;
        for (int frame = int(scale.range.first); frame <= int(scale.range.last); ++frame) {
            const QColor seen = picture.pixelColor(int(std::round(scale.x(frame))), slider.height() - 2);
            if (seen.red() > 200 && seen.blue() < 120) {
                frames.push_back(frame);
            }
        }
        return frames;
    }
    bool isBlockVisible() { return session().scene.isSliderRangeVisible(); }
    double time() { return session().scene.currentTime().value; }

    std::vector<std::string> ran;
    std::vector<double> times;
    app::TimeSlider slider{session(), [this](const std::string& text) {
                               ran.push_back(text);
                               return session().script().execute(text, true, true).ok;
                           }};
};

}  // namespace

TEST(TimeScale, EveryFrameHasItsCellInTheWidth)
{
    const TimeScale scale{{11, 20}, 1000};
    EXPECT_DOUBLE_EQ(scale.x(11), 5);
    EXPECT_DOUBLE_EQ(scale.x(12), 104);
    EXPECT_DOUBLE_EQ(scale.x(21), 995);
    const struct {
        double x;
        int frame;
    } cases[] = {{-50, 11}, {0, 11}, {5.5, 11}, {103.5, 11}, {104.5, 12}, {994, 20}, {2000, 20}};
    for (const auto& c : cases) {
        EXPECT_EQ(scale.frameAt(c.x), c.frame) << "at " << c.x;
    }
    EXPECT_EQ((TimeScale{{1.5, 3.5}, 1000}.frameAt(0)), 2) << "whole frames of the range only";
    EXPECT_EQ((TimeScale{{1.5, 3.5}, 1000}.frameAt(999)), 3);
    EXPECT_EQ((TimeScale{{7, 7}, 1000}.frameAt(500)), 7);
    EXPECT_EQ((TimeScale{{-1e15, 1e15}, 1000}.frameAt(999)), 1000000000) << "and those that can be counted";
}

TEST_F(TimeSliderTest, ADragIsOneActionAndOneStepOfUndo)
{
    press(10.5);
    EXPECT_EQ(time(), 10);
    moveTo(10.8);
    moveTo(12.5);
    moveTo(300);
    moveTo(40.5);
    EXPECT_EQ(times, (std::vector<double>{10, 12, 100, 40}));
    EXPECT_TRUE(ran.empty());
    letGo(40.5);
    EXPECT_THAT(ran, testing::ElementsAre("currentTime 40"));
    EXPECT_EQ(time(), 40);
    EXPECT_TRUE(run("undo"));
    EXPECT_EQ(time(), 1);
    EXPECT_TRUE(run("redo"));
    EXPECT_EQ(time(), 40);
    EXPECT_EQ(session().undo.count(), 1u);
}

TEST_F(TimeSliderTest, ADragWhoseReleaseWentElsewhereEndsWithTheNext)
{
    press(10.5);
    press(20.5);
    letGo(20.5);
    EXPECT_THAT(ran, testing::ElementsAre("currentTime 10", "currentTime 20"));
}

TEST_F(TimeSliderTest, ShiftHighlightsFramesAndLeavesTheTime)
{
    drag(10.5, 14.5, Qt::ShiftModifier);
    EXPECT_EQ(block(), "10 15");
    drag(14.2, 10.7, Qt::ShiftModifier);
    EXPECT_EQ(block(), "10 15");
    EXPECT_TRUE(times.empty());
    drag(60.5, 60.5, Qt::ShiftModifier);
    EXPECT_EQ(block(), "60 61");
    EXPECT_TRUE(isBlockVisible());
    drag(50.5, 50.5);
    EXPECT_FALSE(isBlockVisible()) << "a click beside it";
    EXPECT_EQ(block(), "50 51");
    send(QEvent::MouseButtonDblClick, 50.5, Qt::LeftButton);
    EXPECT_EQ(block(), "1 101");

    drag(40.5, 44.5, Qt::ShiftModifier);
    run("playbackOptions -min 44");
    EXPECT_EQ(block(), "40 45") << "as long as there is something of it to see";
    run("playbackOptions -min 45");
    EXPECT_FALSE(isBlockVisible());
    drag(60.5, 62.5, Qt::ShiftModifier);
    run("playbackOptions -max 59");
    EXPECT_FALSE(isBlockVisible());
}

TEST_F(TimeSliderTest, TheHighlightedBlockIsMovedAndStretched)
{
    std::vector<std::string> heard;
    session().events.add("timeChanged", [&] { heard.push_back(block()); });
    drag(10.5, 19.5, Qt::ShiftModifier);
    press(15.5);
    moveTo(17.5);
    moveTo(25.5);
    EXPECT_EQ(block(), "20 30");
    EXPECT_EQ(heard, (std::vector<std::string>{"12 22", "20 30"})) << "with the time, where it has come to";
    EXPECT_EQ(times, (std::vector<double>{17, 25}));
    letGo(25.5);
    EXPECT_THAT(ran, testing::ElementsAre("currentTime 25"));

    drag(20.1, 24.5);
    EXPECT_EQ(block(), "24 30");
    drag(29.9, 40.5);
    EXPECT_EQ(block(), "24 41");
    drag(40.9, 3.5);
    EXPECT_EQ(block(), "24 25") << "a frame is left";
}

TEST_F(TimeSliderTest, MarksTheKeysOfTheSelectionAndItsShapes)
{
    using Frames = std::vector<int>;
    run("currentTime 50; createNode transform -n ball; createNode implicitSphere -n ballShape -p ball;"
        "createNode transform -n box;"
        "setKeyframe -attribute tx -attribute ty -time 8 -time 20 -time 200 ball;"
        "setKeyframe -attribute radius -time 30 ballShape; setKeyframe -attribute tx -time 90 box; select -clear");
    EXPECT_EQ(marked(), Frames());
    run("select ball");
    EXPECT_EQ(marked(), (Frames{8, 20, 30}));
    run("currentTime 20");
    EXPECT_EQ(marked(), (Frames{8, 20, 30})) << "on the current frame, too";
    run("select -add box; cutKey -clear -time 20 ball");
    EXPECT_EQ(marked(), (Frames{8, 30, 90}));
    run("undo; playbackOptions -min 15 -max 64");
    EXPECT_EQ(marked(), (Frames{20, 30}));
    run("currentUnit -time show; playbackOptions -min 1 -max 200; select box");
    EXPECT_EQ(marked(), (Frames{180})) << "twice the rate";
    run("delete box");
    EXPECT_EQ(marked(), Frames());
}
