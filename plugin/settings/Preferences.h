#pragma once

#include "settings/ToolType.h"

#include <QByteArray>
#include <QColor>
#include <QString>

#include <vector>

class PreferenceRow;

/// Every user setting. One process-wide set is used by the whole plug-in; it lives as long as the module. Main thread
/// only. Sizes are canvas pixels (points for text), opacities and hardnesses percent.
class Preferences {
public:
    /// All values at their defaults.
    Preferences();

    static Preferences& instance();
    /// The rows of the file, in the order in which they are read and written.
    static const std::vector<PreferenceRow>& rows();

    /// The file in the host's user preference folder; empty, and reported, when the host names no folder.
    static QString filePath();
    /// Reads or writes that file; nothing happens without a path.
    void load();
    void save() const;
    /// The same with a file of the caller's choice. A key that is missing, or cannot be understood as its type, keeps
    /// the value in memory (or takes the default of a row that says so).
    void loadFrom(const QString& path);
    /// Writes the file anew, whole or not at all: nothing of what it held stays. False when that fails.
    bool saveTo(const QString& path) const;

    // Tool options by tool type. An unknown type is reported and changes nothing; asked for, it gives 1 and 100.
    int toolSize(ToolType tool) const;
    void setToolSize(ToolType tool, int size);  ///< clamped to 1..100, the shapes' to 1..50
    int toolOpacity(ToolType tool) const;
    void setToolOpacity(ToolType tool, int opacity);  ///< clamped to 1..100; the eraser's is never saved
    int toolHardness(ToolType tool) const;            ///< 100 for all but brush and eraser
    void setToolHardness(ToolType tool, int hardness);
    bool isTabletEnabled(ToolType tool) const;  ///< false for all but the freehand tools
    void setTabletEnabled(ToolType tool, bool enabled);

    ToolType activeTool() const { return static_cast<ToolType>(m_activeTool); }
    void setActiveTool(ToolType tool) { m_activeTool = static_cast<int>(tool); }
    /// The tool a press uses: the eraser while the pen's eraser end is on the tablet, else the active tool.
    ToolType effectiveTool() const;
    const QColor& activeColor() const { return m_activeColor; }
    void setActiveColor(const QColor& colour) { m_activeColor = colour; }
    const QString& textFontFamily() const { return m_textFontFamily; }
    void setTextFontFamily(const QString& family) { m_textFontFamily = family; }

    const QString& mainMenuName() const { return m_mainMenuName; }
    void setMainMenuName(const QString& name) { m_mainMenuName = name; }
    const QByteArray& toolboxGeometry() const { return m_toolboxGeometry; }
    void setToolboxGeometry(const QByteArray& geometry) { m_toolboxGeometry = geometry; }
    const QByteArray& toolOptionsGeometry() const { return m_toolOptionsGeometry; }
    void setToolOptionsGeometry(const QByteArray& geometry) { m_toolOptionsGeometry = geometry; }
    const QByteArray& layerManagerGeometry() const { return m_layerManagerGeometry; }
    void setLayerManagerGeometry(const QByteArray& geometry) { m_layerManagerGeometry = geometry; }
    const QByteArray& colorPaletteGeometry() const { return m_colorPaletteGeometry; }
    void setColorPaletteGeometry(const QByteArray& geometry) { m_colorPaletteGeometry = geometry; }
    const QByteArray& retimingToolGeometry() const { return m_retimingToolGeometry; }
    void setRetimingToolGeometry(const QByteArray& geometry) { m_retimingToolGeometry = geometry; }

    bool ghostPrev() const { return m_ghostPrev; }
    void setGhostPrev(bool on) { m_ghostPrev = on; }
    bool ghostNext() const { return m_ghostNext; }
    void setGhostNext(bool on) { m_ghostNext = on; }
    int ghostPrevCount() const { return m_ghostPrevCount; }
    void setGhostPrevCount(int count) { m_ghostPrevCount = count; }
    int ghostNextCount() const { return m_ghostNextCount; }
    void setGhostNextCount(int count) { m_ghostNextCount = count; }
    bool ghostColorOverride() const { return m_ghostColorOverride; }
    void setGhostColorOverride(bool on) { m_ghostColorOverride = on; }
    const QColor& ghostColorOverridePrev() const { return m_ghostColorOverridePrev; }
    void setGhostColorOverridePrev(const QColor& colour) { m_ghostColorOverridePrev = colour; }
    const QColor& ghostColorOverrideNext() const { return m_ghostColorOverrideNext; }
    void setGhostColorOverrideNext(const QColor& colour) { m_ghostColorOverrideNext = colour; }
    bool disableGhostingDuringPlayback() const { return m_disableGhostingDuringPlayback; }
    void setDisableGhostingDuringPlayback(bool on) { m_disableGhostingDuringPlayback = on; }
    bool retimeMoveToNextFrame() const { return m_retimeMoveToNextFrame; }
    void setRetimeMoveToNextFrame(bool on) { m_retimeMoveToNextFrame = on; }

