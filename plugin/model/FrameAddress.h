#pragma once

#include <maya/MTime.h>

#include <QString>

/// One frame of one layer, by value: good across undo and redo, whatever unit the scene counts its frames in by then
/// and wherever the layer is in its camera's stack.
struct FrameAddress {
    QString camera;
    quint64 layerId;  ///< 0: no such frame
    MTime time;       ///< exactly the frame's
};
