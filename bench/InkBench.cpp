// What a hand sees of its stroke in a real view: how long a sample takes to reach the view's pixels, how many pictures
// pass before the first ink, what is lost while the host is busy, and what a burst of samples costs. Needs a display
// with OpenGL.

#include "Distribution.h"
#include "ShownView.h"
#include "StrokeTiming.h"

#include "commands/StrokeCommand.h"
#include "contexts/DrawContextCommand.h"

#include <QApplication>
#include <QCursor>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QOpenGLFunctions>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

namespace {

using std::chrono::milliseconds;

const Tool kBrush = {ToolType::Brush, 100, 0};
constexpr double kNormal = 15;  // canvas pixels from sample to sample

/// Turns the event loop for so many milliseconds.
void idle(int duration)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < duration) {
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    }
}

// Sample to pixels ----------------------------------------------------------------------------------------------------

void measurePixels(DrawnStage& stage, const ShownView& view, const BenchArguments& arguments)
{
    const struct {
        const char* name;
        Tool tool;
        bool legacy = false;
    } rows[] = {{"brush 100 px", kBrush},
                {"brush 100 px, legacy viewport", kBrush, true},
                {"pencil 6 px", {ToolType::Pencil, 6}},
                {"eraser 100 px", {ToolType::Eraser, 100}},
                {"line 50 px", {ToolType::Line, 50}}};
    const auto showAndReadBack = [&] {
        view->grabFramebuffer();
        require(!stage.drawing().needsRedraw(kCamera), "the view was drawn");
    };
    StrokeTiming timing(stage, *view, showAndReadBack, [&] { return millisecondsOf(showAndReadBack); });
    const DistributionTable table("Sample to pixels read back from the view; ms",
                                  "the view without a sample: median, 95 %", arguments);
    for (const auto& row : rows) {
        if (table.isWanted(row.name)) {
            view->setLegacy(row.legacy);
            const StrokeTiming::Samples samples =
                timing.measure(row.tool, HandPath({2, kNormal, 60}), arguments.quick ? 30 : 150);
            table.row(row.name, 0, samples.ours, samples.bare);
        }
    }
    view->setLegacy(false);
}

// Press to ink --------------------------------------------------------------------------------------------------------

/// The draw tool in the view, and the pictures of the view that reach the screen.
class Hand {
public:
    Hand(DrawnStage& stage, const ShownView& view) : m_view(view)
    {
        stage.session().batch = false;
        require(stage.plugin().registerContextCommand(names::kDrawContextCommand, DrawContextCommand::creator)
                    && stage.plugin().registerCommand(names::kStrokeCommand, StrokeCommand::creator,
                                                      StrokeCommand::newSyntax),
                "the tool and its command are there");
        require(stage.host().run("setToolTo `tqLmDrawCtx`"), "the tool is entered");
        QObject::connect(&*view, &view::Viewport::frameSwapped, &m_listener, [this] { lookAtPicture(); });
    }
    ~Hand() { ThreadManager::destroy(); }

    /// Presses and lets go. Gives how many pictures it took until there was ink.
    int click(const QPoint& at)
    {
        idle(30);  // what was asked for before has been shown
        m_at = at;
        m_without = pixels();
        m_pictures = 0;
        m_picturesToInk = 0;
        QCursor::setPos(m_view->mapToGlobal(at));
        send(QEvent::MouseButtonPress, Qt::LeftButton);
        QElapsedTimer clock;
        for (clock.start(); m_picturesToInk == 0;) {
            require(clock.elapsed() < 5000, "a press shows ink");
            QApplication::processEvents();
        }
        send(QEvent::MouseButtonRelease, Qt::NoButton);
        return m_picturesToInk;
    }

private:
    void send(QEvent::Type type, Qt::MouseButtons held)
    {
        QMouseEvent event(type, m_at, m_view->mapToGlobal(m_at), Qt::LeftButton, held, Qt::NoModifier);
        QApplication::sendEvent(&*m_view, &event);
    }
    void lookAtPicture()
    {
        ++m_pictures;
        if (m_picturesToInk == 0 && pixels() != m_without) {
            m_picturesToInk = m_pictures;
        }
    }
    // Around the place, as they are on the screen: nothing is drawn for it.
    QImage pixels() const
    {
        constexpr int kReach = 60;
        QImage read(2 * kReach, 2 * kReach, QImage::Format_RGBA8888);
        m_view->makeCurrent();
        glReadPixels(m_at.x() - kReach, m_view->height() - m_at.y() - kReach, read.width(), read.height(), GL_RGBA,
                     GL_UNSIGNED_BYTE, read.bits());
        return read;
    }

