#include "app/PlaybackRunner.h"

#include <algorithm>

namespace app {

PlaybackRunner::PlaybackRunner(kernel::Session& session) : m_session(session)
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
    if (isPlaying) {
        m_clock.start();
        m_due = 0;
        waitForNext();
    } else {
        m_timer.stop();
    }
}

// Frames keep to the clock, as the timer knows whole milliseconds only; those after a late one do not hurry.
void PlaybackRunner::waitForNext()
{
    const double now = double(m_clock.elapsed());
    m_due = std::max(now, m_due + m_session.playback.frameDuration());
    m_timer.start(qRound(m_due - now));
}

// A script may turn the event loop (a dialog): its frame stays until it is through.
void PlaybackRunner::Advance()
{
    if (!m_session.script().isExecuting()) {
        m_session.playback.advance();
    }
    if (m_session.playback.isPlaying()) {
        waitForNext();
    }
}

}  // namespace app
