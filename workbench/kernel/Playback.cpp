#include "kernel/Playback.h"

#include "kernel/Session.h"

#include <algorithm>

namespace kernel {

namespace {

constexpr char kCondition[] = "playingBack";
/// Steps that are no whole numbers add up to a little more or less than the range's end.
constexpr double kTolerance = 1e-6;
constexpr double kLongestFrame = 3600 * 1000;  // ms; one that no clock can count would be no frame
constexpr double kShortestFrame = 1e-3;        // ms; and shorter ones that are late would be too many to count

}  // namespace

bool Playback::isPlaying() const
{
    return m_session.events.condition(kCondition);
}

void Playback::start()
{
    if (isPlaying())
        return;
    m_session.events.setCondition(kCondition, true);
    const double now = m_session.scene.currentTime().value;
    if (!isInRange(now) || !isInRange(now + stride(m_forward)))
        goTo(beginning(m_forward));
}

void Playback::stop()
{
    if (!isPlaying())
        return;
    m_session.events.setCondition(kCondition, false);
    m_session.scene.tellAnimated();
}

void Playback::advance(int steps)
{
    if (!isPlaying())
        return;
    Position position{m_session.scene.currentTime().value, m_forward};
    int taken = 0;
    while (taken < steps && step(position))
        ++taken;
    m_forward = position.forward;
    if (taken > 0)
        goTo(position.time);
    if (taken < steps)
        stop();
}

/// One frame on; at the end of the range that is the beginning or the frame before. False when that was all.
bool Playback::step(Position& position) const
{
    const double before = position.time;
    position.time += stride(position.forward);
    if (isInRange(position.time))
        return true;
    if (options.loop == Loop::Once) {
        position.time = before;
        return false;
    }
    if (options.loop == Loop::Oscillate) {
        position.forward = !position.forward;
        position.time = before + stride(position.forward);
    }
    if (!isInRange(position.time))
        position.time = beginning(position.forward);
    return true;
}

void Playback::runThrough()
{
    stop();  // what plays already gives way
    {
        const During playing(m_session.events, kCondition);
        double time = beginning(m_forward);
        while (isInRange(time) && isPlaying()) {
            goTo(time);
            const double next = time + stride(m_forward);
            if (next == time)
                break;  // among the greatest numbers a step leads nowhere
            time = next;
        }
    }
    m_session.scene.tellAnimated();
}

double Playback::frameDuration() const
{
    const double speed = showsEveryFrame() ? options.maxSpeed : options.speed;
    if (speed <= 0)
        return 0;
    const double atFullSpeed = 1000 * ticksPerUnit(m_session.scene.timeUnit()) / kTicksPerSecond;
    return std::max(kShortestFrame, std::min(atFullSpeed / speed, kLongestFrame));
}

double Playback::beginning(bool forward) const
{
    const Scene::Range range = m_session.scene.playbackRange();
    return forward ? range.first : range.last;
}

bool Playback::isInRange(double time) const
{
    const Scene::Range range = m_session.scene.playbackRange();
    return time >= range.first - kTolerance && time <= range.last + kTolerance;
}

void Playback::goTo(double time)
{
    m_session.scene.setCurrentTime({time, m_session.scene.timeUnit()});
}

}  // namespace kernel
