#include "model/RowBands.h"

#include "model/Canvas.h"

#include <QRunnable>
#include <QSemaphore>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <memory>

namespace {

constexpr int kBandHeight = 64;
constexpr int kMostHelpers = 7;  // more wait for memory only

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

class Helper : public QRunnable {
public:
    Helper(Bands& bands, QSemaphore& done) : m_bands(bands), m_done(done) {}

    void run() override
    {
        m_bands.run();
        m_done.release();
    }

private:
    Bands& m_bands;
    QSemaphore& m_done;
};

}  // namespace

void forRowBands(const std::function<void(int first, int end)>& work)
{
    Bands bands(work);
    QSemaphore done;
    const int wanted = std::min(QThread::idealThreadCount() - 1, kMostHelpers);
    int helpers = 0;
    while (helpers < wanted) {
        std::unique_ptr<Helper> helper(new Helper(bands, done));
        if (!QThreadPool::globalInstance()->tryStart(helper.get())) {
            break;
        }
        helper.release();  // the pool deletes it
        ++helpers;
    }
    bands.run();
    done.acquire(helpers);
}
