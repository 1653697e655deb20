#include "mel/builtins/Builtin.h"

#include <memory>
#include <utility>

namespace mel {

using kernel::CommandError;
using kernel::NodePtr;
using kernel::Value;

namespace {

kernel::ArgType argType(char letter)
{
    switch (letter) {
    case 'b': return kernel::ArgType::Bool;
    case 'i': return kernel::ArgType::Int;
    case 'f': return kernel::ArgType::Double;
    case 't': return kernel::ArgType::Time;
    default: return kernel::ArgType::String;
    }
}

class BuiltinCommand : public kernel::Command {
public:
    /// syntax: null for a command that sorts its arguments itself.
    BuiltinCommand(kernel::Session& session, std::shared_ptr<const kernel::Syntax> syntax, BuiltinFunction run)
        : m_session(session), m_syntax(std::move(syntax)), m_run(std::move(run))
    {}

    Value run(const kernel::ValueList& args) override
    {
        const kernel::ParsedArgs parsed = m_syntax ? kernel::parsedOrThrow(*m_syntax, args) : kernel::ParsedArgs();
        BuiltinCall call(m_session, parsed, args, m_edits);
        try {
            return m_run(call);
        } catch (...) {
            m_edits.undo(m_session.scene);
            throw;
        }
    }

    bool isUndoable() const override { return !m_edits.isEmpty(); }

    bool undo() override
    {
        m_edits.undo(m_session.scene);
        return true;
    }

    bool redo() override
    {
        m_edits.redo(m_session.scene);
        return true;
    }

private:
    kernel::Session& m_session;
    const std::shared_ptr<const kernel::Syntax> m_syntax;
    const BuiltinFunction m_run;
    kernel::EditList m_edits;
};

class FunctionEdit : public kernel::Edit {
public:
    using Function = std::function<void(kernel::Scene&)>;
    FunctionEdit(Function redo, Function undo) : m_redo(std::move(redo)), m_undo(std::move(undo)) {}
    void redo(kernel::Scene& scene) override { m_redo(scene); }
    void undo(kernel::Scene& scene) override { m_undo(scene); }

private:
    const Function m_redo;
    const Function m_undo;
};

}  // namespace

kernel::Syntax makeSyntax(const std::vector<FlagRow>& flags, Modes modes, unsigned minObjects, unsigned maxObjects)
{
    kernel::Syntax syntax;
    for (const FlagRow& row : flags) {
        std::vector<kernel::ArgType> args;
        for (const char* letter = row.args; *letter; ++letter)
            args.push_back(argType(*letter));
        syntax.addFlag(row.shortName, row.longName, std::move(args));
        if (row.multiUse)
            syntax.makeMultiUse(row.longName);
    }
    syntax.enableQuery(modes == Modes::Query || modes == Modes::QueryAndEdit);
    syntax.enableEdit(modes == Modes::Edit || modes == Modes::QueryAndEdit);
    if (maxObjects > 0)
        syntax.setObjects(kernel::Syntax::Objects::Strings, minObjects, maxObjects);
    return syntax;
}

void BuiltinCall::apply(kernel::EditPtr edit)
{
    edit->redo(scene);
    m_edits.add(std::move(edit));
}

std::vector<std::string> BuiltinCall::objectNames() const
{
    std::vector<std::string> names;
    for (const Value& object : args.objects)
        names.push_back(kernel::toText(object));
    return names;
}

std::vector<NodePtr> BuiltinCall::nodesOrSelection() const
{
    if (args.objects.empty())
        return scene.selection();
    std::vector<NodePtr> nodes;
    for (const std::string& name : objectNames()) {
        const std::vector<NodePtr> found = nodesOf(scene, name);
        nodes.insert(nodes.end(), found.begin(), found.end());
    }
    return nodes;
}

kernel::Time BuiltinCall::time(const Value& value) const
{
    kernel::Time time;
    if (std::holds_alternative<int>(value) || std::holds_alternative<double>(value)) {
        time.unit = scene.timeUnit();
        kernel::toDouble(value, time.value);
    } else if (!kernel::parseTime(kernel::toText(value), scene.timeUnit(), time)) {
        throw CommandError("Invalid time: " + kernel::toText(value));
    }
    return time;
}

void addBuiltin(kernel::Session& session, const char* name, kernel::Syntax syntax, BuiltinFunction run)
{
    const auto shared = std::make_shared<const kernel::Syntax>(std::move(syntax));
    session.commands.add(name, kernel::CommandFactory([&session, shared, run] {
                             return std::make_unique<BuiltinCommand>(session, shared, run);
                         }));
}

void addRawBuiltin(kernel::Session& session, const char* name, BuiltinFunction run)
{
    session.commands.add(name, kernel::CommandFactory([&session, run] {
                             return std::make_unique<BuiltinCommand>(session, nullptr, run);
                         }));
}

std::vector<NodePtr> nodesOf(const kernel::Scene& scene, const std::string& name)
{
    if (name.find_first_of("*?") == std::string::npos)
        return {scene.findOne(name)};
    std::vector<NodePtr> nodes = scene.find(name);
    if (nodes.empty())
        throw CommandError("No object matches name: " + name);
    return nodes;
}

kernel::EditPtr functionEdit(std::function<void(kernel::Scene&)> redo, std::function<void(kernel::Scene&)> undo)
{
    return std::make_unique<FunctionEdit>(std::move(redo), std::move(undo));
}

}  // namespace mel
