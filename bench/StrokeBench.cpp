// The way of a stroke, from the sample of the pointer to the picture that shows it: the distribution of what a sample
// takes.

#include "Distribution.h"
#include "Figure.h"
#include "HandPath.h"
#include "NodeStage.h"
#include "Require.h"
#include "Timing.h"

#include "contexts/ThreadManager.h"
#include "model/FrameNumber.h"
#include "settings/Preferences.h"
#include "support/TestView.h"

#include <QApplication>

#include <maya/MAnimControl.h>

#include <cstring>

namespace {

const QString kCamera = "persp";
constexpr int kLayers = 20;
constexpr int kActive = 10;
constexpr int kTimes[] = {4, 5};  // every layer shows another key at either

constexpr double kSlow = 2, kNormal = 15, kFast = 60;  // canvas pixels a sample at 125 samples a second
const std::vector<double> kAnySpeed = {kSlow, kNormal, kFast};

// The drawing --------------------------------------------------------------------------------------------------------

void goTo(LayerManager& drawing, int frameNumber)
{
    MAnimControl::setCurrentTime(timeOfFrame(frameNumber));
    drawing.updateCurrentFrames(frameNumber, false);
    drawing.composite(kCamera);
}

// Every other layer has the format that pictures have when they are read from a file.
std::unique_ptr<Frame> keyedFrame(int layerIndex, int key)
{
    const QImage image = Figure(unsigned(100 * layerIndex + key)).drawn();
    auto frame = std::make_unique<Frame>(timeOfFrame(key));
    frame->setImage(layerIndex % 2 == 1 ? image.convertToFormat(QImage::Format_ARGB32) : image);
    return frame;
}

// The active layer has three ghosts on either side; the others are keyed at 1 and 5.
void fill(LayerManager& drawing)
{
    for (int i = 0; i < kLayers; ++i) {
        auto layer = std::make_unique<Layer>();
        for (int key = 1; key <= 8; key += i == kActive ? 1 : 4) {
            layer->insertFrame(keyedFrame(i, key));
        }
        drawing.insertLayer(kCamera, -1, std::move(layer));
    }
    drawing.setActiveLayer(kCamera, kActive, true);
}

void showGhosts()
{
    Preferences& preferences = Preferences::instance();
    preferences.setGhostPrev(true);
    preferences.setGhostNext(true);
    preferences.setGhostPrevCount(3);
    preferences.setGhostNextCount(3);
}

// One pointer -------------------------------------------------------------------------------------------------------

struct Tool {
    ToolType type;
    int size;
    int hardness = 100;  // percent
};

/// A stroke in the drawing, from a press on. The pointer rests; samples are put in as if it moved. at: canvas pixels,
/// in a view that shows one of them for each of its own.
class Stroke {
public:
    Stroke(NodeStage& stage, QWidget& view, const Tool& tool, const QPoint& at)
        : m_drawing(stage.drawing()), m_manager([pointer = view.mapToGlobal(at + QPoint(-1, 1))] {
              return PointerSighting{pointer, SampleClock::now()};
          }),
          m_tool(tool)
    {
        Preferences& preferences = Preferences::instance();
        preferences.setActiveTool(tool.type);
        preferences.setToolSize(tool.type, tool.size);
        preferences.setToolHardness(tool.type, tool.hardness);
        preferences.setToolOpacity(tool.type, 80);
        ActiveStroke* record = m_drawing.beginStroke(kCamera, false);
        require(record, "a stroke begins");
        record->text = "Cue: turn, then hold";
        m_manager.start(&view, &stage.node(), kCamera);
        const int pressed = tool.type == ToolType::Text ? 1 : 2;
        while (record->points.size() < pressed) {
            QApplication::processEvents();
        }
    }
    ~Stroke() { m_manager.stop(); }

    ThreadManager& manager() { return m_manager; }
    const ActiveStroke& record() const { return *m_drawing.stroke(kCamera); }

    void sample(const QPoint& at)
    {
        m_manager.OnMousePositionChanged(QPoint(at.x(), kCanvasSize - at.y()), m_tool.size, 0.8f,
                                         float(m_tool.hardness) / 100.0f);
    }

    void commit()
    {
        m_manager.stop();
        Picture undo;
        require(m_drawing.commitStroke(kCamera, undo), "the stroke is committed");
    }

private:
    LayerManager& m_drawing;
    ThreadManager m_manager;
    const Tool m_tool;
};

double copyOfACanvas()
{
    static const QImage from = Figure(1).drawn();
    static QImage to = blankCanvas();
    return millisecondsOf([] { std::memcpy(to.bits(), from.constBits(), std::size_t(from.sizeInBytes())); });
}

// Sample to picture -------------------------------------------------------------------------------------------------

struct Samples {
    std::vector<Took> ours;  // of those samples that changed the picture
    std::vector<double> bare;
};

/// Strokes in turns on two frames, so that each begins on layers and ghosts that none was drawn over before.
class SampleToPicture {
public:
    SampleToPicture(NodeStage& stage, QWidget& view) : m_stage(stage), m_drawing(stage.drawing()), m_view(view) {}

    Samples measure(const Tool& tool, HandPath hand, std::size_t wanted)
    {
        m_samples = {};
        for (int turn = 0; m_samples.ours.size() < wanted; ++turn) {
            goTo(m_drawing, kTimes[turn % 2]);
            drawStroke(tool, hand);
        }
        return m_samples;
    }

private:
    void drawStroke(const Tool& tool, HandPath& hand)
    {
        constexpr int kSamplesOfAStroke = 100;
        Stroke stroke(m_stage, m_view, tool, hand.next());
        take([] {});  // the press
        for (int i = 1; i < kSamplesOfAStroke; ++i) {
            const QPoint at = hand.next();
            take([&] { stroke.sample(at); });
        }
        stroke.commit();
    }

    template <class Work>
    void take(Work sample)
    {
        const quint64 before = m_drawing.compositeGeneration(kCamera);
        const Took time = tookOf([&] {
            sample();
            m_drawing.composite(kCamera);
        });
        if (m_drawing.compositeGeneration(kCamera) != before) {
            m_samples.ours.push_back(time);
        }
        m_samples.bare.push_back(copyOfACanvas());
    }

    NodeStage& m_stage;
    LayerManager& m_drawing;
    QWidget& m_view;
    Samples m_samples;
};

void measureComposite(NodeStage& stage, const BenchArguments& arguments)
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
    TestViews views;
    QWidget& view = *views.persp().widget();
    view.resize(kCanvasSize, kCanvasSize);
    const DistributionTable table("Sample to picture: 20 layers, 3+3 ghosts; ms", "a canvas copied: median, 95 %",
                                  arguments);
    for (const auto& row : rows) {
        if (table.isWanted(row.name)) {
            Preferences::instance().setGhostColorOverride(row.tinted);
            const Samples samples =
                SampleToPicture(stage, view).measure(row.tool, HandPath(row.steps), arguments.quick ? 60 : 600);
            table.row(row.name, 2, samples.ours, samples.bare);
        }
    }
    Preferences::instance().setGhostColorOverride(false);
}

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const BenchArguments arguments(argc, argv);
    NodeStage stage;
    PixelBudget::instance().setLimit(qint64(4) << 30);  // pictures are unpacked in all that is timed
    stage.host().run("setAttr perspShape.filmFit 1");   // the canvas is as wide as the view
    showGhosts();
    fill(stage.drawing());
    measureComposite(stage, arguments);
    return 0;
}
