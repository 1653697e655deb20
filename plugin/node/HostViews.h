#pragma once

#include "model/DrawingViews.h"

/// The host's views, as the drawing sees them.
class HostViews : public DrawingViews {
public:
    QString activeCamera() override;
    void redrawDrawing() override;
    void activeOpacityChanged() override;
    bool isAnotherEdited(const LayerManager& drawing) override;
};
