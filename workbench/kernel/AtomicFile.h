#pragma once

#include <memory>
#include <ostream>
#include <streambuf>
#include <string>
#include <vector>

namespace kernel {

/// Writes a file so that its path holds either the old content or all of the new: a temporary file beside it takes the
/// place of the target on commit(). What a killed process left of one goes with the next. Everything throws
/// CommandError with the system's reason.
class AtomicFile {
public:
    explicit AtomicFile(const std::string& path);
    ~AtomicFile();  ///< without a commit the temporary file is removed
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// In the "C" locale. Goes bad on a write error, which commit() then reports.
    std::ostream& stream() { return m_stream; }
    void commit();

private:
    /// A plain stream buffer over a descriptor that remembers why a write failed.
    class Buffer : public std::streambuf {
    public:
        void open(int descriptor);
        ~Buffer() override;
        bool flushToDisk();
        int error() const { return m_error; }

    protected:
        int_type overflow(int_type c) override;
        std::streamsize xsputn(const char* data, std::streamsize size) override;
        int sync() override;

    private:
        bool write(const char* data, std::size_t size);

        int m_descriptor = -1;
        int m_error = 0;
        std::vector<char> m_buffer;
    };

    [[noreturn]] void fail(int error) const;

    const std::string m_path;
    std::string m_target;  ///< m_path with links followed
    std::string m_temporary;
    Buffer m_buffer;
    std::ostream m_stream;
    bool m_committed = false;
};

}  // namespace kernel
