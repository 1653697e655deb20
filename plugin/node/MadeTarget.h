#pragma once

#include "model/LayerManager.h"

/// The layer and the frame that were made for the stroke in progress, out of the drawing from construction on: they
/// stand in no undo step, and steps must not meet them. Holds nothing when nothing was made.
class MadeTarget {
public:
    explicit MadeTarget(LayerManager& manager);

    void putBack();  ///< the stroke goes on as if nothing had been
    void drop();     ///< for good, and the stroke with them

private:
    void takeOut(const ActiveStroke& stroke);

    LayerManager& m_manager;
    FrameAddress m_address = {QString(), -1, 0};
    CurrentCameras m_cameras;
    int m_activeIndex = -1;
    std::unique_ptr<Layer> m_layer;  // with the frame, when both were made
    std::unique_ptr<Frame> m_frame;
};
