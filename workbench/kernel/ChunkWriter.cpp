#include "kernel/ChunkWriter.h"

#include "kernel/BigEndian.h"

#include <string>

namespace kernel {

void ChunkWriter::beginGroup(ChunkId kind, ChunkId type)
{
    beginChunk(kind);
    std::string text;
    appendBigEndian(text, type, kGroupTypeSize);
    m_out << text;
}

void ChunkWriter::beginChunk(ChunkId id)
{
    writeHead(id, 0);
    m_begun.push_back(m_out.tellp());
}

std::uint64_t ChunkWriter::end()
{
    const std::streamoff begin = m_begun.back();
    const std::streamoff end = m_out.tellp();
    m_begun.pop_back();
    if (!m_out)
        return 0;
    const auto size = static_cast<std::uint64_t>(end - begin);
    std::string text;
    appendBigEndian(text, size, sizeof size);
    m_out.seekp(begin - static_cast<std::streamoff>(sizeof size));
    m_out << text;
    m_out.seekp(end);
    pad(size);
    return size;
}

void ChunkWriter::chunk(ChunkId id, std::string_view body)
{
    writeHead(id, body.size());
    m_out << body;
    pad(body.size());
}

void ChunkWriter::writeHead(ChunkId id, std::uint64_t size)
{
    std::string head;
    appendBigEndian(head, id, sizeof id);
    appendBigEndian(head, 0, 4);
    appendBigEndian(head, size, sizeof size);
    m_out << head;
}

void ChunkWriter::pad(std::uint64_t size)
{
    m_out << std::string((kChunkAlignment - size % kChunkAlignment) % kChunkAlignment, '\0');
}

}  // namespace kernel
