#pragma once

#include <QString>

namespace script {

struct Template;

/// How an entry shows what is set: not at all, by a mark of its own, or as the one of its group that is chosen.
enum class MenuMark { None, Check, Radio };

/// One entry of a menu. Without a label it is a divider, and nothing else of it counts.
struct MenuEntry {
    const char* label;
    const Template* command;
    const char* value;  ///< fills the command's place; null when it has none
    MenuMark mark;
    const char* slot;  ///< of the tool's own menus, as SLOT() writes it; null for an entry that only the main menu has

    /// The script text that the main menu's entry runs.
    QString commandText() const;
};

/// Entries that stand together.
struct MenuGroup {
    const char* placeholder;  ///< stands for them in the menu script
    const char* submenu;      ///< the label of the submenu they make; null when they stand in the menu itself
    const MenuEntry* entries;
    int count;
};

/// What the menus consist of, in the order of the main menu.
enum class MenuPart {
    Contexts,
    DrawTools,  ///< by ToolType
    Layers,
    Frames,
    Ghosts,  ///< the first two by GhostSide
    Panels,
    TimelineDisplay,  ///< by the display's number
    Views,
    Utilities,
    Cleanups,
    Settings
};
constexpr int kMenuPartCount = 11;
/// So many of the frames' entries change frames; they come first.
constexpr int kFrameEditCount = 9;

const MenuGroup& menuGroup(MenuPart part);

}  // namespace script
