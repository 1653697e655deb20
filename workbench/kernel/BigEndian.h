#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kernel {

/// Appends the lowest `bytes` bytes of a number, the highest of them first.
inline void appendBigEndian(std::string& out, std::uint64_t number, std::size_t bytes)
{
    while (bytes-- > 0)
        out += static_cast<char>(number >> (8 * bytes));
}

/// The number that bytes in that order stand for; the last eight of them when there are more.
inline std::uint64_t bigEndian(std::string_view bytes)
{
    std::uint64_t number = 0;
    for (const char byte : bytes)
        number = number << 8 | static_cast<unsigned char>(byte);
    return number;
}

}  // namespace kernel
