#pragma once

#include "support/PointerPath.h"

#include <QColor>
#include <QDir>
#include <QRect>
#include <QSettings>

#include <cmath>

/// The drawing of the sessions that leave pictures.
namespace session {

/// A turn and a bit more, as a hand closes a circle.
inline QVector<QPointF> ellipse(QPointF centre, double rx, double ry, double tilt = 0)
{
    QVector<QPointF> points;
    for (int i = 0; i < 19; ++i) {
        const double a = 2 * M_PI * i / 16 - 0.6;
        const QPointF p(rx * std::cos(a), ry * std::sin(a));
        points << centre
                      + QPointF(p.x() * std::cos(tilt) - p.y() * std::sin(tilt),
                                p.x() * std::sin(tilt) + p.y() * std::cos(tilt));
    }
    return points;
}

/// The strokes of a bouncing ball: ground, two arcs, the ball along them, squashed where it lands. Unit: the view's
/// height.
inline QVector<QVector<QPoint>> bouncingBall(const QRect& view)
{
    const double h = view.height();
    const auto at = [&](double x, double y) { return QPointF(view.left() + x * h, view.top() + y * h); };
    const double middle = view.width() / h / 2;
    QVector<QVector<QPoint>> strokes;
    strokes << support::curve(
        {at(middle - 0.62, 0.845), at(middle - 0.2, 0.838), at(middle + 0.2, 0.846), at(middle + 0.62, 0.838)}, 4);
    strokes << support::curve(
        {at(middle - 0.56, 0.30), at(middle - 0.46, 0.36), at(middle - 0.36, 0.55), at(middle - 0.31, 0.76)}, 4);
    strokes << support::curve({at(middle - 0.29, 0.76), at(middle - 0.18, 0.46), at(middle - 0.03, 0.34),
                               at(middle + 0.12, 0.46), at(middle + 0.22, 0.76)},
                              4);
    strokes << support::curve(
        {at(middle + 0.25, 0.76), at(middle + 0.33, 0.58), at(middle + 0.43, 0.50), at(middle + 0.53, 0.58)}, 4);
    const double r = 0.055 * h;
    strokes << support::curve(ellipse(at(middle - 0.56, 0.30), r, r), 3);
    strokes << support::curve(ellipse(at(middle - 0.36, 0.55), r * 0.88, r * 1.16, -0.30), 3);
    strokes << support::curve(ellipse(at(middle - 0.30, 0.795), r * 1.35, r * 0.72), 3);
    strokes << support::curve(ellipse(at(middle - 0.18, 0.46), r * 0.9, r * 1.12, 0.45), 3);
    strokes << support::curve(ellipse(at(middle - 0.03, 0.34), r, r), 3);
    strokes << support::curve(ellipse(at(middle + 0.12, 0.46), r * 0.9, r * 1.12, -0.45), 3);
    strokes << support::curve(ellipse(at(middle + 0.23, 0.795), r * 1.3, r * 0.76), 3);
    strokes << support::curve(ellipse(at(middle + 0.43, 0.50), r, r), 3);
    return strokes;
}

/// Preferences a person would have chosen for this drawing: a dark pencil of medium width.
inline void choosePencil(const QString& preferenceFolder)
{
    QSettings preferences(QDir(preferenceFolder).filePath("lumisketch2.ini"), QSettings::IniFormat);
    preferences.setValue("tools/activeTool", 0);
    preferences.setValue("tools/pencilSize", 4);
    preferences.setValue("tools/activeColor", QColor(250, 205, 110));
}

}  // namespace session
