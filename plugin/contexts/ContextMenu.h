#pragma once

class QMenu;
class QMouseEvent;

/// A press of the right button alone, without a modifier key: what asks for a tool's menu.
bool asksForContextMenu(const QMouseEvent& event);

/// Shows a menu at the pointer and returns at once; the menu deletes itself when it closes.
void popUpAtCursor(QMenu* menu);

/// Takes away a menu whose tool is left; null for none. Our code may be gone before the host would next delete what is
/// closed. One that has led here is closed already, and stays.
void dismiss(QMenu* menu);
