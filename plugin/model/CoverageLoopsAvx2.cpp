#ifdef LUMISKETCH_AVX2

#include "model/CoverageLoopBodies.h"

#include <immintrin.h>

// By hand where the compiler cannot know what saves work: that a product fits a byte, that a dab is symmetric, that
// pixels given as nothing but alpha can be compared byte by byte.

static inline __m256i loaded(const void* from)
{
    return _mm256_loadu_si256((const __m256i*)from);
}

static inline void store(void* to, __m256i values)
{
    _mm256_storeu_si256((__m256i*)to, values);
}

static inline __m256i eightValues(const float* shape, __m256 opacity)
{
    const __m256 product = _mm256_mul_ps(_mm256_loadu_ps(shape), opacity);
    return _mm256_cvttps_epi32(_mm256_mul_ps(product, _mm256_set1_ps(255.0f)));
}

// After a pack, which works on halves: brings the quarters into their order.
static inline __m256i inOrder(__m256i packed)
{
    return _mm256_permute4x64_epi64(packed, _MM_SHUFFLE(3, 1, 2, 0));
}

static inline __m256i sixteenValues(const float* shape, __m256 opacity)
{
    return inOrder(_mm256_packus_epi32(eightValues(shape, opacity), eightValues(shape + 8, opacity)));
}

// Both fill the left half of each row, and mirrored the right one. Where they overlap they agree, in the padding they
// are 0.

static void fillBytesAvx2(uint8_t* values, const MaskShape* mask, float opacity)
{
    const MaskShape shape = *mask;
    const __m256 o = _mm256_set1_ps(opacity);
    const __m128i backward = _mm_setr_epi8(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0);
    for (int32_t row = 0; row < shape.rows; ++row, values += shape.columns) {
        for (int32_t i = 0; 2 * i < shape.width; i += 16) {
            const __m256i words = sixteenValues(shape.values + row * shape.columns + i, o);
            const __m128i bytes = _mm_packus_epi16(_mm256_castsi256_si128(words), _mm256_extracti128_si256(words, 1));
            _mm_storeu_si128((__m128i*)(values + i), bytes);
            _mm_storeu_si128((__m128i*)(values + shape.width - 16 - i), _mm_shuffle_epi8(bytes, backward));
        }
    }
}

static void fillWordsAvx2(uint16_t* values, const MaskShape* mask, float opacity)
{
    const MaskShape shape = *mask;
    const __m256 o = _mm256_set1_ps(opacity);
    const __m256i backward =
        _mm256_broadcastsi128_si256(_mm_setr_epi8(14, 15, 12, 13, 10, 11, 8, 9, 6, 7, 4, 5, 2, 3, 0, 1));
    for (int32_t row = 0; row < shape.rows; ++row, values += shape.columns) {
        for (int32_t i = 0; 2 * i < shape.width; i += 16) {
            const __m256i words = sixteenValues(shape.values + row * shape.columns + i, o);
            const __m256i halvesExchanged = _mm256_permute4x64_epi64(words, _MM_SHUFFLE(1, 0, 3, 2));
            store(values + i, words);
            store(values + shape.width - 16 - i, _mm256_shuffle_epi8(halvesExchanged, backward));
        }
    }
}

static inline void raiseBlock(uint8_t* coverage, __m256i first, __m256i second)
{
    store(coverage, _mm256_max_epu8(inOrder(_mm256_packus_epi16(first, second)), loaded(coverage)));
}

static void stampWeightedAvx2(uint8_t* coverage, ptrdiff_t stride, const WordRows* mask, uint16_t factor)
{
    const WordRows m = *mask;
    const __m256i f = _mm256_set1_epi16((short)factor);
    for (int32_t row = 0; row < m.count; ++row, coverage += stride) {
        const uint16_t* values = m.values + m.starts[row];
        const MaskSpan span = m.spans[row];
        for (int32_t i = span.first; i < span.end; i += kMaskBlock) {
            raiseBlock(coverage + i, _mm256_mulhi_epu16(f, loaded(values + i)),
                       _mm256_mulhi_epu16(f, loaded(values + i + 16)));
        }
    }
}

