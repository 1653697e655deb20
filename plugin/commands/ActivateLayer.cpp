#include "commands/ActivateLayer.h"

ActivateLayer::ActivateLayer(const QString& camera, int index) : LayerEdit(camera, index), m_index(index) {}

// At the first run only: a redo finds it so already when the user has gone to the camera meanwhile.
bool ActivateLayer::aim(const LayerManager& manager)
{
    const bool isSoAlready = manager.currentCamera() == camera() && manager.activeLayerIndex(camera()) == m_index;
    return !isSoAlready && LayerEdit::aim(manager);
}

bool ActivateLayer::apply(LayerManager& manager)
{
    m_before.remember(manager, {camera()});
    const bool isDone = manager.setActiveLayer(camera(), find(manager), true);
    m_before.noteChange(manager);
    return isDone;
}

bool ActivateLayer::revert(LayerManager& manager)
{
    m_before.restore(manager, manager.currentCameras());
    return true;
}
