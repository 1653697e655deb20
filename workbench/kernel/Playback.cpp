#include "kernel/Playback.h"

#include "kernel/Session.h"

#include <algorithm>

namespace kernel {

namespace {

constexpr char kCondition[] = "playingBack";
/// Steps that are no whole numbers add up to a little more or less than the range's end.
constexpr double kTolerance = 1e-6;
constexpr double kLongestFrame = 3600 * 1000;  // ms; one that no clock can count would be no frame

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
    if (!isInRange(now) || !isInRange(now + step()))
        goTo(beginning());
}

void Playback::stop()
{
    if (!isPlaying())
        return;
    m_session.events.setCondition(kCondition, false);
    m_session.scene.tellAnimated();
}

void Playback::advance()
{
    if (!isPlaying())
        return;
    const double next = m_session.scene.currentTime().value + step();
    if (isInRange(next)) {
        goTo(next);
        return;
    }
    switch (options.loop) {
    case Loop::Once: stop(); break;
    case Loop::Continuous: goTo(beginning()); break;
    case Loop::Oscillate:
        m_forward = !m_forward;
        goTo(isInRange(next + 2 * step()) ? next + 2 * step() : beginning());
        break;
    }
}

void Playback::runThrough()
{
    stop();  // what plays already gives way
    {
        const During playing(m_session.events, kCondition);
        for (double time = beginning(); isInRange(time) && isPlaying(); time += step())
            goTo(time);
    }
    m_session.scene.tellAnimated();
}

double Playback::frameDuration() const
{
    if (options.speed <= 0)
        return 0;
    const double atFullSpeed = 1000 * ticksPerUnit(m_session.scene.timeUnit()) / kTicksPerSecond;
    return std::min(atFullSpeed / options.speed, kLongestFrame);
}

double Playback::beginning() const
{
    const Scene::Range range = m_session.scene.playbackRange();
    return m_forward ? range.first : range.last;
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
