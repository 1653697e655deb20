#pragma once

#include "commands/ActiveLayers.h"
#include "commands/LayerEdit.h"

#include <vector>

/// Moves a layer up or down among those of its camera.
class MoveLayer : public LayerEdit {
public:
    MoveLayer(const QString& camera, int from, int to);
    int landing() const { return m_to; }  ///< where the layer is, once it is moved

protected:
    bool apply(LayerManager& manager) override;
    bool revert(LayerManager& manager) override;

private:
    int m_from = -1;
    int m_to;
};

/// Moves a layer to another camera. The current camera's active layer stays the active one there.
class MoveLayerToCamera : public LayerEdit {
public:
    /// toIndex: outside the other camera's layers it goes on top.
    MoveLayerToCamera(const QString& camera, int index, const QString& toCamera, int toIndex);
    int landing() const { return m_toIndex; }  ///< where the layer is, once it is moved

protected:
    bool apply(LayerManager& manager) override;
    bool revert(LayerManager& manager) override;

private:
    int m_index = -1;
    const QString m_toCamera;
    int m_toIndex;
    ActiveLayers m_before;
};

/// Moves all layers of a camera on top of those of another, in their order.
class MoveAllLayers : public DrawingChange {
public:
    MoveAllLayers(const QString& camera, const QString& toCamera);

protected:
    bool apply(LayerManager& manager) override;
    bool reapply(LayerManager& manager) override;
    bool revert(LayerManager& manager) override;

private:
    const QString m_camera;
    const QString m_toCamera;
    std::vector<quint64> m_moved;  // the layers' ids, the uppermost first
    ActiveLayers m_before;
};
