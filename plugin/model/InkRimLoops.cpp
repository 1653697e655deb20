#include "model/InkRim.h"

#include "model/Canvas.h"
#include "model/InkedImage.h"
#include "model/RowBands.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

const quint32 kAlphaMask = 0xff000000u;
const quint32 kLeastAlpha = 0x01000000u;  // pixels below it are transparent
const int kLast = kCanvasSize - 1;

/// A row of the canvas and those next to it; at the canvas's edge the row itself stands for the one that is missing.
struct Neighbourhood {
    const quint32* above;
    quint32* row;
    const quint32* below;

    /// Has alpha when any of the three pixels at x has.
    quint32 column(int x) const { return above[x] | row[x] | below[x]; }
    /// The pixel with ink next to x, one that shares a side with it before one that shares a corner.
    quint32 inkBeside(int x) const
    {
        const int left = std::max(x - 1, 0);
        const int right = std::min(x + 1, kLast);
        for (const quint32 pixel :
             {row[left], row[right], above[x], below[x], above[left], above[right], below[left]}) {
            if (pixel & kAlphaMask) {
                return pixel;
            }
        }
        return below[right];
    }
};

/// The pixels from left to end - 1. What has to be looked for is found first, in loops without branches, which run many
/// pixels at once; few are changed.
void colourRow(const Neighbourhood& pixels, int left, int end)
{
    if (left >= end) {
        return;
    }
    const int count = end - left;
    std::array<quint32, kCanvasSize + 2> columns;  // and one more at either side
    columns[0] = pixels.column(std::max(left - 1, 0));
    for (int i = 0; i < count; ++i) {
        columns[size_t(i) + 1] = pixels.column(left + i);
    }
    columns[size_t(count) + 1] = pixels.column(std::min(end, kLast));
    std::array<quint8, kCanvasSize> isRim;
    for (int i = 0; i < count; ++i) {
        const quint32 around = columns[size_t(i)] | columns[size_t(i) + 1] | columns[size_t(i) + 2];
        isRim[size_t(i)] = quint8((around >= kLeastAlpha) & (pixels.row[left + i] < kLeastAlpha));
    }
    const quint8* const begin = isRim.data();
    const quint8* const last = begin + count;
    const auto nextFrom = [last](const quint8* at) {
        return static_cast<const quint8*>(std::memchr(at, 1, size_t(last - at)));
    };
    for (const quint8* at = nextFrom(begin); at; at = nextFrom(at + 1)) {
        const int x = left + int(at - begin);
        pixels.row[x] = pixels.inkBeside(x) & ~kAlphaMask;
    }
}

/// The columns of a row of an ink map and of those next to it.
quint64 columnsAround(const InkMap& map, int y)
{
    return map.row(std::max(y - 1, 0)) | map.row(y) | map.row(std::min(y + 1, kLast));
}

void colourRow(const InkMap& ink, const InkMap& touched, quint32* bits, int y)
{
    const int above = std::max(y - 1, 0);
    const int below = std::min(y + 1, kLast);
    const Neighbourhood pixels = {bits + above * kCanvasSize, bits + y * kCanvasSize, bits + below * kCanvasSize};
    forInkSpans(columnsAround(ink, y) & columnsAround(touched, y),
                [&](int left, int end) { colourRow(pixels, std::max(left - 1, 0), std::min(end + 1, kCanvasSize)); });
}

}  // namespace

// A band reads the first row of the next one: these wait, so that nobody reads what another is writing.
void colourRim(InkedImage& canvas, const InkMap& touched)
{
    auto* const bits = reinterpret_cast<quint32*>(canvas.image.bits());
    const RowSpan rows = RowSpan{touched.rows().first - 1, touched.rows().end + 1} & RowSpan{0, kCanvasSize};
    std::array<quint8, kCanvasSize> begins{};
    forRowBands(rows, touched.pixels(), [&](int first, int end) {
        begins[size_t(first)] = 1;
        for (int y = first + 1; y < end; ++y) {
            colourRow(canvas.ink, touched, bits, y);
        }
    });
    for (int y = rows.first; y < rows.end; ++y) {
        if (begins[size_t(y)]) {
            colourRow(canvas.ink, touched, bits, y);
        }
    }
}
