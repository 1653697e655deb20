#include "model/InkedImage.h"

#include "model/Canvas.h"
#include "model/Picture.h"
#include "model/RowBands.h"
#include "model/RowLoops.h"

#include <algorithm>
#include <cstring>

namespace {

// The rows of an image, fetched once.
class Rows {
public:
    explicit Rows(QImage& canvas) : m_bits(canvas.bits()), m_stride(canvas.bytesPerLine()) {}
    quint32* row(int y) const { return reinterpret_cast<quint32*>(m_bits + y * m_stride); }

private:
    uchar* const m_bits;
    const int m_stride;
};

const quint32* sourceRow(const QImage& image, int y)
{
    return reinterpret_cast<const quint32*>(image.constScanLine(y));
}

void fetchRowAhead(const RowLoops& loops, const InkedImage& sheet, int y, const InkMap& within)
{
    const int ahead = y + 2;
    if (ahead < kCanvasSize) {
        forInkSpans(sheet.ink.row(ahead) & within.row(ahead),
                    [&](int left, int end) { loops.fetch(sourceRow(sheet.image, ahead) + left, end - left); });
    }
}

template <class Work>
void forRows(Work work)
{
    forRowBands([&work](int first, int end) {
        for (int y = first; y < end; ++y) {
            work(y);
        }
    });
}

}  // namespace

InkedImage inkedImage(const Picture& picture)
{
    const QImage& image = picture.image();
    return {isMixable(image) ? image : asCanvas(image), picture.ink()};
}

InkedImage blankSheet()
{
    return {blankCanvas(), InkMap()};
}

void layOver(InkedImage& canvas, const std::vector<Ply>& plies)
{
    layOver(canvas, plies, InkMap::everywhere());
}

// Band by band, so that what is changed stays in the processor's cache while ply after ply is laid over it.
void layOver(InkedImage& canvas, const std::vector<Ply>& plies, const InkMap& within)
{
    const RowLoops& loops = rowLoops();
    const Rows rows(canvas.image);
    const int mostPixels = within.pixels();
    int pixels = 0;
    RowSpan allRows = {0, 0};
    for (const Ply& ply : plies) {
        pixels += std::min(ply.sheet.ink.pixels(), mostPixels);
        allRows = allRows | ply.sheet.ink.rows();
    }
    forRowBands(allRows & within.rows(), pixels, [&](int first, int end) {
        for (const Ply& ply : plies) {
            const bool swapped = ply.sheet.image.format() == QImage::Format_ARGB32;
            const RowSpan inked = ply.sheet.ink.rows() & RowSpan{first, end};
            for (int y = inked.first; y < inked.end; ++y) {
                fetchRowAhead(loops, ply.sheet, y, within);
                forInkSpans(ply.sheet.ink.row(y) & within.row(y), [&](int left, int right) {
                    loops.over(rows.row(y) + left, sourceRow(ply.sheet.image, y) + left, right - left, swapped,
                               ply.opacity);
                });
            }
        }
    });
    for (const Ply& ply : plies) {
        canvas.ink.add(ply.sheet.ink);
    }
}

void layUnder(InkedImage& canvas, const InkedImage& sheet)
{
    const RowLoops& loops = rowLoops();
    const Rows rows(canvas.image);
    forRows([&](int y) {
        fetchRowAhead(loops, sheet, y, InkMap::everywhere());
        forInkSpans(sheet.ink.row(y), [&](int left, int end) {
            loops.under(rows.row(y) + left, sourceRow(sheet.image, y) + left, end - left);
        });
    });
    canvas.ink.add(sheet.ink);
}

void copyColumns(QImage& canvas, const QImage& source, const InkMap& columns)
{
    const RowSpan rows = columns.rows();
    for (int y = rows.first; y < rows.end; ++y) {
        forInkSpans(columns.row(y),
                    [&](int left, int end) { copyRect(canvas, source, QRect(left, y, end - left, 1)); });
    }
}

void wipe(InkedImage& canvas)
{
    const Rows rows(canvas.image);
    forRows([&](int y) {
        forInkSpans(canvas.ink.row(y), [&](int left, int end) {
            std::memset(rows.row(y) + left, 0, static_cast<size_t>(end - left) * sizeof(quint32));
        });
    });
    canvas.ink = InkMap();
}

void tintImage(InkedImage& canvas, const QColor& colour)
{
    const RowLoops& loops = rowLoops();
    const Rows rows(canvas.image);
    const uchar bytes[] = {static_cast<uchar>(colour.red()), static_cast<uchar>(colour.green()),
                           static_cast<uchar>(colour.blue()), 0};
    quint32 pixel;
    std::memcpy(&pixel, bytes, sizeof pixel);
    // So short that calling others to help would take longer.
    for (int y = 0; y < kCanvasSize; ++y) {
        forInkSpans(canvas.ink.row(y), [&](int left, int end) { loops.tint(rows.row(y) + left, end - left, pixel); });
    }
}
