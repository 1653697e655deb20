#include "app/IdleRunner.h"

namespace app {

IdleRunner::IdleRunner(kernel::Session& session) : m_session(session)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(0);  // due when no event is waiting
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(Run()));
    // The queue may be filled from any thread; timers are started on their own.
    m_session.idle.setWake([this] { QMetaObject::invokeMethod(this, "Wake", Qt::QueuedConnection); });
    if (!m_session.idle.isEmpty()) {
        Wake();
    }
}

IdleRunner::~IdleRunner()
{
    m_session.idle.setWake(nullptr);
}

void IdleRunner::Wake()
{
    m_timer.start(0);
}

void IdleRunner::Run()
{
    // A script or an entry of the queue may turn the event loop (a dialog): the host is not idle then.
    if (m_running || m_session.script().isExecuting()) {
        m_timer.start(20);
        return;
    }
    m_running = true;
    m_session.idle.runPass();
    m_running = false;
    if (!m_session.idle.isEmpty()) {
        m_timer.start(0);
    }
}

}  // namespace app
