#pragma once

#include <deque>

namespace app {

/// How many frames a second were really shown, over the last second.
class RateMeter {
public:
    /// clock: milliseconds, never less than before.
    void addFrame(double clock);
    void clear() { m_shown.clear(); }
    /// Frames a second; 0 while there are too few to tell.
    double rate() const;

private:
    std::deque<double> m_shown;  ///< when each was
};

}  // namespace app
