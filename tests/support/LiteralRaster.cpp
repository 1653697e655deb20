#include "support/LiteralRaster.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace {

constexpr int kBytesPerPixel = 4;
constexpr int kAlpha = 3;  // of the four bytes of a pixel
constexpr int kTableSide = 102;
constexpr float kLargestRadius = 50.0f;
constexpr int kNarrowBrush = 20;         // brushes below this width have a dab one pixel larger
constexpr float kNarrowStrength = 0.4f;  // and weaker
constexpr float kHalfCoveredEnd = 0.5f;  // Wu's rule for a line that ends in the middle of a pixel
constexpr float kWholeEnd = 1.0f;        // for a line one pixel wide, or its joints would show as gaps

float heldOpacity(float opacity)
{
    return opacity > 0.0f ? std::min(opacity, 1.0f) : 0.0f;
}

uchar alphaByte(float opacity)
{
    return static_cast<uchar>(heldOpacity(opacity) * 255.0f);
}

// Dabs ---------------------------------------------------------------------------------------------------------------

struct Dab {
    int centre;  // row and column that fall on the stamped pixel
    int reach;   // beyond centre +- reach the table is empty
    uchar alpha[kTableSide][kTableSide];
};

// The eight mirror images of an offset from the centre.
void raiseOctants(Dab& dab, int dx, int dy, uchar alpha)
{
    const int c = dab.centre;
    const int places[][2] = {{c + dx, c + dy}, {c - dx, c + dy}, {c + dx, c - dy}, {c - dx, c - dy},
                             {c + dy, c + dx}, {c - dy, c + dx}, {c + dy, c - dx}, {c - dy, c - dx}};
    for (const auto& place : places) {
        uchar& byte = dab.alpha[place[1]][place[0]];
        byte = std::max(byte, alpha);
    }
}

// Clears the table and gives how far the disc reaches in the row at each y, up to the octant boundary.
template <class Row>
void buildDisc(Dab& dab, float radius, Row row)
{
    std::memset(dab.alpha, 0, sizeof dab.alpha);
    dab.centre = static_cast<int>(radius) + 1;
    dab.reach = static_cast<int>(std::ceil(radius));
    const int lastY = static_cast<int>(std::lround(radius / std::sqrt(2.0f)));
    for (int y = 0; y <= lastY; ++y) {
        const float share = 1.0f - static_cast<float>(y * y) / (radius * radius);
        row(radius * std::sqrt(std::max(share, 0.0f)), y);
    }
}

// A cone from the opacity at the centre to nothing at the rim.
void buildSoftDab(Dab& dab, float radius, float opacity)
{
    const float strength = heldOpacity(opacity);
    buildDisc(dab, radius, [&](float end, int y) {
        for (int x = 0; x <= static_cast<int>(end); ++x) {
            const float distance = std::sqrt(static_cast<float>(x * x + y * y));
            const float weight = 1.0f - std::min(std::max(distance / radius, 0.0f), 1.0f);
            raiseOctants(dab, x, y, alphaByte(weight * strength));
        }
    });
}

// Flat, with the rim pixel of each row covered by the fraction of where the row ends. Radius 1 is a block of four.
void buildHardDab(Dab& dab, float radius, float opacity)
{
    const float strength = heldOpacity(opacity);
    const uchar flat = alphaByte(strength);
    if (radius == 1.0f) {
        buildDisc(dab, radius, [](float, int) {});
        for (int y = dab.centre - 1; y <= dab.centre; ++y) {
            for (int x = dab.centre - 1; x <= dab.centre; ++x) {
                dab.alpha[y][x] = flat;
            }
        }
        return;
    }
    buildDisc(dab, radius, [&](float end, int y) {
        const int lastX = static_cast<int>(end);
        for (int x = 0; x <= lastX; ++x) {
            raiseOctants(dab, x, y, flat);
        }
        if (lastX + 1 <= dab.reach) {
            raiseOctants(dab, lastX + 1, y, alphaByte((end - static_cast<float>(lastX)) * strength));
        }
    });
}

