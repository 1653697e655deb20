// The way of a stroke, from the sample of the pointer to the picture that shows it: the distribution of what a sample
// takes, and of what the thread that samples costs at both ends of a stroke.

#include "Distribution.h"
#include "StrokeTiming.h"

#include "support/TestView.h"

#include <QThread>

#include <cstring>

namespace {

constexpr double kSlow = 2, kNormal = 15, kFast = 60;  // canvas pixels a sample at 125 samples a second
const std::vector<double> kAnySpeed = {kSlow, kNormal, kFast};

// Sample to picture -------------------------------------------------------------------------------------------------

double copyOfACanvas()
{
    static const QImage from = Figure(1).drawn();
    static QImage to = blankCanvas();
    return millisecondsOf([] { std::memcpy(to.bits(), from.constBits(), std::size_t(from.sizeInBytes())); });
}

void measureComposite(DrawnStage& stage, QWidget& view, const BenchArguments& arguments)
{
    const struct {
        const char* name;
        Tool tool;
        std::vector<double> steps;
        bool tinted = false;
    } rows[] = {{"brush 100 px", {ToolType::Brush, 100, 0}, kAnySpeed},
                {"brush 100 px, slow", {ToolType::Brush, 100, 0}, {kSlow}},
                {"brush 100 px, normal", {ToolType::Brush, 100, 0}, {kNormal}},
                {"brush 100 px, fast", {ToolType::Brush, 100, 0}, {kFast}},
                {"brush 100 px, hard", {ToolType::Brush, 100}, kAnySpeed},
                {"brush 100 px, tinted ghosts", {ToolType::Brush, 100, 0}, kAnySpeed, true},
                {"brush 20 px", {ToolType::Brush, 20, 0}, kAnySpeed},
                {"pencil 100 px", {ToolType::Pencil, 100}, kAnySpeed},
                {"pencil 6 px", {ToolType::Pencil, 6}, kAnySpeed},
                {"eraser 100 px", {ToolType::Eraser, 100}, kAnySpeed},
                {"line 50 px", {ToolType::Line, 50}, kAnySpeed},
                {"arrow 50 px", {ToolType::Arrow, 50}, kAnySpeed},
                {"ellipse 50 px", {ToolType::Ellipse, 50}, kAnySpeed},
                {"rectangle 50 px", {ToolType::Rectangle, 50}, kAnySpeed},
                {"text 100 points", {ToolType::Text, 100}, kAnySpeed}};
    StrokeTiming timing(
        stage, view, [&stage] { stage.drawing().composite(kCamera); }, copyOfACanvas);
    const DistributionTable table("Sample to picture: 20 layers, 3+3 ghosts; ms", "a canvas copied: median, 95 %",
                                  arguments);
    for (const auto& row : rows) {
        if (table.isWanted(row.name)) {
            Preferences::instance().setGhostColorOverride(row.tinted);
            const StrokeTiming::Samples samples =
                timing.measure(row.tool, HandPath(row.steps), arguments.quick ? 60 : 600);
            table.row(row.name, 2, samples.ours, samples.bare);
        }
    }
    Preferences::instance().setGhostColorOverride(false);
}

// The sampling thread -----------------------------------------------------------------------------------------------

double bareThread()
{
    QThread thread;
    return millisecondsOf([&thread] {
        thread.start();
        thread.quit();
        thread.wait();
    });
}

void measureThread(DrawnStage& stage, QWidget& view, const BenchArguments& arguments)
{
    const char* const names[] = {"press, thread's start", "pen-up, thread's end"};
    const DistributionTable table("The thread that samples the pen; ms", "a bare thread: median, 95 %", arguments);
    if (!table.isWanted(names[0]) && !table.isWanted(names[1])) {
        return;
    }
    std::vector<Took> starts, ends;
    std::vector<double> bare;
    HandPath hand(kAnySpeed);
    for (int i = 0; i < (arguments.quick ? 60 : 600); ++i) {
        PointedStroke stroke(stage, view, {ToolType::Brush, 100, 0}, PointedStroke::restingAt(view, hand.next()));
        starts.push_back(tookOf([&stroke] { stroke.start(); }));
        stroke.awaitPress();
        ends.push_back(tookOf([&stroke] { stroke.stop(); }));
        stage.drawing().dropStroke();
        bare.push_back(bareThread());
    }
    table.row(names[0], 0, starts, bare);
    table.row(names[1], 0, ends, bare);
}

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const BenchArguments arguments(argc, argv);
    DrawnStage stage;
    TestViews views;
    QWidget& view = *views.persp().widget();
    view.resize(kCanvasSize, kCanvasSize);
    measureComposite(stage, view, arguments);
    measureThread(stage, view, arguments);
    return 0;
}
