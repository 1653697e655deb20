#include "commands/LayerListEdits.h"

#include "model/LayerManager.h"

AddLayer::AddLayer(const QString& camera, const QString& name, int state)
    : m_camera(camera), m_name(name), m_state(state)
{}

bool AddLayer::apply(LayerManager& manager)
{
    m_before.remember(manager, m_camera);
    m_index = manager.insertLayer(m_camera, -1, m_name);
    manager.setLayerState(m_camera, m_index, m_state);
    return manager.setActiveLayer(m_camera, m_index, true);
}

bool AddLayer::revert(LayerManager& manager)
{
    if (!manager.takeLayer(m_camera, m_index)) {
        return false;
    }
    m_before.restore(manager);
    return true;
}

DeleteLayer::DeleteLayer(const QString& camera, int index) : m_camera(camera), m_index(index) {}

bool DeleteLayer::apply(LayerManager& manager)
{
    m_before.remember(manager, m_camera);
    m_taken = manager.takeLayer(m_camera, m_index);
    return m_taken != nullptr;
}

bool DeleteLayer::revert(LayerManager& manager)
{
    if (manager.insertLayer(m_camera, m_index, std::move(m_taken)) < 0) {
        return false;
    }
    m_before.restore(manager);
    return true;
}

DeleteAllLayers::DeleteAllLayers(const QString& camera) : m_camera(camera) {}

bool DeleteAllLayers::apply(LayerManager& manager)
{
    m_before.remember(manager, m_camera);
    m_taken = manager.takeAllLayers(m_camera);
    return true;
}

bool DeleteAllLayers::revert(LayerManager& manager)
{
    int index = 0;
    for (std::unique_ptr<Layer>& layer : m_taken) {
        if (manager.insertLayer(m_camera, index++, std::move(layer)) < 0) {
            return false;
        }
    }
    m_taken.clear();
    m_before.restore(manager);
    return true;
}
