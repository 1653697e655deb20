#pragma once

// The loops of RowLoops.h, compiled once for any processor and once for AVX2. They go by blocks of a fixed size, which
// compilers turn into vector code whole.

#include "model/RowLoops.h"

#include <string.h>

namespace {

enum { kBlock = 16, kInkColumn = 32 };

const uint32_t kAlphaMask = 0xff000000u;

inline bool hasInk(const uint32_t* pixels, int count)
{
    uint32_t all = 0;
    for (int i = 0; i < count; ++i) {
        all |= pixels[i];
    }
    return (all & kAlphaMask) != 0;
}

inline uint32_t redAndBlueSwapped(uint32_t p)
{
    return (p & 0xff00ff00u) | ((p >> 16) & 0xffu) | ((p & 0xffu) << 16);
}

inline float channel(uint32_t pixel, int shift)
{
    return static_cast<float>(static_cast<int32_t>((pixel >> shift) & 0xffu));
}

inline uint32_t nearest(float value)
{
    return static_cast<uint32_t>(static_cast<int32_t>(value + 0.5f));
}

inline float wholeNumber(float value)
{
    return static_cast<float>(static_cast<int32_t>(value + 0.5f));
}

inline uint32_t mixedChannel(uint32_t front, float frontShare, uint32_t back, float backShare, int shift)
{
    return nearest(channel(front, shift) * frontShare + channel(back, shift) * backShare) << shift;
}

// Coverages have 16 bits, whole numbers in front; opacity16 is 257 where nothing is faded.
inline uint32_t laidOver(uint32_t front, uint32_t back, float opacity16)
{
    const float frontCoverage = wholeNumber(channel(front, 24) * opacity16);
    const float backCoverage = channel(back, 24) * (257.0f - frontCoverage * (1.0f / 255.0f));
    const float coverage = frontCoverage + backCoverage;
    const float share = 1.0f / (coverage > 1.0f ? coverage : 1.0f);
    const float frontShare = frontCoverage * share;
    const float backShare = backCoverage * share;
    const uint32_t alpha = nearest(coverage * (1.0f / 257.0f));
    return mixedChannel(front, frontShare, back, backShare, 0) | mixedChannel(front, frontShare, back, backShare, 8)
         | mixedChannel(front, frontShare, back, backShare, 16) | alpha << 24;
}

/// Calls mix(changed block, source block) for each block of source with ink; the last one is filled up with
/// transparency.
template <class Mix>
inline void forInkedBlocks(uint32_t* changed, const uint32_t* source, int count, Mix mix)
{
    int x = 0;
    for (; x + kBlock <= count; x += kBlock) {
        if (hasInk(source + x, kBlock)) {
            mix(changed + x, source + x);
        }
    }
    if (x < count) {
        uint32_t lastChanged[kBlock] = {};
        uint32_t lastSource[kBlock] = {};
        const size_t bytes = static_cast<size_t>(count - x) * sizeof(uint32_t);
        memcpy(lastChanged, changed + x, bytes);
        memcpy(lastSource, source + x, bytes);
        mix(lastChanged, lastSource);
        memcpy(changed + x, lastChanged, bytes);
    }
}

template <bool kSwapped>
inline void blendOver(uint32_t* back, const uint32_t* front, int count, float opacity16)
{
    forInkedBlocks(back, front, count, [opacity16](uint32_t* __restrict b, const uint32_t* __restrict f) {
        for (int i = 0; i < kBlock; ++i) {
            b[i] = laidOver(kSwapped ? redAndBlueSwapped(f[i]) : f[i], b[i], opacity16);
        }
    });
}

void over(uint32_t* back, const uint32_t* front, int count, bool swapped, int opacity)
{
    const float opacity16 = static_cast<float>(opacity) * (257.0f / 255.0f);
    if (swapped) {
        blendOver<true>(back, front, count, opacity16);
    } else {
        blendOver<false>(back, front, count, opacity16);
    }
}

void under(uint32_t* front, const uint32_t* back, int count)
{
    forInkedBlocks(front, back, count, [](uint32_t* __restrict f, const uint32_t* __restrict b) {
        for (int i = 0; i < kBlock; ++i) {
            f[i] = laidOver(f[i], b[i], 257.0f);
        }
    });
}

void tint(uint32_t* row, int count, uint32_t colour)
{
    const uint32_t lower = colour & ~kAlphaMask;
    for (int x = 0; x < count; ++x) {
        const uint32_t alpha = row[x] & kAlphaMask;
        row[x] = alpha ? alpha | lower : row[x];
    }
}

uint32_t inkColumns(const uint32_t* row, int columns)
{
    uint32_t bits = 0;
    for (int i = 0; i < columns; ++i) {
        bits |= static_cast<uint32_t>(hasInk(row + i * kInkColumn, kInkColumn)) << i;
    }
    return bits;
}

const RowLoops kLoops = {over, under, tint, inkColumns};

}  // namespace