    const ShownView& m_view;
    QObject m_listener;
    QPoint m_at;
    QImage m_without;
    int m_pictures = 0;
    int m_picturesToInk = 0;
};

/// At places that are far from one another, and most of all from the one before.
QPoint anyPlace(int number)
{
    return QPoint(150 + number * 379 % 720, 150 + number * 283 % 500);
}

void measureFirstInk(DrawnStage& stage, const ShownView& view, const BenchArguments& arguments)
{
    const struct {
        const char* name;
        ToolType tool;
        bool onNothing = false;  // the press makes layer and frame
    } rows[] = {{"press to ink, brush", ToolType::Brush},
                {"press to ink, pencil", ToolType::Pencil},
                {"press to ink, line", ToolType::Line},
                {"press to ink, ellipse", ToolType::Ellipse},
                {"press to ink, brush on a new layer", ToolType::Brush, true}};
    std::printf("\n%-50s %7s %12s %8s\n", "Pictures of the view until there is ink", "presses", "more than 1", "most");
    Hand hand(stage, view);
    int number = 0;
    for (const auto& row : rows) {
        if (!arguments.isWanted(row.name)) {
            continue;
        }
        Preferences::instance().setActiveTool(row.tool);
        Preferences::instance().setToolSize(row.tool, 40);
        std::vector<int> pictures;
        for (int i = 0; i < (arguments.quick ? 10 : 100); ++i) {
            if (row.onNothing) {
                stage.drawing().takeAllLayers(kCamera);
            }
            pictures.push_back(hand.click(anyPlace(++number)));
        }
        const auto more = std::count_if(pictures.begin(), pictures.end(), [](int count) { return count > 1; });
        const int most = *std::max_element(pictures.begin(), pictures.end());
        std::printf("%-50s %7zu %12d %8d  aim 1: %s\n", row.name, pictures.size(), int(more), most,
                    most == 1 ? "reached" : "MISSED");
        std::fflush(stdout);
    }
}

// A busy host ---------------------------------------------------------------------------------------------------------

/// Moves on whenever it is looked at, each time far enough to count. Looked at by one thread.
class RestlessPointer {
public:
    explicit RestlessPointer(const QWidget& view) : m_origin(view.mapToGlobal(QPoint(100, 100))) {}

    PointerSighting look()
    {
        constexpr int kStep = 20, kWay = 700;
        const SampleTime now = SampleClock::now();
        m_longestGap = looks > 0 ? std::max(m_longestGap, now - m_last) : m_longestGap;
        m_last = now;
        const int at = looks++ * kStep;
        return {m_origin + QPoint(at % kWay, at / kWay * kStep), now};
    }
    double longestGap() const { return std::chrono::duration<double, std::milli>(m_longestGap).count(); }

    std::atomic<int> looks{0};

private:
    const QPoint m_origin;
    SampleTime m_last;
    SampleClock::duration m_longestGap{};
};

void workFor(milliseconds duration)
{
    const auto end = SampleClock::now() + duration;
    while (SampleClock::now() < end) {
    }
}

