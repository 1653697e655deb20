#include "commands/RandomSessionsRunner.h"

#include "commands/FrameCommand.h"
#include "commands/LayerCommand.h"
#include "commands/NodeCommand.h"
#include "commands/RandomSessionsGenerator.h"
#include "commands/StrokeCommand.h"
#include "node/Callbacks.h"
#include "settings/ScriptBridge.h"

#include <maya/MArgList.h>
#include <maya/MPxCommand.h>

namespace {

/// sketch TOOL CAMERA SIZE X Y DX DY: what a tool does from the press to the release, and one step as there. A stroke
/// from a point of the canvas; with the transform tool a region that is moved. Of size 1 it stands in the frame shown,
/// else a frame is made for it where one is needed, as for a paste.
class SketchCommand : public MPxCommand {
public:
    static void* creator() { return new SketchCommand; }

    MStatus doIt(const MArgList& args) override
    {
        BaseNode& node = *BaseNode::masterNode();
        const auto tool = static_cast<ToolType>(args.asInt(0));
        const QString camera = toQString(args.asString(1));
        const int size = args.asInt(2);
        ActiveStroke* stroke = script::cameraExists(camera) ? begun(node, camera, tool, size) : nullptr;
        if (stroke) {
            const QPoint from(args.asInt(3), args.asInt(4));
            const QPoint by(args.asInt(5), args.asInt(6));
            tool == ToolType::Transform ? floatRegion(*stroke, from, by) : drag(*stroke, size, from, by);
        }
        if (stroke && node.commitStroke(camera)) {
            return MStatus::kSuccess;
        }
        node.withdrawMadeStroke();
        node.layerManager()->dropStroke();
        return MStatus::kFailure;
    }

private:
    static ActiveStroke* begun(BaseNode& node, const QString& camera, ToolType tool, int size)
    {
        LayerManager& drawing = *node.layerManager();
        const bool isRegion = tool == ToolType::Transform;
        if (isRegion && size == 1) {
            ActiveStroke* stroke = node.canEditActiveLayer(camera) ? drawing.beginStroke(camera, true) : nullptr;
            return stroke && drawing.strokeFrame(camera).layerId != 0 ? stroke : nullptr;
        }
        // A press in a view makes its camera current without a step. Where it starts a drawing, undo gives the other
        // camera back; where there is one already, nothing does, so it is done by -active alone here.
        if (drawing.layerCount(camera) == 0) {
            drawing.setCurrentCamera(camera);
        }
        int newLayer = -1;
        bool frameMade = false;
        if (!node.drawingTarget(camera, newLayer, frameMade)) {
            return nullptr;
        }
        Preferences::instance().setActiveTool(isRegion ? ToolType::Pencil : tool);
        ActiveStroke* stroke = drawing.beginStroke(camera, isRegion);
        if (stroke) {
            stroke->layerMade = newLayer >= 0;
            stroke->frameMade = frameMade;
        }
        return stroke;
    }
    static void floatRegion(ActiveStroke& stroke, const QPoint& from, const QPoint& by)
    {
        stroke.tool = ToolType::Transform;
        stroke.region = QRect(from, QSize(200, 200)) & QRect(0, 0, 1024, 1024);
        stroke.takeRegion = true;
        stroke.translation = by * 20;
        stroke.changed = true;
    }
    static void drag(ActiveStroke& stroke, int size, const QPoint& from, const QPoint& by)
    {
        for (int i = 0; i < 4; ++i) {
            stroke.points.append({size, 0.25f * float(i + 1), 0.5f, from + by * i});
        }
        stroke.text = "Ag";
        stroke.changed = true;
    }
};

/// highlight FIRST END
class HighlightCommand : public MPxCommand {
public:
    static void* creator() { return new HighlightCommand; }

