// What the commands cost: a stroke from the release of the pen until the next one can begin, its undo and redo, what
// many strokes hold in memory, and every change of layers and frames, in scenes of many layers and frames.
// The pen is read by no thread here: its end and its next start come on top, which bench_stroke measures.

#include "AimTable.h"
#include "CommandStage.h"
#include "Figure.h"

#include "contexts/FloatingRegion.h"
#include "model/PixelBudget.h"
#include "model/PngCodec.h"
#include "settings/Preferences.h"
#include "settings/ScriptBridge.h"
#include "support/ResidentMemory.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QTimer>

#include <functional>

namespace {

constexpr double kMebibyte = 1 << 20;

// Drawings ------------------------------------------------------------------------------------------------------------

QPointF anyPoint(std::mt19937& random)
{
    const auto any = [&random] { return static_cast<int>(random() % kCanvasSize); };
    const int x = any();
    return QPointF(x, any());
}

/// Soft brush strokes of many colours over one another, until nearly all of the canvas has ink.
QImage denseDrawing()
{
    std::mt19937 random(1);
    QImage canvas = blankCanvas();
    for (int i = 0; i < 120; ++i) {
        QImage stroke = blankCanvas();
        fillInvisible(stroke, QColor::fromHsv(i * 47 % 360, 90 + i % 120, 120 + i % 100));
        QVector<StrokePoint> points;
        for (int j = 0; j < 3; ++j) {
            points << penPoint(anyPoint(random), 100, 0.5f);
            points.last().hardness = 0.2f;
        }
        rasteriseStroke(stroke, points, 0, ToolType::Brush);
        QPainter(&canvas).drawImage(0, 0, stroke);
    }
    return canvas;
}

const Picture& densePicture()
{
    static const Picture made(denseDrawing());
    return made;
}

Picture lineDrawing()
{
    return Picture::fromPng(encodePng(Figure(1).lines()));
}

// Strokes -------------------------------------------------------------------------------------------------------------

const int kPoints = 60;     // as many as a hand draws in half a second
const int kLatePoints = 4;  // as many as are sampled in the time of two pictures

/// A scene with a dense drawing on the active layer's first frame, line drawings on all others, and a hand that draws
/// on it as the tools do.
class Desk {
public:
    Desk(int layers, int frames)
    {
        m_stage.addDrawing(layers, frames, lineDrawing());
        m_stage.drawing().activeLayer(kCamera)->frameNumbered(1)->setPicture(densePicture());
        show();
    }

    CommandStage& stage() { return m_stage; }

    void press(ToolType tool)
    {
        m_tool = tool;
        Preferences::instance().setActiveTool(tool == ToolType::Transform ? ToolType::Brush : tool);
        tool == ToolType::Transform ? aim() : begin();
    }
    void drag()
    {
        m_tool == ToolType::Transform ? floatRegion() : draw(kPoints);
        show();
    }
    /// Points that come in after the last picture.
    void dragOn()
    {
        if (m_tool != ToolType::Transform) {
            draw(kLatePoints);
        }
    }
    /// The end of the stroke, and whatever has to be done before the next one of the tool can begin.
    void releaseAndPress()
    {
        if (m_tool == ToolType::Transform) {
            m_region.commit();
            m_region.close();
            aim();
        } else {
            require(m_stage.node().commitStroke(kCamera), "the stroke is committed");
            begin();
        }
    }
    void stroke(ToolType tool)
    {
        press(tool);
        drag();
        if (tool == ToolType::Transform) {
            m_region.commit();
            m_region.close();
        } else {
            require(m_stage.node().commitStroke(kCamera), "the stroke is committed");
        }
    }
    /// Ends a press without a stroke.
    void letGo()
    {
        m_region.close();
        m_stage.drawing().dropStroke();
        show();
    }
    void show() { require(m_stage.drawing().composite(kCamera), "the view has a picture"); }

private:
    void begin()
    {
        M3dView view = M3dView::active3dView();
        BaseNode* node = BaseNode::masterNode();
        require(node && node->prepareToolView(view), "the view can be drawn in");
        const std::shared_ptr<LayerManager> drawing = node->layerManager();
        drawing->syncCurrentCamera();
        int layerMade = -1;
        bool frameMade = false;
        require(node->drawingTarget(kCamera, layerMade, frameMade), "there is a frame to draw on");
        require(drawing->beginStroke(kCamera, false), "a stroke begins");
    }
    void aim() { require(m_region.open() && m_region.aimAtSelection(), "a region can be selected"); }

