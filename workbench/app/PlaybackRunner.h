#pragma once

#include "kernel/Session.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace app {

/// The clock of the session's playback: shows the next frame whenever one is due.
class PlaybackRunner : public QObject {
    Q_OBJECT

public:
    explicit PlaybackRunner(kernel::Session& session);
    ~PlaybackRunner() override;

private slots:
    void Advance();

private:
    void follow(bool isPlaying);
    void waitForNext();

    kernel::Session& m_session;
    QTimer m_timer;
    QElapsedTimer m_clock;  ///< since playback began
    double m_due = 0;       ///< of the next frame, in milliseconds of the clock
    unsigned m_watcher;
};

}  // namespace app
