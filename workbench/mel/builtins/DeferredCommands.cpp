#include "mel/builtins/Builtin.h"
#include "mel/builtins/Subjects.h"

#include <algorithm>
#include <memory>

namespace mel {

using kernel::CommandError;
using kernel::Value;

namespace {

/// Texts that wait for the host to be idle, as evalDeferred lists them.
class DeferredTexts : public std::enable_shared_from_this<DeferredTexts> {
public:
    explicit DeferredTexts(kernel::Session& session) : m_session(session) {}

    void add(const std::string& text, kernel::IdleQueue::Priority priority)
    {
        const auto pending = std::make_shared<const std::string>(text);
        m_pending.push_back(pending);
        m_session.idle.post(
            [weak = weak_from_this(), pending] {
                if (const auto self = weak.lock())
                    self->run(pending);
            },
            priority, text);
    }

    kernel::StringArray list() const
    {
        kernel::StringArray texts;
        for (const auto& entry : m_pending) {
            if (const auto pending = entry.lock())
                texts.push_back(*pending);
        }
        return texts;
    }

private:
    void run(const std::shared_ptr<const std::string>& pending)
    {
        m_pending.erase(std::remove_if(m_pending.begin(), m_pending.end(),
                                       [&](const auto& entry) { return entry.expired() || entry.lock() == pending; }),
                        m_pending.end());
        m_session.script().execute(*pending, false, true);
    }

    kernel::Session& m_session;
    std::vector<std::weak_ptr<const std::string>> m_pending;  // expired: taken back before they ran
};

kernel::IdleQueue::Priority priority(const kernel::ParsedArgs& args)
{
    using Priority = kernel::IdleQueue::Priority;
    return args.has("evaluateNext")   ? Priority::First
         : args.has("lowestPriority") ? Priority::Lowest
         : args.has("lowPriority")    ? Priority::Low
                                      : Priority::Usual;
}

Value runEvalDeferred(BuiltinCall& call, DeferredTexts& texts)
{
    if (call.args.has("list"))
        return texts.list();
    std::string text;
    for (const std::string& part : call.objectNames())
        text += (text.empty() ? "" : " ") + part;
    if (text.empty())
        throw CommandError("No object was specified");
    texts.add(text, priority(call.args));
    return {};
}

}  // namespace

void addDeferredCommands(kernel::Session& session)
{
    const auto texts = std::make_shared<DeferredTexts>(session);
    addBuiltin(session, "evalDeferred",
               makeSyntax({{"lowPriority", "low"}, {"lowestPriority", "lp"}, {"evaluateNext", "en"}, {"list", "ls"}}),
               [texts](BuiltinCall& call) { return runEvalDeferred(call, *texts); });
}

}  // namespace mel
