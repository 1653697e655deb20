#pragma once

#include <string>
#include <string_view>

namespace kernel {

/// The bytes of a file as long as this lives: mapped into memory, or read where it cannot be mapped.
class FileContent {
public:
    /// Throws CommandError with the host's wording when the file is missing or cannot be read.
    explicit FileContent(const std::string& path);
    ~FileContent();
    FileContent(const FileContent&) = delete;
    FileContent& operator=(const FileContent&) = delete;

    std::string_view bytes() const { return m_bytes; }
    /// Gives back the memory a part takes; looking at it again brings it back. Does nothing for what was read.
    void release(std::string_view part) const;

private:
    bool map(int descriptor, std::size_t size);
    /// 0, or the error's number.
    int read(int descriptor);

    std::string_view m_bytes;
    std::string m_read;
    void* m_mapped = nullptr;
};

}  // namespace kernel
