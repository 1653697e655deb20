#pragma once

#include "model/LayerManager.h"

/// The active layers of a moment: the one of the camera an edit works on, and the one of the camera then current.
class ActiveLayers {
public:
    void remember(const LayerManager& manager, const QString& camera);
    /// Makes them active again, as far as there are such layers, and the same cameras current and previous.
    void restore(LayerManager& manager) const;
    /// The layer is the active one of the camera that was current.
    bool isCurrent(const QString& camera, int index) const;

private:
    QString m_camera;
    int m_index = -1;
    CurrentCameras m_cameras;
    int m_currentIndex = -1;
};

/// Makes a layer the active one of its camera again, if there is such a layer; the current camera stays.
void restoreActiveLayer(LayerManager& manager, const QString& camera, int index);
