#include "commands/LayerEdit.h"

#include "model/LayerManager.h"
#include "settings/Messages.h"

LayerEdit::LayerEdit(const QString& camera, int index) : m_camera(camera), m_index(index) {}

bool LayerEdit::aim(const LayerManager& manager)
{
    const ActiveStroke* stroke = manager.stroke(m_camera);
    if (stroke && stroke->layerMade && manager.strokeFrame(m_camera).layerIndex == m_index) {
        messages::error("Apply or cancel the pasted region first");
        return false;
    }
    m_layerId = manager.layerId(m_camera, m_index);
    return true;
}

int LayerEdit::find(const LayerManager& manager, const QString& camera) const
{
    return m_layerId == 0 ? m_index : manager.layerIndex(camera, m_layerId);
}
