#pragma once

#include <maya/MPoint.h>
#include <maya/MUserData.h>

#include <QImage>
#include <QPointF>

#include <array>

/// What one view shows of a drawing node, from prepareForDraw to addUIDrawables.
class BaseNodeUserData : public MUserData {
public:
    BaseNodeUserData() : MUserData(false) {}

    const QImage* image = nullptr;   ///< the manager's; null to draw nothing
    quint64 generation = 0;          ///< of the image
    float opacity = 1.0f;            ///< 0..1
    bool cameraHasDrawing = false;   ///< told for callers that look into the data; drawing asks for the image
    MPoint centre;                   ///< view pixels
    float halfSize = 0;              ///< view pixels
    bool showRegion = false;         ///< the transform tool's outline belongs into this view
    std::array<QPointF, 4> corners;  ///< of that outline, view pixels
    int frameNumber = 0;             ///< likewise told only
};