// Gives each pixel of the canvas under a dab, as its alpha byte and the table's, to apply(uchar& alpha, uchar mask).
template <class Apply>
void stamp(QImage& canvas, const Dab& dab, int centreX, int centreY, Apply apply)
{
    const int firstX = std::max(centreX - dab.reach, 0);
    const int lastX = std::min(centreX + dab.reach, canvas.width() - 1);
    const int firstY = std::max(centreY - dab.reach, 0);
    const int lastY = std::min(centreY + dab.reach, canvas.height() - 1);
    for (int y = firstY; y <= lastY; ++y) {
        uchar* const pixels = canvas.scanLine(y);
        const uchar* const mask = dab.alpha[dab.centre + y - centreY] + dab.centre;
        for (int x = firstX; x <= lastX; ++x) {
            apply(pixels[x * kBytesPerPixel + kAlpha], mask[x - centreX]);
        }
    }
}

void raise(QImage& canvas, int x, int y, uchar alpha)
{
    if (x >= 0 && y >= 0 && x < canvas.width() && y < canvas.height()) {
        uchar& byte = canvas.scanLine(y)[x * kBytesPerPixel + kAlpha];
        byte = std::max(byte, alpha);
    }
}

void erase(QImage& canvas, int x, int y)
{
    if (x >= 0 && y >= 0 && x < canvas.width() && y < canvas.height()) {
        canvas.scanLine(y)[x * kBytesPerPixel + kAlpha] = 0;
    }
}

// Pencil and eraser --------------------------------------------------------------------------------------------------

// Bresenham's line, both ends included; gives each pixel to plot(x, y, step, opacity).
template <class Plot>
void walkBresenham(const StrokePoint& p, const StrokePoint& q, Plot plot)
{
    const int dx = std::abs(q.position.x() - p.position.x());
    const int dy = std::abs(q.position.y() - p.position.y());
    const int stepX = q.position.x() >= p.position.x() ? 1 : -1;
    const int stepY = q.position.y() >= p.position.y() ? 1 : -1;
    const int longer = std::max(dx, dy);
    int x = p.position.x();
    int y = p.position.y();
    int error = longer / 2;
    int axisSteps = 0;
    for (int step = 0; step <= longer; ++step) {
        const double grown = double(q.opacity - p.opacity) * axisSteps;
        plot(x, y, step, longer == 0 ? p.opacity : static_cast<float>(p.opacity + grown / double(dx + dy)));
        error -= std::min(dx, dy);
        const bool across = error < 0;
        if (across) {
            error += longer;
        }
        x += dx > dy || across ? stepX : 0;
        y += dx <= dy || across ? stepY : 0;
        axisSteps += across ? 2 : 1;
    }
}

void drawThinHardSegment(QImage& canvas, const StrokePoint& p, const StrokePoint& q, bool erasing)
{
    walkBresenham(p, q, [&](int x, int y, int, float opacity) {
        if (erasing) {
            erase(canvas, x, y);
        } else {
            raise(canvas, x, y, alphaByte(opacity));
        }
    });
}

void drawHardSegment(QImage& canvas, const StrokePoint& p, const StrokePoint& q, bool erasing)
{
    const float radius = std::min(static_cast<float>(p.width) * 0.5f, kLargestRadius);
    const int spacing = std::max(static_cast<int>(static_cast<float>(p.width) * 0.1f), 1);
    Dab dab;
    buildHardDab(dab, radius, erasing ? 1.0f : p.opacity);
    float built = p.opacity;
    walkBresenham(p, q, [&](int x, int y, int step, float opacity) {
        if (step % spacing != 0) {
            return;
        }
        if (erasing) {
            stamp(canvas, dab, x, y, [](uchar& alpha, uchar mask) { alpha = mask != 0 ? 0 : alpha; });
            return;
        }
        if (opacity != built) {
            buildHardDab(dab, radius, opacity);
            built = opacity;
        }
        stamp(canvas, dab, x, y, [](uchar& alpha, uchar mask) { alpha = std::max(alpha, mask); });
    });
}

// Brush --------------------------------------------------------------------------------------------------------------

