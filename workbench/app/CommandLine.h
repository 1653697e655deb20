#pragma once

#include <string>
#include <vector>

namespace app {

/// What the program was started with.
struct CommandLine {
    struct Step {
        enum class Kind { Script, Command } kind;
        std::string text;  ///< path of the script, or the command's text
    };

    bool batch = false;
    bool loadPlugin = true;
    bool showHelp = false;
    bool showVersion = false;
    std::string file;         ///< scene to open first; empty for none
    std::string prefsDir;     ///< empty for the usual place
    std::vector<Step> steps;  ///< in the order given
    std::string error;        ///< why the arguments make no sense; empty when they do
};

/// arguments: without the program's name.
CommandLine parseCommandLine(const std::vector<std::string>& arguments);
/// How to call the program, ending in a line end.
std::string usageText();

}  // namespace app
