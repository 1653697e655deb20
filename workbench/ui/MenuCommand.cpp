#include "ui/Commands.h"
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
    static const std::vector<ObjectFlag<Target>> table = withNameFlags<Target>({
        {{"label", "l", "s"},
         [](const Target& t, const ValueList& v) {
             t.menu.setLabel({text(v), t.menu.label().mnemonic});
         },
         [](const Target& t) { return t.menu.label().text.toStdString(); }},
        {{"mnemonic", "mn", "s"},
         [](const Target& t, const ValueList& v) {
             t.menu.setLabel({t.menu.label().text, text(v)});
         },
         [](const Target& t) { return t.menu.label().mnemonic.toStdString(); }},
        {{"tearOff", "to", "b"},
         [](const Target& t, const ValueList& v) { t.menu.setTearOffEnabled(truth(v)); },
         [](const Target& t) { return int(t.menu.isTearOffEnabled()); }},
        {{"postMenuCommand", "pmc", "s"},
         [](const Target& t, const ValueList& v) { t.menu.setPostMenuCommand(kernel::toText(v.front())); },
         [](const Target& t) { return t.menu.postMenuCommand(); }},
        {{"postMenuCommandOnce", "pmo", "b"},
         [](const Target& t, const ValueList& v) { t.menu.setRunsPostMenuCommandOnce(truth(v)); },
         [](const Target& t) { return int(t.menu.runsPostMenuCommandOnce()); }},
        {{"helpMenu", "hm", "b"},
         [](const Target& t, const ValueList& v) { t.menu.setHelp(truth(v)); },
         [](const Target& t) { return int(t.menu.isHelp()); }},
        {{"visible", "vis", "b"},
         [](const Target& t, const ValueList& v) { t.menu.setWanted(truth(v)); },
         [](const Target& t) { return int(t.menu.isWanted()); }},
        {{"enable", "en", "b"},
         [](const Target& t, const ValueList& v) { t.menu.menuAction()->setEnabled(truth(v)); },
         [](const Target& t) { return int(t.menu.menuAction()->isEnabled()); }},
        {{"deleteAllItems", "dai"}, [](const Target& t, const ValueList&) { deleteItems(t.ui, t.object); }},
        {{"itemArray", "ia"}, nullptr, [](const Target& t) { return itemNames(t); }},
        {{"numberOfItems", "ni"}, nullptr, [](const Target& t) { return int(itemNames(t).size()); }},
        // Taken and without effect here.
        {{"allowOptionBoxes", "aob", "b"}},
        {{"familyImage", "fi", "s"}},
    });
    return table;
}

/// The window of a layout in it, or the window or panel itself.
UiObject& windowOf(UiObject& object)
{
    UiObject* window = &object;
    while (window->parent) {
        window = window->parent;
    }
    return *window;
}

/// Whose menu bar a new menu goes into: the panel or window that -parent names or is in, or the window of the current
/// layout, or the main one.
UiObject& windowFor(const UiObjects& ui, const kernel::ParsedArgs& args)
{
    if (args.has("parent")) {
        return windowOf(ui.get("menu", args.text("parent"), Kind::Window | Kind::Layout | Kind::Panel));
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
    const Target target{ui, object, *menu};
    setFlags(flags(), target, args);
    menu.release();  // the bar's
    sets.arrange(window);
    ui.setMenuParent(&object);
    return UiObjects::path(object);
}

void editMenu(const MenuSets& sets, const Target& target, const kernel::ParsedArgs& args)
{
    setFlags(flags(), target, args);
    if (target.object.kind == Kind::Menu) {
        sets.arrange(*target.object.parent);
    } else if (args.has("visible")) {
        target.menu.menuAction()->setVisible(target.menu.isWanted());
    }
}

Value runMenu(UiObjects& ui, const MenuSets& sets, const mel::BuiltinCall& call)
{
    const kernel::ParsedArgs& args = call.args;
    const std::string name = objectName(call);
    if (args.has("exists")) {
        const UiObject* const found = ui.find(name, kMenuKinds);
        return int(found && menuOf(*found));
    }
    if (!args.query && !args.edit) {
        return makeMenu(ui, sets, args, name);
    }
    UiObject& object = getMenu(ui, "menu", name);
    const Target target{ui, object, *menuOf(object)};
    if (args.query) {
        return queryFlag("menu", flags(), target, args);
    }
    editMenu(sets, target, args);
    return UiObjects::path(object);
}

}  // namespace

void registerMenus(UiObjects& ui, const MenuSets& sets)
{
    mel::addBuiltin(ui.session(), "menu", syntaxOf(flags()),
                    [&ui, &sets](mel::BuiltinCall& call) { return runMenu(ui, sets, call); });
}

}  // namespace ui
