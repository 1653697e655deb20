#include "kernel/ChunkReader.h"

#include "kernel/BigEndian.h"

#include <algorithm>

namespace kernel {

bool ChunkReader::next(Chunk& chunk)
{
    if (m_left.size() < kChunkHeadSize) {
        const bool isPadding =
            m_left.size() < kChunkAlignment && m_left.find_first_not_of('\0') == std::string_view::npos;
        return isPadding ? false : fail();
    }
    chunk = Chunk();
    chunk.id = static_cast<ChunkId>(bigEndian(m_left.substr(0, 4)));
    const std::uint64_t size = bigEndian(m_left.substr(8, 8));
    if (chunk.id == 0 || bigEndian(m_left.substr(4, 4)) != 0 || (chunk.isGroup() && size < kGroupTypeSize))
        return fail();
    const std::uint64_t room = m_left.size() - kChunkHeadSize;
    chunk.isCut = size > room;
    m_isDamaged = m_isDamaged || chunk.isCut;
    chunk.body = m_left.substr(kChunkHeadSize, static_cast<std::size_t>(std::min(size, room)));
    if (chunk.isGroup()) {
        if (chunk.body.size() < kGroupTypeSize)
            return fail();
        chunk.type = static_cast<ChunkId>(bigEndian(chunk.body.substr(0, kGroupTypeSize)));
        chunk.body.remove_prefix(kGroupTypeSize);
    }
    // The last chunk of a group may come without its padding.
    const std::uint64_t padded = (std::min(size, room) + kChunkAlignment - 1) / kChunkAlignment * kChunkAlignment;
    chunk.whole = m_left.substr(0, static_cast<std::size_t>(kChunkHeadSize + std::min(padded, room)));
    m_left.remove_prefix(chunk.whole.size());
    return true;
}

bool ChunkReader::fail()
{
    m_left = {};
    m_isDamaged = true;
    return false;
}

}  // namespace kernel
