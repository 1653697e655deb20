#include "app/WindowCommands.h"

#include "app/MainWindow.h"
#include "app/PenHand.h"
#include "app/Version.h"
#include "app/ViewLayouts.h"
#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>

namespace app {

using kernel::ArgType;
using kernel::CommandError;
using kernel::Value;

namespace {

const char kView[] = "workbenchView";
constexpr int kUsualPace = 8;       // ms, a hand that knows where it goes
constexpr int kLongestPace = 1000;  // ms
constexpr std::size_t kMostPoints = 10000;

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

/// Where an entry of an open menu is on the screen; empty when no menu shows one of that label.
QRect screenRectOfEntry(const QString& label)
{
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        const auto* const menu = qobject_cast<const QMenu*>(widget);
        if (!menu || !menu->isVisible()) {
            continue;
        }
        for (QAction* action : menu->actions()) {
            if (action->text() == label) {
                const QRect rect = menu->actionGeometry(action);
                return QRect(menu->mapToGlobal(rect.topLeft()), rect.size());
            }
        }
    }
    return QRect();
}

/// Numbers, arrays of numbers, or both after one another; false when there is anything else.
bool toNumbers(const kernel::ValueList& values, std::vector<double>& numbers)
{
    for (const Value& value : values) {
        double number = 0;
        if (const auto* const doubles = std::get_if<kernel::DoubleArray>(&value)) {
            numbers.insert(numbers.end(), doubles->begin(), doubles->end());
        } else if (const auto* const ints = std::get_if<kernel::IntArray>(&value)) {
            numbers.insert(numbers.end(), ints->begin(), ints->end());
        } else if (kernel::toDouble(value, number)) {
            numbers.push_back(number);
        } else {
            return false;
        }
    }
    return true;
}

void checkPressure(const std::string& command, double pressure)
{
    if (!(pressure >= 0 && pressure <= 1)) {
        throw CommandError(command + ": the pressure must be between 0 and 1");
    }
}

kernel::Syntax strokeSyntax()
{
    kernel::Syntax syntax;
    syntax.addFlag("p", "panel", {ArgType::String});
    syntax.addFlag("pc", "pace", {ArgType::Int});
    syntax.addFlag("px", "pixels");
    syntax.setObjects(kernel::Syntax::Objects::Strings);
    return syntax;
}

/// So many numbers for each point of a stroke.
std::vector<double> strokeNumbers(const std::string& command, const kernel::ValueList& values, std::size_t forEach)
{
    std::vector<double> numbers;
    if (!toNumbers(values, numbers) || numbers.empty() || numbers.size() % forEach != 0) {
        throw CommandError(command + ": " + (forEach == 2 ? "pairs" : "triples")
                           + " of numbers are needed, one for each point");
    }
    if (numbers.size() > forEach * kMostPoints) {
        throw CommandError(command + ": a stroke has at most " + std::to_string(kMostPoints) + " points");
    }
    return numbers;
}

/// A point of a stroke as a pixel of the view's widget. extent: what the last pixel across and down is called.
QPointF pointInView(const std::string& command, const QPointF& given, const view::Viewport& view, const QPointF& extent)
{
    const QPointF part(given.x() / extent.x(), given.y() / extent.y());
    if (!(part.x() >= 0 && part.x() <= 1 && part.y() >= 0 && part.y() <= 1)) {
        throw CommandError(command + " is not in the view");
    }
    return QPointF(part.x() * (view.width() - 1), part.y() * (view.height() - 1));
}

}  // namespace

WindowCommands::WindowCommands(kernel::Session& session, MainWindow& window, const ui::UiObjects& ui)
    : m_session(session), m_window(window), m_ui(ui)
{
    m_session.commands.add("workbenchView", [this](const kernel::ValueList& args) { return workbenchView(args); });
    m_session.commands.add("workbenchControl",
                           [this](const kernel::ValueList& args) { return workbenchControl(args); });
    m_session.commands.add("workbenchPen", [this](const kernel::ValueList& args) { return workbenchPen(args); });
    m_session.commands.add("workbenchHand", [this](const kernel::ValueList& args) { return workbenchHand(args); });
    m_session.commands.add("workbenchAbout", [this](const kernel::ValueList& args) { return workbenchAbout(args); });
}

