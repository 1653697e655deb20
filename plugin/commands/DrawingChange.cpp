#include "commands/DrawingChange.h"

#include "commands/SelectionNudge.h"
#include "model/FrameNumber.h"
#include "model/LayerManager.h"
#include "node/BaseNode.h"
#include "node/MadeTarget.h"
#include "node/TimelineMarks.h"

namespace {

MStatus show(BaseNode& node, LayerManager& manager)
{
    manager.updateCurrentFrames(currentFrameNumber(), false);
    TimelineMarks::refreshInstalled();
    nudgeSelection(node.thisMObject());
    return MStatus::kSuccess;
}

}  // namespace

MStatus DrawingChange::executeOn(BaseNode& node)
{
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    if (!manager) {
        return MStatus::kFailure;
    }
    MadeTarget made(*manager);
    if (!prepare(*manager) || !apply(*manager)) {
        made.putBack();
        return MStatus::kFailure;
    }
    made.drop();
    applied(node);
    return show(node, *manager);
}

MStatus DrawingChange::redoOn(BaseNode& node)
{
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    if (!manager || !apply(*manager)) {
        return MStatus::kFailure;
    }
    applied(node);
    return show(node, *manager);
}

MStatus DrawingChange::undoOn(BaseNode& node)
{
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    return manager && revert(*manager) ? show(node, *manager) : MStatus(MStatus::kFailure);
}

bool DrawingChange::prepare(LayerManager&)
{
    return true;
}

void DrawingChange::applied(BaseNode&) {}
