#include "session/sheet/Drawings.h"

#include "support/PointerPath.h"

#include <QTransform>

#include <cmath>

namespace sheet {

namespace {

const QColor kOutline(0x2b, 0x38, 0x46);
const QColor kBallColour(0xe0, 0x7b, 0x39);

QVector<QPoint> path(const QPoint& corner, const QVector<QPointF>& through, double spacing = 5)
{
    QVector<QPoint> points = support::curve(through, spacing);
    for (QPoint& point : points) {
        point += corner;
    }
    return points;
}

Ink pencil(int width, const QColor& colour, float opacity = 1.0f)
{
    return {ToolType::Pencil, width, opacity, colour};
}

Ink brush(int width, const QColor& colour, float opacity = 1.0f)
{
    return {ToolType::Brush, width, opacity, colour};
}

QVector<QPointF> ellipse(const QPointF& centre, double rx, double ry, double degrees)
{
    const QTransform turn = QTransform().translate(centre.x(), centre.y()).rotate(degrees);
    QVector<QPointF> points;
    for (int i = 0; i <= 16; ++i) {
        const double a = 2 * M_PI * i / 16;
        points << turn.map(QPointF(rx * std::cos(a), ry * std::sin(a)));
    }
    return points;
}

// The bouncing ball --------------------------------------------------------------------------------------------------

constexpr double kBallRadius = 26;
constexpr double kGroundLine = 246;
constexpr int kLandings[] = {3, 9, 15};

struct BallPose {
    QPointF centre;
    double length;   // half, along the direction of travel
    double breadth;  // half, across
    double degrees;  // of the direction
};

/// Between two landings the height is a parabola; each bounce is lower than the one before.
double ballHeight(double key)
{
    constexpr double kHeights[] = {190, 174, 132, 96};
    int bounce = 0;
    while (bounce < 3 && key >= kLandings[bounce]) {
        ++bounce;
    }
    const double sinceApex = key - 6 * bounce;  // landings are six keys apart, apexes lie halfway
    return kHeights[bounce] * (1 - sinceApex * sinceApex / 9);
}

BallPose ballPose(int key)
{
    const double x = 40 + key * 26.0;
    for (const int landing : kLandings) {
        if (key == landing) {
            return {{x, kGroundLine - 16}, 34, 17, 0};
        }
    }
    const double rise = ballHeight(key + 0.1) - ballHeight(key - 0.1);
    const double speed = std::abs(rise) / 0.2;
    const double stretch = 1 + speed / 700;
    return {{x, kGroundLine - kBallRadius - ballHeight(key)},
            kBallRadius * stretch,
            kBallRadius / stretch,
            std::atan2(-rise, 5.2) * 180 / M_PI};
}

void drawBall(Sketch& sketch, const QPoint& corner, int key)
{
    const BallPose pose = ballPose(key);
    const double off = (kGroundLine - pose.centre.y()) / kGroundLine;
    const QPointF shadow(pose.centre.x(), kGroundLine + 9);
    const QPointF reach(24 - 14 * off, 0);
    sketch.stroke(brush(20, kOutline, float(0.7 - 0.5 * off)), path(corner, {shadow - reach, shadow + reach}));

    const QTransform turn = QTransform().translate(pose.centre.x(), pose.centre.y()).rotate(pose.degrees);
    const double half = pose.length - pose.breadth;
    sketch.stroke(pencil(int(2 * pose.breadth) - 1, kBallColour),
                  path(corner, {turn.map(QPointF(-half - 0.5, 0)), turn.map(QPointF(half + 0.5, 0))}, 3));
    sketch.click(brush(24, QColor(0xff, 0xe4, 0xb8), 0.9f), (pose.centre + corner - QPointF(8, 8)).toPoint());
    sketch.stroke(pencil(4, kOutline), path(corner, ellipse(pose.centre, pose.length, pose.breadth, pose.degrees), 4));
}

// The plant ----------------------------------------------------------------------------------------------------------

const QColor kStem(0x4f, 0x7d, 0x3e);
const QColor kLeaf(0x6f, 0xa8, 0x4f);

void drawLeaf(Sketch& sketch, const QPoint& corner, const QPointF& root, const QPointF& tip)
{
    const QPointF along = tip - root;
    const QPointF bend = QPointF(-along.y(), along.x()) * (along.x() < 0 ? 0.25 : -0.25);
    const QPointF middle = (root + tip) / 2 - bend;
    sketch.stroke(pencil(13, kLeaf), path(corner, {root + along * 0.25 - bend * 0.7, middle, tip - along * 0.15}, 9));
    sketch.stroke(pencil(3, kStem), path(corner, {root, middle, tip}, 9));
}

void drawStem(Sketch& sketch, const QPoint& corner, double height)
{
    const double bow = height / 14;
    sketch.stroke(
        pencil(5, kStem),
        path(corner,
             {{155, 172}, {155 + bow, 172 - height * 0.35}, {155 - bow, 172 - height * 0.7}, {155, 172 - height}}, 9));
}

void drawFlower(Sketch& sketch, const QPoint& corner, const QPointF& centre)
{
    for (int i = 0; i < 7; ++i) {
        const double a = 2 * M_PI * i / 7 - M_PI / 2;
        const QPointF way(std::cos(a), std::sin(a));
        sketch.stroke(pencil(15, QColor(0xd8, 0x5a, 0x7a)), path(corner, {centre + way * 13, centre + way * 21}, 3));
    }
    sketch.click(pencil(21, QColor(0xf2, 0xc1, 0x4e)), (centre + corner).toPoint());
}

}  // namespace

QVector<QPoint> crossingCurve(const QRect& area, int penWidth)
{
    const QVector<QPointF> shape = {{0.00, 0.78}, {0.14, 0.22}, {0.36, 0.04}, {0.58, 0.34}, {0.54, 0.84}, {0.40, 0.98},
                                    {0.32, 0.74}, {0.50, 0.36}, {0.74, 0.16}, {0.90, 0.42}, {1.00, 0.94}};
    const double margin = penWidth / 2.0 + 12;
    const QRectF inner = QRectF(area).adjusted(margin, margin, -margin, -margin);
    QVector<QPointF> through;
    for (const QPointF& p : shape) {
        through << inner.topLeft() + QPointF(p.x() * inner.width(), p.y() * inner.height());
    }
    return support::curve(through, 5);
}

int ballFrame(int key)
{
    return 1 + 2 * key;
}

void bouncingBall(Sketch& sketch, const QPoint& corner)
{
    sketch.addLayer("Ground", {1});
    sketch.goTo(1);
    sketch.stroke(pencil(5, kOutline), path(corner, {{14, 252}, {150, 249}, {300, 253}, {420, 249}, {534, 252}}));
    QList<int> frameNumbers;
    for (int key = 0; key < kBallKeys; ++key) {
        frameNumbers << ballFrame(key);
    }
    sketch.addLayer("Ball", frameNumbers);
    for (int key = 0; key < kBallKeys; ++key) {
        sketch.goTo(ballFrame(key));
        drawBall(sketch, corner, key);
    }
}

void growingPlant(Sketch& sketch, const QPoint& corner)
{
    sketch.addLayer("Static", {0});
    sketch.goTo(0);
    sketch.click(brush(90, QColor(0xf2, 0xc1, 0x4e), 0.8f), corner + QPoint(252, 52));
    sketch.click(pencil(36, QColor(0xf2, 0xc1, 0x4e)), corner + QPoint(252, 52));
    sketch.stroke(pencil(4, kOutline), path(corner, {{16, 214}, {110, 212}, {220, 215}, {294, 213}}));
    const QColor clay(0xb8, 0x62, 0x42);
    for (int y = 180; y <= 207; y += 3) {
        const double half = 27 - (y - 180) * 0.25;
        sketch.stroke(pencil(6, clay), path(corner, {{155 - half, double(y)}, {155 + half, double(y)}}));
    }
    sketch.stroke(pencil(12, QColor(0xcf, 0x75, 0x52)), path(corner, {{126, 176}, {184, 176}}));

    sketch.addLayer("Anim", {1, 5, 10});
    sketch.goTo(1);
    drawStem(sketch, corner, 26);
    drawLeaf(sketch, corner, {155, 148}, {180, 136});
    drawLeaf(sketch, corner, {155, 148}, {132, 138});
    sketch.goTo(5);
    drawStem(sketch, corner, 76);
    drawLeaf(sketch, corner, {157, 146}, {198, 130});
    drawLeaf(sketch, corner, {154, 124}, {114, 108});
    drawLeaf(sketch, corner, {155, 98}, {180, 78});
    sketch.goTo(10);
    drawStem(sketch, corner, 112);
    drawLeaf(sketch, corner, {159, 140}, {206, 124});
    drawLeaf(sketch, corner, {152, 112}, {106, 96});
    drawLeaf(sketch, corner, {153, 92}, {194, 76});
    drawFlower(sketch, corner, {155, 52});
}

void landscape(Sketch& sketch, const QPoint& corner)
{
    sketch.addLayer("Back", {1});
    sketch.goTo(1);
    const QColor dusk[] = {QColor(0x3f, 0x5b, 0x8a), QColor(0x8a, 0x74, 0xa8), QColor(0xe0, 0x90, 0x7a)};
    for (int i = 0; i < 3; ++i) {
        const double y = 54 + 44 * i;
        sketch.stroke(brush(90, dusk[i]), path(corner, {{56, y}, {120, y - 4}, {190, y + 4}, {254, y}}));
    }
    sketch.addLayer("Middle", {1});
    sketch.click(pencil(52, QColor(0xf6, 0xd3, 0x6b)), corner + QPoint(212, 96));
    const QColor hill(0x4a, 0x6b, 0x5a);
    sketch.stroke(pencil(50, hill), path(corner, {{36, 176}, {96, 146}, {160, 172}, {220, 156}, {274, 178}}));
    sketch.stroke(pencil(44, hill), path(corner, {{30, 186}, {280, 188}}));
    sketch.addLayer("Front", {1});
    const QColor bark(0x3a, 0x2b, 0x28);
    sketch.stroke(pencil(14, bark), path(corner, {{92, 204}, {96, 160}, {88, 120}, {94, 84}}));
    sketch.stroke(pencil(7, bark), path(corner, {{91, 136}, {116, 108}, {134, 100}}));
    sketch.stroke(pencil(6, bark), path(corner, {{90, 116}, {70, 94}, {56, 88}}));
    for (const QPoint& crown : {QPoint(56, 76), QPoint(94, 62), QPoint(136, 84)}) {
        sketch.click(pencil(50, QColor(0x2f, 0x4a, 0x38)), corner + crown);
        sketch.click(brush(44, QColor(0x7f, 0xb0, 0x69), 0.8f), corner + crown - QPoint(6, 8));
    }
}

void bird(Sketch& sketch, const QPoint& corner)
{
    sketch.addLayer("Bird", {1});
    sketch.goTo(1);
    const QColor blue(0x4d, 0x86, 0xa8);
    const QColor orange(0xe0, 0x90, 0x3a);
    sketch.stroke(pencil(14, blue), path(corner, {{20, 74}, {42, 84}, {68, 94}}));
    sketch.stroke(pencil(52, blue), path(corner, {{64, 92}, {88, 88}, {110, 74}}));
    sketch.stroke(brush(34, QColor(0xf0, 0xd9, 0xb5)), path(corner, {{86, 106}, {108, 100}, {124, 84}}));
    sketch.stroke(pencil(13, QColor(0x2f, 0x5d, 0x7c)), path(corner, {{44, 84}, {70, 100}, {96, 90}}));
    for (const double y : {63.0, 67.0, 70.0}) {
        sketch.stroke(pencil(4, orange), path(corner, {{134, y}, {154, 67}}, 30));
    }
    sketch.click(pencil(11, Qt::white), corner + QPoint(119, 62));
    sketch.click(pencil(6, kOutline), corner + QPoint(121, 62));
    for (const double x : {80.0, 97.0}) {
        sketch.stroke(pencil(3, kOutline), path(corner, {{x, 114}, {x + 3, 138}}, 30));
        sketch.stroke(pencil(3, kOutline), path(corner, {{x + 3, 138}, {x + 15, 138}}, 30));
    }
}

}  // namespace sheet