// Wu's antialiased line between whole pixels; gives each pixel to plot(x, y, weight, opacity).
template <class Plot>
void walkWu(const StrokePoint& p, const StrokePoint& q, float endWeight, Plot plot)
{
    int x0 = p.position.x(), y0 = p.position.y(), x1 = q.position.x(), y1 = q.position.y();
    float opacity0 = p.opacity, opacity1 = q.opacity;
    const bool steep = std::abs(y1 - y0) > std::abs(x1 - x0);
    if (steep) {
        std::swap(x0, y0);
        std::swap(x1, y1);
    }
    if (x0 > x1) {
        std::swap(x0, x1);
        std::swap(y0, y1);
        std::swap(opacity0, opacity1);
    }
    const auto plotAt = [&](int major, int minor, float weight, float opacity) {
        plot(steep ? minor : major, steep ? major : minor, weight, opacity);
    };
    const int last = x1 - x0;
    const double dx = last, dy = y1 - y0;
    const double length = std::sqrt(dx * dx + dy * dy);
    const double gradient = last == 0 ? 0.0 : dy / dx;
    plotAt(x0, y0, endWeight, opacity0);
    for (int k = 1; k < last; ++k) {
        const double rise = gradient * double(k);
        const double intery = double(y0) + rise;
        const double whole = std::floor(intery);
        const float fraction = static_cast<float>(intery - whole);
        const double share = std::sqrt(rise * rise + double(k) * double(k)) / length;
        const double opacity = share * double(opacity1 - opacity0) + double(opacity0);
        const float held = static_cast<float>(std::min(std::max(opacity, 0.0), 1.0));
        plotAt(x0 + k, static_cast<int>(whole), 1.0f - fraction, held);
        plotAt(x0 + k, static_cast<int>(whole) + 1, fraction, held);
    }
    if (last > 0) {
        plotAt(x1, y1, endWeight, opacity1);
    }
}

void drawFineSegment(QImage& canvas, const StrokePoint& p, const StrokePoint& q)
{
    walkWu(p, q, kWholeEnd,
           [&](int x, int y, float weight, float opacity) { raise(canvas, x, y, alphaByte(weight * opacity)); });
}

void drawBrushSegment(QImage& canvas, const StrokePoint& p, const StrokePoint& q, bool first)
{
    const bool narrow = p.width < kNarrowBrush;
    const float radius = std::min(static_cast<float>(p.width) * 0.5f + (narrow ? 1.0f : 0.0f), kLargestRadius);
    const float strength = narrow ? kNarrowStrength : 1.0f;
    Dab dab;
    buildSoftDab(dab, radius, p.opacity * strength);
    float built = p.opacity;
    if (first) {
        stamp(canvas, dab, p.position.x(), p.position.y(),
              [](uchar& alpha, uchar mask) { alpha = std::max(alpha, mask); });
    }
    walkWu(p, q, kHalfCoveredEnd, [&](int x, int y, float weight, float opacity) {
        if (opacity != built) {
            buildSoftDab(dab, radius, opacity * strength);
            built = opacity;
        }
        stamp(canvas, dab, x, y, [weight](uchar& alpha, uchar mask) {
            alpha = std::max(alpha, static_cast<uchar>(double(mask) * double(weight)));
        });
    });
}

}  // namespace

void literalStroke(QImage& canvas, const QVector<StrokePoint>& points, int from, ToolType tool)
{
    for (int i = std::max(from, 0); i < points.size() - 1; ++i) {
        const StrokePoint& p = points[i];
        const StrokePoint& q = points[i + 1];
        const bool erasing = tool == ToolType::Eraser;
        if (p.width < 1) {
            continue;
        }
        if (tool != ToolType::Brush && p.width == 1) {
            drawThinHardSegment(canvas, p, q, erasing);
        } else if (tool != ToolType::Brush) {
            drawHardSegment(canvas, p, q, erasing);
        } else if (p.width == 1) {
            drawFineSegment(canvas, p, q);
        } else {
            drawBrushSegment(canvas, p, q, i == 0);
        }
    }
}