static inline __m256i stronger(__m256i nearFactor, const uint16_t* nearValues, __m256i farFactor,
                               const uint16_t* farValues)
{
    return _mm256_max_epi16(_mm256_mulhi_epu16(nearFactor, loaded(nearValues)),
                            _mm256_mulhi_epu16(farFactor, loaded(farValues)));
}

static void stampPairAvx2(uint8_t* coverage, ptrdiff_t stride, const WordRows* mask, const MaskPair* pair)
{
    const WordRows m = *mask;
    const MaskPair p = *pair;
    const MaskSpan* spans = p.down ? m.pairSpans : m.spans;
    const __m256i n = _mm256_set1_epi16((short)p.nearFactor);
    const __m256i f = _mm256_set1_epi16((short)p.farFactor);
    for (int32_t row = 0; row < m.count + p.down; ++row, coverage += stride) {
        const uint16_t* nearRow = m.values + m.starts[row];
        const uint16_t* farRow = m.values + m.starts[row - p.down] - p.right;
        const MaskSpan span = spans[row];
        for (int32_t i = span.first; i < span.end; i += kMaskBlock) {
            raiseBlock(coverage + i, stronger(n, nearRow + i, f, farRow + i),
                       stronger(n, nearRow + i + 16, f, farRow + i + 16));
        }
    }
}

static inline void raiseEight(uint32_t* pixels, __m128i coverage)
{
    const __m256i alpha = _mm256_slli_epi32(_mm256_cvtepu8_epi32(coverage), 24);
    store(pixels, _mm256_max_epu8(alpha, loaded(pixels)));
}

static inline void clearEight(uint32_t* pixels, __m128i coverage)
{
    const __m256i untouched = _mm256_cmpeq_epi32(_mm256_cvtepu8_epi32(coverage), _mm256_setzero_si256());
    const __m256i kept = _mm256_or_si256(untouched, _mm256_set1_epi32((int)kColour));
    store(pixels, _mm256_and_si256(kept, loaded(pixels)));
}

// Most of what an area has to spare about a line is empty, and reading the canvas there would cost the most.
static inline void mergeRowBySixteen(uint32_t* pixels, const uint8_t* coverage, int32_t columns,
                                     void (*mergeEight)(uint32_t*, __m128i),
                                     void (*mergeRest)(uint32_t*, const uint8_t*, int32_t))
{
    int32_t x = 0;
    for (; x + 16 <= columns; x += 16) {
        const __m128i sixteen = _mm_loadu_si128((const __m128i*)(coverage + x));
        if (!_mm_testz_si128(sixteen, sixteen)) {
            mergeEight(pixels + x, sixteen);
            mergeEight(pixels + x + 8, _mm_srli_si128(sixteen, 8));
        }
    }
    if (x < columns) {
        mergeRest(pixels + x, coverage + x, columns - x);
    }
}

static inline void raiseRowAvx2(uint32_t* pixels, const uint8_t* coverage, int32_t columns)
{
    mergeRowBySixteen(pixels, coverage, columns, raiseEight, raiseRow);
}

static inline void clearRowAvx2(uint32_t* pixels, const uint8_t* coverage, int32_t columns)
{
    mergeRowBySixteen(pixels, coverage, columns, clearEight, clearRow);
}

static void raiseAlphaAvx2(const CoveredPixels* area)
{
    mergeRows(area, raiseRowAvx2);
}

static void clearAlphaAvx2(const CoveredPixels* area)
{
    mergeRows(area, clearRowAvx2);
}

extern const CoverageLoops kCoverageLoopsAvx2;  // constants are not seen elsewhere unless declared so
const CoverageLoops kCoverageLoopsAvx2 = {fillBytesAvx2, fillWordsAvx2,  stamp,         stampWeightedAvx2,
                                          stampPairAvx2, raiseAlphaAvx2, clearAlphaAvx2};

#endif
