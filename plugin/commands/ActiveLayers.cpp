#include "commands/ActiveLayers.h"

void ActiveLayers::remember(const LayerManager& manager, const QString& camera)
{
    m_camera = camera;
    m_index = manager.activeLayerIndex(camera);
    m_cameras = manager.currentCameras();
    m_currentIndex = manager.activeLayerIndex(m_cameras.current);
}

void ActiveLayers::restore(LayerManager& manager) const
{
    restoreActiveLayer(manager, m_camera, m_index);
    restoreActiveLayer(manager, m_cameras.current, m_currentIndex);
    manager.restoreCurrentCameras(m_cameras);
}

bool ActiveLayers::isCurrent(const QString& camera, int index) const
{
    return m_cameras.current == camera && m_currentIndex == index;
}

void restoreActiveLayer(LayerManager& manager, const QString& camera, int index)
{
    if (manager.isValidLayer(camera, index)) {
        manager.setActiveLayer(camera, index, false);
    }
}
