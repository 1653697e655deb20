#include "support/NodeFixture.h"

#include "contexts/InputWorker.h"
#include "contexts/ThreadManager.h"
#include "model/PixelBudget.h"
#include "node/Callbacks.h"
#include "settings/PenState.h"
#include "support/Drawings.h"
#include "support/TestView.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QSemaphore>
#include <QThread>

#include <atomic>
#include <mutex>

namespace {

const SampleTime kStart = SampleTime() + std::chrono::hours(1);

/// A pointer that other threads read and the test moves, each time at a time of the test's own.
class TestPointer {
public:
    void moveTo(int x, int y, SampleTime time = kStart)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_sighting = {QPoint(x, y), time};
    }
    PointerSighting read()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        ++reads;
        return m_sighting;
    }

    std::atomic<int> reads{0};

private:
    std::mutex m_mutex;
    PointerSighting m_sighting;
};

/// Has the drawing hear of the host's events.
struct ListeningToTime {
    ListeningToTime()
    {
        EXPECT_TRUE(callbacks::install([] {}));
    }
    ~ListeningToTime() { EXPECT_TRUE(callbacks::remove()); }
};

/// No picture but those in use is to stay unpacked.
struct NoPixelBudget {
    NoPixelBudget() { PixelBudget::instance().setLimit(0); }
    ~NoPixelBudget() { PixelBudget::instance().setLimit(before); }

    const qint64 before = PixelBudget::instance().limit();
};

class ThreadManagerTest : public NodeFixture {
protected:
    ThreadManagerTest()
    {
        run("setAttr perspShape.filmFit 1");  // the canvas is as wide as the view
        pointer.moveTo(140, 160);             // (100, 100) in the view
        drawing().insertLayer("persp", -1, "Ink");
        drawing().addFrameAtCurrentTime("persp");
        M3dView view = M3dView::active3dView();
        EXPECT_TRUE(node().prepareToolView(view));
    }

    ActiveStroke* begin(ToolType tool)
    {
        Preferences::instance().setActiveTool(tool);
        return drawing().beginStroke("persp", false);
    }
    void sample(int x, int y) { manager.OnMousePositionChanged(QPoint(x, y), 6, 1.0f, 1.0f); }
    /// The views get an event of the mouse.
    /// x: on the screen.
    void note(QEvent::Type type, unsigned long stamp, SampleTime heard, Qt::MouseButton button = Qt::LeftButton,
              int x = 140)
    {
        QMouseEvent event(type, QPointF(), QPointF(x, 160), button, Qt::LeftButton, Qt::NoModifier);
        event.setTimestamp(stamp);
        manager.noteInput(event, heard);
    }
    void waitForReads(int more)
    {
        const int wanted = pointer.reads + more;
        while (pointer.reads < wanted) {
            QThread::yieldCurrentThread();
        }
    }

    TestViews views;
    TestPointer pointer;
    ThreadManager manager{[this] { return pointer.read(); }};
};

TEST_F(ThreadManagerTest, SamplesWhileTheMainThreadIsBusyAndDeliversThemAtTheEnd)
{
    ActiveStroke* stroke = begin(ToolType::Pencil);
    manager.start(views.persp().widget(), &node(), "persp");
    ASSERT_TRUE(manager.isRunning());
    for (int i = 1; i <= 5; ++i) {  // no event is processed here
        pointer.moveTo(140 + i * 30, 160);
        waitForReads(2);
    }
    EXPECT_TRUE(stroke->points.isEmpty());
    manager.stop();
    EXPECT_FALSE(manager.isRunning());
    ASSERT_GE(stroke->points.size(), 6);
    EXPECT_TRUE(stroke->changed);
    for (int i = 1; i < stroke->points.size(); ++i) {
        EXPECT_GE(stroke->points[i].position.x(), stroke->points[i - 1].position.x());
    }
}

TEST_F(ThreadManagerTest, TheShortestClickLeavesItsMarkEachTime)
{
    for (int click = 0; click < 50; ++click) {
        ActiveStroke* stroke = begin(ToolType::Pencil);
        manager.start(views.persp().widget(), &node(), "persp");
        manager.stop();
        ASSERT_EQ(stroke->points.size(), 2);
        // A view of 512 pixels shows the canvas at half its size; the view's origin is its lower left.
        EXPECT_EQ(stroke->points[0].position, QPoint(200, 198));
        EXPECT_EQ(stroke->points[1].position, QPoint(201, 198));
        drawing().dropStroke();
    }
}