void measureStall(DrawnStage& stage, const ShownView& view, const BenchArguments& arguments)
{
    const char* const name = "main loop busy for 200 ms";
    if (!arguments.isWanted(name)) {
        return;
    }
    std::printf("\n%-50s %10s %10s %12s %8s\n", "Samples of a busy host, one every 8 ms", "in a stall", "in all",
                "longest gap", "lost");
    for (int i = 0; i < (arguments.quick ? 2 : 5); ++i) {
        RestlessPointer pointer(*view);
        PointedStroke stroke(stage, *view, {ToolType::Pencil, 6}, [&pointer] { return pointer.look(); });
        stroke.start();
        stroke.awaitPress();
        const int before = pointer.looks;
        workFor(milliseconds(200));
        const int inTheStall = pointer.looks - before;
        idle(50);
        stroke.stop();
        const int due = pointer.looks + 1;  // a press sends two
        const int lost = due - stroke.record().points.size();
        stage.drawing().dropStroke();
        std::printf("%-50s %10d %10d %9.1f ms %8d  aim 0: %s\n", name, inTheStall, due, pointer.longestGap(), lost,
                    lost == 0 ? "reached" : "MISSED");
        std::fflush(stdout);
    }
}

// A burst -------------------------------------------------------------------------------------------------------------

/// Counts the pictures that a view is asked for.
class PaintCounter : public QObject {
public:
    int paints = 0;

    bool eventFilter(QObject*, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

/// Samples from another thread, one each millisecond, as the worker sends them.
class Burst {
public:
    Burst(PointedStroke& stroke, int count) : m_thread([this, &stroke, count] { send(stroke, count); }) {}
    ~Burst() { m_thread.join(); }

    bool hasArrived() const { return m_hasArrived; }
    double millisecondsSinceLast() const
    {
        return std::chrono::duration<double, std::milli>(SampleClock::now() - m_last).count();
    }

private:
    void send(PointedStroke& stroke, int count)
    {
        HandPath hand({kNormal / 8});
        SampleTime due = SampleClock::now();
        for (int i = 0; i < count; ++i, due += milliseconds(1)) {
            std::this_thread::sleep_until(due);
            m_last = SampleClock::now();
            QMetaObject::invokeMethod(
                &stroke.manager(), [&stroke, at = hand.next()] { stroke.sample(at); }, Qt::QueuedConnection);
        }
        QMetaObject::invokeMethod(
            &stroke.manager(), [this] { m_hasArrived = true; }, Qt::QueuedConnection);
    }

    SampleTime m_last;          // the other thread's, until the samples have arrived
    bool m_hasArrived = false;  // the main thread's
    std::thread m_thread;       // last: it uses the others
};

void measureBurst(DrawnStage& stage, const ShownView& view, const BenchArguments& arguments)
{
    const char* const name = "1,000 samples a second, brush 100 px";
    if (!arguments.isWanted(name)) {
        return;
    }
    std::printf("\n%-50s %8s %8s %9s %14s %12s\n", "A burst", "samples", "turns", "pictures", "most in a turn",
                "all shown");
    for (int i = 0; i < (arguments.quick ? 1 : 3); ++i) {
        const int count = arguments.quick ? 300 : 1000;
        PointedStroke stroke(stage, *view, kBrush, PointedStroke::restingAt(*view, HandPath({kNormal}).next()));
        stroke.start();
        stroke.awaitPress();
        idle(50);
        PaintCounter counter;
        view->installEventFilter(&counter);
        Burst burst(stroke, count);
        int turns = 0;
        int most = 0;
        while (!burst.hasArrived() || stroke.record().changed) {
            const int before = counter.paints;
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
            ++turns;
            most = std::max(most, counter.paints - before);
        }
        std::printf("%-50s %8d %8d %9d %14d %9.1f ms  aim 1: %s\n", name, count, turns, counter.paints, most,
                    burst.millisecondsSinceLast(), most <= 1 ? "reached" : "MISSED");
        std::fflush(stdout);
        stroke.stop();
        stage.drawing().dropStroke();
    }
}

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    if (QGuiApplication::platformName() == "offscreen") {
        std::printf("\nInk in a view: no OpenGL on this platform\n");
        return 0;
    }
    const BenchArguments arguments(argc, argv);
    DrawnStage stage;
    const ShownView view(stage, QSize(kCanvasSize, kCanvasSize));
    measurePixels(stage, view, arguments);
    measureStall(stage, view, arguments);
    measureBurst(stage, view, arguments);
    measureFirstInk(stage, view, arguments);
    return 0;
}
