#pragma once

#include "model/LayerManager.h"

/// The layer and the frame that were made for the stroke in progress, out of the drawing from construction on: they
/// stand in no undo step, and neither steps nor files must meet them. Holds nothing when nothing was made. What has not
/// been dropped by the end is put back.
class MadeTarget {
public:
    explicit MadeTarget(LayerManager& manager);
    ~MadeTarget();
    MadeTarget(const MadeTarget&) = delete;
    MadeTarget& operator=(const MadeTarget&) = delete;

    void putBack();  ///< the stroke goes on as if nothing had been
    bool drop();     ///< for good, and the stroke with them; false when nothing was held

private:
    void takeOut(const ActiveStroke& stroke);
    void putLayerBack();
    void putFrameBack();

    LayerManager& m_manager;
    FrameAddress m_address = {QString(), 0, MTime()};
    int m_layerIndex = -1;
    CurrentCameras m_cameras;
    int m_activeIndex = -1;
    std::unique_ptr<Layer> m_layer;  // with the frame, when both were made
    Frames m_frames;                 // the one
};
