#pragma once

#include "kernel/Output.h"

#include <cstdio>

namespace app {

/// Writes the host's messages to a stream in the forms of a program without a window: "Error: ...", "Warning: ...",
/// everything else as it is.
class Console {
public:
    enum class Shown { Everything, Problems };

    Console(kernel::Output& output, std::FILE* stream, Shown shown);
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

private:
    void write(kernel::Severity severity, const std::string& text);

    kernel::Output& m_output;
    std::FILE* m_stream;
    const Shown m_shown;
    int m_listener = 0;
    bool m_atLineStart = true;  ///< printed text need not end its line
};

}  // namespace app
