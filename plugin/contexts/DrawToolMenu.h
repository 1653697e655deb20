#pragma once

#include "contexts/ToolMenu.h"

#include <QString>

/// What opens over a view while the draw tool is in use: the layers of the view's camera, and what a hand that draws
/// wants next. It shows the settings as they are when it is made.
class DrawToolMenu : public ToolMenu {
    Q_OBJECT

public:
    explicit DrawToolMenu(QWidget& view);

public slots:
    /// Of the layer that the entry showed, wherever in the camera's stack it is now; nothing happens without it.
    void SetActiveLayer();
    void TransformTool() { script::switchToTransformToolDeferred(); }

    void SetPencilTool() { script::selectTool(ToolType::Pencil); }
    void SetBrushTool() { script::selectTool(ToolType::Brush); }
    void SetEraserTool() { script::selectTool(ToolType::Eraser); }
    void SetTextTool() { script::selectTool(ToolType::Text); }
    void SetLineTool() { script::selectTool(ToolType::Line); }
    void SetArrowTool() { script::selectTool(ToolType::Arrow); }
    void SetEllipseTool() { script::selectTool(ToolType::Ellipse); }
    void SetRectangleTool() { script::selectTool(ToolType::Rectangle); }

    void NewLayer() { script::openDialog(Dialog::NewLayer); }
    void LayerProperties() { script::openLayerProperties(); }

    void StepForward() { script::editFrames(script::FrameAction::StepForward); }
    void StepBack() { script::editFrames(script::FrameAction::StepBack); }

    void ToggleGhostPrevious() { script::showGhosts(script::GhostSide::Previous, script::GhostSwitch::Toggle); }
    void ToggleGhostNext() { script::showGhosts(script::GhostSide::Next, script::GhostSwitch::Toggle); }
    void GhostingSettings() { script::openDialog(Dialog::GhostingSettings); }

    void ShowToolbox() { script::openPanel(Panel::Toolbox); }
    void ShowToolOptions() { script::openPanel(Panel::ToolOptions); }
    void ShowLayerManager() { script::openPanel(Panel::LayerManager); }
    void ShowRetimingTool() { script::openPanel(Panel::RetimingTool); }

    void SetTimelineDisplayOn() { script::setTimelineFrameDisplay(0); }
    void SetTimelineDisplaySelectionContext() { script::setTimelineFrameDisplay(1); }
    void SetTimelineDisplayOff() { script::setTimelineFrameDisplay(2); }

    void DeleteActiveLayer() { script::cleanUp(script::Cleanup::ActiveLayer); }
    void DeleteActiveCameraLayers() { script::cleanUp(script::Cleanup::ActiveCameraLayers); }
    void ClearAll() { script::cleanUp(script::Cleanup::Everything); }

private:
    void addLayers();
    QString layerLabel(const QString& name, bool isActive) const;
    QList<QAction*> addGroup(script::MenuPart part);
    /// Marks one of the entries as the one chosen; none when there is no such entry.
    void choose(const QList<QAction*>& entries, int which);

    const QString m_camera;
};
