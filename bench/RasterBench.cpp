// Strokes as they are drawn: one call for each new point of the pen.

#include "PairedTiming.h"

#include "model/Canvas.h"
#include "model/StrokeRaster.h"
#include "support/LiteralRaster.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kPoints = 200;

struct Pressure {
    const char* name;
    bool changes;
};

// A Lissajous curve over the canvas; the pen is now fast and now slow, 6 to 16 pixels from point to point.
QVector<StrokePoint> stroke(int width, const Pressure& pressure)
{
    constexpr double kRadius = 400, kCentre = 512;
    QVector<StrokePoint> points;
    double t = 0;
    for (int i = 0; i < kPoints; ++i) {
        const double opacity = pressure.changes ? 0.55 + 0.4 * std::sin(i * 0.23) : 0.8;
        const QPoint position(qRound(kCentre + kRadius * std::sin(2 * t)), qRound(kCentre + kRadius * std::cos(3 * t)));
        points << StrokePoint{width, static_cast<float>(opacity), 1.0f, position};
        const double speed = kRadius * std::hypot(2 * std::cos(2 * t), 3 * std::sin(3 * t));
        t += (11 + 5 * std::sin(i * 0.37)) / speed;
    }
    return points;
}

QImage canvasFor(ToolType tool)
{
    QImage canvas = blankCanvas();
    if (tool == ToolType::Eraser) {
        canvas.fill(QColor(40, 60, 80));
    } else {
        fillInvisible(canvas, QColor(40, 60, 80));
    }
    return canvas;
}

template <class Rasterise>
PairedTiming::Side drawing(const QVector<StrokePoint>& points, ToolType tool, Rasterise rasterise)
{
    return [=] {
        QImage canvas = canvasFor(tool);
        QVector<StrokePoint> soFar;
        soFar.reserve(points.size());
        return millisecondsOf([&] {
            for (const StrokePoint& point : points) {
                soFar << point;
                rasterise(canvas, soFar, std::max(soFar.size() - 2, 0), tool);
            }
        });
    };
}

// How many times as fast as the plain one a stroke has to be; 0 where nothing is required.
double required(ToolType tool, int width)
{
    if (width == 1) {
        return 1;
    }
    if (tool == ToolType::Brush) {
        return width >= 20 ? 18 : 0;
    }
    return tool == ToolType::Pencil ? (width == 20 ? 8 : width == 100 ? 12 : 0) : 0;
}

}  // namespace

int main(int argc, char** argv)
{
    const PairedTiming timing("stroke of 200 points", BenchArguments(argc, argv));
    const struct {
        const char* name;
        ToolType tool;
    } tools[] = {{"pencil", ToolType::Pencil}, {"brush", ToolType::Brush}, {"eraser", ToolType::Eraser}};
    for (const auto& tool : tools) {
        for (const Pressure& pressure : {Pressure{"constant", false}, Pressure{"changing", true}}) {
            for (const int width : {1, 2, 5, 10, 19, 20, 40, 70, 100}) {
                const QVector<StrokePoint> points = stroke(width, pressure);
                timing.row(std::string(tool.name) + " " + std::to_string(width) + " px, " + pressure.name + " pressure",
                           required(tool.tool, width), drawing(points, tool.tool, literalStroke),
                           drawing(points, tool.tool, rasteriseStroke));
            }
        }
    }
    return 0;
}
