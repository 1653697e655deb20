#pragma once

#include "kernel/Session.h"

#include <memory>
#include <string>

namespace app {

struct HostOptions {
    bool batch = true;
    std::string prefsDir;  ///< empty: $HOME/.config/lumisketch-workbench/prefs; made when missing
};

/// The whole host in one object: session, script language, host API. The window, when there is one, stands on top.
/// One lives at a time; tests make one each.
class Host {
public:
    explicit Host(const HostOptions& options);
    ~Host();  ///< raises quitApplication, then unloads modules
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    kernel::Session& session() { return *m_session; }
    /// Runs a text at the global scope as one undo step, then what is due at idle. False when it failed.
    bool run(const std::string& text);
    kernel::Value evaluate(const std::string& text);  ///< the same; monostate when it failed
    /// Loads a module by path or name; false (reported) when that fails.
    bool loadModule(const std::string& pathOrName);
    void drainIdle() { m_session->idle.drain(); }

private:
    std::unique_ptr<kernel::Session> m_session;
};

}  // namespace app
