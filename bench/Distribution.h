#pragma once

#include "BenchArguments.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

/// A table of distributions in milliseconds. The aim is for the 95th percentile. Beside each stands some bare work that
/// was done between the samples, which tells how busy the machine was.
class DistributionTable {
public:
    DistributionTable(const char* title, const char* bareWork, const BenchArguments& arguments) : m_arguments(arguments)
    {
        std::printf("\n%-52s %7s %8s %8s %8s %8s %8s   %s\n", title, "samples", "least", "median", "95 %", "99 %",
                    "most", (std::string(bareWork) + ": median, 95 %").c_str());
    }

    bool isWanted(const std::string& name) const { return m_arguments.isWanted(name); }
    bool isQuick() const { return m_arguments.quick; }

    /// aim: 0 when there is none. There is at least one sample of either.
    void row(const std::string& name, double aim, std::vector<double> samples, std::vector<double> bare) const
    {
        std::sort(samples.begin(), samples.end());
        std::sort(bare.begin(), bare.end());
        std::printf("%-52s %7zu %8.3f %8.3f %8.3f %8.3f %8.3f   %8.3f %8.3f", name.c_str(), samples.size(),
                    samples.front(), part(samples, 0.5), part(samples, 0.95), part(samples, 0.99), samples.back(),
                    part(bare, 0.5), part(bare, 0.95));
        if (aim > 0) {
            std::printf("  aim %g  %s", aim, part(samples, 0.95) <= aim ? "reached" : "MISSED");
        }
        std::printf("\n");
        std::fflush(stdout);
    }

private:
    /// The least sample that so large a part of all does not exceed.
    static double part(const std::vector<double>& sorted, double share)
    {
        const auto at = static_cast<std::size_t>(share * static_cast<double>(sorted.size()));
        return sorted[std::min(at, sorted.size() - 1)];
    }

    const BenchArguments m_arguments;
};
