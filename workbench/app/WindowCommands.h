#pragma once

#include "kernel/Session.h"
#include "ui/UiObjects.h"

#include <QRect>

namespace view {
class Viewport;
}

namespace app {

class MainWindow;

/// The commands that stand on the main window, for automation and demonstrations: workbenchView, workbenchControl,
/// workbenchPen, workbenchHand and workbenchAbout. Registered for as long as this lives.
///
///     workbenchHand [-panel NAME] [-pace MS] [-pixels] X Y X Y ...
///
/// draws one stroke with the tool in force: presses the left button at the first point, takes the pointer along a
/// smooth curve through the others (a point given twice is a corner) and returns when the tool has handled the release.
/// Points count from the view's upper left, 0..1 across and down, with -pixels in those of its picture; arrays of
/// numbers will do. -pace is in milliseconds for each four pixels, 1..1000, else 8. It fails when the pointer cannot be
/// moved, and ends its stroke and fails when the user takes the pointer away. -query tells where the pointer is, in
/// pixels of the screen.
///
///     workbenchControl -query -screenRect [-menuEntry] NAME
///
/// tells where a control, menu or item is on the screen: left, top, width and height, all 0 for what is not to be seen.
/// With -menuEntry the name is the label of an entry of a menu that is open, whoever opened it.
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
    kernel::Value workbenchHand(const kernel::ValueList& args);
    kernel::Value workbenchAbout(const kernel::ValueList& args);
    QRect controlRect(const std::string& name) const;
    /// command: named in the refusal.
    view::Viewport& findView(const char* command, const std::string& panel) const;
    view::Viewport& findViewToDrawIn(const std::string& panel) const;

    kernel::Session& m_session;
    MainWindow& m_window;
    const ui::UiObjects& m_ui;
    bool m_penIsDown = false;
    bool m_penIsEraser = false;
    bool m_handIsDown = false;
};

}  // namespace app
