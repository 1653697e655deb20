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
        const unsigned number = m_nextNumber++;
        m_pending.push_back({number, text});
        m_session.idle.post(
            [weak = weak_from_this(), number] {
                if (const auto self = weak.lock())
                    self->run(number);
            },
            priority);
    }

    kernel::StringArray list() const
    {
        kernel::StringArray texts;
        for (const Text& pending : m_pending)
            texts.push_back(pending.text);
        return texts;
    }

private:
    struct Text {
        unsigned number;
        std::string text;
    };

    void run(unsigned number)
    {
        const auto found = std::find_if(m_pending.begin(), m_pending.end(),
                                        [&](const Text& pending) { return pending.number == number; });
        const std::string text = found->text;
        m_pending.erase(found);
        m_session.script().execute(text, false, true);
    }

    kernel::Session& m_session;
    std::vector<Text> m_pending;
    unsigned m_nextNumber = 0;
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
