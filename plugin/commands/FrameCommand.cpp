#include "commands/FrameCommand.h"

#include "commands/Arguments.h"
#include "commands/Flags.h"
#include "commands/FrameClipboard.h"
#include "commands/FrameListEdits.h"
#include "commands/FrameTimeEdits.h"
#include "commands/SelectionNudge.h"
#include "model/LayerManager.h"
#include "node/BaseNode.h"
#include "node/HostViews.h"
#include "node/TimelineMarks.h"
#include "settings/Messages.h"
#include "settings/ScriptBridge.h"

#include <maya/MArgList.h>

namespace {

// The names of the last rows are registered without a dash. Callers type it all the same.
const Flag kFlags[] = {
    {"-ins", "-insert"},
    {"-dup", "-duplicate"},
    {"-del", "-delete"},
    {"-cut", "-cutFrame"},
    {"-cp", "-copy"},
    {"-pst", "-paste"},
    {"-clr", "-clear"},
    {"-sf", "-stepForward"},
    {"-sb", "-stepBack"},
    {"ret", "retime", MSyntax::kLong},
    {"rel", "relative"},
    {"mvn", "moveToNext"},
    {"mv", "move", MSyntax::kLong, MSyntax::kLong, MSyntax::kLong},
};

MStatus failure(const char* message)
{
    messages::error(message);
    return MStatus::kFailure;
}

QString currentCamera(const BaseNode& node)
{
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    return manager ? manager->currentCamera() : QString();
}

}  // namespace

/// Modes in order of precedence. Those that do not use the command's camera work on the drawing's current one.
struct FrameCommand::Mode {
    const char* flag;
    MStatus (FrameCommand::*run)(const MArgDatabase& args, BaseNode& node);
    bool usesCamera;
};

const FrameCommand::Mode FrameCommand::kModes[] = {
    {"-insert", &FrameCommand::insert, true},       {"-duplicate", &FrameCommand::duplicate, true},
    {"-delete", &FrameCommand::deleteFrames, true}, {"-cutFrame", &FrameCommand::cut, true},
    {"-copy", &FrameCommand::copy, true},           {"-paste", &FrameCommand::paste, true},
    {"-clear", &FrameCommand::clear, true},         {"-stepForward", &FrameCommand::stepForward, false},
    {"-stepBack", &FrameCommand::stepBack, false},  {"-retime", &FrameCommand::retime, false},
    {"-move", &FrameCommand::move, false},
};

void* FrameCommand::creator()
{
    return new FrameCommand;
}

MSyntax FrameCommand::newSyntax()
{
    MSyntax syntax;
    addFlags(syntax, kFlags);
    syntax.setObjectType(MSyntax::kStringObjects);
    return syntax;
}

const FrameCommand::Mode* FrameCommand::takenMode(const MArgDatabase& args)
{
    for (const Mode& mode : kModes) {
        if (args.isFlagSet(mode.flag)) {
            return &mode;
        }
    }
    return nullptr;
}

MStatus FrameCommand::doIt(const MArgList& list)
{
    MStatus status;
    const MArgDatabase args(syntax(), list, &status);
    if (!status) {
        return status;
    }
    const Mode* mode = takenMode(args);
    if (!readCamera(args, mode)) {
        return MStatus::kFailure;
    }
    BaseNode* node = BaseNode::masterNode();
    if (!node) {
        return failure(mode == kModes ? "Failed to insert key. Node does not exist." : "Node not found");
    }
    return mode ? (this->*mode->run)(args, *node) : MStatus(MStatus::kFailure);
}

bool FrameCommand::readCamera(const MArgDatabase& args, const Mode* mode)
{
    if (hasCameraArgument(args)) {
        return readCameraArgument(args, m_camera);
    }
    if (!mode || !mode->usesCamera) {
        return true;
    }
    m_camera = HostViews().activeCamera();
    if (m_camera.isEmpty()) {
        messages::error("Camera not specified");
    }
    return !m_camera.isEmpty();
}

// The frames in the span of the time slider ---------------------------------------------------------------------------

MStatus FrameCommand::insert(const MArgDatabase&, BaseNode&)
{
    return execute<InsertFrames>(m_camera, script::highlightedSpan());
}

MStatus FrameCommand::duplicate(const MArgDatabase&, BaseNode&)
{
    return execute<DuplicateFrame>(m_camera);
}

MStatus FrameCommand::deleteFrames(const MArgDatabase&, BaseNode&)
{
    return execute<DeleteFrames>(m_camera, script::highlightedSpan());
}

MStatus FrameCommand::cut(const MArgDatabase&, BaseNode&)
{
    return execute<CutFrames>(m_camera, script::highlightedSpan());
}

MStatus FrameCommand::copy(const MArgDatabase&, BaseNode& node)
{
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    if (!manager) {
        return MStatus::kFailure;
    }
    const Layer* layer = manager->activeLayer(m_camera);
    const auto copies = std::make_shared<Frames>();
    if (layer && !copyFrames(*layer, script::highlightedSpan(), *copies)) {
        return MStatus::kFailure;
    }
    node.setFrameClipboard(copies);
    nudgeSelection(node.thisMObject());
    return MStatus::kSuccess;
}

MStatus FrameCommand::paste(const MArgDatabase&, BaseNode& node)
{
    const int start = script::highlightedSpan().first;
    return execute<PasteFrames>(m_camera, node.frameClipboard(), start);
}

MStatus FrameCommand::clear(const MArgDatabase&, BaseNode&)
{
    return execute<ClearFrames>(m_camera, script::highlightedSpan());
}

// Times ---------------------------------------------------------------------------------------------------------------

MStatus FrameCommand::stepForward(const MArgDatabase&, BaseNode& node)
{
    return execute<StepTime>(currentCamera(node), StepTime::Direction::Forward);
}

MStatus FrameCommand::stepBack(const MArgDatabase&, BaseNode& node)
{
    return execute<StepTime>(currentCamera(node), StepTime::Direction::Back);
}

MStatus FrameCommand::retime(const MArgDatabase& args, BaseNode& node)
{
    const Retiming retiming = {numberArgument(args, "-retime"), args.isFlagSet("-relative"),
                               args.isFlagSet("-moveToNext")};
    return execute<RetimeFrames>(currentCamera(node), script::highlightedSpan(), retiming);
}

MStatus FrameCommand::move(const MArgDatabase& args, BaseNode& node)
{
    const int offset = numberArgument(args, "-move", 0);
    const QString camera = m_camera.isEmpty() ? currentCamera(node) : m_camera;
    if (offset == 0 || camera.isEmpty()) {
        TimelineMarks::refreshInstalled();
        return MStatus::kFailure;
    }
    const int first = numberArgument(args, "-move", 1);
    const int last = numberArgument(args, "-move", 2);
    return execute<MoveFrames>(camera, offset, first, last);
}
