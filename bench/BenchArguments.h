#pragma once

#include <string>

/// What a benchmark is asked for: --quick takes a few samples only; any other word keeps the rows whose name contains
/// it.
struct BenchArguments {
    BenchArguments(int argc, char** argv)
    {
        for (int i = 1; i < argc; ++i) {
            if (std::string(argv[i]) == "--quick") {
                quick = true;
            } else {
                wanted = argv[i];
            }
        }
    }

    bool isWanted(const std::string& name) const { return name.find(wanted) != std::string::npos; }

    bool quick = false;
    std::string wanted;
};
