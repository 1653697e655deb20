#include "commands/CommitStrokeEdit.h"

#include "model/FrameNumber.h"
#include "node/BaseNode.h"

#include <utility>

CommitStrokeEdit::CommitStrokeEdit(const StrokeTarget& target) : m_target(target), m_frame({target.camera, 0, MTime()})
{}

MStatus CommitStrokeEdit::executeOn(BaseNode& node)
{
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    if (!manager || !isOwnTarget(*manager)) {
        return MStatus::kFailure;
    }
    rememberPreviousCamera(*manager);
    m_frame = manager->strokeFrame(m_target.camera);
    if (!manager->commitStroke(m_target.camera, m_picture)) {
        return MStatus::kFailure;
    }
    conclude(*manager);
    return MStatus::kSuccess;
}

MStatus CommitStrokeEdit::redoOn(BaseNode& node)
{
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    if (!manager || !restoreTarget(*manager) || !manager->swapImage(m_frame, m_picture)) {
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
    takeTarget(*manager);
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

// Undo takes away what is said to be made: it must be, and for this stroke.
bool CommitStrokeEdit::isOwnTarget(const LayerManager& manager) const
{
    const ActiveStroke* stroke = manager.stroke(m_target.camera);
    if (!stroke) {
        return false;
    }
    const bool isItsLayer = stroke->layerMade && manager.strokeLayerIndex(m_target.camera) == m_target.layerAdded;
    return (m_target.layerAdded < 0 || isItsLayer) && (!m_target.frameAdded || stroke->frameMade);
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

bool CommitStrokeEdit::restoreTarget(LayerManager& manager)
{
    if (m_target.layerAdded >= 0) {
        const int index = manager.insertLayer(m_target.camera, m_target.layerAdded, std::move(m_layer));
        return index >= 0 && manager.setActiveLayer(m_target.camera, index, true);
    }
    Layer* layer = targetLayer(manager);
    return layer && (!m_target.frameAdded || layer->restoreFrame(std::unique_ptr<Frame>(new Frame(m_frame.time))) >= 0);
}

void CommitStrokeEdit::takeTarget(LayerManager& manager)
{
    if (m_target.layerAdded >= 0) {
        m_layer = manager.takeLayer(m_target.camera, manager.layerIndex(m_target.camera, m_frame.layerId));
        if (manager.isValidLayer(m_previousCamera, m_previousActiveIndex)) {
            manager.setActiveLayer(m_previousCamera, m_previousActiveIndex, true);
        }
    } else if (m_target.frameAdded) {
        targetLayer(manager)->takeFramesAt({m_frame.time});
    }
}

Layer* CommitStrokeEdit::targetLayer(const LayerManager& manager) const
{
    return manager.layer(m_target.camera, manager.layerIndex(m_target.camera, m_frame.layerId));
}
