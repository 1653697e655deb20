#pragma once

#include "ui/MenuLabel.h"

#include <QMenu>

#include <string>

namespace ui {

class UiObjects;

/// A menu that scripts make and know by name, in a menu bar or below an item.
class ScriptMenu : public QMenu {
    Q_OBJECT

public:
    ScriptMenu(UiObjects& ui, QWidget* parent);

    const MenuLabel& label() const { return m_label; }
    void setLabel(const MenuLabel& label);
    /// Run each time the menu is about to open, or the first time only; it may fill the menu anew.
    const std::string& postMenuCommand() const { return m_postMenuCommand; }
    void setPostMenuCommand(const std::string& script);
    bool runsPostMenuCommandOnce() const { return m_once; }
    void setRunsPostMenuCommandOnce(bool once) { m_once = once; }

    // --- in a menu bar ------------------------------------------------------------------------------------------
    /// Whether it is to show when its menu set does.
    bool isWanted() const { return m_wanted; }
    void setWanted(bool wanted) { m_wanted = wanted; }
    /// A help menu stands last.
    bool isHelp() const { return m_help; }
    void setHelp(bool help) { m_help = help; }

private slots:
    void Prepare();

private:
    UiObjects& m_ui;
    MenuLabel m_label;
    std::string m_postMenuCommand;
    bool m_once = false;
    bool m_wasPrepared = false;
    bool m_wanted = true;
    bool m_help = false;
};

}  // namespace ui