    MStatus doIt(const MArgList& args) override
    {
        kernel::Session::current().scene.highlightSliderRange({double(args.asInt(0)), double(args.asInt(1))});
        return MStatus::kSuccess;
    }
};

const struct {
    const char* name;
    MCreatorFunction creator;
    MCreateSyntaxFunction syntax;
} kCommands[] = {
    {names::kNodeCommand, NodeCommand::creator, NodeCommand::newSyntax},
    {names::kLayerCommand, LayerCommand::creator, LayerCommand::newSyntax},
    {names::kFrameCommand, FrameCommand::creator, FrameCommand::newSyntax},
    {names::kStrokeCommand, StrokeCommand::creator, StrokeCommand::newSyntax},
    {"sketch", SketchCommand::creator, nullptr},
    {"highlight", HighlightCommand::creator, nullptr},
};

std::string differenceOf(const QString& expected, const QString& found)
{
    const QStringList a = expected.split('\n');
    const QStringList b = found.split('\n');
    QStringList lines;
    for (int i = 0; i < std::max(a.size(), b.size()); ++i) {
        if (a.value(i) != b.value(i)) {
            lines << "  expected: " + a.value(i) << "  found:    " + b.value(i);
        }
    }
    return lines.join('\n').toStdString();
}

/// A step that, redone, notes the time then to go back to, which is meant.
bool notesTimeAnew(const std::string& step)
{
    const auto isIn = [&step](const char* word) { return step.find(word) != std::string::npos; };
    const char* const kSteps[] = {"currentTime", "-retime", "-sf", "-sb"};
    return std::any_of(std::begin(kSteps), std::end(kSteps), isIn);
}

}  // namespace

SessionRunner::SessionRunner() : m_session(session())
{
    for (const auto& command : kCommands) {
        addCommand(command.name, command.creator, command.syntax);
    }
    EXPECT_TRUE(callbacks::install([] {}));
    run("camera -n take");
    run("rename take1 take");
    keyed("persp", "Ink", {1, 5});
    m_session.undo.setInfinite(true);
    m_session.undo.flush();
    m_states = {state()};
}

SessionRunner::~SessionRunner()
{
    callbacks::remove();
}

// To look at a frame that was never drawn on gives it an empty canvas.
QString SessionRunner::pixelsOf(const Frame& frame)
{
    const Picture picture = frame.isBlank() ? Picture::emptyCanvas() : frame.picture();
    QString& known = m_pixels[picture.id()];
    if (known.isEmpty()) {
        const QImage image = pixels::plain(picture.image());
        uint hash = static_cast<uint>(image.width());
        for (int y = 0; y < image.height(); ++y) {
            hash = qHashBits(image.constScanLine(y), static_cast<size_t>(image.width()) * 4, hash);
        }
        known = QString::number(hash, 16);
    }
    return known;
}

// What a user sees or saves. No part of it: the clipboard and the highlighted span, which are not undone, and the
// camera of the active view.
SessionRunner::State SessionRunner::state()
{
    const auto told = [this](const Frame& frame) {
        return QString::number(frame.time().as(MTime::k6000FPS), 'g', 12) + "/" + pixelsOf(frame);
    };
    QStringList selected;
    for (const kernel::NodePtr& node : m_session.scene.selection()) {
        selected << QString::fromStdString(node->name());
    }
    const kernel::Scene::Range range = m_session.scene.playbackRange();
    const QString current = drawing().currentCamera();
    const QString text = QString("time %1 %2, range %3 %4, selected %5\n")
                             .arg(m_session.scene.currentTime().ticks())
                             .arg(QString::fromStdString(kernel::timeUnitName(m_session.scene.timeUnit())))
                             .arg(range.first)
                             .arg(range.last)
                             .arg(selected.join(' '))
                       + "current " + current + "\n" + describe(drawing(), told);
    return {text, m_session.scene.currentTime(), drawing().layerCount(current) == 0 ? current : QString()};
}

std::string SessionRunner::compared(const char* when)
{
    const State& expected = m_states[static_cast<size_t>(steps())];
    const QString now = state().text;
    return now == expected.text ? std::string() : std::string(when) + ":\n" + differenceOf(expected.text, now);
}

std::string SessionRunner::afterStep(int stepsBefore)
{
    const bool isRedoable = steps() + 1 < static_cast<int>(m_states.size());
    if (steps() == stepsBefore) {
        const std::string fault = compared("without a step the drawing changed");
        return m_session.undo.canRedo() == isRedoable ? fault : "without a step redo came or went";
    }
    if (steps() != stepsBefore + 1) {
        return "one line left " + std::to_string(steps() - stepsBefore) + " steps";
    }
    m_states.resize(static_cast<size_t>(steps()));
    m_states.push_back(state());
    return m_succeeded ? std::string() : "a line that failed left a step";
}

