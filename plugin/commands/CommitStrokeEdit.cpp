#include "commands/CommitStrokeEdit.h"

#include "model/FrameNumber.h"
#include "node/BaseNode.h"
#include "node/TimelineMarks.h"

CommitStrokeEdit::CommitStrokeEdit(const StrokeTarget& target)
    : m_target(target), m_frame({target.camera, -1, 0}), m_frameTime(timeOfFrame(0))
{}

MStatus CommitStrokeEdit::executeOn(BaseNode& node)
{
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    if (!manager) {
        return MStatus::kFailure;
    }
    rememberPreviousCamera(*manager);
    m_frame = manager->strokeFrame(m_target.camera);
    m_layerState = manager->layerState(m_target.camera, m_frame.layerIndex);
    if (m_target.frameAdded) {
        const Layer* layer = manager->layer(m_target.camera, m_frame.layerIndex);
        const Frame* frame = layer ? layer->frameNumbered(m_frame.frameNumber) : nullptr;
        if (!frame) {
            return MStatus::kFailure;
        }
        m_frameTime = frame->time();
    }
    if (!manager->commitStroke(m_target.camera, m_picture)) {
        return MStatus::kFailure;
    }
    conclude(*manager);
    return MStatus::kSuccess;
}

MStatus CommitStrokeEdit::redoOn(BaseNode& node)
{
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    if (!manager || !makeTarget(*manager)) {
        return MStatus::kFailure;
    }
    if (!manager->swapImage(m_frame, m_picture)) {
        removeTarget(*manager);
        manager->updateCurrentFrames(currentFrameNumber(), false);
        return MStatus::kFailure;
    }
    conclude(*manager);
    return MStatus::kSuccess;
}

MStatus CommitStrokeEdit::undoOn(BaseNode& node)
{
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    if (!manager || !manager->swapImage(m_frame, m_picture)) {
        return MStatus::kFailure;
    }
    removeTarget(*manager);
    conclude(*manager);
    node.redrawActiveView();
    return MStatus::kSuccess;
}

// Whichever way it went, every layer shows what it has at the scene's time, and the other picture need not be quick to
// show.
void CommitStrokeEdit::conclude(LayerManager& manager) const
{
    manager.updateCurrentFrames(currentFrameNumber(), false);
    m_picture.packSoon();
}

void CommitStrokeEdit::rememberPreviousCamera(const LayerManager& manager)
{
    if (m_target.layerAdded < 0 || manager.layerCount(m_target.camera) != 1) {
        return;
    }
    const QString previous = manager.previousCamera();
    if (!previous.isEmpty() && previous != m_target.camera) {
        m_previousCamera = previous;
        m_previousActiveIndex = manager.activeLayerIndex(previous);
    }
}

bool CommitStrokeEdit::makeTarget(LayerManager& manager) const
{
    if (m_target.layerAdded >= 0) {
        const int index = manager.insertLayer(m_target.camera, m_target.layerAdded, QString());
        if (index < 0) {
            return false;
        }
        manager.setLayerState(m_target.camera, index, m_layerState);
        manager.setActiveLayer(m_target.camera, index, true);
    }
    Layer* layer = manager.layer(m_target.camera, m_frame.layerIndex);
    if (m_target.frameAdded && !(layer && layer->addFrame(m_frameTime) >= 0)) {
        removeLayer(manager);
        return false;
    }
    return true;
}

void CommitStrokeEdit::removeTarget(LayerManager& manager) const
{
    removeFrame(manager);
    removeLayer(manager);
}

void CommitStrokeEdit::removeFrame(LayerManager& manager) const
{
    Layer* layer = m_target.frameAdded ? manager.layer(m_target.camera, m_frame.layerIndex) : nullptr;
    if (layer) {
        layer->takeFrame(m_frameTime);
    }
}

void CommitStrokeEdit::removeLayer(LayerManager& manager) const
{
    if (m_target.layerAdded < 0) {
        return;
    }
    manager.takeLayer(m_target.camera, m_target.layerAdded);
    if (manager.isValidLayer(m_previousCamera, m_previousActiveIndex)) {
        manager.setActiveLayer(m_previousCamera, m_previousActiveIndex, true);
    }
}
