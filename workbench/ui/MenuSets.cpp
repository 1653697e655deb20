#include "ui/MenuSets.h"

#include "ui/Menus.h"
#include "ui/ScriptMenu.h"

#include <QMenuBar>

#include <algorithm>

namespace ui {

namespace {

constexpr char kCommonSet[] = "commonMenuSet";

enum Section { kCommonMenus, kSetMenus, kOtherMenus, kHelpMenus };

}  // namespace

bool MenuSets::isCommon(const Set& set)
{
    return set.name == kCommonSet;
}

MenuSets::Set* MenuSets::find(const std::string& name)
{
    const auto found = std::find_if(m_sets.begin(), m_sets.end(), [&](const Set& set) { return set.name == name; });
    return found == m_sets.end() ? nullptr : &*found;
}

MenuSets::Set* MenuSets::findByLabel(const std::string& label)
{
    const auto found = std::find_if(m_sets.begin(), m_sets.end(), [&](const Set& set) { return set.label == label; });
    return found == m_sets.end() ? nullptr : &*found;
}

void MenuSets::setCurrent(Set& set)
{
    if (m_current == &set) {
        return;
    }
    m_current = &set;
    arrangeMain();
    emit Changed();
    m_ui.session().events.raise("MenuModeChanged");
}

MenuSets::Set& MenuSets::add(const std::string& name, const std::string& label)
{
    if (find(name)) {
        throw kernel::CommandError("Object's name '" + name + "' is not unique.");
    }
    m_sets.push_back({name, label, {}});
    if (!m_current) {
        m_current = &m_sets.back();
    }
    emit Changed();
    return m_sets.back();
}

void MenuSets::setLabel(Set& set, const std::string& label)
{
    set.label = label;
    emit Changed();
}

void MenuSets::insert(Set& set, ScriptMenu& menu, std::size_t index)
{
    auto& menus = set.menus;
    // A menu that scripts deleted may live on until control is back at the event loop.
    menus.erase(
        std::remove_if(menus.begin(), menus.end(),
                       [&](const QPointer<ScriptMenu>& held) { return !held || held == &menu || !m_ui.of(held); }),
        menus.end());
    menus.insert(menus.begin() + std::ptrdiff_t(std::min(index, menus.size())), &menu);
    arrangeMain();
}

bool MenuSets::remove(Set& set, ScriptMenu& menu)
{
    const auto found = std::find(set.menus.begin(), set.menus.end(), &menu);
    if (found == set.menus.end()) {
        return false;
    }
    set.menus.erase(found);
    arrangeMain();
    return true;
}

std::vector<const UiObject*> MenuSets::menus(const Set& set) const
{
    std::vector<const UiObject*> known;
    for (const QPointer<ScriptMenu>& menu : set.menus) {
        if (const UiObject* const object = menu ? m_ui.of(menu) : nullptr) {
            known.push_back(object);
        }
    }
    return known;
}

void MenuSets::arrangeMain() const
{
    if (m_ui.isAvailable()) {
        arrange(*m_ui.mainWindowObject());
    }
}

void MenuSets::arrange(const UiObject& window) const
{
    std::vector<ScriptMenu*> menus;
    for (const UiObject* child : m_ui.children(window)) {
        if (child->kind == Kind::Menu) {
            menus.push_back(menuOf(*child));
        }
    }
    std::stable_sort(menus.begin(), menus.end(),
                     [this](const ScriptMenu* a, const ScriptMenu* b) { return place(*a) < place(*b); });
    QList<QAction*> order;
    for (ScriptMenu* menu : menus) {
        order << menu->menuAction();
        menu->menuAction()->setVisible(isShown(*menu));
    }
    QMenuBar& bar = menuBarOf(window);
    if (bar.actions() != order) {
        bar.addActions(order);  // those that are there already move to the end
    }
}

bool MenuSets::isShown(const ScriptMenu& menu) const
{
    bool isInASet = false;
    bool isInAShownSet = false;
    for (const Set& set : m_sets) {
        const bool holds = std::find(set.menus.begin(), set.menus.end(), &menu) != set.menus.end();
        isInASet |= holds;
        isInAShownSet |= holds && (isCommon(set) || &set == m_current);
    }
    return menu.isWanted() && (isInAShownSet || !isInASet);
}

/// Its section of the bar, and its place among the menus of its set.
std::pair<int, std::size_t> MenuSets::place(const ScriptMenu& menu) const
{
    if (menu.isHelp()) {
        return {kHelpMenus, 0};
    }
    for (const Set& set : m_sets) {
        const auto found = std::find(set.menus.begin(), set.menus.end(), &menu);
        if (found != set.menus.end()) {
            return {isCommon(set) ? kCommonMenus : kSetMenus, std::size_t(found - set.menus.begin())};
        }
    }
    return {kOtherMenus, 0};
}

}  // namespace ui
