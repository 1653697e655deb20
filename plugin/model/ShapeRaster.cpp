#include "model/ShapeRaster.h"

#include "model/Canvas.h"
#include "model/DabMask.h"
#include "model/DrawingPainter.h"
#include "settings/Rounding.h"

#include <QVector2D>

#include <algorithm>
#include <cmath>

namespace {

constexpr float kArrowAngle = 0.62831855f;  // of each head line to the shaft: 36 degrees
constexpr float kArrowHead = 40.0f;         // length of a head line, canvas pixels
constexpr double kFullHeadShaft = 200.0;    // shorter shafts have heads shortened alike
constexpr int kTextFrameWidth = 2;
constexpr int kDotsPerMetre = 3780;  // in which a font's points are measured, whatever the screen has
constexpr int kFarthest = 1 << 20;   // beyond what is seen, and still safe to compute with

int held(int coordinate)
{
    return std::min(std::max(coordinate, -kFarthest), kFarthest);
}

QPoint positionOf(const StrokePoint& point)
{
    return QPoint(held(point.position.x()), held(point.position.y()));
}

QColor inkOf(const ActiveStroke& record)
{
    QColor ink = record.colour;
    ink.setAlpha(alphaOf(record.points.first().opacity));
    return ink;
}

QVector2D rotated(const QVector2D& v, float angle)
{
    const float c = std::cos(angle);
    const float s = std::sin(angle);
    return QVector2D(v.x() * c - v.y() * s, v.x() * s + v.y() * c);
}

void drawArrow(QPainter& painter, const QPoint& tail, const QPoint& tip)
{
    painter.drawLine(tail, tip);
    const QPoint back = tail - tip;
    const double shaft = std::hypot(double(back.x()), double(back.y()));
    const float head = kArrowHead * static_cast<float>(std::min(shaft / kFullHeadShaft, 1.0));
    for (const float angle : {kArrowAngle, -kArrowAngle}) {
        QVector2D direction = rotated(QVector2D(back), angle);
        direction.normalize();
        const QPoint end(truncated(static_cast<float>(tip.x()) + direction.x() * head),
                         truncated(static_cast<float>(tip.y()) + direction.y() * head));
        painter.drawLine(tip, end);
    }
}

void drawShape(QPainter& painter, const ActiveStroke& record)
{
    const QPoint p0 = positionOf(record.points[0]);
    const QPoint p1 = positionOf(record.points[1]);
    QPen pen = painter.pen();
    pen.setWidth(record.points[0].width);
    pen.setColor(inkOf(record));
    if (record.tool == ToolType::Line || record.tool == ToolType::Arrow) {
        pen.setCapStyle(Qt::RoundCap);
    }
    painter.setPen(pen);
    switch (record.tool) {
    case ToolType::Line: painter.drawLine(p0, p1); break;
    case ToolType::Arrow: drawArrow(painter, p0, p1); break;
    case ToolType::Ellipse: painter.drawEllipse(QRect(p0, p1)); break;
    case ToolType::Rectangle: {
        const QRect rect(p0, p1);
        painter.drawRects(&rect, 1);
        break;
    }
    default: break;
    }
}

void drawText(QPainter& painter, const ActiveStroke& record, bool preview)
{
    const StrokePoint& start = record.points.first();
    const QPoint position = positionOf(start);
    painter.setRenderHint(QPainter::TextAntialiasing);
    QFont font(record.fontFamily);
    if (start.width > 0) {
        font.setPointSize(start.width);
    }
    painter.setFont(font);
    QPen pen = painter.pen();
    pen.setColor(inkOf(record));
    pen.setWidth(start.width);
    painter.setPen(pen);
    QRectF bounds;
    const QString text = record.text.isEmpty() ? QString(" ") : record.text;
    painter.drawText(QRectF(position.x(), position.y(), kCanvasSize, kCanvasSize), Qt::AlignLeft, text, &bounds);
    if (preview) {
        pen.setWidth(kTextFrameWidth);
        painter.setPen(pen);
        const QRectF frame = bounds.adjusted(-4, -2, +4, +4);
        painter.drawRects(&frame, 1);
    }
}

}  // namespace

void renderShape(QImage& canvas, const ActiveStroke& record, bool preview)
{
    canvas.fill(Qt::transparent);
    canvas.setDotsPerMeterX(kDotsPerMetre);
    canvas.setDotsPerMeterY(kDotsPerMetre);
    const bool isText = record.tool == ToolType::Text;
    if (record.points.size() < (isText ? 1 : 2)) {
        return;
    }
    QPainter painter(&canvas);
    prepareDrawingPainter(painter);
    if (isText) {
        drawText(painter, record, preview);
    } else {
        drawShape(painter, record);
    }
}
