#include "contexts/DrawContext.h"

#include "contexts/ThreadManager.h"
#include "model/LayerManager.h"
#include "node/BaseNode.h"
#include "node/MasterDrawing.h"
#include "node/TimelineMarks.h"
#include "settings/Names.h"
#include "settings/Preferences.h"
#include "settings/Rounding.h"
#include "settings/ScriptBridge.h"
#include "settings/ToolGesture.h"

// Before the host's view header, which may bring the window system's macros.
#include <QCursor>

#include <maya/M3dView.h>
#include <maya/MCursor.h>
#include <maya/MDagPath.h>
#include <maya/MEvent.h>

namespace {

const char kHelp[] = "Draw on viewport";

QPoint portPosition(const MEvent& event)
{
    short x = 0;
    short y = 0;
    event.getPosition(x, y);
    return QPoint(x, y);
}

/// Where an event took place, in the pixels in which the pointer is sampled.
QPoint pressPosition(const MEvent& event, M3dView& view)
{
    const QPoint port = portPosition(event);
    const QWidget* widget = view.widget();
    const double scale = widget && view.portWidth() > 0 ? double(widget->width()) / view.portWidth() : 1.0;
    // An event counts from pixel (0, 0) at the lower left, samples from (1, 2).
    return QPoint(roundedHalfUp(port.x() * scale) + 1, roundedHalfUp(port.y() * scale) + 2);
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
    finish();  // the host may enter the tool anew without leaving it first
    setHelpString(kHelp);
    if (!BaseNode::masterNode()) {
        script::createDrawingNodeOnIdle();
    }
    TimelineMarks::setToolActive(true);
    toolGesture::Answers answers;
    answers.finish = [this] { finish(); };
    toolGesture::setAnswers(answers);
    m_inputHandler.setUp();
}

void DrawContext::toolOffCleanup()
{
    finish();
    toolGesture::setAnswers({});
    TimelineMarks::setToolActive(false);
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

// Pointer -------------------------------------------------------------------------------------------------------------

bool DrawContext::isOfSecondButton(const MEvent& event) const
{
    MStatus status;
    const MEvent::MouseButtonType button = event.mouseButton(&status);
    return isHeld() && status && button != m_button;
}

MStatus DrawContext::doPress(MEvent& event)
{
    if (isOfSecondButton(event)) {
        return MStatus::kSuccess;
    }
    finish();  // what is typed, or a press whose release never came
    m_inputHandler.watchActiveView();
    m_inputHandler.pen().pressButton();
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    BaseNode* const node = BaseNode::masterNode();
    if (Preferences::instance().activeTool() == ToolType::Transform || !status) {
        return MStatus::kSuccess;
    }
    if (!node) {
        script::createDrawingNodeOnIdle();
        return MStatus::kSuccess;
    }
    m_button = event.mouseButton();
    m_view = view.widget();
    const HeldKeys& keys = m_inputHandler.heldKeys();
    if (keys.changesSize() || (keys.changesOpacity() && Preferences::instance().activeTool() != ToolType::Eraser)) {
        beginAdjustment(event, *node);
    } else if (m_button == MEvent::kLeftMouse) {
        beginStroke(event, *node);
    } else {
        workOnCamera(*node);
    }
    return MStatus::kSuccess;
}

MStatus DrawContext::doDrag(MEvent& event)
{
    if (m_state == State::Adjusting) {
        m_adjustment.dragTo(portPosition(event).x(), m_drawManager);
    } else if (m_state == State::Drawing) {
        if (BaseNode* node = BaseNode::fromHandle(m_node)) {
            node->redrawActiveView();
        } else {
            finish();  // with the node, what is drawn on has gone
        }
    }
    return MStatus::kSuccess;
}

MStatus DrawContext::doRelease(MEvent& event)
{
    if (!isOfSecondButton(event)) {
        release();
    }
    return MStatus::kSuccess;
}

// A text that is typed stays: it may have begun where the release was taken for lost, which then comes late.
void DrawContext::release()
{
    if (isHeld() && !beginTyping()) {
        finish();
    }
    m_inputHandler.pen().reset();
}

void DrawContext::releaseLost()
{
    if (isHeld()) {
        release();
    }
}

void DrawContext::windowLeft(const QObject* window)
{
    if (m_view && m_view->window() == window) {
        releaseLost();
    }
}

void DrawContext::viewDestroyed()
{
    if (!m_view) {
        finish();
        m_inputHandler.pen().reset();  // its lifting, or the release, may have gone with the view
    }
}

MStatus DrawContext::doPress(MEvent& event, MHWRender::MUIDrawManager& drawManager, const MHWRender::MFrameContext&)
{
    m_drawManager = &drawManager;
    const MStatus status = doPress(event);
    m_drawManager = nullptr;
    return status;
}

MStatus DrawContext::doDrag(MEvent& event, MHWRender::MUIDrawManager& drawManager, const MHWRender::MFrameContext&)
{
    m_drawManager = &drawManager;
    const MStatus status = doDrag(event);
    m_drawManager = nullptr;
    return status;
}

MStatus DrawContext::doRelease(MEvent& event, MHWRender::MUIDrawManager& drawManager, const MHWRender::MFrameContext&)
{
    m_drawManager = &drawManager;
    const MStatus status = doRelease(event);
    m_drawManager = nullptr;
    return status;
}

// What a press begins -------------------------------------------------------------------------------------------------

void DrawContext::beginAdjustment(const MEvent& event, BaseNode& node)
{
    M3dView view = M3dView::active3dView();
    const ToolAdjustment::Value value =
        m_inputHandler.heldKeys().changesSize() ? ToolAdjustment::Value::Size : ToolAdjustment::Value::Opacity;
    const double scale = node.prepareToolView(view) ? node.portPixelsPerCanvasPixel() : 1.0;
    m_adjustment.begin(value, portPosition(event), scale, m_drawManager);
    m_state = State::Adjusting;
}

void DrawContext::beginStroke(const MEvent& event, BaseNode& node)
{
    M3dView view = M3dView::active3dView();
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    MDagPath cameraPath;
    if (!manager || !view.getCamera(cameraPath) || !node.prepareToolView(view)) {
        return;
    }
    manager->syncCurrentCamera();
    if (manager->hasStroke()) {
        manager->dropStroke();  // nobody fills it any more
    }
    m_node = node.thisMObject();
    m_camera = script::cameraKey(cameraPath);
    int newLayerIndex = -1;
    bool frameCreated = false;
    if (!node.drawingTarget(m_camera, newLayerIndex, frameCreated)) {
        return;
    }
    if (ActiveStroke* stroke = manager->beginStroke(m_camera, false)) {
        stroke->layerMade = newLayerIndex >= 0;
        stroke->frameMade = frameCreated;
        ThreadManager::instance().start(m_view, &node, m_camera, pressPosition(event, view));
    }
    if (ThreadManager::instance().isRunning()) {
        m_state = State::Drawing;
    } else {
        giveUpStroke(node, *manager);
    }
}

// The camera's active layer becomes the one that is worked on.
void DrawContext::workOnCamera(BaseNode& node)
{
    M3dView view = M3dView::active3dView();
    const std::shared_ptr<LayerManager> manager = node.layerManager();
    MDagPath cameraPath;
    if (!manager || !view.getCamera(cameraPath)) {
        return;
    }
    const QString camera = script::cameraKey(cameraPath);
    const int activeLayer = manager->activeLayerIndex(camera);
    if (manager->currentCamera() != camera && activeLayer >= 0) {
        script::setActiveLayer(camera, activeLayer);
    }
}

// False for what has no text.
bool DrawContext::beginTyping()
{
    ThreadManager::instance().stop();
    BaseNode* const node = BaseNode::fromHandle(m_node);
    const std::shared_ptr<LayerManager> manager = node ? node->layerManagerIfAny() : nullptr;
    const ActiveStroke* const stroke = manager ? manager->stroke(m_camera) : nullptr;
    if (!stroke || stroke->tool != ToolType::Text || stroke->points.isEmpty() || !m_view) {
        return false;
    }
    m_state = State::Typing;
    m_text.open(*node, m_camera, m_view, m_view->mapFromGlobal(QCursor::pos()));
    node->redrawActiveView();
    return true;
}

bool DrawContext::isTyping()
{
    if (m_state == State::Typing && !m_text.isOpen()) {
        finish();
    }
    return m_state == State::Typing;
}

void DrawContext::endTyping()
{
    if (isTyping()) {
        finish();
    }
}

// Ends whatever goes on; nothing when nothing does.
void DrawContext::finish()
{
    if (m_state == State::Typing) {
        m_text.close();  // first: what comes with it is still typed
    }
    const State ended = m_state;
    m_state = State::Idle;
    switch (ended) {
    case State::Adjusting: endAdjustment(); break;
    case State::Drawing:
    case State::Typing: endStroke(); break;
    case State::Idle: break;
    }
}

// Viewport 2.0 shows the preview until it is drawn anew, which need not follow where the release was lost.
void DrawContext::endAdjustment()
{
    m_adjustment.end();
    if (BaseNode* const node = BaseNode::masterNode()) {
        node->scheduleRedraw();
    }
}

// Of a node that has been deleted the stroke is taken back too: it must not come back with the node.
void DrawContext::endStroke()
{
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
