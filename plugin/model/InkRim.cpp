#include "model/InkRim.h"

#include "model/Canvas.h"
#include "model/InkedImage.h"

#include <algorithm>

namespace {

const quint32 kAlphaMask = 0xff000000u;
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

/// The pixels from left to end - 1.
void colourRow(const Neighbourhood& pixels, int left, int end)
{
    quint32 before = pixels.column(std::max(left - 1, 0));
    quint32 here = pixels.column(left);
    for (int x = left; x < end; ++x) {
        const quint32 after = pixels.column(std::min(x + 1, kLast));
        if (!(pixels.row[x] & kAlphaMask) && ((before | here | after) & kAlphaMask)) {
            pixels.row[x] = pixels.inkBeside(x) & ~kAlphaMask;
        }
        before = here;
        here = after;
    }
}

}  // namespace

void colourRim(InkedImage& canvas, const QRect& area)
{
    const QRect reach = area.adjusted(-1, -1, 1, 1) & QRect(0, 0, kCanvasSize, kCanvasSize);
    auto* const bits = reinterpret_cast<quint32*>(canvas.image.bits());
    for (int y = reach.top(); y <= reach.bottom(); ++y) {
        const int above = std::max(y - 1, 0);
        const int below = std::min(y + 1, kLast);
        const Neighbourhood pixels = {bits + above * kCanvasSize, bits + y * kCanvasSize, bits + below * kCanvasSize};
        const InkMap& ink = canvas.ink;
        forInkSpans(ink.row(above) | ink.row(y) | ink.row(below), [&](int left, int end) {
            colourRow(pixels, std::max(left - 1, reach.left()), std::min(end + 1, reach.right() + 1));
        });
    }
}
