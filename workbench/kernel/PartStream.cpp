#include "kernel/PartStream.h"

#include <algorithm>
#include <locale>

namespace kernel {

namespace {

constexpr std::size_t kShown = 4 << 20;

}  // namespace

PartStream::PartStream(std::string_view bytes, PartRead partRead)
    : std::istream(nullptr), m_buffer(bytes, std::move(partRead))
{
    rdbuf(&m_buffer);
    imbue(std::locale::classic());
}

void PartStream::Buffer::show(std::size_t begin)
{
    // The interface is that of streams which can be written to; this one is only read.
    char* const data = const_cast<char*>(m_bytes.data());
    setg(data + begin, data + begin, data + std::min(begin + kShown, m_bytes.size()));
}

PartStream::Buffer::int_type PartStream::Buffer::underflow()
{
    if (position() == m_bytes.size())
        return traits_type::eof();
    if (m_partRead)
        m_partRead(m_bytes.substr(0, position()));
    show(position());
    return traits_type::to_int_type(*gptr());
}

PartStream::Buffer::pos_type PartStream::Buffer::seekoff(off_type offset, std::ios_base::seekdir from,
                                                         std::ios_base::openmode which)
{
    if (from == std::ios_base::cur && offset == 0)
        return static_cast<off_type>(position());
    const auto size = static_cast<off_type>(m_bytes.size());
    if (offset < -size || offset > size)
        return off_type(-1);
    const off_type now = static_cast<off_type>(position());
    return seekpos(offset + (from == std::ios_base::beg ? 0 : from == std::ios_base::cur ? now : size), which);
}

PartStream::Buffer::pos_type PartStream::Buffer::seekpos(pos_type position, std::ios_base::openmode which)
{
    const off_type target = position;
    if (!(which & std::ios_base::in) || target < 0 || target > static_cast<off_type>(m_bytes.size()))
        return off_type(-1);
    show(static_cast<std::size_t>(target));
    return position;
}

}  // namespace kernel
