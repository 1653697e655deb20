#include "kernel/Command.h"

#include "kernel/Session.h"

namespace kernel {

namespace {

class FunctionCommand : public Command {
public:
    explicit FunctionCommand(std::function<Value(const ValueList&)> run) : m_run(std::move(run)) {}
    Value run(const ValueList& args) override { return m_run(args); }

private:
    const std::function<Value(const ValueList&)> m_run;
};

}  // namespace

bool CommandRegistry::add(const std::string& name, CommandFactory make, const std::string& plugin)
{
    return !name.empty() && m_entries.emplace(name, CommandEntry{std::move(make), plugin}).second;
}

bool CommandRegistry::add(const std::string& name, std::function<Value(const ValueList&)> run)
{
    return add(name, CommandFactory([run] { return std::make_unique<FunctionCommand>(run); }));
}

bool CommandRegistry::remove(const std::string& name)
{
    return m_entries.erase(name) != 0;
}

const CommandEntry* CommandRegistry::find(const std::string& name) const
{
    const auto it = m_entries.find(name);
    return it == m_entries.end() ? nullptr : &it->second;
}

std::vector<std::string> CommandRegistry::names() const
{
    std::vector<std::string> names;
    for (const auto& entry : m_entries)
        names.push_back(entry.first);
    return names;
}

Value runCommand(Session& session, const std::string& name, const ValueList& args)
{
    const CommandEntry* entry = session.commands.find(name);
    if (!entry)
        throw CommandError("Cannot find procedure \"" + name + "\".");
    const std::string plugin = entry->plugin;  // the entry may be gone once the command has run
    std::unique_ptr<Command> command = entry->make();
    Value result = command->run(args);
    if (command->isUndoable()) {
        session.undo.tagNextRecord(plugin);
        session.undo.record(std::move(command));
    }
    return result;
}

}  // namespace kernel
