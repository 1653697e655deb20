#pragma once

#include <cstdint>

namespace kernel {

/// Four characters as one number, the first the highest.
using ChunkId = std::uint32_t;

constexpr ChunkId chunkId(const char (&text)[5])
{
    return ChunkId(std::uint8_t(text[0])) << 24 | ChunkId(std::uint8_t(text[1])) << 16
         | ChunkId(std::uint8_t(text[2])) << 8 | std::uint8_t(text[3]);
}

// A group of chunks, and a group in which all are of one kind.
constexpr ChunkId kGroup = chunkId("FOR8");
constexpr ChunkId kList = chunkId("LIS8");

// The container, all numbers big-endian:
//
//   chunk   id (4)  zero (4)  size (8)  body  padding with zeros
//   group   a chunk whose body is a type (4) and chunks
//
// The size is that of the body. The padding brings it to a multiple of kChunkAlignment; as a group's chunks follow
// its type, they do not lie on such multiples in the file.
constexpr unsigned kChunkHeadSize = 16;
constexpr unsigned kGroupTypeSize = 4;
constexpr unsigned kChunkAlignment = 8;

}  // namespace kernel
