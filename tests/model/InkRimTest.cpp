#include "model/InkRim.h"

#include "model/Canvas.h"
#include "model/InkedImage.h"
#include "support/DrawingFixture.h"

#include <algorithm>

namespace {

class InkRim : public DrawingFixture {
protected:
    static quint32 pixel(const QImage& canvas, int x, int y)
    {
        return reinterpret_cast<const quint32*>(canvas.constScanLine(y))[x];
    }
    static bool isInk(quint32 pixel) { return pixel >> 24 != 0; }
    /// Whether a transparent pixel beside ink has the colour of one of the pixels around it.
    static bool isColoured(const QImage& canvas, int x, int y)
    {
        const quint32 own = pixel(canvas, x, y);
        bool hasNeighbour = false;
        for (int v = std::max(y - 1, 0); v <= std::min(y + 1, kCanvasSize - 1); ++v) {
            for (int u = std::max(x - 1, 0); u <= std::min(x + 1, kCanvasSize - 1); ++u) {
                const quint32 other = pixel(canvas, u, v);
                hasNeighbour |= isInk(other);
                if (isInk(other) && (other << 8) == (own << 8)) {
                    return true;
                }
            }
        }
        return !hasNeighbour;
    }
    static bool isColoured(const QImage& canvas)
    {
        for (int y = 0; y < kCanvasSize; ++y) {
            for (int x = 0; x < kCanvasSize; ++x) {
                if (!isInk(pixel(canvas, x, y)) && !isColoured(canvas, x, y)) {
                    ADD_FAILURE() << "at " << x << ", " << y;
                    return false;
                }
            }
        }
        return true;
    }
};

TEST_F(InkRim, GoesAroundInkWhereverItLiesAndChangesNothingElse)
{
    for (const QPoint& at : {QPoint(0, 0), QPoint(1023, 1023), QPoint(15, 300), QPoint(16, 300), QPoint(0, 511),
                             QPoint(1023, 64), QPoint(500, 0), QPoint(500, 1023), QPoint(700, 333)}) {
        QImage ink = blankCanvas();
        ink.setPixelColor(at, QColor(250, 240, 10, 40));
        InkedImage canvas = {ink, InkMap::of(ink)};
        colourRim(canvas, canvas.ink);
        EXPECT_TRUE(isColoured(canvas.image)) << at.x() << ", " << at.y();
        EXPECT_EQ(canvas.image.convertToFormat(QImage::Format_RGBA8888_Premultiplied),
                  ink.convertToFormat(QImage::Format_RGBA8888_Premultiplied));
        QImage beyond = canvas.image;
        for (int i = 0; i < 9; ++i) {
            const QPoint beside = at + QPoint(i % 3 - 1, i / 3 - 1);
            if (beyond.rect().contains(beside)) {
                beyond.setPixel(beside, 0);
            }
        }
        EXPECT_EQ(beyond, blankCanvas()) << "more than a pixel away";
    }
}

TEST_F(InkRim, IsThereInEveryPictureOfADrawing)
{
    addLayer("persp", "A", {1, 5});
    goTo(1);
    EXPECT_TRUE(isColoured(*drawing.composite("persp"))) << "mixed";
    Preferences::instance().setActiveColor(Qt::white);
    for (const ToolType tool : {ToolType::Pencil, ToolType::Eraser}) {
        Preferences::instance().setActiveTool(tool);
        ActiveStroke* stroke = drawing.beginStroke("persp", false);
        ASSERT_NE(stroke, nullptr);
        for (const QPoint& to : {QPoint(4, 450), QPoint(550, 500), QPoint(560, 1020)}) {
            stroke->points << StrokePoint{9, 1, 1, to};
            stroke->changed = true;
            EXPECT_TRUE(isColoured(*drawing.composite("persp"))) << "while the stroke grows";
        }
        Picture undo;
        ASSERT_TRUE(drawing.commitStroke("persp", undo));
    }
    goTo(5);
    EXPECT_TRUE(isColoured(*drawing.composite("persp"))) << "another frame";
}

}  // namespace
