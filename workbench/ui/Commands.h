#pragma once

namespace ui {

class MenuSets;
class UiObjects;

/// Registers the commands about windows, layouts, controls, camera panels and menus. Without a main window nothing can
/// be made and nothing exists; refresh, lookThru and getPanel then do nothing, so that scripts made for the window run
/// in batch.
void registerCommands(UiObjects& ui, MenuSets& sets);

// The groups of them, in the order in which they are registered.
void registerWindows(UiObjects& ui);
void registerParents(UiObjects& ui);
void registerLayouts(UiObjects& ui);
void registerControls(UiObjects& ui);
void registerPanels(UiObjects& ui);
void registerMenus(UiObjects& ui, const MenuSets& sets);
/// menuItem and radioMenuItemCollection.
void registerMenuItems(UiObjects& ui);
/// menuSet and what scripts switch sets with: setMenuMode, workingMode, findMenuSetFromLabel, findMenuFromMenuSet.
void registerMenuSets(UiObjects& ui, MenuSets& sets);

}  // namespace ui
