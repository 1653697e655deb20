#include "ui/Commands.h"

namespace ui {

void registerCommands(UiObjects& ui, MenuSets& sets)
{
    registerWindows(ui);
    registerParents(ui);
    registerLayouts(ui);
    registerControls(ui);
    registerPanels(ui);
    registerMenus(ui, sets);
    registerMenuItems(ui);
    registerMenuSets(ui, sets);
}

}  // namespace ui
