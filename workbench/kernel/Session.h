#pragma once

#include "kernel/ChangeListener.h"
#include "kernel/Command.h"
#include "kernel/Events.h"
#include "kernel/IdleQueue.h"
#include "kernel/NodeType.h"
#include "kernel/Output.h"
#include "kernel/Playback.h"
#include "kernel/Scene.h"
#include "kernel/Script.h"
#include "kernel/UndoQueue.h"

#include <map>
#include <memory>
#include <string>

namespace kernel {

/// Everything process-wide about the running host. The host API is global by nature, so there is one current
/// session; tests make a fresh one each.
class Session {
public:
    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// The session made last; there must be one.
    static Session& current();
    static bool exists();

    bool batch = true;
    std::string prefsDir;  ///< with a trailing slash

    ChangeListener* changes = nullptr;  ///< null while nobody listens

    Output output;
    Events events;
    IdleQueue idle;
    CommandRegistry commands;
    NodeTypes nodeTypes;
    DataTypes dataTypes;
    UndoQueue undo;
    Scene scene;
    Playback playback{*this};
    std::map<std::string, Value> optionVars;
    std::string lastAction;  ///< script text of what the user last did that can be done again; empty for nothing
    /// To be called by whoever changed, added or removed one.
    void tellOptionVarChanged(const std::string& name)
    {
        if (changes)
            changes->optionVarChanged(name);
    }

    bool hasScript() const { return m_script != nullptr; }
    void setScript(std::unique_ptr<ScriptEngine> script) { m_script = std::move(script); }
    ScriptEngine& script() { return *m_script; }

private:
    std::unique_ptr<ScriptEngine> m_script;
    Session* m_before;
};

}  // namespace kernel
