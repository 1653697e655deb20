#pragma once

#include <stddef.h>
#include <stdint.h>

/// Loops take the rows of a dab in whole blocks of this many.
constexpr int kMaskBlock = 32;

/// The part of a dab's row that the loops go through, half open: whole blocks that hold all that is not 0, and the
/// column to the right of that.
struct MaskSpan {
    int32_t first;
    int32_t end;
};

/// The rows of a dab as the loops read them: 0..255, padded with zeros.
template <class Value>
struct MaskRows {
    const Value* values;
    const int32_t* starts;      ///< index in values of each row; starts[-1] and starts[count] are those of an empty row
    const MaskSpan* spans;      ///< of each row
    const MaskSpan* pairSpans;  ///< of each row together with the one above it, and of the last one alone
    int32_t count;
    int32_t columns;  ///< multiple of kMaskBlock; the last column, and what lies before the first, are 0
};
using ByteRows = MaskRows<uint8_t>;
using WordRows = MaskRows<uint16_t>;  ///< wide enough to be weighted

/// The shape of a dab to work a mask out of, 0..1. Only the rows that differ: the others are mirror images.
struct MaskShape {
    const float* values;
    int32_t rows;
    int32_t columns;  ///< as in the mask
    int32_t width;    ///< the columns that are not padding; each row is symmetric in them
};

/// Two stamps of a dab, one of them beside or below the other.
struct MaskPair {
    uint16_t nearFactor;  ///< see WeightFactors
    uint16_t farFactor;
    int32_t right;  ///< where the far stamp lies from the near one: either a column to the right
    int32_t down;   ///< or a row down
};

/// A part of the canvas, and its coverage: one byte for each pixel.
struct CoveredPixels {
    uint32_t* pixels;  ///< little-endian RGBA8888, so that alpha is the highest byte
    ptrdiff_t pixelStride;
    const uint8_t* coverage;
    ptrdiff_t coverageStride;
    int32_t columns;
    int32_t rows;
};

/// Freehand drawing's inner loops.
struct CoverageLoops {
    /// values[i] = int(shape[i] * opacity * 255); opacity 0..1. A row's worth of zeros lies before the values.
    void (*fillBytes)(uint8_t* values, const MaskShape* shape, float opacity);
    void (*fillWords)(uint16_t* values, const MaskShape* shape, float opacity);
    /// Raise coverage to the mask, or to int(mask * factor / 65536), or to the stronger of a pair of these.
    void (*stamp)(uint8_t* coverage, ptrdiff_t stride, const ByteRows* mask);
    void (*stampWeighted)(uint8_t* coverage, ptrdiff_t stride, const WordRows* mask, uint16_t factor);
    void (*stampPair)(uint8_t* coverage, ptrdiff_t stride, const WordRows* mask, const MaskPair* pair);
    /// Raise alpha to the coverage, or set it to 0 wherever coverage is not.
    void (*raiseAlpha)(const CoveredPixels* area);
    void (*clearAlpha)(const CoveredPixels* area);
};

/// The fastest that run here; all of them give the same bytes.
const CoverageLoops& coverageLoops();
