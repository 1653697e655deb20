#pragma once

#include <QString>

/// Where the master drawing's layers are published: the layer panel. The layer manager calls these in this order.
class LayerListView {
public:
    virtual ~LayerListView() = default;
    virtual void clear() = 0;
    /// One layer, bottom first within its camera.
    virtual void addRow(const QString& camera, int index, const QString& name, int state, bool visible) = 0;
    virtual void select(const QString& camera, int index) = 0;  ///< index -1 when the camera has no active layer
    virtual void refresh() = 0;
};
