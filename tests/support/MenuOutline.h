#pragma once

#include <QMenu>

/// The entries of a menu from top to bottom, those of a submenu behind its label; "-" for a divider, "*" before what is
/// marked, "." before what could be, brackets around what cannot be chosen.
inline QStringList outline(const QMenu& menu)
{
    QStringList lines;
    for (const QAction* action : menu.actions()) {
        if (action->isSeparator()) {
            lines << "-";
        } else if (action->menu()) {
            lines << action->text() + ": " + outline(*action->menu()).join(", ");
        } else {
            const QString label = (action->isChecked() ? "*" : action->isCheckable() ? "." : "") + action->text();
            lines << (action->isEnabled() ? label : "(" + label + ")");
        }
    }
    return lines;
}
