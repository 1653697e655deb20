#include "model/Hex.h"

#include "model/HexLoops.h"

namespace {

int digitCount(const char* text, int length)
{
    int count = 0;
    for (int i = 0; i < length; ++i) {
        count += hexDigitValue(text[i]) != kNoHexDigit;
    }
    return count;
}

QByteArray decodeTolerantly(const char* text, int length)
{
    int digits = digitCount(text, length);
    QByteArray bytes((digits + 1) / 2, 0);
    char* next = bytes.data();
    for (int i = 0; i < length; ++i) {
        const quint8 value = hexDigitValue(text[i]);
        if (value == kNoHexDigit) {
            continue;
        }
        *next = static_cast<char>(static_cast<quint8>(*next) << 4 | value);
        next += digits % 2;  // the last of a pair has an odd number of digits from it to the end
        --digits;
    }
    return bytes;
}

}  // namespace

void encodeHex(char* text, const char* bytes, int count)
{
    hexLoops().encode(text, reinterpret_cast<const uint8_t*>(bytes), count);
}

QByteArray decodeHex(const char* text, int length)
{
    QByteArray bytes(length / 2, Qt::Uninitialized);
    const bool isClean =
        length % 2 == 0
        && hexLoops().decode(reinterpret_cast<uint8_t*>(bytes.data()), text, bytes.size()) == bytes.size();
    return isClean ? bytes : decodeTolerantly(text, length);
}
