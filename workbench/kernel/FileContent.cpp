#include "kernel/FileContent.h"

#include "kernel/Command.h"

#include <cerrno>
#include <cstdint>
#include <system_error>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kernel {

namespace {

constexpr std::size_t kBlockSize = 1 << 16;

[[noreturn]] void fail(const std::string& path, int error)
{
    if (error == ENOENT || error == ENOTDIR)
        throw CommandError("File not found: " + path);
    throw CommandError("The file \"" + path + "\" could not be read: " + std::generic_category().message(error));
}

}  // namespace

FileContent::FileContent(const std::string& path)
{
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        fail(path, errno);
    struct stat status = {};
    int error = ::fstat(descriptor, &status) == 0 ? 0 : errno;
    if (error == 0 && S_ISDIR(status.st_mode))
        error = EISDIR;
    if (error == 0 && !S_ISREG(status.st_mode) && !S_ISFIFO(status.st_mode))
        error = ENODEV;
    if (error == 0 && !map(descriptor, static_cast<std::size_t>(status.st_size)))
        error = read(descriptor);
    ::close(descriptor);
    if (error != 0)
        fail(path, error);
}

FileContent::~FileContent()
{
    if (m_mapped)
        ::munmap(m_mapped, m_bytes.size());
}

bool FileContent::map(int descriptor, std::size_t size)
{
    if (size == 0)
        return false;  // also of what is no plain file
    void* const mapped = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
    if (mapped == MAP_FAILED)
        return false;
    m_mapped = mapped;
    m_bytes = {static_cast<const char*>(mapped), size};
    ::madvise(mapped, size, MADV_SEQUENTIAL);
    return true;
}

int FileContent::read(int descriptor)
{
    char block[kBlockSize];
    ssize_t size = 0;
    while ((size = ::read(descriptor, block, sizeof block)) != 0) {
        if (size > 0)
            m_read.append(block, static_cast<std::size_t>(size));
        else if (errno != EINTR)
            return errno;
    }
    m_bytes = m_read;
    return 0;
}

void FileContent::release(std::string_view part) const
{
    if (!m_mapped || part.empty())
        return;
    const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const auto begin = reinterpret_cast<std::uintptr_t>(part.data()) / page * page;
    const auto end = reinterpret_cast<std::uintptr_t>(part.data() + part.size()) / page * page;
    if (begin < end)
        ::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_DONTNEED);
}

}  // namespace kernel
