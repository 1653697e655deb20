#include "app/TimeScale.h"

#include <algorithm>
#include <cmath>

namespace app {

namespace {

constexpr double kFarthest = 1e9;  // a frame that can be pointed at
constexpr int kWidestInterval = 500000000;

}  // namespace

int TimeScale::frameAt(double x) const
{
    const auto reachable = [](double frame) { return std::min(std::max(frame, -kFarthest), kFarthest); };
    const double first = reachable(std::ceil(range.first));
    const double last = std::max(first, reachable(std::floor(range.last)));
    const double frame = std::floor(range.first + (x - 0.005 * width) / cell());
    return int(std::min(std::max(frame, first), last));
}

int TimeScale::interval(double leastGap) const
{
    int interval = 1;
    for (int turn = 0; interval * cell() < leastGap && interval < kWidestInterval; ++turn) {
        interval = turn % 3 == 1 ? interval / 2 * 5 : interval * 2;
    }
    return interval;
}

}  // namespace app
