#pragma once

#include "ui/MenuLabel.h"

#include <QWidgetAction>

#include <string>

class QActionGroup;

namespace ui {

class ScriptMenu;
class UiObjects;

/// What is run when an item is chosen.
struct ItemScript {
    std::string text;          ///< "#1" in it stands for the new state of a check or radio item
    bool isPython = false;     ///< kept for scripts that ask; this host runs MEL only
    bool isEchoed = true;      ///< in the journal
    bool isRepeatable = true;  ///< may be what "repeat last" repeats
};

/// An item that scripts make in a menu: a command, a check or radio item, a divider or a submenu.
/// It is an ordinary action, without a widget, unless a subclass gives it one.
class MenuItem : public QWidgetAction {
    Q_OBJECT

public:
    MenuItem(UiObjects& ui, QObject* parent);

    const MenuLabel& label() const;
    void setLabel(const MenuLabel& label);

    /// Makes it a submenu, which goes with it. container: the menu the item is in.
    void addSubMenu(QMenu& container);
    ScriptMenu* subMenu() const;  ///< null when it is none

    bool isCheckItem() const { return isCheckable() && !actionGroup(); }
    bool isRadioItem() const { return actionGroup() != nullptr; }

    ItemScript script;
    std::string image;  ///< file of the icon
    int data = 0;       ///< a number scripts may keep with the item
    bool isLongDivider = true;

private slots:
    void Run();

private:
    UiObjects& m_ui;
    MenuLabel m_label;  ///< a submenu keeps its own
};

}  // namespace ui
