#pragma once

#include "model/Canvas.h"

#include <QPointF>

#include <cmath>
#include <vector>

/// Where a hand is on the canvas, sample by sample, on wide bends that cross one another.
class HandPath {
public:
    /// steps: canvas pixels from sample to sample; each is kept for a while, then the next one, and so on anew.
    explicit HandPath(std::vector<double> steps) : m_steps(std::move(steps)) {}

    QPoint next()
    {
        constexpr int kSamplesOfOneSpeed = 20;
        const double step = m_steps[std::size_t(m_count++ / kSamplesOfOneSpeed) % m_steps.size()];
        constexpr double kSmall = 1e-4;
        const QPointF along = (at(m_t + kSmall) - at(m_t)) / kSmall;
        m_t += step / std::hypot(along.x(), along.y());
        return at(m_t).toPoint();
    }

private:
    static QPointF at(double t)
    {
        constexpr double kCentre = kCanvasSize / 2.0;
        constexpr double kReach = kCanvasSize * 0.4;
        return QPointF(kCentre + kReach * std::sin(2 * t), kCentre + kReach * std::cos(3 * t));
    }

    const std::vector<double> m_steps;
    int m_count = 0;
    double m_t = 0;
};
