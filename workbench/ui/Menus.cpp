#include "ui/Menus.h"

#include "ui/MenuItem.h"
#include "ui/ScriptMenu.h"
#include "ui/ViewPanel.h"

#include <QMainWindow>
#include <QMenuBar>

namespace ui {

ScriptMenu* menuOf(const UiObject& object)
{
    if (auto* const item = qobject_cast<MenuItem*>(object.object)) {
        return item->subMenu();
    }
    return qobject_cast<ScriptMenu*>(object.object);
}

UiObject& getMenu(const UiObjects& ui, const std::string& command, const std::string& name)
{
    UiObject* const found = ui.find(name, kMenuKinds);
    return found && menuOf(*found) ? *found : ui.get(command, name, only(Kind::Menu));
}

std::vector<UiObject*> itemsOf(const UiObjects& ui, const UiObject& menu)
{
    std::vector<UiObject*> items;
    for (const QAction* action : menuOf(menu)->actions()) {
        if (UiObject* const item = ui.of(action)) {
            items.push_back(item);
        }
    }
    return items;
}

void deleteItems(UiObjects& ui, const UiObject& menu)
{
    for (UiObject* child : ui.children(menu)) {
        ui.destroy(*child);
    }
}

QMenuBar& menuBarOf(const UiObject& object)
{
    auto* const panel = qobject_cast<ViewPanel*>(object.object);
    return panel ? panel->menuBar() : *qobject_cast<QMainWindow*>(object.object)->menuBar();
}

}  // namespace ui
