#include "app/WindowCommands.h"

#include "app/MainWindow.h"
#include "app/Version.h"
#include "app/ViewLayouts.h"
#include "kernel/Syntax.h"
#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTabletEvent>

namespace app {

using kernel::ArgType;
using kernel::CommandError;
using kernel::Value;

namespace {

QRect screenRect(const QWidget& widget)
{
    return widget.isVisible() ? QRect(widget.mapToGlobal(QPoint()), widget.size()) : QRect();
}

/// Where a named object is on the screen, in device-independent pixels; empty for what is not to be seen.
QRect screenRect(const ui::UiObject& object)
{
    if (const auto* action = qobject_cast<const QAction*>(object.object)) {
        for (const QWidget* shownIn : action->associatedWidgets()) {
            const auto* const menu = qobject_cast<const QMenu*>(shownIn);
            if (menu && menu->isVisible()) {
                const QRect rect = menu->actionGeometry(const_cast<QAction*>(action));
                return QRect(menu->mapToGlobal(rect.topLeft()), rect.size());
            }
        }
        return QRect();
    }
    if (const auto* menu = qobject_cast<const QMenu*>(object.object)) {
        for (const QWidget* shownIn : menu->menuAction()->associatedWidgets()) {
            const auto* const bar = qobject_cast<const QMenuBar*>(shownIn);
            if (bar && bar->isVisible()) {
                const QRect rect = bar->actionGeometry(menu->menuAction());
                return QRect(bar->mapToGlobal(rect.topLeft()), rect.size());
            }
        }
        return QRect();
    }
    const QWidget* const widget = object.widget();
    return widget ? screenRect(*widget) : QRect();
}

}  // namespace

WindowCommands::WindowCommands(kernel::Session& session, MainWindow& window, const ui::UiObjects& ui)
    : m_session(session), m_window(window), m_ui(ui)
{
    m_session.commands.add("workbenchView", [this](const kernel::ValueList& args) { return workbenchView(args); });
    m_session.commands.add("workbenchControl",
                           [this](const kernel::ValueList& args) { return workbenchControl(args); });
    m_session.commands.add("workbenchPen", [this](const kernel::ValueList& args) { return workbenchPen(args); });
    m_session.commands.add("workbenchAbout", [this](const kernel::ValueList& args) { return workbenchAbout(args); });
}

WindowCommands::~WindowCommands()
{
    m_session.commands.remove("workbenchView");
    m_session.commands.remove("workbenchControl");
    m_session.commands.remove("workbenchPen");
    m_session.commands.remove("workbenchAbout");
}

view::Viewport& WindowCommands::findView(const std::string& panel) const
{
    view::Viewport* const view = m_window.viewports().find(panel);
    if (!view) {
        throw CommandError(panel.empty() ? "workbenchView: there is no view"
                                         : "workbenchView: Object '" + panel + "' not found.");
    }
    return *view;
}

Value WindowCommands::workbenchView(const kernel::ValueList& args)
{
    kernel::Syntax syntax;
    syntax.enableQuery();
    syntax.addFlag("sr", "screenRect");
    syntax.addFlag("pn", "panes", {ArgType::Int});
    syntax.addFlag("p", "panel", {ArgType::String});
    syntax.makeQueryWithFullArgs("panel");
    syntax.addFlag("sw", "swap");
    syntax.addFlag("pls", "panels", {ArgType::Bool});
    syntax.addFlag("cp", "capture", {ArgType::String});
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
    if (parsed.query && parsed.has("panes")) {
        return m_window.paneCount();
    }
    if (parsed.query && parsed.has("panels")) {
        return int(m_window.layouts().showsPanels());
    }
    if (parsed.query && parsed.has("screenRect")) {
        view::Viewport& view = findView(parsed.text("panel"));
        const double ratio = view.devicePixelRatioF();
        const QPoint corner = view.mapToGlobal(QPoint(0, 0)) * ratio;
        return kernel::IntArray{corner.x(), corner.y(), view.portWidth(), view.portHeight()};
    }
    if (parsed.query) {
        throw CommandError("workbenchView: -screenRect, -panes or -panels can be queried");
    }
    if (parsed.has("panes")) {
        const int count = parsed.integer("panes");
        if (count != 1 && count != 2 && count != 4) {
            throw CommandError("workbenchView: -panes must be 1, 2 or 4");
        }
        m_window.setPaneCount(count);
    }
    if (parsed.has("swap")) {
        m_window.layouts().swap(parsed.has("panel") ? &findView(parsed.text("panel")) : nullptr);
    }
    if (parsed.has("panels")) {
        m_window.layouts().setShowsPanels(parsed.integer("panels") != 0);
    }
    if (parsed.has("capture")) {
        const std::string path = parsed.text("capture");
        if (!findView(parsed.text("panel")).grabFramebuffer().save(QString::fromStdString(path))) {
            throw CommandError("workbenchView: Cannot write " + path);
        }
    }
    return {};
}

Value WindowCommands::workbenchControl(const kernel::ValueList& args)
{
    kernel::Syntax syntax;
    syntax.enableQuery();
    syntax.addFlag("sr", "screenRect");
    syntax.setObjects(kernel::Syntax::Objects::Strings, 1, 1);
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
    if (!parsed.query || !parsed.has("screenRect")) {
        throw CommandError("workbenchControl: -screenRect can be queried");
    }
    const std::string name = kernel::toText(parsed.objects.front());
    // The window's own controls are no script's, and have names all the same.
    const auto* const own = m_ui.find(name) ? nullptr : m_window.findChild<QWidget*>(QString::fromStdString(name));
    const QRect rect = own ? screenRect(*own) : screenRect(m_ui.get("workbenchControl", name));
    const double ratio = m_window.devicePixelRatioF();
    const QPoint corner = rect.topLeft() * ratio;
    return kernel::IntArray{corner.x(), corner.y(), int(rect.width() * ratio), int(rect.height() * ratio)};
}

Value WindowCommands::workbenchPen(const kernel::ValueList& args)
{
    kernel::Syntax syntax;
    syntax.addFlag("pr", "pressure", {ArgType::Double});
    syntax.addFlag("er", "eraser", {ArgType::Bool});
    syntax.addFlag("rl", "release");
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
    const bool release = parsed.has("release");
    if (!parsed.has("pressure") && !release) {
        throw CommandError("workbenchPen: -pressure or -release is needed");
    }
    const double pressure = parsed.number("pressure");
    if (pressure < 0 || pressure > 1) {
        throw CommandError("workbenchPen: -pressure must be between 0 and 1");
    }
    const QPoint at = QCursor::pos();
    auto* const view = qobject_cast<view::Viewport*>(QApplication::widgetAt(at));
    if (!view) {
        throw CommandError("workbenchPen: the pointer is not over a view");
    }
    if (parsed.has("eraser")) {
        m_penIsEraser = parsed.integer("eraser") != 0;
    }
    const QEvent::Type type = release ? QEvent::TabletRelease : m_penIsDown ? QEvent::TabletMove : QEvent::TabletPress;
    m_penIsDown = !release;
    QTabletEvent event(type, view->mapFromGlobal(at), at, QTabletEvent::Stylus,
                       m_penIsEraser ? QTabletEvent::Eraser : QTabletEvent::Pen, pressure, 0, 0, 0, 0, 0,
                       QApplication::keyboardModifiers(), 1, type == QEvent::TabletMove ? Qt::NoButton : Qt::LeftButton,
                       release ? Qt::NoButton : Qt::LeftButton);
    QApplication::sendEvent(view, &event);
    if (release) {
        m_penIsEraser = false;
    }
    return {};
}

Value WindowCommands::workbenchAbout(const kernel::ValueList& args)
{
    kernel::parsedOrThrow(kernel::Syntax(), args);
    auto* const box = new QMessageBox(QMessageBox::NoIcon, QObject::tr("About"),
                                      QObject::tr("Lumisketch Workbench %1").arg(kVersion), QMessageBox::Ok, &m_window);
    box->setInformativeText(QObject::tr("A stand-alone host to draw in, and to try scripts and modules."));
    box->button(QMessageBox::Ok)->setIcon(QIcon());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
    return {};
}

}  // namespace app
