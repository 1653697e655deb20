#pragma once

#include "settings/ToolType.h"

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QVector>

/// One sample of the pointer, in canvas pixels.
struct StrokePoint {
    int width;        ///< tool size; point size for text
    float opacity;    ///< 0..1
    float hardness;   ///< 0..1
    QPoint position;  ///< may lie off the canvas
};

/// The stroke being drawn or the transform being edited. The layer manager owns it from beginStroke to commitStroke or
/// dropStroke; the tools fill it and set changed.
struct ActiveStroke {
    ToolType tool = ToolType::Pencil;
    QColor colour = Qt::white;
    QVector<StrokePoint> points;
    QString fontFamily;
    QString text;

    QRect region;         ///< what a transform works on
    QPoint translation;   ///< canvas pixels
    float angle = 0;      ///< degrees
    double scaleX = 1.0;  ///< negative mirrors
    double scaleY = 1.0;
    bool takeRegion = false;  ///< take the region from the layer at the next step; taking it clears this
    bool clearOnly = false;   ///< the region is emptied and nothing floats
    bool keepCut = false;     ///< a copy of the region is kept for pasting
    bool pasteAsIs = false;   ///< what floats is the kept copy, drawn untransformed

    bool layerMade = false;  ///< for this stroke: until the commit its layer stands in no undo step
    bool frameMade = false;  ///< the same of its frame

    bool drawAnew = false;  ///< points that may be drawn already were changed or taken back; freehand clears it
    bool changed = false;   ///< since the last composite
};