    // On from the last point; each stroke begins at another place.
    void draw(int count)
    {
        ActiveStroke& stroke = *m_stage.drawing().stroke(kCamera);
        QVector<StrokePoint>& points = stroke.points;
        if (points.isEmpty()) {
            m_start = anyPoint(m_random);
        }
        for (int end = points.size() + count; points.size() < end;) {
            const double i = points.size();
            points << penPoint(m_start + QPointF(6 * i, 80 * std::sin(i * 0.1)), 40, 0.6f);
        }
        stroke.changed = true;
    }
    void floatRegion()
    {
        require(m_region.take(QRect(anyPoint(m_random).toPoint() / 2, QSize(400, 300)), {false, false, false}),
                "the region floats");
        m_region.record()->angle = 5;
        m_region.record()->translation = QPoint(20, -10);
        m_region.record()->changed = true;
    }

    CommandStage m_stage;
    FloatingRegion m_region;
    ToolType m_tool = ToolType::Brush;
    QPointF m_start;
    std::mt19937 m_random{7};
};

const struct {
    const char* name;
    ToolType tool;
} kTools[] = {{"brush", ToolType::Brush},
              {"pencil", ToolType::Pencil},
              {"eraser", ToolType::Eraser},
              {"transform", ToolType::Transform}};

// The time that a hand takes from stroke to stroke: what waits for the event loop has its turns.
void idle()
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 30) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
}

/// The last of so many strokes in a row, in the time of which the event loop has no turn.
double penUp(Desk& desk, ToolType tool, int strokes)
{
    idle();
    for (int i = 1; i < strokes; ++i) {
        desk.stroke(tool);
    }
    desk.press(tool);
    desk.drag();
    desk.dragOn();
    const double time = millisecondsOf([&desk] { desk.releaseAndPress(); });
    desk.letGo();
    return time;
}

void measurePenUp(const AimTable& table)
{
    const struct {
        const char* name;
        int layers;
        int frames;
        int strokes;
    } scenes[] = {{"1 layer, 1 frame", 1, 1, 1},
                  {"100 layers", 100, 1, 1},
                  {"10000 frames", 1, 10000, 1},
                  {"9th in a burst", 1, 1, 9}};
    for (const auto& scene : scenes) {
        for (const auto& tool : kTools) {
            const std::string name = std::string("pen-up until the next, ") + tool.name + ", " + scene.name;
            if (!table.isWanted(name)) {
                continue;
            }
            Desk desk(scene.layers, scene.frames);
            penUp(desk, tool.tool, 1);
            std::vector<double> times;
            for (int i = 0; i < (table.isQuick() ? 5 : 25); ++i) {
                times.push_back(penUp(desk, tool.tool, scene.strokes));
            }
            table.row(name, 4, times);
        }
    }
}

/// Has every picture that is not looked at encoded and packed, as happens sooner or later: until for a while nothing
/// more goes.
void packAll()
{
    PixelBudget& budget = PixelBudget::instance();
    const qint64 limit = budget.limit();
    budget.setLimit(0);
    for (int quiet = 0; quiet < 10; ++quiet) {
        const qint64 before = budget.bytes();
        budget.trim();
        idle();
        quiet = budget.bytes() == before ? quiet : 0;
    }
    budget.setLimit(limit);
}

struct Rewinding {
    std::vector<double> undo, redo, shownUndo, shownRedo;
};

void rewind(Desk& desk, bool packed, Rewinding& times)
{
    const auto step = [&](const char* text, std::vector<double>& bare, std::vector<double>& shown) {
        if (packed) {
            packAll();
        }
        const double command = millisecondsOf([&] { desk.stage().run(text); });
        const double picture = millisecondsOf([&desk] { desk.show(); });
        bare.push_back(command);
        shown.push_back(command + picture);
    };
    desk.stroke(ToolType::Brush);
    desk.show();
    step("undo", times.undo, times.shownUndo);
    step("redo", times.redo, times.shownRedo);
}

void measureRewinding(const AimTable& table)
{
    for (const bool packed : {false, true}) {
        const std::string state = packed ? ", packed" : ", right after";
        if (!table.isWanted("undo of a stroke" + state + ", with the picture")
            && !table.isWanted("redo of a stroke" + state + ", with the picture")) {
            continue;
        }
        Desk desk(1, 1);
        Rewinding times;
        for (int i = 0; i < (table.isQuick() ? 3 : 15); ++i) {
            rewind(desk, packed, times);
        }
        table.row("undo of a stroke" + state, 25, times.undo);
        table.row("redo of a stroke" + state, 25, times.redo);
        table.row("undo of a stroke" + state + ", with the picture", 25, times.shownUndo);
        table.row("redo of a stroke" + state + ", with the picture", 25, times.shownRedo);
    }
}

