#pragma once

#include <QByteArray>

/// The bytes as lower-case hexadecimal digits. text: room for 2 * count characters.
void encodeHex(char* text, const char* bytes, int count);
/// The bytes that hexadecimal digits of either case stand for. As QByteArray::fromHex has it, other characters are
/// skipped, digits are paired from the end, and one left over at the front is a byte of its own.
QByteArray decodeHex(const char* text, int length);