WindowCommands::~WindowCommands()
{
    m_session.commands.remove("workbenchView");
    m_session.commands.remove("workbenchControl");
    m_session.commands.remove("workbenchPen");
    m_session.commands.remove("workbenchHand");
    m_session.commands.remove("workbenchAbout");
}

view::Viewport& WindowCommands::findView(const char* command, const std::string& panel) const
{
    view::Viewport* const view = m_window.viewports().find(panel);
    if (!view) {
        throw CommandError(std::string(command)
                           + (panel.empty() ? ": there is no view" : ": Object '" + panel + "' not found."));
    }
    return *view;
}

view::Viewport& WindowCommands::findViewToDrawIn(const char* command, const std::string& panel) const
{
    view::Viewport& view = findView(command, panel);
    const struct {
        bool holds;
        const char* text;
    } refusals[] = {
        {m_handIsDown, "it is drawing already"},
        {!view.isVisible(), "the view is not to be seen"},
        {QApplication::activeModalWidget() || QApplication::activePopupWidget(), "a dialog or a menu is open"},
        {QApplication::mouseButtons() != Qt::NoButton, "a mouse button is held"},
    };
    for (const auto& refusal : refusals) {
        if (refusal.holds) {
            throw CommandError(std::string(command) + ": " + refusal.text);
        }
    }
    return view;
}

Value WindowCommands::workbenchView(const kernel::ValueList& args)
{
    kernel::Syntax syntax;
    syntax.enableQuery();
    syntax.addFlag("sr", "screenRect");
    syntax.addFlag("a", "active");
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
        view::Viewport& view = findView(kView, parsed.text("panel"));
        const double ratio = view.devicePixelRatioF();
        const QPoint corner = view.mapToGlobal(QPoint(0, 0)) * ratio;
        return kernel::IntArray{corner.x(), corner.y(), view.portWidth(), view.portHeight()};
    }
    if (parsed.query && parsed.has("active")) {
        return int(findView(kView, parsed.text("panel")).isActiveWindow());
    }
    if (parsed.query) {
        throw CommandError("workbenchView: -screenRect, -active, -panes or -panels can be queried");
    }
    if (parsed.has("panes")) {
        const int count = parsed.integer("panes");
        if (count != 1 && count != 2 && count != 4) {
            throw CommandError("workbenchView: -panes must be 1, 2 or 4");
        }
        m_window.setPaneCount(count);
    }
    if (parsed.has("swap")) {
        m_window.layouts().swap(parsed.has("panel") ? &findView(kView, parsed.text("panel")) : nullptr);
    }
    if (parsed.has("panels")) {
        m_window.layouts().setShowsPanels(parsed.integer("panels") != 0);
    }
    if (parsed.has("capture")) {
        const std::string path = parsed.text("capture");
        if (!findView(kView, parsed.text("panel")).grabFramebuffer().save(QString::fromStdString(path))) {
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
    syntax.addFlag("me", "menuEntry");
    syntax.setObjects(kernel::Syntax::Objects::Strings, 1, 1);
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
    if (!parsed.query || !parsed.has("screenRect")) {
        throw CommandError("workbenchControl: -screenRect can be queried");
    }
    const std::string name = kernel::toText(parsed.objects.front());
    const QRect rect = parsed.has("menuEntry") ? screenRectOfEntry(QString::fromStdString(name)) : controlRect(name);
    const double ratio = m_window.devicePixelRatioF();
    const QPoint corner = rect.topLeft() * ratio;
    return kernel::IntArray{corner.x(), corner.y(), int(rect.width() * ratio), int(rect.height() * ratio)};
}

QRect WindowCommands::controlRect(const std::string& name) const
{
    // The window's own controls are no script's, and have names all the same.
    const auto* const own = m_ui.find(name) ? nullptr : m_window.findChild<QWidget*>(QString::fromStdString(name));
    return own ? screenRect(*own) : screenRect(m_ui.get("workbenchControl", name));
}

WindowCommands::Stroke WindowCommands::readStroke(const std::string& command, const kernel::ParsedArgs& parsed,
                                                  std::size_t numbersForEach) const
{
    const int pace = parsed.integer("pace", 0, kUsualPace);
    if (pace < 1 || pace > kLongestPace) {
        throw CommandError(command + ": -pace must be between 1 and " + std::to_string(kLongestPace));
    }
    view::Viewport& view = findViewToDrawIn(command.c_str(), parsed.text("panel"));
    const QPointF extent = parsed.has("pixels") ? QPointF(view.portWidth() - 1, view.portHeight() - 1) : QPointF(1, 1);
    const std::vector<double> numbers = strokeNumbers(command, parsed.objects, numbersForEach);
    Stroke stroke{view, pace, {}, {}};
    for (std::size_t i = 0; i < numbers.size(); i += numbersForEach) {
        const std::string point = command + ": point " + std::to_string(i / numbersForEach + 1);
        stroke.points << pointInView(point, QPointF(numbers[i], numbers[i + 1]), view, extent);
        if (numbersForEach > 2) {
            checkPressure(command, numbers[i + 2]);
            stroke.pressures << numbers[i + 2];
        }
    }
    return stroke;
}

void WindowCommands::draw(const std::string& command, PointerHand& hand, const Stroke& stroke)
{
    const QScopedValueRollback<bool> down(m_handIsDown, true);
    switch (hand.draw(stroke.points, stroke.pace)) {
    case PointerHand::End::Released: break;
    case PointerHand::End::Immovable: throw CommandError(command + ": this desktop lets no program move the pointer");
    case PointerHand::End::Taken: throw CommandError(command + ": the pointer was moved away; the stroke ends there");
    }
}

Value WindowCommands::workbenchHand(const kernel::ValueList& args)
{
    const std::string command = "workbenchHand";
    kernel::Syntax syntax = strokeSyntax();
    syntax.enableQuery();
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args, command);
    if (parsed.query) {
        const QPoint at = QCursor::pos() * m_window.devicePixelRatioF();
        return kernel::IntArray{at.x(), at.y()};
    }
    const Stroke stroke = readStroke(command, parsed, 2);
    PointerHand hand(stroke.view);
    draw(command, hand, stroke);
    return {};
}

