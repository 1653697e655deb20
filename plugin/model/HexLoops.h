#pragma once

// Only plain C headers here: see plugin_row_loops in the build.
#include <stdint.h>

/// Loops between bytes and their hexadecimal digits. What they read and what they write do not overlap.
struct HexLoops {
    /// Writes two lower-case digits for each of the bytes.
    void (*encode)(char* digits, const uint8_t* bytes, int32_t count);
    /// Reads two digits, of either case, for each of count bytes. Gives how many bytes were read before the first
    /// character that is no digit; a few more may have been written, none beyond count.
    int32_t (*decode)(uint8_t* bytes, const char* digits, int32_t count);
};

const HexLoops& hexLoops();  ///< the fastest that run here
const HexLoops& portableHexLoops();
const HexLoops* avx2HexLoops();  ///< null where there are none

/// The value of a hexadecimal digit of either case; kNoHexDigit for any other character.
uint8_t hexDigitValue(char digit);
constexpr uint8_t kNoHexDigit = 0xff;
