#include "commands/FrameEdit.h"

#include "model/LayerManager.h"
#include "settings/Messages.h"

FrameEdit::FrameEdit(const QString& camera, const char* whenLocked) : m_camera(camera), m_whenLocked(whenLocked) {}

bool FrameEdit::prepare(LayerManager& manager)
{
    const Layer* layer = manager.activeLayer(m_camera);
    m_layerId = layer ? layer->id() : 0;
    if (layer && m_whenLocked && layer->state() == kLayerLocked) {
        messages::error(m_whenLocked);
        return false;
    }
    return !layer || prepareFor(*layer);
}

bool FrameEdit::prepareFor(const Layer&)
{
    return true;
}

int FrameEdit::layerIndex(const LayerManager& manager) const
{
    return manager.layerIndex(m_camera, m_layerId);
}

bool FrameEdit::apply(LayerManager& manager)
{
    return run(manager, &FrameEdit::applyTo);
}

bool FrameEdit::reapply(LayerManager& manager)
{
    return run(manager, &FrameEdit::reapplyTo);
}

bool FrameEdit::revert(LayerManager& manager)
{
    return run(manager, &FrameEdit::revertOn);
}

bool FrameEdit::run(LayerManager& manager, bool (FrameEdit::*step)(Layer&))
{
    if (m_layerId == 0) {
        return true;
    }
    Layer* layer = manager.layer(m_camera, layerIndex(manager));
    if (!layer || !(this->*step)(*layer)) {
        return false;
    }
    manager.markForRedraw(m_camera);  // the ghosts may be other ones although the frame shown is the same
    return true;
}
