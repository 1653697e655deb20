#pragma once

#include "kernel/Value.h"

#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace kernel {

/// Aborts the running script. An empty message means the failure has already been reported.
class CommandError : public std::runtime_error {
public:
    explicit CommandError(const std::string& message) : std::runtime_error(message) {}
};

/// One invocation of a command: run once, then kept by the undo queue when it is undoable after that.
class Command {
public:
    virtual ~Command() = default;
    /// Throws CommandError on failure; a failed command is dropped.
    virtual Value run(const ValueList& args) = 0;
    virtual bool isUndoable() const { return false; }
    /// False when the step could not be taken; the queue then drops it.
    virtual bool undo() { return false; }
    virtual bool redo() { return false; }
};

using CommandFactory = std::function<std::unique_ptr<Command>()>;

struct CommandEntry {
    CommandFactory make;
    std::string plugin;  ///< name of the module that registered it; empty for the host's own
};

class CommandRegistry {
public:
    /// False when the name is taken.
    bool add(const std::string& name, CommandFactory make, const std::string& plugin = {});
    /// A command that is one function and never undoable.
    bool add(const std::string& name, std::function<Value(const ValueList&)> run);
    bool remove(const std::string& name);
    const CommandEntry* find(const std::string& name) const;
    std::vector<std::string> names() const;

private:
    std::map<std::string, CommandEntry> m_entries;
};

class Session;
/// Makes, runs and (when it is undoable and undo is on) records one command. Throws CommandError
/// (`Cannot find procedure "name".` for an unknown one).
Value runCommand(Session& session, const std::string& name, const ValueList& args);

}  // namespace kernel
