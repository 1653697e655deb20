#include "contexts/InputWorker.h"

#include "settings/PenState.h"

#include <QThread>

#include <limits>

namespace {

const int kPeriod = 8;          // milliseconds
const int kPressTolerance = 3;  // pixels; an event's position and the pointer's are rounded differently

}  // namespace

InputWorker::InputWorker(const SamplingOptions& options, const PointerSource& pointer, std::shared_ptr<SampleGate> gate)
    : m_options(options), m_pointer(pointer), m_gate(std::move(gate)), m_pressPosition(unknownPosition()),
      m_lastPosition(unknownPosition()), m_timer(this)
{
    m_timer.setInterval(kPeriod);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(Poll()));
}

QPoint InputWorker::unknownPosition()
{
    return QPoint(std::numeric_limits<int>::max(), std::numeric_limits<int>::max());
}

QPoint InputWorker::firstPosition(const QPoint& polled) const
{
    const bool left =
        m_pressPosition != unknownPosition() && (polled - m_pressPosition).manhattanLength() > kPressTolerance;
    return left ? m_pressPosition : polled;
}

void InputWorker::Run()
{
    Poll();
    m_timer.start();
}

void InputWorker::Shutdown()
{
    m_timer.stop();
    QThread::currentThread()->exit(0);
}

void InputWorker::Poll()
{
    if (!m_options.view.isValid()) {
        return;
    }
    const QPoint local = m_pointer() - m_options.view.topLeft();
    const QPoint position(local.x() + 1, m_options.view.height() - local.y() + 1);
    const std::lock_guard<std::mutex> lock(m_gate->mutex);
    if (position == m_lastPosition || !m_gate->open) {
        return;
    }
    // Read within the gate: who changes the pressure there knows that all samples of before are under way.
    const float opacity = m_options.tabletEnabled ? m_options.opacity * penState::pressure() : m_options.opacity;
    if (m_lastPosition == unknownPosition()) {
        const QPoint start = firstPosition(position);
        emit MousePositionChanged(start - QPoint(1, 0), m_options.width, opacity, m_options.hardness);
        if (start != position) {
            emit MousePositionChanged(start, m_options.width, opacity, m_options.hardness);
        }
    }
    m_lastPosition = position;
    emit MousePositionChanged(position, m_options.width, opacity, m_options.hardness);
}
