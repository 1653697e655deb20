#pragma once

#include "commands/DrawingChange.h"
#include "model/LayerManager.h"

/// Moves a layer up or down among those of its camera.
class MoveLayer : public DrawingChange {
public:
    MoveLayer(const QString& camera, int from, int to);
    int landing() const { return m_to; }  ///< where the layer is, once it is moved

protected:
    bool apply(LayerManager& manager) override;
    bool revert(LayerManager& manager) override;

private:
    const QString m_camera;
    const int m_from;
    int m_to;
};

/// Moves a layer to another camera. The current camera's active layer stays the active one there.
class MoveLayerToCamera : public DrawingChange {
public:
    /// toIndex: outside the other camera's layers it goes on top.
    MoveLayerToCamera(const QString& camera, int index, const QString& toCamera, int toIndex);
    int landing() const { return m_toIndex; }  ///< where the layer is, once it is moved

protected:
    bool apply(LayerManager& manager) override;
    bool revert(LayerManager& manager) override;

private:
    const QString m_camera;
    const int m_index;
    const QString m_toCamera;
    int m_toIndex;
    int m_active = -1;  // of either camera before the move
    int m_toActive = -1;
    CurrentCameras m_before;
    bool m_changedCurrent = false;
};

/// Moves all layers of a camera on top of those of another, in their order.
class MoveAllLayers : public DrawingChange {
public:
    MoveAllLayers(const QString& camera, const QString& toCamera);

protected:
    bool apply(LayerManager& manager) override;
    bool revert(LayerManager& manager) override;

private:
    const QString m_camera;
    const QString m_toCamera;
    int m_toCount = 0;  // layers that the other camera had
    int m_active = -1;  // of either camera before the move
    int m_toActive = -1;
    CurrentCameras m_before;
    bool m_changedCurrent = false;
};
