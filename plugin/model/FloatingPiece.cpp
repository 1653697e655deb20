#include "model/FloatingPiece.h"

#include "model/Canvas.h"
#include "model/ScaledImage.h"
#include "model/TurnedImage.h"

#include <cmath>
#include <cstring>

namespace {

// As large as the canvas turned by 45 degrees: what is no larger is made within a redraw.
constexpr double kMostPixels = 2.25 * kCanvasSize * kCanvasSize;
constexpr double kLongestSide = 4 * kCanvasSize;

constexpr int kBytesPerPixel = 4;
constexpr QRectF kCanvas(0, 0, kCanvasSize, kCanvasSize);

bool isUnit(double value)
{
    return std::abs(value) == 1;
}

bool isTurnedByRightAngle(const QTransform& map)
{
    return map.m11() == 0 && map.m22() == 0 && isUnit(map.m12()) && isUnit(map.m21());
}

bool isUpright(const QTransform& map)
{
    return map.m12() == 0 && map.m21() == 0;
}

bool isExact(const QTransform& map)
{
    return isTurnedByRightAngle(map) || (isUpright(map) && isUnit(map.m11()) && isUnit(map.m22()));
}

// Straight copies, for mixing would round faint colours.
QImage exactCopy(const QImage& image, const QTransform& map)
{
    if (isUpright(map)) {
        return image.mirrored(map.m11() < 0, map.m22() < 0);
    }
    return image.mirrored(map.m12() < 0, map.m21() > 0).transformed(QTransform().rotate(90));
}

/// Whole pixels of the canvas, on it or off, that hold all the ink of the piece. Mixing carries ink on to neighbours.
QRectF inkBox(const TransformMap& placed, const Cutting& cutting)
{
    if (isExact(placed.map)) {
        return placed.map.mapRect(QRectF(cutting.inked()));
    }
    const QRectF blurred = QRectF(cutting.inked()).adjusted(-1, -1, 1, 1) & QRectF(QPointF(0, 0), cutting.size);
    return alignedRect(placed.map.mapRect(blurred).adjusted(-1, -1, 1, 1)) & placed.box;
}

bool isOrdinary(const QSizeF& size)
{
    return size.width() * size.height() <= kMostPixels && std::max(size.width(), size.height()) <= kLongestSide;
}

// The map without its move: where the piece lies makes no difference to its rounding.
QImage madeWhole(const Cutting& cutting, const QTransform& map)
{
    const QImage all = cutting.copy(QRect(QPoint(0, 0), cutting.size));
    const QTransform shape(map.m11(), map.m12(), map.m21(), map.m22(), 0, 0);
    return all.transformed(shape, Qt::SmoothTransformation).convertToFormat(QImage::Format_RGBA8888);
}

QImage madePart(const Cutting& cutting, const QTransform& map, const QSize& size)
{
    return isUpright(map) ? scaledPart(cutting, map, size) : turnedPart(cutting, map, size);
}

bool isSameShape(const TransformMap& a, const TransformMap& b)
{
    return a.box.size() == b.box.size() && a.map.m11() == b.map.m11() && a.map.m12() == b.map.m12()
        && a.map.m21() == b.map.m21() && a.map.m22() == b.map.m22();
}

}  // namespace

void FloatingPiece::take(const Cutting& cutting)
{
    m_cutting = cutting;
    m_piece = QImage();
    m_sheet = blankSheet();
    m_laid = QRect();
}

void FloatingPiece::drop()
{
    *this = FloatingPiece();
}

const InkedImage& FloatingPiece::sheet(const ActiveStroke& record)
{
    clearRect(m_sheet.image, m_laid);
    m_laid = QRect();
    m_sheet.ink = InkMap();
    if (m_cutting.image.isNull()) {
        return m_sheet;
    }
    const TransformMap placed = transformMap(record, m_cutting.size);
    const QRectF inked = inkBox(placed, m_cutting);
    if (inked.intersects(kCanvas)) {
        make(placed, inked);
        lay(placed);
    }
    return m_sheet;
}

void FloatingPiece::make(const TransformMap& placed, const QRectF& inked)
{
    const QPointF corner = placed.box.topLeft();
    const QRectF seen = inked & kCanvas;
    if (!m_piece.isNull() && isSameShape(m_shape, placed) && m_part.contains(seen.translated(-corner))) {
        return;
    }
    m_piece = QImage();  // before memory is taken for the next
    m_shape = placed;
    if (isExact(placed.map)) {
        m_piece = exactCopy(m_cutting.image, placed.map);
        m_part = inked.translated(-corner);
    } else if (isOrdinary(placed.box.size()) && isOrdinary(m_cutting.size)) {
        m_piece = madeWhole(m_cutting, placed.map);
        m_part = QRectF(m_piece.rect());
    } else {
        const QTransform map = placed.map * QTransform::fromTranslate(-seen.left(), -seen.top());
        m_piece = madePart(m_cutting, map, seen.size().toSize());
        m_part = seen.translated(-corner);
    }
}

void FloatingPiece::lay(const TransformMap& placed)
{
    const QRectF part = m_part.translated(placed.box.topLeft());
    m_laid = (part & kCanvas).toRect();
    const QPoint from = (m_laid.topLeft() - part.topLeft()).toPoint();
    for (int y = 0; y < m_laid.height(); ++y) {
        std::memcpy(m_sheet.image.scanLine(m_laid.top() + y) + m_laid.left() * kBytesPerPixel,
                    m_piece.constScanLine(from.y() + y) + from.x() * kBytesPerPixel,
                    static_cast<std::size_t>(m_laid.width()) * kBytesPerPixel);
    }
    m_sheet.ink = InkMap::of(m_sheet.image);
}
