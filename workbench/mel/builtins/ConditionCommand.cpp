#include "mel/builtins/Builtin.h"
#include "mel/builtins/Subjects.h"

#include <map>
#include <memory>

namespace mel {

using kernel::CommandError;
using kernel::Value;

namespace {

/// Conditions that scripts add to the host's own. The script of one says whether it holds; it is asked again, when the
/// host is idle, after any of the events and conditions it depends on.
class ScriptConditions : public std::enable_shared_from_this<ScriptConditions> {
public:
    explicit ScriptConditions(kernel::Session& session) : m_session(session) {}

    void add(const std::string& name, const std::string& script, const std::vector<std::string>& dependencies)
    {
        if (m_session.events.isCondition(name))
            throw CommandError("Object's name '" + name + "' is not unique.");
        for (const std::string& dependency : dependencies) {
            if (!m_session.events.isEvent(dependency) && !m_session.events.isCondition(dependency))
                throw CommandError("condition: Unknown event or condition: " + dependency);
        }
        m_session.events.setCondition(name, false);
        Condition condition{script, {}, {}, false};
        for (const std::string& dependency : dependencies) {
            if (m_session.events.isEvent(dependency))
                condition.events.push_back(m_session.events.add(dependency, [=] { askWhenIdle(name); }));
            else
                condition.watches.push_back(m_session.events.watch(dependency, [=](bool) { askWhenIdle(name); }));
        }
        m_conditions.emplace(name, std::move(condition));
    }

    void requireOwn(const std::string& name) const
    {
        if (!m_conditions.count(name))
            throw CommandError(m_session.events.isCondition(name)
                                   ? "condition: '" + name + "' is the host's own and cannot be changed."
                                   : "condition: Unknown condition: " + name);
    }

    void remove(const std::string& name)
    {
        requireOwn(name);
        const Condition& condition = m_conditions.at(name);
        for (const unsigned id : condition.events)
            m_session.events.remove(id);
        for (const unsigned id : condition.watches)
            m_session.events.unwatch(id);
        m_conditions.erase(name);
        m_session.events.removeCondition(name);
    }

    /// Runs the script, if there is one, and believes it.
    void ask(const std::string& name)
    {
        const auto found = m_conditions.find(name);
        if (found == m_conditions.end())
            return;
        found->second.isDue = false;
        if (found->second.script.empty())
            return;
        const std::string script = found->second.script;
        const kernel::ScriptResult answer = m_session.script().execute(script, false, false);
        bool state = false;
        if (answer.ok && kernel::toBool(answer.value, state) && m_conditions.count(name))
            m_session.events.setCondition(name, state);
    }

private:
    struct Condition {
        std::string script;
        std::vector<unsigned> events;
        std::vector<unsigned> watches;
        bool isDue;
    };

    void askWhenIdle(const std::string& name)
    {
        if (std::exchange(m_conditions.at(name).isDue, true))
            return;
        m_session.idle.post([weak = weak_from_this(), name] {
            if (const auto self = weak.lock())
                self->ask(name);
        });
    }

    kernel::Session& m_session;
    std::map<std::string, Condition> m_conditions;
};

std::vector<std::string> dependencies(const kernel::ParsedArgs& args)
{
    std::vector<std::string> names;
    for (unsigned i = 0; i < args.useCount("dependency"); ++i)
        names.push_back(kernel::toText(args.values("dependency", i)->front()));
    return names;
}

Value runCondition(BuiltinCall& call, ScriptConditions& conditions)
{
    kernel::Events& events = call.session.events;
    const std::string name = call.objectNames().front();
    if (call.args.query) {
        if (!events.isCondition(name))
            throw CommandError("condition: Unknown condition: " + name);
        return int(events.condition(name));
    }
    if (call.args.has("delete")) {
        conditions.remove(name);
        return {};
    }
    if (call.args.edit)
        conditions.requireOwn(name);
    else
        conditions.add(name, call.args.text("script"), dependencies(call.args));
    if (call.args.has("initialize"))
        conditions.ask(name);
    if (call.args.has("state"))
        events.setCondition(name, call.args.integer("state") != 0);
    return name;
}

Value runIsTrue(BuiltinCall& call)
{
    const std::string name = call.objectNames().front();
    if (!call.session.events.isCondition(name))
        throw CommandError("isTrue: Unknown condition: " + name);
    return int(call.session.events.condition(name));
}

}  // namespace

void addConditionCommands(kernel::Session& session)
{
    const auto conditions = std::make_shared<ScriptConditions>(session);
    addBuiltin(session, "condition",
               makeSyntax({{"initialize", "i"},
                           {"script", "s", "s"},
                           {"dependency", "d", "s", true},
                           {"state", "st", "b"},
                           {"delete", "del"}},
                          Modes::QueryAndEdit, 1, 1),
               [conditions](BuiltinCall& call) { return runCondition(call, *conditions); });
    addBuiltin(session, "isTrue", makeSyntax({}, Modes::Create, 1, 1), runIsTrue);
}

}  // namespace mel
