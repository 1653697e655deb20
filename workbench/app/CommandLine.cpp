#include "app/CommandLine.h"

#include <functional>

namespace app {

namespace {

struct Option {
    const char* name;
    const char* argument;  ///< what follows it; null for nothing
    const char* help;
    void (*apply)(CommandLine&, const std::string&);
};

const Option kOptions[] = {
    {"-batch", nullptr, "no window; messages and results go to standard output",
     [](CommandLine& line, const std::string&) { line.batch = true; }},
    {"-file", "SCENE", "open a scene",
     [](CommandLine& line, const std::string& value) {
         if (!line.file.empty()) {
             line.error = "-file can be given only once";
         }
         line.file = value;
     }},
    {"-script", "FILE", "run a script file (may be repeated)",
     [](CommandLine& line, const std::string& value) {
         line.steps.push_back({CommandLine::Step::Kind::Script, value});
     }},
    {"-command", "TEXT", "run script text (may be repeated)",
     [](CommandLine& line, const std::string& value) {
         line.steps.push_back({CommandLine::Step::Kind::Command, value});
     }},
    {"-noPlugin", nullptr, "do not load the sketching module",
     [](CommandLine& line, const std::string&) { line.loadPlugin = false; }},
    {"-prefs", "DIR", "keep preferences in this folder",
     [](CommandLine& line, const std::string& value) { line.prefsDir = value; }},
    {"-help", nullptr, "show this text", [](CommandLine& line, const std::string&) { line.showHelp = true; }},
    {"-version", nullptr, "show the version", [](CommandLine& line, const std::string&) { line.showVersion = true; }},
};

const Option* findOption(const std::string& word)
{
    // Two dashes are a habit from other programs.
    const std::string name = word.compare(0, 2, "--") == 0 ? word.substr(1) : word;
    for (const Option& option : kOptions) {
        if (name == option.name) {
            return &option;
        }
    }
    return nullptr;
}

}  // namespace

CommandLine parseCommandLine(const std::vector<std::string>& arguments)
{
    CommandLine line;
    for (std::size_t i = 0; i < arguments.size() && line.error.empty(); ++i) {
        const Option* const option = findOption(arguments[i]);
        if (!option) {
            line.error = "unknown option \"" + arguments[i] + "\"";
        } else if (!option->argument) {
            option->apply(line, {});
        } else if (i + 1 == arguments.size() || arguments[i + 1].empty()) {
            line.error = std::string(option->name) + " needs " + option->argument;
        } else {
            option->apply(line, arguments[++i]);
        }
    }
    return line;
}

std::string usageText()
{
    std::string call = "usage: lumisketch-workbench";
    std::string help;
    for (const Option& option : kOptions) {
        const std::string form = std::string(option.name) + (option.argument ? " " + std::string(option.argument) : "");
        call += " [" + form + "]";
        help += "  " + form + std::string(form.size() < 16 ? 16 - form.size() : 1, ' ') + option.help + "\n";
    }
    return call + "\n\n" + help
         + "\nThe scene is opened first; scripts and commands follow in the order given. With -batch a failure ends "
           "the\n"
           "run with exit status 1.\n";
}

}  // namespace app
