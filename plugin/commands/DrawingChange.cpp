#include "commands/DrawingChange.h"

#include "commands/SelectionNudge.h"
#include "model/FrameNumber.h"
#include "model/LayerManager.h"
#include "model/MadeTarget.h"
#include "node/BaseNode.h"
#include "node/TimelineMarks.h"
#include "settings/ToolGesture.h"

namespace {

// strokeBase: what was beneath the stroke in progress before the change.
MStatus show(BaseNode& node, LayerManager& manager, const Picture& strokeBase)
{
    manager.dropStrokeUnlessOn(strokeBase);
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
    const PublishOnce publishing(*manager);
    const Picture strokeBase = manager->strokeBase();
    if (!aim(*manager)) {
        return MStatus::kFailure;
    }
    MadeTarget made(*manager);
    if (!prepare(*manager) || !apply(*manager)) {
        return MStatus::kFailure;  // what was made goes back by itself
    }
    if (changesAnything()) {
        made.drop();
        toolGesture::drawingChanged();
    } else {
        made.putBack();
    }
    applied(node);
    return show(node, *manager, strokeBase);
}

MStatus DrawingChange::redoOn(BaseNode& node)
{
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    if (!manager) {
        return MStatus::kFailure;
    }
    const PublishOnce publishing(*manager);
    const Picture strokeBase = manager->strokeBase();
    if (!reapply(*manager)) {
        return MStatus::kFailure;
    }
    applied(node);
    return show(node, *manager, strokeBase);
}

MStatus DrawingChange::undoOn(BaseNode& node)
{
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    if (!manager) {
        return MStatus::kFailure;
    }
    const PublishOnce publishing(*manager);
    const Picture strokeBase = manager->strokeBase();
    return revert(*manager) ? show(node, *manager, strokeBase) : MStatus(MStatus::kFailure);
}

bool DrawingChange::aim(const LayerManager&)
{
    return true;
}

bool DrawingChange::prepare(LayerManager&)
{
    return true;
}

bool DrawingChange::changesAnything() const
{
    return true;
}

bool DrawingChange::reapply(LayerManager& manager)
{
    return apply(manager);
}

void DrawingChange::applied(BaseNode&) {}
