#include "commands/PanelActions.h"

#include "model/LayerManager.h"
#include "node/MasterDrawing.h"
#include "settings/ScriptBridge.h"

#include <maya/MQtUtil.h>

#include <QInputDialog>
#include <QMessageBox>
#include <QWidget>

namespace {

constexpr int kLabelPadding = 17;  // blanks that make the dialog wider

/// Null when nothing can be opened.
Panels* openablePanels()
{
    return script::isBatch() ? nullptr : Panels::installed();
}

MStatus statusOf(bool succeeded)
{
    return succeeded ? MStatus::kSuccess : MStatus::kFailure;
}

/// Empty when the user cancels.
QString askForCamera(const QStringList& cameras, const QString& preselected)
{
    const QString label = QString("Select camera to move layers from:") + QString(kLabelPadding, QLatin1Char(' '));
    bool confirmed = false;
    const QString camera = QInputDialog::getItem(MQtUtil::mainWindow(), "Move Layers to View", label, cameras,
                                                 qMax(cameras.indexOf(preselected), 0), false, &confirmed);
    return confirmed ? camera : QString();
}

}  // namespace

MStatus showPanel(Panel panel)
{
    Panels* panels = openablePanels();
    QWidget* widget = panels ? panels->panel(panel) : nullptr;
    if (!widget) {
        return MStatus::kFailure;
    }
    if (!widget->isVisible()) {
        widget->show();
        return MStatus::kSuccess;
    }
    widget->setWindowState(widget->windowState() & ~Qt::WindowMinimized);  // which counts as visible
    widget->activateWindow();
    widget->raise();
    return MStatus::kSuccess;
}

MStatus openDialog(Dialog dialog)
{
    Panels* panels = openablePanels();
    return statusOf(panels && panels->open(dialog));
}

MStatus openLayerProperties()
{
    const std::shared_ptr<LayerManager> drawing = masterDrawing();
    if (!drawing) {
        return MStatus::kFailure;
    }
    const QString camera = drawing->currentCamera();
    const int index = drawing->activeLayerIndex(camera);
    Panels* panels = openablePanels();
    return statusOf(index >= 0 && panels && panels->openLayerProperties(camera, index));
}

MStatus refreshLayerManager()
{
    publishMasterDrawing();
    return MStatus::kSuccess;
}

MStatus resetPanels()
{
    if (script::isBatch()) {
        return MStatus::kFailure;
    }
    const QMessageBox::StandardButton answer =
        QMessageBox::question(MQtUtil::mainWindow(), "Reset UI", "Reset user interface elements?",
                              QMessageBox::Yes | QMessageBox::No, QMessageBox::NoButton);
    Panels* panels = Panels::installed();
    if (answer == QMessageBox::Yes && panels) {
        panels->destroyAll(Panels::Places::Forget);
    }
    return MStatus::kSuccess;
}

MStatus openFloatingViewportWith(const QString& camera)
{
    const QStringList cameras = script::sceneCameras();
    const std::shared_ptr<LayerManager> drawing = masterDrawing();
    if (!camera.isEmpty() || !drawing) {
        script::openFloatingViewport(cameras.contains(camera) ? camera : QString());
        return MStatus::kSuccess;
    }
    if (script::isBatch()) {
        return MStatus::kFailure;
    }
    const QString chosen = askForCamera(cameras, drawing->currentCamera());
    if (!chosen.isEmpty()) {
        script::openFloatingViewport(chosen);
    }
    return MStatus::kSuccess;
}
