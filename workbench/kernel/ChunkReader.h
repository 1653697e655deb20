#pragma once

#include "kernel/ChunkId.h"

#include <string_view>

namespace kernel {

/// One chunk, borrowed from the bytes it was found in.
struct Chunk {
    ChunkId id = 0;
    ChunkId type = 0;        ///< a group's
    std::string_view whole;  ///< with head and padding
    std::string_view body;   ///< a group's without its type: the chunks in it
    bool isCut = false;      ///< it says that it is larger than the bytes it was found in; the body is what there is

    bool isGroup() const { return id == kGroup || id == kList; }
};

/// Walks over the chunks of one level; those within a group are walked by a reader of their own.
class ChunkReader {
public:
    explicit ChunkReader(std::string_view chunks) : m_left(chunks) {}

    /// False at the end, and where no chunk can be made out.
    bool next(Chunk& chunk);
    /// Whether the walk ended, or a chunk was cut, before the end.
    bool isDamaged() const { return m_isDamaged; }

private:
    bool fail();

    std::string_view m_left;
    bool m_isDamaged = false;
};

}  // namespace kernel
