#pragma once

#include <QPoint>
#include <QSize>

#include <algorithm>
#include <cmath>
#include <cstdlib>

/// The steps of a walk along an axis; half open, first >= end when there is none.
struct StepRange {
    qint64 first;
    qint64 end;
};

/// An end of a line. Its position is held within +-2^30: nothing that far off is seen anyway, and the product of any
/// two distances stays within 64 bits.
struct LineEnd {
    LineEnd(const QPoint& p, float o) : x(held(p.x())), y(held(p.y())), opacity(o) {}

    int x;
    int y;
    float opacity;

private:
    static int held(int coordinate) { return std::min(std::max(coordinate, -(1 << 30)), 1 << 30); }
};

/// Bresenham's line from one pixel to another ("Algorithm for computer control of a digital plotter", 1965), both ends
/// included. The error term starts at half the longer distance. The opacity grows evenly with each step in x or y.
class BresenhamWalk {
public:
    BresenhamWalk(const LineEnd& from, const LineEnd& to)
        : m_x(from.x), m_y(from.y), m_opacityFrom(from.opacity), m_change(to.opacity - from.opacity)
    {
        const qint64 dx = std::llabs(qint64(to.x) - m_x);
        const qint64 dy = std::llabs(qint64(to.y) - m_y);
        const int stepX = to.x >= m_x ? 1 : -1;
        const int stepY = to.y >= m_y ? 1 : -1;
        m_major = std::max(dx, dy);
        m_minor = std::min(dx, dy);
        m_steep = dy >= dx;
        m_alongX = m_steep ? 0 : stepX;
        m_alongY = m_steep ? stepY : 0;
        m_acrossX = m_steep ? stepX : 0;
        m_acrossY = m_steep ? 0 : stepY;
    }

    /// The steps that may be seen, however far off the line begins. margin: how far off the canvas a position counts.
    StepRange steps(const QSize& canvas, int margin) const;

    struct Place {
        int x;
        int y;
        qint64 error;
        qint64 axisSteps;  ///< so far
    };
    // The error falls by the shorter distance at each step, and a step across lifts it by the longer one before it
    // would turn negative; solved for the number of steps across.
    Place at(qint64 step) const
    {
        const qint64 error = m_major / 2 - step * m_minor;
        const qint64 across = error < 0 ? (m_major - 1 - error) / m_major : 0;
        return {static_cast<int>(m_x + m_alongX * step + m_acrossX * across),
                static_cast<int>(m_y + m_alongY * step + m_acrossY * across), error + across * m_major, step + across};
    }
    // Without a branch on the error, as no processor would foresee it.
    void advance(Place& place, int steps = 1) const
    {
        for (int i = 0; i < steps; ++i) {
            place.error -= m_minor;
            const int across = place.error < 0 ? 1 : 0;
            place.error += -qint64(across) & m_major;
            place.x += m_alongX + (-across & m_acrossX);
            place.y += m_alongY + (-across & m_acrossY);
            place.axisSteps += 1 + across;
        }
    }
    float opacity(const Place& place) const
    {
        if (m_change == 0.0f || m_major == 0) {
            return m_opacityFrom;
        }
        const double share = double(m_change) * double(place.axisSteps) / double(m_major + m_minor);
        return static_cast<float>(m_opacityFrom + share);
    }

private:
    int m_x;  // of the start
    int m_y;
    float m_opacityFrom;
    float m_change;  // of the opacity
    bool m_steep;    // the longer axis is y
    qint64 m_major;  // distance on the longer axis
    qint64 m_minor;
    int m_alongX;  // a step on the longer axis
    int m_alongY;
    int m_acrossX;  // a step on the other
    int m_acrossY;
};

/// Xiaolin Wu's antialiased line ("An Efficient Antialiasing Technique", 1991) between whole pixels: at each step of
/// the longer axis two neighbouring pixels share the coverage 1. The opacity changes evenly along the line.
class WuWalk {
public:
    /// endWeight: what an end pixel counts; half, in Wu's rule for a line that ends in the middle of a pixel.
    WuWalk(const LineEnd& from, const LineEnd& to, float endWeight);

    /// The steps that may be seen, however far off the line begins. margin: how far off the canvas a position counts.
    StepRange steps(const QSize& canvas, int margin) const;
    QPoint across() const { return m_steep ? QPoint(1, 0) : QPoint(0, 1); }  ///< from the near pixel to the far one

    struct Step {
        QPoint pixel;  ///< the near one
        float nearWeight;
        float farWeight;
        float opacity;
    };
    Step at(qint64 step) const
    {
        if (step == 0) {
            return {pixelAt(0, m_minorFrom), m_endWeight, 0.0f, m_opacityFrom};
        }
        if (step == m_last) {
            return {pixelAt(step, m_minorTo), m_endWeight, 0.0f, m_opacityTo};
        }
        const double rise = m_gradient * double(step);
        const double minor = double(m_minorFrom) + rise;
        const int whole = wholeBelow(minor);
        const float fraction = static_cast<float>(minor - whole);
        return {pixelAt(step, whole), 1.0f - fraction, fraction, opacityAt(rise, step)};
    }

private:
    // floor() itself is a call where the processor is not known to have it.
    static int wholeBelow(double value)
    {
        const int whole = static_cast<int>(value);
        return whole > value ? whole - 1 : whole;
    }
    QPoint pixelAt(qint64 step, int minor) const
    {
        const int major = static_cast<int>(m_majorFrom + step);
        return m_steep ? QPoint(minor, major) : QPoint(major, minor);
    }
    float opacityAt(double rise, qint64 step) const
    {
        const double share = m_change == 0.0f ? 0.0 : std::sqrt(rise * rise + double(step) * double(step)) / m_length;
        const double opacity = share * double(m_change) + double(m_opacityFrom);
        return static_cast<float>(std::min(std::max(opacity, 0.0), 1.0));
    }

    bool m_steep;     // the longer axis is y
    int m_majorFrom;  // on the longer axis, the lower end
    int m_minorFrom;
    int m_minorTo;
    qint64 m_last;  // step; 0 when both ends are one pixel
    float m_opacityFrom;
    float m_opacityTo;
    float m_change;  // of the opacity
    float m_endWeight;
    double m_gradient;
    double m_length;
};
