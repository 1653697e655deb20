#pragma once

#include "BenchArguments.h"
#include "Timing.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

/// A table of distributions in milliseconds. The aim is for the 95th percentile of the time, and beside it stands that
/// of the processor's part, which other programs do not lengthen by taking turns. The 95th percentile of some bare work
/// that was done between the samples tells how busy the machine was.
class DistributionTable {
public:
    DistributionTable(const char* title, const char* bareWork, const BenchArguments& arguments) : m_arguments(arguments)
    {
        std::printf("\n%-50s %7s %8s %8s %8s %8s %8s %10s  %s\n", title, "samples", "least", "median", "95 %", "99 %",
                    "most", "95 % work", bareWork);
    }

    bool isWanted(const std::string& name) const { return m_arguments.isWanted(name); }
    bool isQuick() const { return m_arguments.quick; }

    /// aim: 0 when there is none. There is at least one sample of either.
    void row(const std::string& name, double aim, const std::vector<Took>& samples, std::vector<double> bare) const
    {
        std::vector<double> times, processor;
        for (const Took& sample : samples) {
            times.push_back(sample.time);
            processor.push_back(sample.processor);
        }
        for (std::vector<double>* all : {&times, &processor, &bare}) {
            std::sort(all->begin(), all->end());
        }
        std::printf("%-50s %7zu %8.3f %8.3f %8.3f %8.3f %8.3f %10.3f  %8.3f %8.3f", name.c_str(), times.size(),
                    times.front(), part(times, 0.5), part(times, 0.95), part(times, 0.99), times.back(),
                    part(processor, 0.95), part(bare, 0.5), part(bare, 0.95));
        if (aim > 0) {
            std::printf("  aim %g: %s", aim, verdict(part(times, 0.95), part(processor, 0.95), aim));
        }
        std::printf("\n");
        std::fflush(stdout);
    }

private:
    static const char* verdict(double time, double processor, double aim)
    {
        return time <= aim ? "reached" : processor <= aim ? "missed, reached when alone" : "MISSED";
    }

    /// The least sample that so large a part of all does not exceed.
    static double part(const std::vector<double>& sorted, double share)
    {
        const auto at = static_cast<std::size_t>(share * static_cast<double>(sorted.size()));
        return sorted[std::min(at, sorted.size() - 1)];
    }

    const BenchArguments m_arguments;
};
