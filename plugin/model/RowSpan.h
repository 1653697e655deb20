#pragma once

#include <algorithm>

/// Rows of a canvas, half open.
struct RowSpan {
    int first;
    int end;

    bool isEmpty() const { return first >= end; }
    int length() const { return end - first; }
};

inline RowSpan operator&(const RowSpan& a, const RowSpan& b)
{
    return {std::max(a.first, b.first), std::min(a.end, b.end)};
}

/// From the first row of either to the last.
inline RowSpan operator|(const RowSpan& a, const RowSpan& b)
{
    if (a.isEmpty() || b.isEmpty()) {
        return a.isEmpty() ? b : a;
    }
    return {std::min(a.first, b.first), std::max(a.end, b.end)};
}
