#pragma once

#include "BenchArguments.h"
#include "Timing.h"

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

/// Times one thing done plainly and done our way, in turns within one run, so that both meet the same machine, and
/// prints a row for each: medians in milliseconds, the ratio and whether the required one is reached. The ratio is
/// "1/N" where ours has to be so many times as fast, and "x N" where it may take so many times as long.
class PairedTiming {
public:
    /// Does the work once and gives the milliseconds that count; what it prepares besides does not.
    using Side = std::function<double()>;

    PairedTiming(const char* title, const BenchArguments& arguments)
        : m_arguments(arguments), m_samples(arguments.quick ? 3 : 7), m_enough(arguments.quick ? 50 : 300)
    {
        std::printf("\n%-52s %11s %11s %9s %9s\n", title, "plain ms", "ours ms", "ratio", "required");
    }

    /// required: how many times as fast ours has to be; 0 when nothing is required.
    void row(const std::string& name, double required, const Side& plain, const Side& ours) const
    {
        if (m_arguments.isWanted(name)) {
            const Medians medians = measure(plain, ours);
            const double ratio = medians.plain / medians.ours;
            print(name, medians, part(ratio), required > 0 ? part(required) : "", ratio >= required);
        }
    }

    /// allowed: how many times as long as the plain side ours may take.
    void rowWithin(const std::string& name, double allowed, const Side& plain, const Side& ours) const
    {
        if (m_arguments.isWanted(name)) {
            const Medians medians = measure(plain, ours);
            const double ratio = medians.ours / medians.plain;
            print(name, medians, multiple(ratio), multiple(allowed), ratio <= allowed);
        }
    }

private:
    static constexpr double kTurn = 5;  // ms; a short thing is done several times in its turn

    struct Samples {
        std::vector<double> times;
        double spent = 0;  // ms, with what was prepared
    };

    struct Medians {
        double plain;
        double ours;
    };

    Medians measure(const Side& plain, const Side& ours) const
    {
        plain();
        ours();
        Samples plainSamples, ourSamples;
        while (!isEnough(plainSamples) || !isEnough(ourSamples)) {
            takeTurn(plain, plainSamples);
            takeTurn(ours, ourSamples);
        }
        return {medianOf(plainSamples.times), medianOf(ourSamples.times)};
    }

    bool isEnough(const Samples& samples) const
    {
        return samples.times.size() >= m_samples && samples.spent >= m_enough;
    }

    static void takeTurn(const Side& side, Samples& samples)
    {
        const double end = samples.spent + kTurn;
        do {
            samples.spent += millisecondsOf([&] { samples.times.push_back(side()); });
        } while (samples.spent < end);
    }

    static void print(const std::string& name, const Medians& medians, const std::string& ratio,
                      const std::string& required, bool reached)
    {
        std::printf("%-52s %11.4f %11.4f %9s", name.c_str(), medians.plain, medians.ours, ratio.c_str());
        if (!required.empty()) {
            std::printf(" %9s  %s", required.c_str(), reached ? "reached" : "MISSED");
        }
        std::printf("\n");
        std::fflush(stdout);
    }

    static std::string part(double ratio) { return formatted(ratio < 10 ? "1/%.2f" : "1/%.0f", ratio); }
    static std::string multiple(double ratio) { return formatted("x %.2f", ratio); }
    static std::string formatted(const char* format, double ratio)
    {
        char text[32];
        std::snprintf(text, sizeof text, format, ratio);
        return text;
    }

    const BenchArguments m_arguments;
    const std::size_t m_samples;
    const double m_enough;  // ms of one side
};
