#pragma once

#include <QPoint>
#include <QPointF>
#include <QVector>

#include <algorithm>
#include <cmath>

/// The way a pointer goes, as the positions at which it is seen.
namespace support {

/// The points of a straight line, `spacing` pixels apart, both ends included.
inline QVector<QPoint> line(QPoint from, QPoint to, double spacing = 4)
{
    const QPoint step = to - from;
    const int count = std::max(1, int(std::hypot(step.x(), step.y()) / spacing));
    QVector<QPoint> points;
    for (int i = 0; i <= count; ++i) {
        points << QPoint(from.x() + step.x() * i / count, from.y() + step.y() * i / count);
    }
    return points;
}

/// The points of a curve through the given points (Catmull-Rom spline), about `spacing` apart.
inline QVector<QPoint> curve(const QVector<QPointF>& through, double spacing = 4)
{
    const int last = through.size() - 1;
    const auto at = [&](int i) { return through[std::min(std::max(i, 0), last)]; };
    QVector<QPoint> points;
    for (int i = 0; i < last; ++i) {
        const QPointF p0 = at(i - 1), p1 = at(i), p2 = at(i + 1), p3 = at(i + 2);
        const QPointF chord = p2 - p1;
        const int steps = std::max(1, int(std::hypot(chord.x(), chord.y()) / spacing));
        for (int s = 0; s < steps; ++s) {
            const double t = double(s) / steps;
            const QPointF p = 0.5
                            * (2 * p1 + (p2 - p0) * t + (2 * p0 - 5 * p1 + 4 * p2 - p3) * t * t
                               + (3 * p1 - p0 - 3 * p2 + p3) * t * t * t);
            points << p.toPoint();
        }
    }
    points << through[last].toPoint();
    return points;
}

}  // namespace support
