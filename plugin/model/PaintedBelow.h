#pragma once

#include <QImage>
#include <QRect>

#include <functional>
#include <vector>

class QPainter;

/// What lies below the layer that is drawn on, ghosts included, painted once and copied under every refresh of a
/// stroke. It is the very bytes that painting it again would give. It is painted in bands as they are touched first, so
/// that no single refresh has to paint all of it.
class PaintedBelow {
public:
    /// Paints the part of everything below that lies in an area.
    using Paint = std::function<void(QPainter& painter, const QRect& area)>;

    /// Copies the area's part to canvas. madeOf: what is painted; everything is painted anew when it differs from the
    /// last one. area: on the canvas.
    void copyTo(QImage& canvas, const QRect& area, const std::vector<quint64>& madeOf, const Paint& paint);

private:
    void paintBand(int band, const Paint& paint);

    QImage m_image;  // null until it is needed first
    std::vector<quint64> m_madeOf;
    std::vector<bool> m_isPainted;  // by band
};
