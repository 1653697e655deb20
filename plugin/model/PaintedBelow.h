#pragma once

#include <QImage>
#include <QRect>

#include <functional>
#include <vector>

class InkMap;
class QPainter;

/// What lies below the layer that is drawn on, ghosts included, painted once and put under every refresh of a
/// stroke. It is the very bytes that painting it again would give. It is painted in tiles as they are touched first, so
/// that no single refresh has to paint much of it.
class PaintedBelow {
public:
    /// Paints the part of everything below that lies in an area.
    using Paint = std::function<void(QPainter& painter, const QRect& area)>;

    /// A canvas that is right in some columns at least; borrowed until it is asked for again. madeOf: what is painted;
    /// everything is painted anew when it differs from the last one.
    const QImage& image(const InkMap& columns, const std::vector<quint64>& madeOf, const Paint& paint);

private:
    void paintTiles(const InkMap& columns, const Paint& paint);
    void paintColumns(int band, quint64 columns, const Paint& paint);

    QImage m_image;  // null until it is needed first
    std::vector<quint64> m_madeOf;
    std::vector<quint64> m_painted;  // by band of rows: which columns of an ink map
};
