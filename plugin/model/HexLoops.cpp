#include "model/HexLoops.h"

#include "model/CpuFeatures.h"

#include <string.h>

namespace {

struct HexTables {
    HexTables()
    {
        memset(values, kNoHexDigit, sizeof values);
        for (unsigned i = 0; i < 16; ++i) {
            values[static_cast<uint8_t>("0123456789abcdef"[i])] = static_cast<uint8_t>(i);
            values[static_cast<uint8_t>("0123456789ABCDEF"[i])] = static_cast<uint8_t>(i);
        }
        for (unsigned i = 0; i < 256; ++i) {
            pairs[i][0] = "0123456789abcdef"[i >> 4];
            pairs[i][1] = "0123456789abcdef"[i & 15];
        }
    }

    uint8_t values[256];  // of each digit
    char pairs[256][2];   // the digits of each byte
};

const HexTables& tables()
{
    static const HexTables kTables;
    return kTables;
}

void encode(char* digits, const uint8_t* bytes, int32_t count)
{
    const char(*pairs)[2] = tables().pairs;
    for (int32_t i = 0; i < count; ++i) {
        memcpy(digits + 2 * i, pairs[bytes[i]], 2);
    }
}

int32_t decode(uint8_t* bytes, const char* digits, int32_t count)
{
    const uint8_t* values = tables().values;
    for (int32_t i = 0; i < count; ++i) {
        const uint8_t high = values[static_cast<uint8_t>(digits[2 * i])];
        const uint8_t low = values[static_cast<uint8_t>(digits[2 * i + 1])];
        if ((high | low) == kNoHexDigit) {  // no two values of digits make it
            return i;
        }
        bytes[i] = static_cast<uint8_t>(high << 4 | low);
    }
    return count;
}

const HexLoops kPortable = {encode, decode};

}  // namespace

uint8_t hexDigitValue(char digit)
{
    return tables().values[static_cast<uint8_t>(digit)];
}

const HexLoops& portableHexLoops()
{
    return kPortable;
}

const HexLoops& hexLoops()
{
    return usesAvx2() ? *avx2HexLoops() : kPortable;
}
