#include "ui/ControlCommand.h"

#include "ui/BoxLayout.h"
#include "ui/CommonFlags.h"
#include "ui/ControlScript.h"
#include "ui/ScriptWindow.h"

#include <QMainWindow>

#include <memory>

namespace ui {

using kernel::CommandError;
using kernel::Value;

namespace {

constexpr char kHiddenLayout[] = "hiddenLayout";

UiObject* findOf(const UiObjects& ui, const ControlType& type, const std::string& name)
{
    UiObject* const object = ui.find(name, only(type.kind));
    return object && object->type == type.type ? object : nullptr;
}

/// Throws when there is none.
UiObject& getOf(const UiObjects& ui, const ControlType& type, const std::string& name)
{
    UiObject* const object = findOf(ui, type, name);
    return object ? *object : ui.get(type.command, name, 0);
}

Value make(UiObjects& ui, const ControlType& type, const std::string& name, const kernel::ParsedArgs& args)
{
    ui.requireAvailable(type.command);
    const bool isWindow = type.kind == Kind::Window;
    UiObject* const parent = isWindow ? nullptr : &parentFor(ui, type.command, type.kind, args.text("parent"));
    std::unique_ptr<QWidget> widget(type.make(ui));
    // Panels have names of their own, wherever they stand.
    UiObject& object = ui.add(type.kind, type.type, name, type.kind == Kind::Panel ? nullptr : parent, widget.get());
    if (isWindow) {
        widget.release();
    } else {
        arranger(*parent).place(widget.release());
    }
    const std::string path = UiObjects::path(object);
    try {
        const Subject subject{ui, object};
        if (type.begin) {
            type.begin(subject);
        }
        setFlags(type.flags, subject, args);
    } catch (const CommandError&) {
        ui.destroy(object);
        throw;
    }
    if (isWindow || type.kind == Kind::Layout) {
        ui.setLayoutParent(&object);
    }
    return path;
}

Value run(UiObjects& ui, const ControlType& type, const mel::BuiltinCall& call)
{
    const std::string name = objectName(call);
    if (call.args.has("exists")) {
        return int(findOf(ui, type, name) != nullptr);
    }
    if (call.args.query || call.args.edit) {
        const Subject subject{ui, getOf(ui, type, name)};
        if (call.args.query) {
            return queryFlag(type.command, type.flags, subject, call.args);
        }
        setFlags(type.flags, subject, call.args);
        return subject.object.name;
    }
    if (!type.make) {
        throw CommandError(std::string(type.command) + ": '" + name
                           + "' cannot be made; -query, -edit or -exists is needed");
    }
    return make(ui, type, name, call.args);
}

}  // namespace

void addControlCommand(UiObjects& ui, ControlType type)
{
    type.flags.insert(type.flags.end(), commonFlags().begin(), commonFlags().end());
    kernel::Syntax syntax = syntaxOf(type.flags);
    const char* const command = type.command;
    const auto shared = std::make_shared<const ControlType>(std::move(type));
    mel::addBuiltin(ui.session(), command, std::move(syntax),
                    [&ui, shared](mel::BuiltinCall& call) { return run(ui, *shared, call); });
}

// --- parents -------------------------------------------------------------------------------------------------------

UiObject& hiddenLayout(UiObjects& ui)
{
    UiObject& main = *ui.mainWindowObject();
    for (UiObject* child : ui.children(main)) {
        if (child->name == kHiddenLayout) {
            return *child;
        }
    }
    auto* const layout = new BoxLayout(QBoxLayout::TopToBottom, BoxLayout::Sharing::Natural, main.widget());
    layout->hide();
    return ui.add(Kind::Layout, "columnLayout", kHiddenLayout, &main, layout);
}

UiObject& parentFor(UiObjects& ui, const std::string& command, Kind kind, const std::string& wanted)
{
    UiObject* const parent = wanted.empty() ? ui.layoutParent() : &ui.get(command, wanted, Kind::Window | Kind::Layout);
    if (!parent || parent == ui.mainWindowObject()) {
        return hiddenLayout(ui);
    }
    if (parent->kind == Kind::Layout || kind == Kind::Layout) {
        return *parent;
    }
    for (UiObject* child : ui.children(*parent)) {
        if (child->kind == Kind::Layout) {
            return *child;
        }
    }
    throw CommandError("Controls must have a layout.  No layout found in window : " + parent->name);
}

LayoutWidget& arranger(const UiObject& parent)
{
    auto* const window = qobject_cast<ScriptWindow*>(parent.object);
    return window ? window->content() : static_cast<LayoutWidget&>(*parent.object);
}

std::string layoutPath(const Subject& subject)
{
    const UiObject* const layout = subject.ui.above(subject.object);
    return layout ? UiObjects::path(*layout) : std::string();
}

// --- scripts -------------------------------------------------------------------------------------------------------

void setScript(const Subject& subject, const char* signal, const std::string& script,
               std::function<kernel::DoubleArray()> values)
{
    QObject* const sender = subject.object.object;
    if (auto* const before = sender->findChild<ControlScript*>(signal, Qt::FindDirectChildrenOnly)) {
        before->setObjectName(QString());
        QObject::disconnect(sender, nullptr, before, nullptr);
        before->deleteLater();  // it may be running
    }
    auto* const slot = new ControlScript(subject.ui, script, std::move(values), sender);
    slot->setObjectName(signal);
    QObject::connect(sender, signal, slot, SLOT(Run()));
}

}  // namespace ui
