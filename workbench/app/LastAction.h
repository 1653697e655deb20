#pragma once

#include "kernel/Session.h"

#include <string>

namespace app {

/// What the user last did that can be done again: the text of a menu command or the like. The command repeatLast does
/// it again; scripts that act for the user name theirs with its flag -addCommand. Registered for as long as this lives.
class LastAction {
public:
    explicit LastAction(kernel::Session& session);
    ~LastAction();
    LastAction(const LastAction&) = delete;
    LastAction& operator=(const LastAction&) = delete;

    void note(const std::string& text) { m_text = text; }
    const std::string& text() const { return m_text; }  ///< empty when there is nothing to repeat

private:
    kernel::Value command(const kernel::ValueList& args);

    kernel::Session& m_session;
    std::string m_text;
};

}  // namespace app
