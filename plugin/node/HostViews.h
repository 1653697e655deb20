#pragma once

#include "model/DrawingViews.h"

class QWidget;

/// The host's views, as the drawing sees them.
class HostViews : public DrawingViews {
public:
    /// The key of the camera that the view in a widget looks through; empty for a widget of no view.
    static QString cameraShownIn(const QWidget& widget);

    QString activeCamera() override;
    void redrawDrawing() override;
    void activeOpacityChanged() override;
    bool isAnotherEdited(const LayerManager& drawing) override;
};
