#pragma once

#include "kernel/Session.h"

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

    kernel::Session& m_session;
    QTimer m_timer;
    unsigned m_watcher;
};

}  // namespace app