TEST_F(ThreadManagerTest, ToolValuesAreThoseOfTheStrokesStart)
{
    Preferences& preferences = Preferences::instance();
    preferences.setToolSize(ToolType::Brush, 33);
    preferences.setToolOpacity(ToolType::Brush, 40);
    preferences.setToolHardness(ToolType::Brush, 70);
    ActiveStroke* stroke = begin(ToolType::Brush);
    manager.start(views.persp().widget(), &node(), "persp");
    preferences.setToolSize(ToolType::Brush, 5);
    preferences.setActiveTool(ToolType::Line);
    manager.stop();
    ASSERT_FALSE(stroke->points.isEmpty());
    EXPECT_EQ(stroke->points[0].width, 33);
    EXPECT_FLOAT_EQ(stroke->points[0].opacity, 0.4f);
    EXPECT_FLOAT_EQ(stroke->points[0].hardness, 0.7f);
}

TEST_F(ThreadManagerTest, FreehandPointsAreSmoothedAndTheFirstSegmentShowsAtOnce)
{
    ActiveStroke* stroke = begin(ToolType::Pencil);
    pointer.moveTo(0, 0);
    manager.start(views.persp().widget(), &node(), "persp");
    sample(100, 100);
    EXPECT_EQ(views.persp().refreshes, 0);
    sample(130, 100);
    EXPECT_EQ(views.persp().refreshes, 1);
    sample(130, 100);
    ASSERT_EQ(stroke->points.size(), 3);
    EXPECT_EQ(stroke->points[1].position.x(), 240);  // 2/3 of the way
    EXPECT_EQ(views.persp().refreshes, 1);
    EXPECT_GT(views.persp().scheduled, 0);
}

TEST_F(ThreadManagerTest, TheFirstRefreshAfterAPressShowsInk)
{
    for (ToolType tool :
         {ToolType::Brush, ToolType::Pencil, ToolType::Line, ToolType::Arrow, ToolType::Ellipse, ToolType::Rectangle}) {
        const QImage without = drawing().composite("persp")->copy();
        std::vector<bool> inked;
        views.persp().draw = [&] { inked.push_back(*drawing().composite("persp") != without); };
        begin(tool);
        manager.start(views.persp().widget(), &node(), "persp");
        waitForReads(2);  // the press is under way
        QCoreApplication::processEvents();
        views.persp().draw = [] {};
        manager.stop();
        EXPECT_EQ(inked, std::vector<bool>{true}) << "tool " << int(tool);
        drawing().dropStroke();
    }
}

TEST_F(ThreadManagerTest, AStrokeUnderPlaybackStaysOnItsFrameAndNothingIsEncodedBetweenFrames)
{
    const ListeningToTime listening;
    run("playbackOptions -min 1 -max 5; currentTime 1");
    drawing().takeAllLayers("persp");
    drawing().insertLayer("persp", -1, drawings::layer("Ink", {1, 2, 3, 4, 5}));
    drawing().setActiveLayer("persp", 0, true);
    const Layer* layer = drawing().layer("persp", 0);
    run("play -state on");
    const NoPixelBudget none;
    const auto showNext = [&] {
        session().playback.advance();
        drawing().composite("persp");
        for (int number = 1; number <= 5; ++number) {
            EXPECT_TRUE(layer->frameNumbered(number)->isUnpacked()) << "frame " << number;
        }
    };
    const auto pictures = [layer] {
        std::vector<QString> hashes;
        for (int number = 1; number <= 5; ++number) {
            hashes.push_back(pixels::hash(layer->frameNumbered(number)->image()));
        }
        return hashes;
    };
    showNext();
    std::vector<QString> wanted = pictures();
    const ActiveStroke* stroke = begin(ToolType::Pencil);
    manager.start(views.persp().widget(), &node(), "persp");
    showNext();
    sample(200, 100);
    showNext();
    EXPECT_EQ(layer->currentFrame()->frameNumber(), 2);
    manager.stop();
    EXPECT_GT(stroke->points.size(), 1);
    EXPECT_EQ(pictures(), wanted);
    Picture undo;
    ASSERT_TRUE(drawing().commitStroke("persp", undo));
    showNext();
    const std::vector<QString> drawn = pictures();
    EXPECT_NE(drawn[1], wanted[1]) << "the frame that was shown when it was begun";
    wanted[1] = drawn[1];
    EXPECT_EQ(drawn, wanted);
    EXPECT_EQ(layer->currentFrame()->frameNumber(), 5) << "its layer plays on";
    EXPECT_TRUE(MAnimControl::isPlaying());
}

