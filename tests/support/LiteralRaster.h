#pragma once

#include "model/ActiveStroke.h"

#include <QImage>

/// The freehand rasteriser written plainly, to compare the real one with: what a pencil, brush or eraser draws, pixel
/// by pixel and stamp by stamp, with nothing kept from one segment to the next. Shares no code with the real one.

/// Draws the segments from point index `from` on into an RGBA8888 canvas; only alpha bytes change. Walks every step of
/// a line, seen or not, so points should lie within some thousand pixels of the canvas.
void literalStroke(QImage& canvas, const QVector<StrokePoint>& points, int from, ToolType tool);
