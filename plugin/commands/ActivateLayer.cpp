#include "commands/ActivateLayer.h"

ActivateLayer::ActivateLayer(const QString& camera, int index) : m_camera(camera), m_index(index) {}

// At the first run only: a redo finds it so already when the user has gone to the camera meanwhile.
bool ActivateLayer::prepare(LayerManager& manager)
{
    m_before.remember(manager, m_camera);
    return !m_before.isCurrent(m_camera, m_index);
}

bool ActivateLayer::apply(LayerManager& manager)
{
    m_before.remember(manager, m_camera);
    return manager.setActiveLayer(m_camera, m_index, true);
}

bool ActivateLayer::revert(LayerManager& manager)
{
    m_before.restore(manager);
    return true;
}
