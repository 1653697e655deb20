#pragma once

#include "model/ActiveStroke.h"

#include <QImage>
#include <QPainter>

/// Clears the canvas and draws the record's shape or text into it. A record with too few points draws nothing.
/// preview: a frame is drawn round a text, which is still being typed.
void renderShape(QImage& canvas, const ActiveStroke& record, bool preview);

/// Draws what a transform floats: rotated and scaled about the centre of the record's region, then moved; or moved
/// only, when it is pasted as it is.
void drawTransformed(QPainter& painter, const ActiveStroke& record, const QImage& image);
/// A box of canvas pixels that holds all that drawTransformed draws of an image of that size.
QRect transformedBox(const ActiveStroke& record, const QSize& size);
