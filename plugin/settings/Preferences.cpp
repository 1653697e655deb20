#include "settings/Preferences.h"

#include "settings/Messages.h"
#include "settings/PenState.h"
#include "settings/PreferenceRow.h"

#include <algorithm>

namespace {

int clampedPercent(int value)
{
    return std::min(std::max(value, 1), 100);
}

// Unlike the other options an unusable hardness does not move to the nearest end: below nothing it becomes the floor,
// which the brush has well above 0.
int usableHardness(int value, int ofNegative)
{
    return value < 0 ? ofNegative : std::min(value, 100);
}

void reportUnknownTool(ToolType tool)
{
    messages::error(QString("Unknown tool type: %1").arg(static_cast<int>(tool)));
}

}  // namespace

// Where a tool's options are kept; null for what it does not have.
struct Preferences::ToolOptions {
    ToolType tool;
    int Preferences::*size;
    int Preferences::*opacity;
    int Preferences::*hardness;
    int hardnessOfNegative;
    bool Preferences::*tablet;
};

const Preferences::ToolOptions* Preferences::optionsOf(ToolType tool)
{
    using P = Preferences;
    static const ToolOptions kOptions[] = {
        {ToolType::Pencil, &P::m_pencilSize, &P::m_pencilOpacity, nullptr, 0, &P::m_pencilTabletEnabled},
        {ToolType::Brush, &P::m_brushSize, &P::m_brushOpacity, &P::m_brushHardness, 10, &P::m_brushTabletEnabled},
        {ToolType::Eraser, &P::m_eraserSize, &P::m_eraserOpacity, &P::m_eraserHardness, 0, &P::m_eraserTabletEnabled},
        {ToolType::Text, &P::m_textSize, &P::m_textOpacity, nullptr, 0, nullptr},
        {ToolType::Line, &P::m_lineSize, &P::m_lineOpacity, nullptr, 0, nullptr},
        {ToolType::Arrow, &P::m_arrowSize, &P::m_arrowOpacity, nullptr, 0, nullptr},
        {ToolType::Ellipse, &P::m_ellipseSize, &P::m_ellipseOpacity, nullptr, 0, nullptr},
        {ToolType::Rectangle, &P::m_rectangleSize, &P::m_rectangleOpacity, nullptr, 0, nullptr},
    };
    for (const ToolOptions& options : kOptions) {
        if (options.tool == tool) {
            return &options;
        }
    }
    return nullptr;
}

