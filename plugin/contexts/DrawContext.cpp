#include "contexts/DrawContext.h"

#include "contexts/ThreadManager.h"
#include "model/LayerManager.h"
#include "node/BaseNode.h"
#include "node/MasterDrawing.h"
#include "settings/Names.h"
#include "settings/Preferences.h"
#include "settings/Rounding.h"
#include "settings/ScriptBridge.h"

#include <maya/M3dView.h>
#include <maya/MCursor.h>
#include <maya/MDagPath.h>
#include <maya/MEvent.h>

namespace {

const char kHelp[] = "Draw on viewport";

/// Where an event took place, in the pixels in which the pointer is sampled.
QPoint pressPosition(const MEvent& event, M3dView& view)
{
    short x = 0;
    short y = 0;
    event.getPosition(x, y);
    const QWidget* widget = view.widget();
    const double scale = widget && view.portWidth() > 0 ? double(widget->width()) / view.portWidth() : 1.0;
    // An event counts from pixel (0, 0) at the lower left, samples from (1, 2).
    return QPoint(roundedHalfUp(x * scale) + 1, roundedHalfUp(y * scale) + 2);
}

}  // namespace

DrawContext::DrawContext()
{
    setTitleString("Draw Context");
    setImage(":/icons/draw_context_01.png", MPxContext::kImage1);
    setCursor(MCursor::crossHairCursor);
}

void DrawContext::toolOnSetup(MEvent&)
{
    setHelpString(kHelp);
    if (!BaseNode::masterNode()) {
        script::createDrawingNodeOnIdle();
    }
    m_inputHandler.setUp();
}

void DrawContext::toolOffCleanup()
{
    endStroke();
    m_inputHandler.cleanUp();
}

void DrawContext::getClassName(MString& name) const
{
    name = names::kDrawContextCommand;
}

MStatus DrawContext::helpStateHasChanged(MEvent&)
{
    return setHelpString(kHelp);
}

MStatus DrawContext::doPress(MEvent& event)
{
    endStroke();  // of a press whose release never came
    m_inputHandler.watchActiveView();
    m_inputHandler.pen().pressButton();
    if (event.mouseButton() == MEvent::kLeftMouse) {
        beginStroke(event);
    }
    return MStatus::kSuccess;
}

MStatus DrawContext::doDrag(MEvent&)
{
    BaseNode* node = m_drawing ? BaseNode::fromHandle(m_node) : nullptr;
    if (node) {
        node->redrawActiveView();
    } else {
        endStroke();  // with the node, what is drawn on has gone
    }
    return MStatus::kSuccess;
}

MStatus DrawContext::doRelease(MEvent&)
{
    endStroke();
    m_inputHandler.pen().reset();
    return MStatus::kSuccess;
}

MStatus DrawContext::doPress(MEvent& event, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&)
{
    return doPress(event);
}

MStatus DrawContext::doDrag(MEvent& event, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&)
{
    return doDrag(event);
}

MStatus DrawContext::doRelease(MEvent& event, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&)
{
    return doRelease(event);
}

void DrawContext::beginStroke(const MEvent& event)
{
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    BaseNode* node = status ? BaseNode::masterNode() : nullptr;
    const std::shared_ptr<LayerManager> manager = node ? node->layerManager() : nullptr;
    MDagPath cameraPath;
    if (!manager || Preferences::instance().effectiveTool() == ToolType::Transform || !view.getCamera(cameraPath)
        || !node->prepareToolView(view)) {
        return;
    }
    manager->syncCurrentCamera();
    if (manager->hasStroke()) {
        manager->dropStroke();  // nobody fills it any more
    }
    m_node = node->thisMObject();
    m_camera = script::cameraKey(cameraPath);
    int newLayerIndex = -1;
    bool frameCreated = false;
    if (!node->drawingTarget(m_camera, newLayerIndex, frameCreated)) {
        return;
    }
    if (ActiveStroke* stroke = manager->beginStroke(m_camera, false)) {
        stroke->layerMade = newLayerIndex >= 0;
        stroke->frameMade = frameCreated;
        ThreadManager::instance().start(view.widget(), node, m_camera, pressPosition(event, view));
    }
    m_drawing = ThreadManager::instance().isRunning();
    if (!m_drawing) {
        giveUpStroke(*node, *manager);
    }
}

// Of a node that has been deleted the stroke is taken back too: it must not come back with the node.
void DrawContext::endStroke()
{
    if (!m_drawing) {
        return;
    }
    m_drawing = false;
    ThreadManager::instance().stop();
    BaseNode* node = BaseNode::fromLivingHandle(m_node);
    const std::shared_ptr<LayerManager> manager = node ? node->layerManagerIfAny() : nullptr;
    if (!manager) {
        return;  // the scene it belonged to is gone
    }
    const ActiveStroke* stroke = manager->stroke(m_camera);
    if (!stroke || stroke->points.isEmpty() || !node->commitStroke(m_camera)) {
        giveUpStroke(*node, *manager);
    }
}

void DrawContext::giveUpStroke(BaseNode& node, LayerManager& manager)
{
    node.withdrawMadeStroke();
    manager.dropStroke();  // of what needed nothing made
    publishMasterDrawing();
    node.redrawActiveView();
}
