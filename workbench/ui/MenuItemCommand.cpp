#include "ui/Commands.h"
#include "ui/Menus.h"
#include "ui/ObjectFlags.h"
#include "ui/OptionBox.h"
#include "ui/ScriptMenu.h"

#include <QActionGroup>
#include <QIcon>
#include <QKeySequence>

#include <memory>

namespace ui {

namespace {

using kernel::CommandError;
using kernel::ParsedArgs;
using kernel::Value;
using kernel::ValueList;

struct Target {
    UiObjects& ui;
    UiObject& object;
    MenuItem& item;
};

void setFontStyle(MenuItem& item, void (QFont::*style)(bool), bool on)
{
    QFont font = item.font();
    (font.*style)(on);
    item.setFont(font);
}

/// Does not run the item's command.
void setState(const Target& target, bool hasState, const char* what, const ValueList& values)
{
    if (!hasState) {
        throw CommandError("menuItem: '" + target.object.name + "' is not a " + what);
    }
    target.item.setChecked(truth(values));
}

void setTearOff(const Target& target, const ValueList& values)
{
    if (ScriptMenu* const menu = target.item.subMenu()) {
        menu->setTearOffEnabled(truth(values));
    }
}

void setPostMenuCommand(const Target& target, const ValueList& values)
{
    if (ScriptMenu* const menu = target.item.subMenu()) {
        menu->setPostMenuCommand(kernel::toText(values.front()));
    }
}

bool isOptionBox(const MenuItem& item)
{
    return qobject_cast<const OptionBox*>(&item) != nullptr;
}

const std::vector<ObjectFlag<Target>>& flags()
{
    static const std::vector<ObjectFlag<Target>> table = withNameFlags<Target>({
        {{"label", "l", "s"},
         [](const Target& t, const ValueList& v) {
             t.item.setLabel({text(v), t.item.label().mnemonic});
         },
         [](const Target& t) { return t.item.label().text.toStdString(); }},
        {{"mnemonic", "mn", "s"},
         [](const Target& t, const ValueList& v) {
             t.item.setLabel({t.item.label().text, text(v)});
         },
         [](const Target& t) { return t.item.label().mnemonic.toStdString(); }},
        {{"command", "c", "s"},
         [](const Target& t, const ValueList& v) { t.item.script.text = kernel::toText(v.front()); },
         [](const Target& t) { return t.item.script.text; }},
        {{"sourceType", "stp", "s"},
         [](const Target& t, const ValueList& v) { t.item.script.isPython = text(v) == "python"; },
         [](const Target& t) { return std::string(t.item.script.isPython ? "python" : "mel"); }},
        {{"echoCommand", "ec", "b"},
         [](const Target& t, const ValueList& v) { t.item.script.isEchoed = truth(v); },
         [](const Target& t) { return int(t.item.script.isEchoed); }},
        {{"enableCommandRepeat", "ecr", "b"},
         [](const Target& t, const ValueList& v) { t.item.script.isRepeatable = truth(v); },
         [](const Target& t) { return int(t.item.script.isRepeatable); }},
        {{"checkBox", "cb", "b"},
         [](const Target& t, const ValueList& v) { setState(t, t.item.isCheckItem(), "check box", v); },
         [](const Target& t) { return int(t.item.isChecked()); }},
        {{"radioButton", "rb", "b"},
         [](const Target& t, const ValueList& v) { setState(t, t.item.isRadioItem(), "radio button", v); },
         [](const Target& t) { return int(t.item.isChecked()); }},
        {{"isCheckBox", "icb"}, nullptr, [](const Target& t) { return int(t.item.isCheckItem()); }},
        {{"isRadioButton", "irb"}, nullptr, [](const Target& t) { return int(t.item.isRadioItem()); }},
        {{"isOptionBox", "iob"}, nullptr, [](const Target& t) { return int(isOptionBox(t.item)); }},
        {{"optionBox", "ob", "b"}, nullptr, [](const Target& t) { return int(isOptionBox(t.item)); }},
        {{"subMenu", "sm", "b"}, nullptr, [](const Target& t) { return int(t.item.subMenu() != nullptr); }},
        {{"tearOff", "to", "b"},
         setTearOff,
         [](const Target& t) { return int(t.item.subMenu() && t.item.subMenu()->isTearOffEnabled()); }},
        {{"postMenuCommand", "pmc", "s"},
         setPostMenuCommand,
         [](const Target& t) { return t.item.subMenu() ? t.item.subMenu()->postMenuCommand() : std::string(); }},
        {{"divider", "d", "b"}, nullptr, [](const Target& t) { return int(t.item.isSeparator()); }},
        {{"dividerLabel", "dl", "s"},
         [](const Target& t, const ValueList& v) {
             t.item.setLabel({text(v), {}});
         },
         [](const Target& t) { return t.item.label().text.toStdString(); }},
        {{"longDivider", "ld", "b"},
         [](const Target& t, const ValueList& v) { t.item.isLongDivider = truth(v); },
         [](const Target& t) { return int(t.item.isLongDivider); }},
        {{"enable", "en", "b"},
         [](const Target& t, const ValueList& v) { t.item.setEnabled(truth(v)); },
         [](const Target& t) { return int(t.item.isEnabled()); }},
        {{"visible", "vis", "b"},
         [](const Target& t, const ValueList& v) { t.item.setVisible(truth(v)); },
         [](const Target& t) { return int(t.item.isVisible()); }},
        {{"annotation", "ann", "s"},
         [](const Target& t, const ValueList& v) { t.item.setStatusTip(text(v)); },
         [](const Target& t) { return t.item.statusTip().toStdString(); }},
        {{"image", "i", "s"},
         [](const Target& t, const ValueList& v) {
             t.item.image = kernel::toText(v.front());
             t.item.setIcon(QIcon(text(v)));
         },
         [](const Target& t) { return t.item.image; }},
        {{"boldFont", "bld", "b"},
         [](const Target& t, const ValueList& v) { setFontStyle(t.item, &QFont::setBold, truth(v)); },
         [](const Target& t) { return int(t.item.font().bold()); }},
        {{"italicized", "itl", "b"},
         [](const Target& t, const ValueList& v) { setFontStyle(t.item, &QFont::setItalic, truth(v)); },
         [](const Target& t) { return int(t.item.font().italic()); }},
        {{"data", "da", "i"},
         [](const Target& t, const ValueList& v) { kernel::toInt(v.front(), t.item.data); },
         [](const Target& t) { return t.item.data; }},
        {{"insertAfter", "ia", "s"}},
        {{"collection", "cl", "s"}},
        // One shortcut: see setShortcut.
        {{"keyEquivalent", "ke", "s"}},
        {{"ctrlModifier", "ctl", "b"}},
        {{"shiftModifier", "sh", "b"}},
        {{"altModifier", "alt", "b"}},
        // Taken and without effect here.
        {{"allowOptionBoxes", "aob", "b"}},
    });
    return table;
}

void setShortcut(MenuItem& item, const ParsedArgs& args)
{
    if (!args.has("keyEquivalent")) {
        return;
    }
    QString keys = QString::fromStdString(args.text("keyEquivalent"));
    for (const auto& modifier : {std::make_pair("shiftModifier", "Shift+"), std::make_pair("altModifier", "Alt+"),
                                 std::make_pair("ctrlModifier", "Ctrl+")}) {
        if (args.integer(modifier.first) != 0) {
            keys.prepend(modifier.second);
        }
    }
    item.setShortcut(QKeySequence::fromString(keys, QKeySequence::PortableText));
}

// --- making --------------------------------------------------------------------------------------------------------

/// What a new item or collection goes into: -parent, or the current menu.
UiObject& parentMenu(const UiObjects& ui, const std::string& command, const ParsedArgs& args)
{
    if (args.has("parent")) {
        return getMenu(ui, command, args.text("parent"));
    }
    if (!ui.menuParent() || !menuOf(*ui.menuParent())) {
        throw CommandError(command + ": There is no current menu");
    }
    return *ui.menuParent();
}

/// The action that a new item goes before; null for the end.
QAction* placeFor(const UiObjects& ui, const UiObject& parent, const ParsedArgs& args)
{
    if (!args.has("insertAfter")) {
        return nullptr;
    }
    const std::string name = args.text("insertAfter");
    const QList<QAction*> actions = menuOf(parent)->actions();
    if (name.empty()) {
        return actions.value(0);
    }
    const std::string path = UiObjects::path(parent) + '|' + name.substr(name.rfind('|') + 1);
    const UiObject& before = ui.get("menuItem", path, only(Kind::MenuItem));
    int place = actions.indexOf(qobject_cast<QAction*>(before.object)) + 1;
    while (place < actions.size() && qobject_cast<OptionBox*>(actions[place])) {
        ++place;
    }
    return actions.value(place);
}

/// The item that an option box at a place belongs to.
QAction& baseFor(const UiObjects& ui, const UiObject& parent, const QAction* place)
{
    QAction* base = nullptr;
    for (QAction* action : menuOf(parent)->actions()) {
        if (action == place) {
            break;
        }
        if (ui.of(action) && !action->isSeparator() && !qobject_cast<OptionBox*>(action)) {
            base = action;
        }
    }
    if (!base) {
        throw CommandError("menuItem: There is no item for the option box");
    }
    return *base;
}

UiObject& makeCollection(UiObjects& ui, UiObject& parent, const std::string& name)
{
    auto group = std::make_unique<QActionGroup>(menuOf(parent));
    UiObject& collection = ui.add(Kind::MenuCollection, "radioMenuItemCollection", name, &parent, group.get());
    group.release();  // the menu's
    return collection;
}

/// What a new radio item joins: -collection, or the one made last in its menu, or a first one.
QActionGroup* collectionFor(UiObjects& ui, UiObject& parent, const ParsedArgs& args)
{
    UiObject* collection = nullptr;
    if (args.has("collection")) {
        collection = &ui.get("menuItem", args.text("collection"), only(Kind::MenuCollection));
    } else {
        for (UiObject* child : ui.children(parent)) {
            collection = child->kind == Kind::MenuCollection ? child : collection;
        }
    }
    return qobject_cast<QActionGroup*>((collection ? *collection : makeCollection(ui, parent, {})).object);
}

/// Makes it what it stays for good: a divider, a submenu, a check or radio item, or none of them.
void giveForm(UiObjects& ui, UiObject& parent, MenuItem& item, const ParsedArgs& args)
{
    item.setSeparator(args.integer("divider") != 0);
    if (args.integer("subMenu") != 0) {
        item.addSubMenu(*menuOf(parent));
    }
    if (args.has("radioButton")) {
        item.setActionGroup(collectionFor(ui, parent, args));
    }
    item.setCheckable(args.has("radioButton") || args.has("checkBox"));
}

Value makeItem(UiObjects& ui, const ParsedArgs& args, const std::string& name)
{
    ui.requireAvailable("menuItem");
    UiObject& parent = parentMenu(ui, "menuItem", args);
    ScriptMenu* const menu = menuOf(parent);
    QAction* const place = placeFor(ui, parent, args);
    std::unique_ptr<MenuItem> made(args.integer("optionBox") != 0 ? new OptionBox(ui, menu, &baseFor(ui, parent, place))
                                                                  : new MenuItem(ui, menu));
    const Target target{ui, ui.add(Kind::MenuItem, "menuItem", name, &parent, made.get()), *made};
    giveForm(ui, parent, *made, args);
    if (!made->isSeparator()) {
        made->setLabel({QString::fromStdString(target.object.name), {}});
    }
    setFlags(flags(), target, args);
    setShortcut(*made, args);
    menu->insertAction(place, made.release());  // the menu's
    if (target.item.subMenu()) {
        ui.setMenuParent(&target.object);
    }
    return UiObjects::path(target.object);
}

Value runMenuItem(UiObjects& ui, const mel::BuiltinCall& call)
{
    const ParsedArgs& args = call.args;
    const std::string name = objectName(call);
    if (args.has("exists")) {
        return int(ui.find(name, only(Kind::MenuItem)) != nullptr);
    }
    if (!args.query && !args.edit) {
        return makeItem(ui, args, name);
    }
    UiObject& object = ui.get("menuItem", name, only(Kind::MenuItem));
    const Target target{ui, object, *qobject_cast<MenuItem*>(object.object)};
    if (args.query) {
        return queryFlag("menuItem", flags(), target, args);
    }
    setFlags(flags(), target, args);
    setShortcut(target.item, args);
    return UiObjects::path(object);
}

Value runCollection(UiObjects& ui, const mel::BuiltinCall& call)
{
    const std::string command = "radioMenuItemCollection";
    const ParsedArgs& args = call.args;
    const std::string name = objectName(call);
    if (args.has("exists")) {
        return int(ui.find(name, only(Kind::MenuCollection)) != nullptr);
    }
    if (args.query) {
        return UiObjects::path(*ui.get(command, name, only(Kind::MenuCollection)).parent);
    }
    ui.requireAvailable(command);
    return UiObjects::path(makeCollection(ui, parentMenu(ui, command, args), name));
}

}  // namespace

void registerMenuItems(UiObjects& ui)
{
    mel::addBuiltin(ui.session(), "menuItem", syntaxOf(flags()),
                    [&ui](mel::BuiltinCall& call) { return runMenuItem(ui, call); });
    mel::addBuiltin(
        ui.session(), "radioMenuItemCollection",
        mel::makeSyntax({{"parent", "p", "s"}, {"global", "gl", "b"}, {"exists", "ex"}}, mel::Modes::Query, 0, 1),
        [&ui](mel::BuiltinCall& call) { return runCollection(ui, call); });
}

}  // namespace ui
