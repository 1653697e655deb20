#pragma once

#include "commands/DrawingChange.h"
#include "model/Layer.h"

#include <QString>

/// A change of the frames of one layer: the one that was active when the edit ran first. On a camera that had no
/// active layer it changes nothing.
class FrameEdit : public DrawingChange {
protected:
    /// whenLocked: what is said of a locked layer, which is then left alone; null when that makes no difference.
    FrameEdit(const QString& camera, const char* whenLocked);

    bool prepare(LayerManager& manager) override;
    bool apply(LayerManager& manager) override;
    bool revert(LayerManager& manager) override;
    /// prepare() for the layer itself; not called without one.
    virtual bool prepareFor(const Layer& layer);
    virtual bool applyTo(Layer& layer) = 0;
    virtual bool revertOn(Layer& layer) = 0;

    const QString& camera() const { return m_camera; }
    void setLayerId(quint64 layerId) { m_layerId = layerId; }
    int layerIndex(const LayerManager& manager) const;  ///< where the layer is now; -1 when it is gone

private:
    bool run(LayerManager& manager, bool (FrameEdit::*step)(Layer&));

    const QString m_camera;
    const char* const m_whenLocked;
    quint64 m_layerId = 0;
};
