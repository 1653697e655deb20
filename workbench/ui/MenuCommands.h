#pragma once

namespace ui {

class MenuSets;
class UiObjects;

void addMenuCommand(UiObjects& ui, MenuSets& sets);
/// menuItem and radioMenuItemCollection.
void addMenuItemCommands(UiObjects& ui);
/// menuSet and what scripts switch sets with: setMenuMode, workingMode, findMenuSetFromLabel, findMenuFromMenuSet.
void addMenuSetCommands(UiObjects& ui, MenuSets& sets);

}  // namespace ui
