#pragma once

#include <QString>

class LayerManager;

/// What the layer manager needs of the views and panels above it.
class DrawingViews {
public:
    virtual ~DrawingViews() = default;
    /// The key of the camera that the host's active view looks through; empty without a view.
    virtual QString activeCamera() = 0;
    /// A committed or exchanged drawing has to appear: draw the node anew and refresh the active view.
    virtual void redrawDrawing() = 0;
    /// The opacity of the current camera's active layer changed.
    virtual void activeOpacityChanged() = 0;
    /// Whether the scene's commands work on another drawing: an import may bring one more that says it is the master.
    virtual bool isAnotherEdited(const LayerManager&) { return false; }
};
