#pragma once

#include "model/LayerManager.h"

#include <QStringList>

#include <vector>

/// Which layers of some cameras were active before an edit, and which camera was current.
class ActiveLayers {
public:
    void remember(const LayerManager& manager, const QStringList& cameras);  ///< before the edit
    void noteChange(const LayerManager& manager);                            ///< after it
    /// Makes the layers active again, as far as they are there. now: the cameras as they were before the edit was
    /// undone; these stay unless the edit had changed the current camera and the user has not gone to another since.
    void restore(LayerManager& manager, const CurrentCameras& now) const;
    /// The same, but the camera that was current becomes so again wherever the user has gone.
    void restoreWherever(LayerManager& manager, const CurrentCameras& now) const;

private:
    struct ActiveLayer {
        QString camera;
        quint64 id;
    };

    bool hasChangedCamera() const { return m_after != m_before.current; }
    void restoreLayers(LayerManager& manager) const;

    std::vector<ActiveLayer> m_layers;
    CurrentCameras m_before;
    QString m_after;  // the current camera
};
