#include "commands/LayerListEdits.h"

#include "model/LayerManager.h"

AddLayer::AddLayer(const QString& camera, const QString& name, int state)
    : m_camera(camera), m_name(name), m_state(state)
{}

bool AddLayer::apply(LayerManager& manager)
{
    m_before.remember(manager, {m_camera});
    m_index = manager.insertLayer(m_camera, -1, m_name);
    m_layerId = manager.layerId(m_camera, m_index);
    manager.setLayerState(m_camera, m_index, m_state);
    return activate(manager);
}

bool AddLayer::reapply(LayerManager& manager)
{
    m_before.remember(manager, {m_camera});
    m_index = manager.insertLayer(m_camera, -1, std::move(m_layer));
    return activate(manager);
}

bool AddLayer::activate(LayerManager& manager)
{
    const bool isDone = manager.setActiveLayer(m_camera, m_index, true);
    m_before.noteChange(manager);
    return isDone;
}

bool AddLayer::revert(LayerManager& manager)
{
    const CurrentCameras now = manager.currentCameras();
    m_layer = manager.takeLayer(m_camera, manager.layerIndex(m_camera, m_layerId));
    if (!m_layer) {
        return false;
    }
    m_before.restore(manager, now);
    return true;
}

DeleteLayer::DeleteLayer(const QString& camera, int index) : LayerEdit(camera, index) {}

bool DeleteLayer::apply(LayerManager& manager)
{
    m_before.remember(manager, {camera()});
    m_index = find(manager);
    m_taken = manager.takeLayer(camera(), m_index);
    m_before.noteChange(manager);
    return m_taken != nullptr;
}

bool DeleteLayer::revert(LayerManager& manager)
{
    const CurrentCameras now = manager.currentCameras();
    if (manager.insertLayer(camera(), m_index, std::move(m_taken)) < 0) {
        return false;
    }
    m_before.restore(manager, now);
    return true;
}

DeleteAllLayers::DeleteAllLayers(const QString& camera) : m_camera(camera) {}

bool DeleteAllLayers::apply(LayerManager& manager)
{
    m_before.remember(manager, {m_camera});
    m_taken = manager.takeAllLayers(m_camera);
    m_before.noteChange(manager);
    return true;
}

bool DeleteAllLayers::revert(LayerManager& manager)
{
    const CurrentCameras now = manager.currentCameras();
    int index = 0;
    for (std::unique_ptr<Layer>& layer : m_taken) {
        if (manager.insertLayer(m_camera, index++, std::move(layer)) < 0) {
            return false;
        }
    }
    m_taken.clear();
    m_before.restore(manager, now);
    return true;
}
