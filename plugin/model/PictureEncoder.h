#pragma once

#include "model/PackedPixels.h"
#include "model/Picture.h"

#include <QObject>
#include <QThread>

#include <condition_variable>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <vector>

/// Packs pictures on a thread of its own, in the order in which they are added. All of this is called on the main
/// thread; the other one sees nothing but images, which nobody writes to. Whenever a picture is packed the pixel budget
/// is told by the event loop.
class PictureEncoder : public QObject {
public:
    /// How a picture is packed, empty when it cannot be. Called on either thread; throws nothing.
    using Packing = std::function<PackedPixels(const QImage& image)>;

    static PictureEncoder& instance();
    PictureEncoder();
    ~PictureEncoder() override;

    /// The picture has pixels. One that is here already keeps its place and its packing.
    void add(Picture::Data& picture, const Packing& packing);
    void withdraw(Picture::Data& picture);  ///< it goes, or was packed meanwhile
    int waiting() const;                    ///< pictures that are not packed yet, with one that is under way
    /// Packs the oldest that nobody works on, here and now; false when there is none.
    bool packOldest();
    void finish();  ///< comes back when nothing waits
    /// Hands over what is packed by now, and what turned out not to be packable.
    std::vector<Picture::Data*> takeFinished();
    /// Comes back when the thread has ended. What waits goes on doing so; the next picture starts the thread again.
    void stop();

protected:
    void customEvent(QEvent* event) override;

private:
    enum class State { Waiting, UnderWay, Finished };
    struct Job {
        Picture::Data* picture;  // null: withdrawn while it was under way
        QImage image;
        Packing packing;
        State state;
        PackedPixels packed;
    };
    using Jobs = std::list<Job>;

    class Thread;
    void startThread();
    void work();
    Jobs::iterator next(State state);
    void pack(Jobs::iterator job, std::unique_lock<std::mutex>& lock);  // which is let go meanwhile
    void tell();

    mutable std::mutex m_mutex;  // of all that follows but the thread
    std::condition_variable m_changed;
    Jobs m_jobs;
    bool m_isStopping = false;
    bool m_isTold = false;  // an event is under way
    std::unique_ptr<QThread> m_thread;
};
