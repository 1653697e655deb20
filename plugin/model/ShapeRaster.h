#pragma once

#include "model/ActiveStroke.h"

#include <QImage>

/// Clears the canvas and draws the record's shape or text into it. A record with too few points draws nothing.
/// preview: a frame is drawn round a text, which is still being typed.
void renderShape(QImage& canvas, const ActiveStroke& record, bool preview);
