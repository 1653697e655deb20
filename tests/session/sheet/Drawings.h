#pragma once

#include "session/sheet/Sketch.h"

/// Small drawings in strokes, made for the contact sheet. Their corner is the canvas position of their upper left.
namespace sheet {

/// A lively S that crosses itself once and keeps so far off the rectangle's edges that a pen of the width fits.
QVector<QPoint> crossingCurve(const QRect& area, int penWidth);

constexpr int kBallKeys = 19;
constexpr int kBallMiddle = 9;
int ballFrame(int key);  ///< on every second frame
/// A ball that falls, is squashed and bounces three times: a layer "Ground" that stands, and a layer "Ball" of
/// kBallKeys keys. Fills 548 x 280 pixels.
void bouncingBall(Sketch& sketch, const QPoint& corner);

/// A layer "Static" with a pot under the sun, keyed at 0, and a layer "Anim" with a plant that grows at 1, 5 and 10.
/// Fills 310 x 230 pixels.
void growingPlant(Sketch& sketch, const QPoint& corner);

/// Layers "Back", "Middle" and "Front" keyed at 1: a dusk sky, hills and a tree. Fills 310 x 220 pixels.
void landscape(Sketch& sketch, const QPoint& corner);

/// A bird in a layer keyed at 1, facing right. Fills 160 x 145 pixels.
void bird(Sketch& sketch, const QPoint& corner);

}  // namespace sheet
