#pragma once

#include <QString>

class LayerManager;

/// The active layers of a moment: the one of the camera an edit works on, and the one of the camera then current.
class ActiveLayers {
public:
    void remember(const LayerManager& manager, const QString& camera);
    /// Makes them active again, and the current camera current when it has an active layer to be made so.
    void restore(LayerManager& manager) const;

    const QString& currentCamera() const { return m_currentCamera; }
    int currentIndex() const { return m_currentIndex; }  ///< of the current camera; -1 for none

private:
    QString m_camera;
    int m_index = -1;
    QString m_currentCamera;
    int m_currentIndex = -1;
};

/// Makes a layer the active one of its camera again, if there is such a layer; the current camera stays.
void restoreActiveLayer(LayerManager& manager, const QString& camera, int index);
