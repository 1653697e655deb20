#include "api/Tools.h"
#include "ui/Commands.h"
#include "ui/ControlCommand.h"
#include "ui/Menus.h"

namespace ui {

using kernel::CommandError;
using kernel::Value;

namespace {

/// The flags of deleteUI that say what the names are of; without any, names may be of everything.
const struct {
    mel::FlagRow row;
    Kinds kinds;
} kDeletable[] = {
    {{"window", "wnd"}, only(Kind::Window)},
    {{"layout", "lay"}, only(Kind::Layout)},
    {{"control", "ctl"}, Kind::Control | Kind::Layout},
    {{"menu", "m"}, only(Kind::Menu)},  // submenus, too
    {{"menuItem", "mi"}, only(Kind::MenuItem)},
    {{"panel", "pnl"}, only(Kind::Panel)},
    {{"editor", "ed"}, only(Kind::Panel)},
    {{"radioMenuItemCollection", "ric"}, only(Kind::MenuCollection)},
    {{"collection", "cl"}, only(Kind::MenuCollection)},
    {{"uiTemplate", "uit"}, 0},
};

Value deleteUi(UiObjects& ui, const mel::BuiltinCall& call)
{
    if (call.args.has("toolContext")) {
        for (const std::string& name : call.objectNames()) {
            api::ToolBox::instance().remove(name);
        }
        return {};
    }
    Kinds kinds = 0;
    for (const auto& flag : kDeletable) {
        kinds |= call.args.has(flag.row.longName) ? flag.kinds : 0;
    }
    for (const std::string& name : call.objectNames()) {
        UiObject& object = call.args.has("menu")
                             ? getMenu(ui, "deleteUI", name)
                             : ui.get("deleteUI", name, call.args.flagsUsed() > 0 ? kinds : kAnyKind);
        if (&object == ui.mainWindowObject()) {
            throw CommandError("deleteUI: The main window cannot be deleted.");
        }
        ui.destroy(object);
    }
    return {};
}

/// One of the two current parents: of layouts and controls, or of menus.
struct Current {
    Kinds kinds;
    UiObject* object;  ///< may be null
};

UiObject& above(const Current& current)
{
    UiObject* const parent = current.object ? current.object->parent : nullptr;
    if (!parent || !(only(parent->kind) & current.kinds)) {
        throw CommandError("setParent: There is nothing above the current parent.");
    }
    return *parent;
}

UiObject& topmost(const Current& current)
{
    if (!current.object) {
        throw CommandError("setParent: There is no current parent.");
    }
    UiObject* object = current.object;
    while (object->parent && (only(object->parent->kind) & current.kinds)) {
        object = object->parent;
    }
    return *object;
}

UiObject& wantedParent(const UiObjects& ui, const Current& current, const mel::BuiltinCall& call)
{
    const std::string name = objectName(call);
    if (call.args.has("upLevel") || name == "..") {
        return above(current);
    }
    if (call.args.has("topLevel") || name == "|") {
        return topmost(current);
    }
    return call.args.has("menu") ? getMenu(ui, "setParent", name) : ui.get("setParent", name, current.kinds);
}

Value setParent(UiObjects& ui, const mel::BuiltinCall& call)
{
    const bool isMenu = call.args.has("menu");
    const Current current =
        isMenu ? Current{kMenuKinds, ui.menuParent()} : Current{Kind::Window | Kind::Layout, ui.layoutParent()};
    if (call.args.query) {
        return current.object ? UiObjects::path(*current.object) : std::string();
    }
    UiObject& parent = wantedParent(ui, current, call);
    if (isMenu) {
        ui.setMenuParent(&parent);
    } else {
        ui.setLayoutParent(&parent);
    }
    return UiObjects::path(parent);
}

}  // namespace

void registerParents(UiObjects& ui)
{
    std::vector<mel::FlagRow> rows = {{"toolContext", "tc"}};
    for (const auto& flag : kDeletable) {
        rows.push_back(flag.row);
    }
    mel::addBuiltin(ui.session(), "deleteUI", mel::makeSyntax(rows, mel::Modes::Create, 1),
                    [&ui](mel::BuiltinCall& call) { return deleteUi(ui, call); });
    mel::addBuiltin(
        ui.session(), "setParent",
        mel::makeSyntax({{"menu", "m"}, {"topLevel", "top"}, {"upLevel", "u"}}, mel::Modes::QueryAndEdit, 0, 1),
        [&ui](mel::BuiltinCall& call) { return setParent(ui, call); });
}

}  // namespace ui
