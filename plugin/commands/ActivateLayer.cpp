#include "commands/ActivateLayer.h"

#include "model/LayerManager.h"

ActivateLayer::ActivateLayer(const QString& camera, int index) : m_camera(camera), m_index(index) {}

bool ActivateLayer::apply(LayerManager& manager)
{
    m_before.remember(manager, m_camera);
    const bool isActive = m_before.currentCamera() == m_camera && m_before.currentIndex() == m_index;
    return !isActive && manager.setActiveLayer(m_camera, m_index, true);
}

bool ActivateLayer::revert(LayerManager& manager)
{
    m_before.restore(manager);
    // Once more for a camera that has no layers: it becomes current as well.
    return manager.setActiveLayer(m_before.currentCamera(), m_before.currentIndex(), true);
}
