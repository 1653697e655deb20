#include "contexts/InputWorker.h"

#include "settings/PenState.h"

#include <QThread>

#include <algorithm>
#include <limits>

namespace {

const int kPeriod = 8;             // milliseconds
const int kPressTolerance = 3;     // pixels; an event's position and the pointer's are rounded differently
const double kFarthest = 1 << 24;  // pixels; no screen reaches as far, and sums of such places are whole numbers

}  // namespace

/// What all samples of one poll have in common.
struct InputWorker::Sampling {
    int width;
    float opacity;
    float hardness;
    SampleTime time;
};

InputWorker::InputWorker(const PointerSource& pointer, std::shared_ptr<SampleGate> gate)
    : m_pointer(pointer), m_gate(std::move(gate)), m_pressPosition(unknownPosition()),
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

QPoint InputWorker::inView(const QPoint& place, const QRect& view)
{
    const double x = double(place.x()) - view.left() + 1;
    const double y = double(view.height()) - (double(place.y()) - view.top()) + 1;
    const auto held = [](double value) { return int(std::max(-kFarthest, std::min(kFarthest, value))); };
    return QPoint(held(x), held(y));
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
    const PointerSighting seen = m_pointer();
    m_gate->ifOpen([&](const QRect& view, const SamplingOptions& options) {
        // Read within the gate: who changes the pressure there knows that all samples of before are under way.
        const float opacity = options.tabletEnabled ? options.opacity * penState::pressure() : options.opacity;
        sendMove(inView(seen.place, view), {options.width, opacity, options.hardness, seen.time});
    });
}

void InputWorker::sendMove(const QPoint& position, const Sampling& sampling)
{
    if (position == m_lastPosition) {
        return;
    }
    if (m_lastPosition == unknownPosition()) {
        const QPoint start = firstPosition(position);
        send(start - QPoint(1, 0), sampling);
        if (start != position) {
            send(start, sampling);
        }
    }
    m_lastPosition = position;
    send(position, sampling);
}

void InputWorker::send(const QPoint& position, const Sampling& sampling)
{
    m_gate->noteTime(sampling.time);
    emit MousePositionChanged(position, sampling.width, sampling.opacity, sampling.hardness);
}
