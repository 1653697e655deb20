#pragma once

#include "app/RateMeter.h"
#include "kernel/FrameClock.h"
#include "kernel/Session.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

namespace view {
class Viewport;
class Viewports;
}  // namespace view

namespace app {

/// The clock of the session's playback. A frame is taken when it is due and the one before has been painted, so that
/// none changes the scene without being seen, and the event loop turns between them however long they take.
class PlaybackRunner : public QObject {
    Q_OBJECT

public:
    /// views: null when there is nothing to wait for.
    explicit PlaybackRunner(kernel::Session& session, view::Viewports* views = nullptr);
    ~PlaybackRunner() override;

signals:
    /// A few times a second while it plays: frames shown a second, 0 while that cannot be told.
    void RateMeasured(double rate);

private slots:
    void Advance();
    void CountShown();

private:
    void follow(bool isPlaying);
    void waitForNext();
    void awaitPaint();
    double now() const { return double(m_clock.nsecsElapsed()) / 1e6; }

    kernel::Session& m_session;
    view::Viewports* m_views;
    QTimer m_timer;
    QElapsedTimer m_clock;  ///< since playback began
    kernel::FrameClock m_frames;
    QPointer<QObject> m_painter;  ///< the view that is still to show the frame taken last; null when it did
    RateMeter m_meter;
    double m_toldAt = 0;  ///< when the rate was, by the clock
    unsigned m_watcher;
};

}  // namespace app
