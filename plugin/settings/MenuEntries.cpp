#include "settings/MenuEntries.h"

#include "settings/ScriptBridge.h"
#include "settings/ScriptTemplates.h"

#include <QObject>

namespace script {

namespace {

using namespace templates;

constexpr MenuMark kNone = MenuMark::None;
constexpr MenuMark kCheck = MenuMark::Check;
constexpr MenuMark kRadio = MenuMark::Radio;
constexpr MenuEntry kDivider = {nullptr, nullptr, nullptr, kNone, nullptr};
constexpr char kToggle[] = "-1";  // GhostSwitch::Toggle
constexpr char kNoCamera[] = "\"\"";

template <class Enum, std::size_t Count>
constexpr const Template* row(const Template (&rows)[Count], Enum which)
{
    return &rows[static_cast<std::size_t>(which)];
}

const MenuEntry kContextEntries[] = {
    {"Draw", &kUseDrawTool, nullptr, kNone, nullptr},
    {"Transform", &kUseTransformTool, nullptr, kNone, SLOT(TransformTool())},
};

const MenuEntry kDrawToolEntries[] = {
    {"Pencil", row(kTools, ToolType::Pencil), nullptr, kRadio, SLOT(SetPencilTool())},
    {"Brush", row(kTools, ToolType::Brush), nullptr, kRadio, SLOT(SetBrushTool())},
    {"Eraser", row(kTools, ToolType::Eraser), nullptr, kRadio, SLOT(SetEraserTool())},
    {"Text", row(kTools, ToolType::Text), nullptr, kRadio, SLOT(SetTextTool())},
    {"Line", row(kTools, ToolType::Line), nullptr, kRadio, SLOT(SetLineTool())},
    {"Arrow", row(kTools, ToolType::Arrow), nullptr, kRadio, SLOT(SetArrowTool())},
    {"Ellipse", row(kTools, ToolType::Ellipse), nullptr, kRadio, SLOT(SetEllipseTool())},
    {"Rectangle", row(kTools, ToolType::Rectangle), nullptr, kRadio, SLOT(SetRectangleTool())},
};

const MenuEntry kLayerEntries[] = {
    {"New Layer...", row(kDialogs, Dialog::NewLayer), nullptr, kNone, SLOT(NewLayer())},
    {"Layer Properties...", &kLayerProperties, nullptr, kNone, SLOT(LayerProperties())},
};

const MenuEntry kFrameEntries[] = {
    {"Insert Frame(s)", row(kFrames, FrameAction::Insert), nullptr, kNone, SLOT(InsertFrame())},
    {"Duplicate Frame", row(kFrames, FrameAction::Duplicate), nullptr, kNone, SLOT(DuplicateFrame())},
    {"Delete Frame(s)", row(kFrames, FrameAction::Delete), nullptr, kNone, SLOT(DeleteFrame())},
    kDivider,
    {"Cut Frame(s)", row(kFrames, FrameAction::Cut), nullptr, kNone, SLOT(CutFrame())},
    {"Copy Frame(s)", row(kFrames, FrameAction::Copy), nullptr, kNone, SLOT(CopyFrame())},
    {"Paste Frame(s)", row(kFrames, FrameAction::Paste), nullptr, kNone, SLOT(PasteFrame())},
    kDivider,
    {"Clear Frame(s)", row(kFrames, FrameAction::Clear), nullptr, kNone, SLOT(ClearFrame())},
    kDivider,
    {"Step Forward", row(kFrames, FrameAction::StepForward), nullptr, kNone, SLOT(StepForward())},
    {"Step Back", row(kFrames, FrameAction::StepBack), nullptr, kNone, SLOT(StepBack())},
};

const MenuEntry kGhostEntries[] = {
    {"Ghost Previous", row(kShowGhosts, GhostSide::Previous), kToggle, kCheck, SLOT(ToggleGhostPrevious())},
    {"Ghost Next", row(kShowGhosts, GhostSide::Next), kToggle, kCheck, SLOT(ToggleGhostNext())},
    kDivider,
    {"Settings...", row(kDialogs, Dialog::GhostingSettings), nullptr, kNone, SLOT(GhostingSettings())},
};

const MenuEntry kPanelEntries[] = {
    {"Toolbox...", row(kPanels, Panel::Toolbox), nullptr, kNone, SLOT(ShowToolbox())},
    {"Tool Options...", row(kPanels, Panel::ToolOptions), nullptr, kNone, SLOT(ShowToolOptions())},
    {"Layer Manager...", row(kPanels, Panel::LayerManager), nullptr, kNone, SLOT(ShowLayerManager())},
    {"Retiming Tool...", row(kPanels, Panel::RetimingTool), nullptr, kNone, SLOT(ShowRetimingTool())},
};

const MenuEntry kTimelineDisplayEntries[] = {
    {"Always", &kTimelineDisplay, "0", kRadio, SLOT(SetTimelineDisplayOn())},
    {"Selection/Context Active", &kTimelineDisplay, "1", kRadio, SLOT(SetTimelineDisplaySelectionContext())},
    {"Off", &kTimelineDisplay, "2", kRadio, SLOT(SetTimelineDisplayOff())},
};

const MenuEntry kViewEntries[] = {
    {"Lumisketch View", &kShowFloatingView, nullptr, kNone, nullptr},
    {"Move layers to Lumisketch View", &kMoveToFloatingView, kNoCamera, kNone, nullptr},
};

const MenuEntry kUtilityEntries[] = {
    {"Reset UI", &kResetPanels, nullptr, kNone, nullptr},
};

const MenuEntry kCleanupEntries[] = {
    {"Delete Active Layer", row(kCleanups, Cleanup::ActiveLayer), nullptr, kNone, SLOT(DeleteActiveLayer())},
    {"Delete Active Camera Layers", row(kCleanups, Cleanup::ActiveCameraLayers), nullptr, kNone,
     SLOT(DeleteActiveCameraLayers())},
    kDivider,
    {"Clear All", row(kCleanups, Cleanup::Everything), nullptr, kNone, SLOT(ClearAll())},
};

const MenuEntry kSettingsEntries[] = {
    {"Preferences...", row(kDialogs, Dialog::Preferences), nullptr, kNone, nullptr},
    {"About...", row(kDialogs, Dialog::About), nullptr, kNone, nullptr},
};

template <int Count>
MenuGroup group(const char* placeholder, const char* submenu, const MenuEntry (&entries)[Count])
{
    return {placeholder, submenu, entries, Count};
}

// By MenuPart.
const MenuGroup kGroups[kMenuPartCount] = {
    group("{CONTEXT_ENTRIES}", nullptr, kContextEntries),
    group("{DRAW_TOOL_ENTRIES}", "Draw Tool", kDrawToolEntries),
    group("{LAYER_ENTRIES}", "Layer", kLayerEntries),
    group("{FRAME_ENTRIES}", "Frame", kFrameEntries),
    group("{GHOST_ENTRIES}", "Ghosting", kGhostEntries),
    group("{PANEL_ENTRIES}", nullptr, kPanelEntries),
    group("{TIMELINE_DISPLAY_ENTRIES}", "Display Timeline Frames", kTimelineDisplayEntries),
    group("{VIEW_ENTRIES}", "View", kViewEntries),
    group("{UTILITY_ENTRIES}", "Utilities", kUtilityEntries),
    group("{CLEANUP_ENTRIES}", "Cleanup", kCleanupEntries),
    group("{SETTINGS_ENTRIES}", nullptr, kSettingsEntries),
};

}  // namespace

QString MenuEntry::commandText() const
{
    return command ? filled(*command, {QLatin1String(value)}) : QString();
}

const MenuGroup& menuGroup(MenuPart part)
{
    return kGroups[static_cast<int>(part)];
}

}  // namespace script
