#pragma once

#include "ui/UiObjects.h"

class QMenuBar;

namespace ui {

class ScriptMenu;

/// What items can be put into: menus and items that are submenus.
constexpr Kinds kMenuKinds = Kind::Menu | Kind::MenuItem;

/// The menu that an object is, or that is below it; null for any other.
ScriptMenu* menuOf(const UiObject& object);
/// The menu of that name. Throws "menu: Object 'foo' not found."
UiObject& getMenu(const UiObjects& ui, const std::string& command, const std::string& name);
/// The named items of a menu from top to bottom, an option box after the item it belongs to.
std::vector<UiObject*> itemsOf(const UiObjects& ui, const UiObject& menu);
/// Takes all items and collections of a menu away.
void deleteItems(UiObjects& ui, const UiObject& menu);
/// The bar of a panel, or of a window, made when there is none.
QMenuBar& menuBarOf(const UiObject& object);

}  // namespace ui
