#pragma once

#include <maya/MPoint.h>
#include <maya/MUserData.h>

#include <QImage>

/// What one view shows of a drawing node, from prepareForDraw to addUIDrawables.
class BaseNodeUserData : public MUserData {
public:
    BaseNodeUserData() : MUserData(false) {}

    const QImage* image = nullptr;  ///< the manager's; null to draw nothing
    float opacity = 1.0f;           ///< 0..1
    bool cameraHasDrawing = false;
    MPoint centre;       ///< view pixels
    float halfSize = 0;  ///< view pixels
    int frameNumber = 0;
};