void measureMemory(const BenchArguments& arguments)
{
    const int strokes = arguments.quick ? 100 : 1000;
    const std::string name = "memory held by " + std::to_string(strokes) + " strokes to undo";
    if (!arguments.isWanted(name)) {
        return;
    }
    Desk desk(1, 1);
    desk.stage().session().undo.setInfinite(true);
    desk.stroke(ToolType::Brush);
    desk.show();
    const qint64 before = residentBytes();
    forgetHighestResident();
    for (int i = 0; i < strokes; ++i) {
        desk.stroke(ToolType::Brush);
        idle();
    }
    require(desk.stage().session().undo.count() > unsigned(strokes), "every stroke can be undone");
    const double held = double(residentBytes() - before) / kMebibyte;
    const double peak = double(highestResidentBytes() - before) / kMebibyte;
    std::printf("\n%-58s %9s %9s %9s\n%-58s %9.0f %9.0f %9d  %s\n", "memory of a dense drawing", "held MiB", "peak MiB",
                "aim MiB", name.c_str(), held, peak, 512,
                arguments.quick ? "too few strokes to tell"
                : peak <= 512   ? "reached"
                                : "MISSED");
}

// Layers and frames ---------------------------------------------------------------------------------------------------

/// A text to run with the host's calls in it, and the highlighted range of the time slider, half open, with it.
struct Change {
    const char* name;
    const char* text;
    unsigned calls;
    int first;
    int end;
};

constexpr unsigned kLayerCalls = kLooksUpCamera | kNudgesSelection;
constexpr unsigned kFrameCalls = kLayerCalls | kAsksForSpan;
constexpr unsigned kQuestion = kLooksUpCamera | kIsNoStep;

const Change kChanges[] = {
    {"layer: make active", "Layer -e -active %last persp", kLayerCalls, 1, 2},
    {"layer: which is active", "Layer -q -active persp", kQuestion, 1, 2},
    {"layer: count", "Layer -count persp", kQuestion, 1, 2},
    {"layer: add", "Layer -addLayer -ls 0 persp", kLayerCalls, 1, 2},
    {"layer: delete", "Layer -delete 0 persp", kLayerCalls, 1, 2},
    {"layer: delete all", "Layer -deleteAll persp", kLayerCalls, 1, 2},
    {"layer: move", "Layer -move 0 %last persp", kLayerCalls, 1, 2},
    {"layer: move to a camera", "Layer -newCamera top -move 0 -1 persp", kLayerCalls, 1, 2},
    {"layer: move all to a camera", "Layer -moveAll top persp", kLayerCalls, 1, 2},
    {"layer: rename", "Layer -editName \"Other\" 0 persp", kLayerCalls, 1, 2},
    {"layer: its name", "Layer -queryName 0 persp", kQuestion, 1, 2},
    {"layer: hide", "Layer -editVis 0 0 persp", kLayerCalls, 1, 2},
    {"layer: set opacity", "Layer -editOpacity 0.5 0 persp", kLayerCalls, 1, 2},
    {"layer: set state", "Layer -editState 1 0 persp", kLayerCalls, 1, 2},
    {"frames: insert", "Frame -insert persp", kFrameCalls, 20001, 20002},
    {"frames: insert 10000", "Frame -insert persp", kFrameCalls, 20001, 30001},
    {"frames: duplicate", "Frame -duplicate persp", kLayerCalls, 1, 2},
    {"frames: delete", "Frame -delete persp", kFrameCalls, 50, 51},
    {"frames: delete all", "Frame -delete persp", kFrameCalls, 1, 20000},
    {"frames: cut", "Frame -cutFrame persp", kFrameCalls, 50, 51},
    {"frames: cut all", "Frame -cutFrame persp", kFrameCalls, 1, 20000},
    {"frames: copy", "Frame -copy persp", kFrameCalls | kIsNoStep, 50, 51},
    {"frames: copy all", "Frame -copy persp", kFrameCalls | kIsNoStep, 1, 20000},
    {"frames: paste all", "Frame -paste persp", kFrameCalls, 20001, 20002},
    {"frames: paste all over all", "Frame -paste persp", kFrameCalls, 1, 2},
    {"frames: clear", "Frame -clear persp", kFrameCalls, 50, 51},
    {"frames: clear all", "Frame -clear persp", kFrameCalls, 1, 20000},
    {"frames: step forward", "Frame -stepForward", kSetsTime | kNudgesSelection, 1, 2},
    {"frames: step back", "Frame -stepBack", kSetsTime | kNudgesSelection, 1, 2},
    {"frames: retime", "Frame -retime 3", kAsksForSpan | kSetsTime | kNudgesSelection, 50, 51},
    {"frames: retime all", "Frame -retime 3", kAsksForSpan | kSetsTime | kNudgesSelection, 1, 20000},
    {"frames: move", "Frame -move 20000 50 50 persp", kLayerCalls, 1, 2},
    {"frames: move all", "Frame -move 20000 1 20000 persp", kLayerCalls, 1, 2},
    {"node: does it exist", "Node -exists", kIsNoStep, 1, 2},
    {"node: its camera", "Node -q -camera", kIsNoStep, 1, 2},
    {"node: refresh", "Node -refresh", kIsNoStep, 1, 2},
    {"node: refresh ghosts", "Node -refreshGhosting", kIsNoStep, 1, 2},
};

