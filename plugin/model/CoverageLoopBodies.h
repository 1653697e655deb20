#pragma once

#include "model/CoverageLoops.h"

// The loops as the compiler vectorises them by itself, for any processor: all static, and using nothing that is not.
// Those over whole blocks need no code for a rest.

static const uint32_t kColour = 0xffffff;

static inline uint8_t larger(uint8_t a, uint8_t b)
{
    return a > b ? a : b;
}

static inline uint8_t weighted(uint16_t value, uint16_t factor)
{
    return (uint8_t)((uint32_t)value * factor >> 16);
}

template <class Value>
static inline void fillMask(Value* __restrict values, const MaskShape* mask, float opacity)
{
    const MaskShape shape = *mask;
    for (int32_t block = 0; block < shape.rows * shape.columns; block += kMaskBlock) {
        for (int32_t i = block; i < block + kMaskBlock; ++i) {
            values[i] = (Value)(int32_t)(shape.values[i] * opacity * 255.0f);
        }
    }
}

static inline void stamp(uint8_t* __restrict coverage, ptrdiff_t stride, const ByteRows* mask)
{
    const ByteRows m = *mask;
    for (int32_t row = 0; row < m.count; ++row, coverage += stride) {
        const uint8_t* __restrict values = m.values + m.starts[row];
        const MaskSpan span = m.spans[row];
        for (int32_t block = span.first; block < span.end; block += kMaskBlock) {
            for (int32_t i = block; i < block + kMaskBlock; ++i) {
                coverage[i] = larger(coverage[i], values[i]);
            }
        }
    }
}

static inline void stampWeighted(uint8_t* __restrict coverage, ptrdiff_t stride, const WordRows* mask, uint16_t factor)
{
    for (int32_t row = 0; row < mask->count; ++row, coverage += stride) {
        const uint16_t* __restrict values = mask->values + mask->starts[row];
        const MaskSpan span = mask->spans[row];
        for (int32_t block = span.first; block < span.end; block += kMaskBlock) {
            for (int32_t i = block; i < block + kMaskBlock; ++i) {
                coverage[i] = larger(coverage[i], weighted(values[i], factor));
            }
        }
    }
}

static inline void stampPair(uint8_t* __restrict coverage, ptrdiff_t stride, const WordRows* mask, const MaskPair* pair)
{
    const MaskPair p = *pair;
    const MaskSpan* spans = p.down ? mask->pairSpans : mask->spans;
    for (int32_t row = 0; row < mask->count + p.down; ++row, coverage += stride) {
        const uint16_t* __restrict nearRow = mask->values + mask->starts[row];
        const uint16_t* __restrict farRow = mask->values + mask->starts[row - p.down] - p.right;
        const MaskSpan span = spans[row];
        for (int32_t block = span.first; block < span.end; block += kMaskBlock) {
            for (int32_t i = block; i < block + kMaskBlock; ++i) {
                const uint8_t both = larger(weighted(nearRow[i], p.nearFactor), weighted(farRow[i], p.farFactor));
                coverage[i] = larger(coverage[i], both);
            }
        }
    }
}

static inline void raiseRow(uint32_t* __restrict pixels, const uint8_t* __restrict coverage, int32_t columns)
{
    for (int32_t x = 0; x < columns; ++x) {
        const int32_t was = (int32_t)(pixels[x] >> 24);
        const int32_t covered = coverage[x];
        pixels[x] = (pixels[x] & kColour) | (uint32_t)(was > covered ? was : covered) << 24;
    }
}

static inline void clearRow(uint32_t* __restrict pixels, const uint8_t* __restrict coverage, int32_t columns)
{
    for (int32_t x = 0; x < columns; ++x) {
        pixels[x] = coverage[x] ? pixels[x] & kColour : pixels[x];
    }
}

/// Each row of the area in turn to raiseRow, clearRow or the like.
static inline void mergeRows(const CoveredPixels* covered, void (*mergeRow)(uint32_t*, const uint8_t*, int32_t))
{
    const CoveredPixels area = *covered;
    for (int32_t row = 0; row < area.rows; ++row) {
        mergeRow(area.pixels + row * area.pixelStride, area.coverage + row * area.coverageStride, area.columns);
    }
}

static inline void raiseAlpha(const CoveredPixels* area)
{
    mergeRows(area, raiseRow);
}

static inline void clearAlpha(const CoveredPixels* area)
{
    mergeRows(area, clearRow);
}
