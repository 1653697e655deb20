#pragma once

#include "contexts/PointerSource.h"

/// Tells when an input event happened, however late the host hands it on. The window system stamps events by a clock of
/// its own; how far that is from ours shows in the event that came with the least delay.
class EventClock {
public:
    /// Forgets what it has learned. Clocks drift apart, and some stand still while the machine sleeps: to be called
    /// between strokes.
    void restart();
    /// An event that arrives. stamp: milliseconds; one of 0, or one before the last, makes all of them worthless.
    void note(unsigned long stamp, SampleTime now);
    /// By when the event with this stamp, which has been noted, had surely happened; the end of time when unknown.
    SampleTime latest(unsigned long stamp) const;

    /// When it happened, as far as that can be told; the beginning of time when unknown.
    SampleTime likely(unsigned long stamp) const;

private:
    bool isKnown() const { return m_isUsable && m_hasStamp; }

    bool m_isUsable = true;
    bool m_hasStamp = false;
    unsigned long m_lastStamp = 0;
    SampleTime m_zero;  // our time at the stamps' zero, or later
};
