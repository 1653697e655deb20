#pragma once

namespace kernel {

/// Tells how many frames are due at a moment of playback. Moments and durations are milliseconds since its start; the
/// duration of a frame may change from one call to the next, and counts from the frame shown.
class FrameClock {
public:
    static constexpr double kLongestDelay = 2000;  ///< playback that hung for longer goes on from where it was
    enum class Late { Drop, ShowAll };

    /// The first frame is shown now, at 0.
    void start() { m_shownAt = 0; }
    /// When the frame after the one shown is due.
    double nextDue(double duration) const { return m_shownAt + duration; }
    /// How many frames to go on: 0 while the next one is not due. Late frames are dropped, so that the rest keeps to
    /// the clock, or all shown, one by one, without hurrying to make up for it.
    int framesDue(double now, double duration, Late late);

private:
    double m_shownAt = 0;  ///< when the frame shown was due
};

}  // namespace kernel
