#include "settings/Rounding.h"

#include <algorithm>
#include <cmath>
#include <limits>

int truncated(double value)
{
    if (std::isnan(value)) {
        return 0;
    }
    const double smallest = std::numeric_limits<int>::min();
    const double largest = std::numeric_limits<int>::max();
    return static_cast<int>(std::max(smallest, std::min(largest, value)));
}

// Adding a half first would lift the number just below a half to 1.
int roundedHalfUp(double value)
{
    const double below = std::floor(value);
    return truncated(value - below < 0.5 ? below : below + 1.0);
}

QPoint roundedHalfUp(const QPointF& place)
{
    return QPoint(roundedHalfUp(place.x()), roundedHalfUp(place.y()));
}

int roundedHalfAwayFromZero(double value)
{
    return truncated(std::round(value));
}
