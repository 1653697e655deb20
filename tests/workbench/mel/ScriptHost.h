#pragma once

#include "kernel/Session.h"
#include "mel/Builtins.h"
#include "mel/Interpreter.h"

#include <string>
#include <vector>

/// A session with the script language, and everything it says.
struct ScriptHost {
    ScriptHost()
    {
        mel::installScriptLanguage(session);
        session.output.addListener([this](kernel::Severity severity, const std::string& text) {
            switch (severity) {
            case kernel::Severity::Plain: printed += text; break;
            case kernel::Severity::Error: errors.push_back(text); break;
            case kernel::Severity::Warning: warnings.push_back(text); break;
            case kernel::Severity::Info: infos.push_back(text); break;
            case kernel::Severity::Echo: echoes.push_back(text); break;
            case kernel::Severity::Result: results.push_back(text); break;
            }
        });
    }

    /// Runs the text as one undo step.
    bool run(const std::string& text)
    {
        const kernel::ScriptResult result = session.script().execute(text, false, true);
        value = result.value;
        return result.ok;
    }

    /// The value of a text as text; "<error>" when it failed.
    std::string eval(const std::string& text) { return run(text) ? kernel::toText(value) : "<error>"; }

    /// What a text printed.
    std::string output(const std::string& text)
    {
        printed.clear();
        run(text);
        return printed;
    }

    /// The last error a text gave; empty when there was none.
    std::string error(const std::string& text)
    {
        errors.clear();
        run(text);
        return errors.empty() ? std::string() : errors.back();
    }

    mel::Interpreter& interpreter() { return mel::Interpreter::of(session); }

    kernel::Session session;
    kernel::Value value;
    std::string printed;
    std::vector<std::string> errors, warnings, infos, echoes, results;
};
