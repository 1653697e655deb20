#include "model/RowBands.h"

#include "model/Canvas.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <vector>

namespace {

constexpr int kBandHeight = 64;
constexpr unsigned kMostThreads = 8;  // more wait for memory only

class Bands {
public:
    explicit Bands(const std::function<void(int, int)>& work) : m_work(work) {}

    void run()
    {
        for (int first = next(); first < kCanvasSize; first = next()) {
            m_work(first, first + kBandHeight);
        }
    }

private:
    int next() { return m_next.fetch_add(kBandHeight); }

    const std::function<void(int, int)>& m_work;
    std::atomic<int> m_next{0};
};

// None when the system has no more of them.
std::vector<std::thread> startedThreads(unsigned count, Bands& bands)
{
    std::vector<std::thread> threads;
    try {
        while (threads.size() < count) {
            threads.emplace_back([&bands] { bands.run(); });
        }
    } catch (const std::system_error&) {
    }
    return threads;
}

}  // namespace

// Threads of a pool would outlive this call, and with it perhaps the module, by a few instructions.
void forRowBands(const std::function<void(int first, int end)>& work)
{
    Bands bands(work);
    const unsigned wanted = std::min(std::max(std::thread::hardware_concurrency(), 1u), kMostThreads) - 1;
    std::vector<std::thread> threads = startedThreads(wanted, bands);
    bands.run();
    for (std::thread& thread : threads) {
        thread.join();
    }
}
