#include "model/Canvas.h"

#include "model/CanvasMemory.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int kBytesPerPixel = 4;

void fillRow(uchar* row, int pixels, const uchar (&pixel)[kBytesPerPixel])
{
    for (int x = 0; x < pixels; ++x) {
        std::memcpy(row + x * kBytesPerPixel, pixel, kBytesPerPixel);
    }
}

}  // namespace

QImage blankCanvas()
{
    QImage canvas = canvasMemory::take();
    canvas.fill(Qt::transparent);
    return canvas;
}

QImage asCanvas(const QImage& image)
{
    if (image.isNull()) {
        return blankCanvas();
    }
    const QImage converted = image.convertToFormat(QImage::Format_RGBA8888);
    if (converted.width() == kCanvasSize && converted.height() == kCanvasSize) {
        return converted;
    }
    QImage canvas = blankCanvas();
    const size_t bytes = static_cast<size_t>(std::min(converted.width(), kCanvasSize)) * kBytesPerPixel;
    const int rows = std::min(converted.height(), kCanvasSize);
    for (int y = 0; y < rows; ++y) {
        std::memcpy(canvas.scanLine(y), converted.constScanLine(y), bytes);
    }
    return canvas;
}

QImage ownCanvas(const QImage& image)
{
    const QImage source = asCanvas(image);
    if (source.isDetached()) {
        return source;
    }
    QImage canvas = canvasMemory::take();
    copyRect(canvas, source, canvas.rect());
    return canvas;
}

bool isMixable(const QImage& image)
{
    return image.width() == kCanvasSize && image.height() == kCanvasSize
        && (image.format() == QImage::Format_RGBA8888 || image.format() == QImage::Format_ARGB32);
}

void fillInvisible(QImage& canvas, const QColor& colour)
{
    const uchar pixel[kBytesPerPixel] = {static_cast<uchar>(colour.red()), static_cast<uchar>(colour.green()),
                                         static_cast<uchar>(colour.blue()), 0};
    for (int y = 0; y < canvas.height(); ++y) {
        fillRow(canvas.scanLine(y), canvas.width(), pixel);
    }
}

void copyRect(QImage& canvas, const QImage& source, const QRect& rect)
{
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        std::memcpy(canvas.scanLine(y) + rect.left() * kBytesPerPixel,
                    source.constScanLine(y) + rect.left() * kBytesPerPixel,
                    static_cast<size_t>(rect.width()) * kBytesPerPixel);
    }
}

void clearRect(QImage& canvas, const QRect& rect)
{
    const QRect inside = rect & canvas.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        std::memset(canvas.scanLine(y) + inside.left() * kBytesPerPixel, 0,
                    static_cast<size_t>(inside.width()) * kBytesPerPixel);
    }
}
