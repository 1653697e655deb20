#include "model/PictureEncoder.h"

#include "model/PictureData.h"
#include "model/PixelBudget.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>

class PictureEncoder::Thread : public QThread {
public:
    explicit Thread(PictureEncoder& encoder) : m_encoder(encoder) {}

protected:
    void run() override { m_encoder.work(); }

private:
    PictureEncoder& m_encoder;
};

PictureEncoder& PictureEncoder::instance()
{
    static PictureEncoder encoder;
    return encoder;
}

PictureEncoder::PictureEncoder()
{
    PixelTiles::prepare();
}

PictureEncoder::~PictureEncoder()
{
    stop();
}

void PictureEncoder::add(Picture::Data& picture, const Packing& packing)
{
    if (!picture.isInEncoder) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_jobs.push_back({&picture, picture.image, packing, State::Waiting, PackedPixels()});
        picture.isInEncoder = true;
    }
    startThread();
    m_changed.notify_all();
}

void PictureEncoder::withdraw(Picture::Data& picture)
{
    picture.isInEncoder = false;
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto job =
        std::find_if(m_jobs.begin(), m_jobs.end(), [&picture](const Job& j) { return j.picture == &picture; });
    if (job == m_jobs.end()) {
        return;
    }
    if (job->state == State::UnderWay) {
        job->picture = nullptr;
    } else {
        m_jobs.erase(job);
    }
}

int PictureEncoder::waiting() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<int>(
        std::count_if(m_jobs.begin(), m_jobs.end(), [](const Job& job) { return job.state != State::Finished; }));
}

bool PictureEncoder::packOldest()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const auto job = next(State::Waiting);
    if (job == m_jobs.end()) {
        return false;
    }
    pack(job, lock);
    return true;
}

void PictureEncoder::finish()
{
    while (packOldest()) {
    }
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return next(State::UnderWay) == m_jobs.end(); });
}

std::vector<Picture::Data*> PictureEncoder::takeFinished()
{
    std::vector<Picture::Data*> finished;
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (auto job = next(State::Finished); job != m_jobs.end(); job = next(State::Finished)) {
        job->picture->isInEncoder = false;
        job->picture->isPackable = !job->packed.isEmpty();
        job->picture->shared->packed.add(job->packed);
        finished.push_back(job->picture);
        m_jobs.erase(job);
    }
    return finished;
}

void PictureEncoder::stop()
{
    if (!m_thread) {
        return;
    }
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isStopping = true;
    }
    m_changed.notify_all();
    m_thread->wait();
    m_thread.reset();
    m_isStopping = false;
}

void PictureEncoder::customEvent(QEvent*)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isTold = false;
    }
    PixelBudget::instance().trim();
}

// Where the system has no thread left, what waits is packed by those who wait for it.
void PictureEncoder::startThread()
{
    if (!m_thread) {
        m_thread.reset(new Thread(*this));
        m_thread->start(QThread::LowestPriority);
    }
}

void PictureEncoder::work()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_isStopping || next(State::Waiting) != m_jobs.end(); });
        if (m_isStopping) {
            return;
        }
        pack(next(State::Waiting), lock);
        tell();
    }
}

PictureEncoder::Jobs::iterator PictureEncoder::next(State state)
{
    return std::find_if(m_jobs.begin(), m_jobs.end(), [state](const Job& job) { return job.state == state; });
}

// A job that is under way stays where it is, whatever happens to those around it.
void PictureEncoder::pack(Jobs::iterator job, std::unique_lock<std::mutex>& lock)
{
    job->state = State::UnderWay;
    lock.unlock();
    const PackedPixels packed = job->packing(job->image);
    lock.lock();
    if (job->picture) {
        job->packed = packed;
        job->image = QImage();
        job->state = State::Finished;
    } else {
        m_jobs.erase(job);
    }
    m_changed.notify_all();
}

void PictureEncoder::tell()
{
    if (!m_isTold) {
        m_isTold = true;
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
}
