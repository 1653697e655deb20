#ifdef LUMISKETCH_AVX2

#include "model/RowLoopBodies.h"

#include <immintrin.h>

// Mixing, written out: sixteen pixels at a time, one register of sixteen 16-bit numbers a channel, which compilers do
// not find by themselves. It halves the time. Everything is computed as in laidOver.

namespace {

/// Sixteen pixels, each channel times 257: of 8 bits made 16. The order of the pixels is that of split and joined.
struct Pixels {
    __m256i red;
    __m256i green;
    __m256i blue;
    __m256i alpha;
};

inline __m256i loaded(const uint32_t* pixels)
{
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pixels));
}

inline Pixels split(const uint32_t* pixels, bool swapped)
{
    const __m256i redGreen =
        _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 0, 4, 4, 8, 8, 12, 12, 1, 1, 5, 5, 9, 9, 13, 13));
    const __m256i blueAlpha =
        _mm256_broadcastsi128_si256(_mm_setr_epi8(2, 2, 6, 6, 10, 10, 14, 14, 3, 3, 7, 7, 11, 11, 15, 15));
    const __m256i first = loaded(pixels);
    const __m256i second = loaded(pixels + 8);
    const __m256i firstRedGreen = _mm256_shuffle_epi8(first, redGreen);
    const __m256i firstBlueAlpha = _mm256_shuffle_epi8(first, blueAlpha);
    const __m256i secondRedGreen = _mm256_shuffle_epi8(second, redGreen);
    const __m256i secondBlueAlpha = _mm256_shuffle_epi8(second, blueAlpha);
    const __m256i red = _mm256_unpacklo_epi64(firstRedGreen, secondRedGreen);
    const __m256i blue = _mm256_unpacklo_epi64(firstBlueAlpha, secondBlueAlpha);
    return {swapped ? blue : red, _mm256_unpackhi_epi64(firstRedGreen, secondRedGreen), swapped ? red : blue,
            _mm256_unpackhi_epi64(firstBlueAlpha, secondBlueAlpha)};
}

inline __m256i products(__m256i a, __m256i b)
{
    const __m256i upper = _mm256_mulhi_epu16(a, b);
    const __m256i lower = _mm256_mullo_epi16(a, b);
    const __m256i quarter = _mm256_add_epi16(_mm256_srli_epi16(lower, 2), _mm256_srli_epi16(upper, 2));
    return _mm256_add_epi16(upper, _mm256_srli_epi16(_mm256_add_epi16(quarter, _mm256_set1_epi16(0x2000)), 14));
}

inline __m256i premultipliedChannel(__m256i channel, __m256i alpha)
{
    const __m256i upper = _mm256_mulhi_epu16(channel, alpha);
    return _mm256_add_epi16(upper, _mm256_srli_epi16(upper, 15));
}

inline __m256i channelIn8Bits(__m256i value)
{
    const __m256i v = _mm256_adds_epu16(value, _mm256_set1_epi16(128));
    return _mm256_srli_epi16(_mm256_sub_epi16(v, _mm256_srli_epi16(v, 8)), 8);
}

inline __m256 lowerFloats(__m256i values)
{
    return _mm256_cvtepi32_ps(_mm256_unpacklo_epi16(values, _mm256_setzero_si256()));
}

inline __m256 upperFloats(__m256i values)
{
    return _mm256_cvtepi32_ps(_mm256_unpackhi_epi16(values, _mm256_setzero_si256()));
}

struct Shares {
    __m256 lower;
    __m256 upper;
};

inline Shares sharesOf(__m256i alpha)
{
    const __m256 whole = _mm256_set1_ps(65535.0f);
    const __m256 least = _mm256_set1_ps(1.0f);
    return {_mm256_div_ps(whole, _mm256_max_ps(lowerFloats(alpha), least)),
            _mm256_div_ps(whole, _mm256_max_ps(upperFloats(alpha), least))};
}

inline __m256i nearestOf(__m256 values)
{
    return _mm256_cvttps_epi32(_mm256_add_ps(values, _mm256_set1_ps(0.5f)));
}

inline __m256i mixedChannels(__m256i ahead, __m256i behind, const Shares& shares)
{
    const __m256i sum = _mm256_add_epi16(ahead, behind);
    return channelIn8Bits(_mm256_packus_epi32(nearestOf(_mm256_mul_ps(lowerFloats(sum), shares.lower)),
                                              nearestOf(_mm256_mul_ps(upperFloats(sum), shares.upper))));
}

inline void storeJoined(uint32_t* pixels, __m256i red, __m256i green, __m256i blue, __m256i alpha)
{
    const __m256i redGreen = _mm256_or_si256(red, _mm256_slli_epi16(green, 8));
    const __m256i blueAlpha = _mm256_or_si256(blue, _mm256_slli_epi16(alpha, 8));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(pixels), _mm256_unpacklo_epi16(redGreen, blueAlpha));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(pixels + 8), _mm256_unpackhi_epi16(redGreen, blueAlpha));
}

/// Writes front over back to result, which may be either of them.
template <bool kSwapped, bool kFaded>
inline void layBlockOver(uint32_t* result, const uint32_t* frontPixels, const uint32_t* backPixels, __m256i fade)
{
    const Pixels front = split(frontPixels, kSwapped);
    const Pixels back = split(backPixels, false);
    const auto ahead = [&](__m256i channel) {
        const __m256i all = premultipliedChannel(channel, front.alpha);
        return kFaded ? products(all, fade) : all;
    };
    const __m256i frontAlpha = kFaded ? products(front.alpha, fade) : front.alpha;
    const __m256i rest = _mm256_xor_si256(frontAlpha, _mm256_set1_epi16(-1));
    const auto behind = [&](__m256i channel) { return products(premultipliedChannel(channel, back.alpha), rest); };
    const __m256i alpha = _mm256_add_epi16(frontAlpha, products(back.alpha, rest));
    const Shares shares = sharesOf(alpha);
    storeJoined(result, mixedChannels(ahead(front.red), behind(back.red), shares),
                mixedChannels(ahead(front.green), behind(back.green), shares),
                mixedChannels(ahead(front.blue), behind(back.blue), shares), channelIn8Bits(alpha));
}

template <bool kSwapped, bool kFaded>
void wideOver(uint32_t* back, const uint32_t* front, int count, int opacity)
{
    const __m256i fade = _mm256_set1_epi16(static_cast<short>(opacity * 257));
    forBlocks(back, front, count,
              [fade](uint32_t* b, const uint32_t* f) { layBlockOver<kSwapped, kFaded>(b, f, b, fade); });
}

void over256(uint32_t* back, const uint32_t* front, int count, bool swapped, int opacity)
{
    if (opacity == 255) {
        (swapped ? wideOver<true, false> : wideOver<false, false>)(back, front, count, opacity);
    } else {
        (swapped ? wideOver<true, true> : wideOver<false, true>)(back, front, count, opacity);
    }
}

void under256(uint32_t* front, const uint32_t* back, int count)
{
    forBlocks(front, back, count,
              [](uint32_t* f, const uint32_t* b) { layBlockOver<false, false>(f, f, b, _mm256_setzero_si256()); });
}

const RowLoops kWideLoops = {over256, under256, tint, inkColumns, fetch};

}  // namespace

const RowLoops* avx2RowLoops()
{
    return &kWideLoops;
}

#else

#include "model/RowLoops.h"

const RowLoops* avx2RowLoops()
{
    return nullptr;
}

#endif