TEST_F(ThreadManagerTest, APressureKnownLateWeighsAllThatWasSampledBefore)
{
    for (const bool withTablet : {true, false}) {
        Preferences::instance().setTabletEnabled(ToolType::Brush, withTablet);
        ActiveStroke* stroke = begin(ToolType::Brush);
        manager.start(views.persp().widget(), &node(), "persp");
        waitForReads(1);  // what this has sampled is still under way
        manager.weighStroke(0.25f);
        for (int i = 1; i <= 6; ++i) {
            pointer.moveTo(140 + i * 30, 160);
            waitForReads(2);
        }
        manager.stop();
        ASSERT_GE(stroke->points.size(), 6);
        for (const StrokePoint& point : stroke->points) {
            EXPECT_FLOAT_EQ(point.opacity, withTablet ? 0.25f : 1.0f);
        }
        drawing().dropStroke();
        penState::reset();
    }
}

TEST_F(ThreadManagerTest, AShapeIsSpannedBetweenItsStartAndTheLatestPosition)
{
    for (ToolType tool : {ToolType::Line, ToolType::Arrow, ToolType::Ellipse, ToolType::Rectangle}) {
        ActiveStroke* stroke = begin(tool);
        manager.start(views.persp().widget(), &node(), "persp");
        sample(99, 100);
        sample(100, 100);
        sample(150, 120);
        sample(151, 120);  // shapes are not thinned
        ASSERT_EQ(stroke->points.size(), 2);
        EXPECT_EQ(stroke->points[0].position, QPoint(200, 824));
        EXPECT_EQ(stroke->points[1].position, QPoint(302, 784));
        drawing().dropStroke();
        manager.stop();
    }
}

TEST_F(ThreadManagerTest, TextStandsAtTheLatestPositionInTheChosenFont)
{
    Preferences::instance().setTextFontFamily("Nimbus");
    ActiveStroke* stroke = begin(ToolType::Text);
    manager.start(views.persp().widget(), &node(), "persp");
    sample(99, 100);
    sample(150, 120);
    ASSERT_EQ(stroke->points.size(), 1);
    EXPECT_EQ(stroke->points[0].position, QPoint(300, 784));
    EXPECT_EQ(stroke->fontFamily, "Nimbus");
}

TEST_F(ThreadManagerTest, AStrokeStaysUnderThePointerInAViewThatChangesUnderIt)
{
    QWidget& view = *views.persp().widget();
    const struct {
        const char* what;
        QRect place;
        const char* overscan;
        QPoint canvas;  // under the screen's point (340, 260)
    } cases[] = {
        {"as it was", {40, 60, 512, 512}, "1", {602, 398}},
        {"moved", {20, 30, 512, 512}, "1", {642, 458}},
        {"moved and resized", {20, 30, 1024, 1024}, "1", {321, 229}},
        {"drawn smaller", {40, 60, 512, 512}, "2", {692, 284}},
        {"without a canvas to be seen", {40, 60, 512, 512}, "1000000", {602, 398}},
    };
    view.show();  // hidden widgets are told of their moves later
    for (const auto& c : cases) {
        ActiveStroke* stroke = begin(ToolType::Line);
        manager.start(&view, &node(), "persp");
        waitForReads(2);
        QCoreApplication::processEvents();
        view.setGeometry(c.place);
        run(std::string("setAttr perspShape.overscan ") + c.overscan);
        pointer.moveTo(340, 260);
        waitForReads(2);
        manager.stop();
        ASSERT_EQ(stroke->points.size(), 2);
        EXPECT_EQ(stroke->points[1].position, c.canvas) << c.what;
        drawing().dropStroke();
        pointer.moveTo(140, 160);
        view.setGeometry(40, 60, 512, 512);
        run("setAttr perspShape.overscan 1");
    }
}

