#include "model/HexLoops.h"

#ifdef LUMISKETCH_AVX2

#include <immintrin.h>

namespace {

constexpr int32_t kBlock = 32;  // digits

// Sixteen bytes at a time: each is widened to 16 bits, its halves put into the two bytes in the order of the digits.
void encodeAvx2(char* digits, const uint8_t* bytes, int32_t count)
{
    const __m256i digitOfValue =
        _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>("0123456789abcdef")));
    int32_t i = 0;
    for (; i + kBlock / 2 <= count; i += kBlock / 2) {
        const __m256i wide = _mm256_cvtepu8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + i)));
        const __m256i halves = _mm256_or_si256(_mm256_srli_epi16(wide, 4), _mm256_slli_epi16(wide, 8));
        const __m256i values = _mm256_and_si256(halves, _mm256_set1_epi8(15));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(digits + 2 * i), _mm256_shuffle_epi8(digitOfValue, values));
    }
    portableHexLoops().encode(digits + 2 * i, bytes + i, count - i);
}

// Each byte minus first, and whether that is below size.
struct InRange {
    InRange(__m256i characters, char first, char size)
        : offset(_mm256_sub_epi8(characters, _mm256_set1_epi8(first))),
          is(_mm256_cmpeq_epi8(_mm256_min_epu8(offset, _mm256_set1_epi8(static_cast<char>(size - 1))), offset))
    {}

    __m256i offset;
    __m256i is;
};

// Sixteen bytes at a time, which are 32 digits; the pairs of their values are summed up with the weights 16 and 1.
int32_t decodeAvx2(uint8_t* bytes, const char* digits, int32_t count)
{
    int32_t i = 0;
    for (; i + kBlock / 2 <= count; i += kBlock / 2) {
        const __m256i characters = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(digits + 2 * i));
        const InRange decimal(characters, '0', 10);
        const InRange letter(_mm256_or_si256(characters, _mm256_set1_epi8('a' - 'A')), 'a', 6);
        if (_mm256_movemask_epi8(_mm256_or_si256(decimal.is, letter.is)) != -1) {
            break;
        }
        const __m256i letterValue = _mm256_add_epi8(letter.offset, _mm256_set1_epi8(10));
        const __m256i values = _mm256_blendv_epi8(letterValue, decimal.offset, decimal.is);
        const __m256i sums = _mm256_maddubs_epi16(values, _mm256_set1_epi16(0x0110));
        const __m128i packed = _mm_packus_epi16(_mm256_castsi256_si128(sums), _mm256_extracti128_si256(sums, 1));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(bytes + i), packed);
    }
    return i + portableHexLoops().decode(bytes + i, digits + 2 * i, count - i);
}

const HexLoops kLoops = {encodeAvx2, decodeAvx2};

}  // namespace

const HexLoops* avx2HexLoops()
{
    return &kLoops;
}

#else

const HexLoops* avx2HexLoops()
{
    return nullptr;
}

#endif
