#include "commands/DrawingChange.h"

#include "commands/SelectionNudge.h"
#include "model/FrameNumber.h"
#include "model/LayerManager.h"
#include "node/BaseNode.h"
#include "node/TimelineMarks.h"

MStatus DrawingChange::executeOn(BaseNode& node)
{
    node.withdrawMadeStroke();  // what was made for it is in no step, and would stay behind
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    return manager && prepare(*manager) ? redoOn(node) : MStatus(MStatus::kFailure);
}

MStatus DrawingChange::redoOn(BaseNode& node)
{
    return run(node, &DrawingChange::apply);
}

MStatus DrawingChange::undoOn(BaseNode& node)
{
    return run(node, &DrawingChange::revert);
}

bool DrawingChange::prepare(LayerManager&)
{
    return true;
}

MStatus DrawingChange::run(BaseNode& node, bool (DrawingChange::*step)(LayerManager&))
{
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    if (!manager || !(this->*step)(*manager)) {
        return MStatus::kFailure;
    }
    manager->updateCurrentFrames(currentFrameNumber(), false);
    TimelineMarks::refreshInstalled();
    nudgeSelection(node.thisMObject());
    return MStatus::kSuccess;
}
