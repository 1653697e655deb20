#pragma once

#include "kernel/Script.h"

#include <istream>
#include <streambuf>
#include <string_view>
#include <utility>

namespace kernel {

/// A stream of bytes in memory, which are not copied; in the "C" locale. Behind the last it is at its end.
class PartStream : public std::istream {
public:
    /// partRead: told of what has been read, from time to time.
    PartStream(std::string_view bytes, PartRead partRead);

private:
    class Buffer : public std::streambuf {
    public:
        Buffer(std::string_view bytes, PartRead partRead) : m_bytes(bytes), m_partRead(std::move(partRead)) { show(0); }

    protected:
        int_type underflow() override;
        pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode which) override;
        pos_type seekpos(pos_type position, std::ios_base::openmode which) override;

    private:
        std::size_t position() const { return static_cast<std::size_t>(gptr() - m_bytes.data()); }
        /// Makes the bytes from there on readable, as many as are shown at a time.
        void show(std::size_t begin);

        const std::string_view m_bytes;
        const PartRead m_partRead;
    };

    Buffer m_buffer;
};

}  // namespace kernel
