#include "contexts/ToolMenu.h"

QList<QAction*> ToolMenu::addEntries(QMenu& menu, const script::MenuGroup& group, int count)
{
    QList<QAction*> added;
    for (int i = 0; i < count; ++i) {
        const script::MenuEntry& entry = group.entries[i];
        if (!entry.label) {
            added << menu.addSeparator();
        } else if (entry.slot) {
            added << menu.addAction(QLatin1String(entry.label), this, entry.slot);
            added.last()->setCheckable(entry.mark == script::MenuMark::Check);
        }
    }
    return added;
}