TEST_F(ThreadManagerTest, WhatWasSampledBeforeTheViewChangedIsDrawnWhereItWasThen)
{
    QWidget& view = *views.persp().widget();
    view.show();
    ActiveStroke* stroke = begin(ToolType::Line);
    manager.start(&view, &node(), "persp");
    waitForReads(2);  // what this has sampled is still under way
    view.setGeometry(20, 30, 1024, 1024);
    pointer.moveTo(340, 260);
    waitForReads(2);
    manager.stop();
    ASSERT_EQ(stroke->points.size(), 2);
    EXPECT_EQ(stroke->points[0].position, QPoint(202, 198));
    EXPECT_EQ(stroke->points[1].position, QPoint(321, 229));
}

TEST_F(ThreadManagerTest, AStrokeEndsWhereTheButtonWentUpHoweverLateTheHostSaysSo)
{
    using std::chrono::milliseconds;
    const struct {
        const char* what;
        unsigned long pressed, moved, released;  // stamps; the events are heard at 0, 60 and 400 ms
        Qt::MouseButton button;
        int place;                 // x of the release, on the screen
        int freehand, line, text;  // x of the stroke's last point
    } cases[] = {
        {"in time", 7000, 7060, 7400, Qt::LeftButton, 300, 391, 522, 522},
        {"in time, the pointer unseen at the end", 7000, 7060, 7400, Qt::LeftButton, 310, 461, 542, 542},
        {"release heard late", 7000, 7050, 7100, Qt::LeftButton, 200, 262, 322, 322},
        {"late, the pointer unseen at the end", 7000, 7050, 7100, Qt::LeftButton, 210, 294, 342, 342},
        {"press heard late too", 6970, 7060, 7100, Qt::LeftButton, 200, 262, 322, 322},
        {"seen after the release only", 7000, 7050, 7080, Qt::LeftButton, 190, 262, 322, 322},
        {"without stamps", 0, 0, 0, Qt::LeftButton, 140, 391, 522, 522},
        {"stamps run backwards", 7000, 6000, 7100, Qt::LeftButton, 140, 391, 522, 522},
        {"another button", 7000, 7050, 7100, Qt::RightButton, 140, 391, 522, 522},
        {"released at once", 7000, 7000, 7001, Qt::LeftButton, 141, 201, 200, 202},
    };
    for (const ToolType tool : {ToolType::Pencil, ToolType::Eraser, ToolType::Line, ToolType::Text}) {
        for (const auto& c : cases) {
            SCOPED_TRACE(std::string(c.what) + ", tool " + std::to_string(int(tool)));
            ActiveStroke* stroke = begin(tool);
            note(QEvent::MouseButtonPress, c.pressed, kStart);
            pointer.moveTo(140, 160, kStart);
            manager.start(views.persp().widget(), &node(), "persp");
            waitForReads(2);
            note(QEvent::MouseMove, c.moved, kStart + milliseconds(60));
            for (const auto& step : {std::pair<int, int>{200, 90}, {250, 125}, {300, 300}}) {
                pointer.moveTo(step.first, 160, kStart + milliseconds(step.second));
                waitForReads(2);
            }
            note(QEvent::MouseButtonRelease, c.released, kStart + milliseconds(400), c.button, c.place);
            manager.stop();
            const int end = isFreehand(tool) ? c.freehand : tool == ToolType::Line ? c.line : c.text;
            EXPECT_EQ(stroke->points.last().position.x(), end);
            drawing().dropStroke();
        }
    }
}

