#include "commands/Retiming.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <vector>

namespace {

/// The first number above a limit; the end of the list when there is none.
QList<int>::const_iterator firstAbove(const QList<int>& numbers, int limit)
{
    return std::upper_bound(numbers.begin(), numbers.end(), limit);
}

}  // namespace

bool isFrameNumber(qint64 number)
{
    return number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
}

FrameSpan snappedSpan(const QList<int>& numbers, const FrameSpan& span)
{
    FrameSpan snapped = span;
    const auto above = firstAbove(numbers, span.first);
    if (above != numbers.begin()) {
        snapped.first = *(above - 1);
    }
    const auto end = std::lower_bound(numbers.begin(), numbers.end(), span.end);
    if (end != numbers.end()) {
        snapped.end = *end;
    }
    return snapped;
}

QList<int> retimedNumbers(const QList<int>& numbers, const FrameSpan& span, const Retiming& retiming)
{
    QList<int> result;
    qint64 shift = 0;
    qint64 previous = 0;
    for (int i = 0; i < numbers.size(); ++i) {
        const qint64 old = numbers[i];
        if (i > 0) {
            shift = std::max(shift, previous + 1 - old);
        }
        previous = old + shift;
        if (!isFrameNumber(previous)) {
            return QList<int>();
        }
        result.append(static_cast<int>(previous));
        const bool isStretched = old >= span.first && old < span.end && i + 1 < numbers.size();
        if (isStretched) {
            shift += retiming.relative ? retiming.value : retiming.value - (numbers[i + 1] - old);
        }
    }
    return result;
}

int landingIndex(const QList<int>& numbers, const FrameSpan& span, bool moveToNext)
{
    const int last = numbers.size() - 1;
    const int above = static_cast<int>(firstAbove(numbers, span.first) - numbers.begin());
    return moveToNext ? std::min(above, last) : std::max(above - 1, 0);
}

QList<int> numbersToMove(const QList<int>& numbers, int first, int last)
{
    QList<int> moving;
    const auto end = firstAbove(numbers, last);
    for (auto number = std::lower_bound(numbers.begin(), numbers.end(), first); number < end; ++number) {
        if (moving.isEmpty() || moving.last() != *number) {
            moving.append(*number);
        }
    }
    return moving;
}

MoveObstacle obstacleToMove(const QList<int>& numbers, const QList<int>& moving, int offset, qint64& at)
{
    std::vector<int> staying;
    std::set_difference(numbers.begin(), numbers.end(), moving.begin(), moving.end(), std::back_inserter(staying));
    for (int i = 0; i < moving.size(); ++i) {
        at = qint64(moving[offset > 0 ? moving.size() - 1 - i : i]) + offset;
        if (!isFrameNumber(at)) {
            return MoveObstacle::Range;
        }
        if (std::binary_search(staying.begin(), staying.end(), static_cast<int>(at))) {
            return MoveObstacle::Frame;
        }
    }
    return MoveObstacle::None;
}
