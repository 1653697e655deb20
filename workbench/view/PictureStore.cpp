#include "view/PictureStore.h"

#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <system_error>
#include <utility>

namespace view {

namespace {

constexpr qint64 kMostPixels = qint64(1) << 28;  // of a file: 1 GiB decoded

/// The same value for every file that is missing.
std::filesystem::file_time_type timeWritten(const std::string& path)
{
    std::error_code missing;
    return std::filesystem::last_write_time(path, missing);
}

}  // namespace

PictureStore& PictureStore::instance()
{
    static PictureStore store;
    return store;
}

PictureStore::Entry PictureStore::decoded(const std::string& path)
{
    Entry entry;
    const QString name = QString::fromStdString(path);
    entry.written = timeWritten(path);
    if (!QFileInfo(name).isFile()) {
        return entry;
    }
    entry.picture.state = State::Unreadable;
    QImageReader reader(name);
    reader.setDecideFormatFromContent(true);  // names lie
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (qint64(size.width()) * size.height() > kMostPixels) {
        return entry;
    }
    if (std::max(size.width(), size.height()) > kLargestSide) {
        reader.setScaledSize(size.scaled(kLargestSide, kLargestSide, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    }
    const QImage image = reader.read();
    if (!image.isNull()) {
        entry.picture = {State::Ready, image.convertToFormat(QImage::Format_RGBA8888)};
    }
    return entry;
}

PictureStore::Picture PictureStore::picture(const std::string& path, double moment)
{
    if (m_moment != moment) {
        m_moment = moment;
        ++m_moments;
    }
    {
        const std::lock_guard<std::mutex> guard(m_lock);
        const auto found = m_entries.find(path);
        if (found != m_entries.end()) {
            Entry& entry = found->second;
            const bool isCurrent = entry.lookedAt == m_moments || entry.written == timeWritten(path);
            if (isCurrent) {
                entry.lookedAt = m_moments;
                return taken(entry);
            }
        }
    }
    Entry entry = decoded(path);
    entry.lookedAt = m_moments;
    const std::lock_guard<std::mutex> guard(m_lock);
    return taken(keep(path, std::move(entry)));
}

PictureStore::Picture PictureStore::readyPicture(const std::string& path)
{
    const std::lock_guard<std::mutex> guard(m_lock);
    const auto found = m_entries.find(path);
    return found == m_entries.end() ? Picture{State::Pending, {}} : taken(found->second);
}

PictureStore::Picture PictureStore::taken(Entry& entry)
{
    entry.lastAsked = ++m_asked;
    return entry.picture;
}

PictureStore::Entry& PictureStore::keep(const std::string& path, Entry entry)
{
    Entry& kept = m_entries[path];
    m_bytes -= std::size_t(kept.picture.image.sizeInBytes());
    m_bytes += std::size_t(entry.picture.image.sizeInBytes());
    kept = std::move(entry);
    kept.lastAsked = ++m_asked;
    dropOldest(kept);
    return kept;
}

/// Until the rest fits, or nothing but the spared one is left.
void PictureStore::dropOldest(const Entry& spared)
{
    while (m_bytes > m_budget) {
        auto oldest = m_entries.end();
        for (auto it = m_entries.begin(); it != m_entries.end(); ++it) {
            const bool holdsBytes = !it->second.picture.image.isNull() && &it->second != &spared;
            if (holdsBytes && (oldest == m_entries.end() || it->second.lastAsked < oldest->second.lastAsked)) {
                oldest = it;
            }
        }
        if (oldest == m_entries.end()) {
            return;
        }
        m_bytes -= std::size_t(oldest->second.picture.image.sizeInBytes());
        m_entries.erase(oldest);
    }
}

std::size_t PictureStore::bytes() const
{
    const std::lock_guard<std::mutex> guard(m_lock);
    return m_bytes;
}

// --- decoding ahead ------------------------------------------------------------------------------------------------

void PictureStore::prepare(const void* owner, const std::vector<std::string>& paths)
{
    {
        const std::lock_guard<std::mutex> guard(m_lock);
        m_orders.erase(std::remove_if(m_orders.begin(), m_orders.end(),
                                      [owner](const Order& order) { return order.owner == owner; }),
                       m_orders.end());
        for (const std::string& path : paths) {
            if (!m_entries.count(path)) {
                m_orders.push_back({owner, path});
            }
        }
        if (m_orders.empty() || m_isWorking) {
            return;
        }
        m_isWorking = true;
    }
    startWorker();
}

void PictureStore::startWorker()
{
    if (m_worker.joinable()) {
        m_worker.join();  // it has ended, or is about to
    }
    m_worker = std::thread([this] { work(); });
}

void PictureStore::work()
{
    std::unique_lock<std::mutex> guard(m_lock);
    while (!m_orders.empty()) {
        const std::string path = m_orders.front().path;
        m_orders.erase(m_orders.begin());
        if (m_entries.count(path)) {
            continue;  // somebody could not wait
        }
        guard.unlock();
        Entry entry = decoded(path);
        guard.lock();
        if (!m_entries.count(path)) {
            keep(path, std::move(entry));
        }
    }
    m_isWorking = false;
    m_changed.notify_all();
}

void PictureStore::finish()
{
    std::unique_lock<std::mutex> guard(m_lock);
    m_changed.wait(guard, [this] { return !m_isWorking; });
}

void PictureStore::clear()
{
    {
        const std::lock_guard<std::mutex> guard(m_lock);
        m_orders.clear();
    }
    if (m_worker.joinable()) {
        m_worker.join();
    }
    const std::lock_guard<std::mutex> guard(m_lock);
    m_entries.clear();
    m_complaints.clear();
    m_bytes = 0;
}

}  // namespace view
