#pragma once

#include "support/LiveWorkbench.h"

namespace support {

/// A menu of a running workbench as the pointer works it. Items are told by their labels on the way to them, those of
/// the submenus first.
class PointedMenu {
public:
    /// menu: the MEL expression that gives the menu's name.
    PointedMenu(LiveWorkbench& host, const QString& menu);

    QString name() { return m_host.run(QString("string $menuName = %1; $menuName").arg(m_menu)); }
    bool exists() { return m_host.run(QString("menu -exists (%1)").arg(m_menu)) == "1"; }
    /// The script's name of an item; empty without it.
    QString item(const QStringList& labels);
    /// The labels of all items whose mark is set, in the order of the menu.
    QStringList marked();

    /// Opens the menu and the submenus named, each with a click. False when one of them is not to be seen.
    bool open(const QStringList& submenus = {});
    /// Clicks an item of a menu that is open, or torn off.
    bool click(const QStringList& labels);
    /// Opens what leads to the item, and clicks it.
    bool choose(const QStringList& labels);
    /// Clicks the strip at the head of the menu (or submenu) that leaves a copy of it on the screen.
    bool tearOff(const QStringList& submenus = {});
    /// Closes what is open of it.
    void close();

private:
    bool clickControl(const QString& name);

    LiveWorkbench& m_host;
    const QString m_menu;
};

}  // namespace support
