#pragma once

#include "commands/DrawingChange.h"

#include <QString>

/// A change of one layer: the one that had the index given when the edit first ran, wherever among the camera's layers
/// it is by then. It leaves a layer alone that was made for a floating paste.
class LayerEdit : public DrawingChange {
protected:
    LayerEdit(const QString& camera, int index);

    bool aim(const LayerManager& manager) override;
    const QString& camera() const { return m_camera; }
    /// Where among a camera's layers the layer is now, -1 when it is not there; the index given when there never was
    /// such a layer.
    int find(const LayerManager& manager, const QString& camera) const;
    int find(const LayerManager& manager) const { return find(manager, m_camera); }

private:
    const QString m_camera;
    const int m_index;
    quint64 m_layerId = 0;
};
