#pragma once

#include "kernel/Session.h"

#include <QObject>
#include <QTimer>

namespace app {

/// Runs the session's idle queue from the event loop: one pass whenever there is nothing else to do.
class IdleRunner : public QObject {
    Q_OBJECT

public:
    explicit IdleRunner(kernel::Session& session);
    ~IdleRunner() override;

public slots:
    void Wake();

private slots:
    void Run();

private:
    kernel::Session& m_session;
    QTimer m_timer;
    bool m_running = false;
};

}  // namespace app
