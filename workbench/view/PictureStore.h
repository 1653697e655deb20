#pragma once

#include <QImage>

#include <condition_variable>
#include <cstddef>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace view {

/// Reads pictures from files and keeps them decoded, as many as a number of bytes allows: those that were not asked for
/// the longest go first. Pictures that will be wanted soon can be decoded ahead on a thread of its own, which there is
/// only while it has work. Everything is to be called from one thread.
class PictureStore {
public:
    static constexpr std::size_t kBudget = std::size_t(256) << 20;  ///< bytes
    static constexpr int kLargestSide = 4096;                       ///< larger pictures are scaled down

    explicit PictureStore(std::size_t budget = kBudget) : m_budget(budget) {}
    ~PictureStore() { clear(); }
    PictureStore(const PictureStore&) = delete;
    PictureStore& operator=(const PictureStore&) = delete;
    static PictureStore& instance();

    enum class State { Ready, Pending, Missing, Unreadable };
    struct Picture {
        State state = State::Missing;
        QImage image;  ///< RGBA8888, upright; null unless ready
    };
    /// The picture, decoded now if it has to be. moment: anything that changes when files may have been written anew;
    /// whenever it does, each is looked at again when it is asked for.
    Picture picture(const std::string& path, double moment);
    /// The picture if it is there; pending otherwise.
    Picture readyPicture(const std::string& path);
    /// Decodes these in their order while the caller goes on; what was to be decoded for the owner before is forgotten.
    void prepare(const void* owner, const std::vector<std::string>& paths);
    /// Whether nobody has complained about this name yet: who asks does so now.
    bool takeComplaint(const std::string& name) { return m_complaints.insert(name).second; }
    /// Waits until all that was to be prepared is.
    void finish();
    /// Forgets everything, complaints too. Waits for the picture that is being decoded.
    void clear();

    std::size_t bytes() const;
    std::size_t budget() const { return m_budget; }

private:
    struct Entry {
        Picture picture;
        std::filesystem::file_time_type written;  ///< the file's time
        unsigned long long lookedAt = 0;  ///< at which moment, as they are counted, the file's time was looked at
        unsigned long long lastAsked = 0;
    };
    struct Order {
        const void* owner;
        std::string path;
    };

    static Entry decoded(const std::string& path);
    // With the lock held:
    Picture taken(Entry& entry);
    Entry& keep(const std::string& path, Entry entry);
    void dropOldest(const Entry& spared);

    void startWorker();
    void work();

    const std::size_t m_budget;
    mutable std::mutex m_lock;
    std::condition_variable m_changed;
    std::map<std::string, Entry> m_entries;
    std::set<std::string> m_complaints;
    std::vector<Order> m_orders;  ///< the first is next
    std::size_t m_bytes = 0;
    unsigned long long m_asked = 0;
    std::optional<double> m_moment;    ///< the last one
    unsigned long long m_moments = 0;  ///< how often it changed
    bool m_isWorking = false;          ///< the thread will look at the orders again
    std::thread m_worker;
};

}  // namespace view
