#include "commands/LayerMoveEdits.h"

#include "commands/ActiveLayers.h"

MoveLayer::MoveLayer(const QString& camera, int from, int to) : m_camera(camera), m_from(from), m_to(to) {}

bool MoveLayer::apply(LayerManager& manager)
{
    const int landing = manager.moveLayer(m_camera, m_from, m_to);
    if (landing < 0) {
        return false;
    }
    m_to = landing;
    return true;
}

bool MoveLayer::revert(LayerManager& manager)
{
    return manager.moveLayer(m_camera, m_to, m_from) >= 0;
}

MoveLayerToCamera::MoveLayerToCamera(const QString& camera, int index, const QString& toCamera, int toIndex)
    : m_camera(camera), m_index(index), m_toCamera(toCamera), m_toIndex(toIndex)
{}

bool MoveLayerToCamera::apply(LayerManager& manager)
{
    m_active = manager.activeLayerIndex(m_camera);
    m_toActive = manager.activeLayerIndex(m_toCamera);
    m_before = manager.currentCameras();
    const int landing = manager.moveLayerToCamera(m_camera, m_index, m_toCamera, m_toIndex);
    if (landing < 0) {
        return false;
    }
    m_toIndex = landing;
    if (m_before.current == m_camera && m_active == m_index) {
        manager.setActiveLayer(m_toCamera, landing, true);
    }
    m_changedCurrent = manager.currentCamera() != m_before.current;
    return true;
}

// The current camera comes back with the layer unless the user has gone to a third one meanwhile.
bool MoveLayerToCamera::revert(LayerManager& manager)
{
    const CurrentCameras now = manager.currentCameras();
    if (manager.moveLayerToCamera(m_toCamera, m_toIndex, m_camera, m_index) < 0) {
        return false;
    }
    restoreActiveLayer(manager, m_toCamera, m_toActive);
    restoreActiveLayer(manager, m_camera, m_active);
    manager.restoreCurrentCameras(m_changedCurrent && now.current == m_toCamera ? m_before : now);
    return true;
}

MoveAllLayers::MoveAllLayers(const QString& camera, const QString& toCamera) : m_camera(camera), m_toCamera(toCamera) {}

bool MoveAllLayers::apply(LayerManager& manager)
{
    m_active = manager.activeLayerIndex(m_camera);
    m_toActive = manager.activeLayerIndex(m_toCamera);
    m_toCount = manager.layerCount(m_toCamera);
    m_before = manager.currentCameras();
    const int count = manager.layerCount(m_camera);
    for (int index = count - 1; index >= 0; --index) {
        if (manager.moveLayerToCamera(m_camera, index, m_toCamera, m_toCount) < 0) {
            return false;  // the other camera is not in the scene: it is the first that fails
        }
    }
    if (m_before.current == m_camera && m_active >= 0) {
        manager.setActiveLayer(m_toCamera, m_active + m_toCount, true);
    }
    m_changedCurrent = manager.currentCamera() != m_before.current;
    return count > 0;
}

// The current camera comes back with the layers wherever the user has gone meanwhile.
bool MoveAllLayers::revert(LayerManager& manager)
{
    const CurrentCameras now = manager.currentCameras();
    for (int index = manager.layerCount(m_toCamera) - 1; index >= m_toCount; --index) {
        if (manager.moveLayerToCamera(m_toCamera, index, m_camera, 0) < 0) {
            return false;
        }
    }
    restoreActiveLayer(manager, m_toCamera, m_toActive);
    restoreActiveLayer(manager, m_camera, m_active);
    manager.restoreCurrentCameras(m_changedCurrent ? m_before : now);
    return true;
}
