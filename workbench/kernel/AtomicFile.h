#pragma once

#include <memory>
#include <ostream>
#include <streambuf>
#include <string>
#include <vector>

namespace kernel {

/// Writes a file so that its path holds either the old content or all of the new: a temporary file beside it takes the
/// place of the target on commit(). What a process left that was killed meanwhile is removed by the next that writes to
/// the same path. Everything throws CommandError with the system's reason.
class AtomicFile {
public:
    explicit AtomicFile(const std::string& path);
    ~AtomicFile();  ///< without a commit the temporary file is removed
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// In the "C" locale; can be written in any order. Goes bad on a write error, which commit() then reports.
    std::ostream& stream() { return m_stream; }
    void commit();

private:
    /// A plain stream buffer over a descriptor that remembers why a write failed.
    class Buffer : public std::streambuf {
    public:
        void open(int descriptor);
        bool flushToDisk();
        void close();
        int descriptor() const { return m_descriptor; }
        int error() const { return m_error; }

    protected:
        int_type overflow(int_type c) override;
        std::streamsize xsputn(const char* data, std::streamsize size) override;
        int sync() override;
        pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode which) override;
        pos_type seekpos(pos_type position, std::ios_base::openmode which) override;

    private:
        bool write(const char* data, std::size_t size);

        int m_descriptor = -1;
        int m_error = 0;
        off_type m_written = 0;  ///< where in the file the buffered bytes belong
        std::vector<char> m_buffer;
    };

    /// Gives the descriptor of a new file at m_temporary.
    int openTemporary();
    [[noreturn]] void fail(int error) const;

    const std::string m_path;
    std::string m_target;  ///< m_path with links followed
    std::string m_temporary;
    Buffer m_buffer;
    std::ostream m_stream;
    bool m_committed = false;
};

}  // namespace kernel
