#include "commands/LayerMoveEdits.h"

MoveLayer::MoveLayer(const QString& camera, int from, int to) : LayerEdit(camera, from), m_to(to) {}

bool MoveLayer::apply(LayerManager& manager)
{
    m_from = find(manager);
    const int landing = manager.moveLayer(camera(), m_from, m_to);
    if (landing < 0) {
        return false;
    }
    m_to = landing;
    return true;
}

bool MoveLayer::revert(LayerManager& manager)
{
    return manager.moveLayer(camera(), find(manager), m_from) >= 0;
}

MoveLayerToCamera::MoveLayerToCamera(const QString& camera, int index, const QString& toCamera, int toIndex)
    : LayerEdit(camera, index), m_toCamera(toCamera), m_toIndex(toIndex)
{}

bool MoveLayerToCamera::apply(LayerManager& manager)
{
    m_before.remember(manager, {m_toCamera, camera()});
    m_index = find(manager);
    const bool staysActive = manager.currentCamera() == camera() && manager.activeLayerIndex(camera()) == m_index;
    const int landing = manager.moveLayerToCamera(camera(), m_index, m_toCamera, m_toIndex);
    if (landing < 0) {
        return false;
    }
    m_toIndex = landing;
    if (staysActive) {
        manager.setActiveLayer(m_toCamera, landing, true);
    }
    m_before.noteChange(manager);
    return true;
}

bool MoveLayerToCamera::revert(LayerManager& manager)
{
    const CurrentCameras now = manager.currentCameras();
    if (manager.moveLayerToCamera(m_toCamera, find(manager, m_toCamera), camera(), m_index) < 0) {
        return false;
    }
    m_before.restore(manager, now);
    return true;
}

MoveAllLayers::MoveAllLayers(const QString& camera, const QString& toCamera) : m_camera(camera), m_toCamera(toCamera) {}

bool MoveAllLayers::apply(LayerManager& manager)
{
    for (int index = manager.layerCount(m_camera) - 1; index >= 0; --index) {
        m_moved.push_back(manager.layerId(m_camera, index));
    }
    return !m_moved.empty() && reapply(manager);
}

bool MoveAllLayers::reapply(LayerManager& manager)
{
    m_before.remember(manager, {m_toCamera, m_camera});
    const bool wasCurrent = manager.currentCamera() == m_camera;
    const quint64 active = manager.layerId(m_camera, manager.activeLayerIndex(m_camera));
    const int toIndex = manager.layerCount(m_toCamera);
    for (quint64 id : m_moved) {
        if (manager.moveLayerToCamera(m_camera, manager.layerIndex(m_camera, id), m_toCamera, toIndex) < 0) {
            return false;  // the other camera is not in the scene: it is the first that fails
        }
    }
    const int landing = manager.layerIndex(m_toCamera, active);
    if (wasCurrent && landing >= 0) {
        manager.setActiveLayer(m_toCamera, landing, true);
    }
    m_before.noteChange(manager);
    return true;
}

bool MoveAllLayers::revert(LayerManager& manager)
{
    const CurrentCameras now = manager.currentCameras();
    for (quint64 id : m_moved) {
        if (manager.moveLayerToCamera(m_toCamera, manager.layerIndex(m_toCamera, id), m_camera, 0) < 0) {
            return false;
        }
    }
    m_before.restoreWherever(manager, now);
    return true;
}
