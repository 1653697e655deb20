#include "ui/UiObjects.h"

#include "ui/LayoutWidget.h"
#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>

#include <algorithm>

namespace ui {

using kernel::CommandError;

namespace {

constexpr char kMainWindow[] = "MayaWindow";

bool isOf(const UiObject& object, Kinds kinds)
{
    return (only(object.kind) & kinds) != 0;
}

}  // namespace

QWidget* UiObject::widget() const
{
    return qobject_cast<QWidget*>(object);
}

UiObjects::UiObjects(kernel::Session& session) : m_session(session) {}

UiObjects::~UiObjects()
{
    if (isAvailable()) {
        api::installUserInterface(nullptr);
    }
}

void UiObjects::setMainWindow(QMainWindow* window)
{
    m_main = &add(Kind::Window, "window", kMainWindow, nullptr, window);
    api::installUserInterface(this);
}

void UiObjects::requireAvailable(const std::string& command) const
{
    if (!isAvailable()) {
        throw CommandError(command + ": cannot be made in batch mode");
    }
}

// --- names ---------------------------------------------------------------------------------------------------------

UiObject& UiObjects::add(Kind kind, const std::string& type, const std::string& wanted, UiObject* parent,
                         QObject* object)
{
    const std::string name = wanted.empty() ? freeName(type) : wanted;
    if (isTaken(kind, name, parent)) {
        throw CommandError("Object's name '" + name + "' is not unique.");
    }
    m_objects.push_back(std::make_unique<UiObject>(UiObject{name, kind, type, parent, object}));
    UiObject& added = *m_objects.back();
    m_byName.emplace(name, &added);
    m_byQtObject.insert(object, &added);
    object->setObjectName(QString::fromStdString(name));
    connect(object, SIGNAL(destroyed(QObject*)), this, SLOT(Forget(QObject*)));
    return added;
}

std::string UiObjects::freeName(const std::string& type)
{
    std::string name;
    do {
        name = type + std::to_string(++m_made[type]);
    } while (m_byName.count(name) != 0);
    return name;
}

bool UiObjects::isTaken(Kind kind, const std::string& name, const UiObject* parent) const
{
    const auto same = m_byName.equal_range(name);
    return std::any_of(same.first, same.second, [&](const auto& entry) {
        return entry.second->parent == parent && (parent || entry.second->kind == kind);
    });
}

const UiObject* UiObjects::above(const UiObject& object) const
{
    if (object.kind != Kind::Panel || !object.widget()) {
        return object.parent;
    }
    // Some layouts have arranging widgets of their own inside.
    for (const QWidget* layout = LayoutWidget::around(*object.widget()); layout;
         layout = LayoutWidget::around(*layout)) {
        if (const UiObject* const known = of(layout)) {
            return known;
        }
    }
    return nullptr;
}

/// Whether the object stands at the end of a path whose other parts are above it, in that order.
bool UiObjects::isAtPath(const UiObject& object, const std::string& path) const
{
    std::size_t end = path.rfind('|');
    for (const UiObject* over = above(object); end != std::string::npos && end != 0; over = above(*over)) {
        if (!over) {
            return false;
        }
        const std::size_t start = path.rfind('|', end - 1);
        const std::size_t first = start == std::string::npos ? 0 : start + 1;
        if (path.compare(first, end - first, over->name) == 0) {
            end = start;
        }
    }
    return true;
}

UiObject* UiObjects::find(const std::string& name, Kinds kinds) const
{
    const std::size_t bar = name.rfind('|');
    const auto same = m_byName.equal_range(bar == std::string::npos ? name : name.substr(bar + 1));
    for (auto entry = same.second; entry != same.first;) {
        --entry;
        if (isOf(*entry->second, kinds) && isAtPath(*entry->second, name)) {
            return entry->second;
        }
    }
    return nullptr;
}

UiObject& UiObjects::get(const std::string& command, const std::string& name, Kinds kinds) const
{
    UiObject* const object = find(name, kinds);
    if (!object) {
        throw CommandError(command + ": Object '" + name + "' not found.");
    }
    return *object;
}

std::string UiObjects::path(const UiObject& object)
{
    return object.parent ? path(*object.parent) + '|' + object.name : object.name;
}

std::vector<UiObject*> UiObjects::children(const UiObject& parent) const
{
    std::vector<UiObject*> found;
    for (const auto& object : m_objects) {
        if (object->parent == &parent) {
            found.push_back(object.get());
        }
    }
    return found;
}

std::vector<UiObject*> UiObjects::all(Kinds kinds) const
{
    std::vector<UiObject*> found;
    for (const auto& object : m_objects) {
        if (isOf(*object, kinds)) {
            found.push_back(object.get());
        }
    }
    return found;
}

// --- going ---------------------------------------------------------------------------------------------------------

namespace {

/// Ends what goes on in the widget's views, and takes them and the widget out of sight.
void putAway(QWidget& widget)
{
    widget.hide();
    if (LayoutWidget* const layout = LayoutWidget::around(widget)) {
        layout->release(&widget);
    }
    if (view::Viewports* const views = view::Viewports::installed()) {
        for (view::Viewport* view : widget.findChildren<view::Viewport*>()) {
            views->remove(view);
        }
    }
}

}  // namespace

void UiObjects::destroy(UiObject& object)
{
    const QPointer<QObject> gone = object.object;
    if (auto* const widget = object.widget()) {
        putAway(*widget);
        // A tool that was at work in a view may have done anything at its end, also this.
        if (!gone || of(gone) != &object) {
            return;
        }
    }
    auto* const menu = qobject_cast<QMenu*>(gone.data());
    if (QAction* const action = menu ? menu->menuAction() : qobject_cast<QAction*>(gone.data())) {
        action->setVisible(false);
    }
    forget(object);
    gone->deleteLater();
}

void UiObjects::Forget(QObject* object)
{
    if (UiObject* const known = of(object)) {
        forget(*known);
    }
}

void UiObjects::forget(UiObject& object)
{
    for (UiObject* child : children(object)) {
        forget(*child);
    }
    forgetPanels(object);
    for (UiObject** current : {&m_main, &m_layoutParent, &m_menuParent}) {
        if (*current == &object) {
            *current = nullptr;
        }
    }
    if (!isAvailable() && api::userInterface() == this) {
        api::installUserInterface(nullptr);
    }
    m_byQtObject.remove(object.object);
    const auto same = m_byName.equal_range(object.name);
    m_byName.erase(std::find_if(same.first, same.second, [&](const auto& entry) { return entry.second == &object; }));
    m_objects.erase(
        std::find_if(m_objects.begin(), m_objects.end(), [&](const auto& entry) { return entry.get() == &object; }));
}

/// Panels have no parent by name; they go with the window or layout in which they stand.
void UiObjects::forgetPanels(const UiObject& around)
{
    const QWidget* const widget = around.widget();
    for (UiObject* panel : widget ? all(only(Kind::Panel)) : std::vector<UiObject*>()) {
        if (panel != &around && panel->widget() && widget->isAncestorOf(panel->widget())) {
            forget(*panel);
        }
    }
}

// --- scripts -------------------------------------------------------------------------------------------------------

void UiObjects::runScript(const std::string& script, Echo echo)
{
    if (!script.empty()) {
        m_session.script().execute(script, echo == Echo::Yes, true);
    }
}

// --- for the host API ----------------------------------------------------------------------------------------------

QWidget* UiObjects::mainWindow() const
{
    return m_main ? m_main->widget() : nullptr;
}

QWidget* UiObjects::findControl(const std::string& name) const
{
    const UiObject* const object = find(name, Kind::Window | Kind::Layout | Kind::Control | Kind::Panel);
    return object ? object->widget() : nullptr;
}

QWidget* UiObjects::findLayout(const std::string& name) const
{
    const UiObject* const object = find(name, only(Kind::Layout));
    return object ? object->widget() : nullptr;
}

QWidget* UiObjects::findWindow(const std::string& name) const
{
    const UiObject* const object = find(name, only(Kind::Window));
    return object ? object->widget() : nullptr;
}

QAction* UiObjects::findMenuItem(const std::string& name) const
{
    const UiObject* const object = find(name, only(Kind::MenuItem));
    return object ? qobject_cast<QAction*>(object->object) : nullptr;
}

std::string UiObjects::fullName(const QObject& object) const
{
    const UiObject* const known = of(&object);
    return known ? path(*known) : std::string();
}

}  // namespace ui