// The window system's clock stood still for an hour, as some do while the machine sleeps, and no view has seen the
// second press.
TEST_F(ThreadManagerTest, AStrokeIsNotCutByWhatAnEarlierOneToldOfTheClocks)
{
    using std::chrono::milliseconds;
    const auto lineWithoutPress = [this](unsigned long stamp, SampleTime pressed) {
        ActiveStroke* stroke = begin(ToolType::Line);
        pointer.moveTo(140, 160, pressed);
        manager.start(views.persp().widget(), &node(), "persp");
        waitForReads(2);
        note(QEvent::MouseMove, stamp + 10, pressed + milliseconds(10));
        pointer.moveTo(300, 160, pressed + milliseconds(20));
        waitForReads(2);
        note(QEvent::MouseButtonRelease, stamp + 40, pressed + milliseconds(40), Qt::LeftButton, 300);
        manager.stop();
        EXPECT_EQ(stroke->points.last().position.x(), 522);
        drawing().dropStroke();
    };
    note(QEvent::MouseButtonPress, 7000, kStart);
    lineWithoutPress(7000, kStart);
    note(QEvent::MouseButtonRelease, 7500, kStart + milliseconds(500));
    note(QEvent::MouseMove, 7600, kStart + milliseconds(600));
    lineWithoutPress(8000, kStart + std::chrono::hours(1));
}

TEST_F(ThreadManagerTest, SamplesWithoutAStrokeAreIgnored)
{
    sample(10, 10);
    manager.stop();
    manager.start(nullptr, &node(), "persp");
    EXPECT_FALSE(manager.isRunning());
    manager.start(views.persp().widget(), nullptr, "persp");
    EXPECT_FALSE(manager.isRunning());
    manager.start(views.persp().widget(), &node(), "persp");  // nothing was begun
    EXPECT_FALSE(manager.isRunning());

    begin(ToolType::Pencil);
    manager.start(views.persp().widget(), &node(), "persp");
    drawing().dropStroke();
    sample(10, 10);
    run("file -f -new");
    sample(10, 10);
    manager.stop();
}

TEST_F(ThreadManagerTest, AStrokeMayBeStartedTwiceAndEndWithTheModule)
{
    ActiveStroke* stroke = begin(ToolType::Line);
    {
        ThreadManager ending([this] { return pointer.read(); });
        ending.start(views.persp().widget(), &node(), "persp");
        ending.start(views.persp().widget(), &node(), "persp");
        EXPECT_TRUE(ending.isRunning());
        waitForReads(2);
    }
    EXPECT_EQ(stroke->points.size(), 2);
    drawing().dropStroke();

    std::unique_ptr<QWidget> window(new QWidget);
    auto* view = new QWidget(window.get());
    begin(ToolType::Line);
    manager.start(view, &node(), "persp");
    waitForReads(1);
    window.reset();
    manager.stop();
    EXPECT_FALSE(manager.isRunning());
}

TEST_F(ThreadManagerTest, PlacesFarOffTheViewAreDrawnTowards)
{
    const int far = 1 << 24;
    ActiveStroke* stroke = begin(ToolType::Pencil);
    manager.start(views.persp().widget(), &node(), "persp");
    for (const QPoint& place : {QPoint(99, 100), QPoint(100, 100), QPoint(far, -far), QPoint(-far, far)}) {
        sample(place.x(), place.y());
    }
    ASSERT_EQ(stroke->points.size(), 4);
    EXPECT_NE(drawing().composite("persp"), nullptr);
    EXPECT_GT(stroke->points[2].position.x(), far / 2);
    EXPECT_LT(stroke->points[3].position.x(), 0);
}

TEST_F(ThreadManagerTest, AWorkerThatIsStuckIsLeftBehindAndNeverDisturbsTheNextStroke)
{
    QSemaphore stuck;
    QSemaphore reading;
    std::atomic<bool> jam{true};
    ThreadManager jammed([&] {
        if (jam.exchange(false)) {
            reading.release();
            stuck.acquire();
            return PointerSighting{QPoint(400, 400), kStart};
        }
        return pointer.read();
    });
    ActiveStroke* stroke = begin(ToolType::Pencil);
    jammed.start(views.persp().widget(), &node(), "persp");
    reading.acquire();
    jammed.stop();  // gives up waiting
    EXPECT_EQ(stroke->points.size(), 2) << "the main thread's own poll";
    drawing().dropStroke();

    ActiveStroke* next = begin(ToolType::Pencil);
    jammed.start(views.persp().widget(), &node(), "persp");
    stuck.release();
    waitForReads(3);
    jammed.stop();
    EXPECT_EQ(next->points.size(), 2) << "only where the pointer is now";
    EXPECT_EQ(next->points[0].position, QPoint(200, 198));
    // Leaving the scope waits for the thread left behind; the leak checker sees that both objects went.
}

}  // namespace
