#pragma once

#include <QPoint>
#include <QPointF>

/// The ways in which this system makes whole numbers of fractions. Every result is held within int; what is no number
/// becomes 0.

int truncated(double value);      ///< toward zero: frame numbers, sizes on the screen
int roundedHalfUp(double value);  ///< to the nearest, halves toward +infinity: places on the canvas and views
QPoint roundedHalfUp(const QPointF& place);
int roundedHalfAwayFromZero(double value);  ///< to the nearest, halves to the larger amount: smoothed points, dab masks
