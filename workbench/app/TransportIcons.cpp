#include "app/TransportIcons.h"

#include <QPainter>
#include <QPainterPath>

namespace app {

namespace {

constexpr int kGrid = 24;
constexpr double kStroke = 2;

void addTriangle(QPainterPath& path, double base, double tip, double halfHeight)
{
    path.moveTo(base, 12 - halfHeight);
    path.lineTo(tip, 12);
    path.lineTo(base, 12 + halfHeight);
    path.closeSubpath();
}

void addDiamond(QPainterPath& path, const QPointF& centre, double size)
{
    path.moveTo(centre.x() - size, centre.y());
    path.lineTo(centre.x(), centre.y() - size);
    path.lineTo(centre.x() + size, centre.y());
    path.lineTo(centre.x(), centre.y() + size);
    path.closeSubpath();
}

void addLine(QPainterPath& path, const QPointF& from, const QPointF& to)
{
    path.moveTo(from);
    path.lineTo(to);
}

/// An open arrow head whose tip is at `tip`, pointing right or, for a negative size, left.
void addHead(QPainterPath& path, const QPointF& tip, double size)
{
    path.moveTo(tip + QPointF(-size, -qAbs(size)));
    path.lineTo(tip);
    path.lineTo(tip + QPointF(-size, qAbs(size)));
}

struct Shape {
    QPainterPath filled;
    QPainterPath lines;
};

Shape shapeOf(TransportIcon which)
{
    Shape shape;
    switch (which) {
    case TransportIcon::Play: addTriangle(shape.filled, 8, 18, 7); break;
    case TransportIcon::StepForward:
        addTriangle(shape.filled, 11, 18, 5);
        addLine(shape.lines, {6, 6}, {6, 18});
        break;
    case TransportIcon::NextKey:
        addTriangle(shape.filled, 4, 11, 5);
        addDiamond(shape.filled, {17, 12}, 3.5);
        break;
    case TransportIcon::ToEnd:
        addTriangle(shape.filled, 4, 9, 4.5);
        addTriangle(shape.filled, 12, 17, 4.5);
        addLine(shape.lines, {20.5, 6}, {20.5, 18});
        break;
    case TransportIcon::Stop: shape.filled.addRect(7, 7, 10, 10); break;
    case TransportIcon::Once:
        addLine(shape.lines, {3, 12}, {15, 12});
        addHead(shape.lines, {15.5, 12}, 4.5);
        addLine(shape.lines, {20.5, 6}, {20.5, 18});
        break;
    case TransportIcon::Continuous:
        shape.lines.arcMoveTo(4, 5, 14, 14, -60);
        shape.lines.arcTo(4, 5, 14, 14, -60, -300);
        shape.lines.moveTo(14.5, 9.5);
        shape.lines.lineTo(18, 13);
        shape.lines.lineTo(21.5, 9.5);
        break;
    case TransportIcon::Oscillate:
        addLine(shape.lines, {4, 12}, {20, 12});
        addHead(shape.lines, {20.5, 12}, 4.5);
        addHead(shape.lines, {3.5, 12}, -4.5);
        break;
    default: break;  // the mirrored ones
    }
    return shape;
}

/// The icon that is another one's mirror image; itself for all others.
TransportIcon mirrored(TransportIcon which)
{
    switch (which) {
    case TransportIcon::ToStart: return TransportIcon::ToEnd;
    case TransportIcon::StepBack: return TransportIcon::StepForward;
    case TransportIcon::PreviousKey: return TransportIcon::NextKey;
    case TransportIcon::PlayBackwards: return TransportIcon::Play;
    default: return which;
    }
}

QPixmap picture(TransportIcon which, const QColor& colour, double opacity, int ratio)
{
    QPixmap pixmap(kGrid * ratio, kGrid * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(opacity);
    if (mirrored(which) != which) {
        painter.translate(kGrid, 0);
        painter.scale(-1, 1);
    }
    const Shape shape = shapeOf(mirrored(which));
    painter.setPen(QPen(colour, kStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(shape.lines);
    painter.setBrush(colour);
    painter.drawPath(shape.filled);
    return pixmap;
}

}  // namespace

QIcon transportIcon(TransportIcon which)
{
    const QColor usual("#e0e0e0");
    QIcon icon;
    for (const int ratio : {1, 2}) {
        icon.addPixmap(picture(which, usual, 1, ratio), QIcon::Normal);
        icon.addPixmap(picture(which, Qt::white, 1, ratio), QIcon::Active);
        icon.addPixmap(picture(which, usual, 0.4, ratio), QIcon::Disabled);
    }
    return icon;
}

}  // namespace app
