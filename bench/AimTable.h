#pragma once

#include "BenchArguments.h"
#include "Timing.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

/// A table of medians in milliseconds, each beside its aim. Where the host's share was measured as well, ours is what
/// is left without it, and the aim is for ours. The best of all samples tells what a busy machine adds.
class AimTable {
public:
    AimTable(const char* title, const BenchArguments& arguments) : m_arguments(arguments)
    {
        std::printf("\n%-58s %9s %9s %9s %9s %8s %7s\n", title, "best ms", "whole ms", "host ms", "ours ms", "ratio",
                    "aim ms");
    }

    bool isWanted(const std::string& name) const { return m_arguments.isWanted(name); }
    bool isQuick() const { return m_arguments.quick; }

    void row(const std::string& name, double aim, const std::vector<double>& whole) const
    {
        if (isWanted(name)) {
            const double median = medianOf(whole);
            std::printf("%-58s %9.3f %9.3f %9s %9.3f %8s", name.c_str(), best(whole), median, "", median, "");
            finish(median, aim);
        }
    }

    void row(const std::string& name, double aim, const std::vector<double>& whole,
             const std::vector<double>& host) const
    {
        if (isWanted(name)) {
            const double median = medianOf(whole);
            const double share = medianOf(host);
            std::printf("%-58s %9.3f %9.3f %9.3f %9.3f  x %5.2f", name.c_str(), best(whole), median, share,
                        median - share, median / share);
            finish(median - share, aim);
        }
    }

private:
    static double best(const std::vector<double>& samples) { return *std::min_element(samples.begin(), samples.end()); }

    static void finish(double ours, double aim)
    {
        std::printf(" %7.0f  %s\n", aim, ours <= aim ? "reached" : "MISSED");
        std::fflush(stdout);
    }

    const BenchArguments m_arguments;
};
