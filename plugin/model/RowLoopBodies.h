#pragma once

// The loops of RowLoops.h, compiled once for any processor and once for AVX2. They go by blocks of a fixed size, which
// compilers turn into vector code whole.

#include "model/RowLoops.h"

#include <string.h>

namespace {

enum { kBlock = 16 };

const uint32_t kAlphaMask = 0xff000000u;

inline bool hasInk(const uint32_t* block)
{
    uint32_t all = 0;
    for (int i = 0; i < kBlock; ++i) {
        all |= block[i];
    }
    return (all & kAlphaMask) != 0;
}

inline uint32_t redAndBlueSwapped(uint32_t p)
{
    return (p & 0xff00ff00u) | ((p >> 16) & 0xffu) | ((p & 0xffu) << 16);
}

inline uint16_t channel(uint32_t pixel, int shift)
{
    return static_cast<uint16_t>((pixel >> shift) & 0xffu);
}

/// The upper and the lower half of a product.
inline uint16_t upperHalf(uint16_t a, uint16_t b)
{
    return static_cast<uint16_t>((static_cast<uint32_t>(a) * b) >> 16);
}

inline uint16_t lowerHalf(uint16_t a, uint16_t b)
{
    return static_cast<uint16_t>(static_cast<uint32_t>(a) * b);
}

/// A product of two fractions of 65535, rounded: (t + (t >> 16) + 0x8000) >> 16, without the lowest bits of what is
/// added, so that it fits 16 bits.
inline uint16_t product(uint16_t a, uint16_t b)
{
    const uint16_t upper = upperHalf(a, b);
    const uint16_t lower = lowerHalf(a, b);
    const uint16_t quarter = static_cast<uint16_t>((lower >> 2) + (upper >> 2));
    return static_cast<uint16_t>(upper + static_cast<uint16_t>(static_cast<uint16_t>(quarter + 0x2000) >> 14));
}

/// A colour channel times its alpha, both of 8 bits, in 16 bits: the upper half of the product of what they are in 16
/// bits, x * 257 * 257 / 65536, and one more where that is nearer.
inline uint16_t premultiplied(uint16_t channel, uint16_t alpha)
{
    const uint16_t x = static_cast<uint16_t>(channel * alpha);
    const uint16_t upper = static_cast<uint16_t>(x + upperHalf(x, 513));
    return static_cast<uint16_t>(upper + static_cast<uint16_t>(upper >> 15));
}

inline uint32_t in8Bits(uint16_t value)
{
    const uint16_t v = value > 65407 ? 65535 : static_cast<uint16_t>(value + 128);
    return static_cast<uint16_t>(static_cast<uint16_t>(v - static_cast<uint16_t>(v >> 8)) >> 8);
}

inline float asFloat(uint16_t value)
{
    return static_cast<float>(static_cast<int32_t>(value));
}

inline uint16_t nearest(float value)
{
    return static_cast<uint16_t>(static_cast<int32_t>(value + 0.5f));
}

/// How a pixel in front covers one behind it.
struct Cover {
    uint16_t fade;  // of the front
    uint16_t rest;  // of the back that still shows
    float share;    // makes straight 16 bits of what is mixed
};

template <bool kFaded>
inline uint32_t mixedChannel(uint32_t front, uint32_t back, const Cover& cover, int shift)
{
    uint16_t ahead = premultiplied(channel(front, shift), channel(front, 24));
    if (kFaded) {
        ahead = product(ahead, cover.fade);
    }
    const uint16_t behind = product(premultiplied(channel(back, shift), channel(back, 24)), cover.rest);
    return in8Bits(nearest(asFloat(static_cast<uint16_t>(ahead + behind)) * cover.share)) << shift;
}

template <bool kFaded>
inline uint32_t laidOver(uint32_t front, uint32_t back, uint16_t fade)
{
    uint16_t ahead = static_cast<uint16_t>(channel(front, 24) * 257);
    if (kFaded) {
        ahead = product(ahead, fade);
    }
    const uint16_t rest = static_cast<uint16_t>(65535 - ahead);
    const uint16_t alpha = static_cast<uint16_t>(ahead + product(static_cast<uint16_t>(channel(back, 24) * 257), rest));
    const Cover cover = {fade, rest, 65535.0f / asFloat(alpha > 1 ? alpha : static_cast<uint16_t>(1))};
    return mixedChannel<kFaded>(front, back, cover, 0) | mixedChannel<kFaded>(front, back, cover, 8)
         | mixedChannel<kFaded>(front, back, cover, 16) | in8Bits(alpha) << 24;
}

/// Calls mix(changed block, source block) for each block; the last one is filled up with transparency.
template <class Mix>
inline void forBlocks(uint32_t* changed, const uint32_t* source, int count, Mix mix)
{
    int x = 0;
    for (; x + kBlock <= count; x += kBlock) {
        mix(changed + x, source + x);
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

template <bool kSwapped, bool kFaded>
void blendOver(uint32_t* back, const uint32_t* front, int count, uint16_t fade)
{
    forBlocks(back, front, count, [fade](uint32_t* __restrict b, const uint32_t* __restrict f) {
        for (int i = 0; i < kBlock; ++i) {
            b[i] = laidOver<kFaded>(kSwapped ? redAndBlueSwapped(f[i]) : f[i], b[i], fade);
        }
    });
}

void over(uint32_t* back, const uint32_t* front, int count, bool swapped, int opacity)
{
    const uint16_t fade = static_cast<uint16_t>(opacity * 257);
    if (opacity == 255) {
        (swapped ? blendOver<true, false> : blendOver<false, false>)(back, front, count, fade);
    } else {
        (swapped ? blendOver<true, true> : blendOver<false, true>)(back, front, count, fade);
    }
}

void under(uint32_t* front, const uint32_t* back, int count)
{
    forBlocks(front, back, count, [](uint32_t* __restrict f, const uint32_t* __restrict b) {
        for (int i = 0; i < kBlock; ++i) {
            f[i] = laidOver<false>(f[i], b[i], 65535);
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

uint64_t inkColumns(const uint32_t* row, int columns)
{
    uint64_t bits = 0;
    for (int i = 0; i < columns; ++i) {
        bits |= static_cast<uint64_t>(hasInk(row + i * kBlock)) << i;
    }
    return bits;
}

void fetch(const uint32_t* row, int count)
{
#ifdef __GNUC__
    for (int x = 0; x < count; x += kBlock) {
        __builtin_prefetch(row + x);
    }
#else
    (void)row;
    (void)count;
#endif
}

const RowLoops kLoops = {over, under, tint, inkColumns, fetch};

}  // namespace