Value WindowCommands::workbenchPen(const kernel::ValueList& args)
{
    const std::string command = "workbenchPen";
    kernel::Syntax syntax = strokeSyntax();
    syntax.addFlag("er", "eraser", {ArgType::Bool});
    syntax.addFlag("pr", "pressure", {ArgType::Double});
    syntax.addFlag("rl", "release");
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args, command);
    if (parsed.has("pressure") || parsed.has("release")) {
        sendPenEvent(parsed);
        return {};
    }
    const Stroke stroke = readStroke(command, parsed, 3);
    PenHand hand(stroke.view, stroke.pressures,
                 parsed.integer("eraser") != 0 ? PenHand::Tip::Eraser : PenHand::Tip::Point);
    draw(command, hand, stroke);
    return {};
}

void WindowCommands::sendPenEvent(const kernel::ParsedArgs& parsed)
{
    const double pressure = parsed.number("pressure");
    checkPressure("workbenchPen", pressure);
    const QPoint at = QCursor::pos();
    auto* const view = qobject_cast<view::Viewport*>(QApplication::widgetAt(at));
    if (!view) {
        throw CommandError("workbenchPen: the pointer is not over a view");
    }
    if (parsed.has("eraser")) {
        m_penIsEraser = parsed.integer("eraser") != 0;
    }
    const bool release = parsed.has("release");
    const QEvent::Type type = release ? QEvent::TabletRelease : m_penIsDown ? QEvent::TabletMove : QEvent::TabletPress;
    m_penIsDown = !release;
    PenHand(*view, {}, m_penIsEraser ? PenHand::Tip::Eraser : PenHand::Tip::Point)
        .tellOfPen(type, at, pressure, release ? Qt::NoButton : Qt::LeftButton);
    if (release) {
        m_penIsEraser = false;
    }
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
