#include "app/IdleRunner.h"

namespace app {

namespace {

constexpr int kPause = 5;       // ms
constexpr int kWhileBusy = 20;  // ms

}  // namespace

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
    if (!m_timer.isActive()) {
        m_timer.start(0);
    }
}

void IdleRunner::Run()
{
    // A script or an entry of the queue may turn the event loop (a dialog): the host is not idle then.
    if (m_running || m_session.script().isExecuting()) {
        m_timer.start(kWhileBusy);
        return;
    }
    m_running = true;
    m_session.idle.runPass();
    m_session.events.raise("idle");
    m_running = false;
    // Work that always brings more of itself must leave the processor some rest.
    if (!m_session.idle.isEmpty()) {
        m_timer.start(kPause);
    }
}

}  // namespace app
