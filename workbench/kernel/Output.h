#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kernel {

enum class Severity { Plain, Echo, Result, Info, Warning, Error };

/// Everything the host says to its user. Listeners (message line, script editor, standard output) decide on the
/// decoration; texts arrive bare.
class Output {
public:
    using Listener = std::function<void(Severity, const std::string&)>;

    int addListener(Listener listener);
    void removeListener(int id);

    void say(Severity severity, const std::string& text);
    void info(const std::string& text) { say(Severity::Info, text); }
    void warning(const std::string& text) { say(Severity::Warning, text); }
    void error(const std::string& text) { say(Severity::Error, text); }

    /// While a Mute lives, warnings and errors reach nobody (catchQuiet).
    class Mute {
    public:
        explicit Mute(Output& output);
        ~Mute();
        Mute(const Mute&) = delete;
        Mute& operator=(const Mute&) = delete;

    private:
        Output& m_output;
    };

private:
    struct Entry {
        int id;
        Listener listener;
    };
    std::vector<Entry> m_listeners;
    int m_nextId = 1;
    int m_muted = 0;
};

}  // namespace kernel
