#include "kernel/AtomicFile.h"

#include "kernel/Command.h"

#include <cerrno>
#include <cstdlib>
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

/// Whether a path leads to the file that is open.
bool isAt(const std::string& path, int descriptor)
{
    struct stat there = {};
    struct stat own = {};
    return ::lstat(path.c_str(), &there) == 0 && ::fstat(descriptor, &own) == 0 && there.st_ino == own.st_ino
        && there.st_dev == own.st_dev;
}

/// Removes a temporary file that no living process holds; where that cannot be told it stays.
void removeLeftover(const std::string& path)
{
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return;
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0 && isAt(path, descriptor))
        ::unlink(path.c_str());
    ::close(descriptor);
}

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

}  // namespace

void AtomicFile::Buffer::open(int descriptor)
{
    m_descriptor = descriptor;
    m_buffer.resize(kBufferSize);
    setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
}

bool AtomicFile::Buffer::flushToDisk()
{
    sync();
    if (m_error == 0 && ::fsync(m_descriptor) != 0)
        m_error = errno;
    return m_error == 0;
}

void AtomicFile::Buffer::close()
{
    ::close(m_descriptor);
    m_descriptor = -1;
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
        m_written += written;
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

AtomicFile::Buffer::pos_type AtomicFile::Buffer::seekoff(off_type offset, std::ios_base::seekdir from,
                                                         std::ios_base::openmode which)
{
    if (from == std::ios_base::end)
        return off_type(-1);
    const off_type now = m_written + (pptr() - pbase());
    const off_type target = from == std::ios_base::beg ? offset : now + offset;
    return target == now ? pos_type(now) : seekpos(target, which);
}

AtomicFile::Buffer::pos_type AtomicFile::Buffer::seekpos(pos_type position, std::ios_base::openmode)
{
    if (sync() != 0)
        return off_type(-1);
    if (::lseek(m_descriptor, position, SEEK_SET) < 0) {
        m_error = errno;
        return off_type(-1);
    }
    m_written = position;
    return position;
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

    const int descriptor = openTemporary();
    if (exists)
        ::fchmod(descriptor, existing.st_mode & 07777);
    m_buffer.open(descriptor);
    m_stream.imbue(std::locale::classic());
}

AtomicFile::~AtomicFile()
{
    if (m_committed)
        return;
    ::unlink(m_temporary.c_str());
    m_buffer.close();
}

// Each writer holds a lock on its file, which ends with the process: what nobody holds was left by a killed one.
int AtomicFile::openTemporary()
{
    for (int i = 0; i < kTries; ++i) {
        m_temporary = m_target + ".saving" + std::to_string(i);
        removeLeftover(m_temporary);
        const int descriptor = ::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor < 0 && errno != EEXIST)
            fail(errno);
        if (descriptor < 0)
            continue;
        ::flock(descriptor, LOCK_EX | LOCK_NB);
        if (isAt(m_temporary, descriptor))
            return descriptor;
        ::close(descriptor);  // taken for a leftover before it was locked
    }
    fail(EEXIST);
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
    m_buffer.close();
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
