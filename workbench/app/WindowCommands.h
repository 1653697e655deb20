#pragma once

#include "kernel/Session.h"
#include "ui/UiObjects.h"

namespace view {
class Viewport;
}

namespace app {

class MainWindow;

/// The commands that stand on the main window, for automation and demonstrations: workbenchView, workbenchControl,
/// workbenchPen and workbenchAbout. Registered for as long as this lives.
class WindowCommands {
public:
    WindowCommands(kernel::Session& session, MainWindow& window, const ui::UiObjects& ui);
    ~WindowCommands();
    WindowCommands(const WindowCommands&) = delete;
    WindowCommands& operator=(const WindowCommands&) = delete;

private:
    kernel::Value workbenchView(const kernel::ValueList& args);
    kernel::Value workbenchControl(const kernel::ValueList& args);
    kernel::Value workbenchPen(const kernel::ValueList& args);
    kernel::Value workbenchAbout(const kernel::ValueList& args);
    view::Viewport& findView(const std::string& panel) const;

    kernel::Session& m_session;
    MainWindow& m_window;
    const ui::UiObjects& m_ui;
    bool m_penIsDown = false;
    bool m_penIsEraser = false;
};

}  // namespace app
