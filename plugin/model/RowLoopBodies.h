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

inline uint32_t channel(uint32_t pixel, int shift)
{
    return (pixel >> shift) & 0xffu;
}

/// A product of two 16-bit fractions, rounded.
inline uint32_t product(uint32_t a, uint32_t b)
{
    const uint32_t t = a * b;
    return (t + (t >> 16) + 0x8000u) >> 16;
}

/// A colour channel times its alpha, both of 8 bits, in 16 bits: the upper half of the product of what they are in 16
/// bits, x * 257 * 257 / 65536, and one more where that is nearer.
inline uint32_t premultiplied(uint32_t channel, uint32_t alpha)
{
    const uint32_t x = channel * alpha;
    const uint32_t upper = x + ((x + (x << 9)) >> 16);
    return upper + (upper >> 15);
}

inline uint32_t in8Bits(uint32_t value)
{
    return (value + 128u - ((value + 128u) >> 8)) >> 8;
}

inline float asFloat(uint32_t value)
{
    return static_cast<float>(static_cast<int32_t>(value));
}

inline uint32_t nearest(float value)
{
    return static_cast<uint32_t>(static_cast<int32_t>(value + 0.5f));
}

/// How a pixel in front covers one behind it.
struct Cover {
    float fade;     // of the front, 0..1
    uint32_t rest;  // of the back that still shows, in 16 bits
    float share;    // makes straight 16 bits of what is mixed
};

inline uint32_t mixedChannel(uint32_t front, uint32_t back, const Cover& cover, int shift)
{
    const uint32_t ahead = nearest(asFloat(premultiplied(channel(front, shift), channel(front, 24))) * cover.fade);
    const uint32_t behind = product(premultiplied(channel(back, shift), channel(back, 24)), cover.rest);
    return in8Bits(nearest(asFloat(ahead + behind) * cover.share)) << shift;
}

inline uint32_t laidOver(uint32_t front, uint32_t back, float fade)
{
    const uint32_t ahead = nearest(asFloat(channel(front, 24) * 257u) * fade);
    const uint32_t rest = 65535u - ahead;
    const uint32_t alpha = ahead + product(channel(back, 24) * 257u, rest);
    const Cover cover = {fade, rest, 65535.0f / asFloat(alpha > 1u ? alpha : 1u)};
    return mixedChannel(front, back, cover, 0) | mixedChannel(front, back, cover, 8)
         | mixedChannel(front, back, cover, 16) | in8Bits(alpha) << 24;
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
inline void blendOver(uint32_t* back, const uint32_t* front, int count, float fade)
{
    forInkedBlocks(back, front, count, [fade](uint32_t* __restrict b, const uint32_t* __restrict f) {
        for (int i = 0; i < kBlock; ++i) {
            b[i] = laidOver(kSwapped ? redAndBlueSwapped(f[i]) : f[i], b[i], fade);
        }
    });
}

void over(uint32_t* back, const uint32_t* front, int count, bool swapped, int opacity)
{
    const float fade = static_cast<float>(opacity) * (1.0f / 255.0f);
    if (swapped) {
        blendOver<true>(back, front, count, fade);
    } else {
        blendOver<false>(back, front, count, fade);
    }
}

void under(uint32_t* front, const uint32_t* back, int count)
{
    forInkedBlocks(front, back, count, [](uint32_t* __restrict f, const uint32_t* __restrict b) {
        for (int i = 0; i < kBlock; ++i) {
            f[i] = laidOver(f[i], b[i], 1.0f);
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
