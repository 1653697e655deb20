#include "app/PlaybackRunner.h"

#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QWindow>

#include <algorithm>
#include <cmath>

namespace app {

namespace {

/// A view that ought to be painted may not be (the window went behind a locked screen): playback does not wait forever.
constexpr int kLongestPaint = 500;  // ms beyond the frame's own time
constexpr int kWhileBusy = 20;      // ms
constexpr double kTellEvery = 250;  // ms; a number that changes faster cannot be read

}  // namespace

PlaybackRunner::PlaybackRunner(kernel::Session& session, view::Viewports* views) : m_session(session), m_views(views)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(Advance()));
    m_watcher = m_session.events.watch("playingBack", [this](bool isPlaying) { follow(isPlaying); });
}

PlaybackRunner::~PlaybackRunner()
{
    m_session.events.unwatch(m_watcher);
}

void PlaybackRunner::follow(bool isPlaying)
{
    m_painter.clear();
    m_meter.clear();
    m_toldAt = 0;
    if (isPlaying) {
        m_clock.start();
        m_frames.start();
        waitForNext();
    } else {
        m_timer.stop();
    }
}

void PlaybackRunner::waitForNext()
{
    const double wait = std::max(0.0, m_frames.nextDue(m_session.playback.frameDuration()) - now());
    m_timer.start(int(std::ceil(wait)) + (m_painter ? kLongestPaint : 0));
}

void PlaybackRunner::Advance()
{
    // A script may turn the event loop (a dialog): its frame stays until it is through.
    if (m_session.script().isExecuting()) {
        m_timer.start(kWhileBusy);
        return;
    }
    kernel::Playback& playback = m_session.playback;
    using Late = kernel::FrameClock::Late;
    const Late late = playback.showsEveryFrame() ? Late::ShowAll : Late::Drop;
    const int due = m_frames.framesDue(now(), playback.frameDuration(), late);
    m_painter.clear();
    if (due > 0) {
        playback.advance(due);
        awaitPaint();
    }
    if (playback.isPlaying()) {
        waitForNext();
    }
}

void PlaybackRunner::awaitPaint()
{
    view::Viewport* const view = m_views ? m_views->active() : nullptr;
    const QWindow* const window = view && view->isVisible() ? view->window()->windowHandle() : nullptr;
    if (window && window->isExposed()) {
        m_painter = view;
        connect(view, SIGNAL(frameSwapped()), this, SLOT(CountShown()), Qt::UniqueConnection);
    }
}

void PlaybackRunner::CountShown()
{
    if (!m_painter || sender() != m_painter) {
        return;  // painted for another reason
    }
    m_painter.clear();
    m_meter.addFrame(now());
    if (m_session.playback.isPlaying()) {
        waitForNext();
    }
    if (now() - m_toldAt >= kTellEvery) {
        m_toldAt = now();
        emit RateMeasured(m_meter.rate());
    }
}

}  // namespace app
