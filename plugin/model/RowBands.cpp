#include "model/RowBands.h"

#include "model/Canvas.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace {

constexpr int kBandHeight = 64;
constexpr int kFewPixels = kCanvasSize * kCanvasSize / 4;
constexpr unsigned kMostThreads = 8;  // more wait for memory only

/// Work that several threads do together.
class Bands {
public:
    Bands(const RowSpan& rows, const std::function<void(int, int)>& work)
        : m_work(work), m_end(rows.end), m_next(rows.first)
    {}

    void run()
    {
        try {
            for (int first = next(); first < m_end; first = next()) {
                m_work(first, std::min(first + kBandHeight, m_end));
            }
        } catch (...) {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_thrown = std::current_exception();
        }
    }

    /// Called when nobody runs it any more.
    void passOnWhatWasThrown() const
    {
        if (m_thrown) {
            std::rethrow_exception(m_thrown);
        }
    }

private:
    int next() { return m_next.fetch_add(kBandHeight); }

    const std::function<void(int, int)>& m_work;
    const int m_end;
    std::atomic<int> m_next;
    std::mutex m_mutex;
    std::exception_ptr m_thrown;
};

/// Threads that wait for bands. On a busy machine one may be late: whoever calls for help takes the bands that nobody
/// has begun, and waits for those only who have begun one.
class Helpers {
public:
    ~Helpers() { stop(); }

    void help(Bands& bands)
    {
        const bool isFree = call(bands);
        bands.run();
        if (isFree) {
            dismiss();
        }
    }

    void stop()
    {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_isStopping = true;
        }
        m_called.notify_all();
        for (std::thread& thread : m_threads) {
            thread.join();
        }
        m_threads.clear();
        m_isStopping = false;
    }

private:
    // False while they are with another's bands.
    bool call(Bands& bands)
    {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            if (m_bands) {
                return false;
            }
            start();
            m_bands = &bands;
            m_missing = m_threads.size();
        }
        m_called.notify_all();
        return true;
    }

    void dismiss()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_missing = 0;
        m_left.wait(lock, [this] { return m_atWork == 0; });
        m_bands = nullptr;
    }

    // As many as the system has left; none will do.
    void start()
    {
        const unsigned wanted = std::min(std::max(std::thread::hardware_concurrency(), 1u), kMostThreads) - 1;
        try {
            while (m_threads.size() < wanted) {
                m_threads.emplace_back([this] { wait(); });
            }
        } catch (const std::exception&) {
        }
    }

    void wait()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        while (true) {
            m_called.wait(lock, [this] { return m_isStopping || m_missing > 0; });
            if (m_isStopping) {
                return;
            }
            --m_missing;
            ++m_atWork;
            lock.unlock();
            m_bands->run();
            lock.lock();
            --m_atWork;
            m_left.notify_one();
        }
    }

    std::mutex m_mutex;  // of all that follows but the threads' ends
    std::condition_variable m_called, m_left;
    Bands* m_bands = nullptr;   // null: nobody called
    std::size_t m_missing = 0;  // threads that may still come
    int m_atWork = 0;
    bool m_isStopping = false;
    std::vector<std::thread> m_threads;
};

Helpers& helpers()
{
    static Helpers all;
    return all;
}

void runBands(const RowSpan& rows, const std::function<void(int, int)>& work)
{
    Bands bands(rows, work);
    helpers().help(bands);
    bands.passOnWhatWasThrown();
}

}  // namespace

void forRowBands(const std::function<void(int first, int end)>& work)
{
    runBands(RowSpan{0, kCanvasSize}, work);
}

void forRowBands(const RowSpan& rows, int pixels, const std::function<void(int first, int end)>& work)
{
    if (pixels < kFewPixels) {
        work(rows.first, rows.end);
    } else {
        runBands(rows, work);
    }
}

void stopRowHelpers()
{
    helpers().stop();
}
