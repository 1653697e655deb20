#pragma once

#include "model/ActiveStroke.h"

#include <QImage>

/// Draws the freehand segments from point index `from` on into a canvas, writing only alpha bytes. Pencil and brush
/// never lower alpha and never raise it above the points' opacity; the eraser sets it to 0. What lies beyond the
/// canvas is skipped. Calling it for each new point gives the same pixels as calling it once.
/// Gives the box of the pixels that may have changed; an empty one when nothing was drawn.
QRect rasteriseStroke(QImage& canvas, const QVector<StrokePoint>& points, int from, ToolType tool);
