#pragma once

#include <QPoint>

#include <cmath>

/// The steps of a walk along an axis; half open, first >= end when there is none.
struct StepRange {
    qint64 first;
    qint64 end;
};

/// Both walks hold their ends within +-2^30 and can start at the canvas border, however far off the line begins.
/// width, height: of the canvas; margin: how far off it a position still counts.

/// Bresenham's line from one pixel to another ("Algorithm for computer control of a digital plotter", 1965), both ends
/// included. The error term starts at half the longer distance.
class BresenhamWalk {
public:
    BresenhamWalk(const QPoint& from, const QPoint& to);

    qint64 axisSteps() const { return m_dx + m_dy; }  ///< steps in x and in y, over the whole line
    StepRange steps(int width, int height, int margin) const;

    struct Position {
        qint64 x;
        qint64 y;
        qint64 axisSteps;  ///< so far
    };
    Position at(qint64 step) const;

private:
    bool isSteep() const { return m_dy >= m_dx; }
    qint64 minorSteps(qint64 step) const;

    QPoint m_from;
    qint64 m_dx;
    qint64 m_dy;
    int m_stepX;
    int m_stepY;
    qint64 m_major;
};

/// Xiaolin Wu's antialiased line ("An Efficient Antialiasing Technique", 1991) between whole pixels: at each step of
/// the longer axis two neighbouring pixels share the coverage 1. The opacity changes evenly along the line.
class WuWalk {
public:
    WuWalk(const QPoint& from, float opacityFrom, const QPoint& to, float opacityTo);

    /// Gives each pixel to plot(qint64 x, qint64 y, float weight, float opacity), weight being its coverage above 0.
    /// endWeight: what an end pixel counts; half, in Wu's rule for a line that ends in the middle of a pixel.
    template <class Plot>
    void plot(int width, int height, int margin, float endWeight, Plot plot) const
    {
        const StepRange range = visibleSteps(width, height, margin);
        for (qint64 step = range.first; step < range.end; ++step) {
            const qint64 major = m_from.x() + step;
            if (step == 0) {
                plotPixel(major, m_from.y(), endWeight, m_opacityFrom, plot);
            } else if (step == steps()) {
                plotPixel(major, m_to.y(), endWeight, m_opacityTo, plot);
            } else {
                plotPair(major, step, plot);
            }
        }
    }

private:
    template <class Plot>
    void plotPair(qint64 major, qint64 step, Plot& plot) const
    {
        const double rise = m_gradient * double(step);
        const double whole = std::floor(rise);
        const float fraction = static_cast<float>(rise - whole);
        const qint64 minor = m_from.y() + static_cast<qint64>(whole);
        const float opacity = opacityAt(rise, step);
        plotPixel(major, minor, 1.0f - fraction, opacity, plot);
        plotPixel(major, minor + 1, fraction, opacity, plot);
    }

    template <class Plot>
    void plotPixel(qint64 major, qint64 minor, float weight, float opacity, Plot& plot) const
    {
        if (weight > 0.0f) {
            plot(m_steep ? minor : major, m_steep ? major : minor, weight, opacity);
        }
    }

    qint64 steps() const { return qint64(m_to.x()) - m_from.x(); }  // 0 when both ends are one pixel
    StepRange visibleSteps(int width, int height, int margin) const;
    float opacityAt(double rise, qint64 step) const;

    QPoint m_from;  // x is the longer axis here, and grows
    QPoint m_to;
    float m_opacityFrom;
    float m_opacityTo;
    bool m_steep;
    double m_gradient;
    double m_length;
};
