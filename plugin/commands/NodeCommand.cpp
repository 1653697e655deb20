#include "commands/NodeCommand.h"

#include "commands/Arguments.h"
#include "commands/CreateNodeEdit.h"
#include "commands/Flags.h"
#include "commands/GhostRefresh.h"
#include "model/FrameNumber.h"
#include "model/LayerManager.h"
#include "node/BaseNode.h"
#include "node/MasterDrawing.h"
#include "settings/Messages.h"
#include "settings/ScriptBridge.h"
#include "settings/Text.h"

#include <maya/MArgList.h>

namespace {

const Flag kFlags[] = {
    {"-ex", "-exists", MSyntax::kNoArg},          {"-r", "-refresh", MSyntax::kNoArg},
    {"-rg", "-refreshGhosting", MSyntax::kNoArg}, {"-l", "-layer", MSyntax::kNoArg},
    {"-c", "-camera", MSyntax::kString},          {"-ln", "-layerName", MSyntax::kString},
    {"-ls", "-layerState", MSyntax::kUnsigned},   {"-f", "-frame", MSyntax::kNoArg},
};

}  // namespace

/// Modes in order of precedence; the creation is what remains.
struct NodeCommand::Mode {
    const char* flag;
    MStatus (NodeCommand::*run)();
};

const NodeCommand::Mode NodeCommand::kModes[] = {
    {"-exists", &NodeCommand::queryExists},
    {"-refresh", &NodeCommand::refreshLayers},
    {"-refreshGhosting", &NodeCommand::refreshGhosting},
};

void* NodeCommand::creator()
{
    return new NodeCommand;
}

MSyntax NodeCommand::newSyntax()
{
    MSyntax syntax;
    addFlags(syntax, kFlags);
    syntax.enableEdit(true);
    syntax.enableQuery(true);
    return syntax;
}

MStatus NodeCommand::doIt(const MArgList& list)
{
    MStatus status;
    const MArgDatabase args(syntax(), list, &status);
    if (!status) {
        return status;
    }
    if (args.isEdit()) {
        messages::error("Invalid edit parameter");
        return MStatus::kInvalidParameter;
    }
    if (args.isQuery()) {
        if (args.isFlagSet("-camera")) {
            return queryCamera();
        }
        messages::error("Invalid query parameter");
        return MStatus::kInvalidParameter;
    }
    for (const Mode& mode : kModes) {
        if (args.isFlagSet(mode.flag)) {
            return (this->*mode.run)();
        }
    }
    return createNode(args);
}

MStatus NodeCommand::queryCamera()
{
    const std::shared_ptr<LayerManager> manager = masterDrawing();
    if (!manager) {
        return MStatus::kFailure;
    }
    setResult(toMString(manager->currentCamera()));
    return MStatus::kSuccess;
}

MStatus NodeCommand::queryExists()
{
    setResult(BaseNode::masterNode() != nullptr);
    return MStatus::kSuccess;
}

MStatus NodeCommand::refreshLayers()
{
    BaseNode* node = BaseNode::masterNode();
    const std::shared_ptr<LayerManager> manager = node ? node->layerManager() : nullptr;
    if (!manager) {
        return MStatus::kFailure;
    }
    manager->updateCurrentFrames(currentFrameNumber(), false);
    for (const QString& camera : manager->cameras()) {
        manager->markForRedraw(camera);
    }
    manager->publish();
    node->requestRedraw();
    return MStatus::kSuccess;
}

MStatus NodeCommand::refreshGhosting()
{
    return rebuildGhosts() ? MStatus::kSuccess : MStatus::kFailure;
}

MStatus NodeCommand::createNode(const MArgDatabase& args)
{
    script::drawingNodeCommandRan();
    // What describes the layer is read only when there is to be one.
    const bool withLayer = args.isFlagSet("-layer");
    const FirstLayerRequest layer = {withLayer, withLayer ? textArgument(args, "-camera") : QString(),
                                     withLayer ? textArgument(args, "-layerName") : QString(),
                                     withLayer ? layerStateArgument(args, "-layerState") : -1,
                                     args.isFlagSet("-frame")};
    return execute<CreateNodeEdit>(layer);
}
