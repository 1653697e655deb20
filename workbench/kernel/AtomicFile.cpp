#include "kernel/AtomicFile.h"

#include "kernel/Command.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <locale>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kernel {

namespace {

constexpr std::size_t kBufferSize = 1 << 20;
constexpr int kTries = 100;
const char* const kTemporaryMark = ".tmp";

/// The file a path of links ends at; the path itself when there is none yet.
std::string resolved(const std::string& path)
{
    char* real = ::realpath(path.c_str(), nullptr);
    if (!real)
        return path;
    const std::string target = real;
    std::free(real);
    return target;
}

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

std::string fileNameOf(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

bool isTemporaryOf(const std::string& name, const std::string& targetName)
{
    const std::string start = targetName + kTemporaryMark;
    return name.size() > start.size() && name.compare(0, start.size(), start) == 0
        && name.find_first_not_of("0123456789_", start.size()) == std::string::npos;
}

/// Removes what processes that were killed left beside the target. A file that is still being written is locked.
void removeLeftovers(const std::string& target)
{
    std::error_code ignored;
    std::filesystem::directory_iterator entries(folderOf(target), ignored);
    for (; !ignored && entries != std::filesystem::directory_iterator(); entries.increment(ignored)) {
        if (!isTemporaryOf(entries->path().filename().string(), fileNameOf(target)))
            continue;
        const int descriptor = ::open(entries->path().c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        if (descriptor >= 0 && ::flock(descriptor, LOCK_EX | LOCK_NB) == 0)
            ::unlink(entries->path().c_str());
        if (descriptor >= 0)
            ::close(descriptor);
    }
}

/// Opens a file that is not there yet and locks it; a negative number, with errno, when that fails.
int createLocked(const std::string& path)
{
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    struct stat status = {};
    if (descriptor < 0 || ::flock(descriptor, LOCK_EX) != 0 || ::fstat(descriptor, &status) != 0 || status.st_nlink > 0)
        return descriptor;  // where files cannot be locked they are not taken for leftovers either
    ::close(descriptor);    // taken for one before it was locked
    errno = EEXIST;
    return -1;
}

}  // namespace

void AtomicFile::Buffer::open(int descriptor)
{
    m_descriptor = descriptor;
    m_buffer.resize(kBufferSize);
    setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
}

AtomicFile::Buffer::~Buffer()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

bool AtomicFile::Buffer::flushToDisk()
{
    sync();
    if (m_error == 0 && ::fsync(m_descriptor) != 0)
        m_error = errno;
    return m_error == 0;
}

bool AtomicFile::Buffer::write(const char* data, std::size_t size)
{
    while (size > 0 && m_error == 0) {
        const ssize_t written = ::write(m_descriptor, data, size);
        if (written < 0) {
            if (errno != EINTR)
                m_error = errno;
            continue;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return m_error == 0;
}

int AtomicFile::Buffer::sync()
{
    const bool ok = write(pbase(), static_cast<std::size_t>(pptr() - pbase()));
    setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
    return ok ? 0 : -1;
}

AtomicFile::Buffer::int_type AtomicFile::Buffer::overflow(int_type c)
{
    if (sync() != 0)
        return traits_type::eof();
    if (!traits_type::eq_int_type(c, traits_type::eof()))
        sputc(traits_type::to_char_type(c));
    return traits_type::not_eof(c);
}

std::streamsize AtomicFile::Buffer::xsputn(const char* data, std::streamsize size)
{
    if (size <= epptr() - pptr()) {
        traits_type::copy(pptr(), data, static_cast<std::size_t>(size));
        pbump(static_cast<int>(size));
        return size;
    }
    return sync() == 0 && write(data, static_cast<std::size_t>(size)) ? size : 0;
}

AtomicFile::AtomicFile(const std::string& path) : m_path(path), m_target(resolved(path)), m_stream(&m_buffer)
{
    struct stat existing = {};
    const bool exists = ::stat(m_target.c_str(), &existing) == 0;
    if (exists && S_ISDIR(existing.st_mode))
        fail(EISDIR);
    // The rename would replace a file the user has made read only.
    if (exists && ::access(m_target.c_str(), W_OK) != 0)
        fail(errno);

    removeLeftovers(m_target);
    int descriptor = -1;
    for (int i = 0; descriptor < 0 && i < kTries; ++i) {
        m_temporary = m_target + kTemporaryMark + std::to_string(::getpid()) + '_' + std::to_string(i);
        descriptor = createLocked(m_temporary);
        if (descriptor < 0 && errno != EEXIST)
            break;
    }
    if (descriptor < 0)
        fail(errno);
    if (exists)
        ::fchmod(descriptor, existing.st_mode & 07777);
    m_buffer.open(descriptor);
    m_stream.imbue(std::locale::classic());
}

AtomicFile::~AtomicFile()
{
    if (!m_committed)
        ::unlink(m_temporary.c_str());
}

void AtomicFile::commit()
{
    m_stream.flush();
    if (!m_buffer.flushToDisk())
        fail(m_buffer.error());
    if (!m_stream)
        fail(EIO);
    if (::rename(m_temporary.c_str(), m_target.c_str()) != 0)
        fail(errno);
    m_committed = true;
    // The new name is safe once the folder is; not every file system can do that, and the content is.
    const int folder = ::open(folderOf(m_target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder >= 0) {
        ::fsync(folder);
        ::close(folder);
    }
}

void AtomicFile::fail(int error) const
{
    throw CommandError("The file \"" + m_path + "\" could not be written: " + std::generic_category().message(error));
}

}  // namespace kernel
