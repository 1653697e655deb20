#pragma once

#include "kernel/Edits.h"
#include "kernel/Session.h"
#include "kernel/Syntax.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

namespace mel {

/// One flag of a built-in command. args: a letter per value, b (bool) i (int) f (float) s (string) t (time).
struct FlagRow {
    const char* longName;
    const char* shortName;
    const char* args = "";
    bool multiUse = false;
};

enum class Modes { Create, Query, Edit, QueryAndEdit };

/// objects: how many may follow the flags.
kernel::Syntax makeSyntax(const std::vector<FlagRow>& flags, Modes modes = Modes::Create, unsigned minObjects = 0,
                          unsigned maxObjects = kernel::Syntax::kNoMaximum);

/// What one run of a built-in command works with.
class BuiltinCall {
public:
    BuiltinCall(kernel::Session& session, const kernel::ParsedArgs& args, const kernel::ValueList& all,
                kernel::EditList& edits)
        : session(session), scene(session.scene), args(args), all(all), m_edits(edits)
    {}

    kernel::Session& session;
    kernel::Scene& scene;
    const kernel::ParsedArgs& args;
    const kernel::ValueList& all;  ///< the argument list as it came

    /// Does the edit and keeps it for undo; edits done before are taken back when a later one is refused.
    void apply(kernel::EditPtr edit);
    kernel::EditList& edits() { return m_edits; }

    std::vector<std::string> objectNames() const;
    /// Nodes of the given names and patterns, or the selection when there are none. Throws for a name without a node.
    std::vector<kernel::NodePtr> nodesOrSelection() const;
    /// A time given as text or number, in the current unit when it names none.
    kernel::Time time(const kernel::Value& value) const;

private:
    kernel::EditList& m_edits;
};

using BuiltinFunction = std::function<kernel::Value(BuiltinCall& call)>;

/// Registers a command made of one function. It is undoable when the function applied an edit.
void addBuiltin(kernel::Session& session, const char* name, kernel::Syntax syntax, BuiltinFunction run);
/// A command that sorts its arguments itself; `args` of the call is empty.
void addRawBuiltin(kernel::Session& session, const char* name, BuiltinFunction run);

/// Nodes of a name or pattern; throws when there is none, or when a plain name fits several.
std::vector<kernel::NodePtr> nodesOf(const kernel::Scene& scene, const std::string& name);

/// An edit of two functions, for state of the scene that has no edit of its own.
kernel::EditPtr functionEdit(std::function<void(kernel::Scene&)> redo, std::function<void(kernel::Scene&)> undo);

}  // namespace mel
