#pragma once

#include "session/sheet/Sketch.h"

/// Small drawings in strokes, made for the contact sheet. Their corner is the canvas position of their upper left.
namespace sheet {

/// A lively S that crosses itself once and keeps so far off the rectangle's edges that a pen of the width fits.
QVector<QPoint> crossingCurve(const QRect& area, int penWidth);

constexpr int kBallKeys = 19;
constexpr int kBallMiddle = 9;
int ballFrame(int key);  ///< on every second frame
/// The ball of the plates: a layer "Ground" that stands, and a layer "Ball" of kBallKeys keys. Fills 500 x 250 pixels.
void bouncingBall(Sketch& sketch, const QPoint& corner);

/// A bird in a layer keyed at 1, facing right. Fills 160 x 145 pixels.
void bird(Sketch& sketch, const QPoint& corner);

}  // namespace sheet
