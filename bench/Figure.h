#pragma once

#include "model/ActiveStroke.h"
#include "model/Canvas.h"
#include "model/StrokeRaster.h"

#include <QPainter>

#include <cmath>
#include <random>

inline StrokePoint penPoint(const QPointF& position, int width, float opacity)
{
    return {width, opacity, 1.0f, position.toPoint()};
}

struct Limb {
    QPointF from;
    QPointF to;
    double half;  // of its thickness
};

/// One key of an animated figure: limbs outlined with the pencil and shaded with a wide, soft brush, and its shadow on
/// the ground. Each seed is another pose; about a third of the pixels have ink.
class Figure {
public:
    explicit Figure(unsigned seed) : m_random(seed) {}

    QImage drawn()
    {
        pose();
        QPainter painter(&m_shades);
        painter.drawImage(0, 0, m_lines);
        painter.end();
        return m_shades;
    }

    QImage lines()
    {
        pose();
        return m_lines;
    }

private:
    void pose()
    {
        fillInvisible(m_shades, QColor(214, 160, 120));
        fillInvisible(m_lines, QColor(40, 34, 60));
        const QPointF hip = QPointF(512, 600) + jitter(30), neck = QPointF(512, 300) + jitter(30);
        add({neck, hip, 95});
        add({neck - QPointF(0, 80), neck - QPointF(0, 110), 85});
        for (const double side : {-1.0, 1.0}) {
            const QPointF elbow = neck + QPointF(side * 200, 150) + jitter(60),
                          knee = hip + QPointF(side * 90, 190) + jitter(40);
            add({neck + QPointF(side * 80, 30), elbow, 42});
            add({elbow, elbow + QPointF(side * 50, 170) + jitter(80), 36});
            add({hip + QPointF(side * 50, 0), knee, 58});
            add({knee, knee + QPointF(side * 20, 180) + jitter(30), 46});
        }
        shade({150, 980}, {880, 980}, 0.3f);
    }

    QPointF jitter(int reach)
    {
        const auto any = [&] { return static_cast<int>(m_random() % static_cast<unsigned>(2 * reach + 1)) - reach; };
        const int x = any();
        return QPointF(x, any());
    }

    void add(const Limb& limb)
    {
        const QPointF along = limb.to - limb.from;
        const QPointF across = QPointF(-along.y(), along.x()) / std::hypot(along.x(), along.y());
        for (double offset = -limb.half + 25; offset < limb.half; offset += 40) {
            shade(limb.from + offset * across, limb.to + offset * across, 0.35f);
        }
        outline(limb, across);
    }

    void shade(const QPointF& from, const QPointF& to, float opacity)
    {
        rasteriseStroke(m_shades, {penPoint(from, 90, opacity), penPoint(to, 90, opacity)}, 0, ToolType::Brush);
    }

    void outline(const Limb& limb, const QPointF& across)
    {
        QVector<StrokePoint> points;
        const double start = std::atan2(across.y(), across.x());
        for (int i = 0; i <= 40; ++i) {
            const double angle = start + i * 2 * M_PI / 40;
            const QPointF end = i > 0 && i < 20 ? limb.from : limb.to;
            const QPointF rim = end + limb.half * QPointF(std::cos(angle), std::sin(angle));
            points << penPoint(rim, 6, 0.7f + 0.3f * std::sin(static_cast<float>(i)));
        }
        rasteriseStroke(m_lines, points, 0, ToolType::Pencil);
    }

    std::mt19937 m_random;
    QImage m_shades = blankCanvas();
    QImage m_lines = blankCanvas();
};

inline int inkedPercent(const QImage& image)
{
    int inked = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            inked += qAlpha(image.pixel(x, y)) > 0;
        }
    }
    return 100 * inked / (image.width() * image.height());
}
