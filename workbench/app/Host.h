#pragma once

#include "kernel/Session.h"
#include "ui/MenuSets.h"
#include "ui/UiObjects.h"

#include <functional>
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
    ~Host();  ///< shuts down
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    kernel::Session& session() { return *m_session; }
    ui::UiObjects& ui() { return *m_ui; }
    ui::MenuSets& menuSets() { return *m_menuSets; }
    /// Runs a text at the global scope as one undo step, then what is due at idle. False when it failed.
    bool run(const std::string& text);
    kernel::Value evaluate(const std::string& text);  ///< the same; monostate when it failed
    /// Loads a module by path or name; false (reported) when that fails.
    bool loadModule(const std::string& pathOrName);
    void drainIdle() { m_session->idle.drain(); }

    struct QuitRequest {
        bool force = false;  ///< do not ask about unsaved changes
        int exitCode = 0;
    };
    /// Called when a script asks to quit; without one the request is only remembered.
    void setQuitListener(std::function<void()> listener) { m_quitListener = std::move(listener); }
    const QuitRequest* quitRequest() const { return m_quitRequest.get(); }  ///< null when nobody asked
    void forgetQuitRequest() { m_quitRequest.reset(); }

    /// Raises quitApplication, unloads modules, keeps the option variables. For a program with a window, which must
    /// outlive this: callbacks still reach its widgets.
    void shutDown();

private:
    void registerQuit();

    std::unique_ptr<kernel::Session> m_session;
    std::unique_ptr<ui::UiObjects> m_ui;
    std::unique_ptr<ui::MenuSets> m_menuSets;
    std::unique_ptr<QuitRequest> m_quitRequest;
    std::function<void()> m_quitListener;
    std::string m_savedOptionVars;  ///< as they stand in the preferences folder
    bool m_isDown = false;
};

}  // namespace app
