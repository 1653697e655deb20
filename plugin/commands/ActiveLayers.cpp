#include "commands/ActiveLayers.h"

#include "model/LayerManager.h"

void ActiveLayers::remember(const LayerManager& manager, const QString& camera)
{
    m_camera = camera;
    m_index = manager.activeLayerIndex(camera);
    m_currentCamera = manager.currentCamera();
    m_currentIndex = manager.activeLayerIndex(m_currentCamera);
}

void ActiveLayers::restore(LayerManager& manager) const
{
    restoreActiveLayer(manager, m_camera, m_index);
    if (manager.isValidLayer(m_currentCamera, m_currentIndex)) {
        manager.setActiveLayer(m_currentCamera, m_currentIndex, true);
    }
}

void restoreActiveLayer(LayerManager& manager, const QString& camera, int index)
{
    if (manager.isValidLayer(camera, index)) {
        manager.setActiveLayer(camera, index, false);
    }
}