std::string SessionRunner::afterLine(const std::string& line, int stepsBefore)
{
    const std::string fault = afterStep(stepsBefore);
    const int mode = lineModeOf(line);
    if (!fault.empty() || mode < 0 || !m_succeeded) {
        return fault;
    }
    const LineKind kind = lineModes()[static_cast<size_t>(mode)].kind;
    if (kind == LineKind::Refused) {
        return line + " was not refused";
    }
    if ((kind == LineKind::Step) == (steps() > stepsBefore)) {
        return {};
    }
    return line + (kind == LineKind::Step ? " left no step" : " left a step");
}

std::string SessionRunner::play(const std::string& line)
{
    if (line.compare(0, 4, "undo") == 0 || line.compare(0, 4, "redo") == 0) {
        return playBack(line);
    }
    const int before = steps();
    const kernel::TimeUnit unit = m_session.scene.timeUnit();
    m_succeeded = run(line);
    followUnit(unit);
    return afterLine(line, before);
}

// "undo" and "redo". With a frame number they run while the scene is there, as after playback, which is no step; then
// the time is the one before or after the step again.
std::string SessionRunner::playBack(const std::string& line)
{
    const std::string direction = line.substr(0, 4);
    const bool isUndo = direction == "undo";
    const int expected = steps() + (isUndo ? -int(m_session.undo.canUndo()) : int(m_session.undo.canRedo()));
    const bool undoesSketch = isUndo && m_session.undo.undoName().find("sketch") == 0;
    const bool isElsewhere = line.size() > 4 && (isUndo || !notesTimeAnew(m_session.undo.redoName()));
    if (isElsewhere) {
        goTo(std::stoi(line.substr(4)));
    }
    const kernel::TimeUnit unit = m_session.scene.timeUnit();
    run(direction);
    followUnit(unit);
    if (steps() != expected) {
        return line + " failed";
    }
    const State& there = m_states[static_cast<size_t>(expected)];
    if (isElsewhere) {
        m_session.scene.setCurrentTime(there.time);
    }
    // Undo of a camera's first stroke goes to the camera used before, not to one without layers that was current. It is
    // made current here, as by a press in its view, so that what follows starts from where it did.
    if (undoesSketch && !there.emptyCamera.isEmpty()) {
        drawing().setCurrentCamera(there.emptyCamera);
    }
    return compared(("after " + line).c_str());
}

void SessionRunner::followUnit(kernel::TimeUnit before)
{
    forgetLines();
    if (m_session.scene.timeUnit() != before) {
        node().setCurrentFrame(currentFrameNumber(), false);  // only a view's next refresh does
    }
}

// The pixels are read anew on the way, in case a picture's own have changed.
std::string SessionRunner::rewind()
{
    const int last = static_cast<int>(m_states.size()) - 1;
    std::string fault;
    for (const std::string line : {"redo", "undo", "redo 9", "undo 9", "redo"}) {
        const int end = line[0] == 'u' ? 0 : last;
        while (fault.empty() && steps() != end) {
            fault = playBack(line);
        }
        m_pixels.clear();
        if (fault.empty()) {
            fault = compared(end == 0 ? "at the start" : "at the end");
        }
    }
    return fault;
}

std::string SessionRunner::faultOf(const std::vector<std::string>& lines, Census* census)
{
    SessionRunner runner;
    Census unused;
    Census& counted = census ? *census : unused;
    counted.modes.resize(lineModes().size());
    for (counted.lines = 0; counted.lines < lines.size();) {
        const std::string& line = lines[counted.lines++];
        const std::string fault = runner.play(line);
        if (!fault.empty()) {
            return fault;
        }
        const int mode = lineModeOf(line);
        if (mode >= 0) {
            Census::Count& count = counted.modes[static_cast<size_t>(mode)];
            ++(runner.m_succeeded ? count.succeeded : count.failed);
        }
    }
    return runner.rewind();
}