struct Turns {
    std::vector<double> run, undo, redo;
};

/// Runs a text, takes it back, does it again and takes it back once more.
void takeTurn(CommandStage& stage, const std::string& text, bool isStep, Turns& turns)
{
    turns.run.push_back(millisecondsOf([&] { stage.run(text); }));
    if (isStep) {
        turns.undo.push_back(millisecondsOf([&] { stage.run("undo"); }));
        turns.redo.push_back(millisecondsOf([&] { stage.run("redo"); }));
        stage.run("undo");
    }
}

std::string command(const char* prefix, const Change& change, int layers)
{
    return (prefix + QString(change.text).replace("%last", QString::number(layers))).toStdString();
}

void measureChange(const AimTable& table, CommandStage& stage, const Change& change, int layers,
                   const std::string& scene)
{
    const std::string name = change.name + scene;
    const bool isStep = !(change.calls & kIsNoStep);
    if (!table.isWanted(name + ", do") && !table.isWanted(name + ", undo") && !table.isWanted(name + ", redo")) {
        return;
    }
    stage.session().scene.highlightSliderRange({double(change.first), double(change.end)});
    BareCommand::calls = change.calls;
    BareCommand::node = BaseNode::masterNode() ? stage.node().thisMObject() : MObject();
    Turns ours;
    Turns host;
    for (int i = 0; i < (table.isQuick() ? 3 : 15); ++i) {
        takeTurn(stage, command("tqLumisketch", change, layers), isStep, ours);
        stage.answerEvents(false);
        takeTurn(stage, command("bare", change, layers), isStep, host);
        stage.answerEvents(true);
    }
    table.row(name + ", do", 1, ours.run, host.run);
    if (isStep) {
        table.row(name + ", undo", 1, ours.undo, host.undo);
        table.row(name + ", redo", 1, ours.redo, host.redo);
    }
}

void measureChanges(const AimTable& table)
{
    const struct {
        const char* name;
        int layers;
        int frames;
    } scenes[] = {{", 1 x 10000", 1, 10000}, {", 100 x 100", 100, 100}};
    for (const auto& scene : scenes) {
        CommandStage stage;
        stage.addDrawing(scene.layers, scene.frames, lineDrawing());
        stage.drawing().insertLayer(kCamera, -1, "Top");
        stage.session().scene.highlightSliderRange({1, 20000});
        stage.run("tqLumisketchFrame -copy persp");
        for (const Change& change : kChanges) {
            const bool duplicates = change.text == std::string("Frame -duplicate persp");
            stage.goTo(duplicates ? 15000 : 1);
            measureChange(table, stage, change, scene.layers, scene.name);
        }
    }
}

void measureCrowds(const AimTable& table)
{
    const struct {
        const char* name;
        const char* node;
        int count;
    } crowds[] = {{", 1000 cameras", "camera", 1000},
                  {", 10000 nodes", "transform", 10000},
                  {", 100 drawings", names::kNodeType, 100}};
    const Change rename = {"layer: rename", "Layer -editName \"Other\" 0 persp", kLayerCalls, 1, 2};
    for (const auto& crowd : crowds) {
        CommandStage stage;
        stage.addDrawing(1, 1, lineDrawing());
        stage.run("int $i; for ($i = 0; $i < " + std::to_string(crowd.count) + "; ++$i) createNode " + crowd.node);
        measureChange(table, stage, rename, 1, crowd.name);
    }
}

void measureCreation(const AimTable& table)
{
    CommandStage stage;
    const Change create = {"node: create", "Node -l -c persp", kMakesNode | kNudgesSelection, 1, 2};
    measureChange(table, stage, create, 1, "");
}

void measureAll(const BenchArguments& arguments)
{
    measureMemory(arguments);
    const QImage& dense = densePicture().image();
    char title[64];
    std::snprintf(title, sizeof title, "commands; dense: %d %% inked, %.1f MiB as PNG", inkedPercent(dense),
                  encodePng(dense).size() / kMebibyte);
    const AimTable table(title, arguments);
    measurePenUp(table);
    measureRewinding(table);
    measureCreation(table);
    measureChanges(table);
    measureCrowds(table);
}

}  // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir runtime;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());  // or the platform warns
    }
    QApplication application(argc, argv);
    // Within the event loop, as in the host: there the pixels of strokes are encoded when there is time for it.
    QTimer::singleShot(0, [&] {
        measureAll(BenchArguments(argc, argv));
        application.quit();
    });
    return application.exec();
}
