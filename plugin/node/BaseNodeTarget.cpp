// What a stroke goes into: found, or made, before the stroke begins.

#include "node/BaseNode.h"

#include "model/FrameNumber.h"
#include "model/LayerManager.h"
#include "model/MadeTarget.h"
#include "node/TimelineMarks.h"
#include "settings/Messages.h"
#include "settings/Preferences.h"
#include "settings/ScriptBridge.h"

bool BaseNode::drawingTarget(const QString& camera, int& newLayerIndex, bool& frameCreated)
{
    newLayerIndex = -1;
    frameCreated = false;
    const std::shared_ptr<LayerManager> manager = camera.isEmpty() ? nullptr : layerManager();
    if (!manager) {
        return false;
    }
    if (manager->layerCount(camera) == 0) {
        const Preferences& preferences = Preferences::instance();
        if (!preferences.automaticallyAddFirstLayer()) {
            messages::error("A layer does not exist for the current camera");
            return false;
        }
        if (preferences.alwaysDisplayNewLayerDialog()) {
            script::openNewLayerDialogDeferred();
            return false;
        }
        newLayerIndex = manager->insertLayer(camera, -1, QString());
        if (newLayerIndex < 0) {
            return false;
        }
    }
    if (prepareFrame(*manager, camera, frameCreated)) {
        return true;
    }
    manager->takeLayer(camera, newLayerIndex);
    newLayerIndex = -1;
    return false;
}

bool BaseNode::canEditActiveLayer(const QString& camera) const
{
    const std::shared_ptr<LayerManager> manager = layerManager();
    return manager && editableLayer(*manager, camera);
}

// Null, and reported, when there is none.
Layer* BaseNode::editableLayer(LayerManager& manager, const QString& camera)
{
    Layer* layer = manager.activeLayer(camera);
    const char* refusal = !layer                         ? "An active layer does not exist."
                        : !layer->isVisible()            ? "Active layer is not visible."
                        : layer->state() == kLayerLocked ? "Active layer is locked."
                                                         : nullptr;
    if (refusal) {
        messages::error(refusal);
    }
    return refusal ? nullptr : layer;
}

bool BaseNode::prepareFrame(LayerManager& manager, const QString& camera, bool& frameCreated) const
{
    Layer* layer = editableLayer(manager, camera);
    if (!layer || layer->hasFrameAtCurrentTime()) {
        return layer != nullptr;
    }
    if (layer->state() == kLayerStatic) {
        const Preferences& preferences = Preferences::instance();
        const int frameNumber = preferences.defaultStaticFrameTime();
        if (!preferences.insertDefaultStaticFrame() || frameNumber > ::currentFrameNumber()) {
            messages::error("Static layer: A frame is required at or before the current time.");
            return false;
        }
        frameCreated = layer->addFrame(timeOfFrame(frameNumber)) >= 0;
    } else {
        frameCreated = layer->addFrameAtCurrentTime() >= 0;
    }
    if (frameCreated) {
        TimelineMarks::refreshInstalled();
    }
    return frameCreated;
}

bool BaseNode::commitStroke(const QString& camera)
{
    const std::shared_ptr<LayerManager> manager = masterNode() == this ? layerManagerIfAny() : nullptr;
    const ActiveStroke* stroke = manager ? manager->stroke(camera) : nullptr;
    if (!stroke) {
        return false;
    }
    const int layerIndex = stroke->layerMade ? manager->strokeLayerIndex(camera) : -1;  // where it is by now
    return script::commitStroke(camera, layerIndex, stroke->frameMade);
}

void BaseNode::withdrawMadeStroke()
{
    const std::shared_ptr<LayerManager> manager = layerManagerIfAny();
    if (manager && MadeTarget(*manager).drop()) {
        TimelineMarks::refreshInstalled();
    }
}