// In the order in which they are read and written.
const std::vector<PreferenceRow>& Preferences::rows()
{
    using P = Preferences;
    using Row = PreferenceRow;
    constexpr OutOfRange kClamp = OutOfRange::Clamp;
    constexpr OutOfRange kKeep = OutOfRange::KeepCurrent;
    constexpr OutOfRange kDefault = OutOfRange::UseDefault;
    constexpr Row::Missing kMissingIsDefault = Row::TakesDefault;
    // No string literals kept in place here: the file cache of the settings keeps the values beyond the module's
    // unload.
    static const std::vector<PreferenceRow> kRows = {
        Row("main", "mainMenuName", &P::m_mainMenuName, QString::fromLatin1("LM2")),
        Row("main", "toolboxGeometry", &P::m_toolboxGeometry),
        Row("main", "toolOptionsGeometry", &P::m_toolOptionsGeometry),
        Row("main", "layerManagerGeometry", &P::m_layerManagerGeometry),
        Row("main", "colorPaletteGeometry", &P::m_colorPaletteGeometry),
        Row("main", "retimingToolGeometry", &P::m_retimingToolGeometry),

        Row("tools", "activeTool", &P::m_activeTool, static_cast<int>(ToolType::Brush), 0, 8, kKeep),
        Row("tools", "activeColor", &P::m_activeColor, QColor(Qt::cyan)),
        Row("tools", "pencilSize", &P::m_pencilSize, 6, 1, 100, kClamp),
        Row("tools", "pencilOpacity", &P::m_pencilOpacity, 100, 1, 100, kClamp),
        Row("tools", "pencilTabletEnabled", &P::m_pencilTabletEnabled, false),
        Row("tools", "brushSize", &P::m_brushSize, 6, 1, 100, kClamp),
        Row("tools", "brushOpacity", &P::m_brushOpacity, 100, 1, 100, kClamp),
        Row("tools", "brushTabletEnabled", &P::m_brushTabletEnabled, true),
        Row("tools", "eraserSize", &P::m_eraserSize, 40, 1, 100, kClamp),
        Row("tools", "textFontFamily", &P::m_textFontFamily, QString::fromLatin1("Arial")),
        Row("tools", "textSize", &P::m_textSize, 20, 1, 100, kClamp),
        Row("tools", "textOpacity", &P::m_textOpacity, 100, 1, 100, kClamp),
        Row("tools", "lineSize", &P::m_lineSize, 6, 1, 50, kClamp),
        Row("tools", "lineOpacity", &P::m_lineOpacity, 100, 1, 100, kClamp),
        Row("tools", "arrowSize", &P::m_arrowSize, 6, 1, 50, kClamp),
        Row("tools", "arrowOpacity", &P::m_arrowOpacity, 100, 1, 100, kClamp),
        Row("tools", "ellipseSize", &P::m_ellipseSize, 6, 1, 50, kClamp),
        Row("tools", "ellipseOpacity", &P::m_ellipseOpacity, 100, 1, 100, kClamp),
        Row("tools", "rectangleSize", &P::m_rectangleSize, 6, 1, 50, kClamp),
        Row("tools", "rectangleOpacity", &P::m_rectangleOpacity, 100, 1, 100, kClamp),
        Row("tools", "ghostPrev", &P::m_ghostPrev, false, kMissingIsDefault),
        Row("tools", "ghostNext", &P::m_ghostNext, false, kMissingIsDefault),
        Row("tools", "ghostPrevCount", &P::m_ghostPrevCount, 3, 1, 9, kDefault, kMissingIsDefault),
        Row("tools", "ghostNextCount", &P::m_ghostNextCount, 3, 1, 9, kDefault, kMissingIsDefault),
        Row("tools", "ghostColorOverride", &P::m_ghostColorOverride, false),
        Row("tools", "ghostColorOverridePrev", &P::m_ghostColorOverridePrev, QColor(Qt::darkGreen)),
        Row("tools", "ghostColorOverrideNext", &P::m_ghostColorOverrideNext, QColor(Qt::darkRed)),
        Row("tools", "retimeMoveToNextFrame", &P::m_retimeMoveToNextFrame, false),

        Row("preferences", "drawToolContextMenu", &P::m_drawToolContextMenu, true),
        Row("preferences", "transformToolContextMenu", &P::m_transformToolContextMenu, true),
        Row("preferences", "timelineContextMenu", &P::m_timelineContextMenu, true),
        Row("preferences", "toolboxDrawToolContextMenu", &P::m_toolboxDrawToolContextMenu, true),
        Row("preferences", "toolboxGhostingContextMenu", &P::m_toolboxGhostingContextMenu, true),
        Row("preferences", "showMainMenuInAnimationSet", &P::m_showMainMenuInAnimationSet, false),
        Row("preferences", "disableGhostingDuringPlayback", &P::m_disableGhostingDuringPlayback, true),
        Row("preferences", "timeControlRangeMoveEnabled", &P::m_timeControlRangeMoveEnabled, true),
        Row("preferences", "ignore2dPanZoom", &P::m_ignore2dPanZoom, false),
        Row("preferences", "defaultLayerState", &P::m_defaultLayerState, 0, 0, 2, kKeep, kMissingIsDefault),
        Row("preferences", "automaticallyAddFirstLayer", &P::m_automaticallyAddFirstLayer, true, kMissingIsDefault),
        Row("preferences", "alwaysDisplayNewLayerDialog", &P::m_alwaysDisplayNewLayerDialog, false, kMissingIsDefault),
        Row("preferences", "insertDefaultStaticFrame", &P::m_insertDefaultStaticFrame, true, kMissingIsDefault),
        Row("preferences", "defaultStaticFrameTime", &P::m_defaultStaticFrameTime, -999, kMissingIsDefault),
        Row("preferences", "timelineFrameDisplay", &P::m_timelineFrameDisplay, 0, 0, 2, kKeep),
        Row("preferences", "timelineFrameColor", &P::m_timelineFrameColor, QColor(143, 193, 207)),
    };
    return kRows;
}

Preferences::Preferences()
{
    for (const PreferenceRow& row : rows()) {
        row.setToDefault(*this);
    }
}

Preferences& Preferences::instance()
{
    static Preferences preferences;
    return preferences;
}

int Preferences::toolSize(ToolType tool) const
{
    const ToolOptions* options = optionsOf(tool);
    return options ? this->*options->size : 1;
}

void Preferences::setToolSize(ToolType tool, int size)
{
    const ToolOptions* options = optionsOf(tool);
    if (!options) {
        reportUnknownTool(tool);
        return;
    }
    const auto row = std::find_if(rows().begin(), rows().end(),
                                  [&](const PreferenceRow& candidate) { return candidate.isAbout(options->size); });
    this->*options->size = row->clamped(size);
}

int Preferences::toolOpacity(ToolType tool) const
{
    const ToolOptions* options = optionsOf(tool);
    return options ? this->*options->opacity : 100;
}

void Preferences::setToolOpacity(ToolType tool, int opacity)
{
    const ToolOptions* options = optionsOf(tool);
    if (!options) {
        reportUnknownTool(tool);
        return;
    }
    this->*options->opacity = clampedPercent(opacity);
}

int Preferences::toolHardness(ToolType tool) const
{
    const ToolOptions* options = optionsOf(tool);
    return options && options->hardness ? this->*options->hardness : 100;
}

void Preferences::setToolHardness(ToolType tool, int hardness)
{
    const ToolOptions* options = optionsOf(tool);
    if (options && options->hardness) {
        this->*options->hardness = usableHardness(hardness, options->hardnessOfNegative);
    }
}

bool Preferences::isTabletEnabled(ToolType tool) const
{
    const ToolOptions* options = optionsOf(tool);
    return options && options->tablet && this->*options->tablet;
}

void Preferences::setTabletEnabled(ToolType tool, bool enabled)
{
    const ToolOptions* options = optionsOf(tool);
    if (options && options->tablet) {
        this->*options->tablet = enabled;
    }
}

ToolType Preferences::effectiveTool() const
{
    return penState::isEraserTip() ? ToolType::Eraser : activeTool();
}
