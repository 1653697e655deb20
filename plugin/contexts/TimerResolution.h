#pragma once

/// While raised, the system's timers are as fine as it can make them, so that a wait of 8 ms is one of 8 ms.
/// Systems whose timers are always fine have nothing to raise.
class TimerResolution {
public:
    TimerResolution() = default;
    ~TimerResolution() { restore(); }
    TimerResolution(const TimerResolution&) = delete;
    TimerResolution& operator=(const TimerResolution&) = delete;

    void raise();    ///< does nothing when raised already
    void restore();  ///< does nothing when not raised

private:
    unsigned m_period = 0;  ///< milliseconds asked for; 0 when not raised
};