    bool drawToolContextMenu() const { return m_drawToolContextMenu; }
    void setDrawToolContextMenu(bool on) { m_drawToolContextMenu = on; }
    bool transformToolContextMenu() const { return m_transformToolContextMenu; }
    void setTransformToolContextMenu(bool on) { m_transformToolContextMenu = on; }
    bool timelineContextMenu() const { return m_timelineContextMenu; }
    void setTimelineContextMenu(bool on) { m_timelineContextMenu = on; }
    bool toolboxDrawToolContextMenu() const { return m_toolboxDrawToolContextMenu; }
    void setToolboxDrawToolContextMenu(bool on) { m_toolboxDrawToolContextMenu = on; }
    bool toolboxGhostingContextMenu() const { return m_toolboxGhostingContextMenu; }
    void setToolboxGhostingContextMenu(bool on) { m_toolboxGhostingContextMenu = on; }
    bool showMainMenuInAnimationSet() const { return m_showMainMenuInAnimationSet; }
    void setShowMainMenuInAnimationSet(bool on) { m_showMainMenuInAnimationSet = on; }

    bool timeControlRangeMoveEnabled() const { return m_timeControlRangeMoveEnabled; }
    void setTimeControlRangeMoveEnabled(bool on) { m_timeControlRangeMoveEnabled = on; }
    bool ignore2dPanZoom() const { return m_ignore2dPanZoom; }
    void setIgnore2dPanZoom(bool on) { m_ignore2dPanZoom = on; }
    int defaultLayerState() const { return m_defaultLayerState; }
    void setDefaultLayerState(int state) { m_defaultLayerState = state; }
    bool automaticallyAddFirstLayer() const { return m_automaticallyAddFirstLayer; }
    void setAutomaticallyAddFirstLayer(bool on) { m_automaticallyAddFirstLayer = on; }
    bool alwaysDisplayNewLayerDialog() const { return m_alwaysDisplayNewLayerDialog; }
    void setAlwaysDisplayNewLayerDialog(bool on) { m_alwaysDisplayNewLayerDialog = on; }
    bool insertDefaultStaticFrame() const { return m_insertDefaultStaticFrame; }
    void setInsertDefaultStaticFrame(bool on) { m_insertDefaultStaticFrame = on; }
    int defaultStaticFrameTime() const { return m_defaultStaticFrameTime; }  ///< a frame number
    void setDefaultStaticFrameTime(int frameNumber) { m_defaultStaticFrameTime = frameNumber; }
    int timelineFrameDisplay() const { return m_timelineFrameDisplay; }  ///< 0 always, 1 when in use, 2 off
    void setTimelineFrameDisplay(int display) { m_timelineFrameDisplay = display; }
    const QColor& timelineFrameColor() const { return m_timelineFrameColor; }
    void setTimelineFrameColor(const QColor& colour) { m_timelineFrameColor = colour; }

private:
    struct ToolOptions;
    static const ToolOptions* optionsOf(ToolType tool);  // null for a tool without options

    // Defaults of what is saved stand in the rows.
    QString m_mainMenuName;
    QByteArray m_toolboxGeometry;
    QByteArray m_toolOptionsGeometry;
    QByteArray m_layerManagerGeometry;
    QByteArray m_colorPaletteGeometry;
    QByteArray m_retimingToolGeometry;

    int m_activeTool;
    QColor m_activeColor;
    int m_pencilSize;
    int m_pencilOpacity;
    bool m_pencilTabletEnabled;
    int m_brushSize;
    int m_brushOpacity;
    bool m_brushTabletEnabled;
    int m_eraserSize;
    QString m_textFontFamily;
    int m_textSize;
    int m_textOpacity;
    int m_lineSize;
    int m_lineOpacity;
    int m_arrowSize;
    int m_arrowOpacity;
    int m_ellipseSize;
    int m_ellipseOpacity;
    int m_rectangleSize;
    int m_rectangleOpacity;
    bool m_ghostPrev;
    bool m_ghostNext;
    int m_ghostPrevCount;
    int m_ghostNextCount;
    bool m_ghostColorOverride;
    QColor m_ghostColorOverridePrev;
    QColor m_ghostColorOverrideNext;
    bool m_retimeMoveToNextFrame;

    bool m_drawToolContextMenu;
    bool m_transformToolContextMenu;
    bool m_timelineContextMenu;
    bool m_toolboxDrawToolContextMenu;
    bool m_toolboxGhostingContextMenu;
    bool m_showMainMenuInAnimationSet;
    bool m_disableGhostingDuringPlayback;
    bool m_timeControlRangeMoveEnabled;
    bool m_ignore2dPanZoom;
    int m_defaultLayerState;
    bool m_automaticallyAddFirstLayer;
    bool m_alwaysDisplayNewLayerDialog;
    bool m_insertDefaultStaticFrame;
    int m_defaultStaticFrameTime;
    int m_timelineFrameDisplay;
    QColor m_timelineFrameColor;

    // Never saved.
    int m_brushHardness = 100;
    int m_eraserHardness = 100;
    int m_eraserOpacity = 100;
    bool m_eraserTabletEnabled = false;
};
