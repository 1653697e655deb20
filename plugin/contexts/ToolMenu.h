#pragma once

#include "settings/MenuEntries.h"
#include "settings/ScriptBridge.h"

#include <QList>
#include <QMenu>

/// A menu that opens with the right button while the draw tool is in use. Its entries are the main menu's, and do the
/// same. Here is what such menus have in common.
class ToolMenu : public QMenu {
    Q_OBJECT

public slots:
    void InsertFrame() { script::editFrames(script::FrameAction::Insert); }
    void DuplicateFrame() { script::editFrames(script::FrameAction::Duplicate); }
    void DeleteFrame() { script::editFrames(script::FrameAction::Delete); }
    void CutFrame() { script::editFrames(script::FrameAction::Cut); }
    void CopyFrame() { script::editFrames(script::FrameAction::Copy); }
    void PasteFrame() { script::editFrames(script::FrameAction::Paste); }
    void ClearFrame() { script::editFrames(script::FrameAction::Clear); }

protected:
    explicit ToolMenu(QWidget& opener) : QMenu(&opener) {}

    /// Adds the group's first entries to a menu, without those that only the main menu has, and gives them with their
    /// dividers. Choosing one calls our slot.
    QList<QAction*> addEntries(QMenu& menu, const script::MenuGroup& group, int count);
};
