#pragma once

#include "kernel/Session.h"
#include "kernel/Syntax.h"
#include "ui/UiObjects.h"

#include <QPointF>
#include <QRect>
#include <QVector>

namespace view {
class Viewport;
}

namespace app {

class MainWindow;
class PointerHand;

/// The commands that stand on the main window, for automation and demonstrations: workbenchView, workbenchControl,
/// workbenchPen, workbenchHand and workbenchAbout. Registered for as long as this lives.
///
///     workbenchView -query -active [-panel NAME]
///
/// tells whether the view's window is the one that gets the keyboard.
///
///     workbenchControl -query -screenRect [-menuEntry] NAME
///
/// tells where a control, menu or item is on the screen: left, top, width and height, all 0 for what is not to be seen.
/// With -menuEntry the name is the label of an entry of a menu that is open, whoever opened it.
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
///     workbenchPen [-panel NAME] [-pace MS] [-pixels] [-eraser BOOL] X Y PRESSURE X Y PRESSURE ...
///
/// does the same with a tablet's pen, pressed 0..1 at each point; the mouse's events follow the pen's where nobody
/// takes those. With -pressure, or -release, one event of a pen that is where the pointer is goes out instead (the
/// first is its touch), and the mouse's are left to whoever moves that: what drivers do that make both themselves.
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
    view::Viewport& findViewToDrawIn(const char* command, const std::string& panel) const;
    struct Stroke {
        view::Viewport& view;
        int pace;
        QVector<QPointF> points;    // pixels of the view's widget
        QVector<double> pressures;  // none of a mouse's
    };
    Stroke readStroke(const std::string& command, const kernel::ParsedArgs& parsed, std::size_t numbersForEach) const;
    void draw(const std::string& command, PointerHand& hand, const Stroke& stroke);
    void sendPenEvent(const kernel::ParsedArgs& parsed);

    kernel::Session& m_session;
    MainWindow& m_window;
    const ui::UiObjects& m_ui;
    bool m_penIsDown = false;
    bool m_penIsEraser = false;
    bool m_handIsDown = false;
};

}  // namespace app
