#pragma once

#include "kernel/ChunkId.h"

#include <cstddef>
#include <ostream>
#include <string_view>
#include <vector>

namespace kernel {

/// Writes a container of chunks. Sizes are filled in once they are known, so bodies may be as large as they like, and
/// the stream must be one that can be written in any order.
class ChunkWriter {
public:
    explicit ChunkWriter(std::ostream& out) : m_out(out) {}

    /// kind: kGroup or kList. What follows belongs to it until its end().
    void beginGroup(ChunkId kind, ChunkId type);
    /// Its body is what is written to stream() until its end().
    void beginChunk(ChunkId id);
    /// Ends what was begun last; gives the size of its body, in bytes.
    std::uint64_t end();

    void chunk(ChunkId id, std::string_view body);
    /// Chunks as they were read, with heads and padding.
    void copy(std::string_view chunks) { m_out << chunks; }
    std::ostream& stream() { return m_out; }

private:
    void writeHead(ChunkId id, std::uint64_t size);
    void pad(std::uint64_t size);

    std::ostream& m_out;
    std::vector<std::streamoff> m_begun;  ///< where the bodies begin of what is not ended
};

}  // namespace kernel
