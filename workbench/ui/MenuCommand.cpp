#include "ui/MenuCommands.h"
#include "ui/MenuSets.h"
#include "ui/Menus.h"
#include "ui/ObjectFlags.h"
#include "ui/ScriptMenu.h"

#include <QMenuBar>

namespace ui {

namespace {

using kernel::Value;
using kernel::ValueList;

struct Target {
    UiObjects& ui;
    UiObject& object;
    ScriptMenu& menu;
};

kernel::StringArray itemNames(const Target& target)
{
    kernel::StringArray names;
    for (const UiObject* item : itemsOf(target.ui, target.object)) {
        names.push_back(item->name);
    }
    return names;
}

const std::vector<ObjectFlag<Target>>& flags()
{
    static const std::vector<ObjectFlag<Target>> table = {
        {{"label", "l", "s"},
         [](Target& t) -> Value { return t.menu.label().text.toStdString(); },
         [](Target& t, const ValueList& v) {
             t.menu.setLabel({textOf(v), t.menu.label().mnemonic});
         }},
        {{"mnemonic", "mn", "s"},
         [](Target& t) -> Value { return t.menu.label().mnemonic.toStdString(); },
         [](Target& t, const ValueList& v) {
             t.menu.setLabel({t.menu.label().text, textOf(v)});
         }},
        {{"tearOff", "to", "b"},
         [](Target& t) -> Value { return int(t.menu.isTearOffEnabled()); },
         [](Target& t, const ValueList& v) { t.menu.setTearOffEnabled(isOn(v)); }},
        {{"postMenuCommand", "pmc", "s"},
         [](Target& t) -> Value { return t.menu.postMenuCommand(); },
         [](Target& t, const ValueList& v) { t.menu.setPostMenuCommand(kernel::toText(v.front())); }},
        {{"postMenuCommandOnce", "pmo", "b"},
         [](Target& t) -> Value { return int(t.menu.runsPostMenuCommandOnce()); },
         [](Target& t, const ValueList& v) { t.menu.setRunsPostMenuCommandOnce(isOn(v)); }},
        {{"helpMenu", "hm", "b"},
         [](Target& t) -> Value { return int(t.menu.isHelp()); },
         [](Target& t, const ValueList& v) { t.menu.setHelp(isOn(v)); }},
        {{"visible", "vis", "b"},
         [](Target& t) -> Value { return int(t.menu.isWanted()); },
         [](Target& t, const ValueList& v) { t.menu.setWanted(isOn(v)); }},
        {{"enable", "en", "b"},
         [](Target& t) -> Value { return int(t.menu.menuAction()->isEnabled()); },
         [](Target& t, const ValueList& v) { t.menu.menuAction()->setEnabled(isOn(v)); }},
        {{"deleteAllItems", "dai"}, nullptr, [](Target& t, const ValueList&) { deleteItems(t.ui, t.object); }},
        {{"itemArray", "ia"}, [](Target& t) -> Value { return itemNames(t); }},
        {{"numberOfItems", "ni"}, [](Target& t) -> Value { return int(itemNames(t).size()); }},
        {{"parent", "p", "s"}, [](Target& t) -> Value { return UiObjects::path(*t.object.parent); }},
        {{"fullPathName", "fpn"}, [](Target& t) -> Value { return UiObjects::path(t.object); }},
        {{"exists", "ex"}},
        // Taken and without effect here.
        {{"allowOptionBoxes", "aob", "b"}},
        {{"familyImage", "fi", "s"}},
        {{"docTag", "dtg", "s"}},
        {{"defineTemplate", "dt", "s"}},
        {{"useTemplate", "ut", "s"}},
    };
    return table;
}

/// The window of a layout in it, or the window itself.
UiObject& windowOf(UiObject& object)
{
    UiObject* window = &object;
    while (window->parent) {
        window = window->parent;
    }
    return *window;
}

/// The window whose menu bar a new menu goes into: that of -parent, or of the current layout, or the main one.
UiObject& windowFor(const UiObjects& ui, const kernel::ParsedArgs& args)
{
    if (args.has("parent")) {
        return windowOf(ui.get("menu", args.text("parent"), Kind::Window | Kind::Layout));
    }
    UiObject& window = windowOf(ui.layoutParent() ? *ui.layoutParent() : *ui.mainWindowObject());
    return window.kind == Kind::Window ? window : *ui.mainWindowObject();
}

Value makeMenu(UiObjects& ui, const MenuSets& sets, const kernel::ParsedArgs& args, const std::string& name)
{
    ui.requireAvailable("menu");
    UiObject& window = windowFor(ui, args);
    auto menu = std::make_unique<ScriptMenu>(ui, &menuBarOf(window));
    UiObject& object = ui.add(Kind::Menu, "menu", name, &window, menu.get());
    menu->setLabel({QString::fromStdString(object.name), {}});
    Target target{ui, object, *menu};
    setFlags(flags(), target, args);
    menu.release();  // the bar's
    sets.arrange(window);
    ui.setMenuParent(&object);
    return UiObjects::path(object);
}

void editMenu(const MenuSets& sets, Target& target, const kernel::ParsedArgs& args)
{
    setFlags(flags(), target, args);
    if (target.object.kind == Kind::Menu) {
        sets.arrange(*target.object.parent);
    } else {
        target.menu.menuAction()->setVisible(target.menu.isWanted());
    }
}

Value runMenu(UiObjects& ui, const MenuSets& sets, const mel::BuiltinCall& call)
{
    const kernel::ParsedArgs& args = call.args;
    const std::string name = args.objects.empty() ? std::string() : call.objectNames().front();
    if (args.has("exists")) {
        const UiObject* const found = ui.find(name, kMenuKinds);
        return int(found && menuOf(*found));
    }
    if (!args.query && !args.edit) {
        return makeMenu(ui, sets, args, name);
    }
    UiObject& object = getMenu(ui, "menu", name);
    Target target{ui, object, *menuOf(object)};
    if (args.query) {
        return queryFlag(flags(), target, args);
    }
    editMenu(sets, target, args);
    return UiObjects::path(object);
}

}  // namespace

void addMenuCommand(UiObjects& ui, MenuSets& sets)
{
    mel::addBuiltin(ui.session(), "menu", syntaxOf(flags()),
                    [&ui, &sets](mel::BuiltinCall& call) { return runMenu(ui, sets, call); });
}

}  // namespace ui
