#include "model/TransformMap.h"

#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace {

double heldScale(double scale)
{
    constexpr double kLargest = 1e9;
    return std::isnan(scale) ? 0.0 : std::min(std::max(scale, -kLargest), kLargest);
}

// Within a turn, where multiples of 90 degrees are exact.
double heldAngle(float angle)
{
    return std::isfinite(angle) ? std::fmod(static_cast<double>(angle), 360.0) : 0.0;
}

QTransform turnAndScale(const ActiveStroke& record)
{
    QTransform turn;
    turn.rotate(heldAngle(record.angle));
    turn.scale(heldScale(record.scaleX), heldScale(record.scaleY));
    return turn;
}

// The middle of the region; where there is no middle pixel, the right or lower one of the middle two.
QPoint centreOf(const QRect& region)
{
    return QPoint(region.left() + region.width() / 2, region.top() + region.height() / 2);
}

// As many whole pixels as QImage::transformed makes of that many.
double scaledLength(double scale, int length)
{
    constexpr double kRoundingUp = 0.9999;
    return std::floor(std::abs(scale) * length + kRoundingUp);
}

/// What is not turned is stretched to whole pixels.
TransformMap stretched(const QTransform& scaling, const QSize& size)
{
    const QSizeF made(scaledLength(scaling.m11(), size.width()), scaledLength(scaling.m22(), size.height()));
    const QTransform map = QTransform::fromScale(std::copysign(made.width() / size.width(), scaling.m11()),
                                                 std::copysign(made.height() / size.height(), scaling.m22()));
    return {map, QRectF(QPointF(scaling.m11() < 0 ? -made.width() : 0, scaling.m22() < 0 ? -made.height() : 0), made)};
}

/// What is turned is first moved to where its whole pixels begin, then measured, as in QImage::transformed: at some
/// angles the corners round to other pixels there.
TransformMap turned(const QTransform& turn, const QSize& size)
{
    const QRectF floating(QPointF(0, 0), size);
    const QPointF corner = alignedRect(turn.mapRect(floating)).topLeft();
    const QPolygonF made = (turn * QTransform::fromTranslate(-corner.x(), -corner.y())).map(QPolygonF(floating));
    return {turn, QRectF(corner, alignedRect(made.boundingRect()).size())};
}

TransformMap movedBy(const TransformMap& shape, const QPointF& move)
{
    return {shape.map * QTransform::fromTranslate(move.x(), move.y()), shape.box.translated(move)};
}

}  // namespace

QRectF alignedRect(const QRectF& rect)
{
    const QPointF topLeft(std::floor(rect.left()), std::floor(rect.top()));
    return QRectF(topLeft, QPointF(std::ceil(rect.right()), std::ceil(rect.bottom())));
}

TransformMap transformMap(const ActiveStroke& record, const QSize& size)
{
    const QRectF floating(QPointF(0, 0), size);
    if (size.isEmpty()) {
        return {QTransform(), QRectF()};
    }
    if (record.pasteAsIs) {
        return movedBy({QTransform(), floating}, QPointF(record.region.topLeft()) + record.translation);
    }
    const QTransform turn = turnAndScale(record);
    const TransformMap shape = turn.type() <= QTransform::TxScale ? stretched(turn, size) : turned(turn, size);
    const QPointF middle(std::floor(shape.box.width() / 2), std::floor(shape.box.height() / 2));
    return movedBy(shape, QPointF(centreOf(record.region)) + record.translation - middle - shape.box.topLeft());
}

std::array<QPointF, 4> transformedCorners(const ActiveStroke& record)
{
    const QSize size = record.region.size();
    const QTransform map = transformMap(record, size).map;
    return {{map.map(QPointF(0, 0)), map.map(QPointF(size.width(), 0)), map.map(QPointF(size.width(), size.height())),
             map.map(QPointF(0, size.height()))}};
}
