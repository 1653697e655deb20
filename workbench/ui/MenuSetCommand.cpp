#include "ui/Commands.h"
#include "ui/MenuSets.h"
#include "ui/Menus.h"
#include "ui/ObjectFlags.h"
#include "ui/ScriptMenu.h"

#include <algorithm>

namespace ui {

namespace {

using kernel::CommandError;
using kernel::ParsedArgs;
using kernel::Value;
using kernel::ValueList;
using Set = MenuSets::Set;

struct Target {
    UiObjects& ui;
    MenuSets& sets;
    Set& set;
};

void requireSets(const MenuSets& sets)
{
    if (sets.isEmpty()) {
        throw CommandError("menuSet: There are no menuSets to query");
    }
}

Set& getSet(MenuSets& sets, const std::string& name)
{
    Set* const set = sets.find(name);
    if (!set) {
        throw CommandError("menuSet: Object '" + name + "' not found.");
    }
    return *set;
}

/// The menu a flag names. Only menus of the main window's bar are in sets.
ScriptMenu& namedMenu(const Target& target, const ValueList& values)
{
    const std::string name = kernel::toText(values.front());
    const UiObject& menu = target.ui.get("menuSet", name, only(Kind::Menu));
    if (menu.parent != target.ui.mainWindowObject()) {
        throw CommandError("menuSet: Object '" + name + "' not found.");
    }
    return *menuOf(menu);
}

/// Puts the named menu at the index that follows it; to the end without one.
void insertMenu(const Target& target, const ValueList& values)
{
    int index = -1;
    if (values.size() > 1) {
        kernel::toInt(values[1], index);
    }
    target.sets.insert(target.set, namedMenu(target, values), index < 0 ? target.set.menus.size() : std::size_t(index));
}

void removeMenu(const Target& target, const ValueList& values)
{
    if (!target.sets.remove(target.set, namedMenu(target, values))) {
        throw CommandError("menuSet: Object '" + kernel::toText(values.front()) + "' not found.");
    }
}

void moveMenu(const Target& target, const ValueList& values)
{
    removeMenu(target, values);
    insertMenu(target, values);
}

kernel::StringArray menuNames(const Target& target)
{
    kernel::StringArray names;
    for (const UiObject* menu : target.sets.menus(target.set)) {
        names.push_back(menu->name);
    }
    return names;
}

kernel::StringArray setNames(const MenuSets& sets)
{
    kernel::StringArray names;
    for (const Set& set : sets.all()) {
        names.push_back(set.name);
    }
    return names;
}

const std::vector<ObjectFlag<Target>>& flags()
{
    static const std::vector<ObjectFlag<Target>> table = {
        {{"label", "l", "s"},
         [](const Target& t, const ValueList& v) { t.sets.setLabel(t.set, kernel::toText(v.front())); },
         [](const Target& t) { return t.set.label; }},
        {{"addMenu", "am", "s"}, insertMenu},
        {{"insertMenu", "im", "si"}, insertMenu},
        {{"moveMenu", "mm", "si"}, moveMenu},
        {{"removeMenu", "rm", "s"}, removeMenu},
        {{"menuArray", "ma"}, nullptr, [](const Target& t) { return menuNames(t); }},
        {{"numberOfMenus", "nm"}, nullptr, [](const Target& t) { return int(menuNames(t).size()); }},
        {{"currentMenuSet", "cms", "s"}, nullptr, [](const Target& t) { return t.sets.current()->name; }},
        {{"allMenuSets", "ams"}, nullptr, [](const Target& t) { return setNames(t.sets); }},
        {{"numberOfMenuSets", "nms"}, nullptr, [](const Target& t) { return int(t.sets.all().size()); }},
        {{"exists", "ex"}},
    };
    return table;
}

/// The set that a call is about, which a label for a name not known yet makes.
Set& setFor(UiObjects& ui, MenuSets& sets, const ParsedArgs& args, const std::string& name)
{
    if (!args.query && !args.edit && args.has("label") && !name.empty() && !sets.find(name)) {
        ui.requireAvailable("menuSet");
        return sets.add(name, args.text("label"));
    }
    requireSets(sets);
    return name.empty() ? *sets.current() : getSet(sets, name);
}

Value runMenuSet(UiObjects& ui, MenuSets& sets, const mel::BuiltinCall& call)
{
    const ParsedArgs& args = call.args;
    const std::string name = objectName(call);
    if (args.has("exists")) {
        return int(sets.find(name) != nullptr);
    }
    if (args.has("currentMenuSet") && !args.query) {
        requireSets(sets);
        sets.setCurrent(getSet(sets, args.text("currentMenuSet")));
    }
    const Target target{ui, sets, setFor(ui, sets, args, name)};
    if (args.query) {
        return queryFlag("menuSet", flags(), target, args);
    }
    setFlags(flags(), target, args);
    return target.set.name;
}

/// setMenuMode and workingMode: shows the set of that name; says which is shown.
Value runSetMenuMode(MenuSets& sets, const mel::BuiltinCall& call)
{
    requireSets(sets);
    if (!call.args.objects.empty()) {
        sets.setCurrent(getSet(sets, call.objectNames().front()));
    }
    return sets.current()->name;
}

/// Empty when there is no such set.
Value runFindSet(MenuSets& sets, const mel::BuiltinCall& call)
{
    requireSets(sets);
    const Set* const set = sets.findByLabel(call.objectNames().front());
    return set ? set->name : std::string();
}

/// Empty when the set has no such menu.
Value runFindMenu(MenuSets& sets, const mel::BuiltinCall& call)
{
    requireSets(sets);
    const std::vector<std::string> names = call.objectNames();
    for (const UiObject* menu : sets.menus(getSet(sets, names[0]))) {
        if (menuOf(*menu)->label().text.toStdString() == names[1]) {
            return menu->name;
        }
    }
    return std::string();
}

}  // namespace

void registerMenuSets(UiObjects& ui, MenuSets& sets)
{
    kernel::Session& session = ui.session();
    mel::addBuiltin(session, "menuSet", syntaxOf(flags()),
                    [&ui, &sets](mel::BuiltinCall& call) { return runMenuSet(ui, sets, call); });
    const struct {
        const char* name;
        unsigned minWords;
        unsigned maxWords;
        Value (*run)(MenuSets& sets, const mel::BuiltinCall& call);
    } switches[] = {
        {"setMenuMode", 0, 1, runSetMenuMode},
        {"workingMode", 0, 1, runSetMenuMode},
        {"findMenuSetFromLabel", 1, 1, runFindSet},
        {"findMenuFromMenuSet", 2, 2, runFindMenu},
    };
    for (const auto& row : switches) {
        mel::addBuiltin(session, row.name, mel::makeSyntax({}, mel::Modes::Create, row.minWords, row.maxWords),
                        [&sets, run = row.run](mel::BuiltinCall& call) { return run(sets, call); });
    }
}

}  // namespace ui
