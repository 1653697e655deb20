#include "app/PlaybackRunner.h"

namespace app {

PlaybackRunner::PlaybackRunner(kernel::Session& session) : m_session(session)
{
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
        m_timer.start(static_cast<int>(m_session.playback.frameDuration()));
    } else {
        m_timer.stop();
    }
}

// A script may turn the event loop (a dialog): its frame stays until it is through.
void PlaybackRunner::Advance()
{
    if (!m_session.script().isExecuting()) {
        m_session.playback.advance();
    }
}

}  // namespace app
