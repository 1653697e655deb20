#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

/// The shortest session found that still fails: no single line of it can be left out. Tries without ever smaller parts
/// of it, after "Simplifying and Isolating Failure-Inducing Input" by Zeller and Hildebrandt.
/// fails: whether a session does; it does for the one given.
inline std::vector<std::string> shortestFailing(std::vector<std::string> lines,
                                                const std::function<bool(const std::vector<std::string>&)>& fails)
{
    for (size_t part = lines.size(); part > 0;) {
        bool isShorter = false;
        for (size_t first = 0; first < lines.size();) {
            std::vector<std::string> without(lines.begin(), lines.begin() + static_cast<long>(first));
            const size_t end = std::min(first + part, lines.size());
            without.insert(without.end(), lines.begin() + static_cast<long>(end), lines.end());
            if (fails(without)) {
                lines = without;
                isShorter = true;
            } else {
                first = end;
            }
        }
        part = isShorter && part == 1 ? 1 : part / 2;
    }
    return lines;
}
