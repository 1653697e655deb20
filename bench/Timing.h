#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

/// The milliseconds that the work takes.
template <class Work>
double millisecondsOf(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// The greater of the middle two where there are two; there is at least one.
inline double medianOf(std::vector<double> samples)
{
    const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
    std::nth_element(samples.begin(), middle, samples.end());
    return *middle;
}
