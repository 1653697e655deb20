#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

#include <time.h>

/// The milliseconds that the work takes.
template <class Work>
double millisecondsOf(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// What some work took, in milliseconds.
struct Took {
    double time;
    double
        processor;  ///< of that, how long this thread was at work; the rest it waited, on a busy machine for its turn
};

template <class Work>
Took tookOf(Work work)
{
    const auto used = [] {
        timespec clock;
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &clock);
        return 1e3 * double(clock.tv_sec) + 1e-6 * double(clock.tv_nsec);
    };
    const double before = used();
    const double time = millisecondsOf(work);
    return {time, used() - before};
}

/// The greater of the middle two where there are two; there is at least one.
inline double medianOf(std::vector<double> samples)
{
    const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
    std::nth_element(samples.begin(), middle, samples.end());
    return *middle;
}
