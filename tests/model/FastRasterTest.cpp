// The rasteriser held against the plain one, and what holds for any stroke of it.

#include "model/Canvas.h"
#include "model/CpuFeatures.h"
#include "model/StrokeRaster.h"
#include "support/Dice.h"
#include "support/Drawings.h"
#include "support/LiteralRaster.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr ToolType kFreehand[] = {ToolType::Pencil, ToolType::Brush, ToolType::Eraser};
// The smallest, the block of four, the narrow brushes' limit, odd and even, the largest, and beyond it.
constexpr int kTellingWidths[] = {1, 2, 3, 19, 20, 21, 99, 100, 130};

int widthOf(unsigned seed, Dice& dice)
{
    constexpr unsigned kTelling = sizeof kTellingWidths / sizeof *kTellingWidths;
    return seed % 2 == 0 ? kTellingWidths[seed / 2 % kTelling] : dice.between(1, 100);
}

QPoint nextPosition(const QPoint& at, Dice& dice)
{
    switch (dice.between(0, 7)) {
    case 0: return at;
    case 1: return at + QPoint(dice.between(-40, 40), 0);
    case 2: return at + QPoint(0, dice.between(-40, 40));
    case 3: return at + QPoint(1, 1) * dice.between(-40, 40);
    case 4: return dice.point(-300, 1324);
    default: return at + dice.point(-30, 30);
    }
}

// Strokes that wander on and off the canvas, with jumps, repeated points, level and diagonal runs.
QVector<StrokePoint> wander(unsigned seed, Dice& dice)
{
    const int width = widthOf(seed, dice);
    const bool pressureChanges = dice.oneIn(2);
    const float opacity = dice.opacity();
    QPoint at = dice.point(-150, 1174);
    QVector<StrokePoint> points;
    for (int left = dice.between(2, 9); left > 0; --left) {
        points << StrokePoint{width, pressureChanges ? dice.opacity() : opacity, 1.0f, at};
        at = nextPosition(at, dice);
    }
    return points;
}

// As a stroke begins, and as an eraser finds a drawing: every alpha beside every other.
QImage mottled()
{
    QImage canvas(kCanvasSize, kCanvasSize, QImage::Format_RGBA8888);
    Dice dice(1);
    for (int y = 0; y < kCanvasSize; ++y) {
        uchar* row = canvas.scanLine(y);
        std::generate(row, row + kCanvasSize * 4, [&dice] { return static_cast<uchar>(dice.between(0, 255)); });
    }
    return canvas;
}

// A few points at a time, each time from the last one drawn.
void rasteriseInParts(QImage& canvas, const QVector<StrokePoint>& points, ToolType tool, Dice& dice)
{
    int drawn = 0;
    for (int count = dice.between(1, 3);; count += dice.between(1, 3)) {
        count = std::min(count, points.size());
        rasteriseStroke(canvas, points.mid(0, count), drawn, tool);
        drawn = count - 1;
        if (count == points.size()) {
            return;
        }
    }
}

class FastRaster : public testing::Test {
protected:
    ~FastRaster() override { allowAvx2(true); }
};

TEST_F(FastRaster, EqualsThePlainOneByteForByteWhateverTheStroke)
{
    const QImage canvases[] = {drawings::unseenInk(), mottled()};
    for (unsigned seed = 0; seed < 200; ++seed) {
        Dice dice(seed);
        const QVector<StrokePoint> points = wander(seed, dice);
        for (const ToolType tool : kFreehand) {
            const QImage& before = canvases[tool == ToolType::Eraser || seed % 4 == 3];
            QImage plain = before;
            literalStroke(plain, points, 0, tool);
            for (const bool avx2 : {true, false}) {
                allowAvx2(avx2);
                QImage whole = before;
                rasteriseStroke(whole, points, 0, tool);
                QImage inParts = before;
                rasteriseInParts(inParts, points, tool, dice);
                EXPECT_TRUE(whole == plain) << "seed " << seed << " width " << points[0].width << " tool "
                                            << static_cast<int>(tool) << (avx2 ? "" : " without AVX2");
                EXPECT_TRUE(inParts == plain) << "in parts: seed " << seed << " width " << points[0].width << " tool "
                                              << static_cast<int>(tool) << (avx2 ? "" : " without AVX2");
            }
        }
    }
}

}  // namespace
