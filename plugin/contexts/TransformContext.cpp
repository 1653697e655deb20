#include "contexts/TransformContext.h"

#include "model/FrameNumber.h"
#include "node/BaseNode.h"
#include "settings/Names.h"
#include "settings/ScriptBridge.h"

#include <maya/M3dView.h>
#include <maya/MCursor.h>
#include <maya/MDagPath.h>
#include <maya/MEvent.h>

namespace {

const char kSelectingHelp[] =
    "Select region to transform and press Enter. No selection will apply transform to entire image.";
const char kTransformingHelp[] =
    "Translate(LMB)  Rotate(Shift+LMB)  Scale(MMB)  Apply Changes(Enter)  Revert(Backspace)  Cancel(ESC)";

QPoint positionOf(const MEvent& event)
{
    short x = 0;
    short y = 0;
    event.getPosition(x, y);
    return QPoint(x, y);
}

QString activeCamera()
{
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    MDagPath camera;
    return status && view.getCamera(camera) ? script::cameraKey(camera) : QString();
}

}  // namespace

TransformContext::TransformContext() : m_inputHandler(*this), m_anchor()
{
    setTitleString("Transform Context");
    setImage(":/icons/transform_context_01.png", MPxContext::kImage1);
    setCursor(MCursor::editCursor);
}

void TransformContext::toolOnSetup(MEvent&)
{
    revert();
    reset();
    m_failed = false;
    m_inputHandler.setUp();
}

void TransformContext::toolOffCleanup()
{
    revert();
    reset();
    m_inputHandler.cleanUp();
}

void TransformContext::getClassName(MString& name) const
{
    name = names::kTransformContextCommand;
}

MStatus TransformContext::helpStateHasChanged(MEvent&)
{
    return showHelp();
}

MStatus TransformContext::showHelp()
{
    return setHelpString(m_state == State::Selecting ? kSelectingHelp : kTransformingHelp);
}

// What it works on ----------------------------------------------------------------------------------------------------

BaseNode* TransformContext::node() const
{
    return BaseNode::fromHandle(m_node);
}

std::shared_ptr<LayerManager> TransformContext::manager() const
{
    const BaseNode* owner = node();
    return owner ? owner->layerManager() : nullptr;
}

ActiveStroke* TransformContext::record() const
{
    const std::shared_ptr<LayerManager> drawing = m_state == State::Transforming ? manager() : nullptr;
    ActiveStroke* stroke = drawing ? drawing->stroke(m_camera) : nullptr;
    return stroke && stroke->tool == ToolType::Transform ? stroke : nullptr;
}

// Pointer -------------------------------------------------------------------------------------------------------------

MStatus TransformContext::doPress(MEvent& event)
{
    m_drag = Drag::None;
    if (m_failed) {
        return MStatus::kSuccess;
    }
    m_inputHandler.watchActiveView();
    const QPoint position = positionOf(event);
    if (m_state == State::Transforming) {
        pressTransforming(event, position);
    } else if (event.mouseButton() == MEvent::kLeftMouse && begin()) {
        pressSelecting(position);
    }
    return MStatus::kSuccess;
}

void TransformContext::pressSelecting(const QPoint& position)
{
    m_drag = Drag::Select;
    m_span = {position, position};
    showOutline(*node());
}

void TransformContext::pressTransforming(const MEvent& event, const QPoint& position)
{
    if (activeCamera() != m_camera) {
        m_failed = true;
        return;
    }
    m_anchor = anchorOf(position, m_transform);
    if (event.mouseButton() == MEvent::kMiddleMouse) {
        m_drag = Drag::Scale;
    } else {
        m_drag = event.isModifierShift() ? Drag::Rotate : Drag::Translate;
    }
}

MStatus TransformContext::doDrag(MEvent& event)
{
    BaseNode* const target = m_drag == Drag::None || m_failed ? nullptr : node();
    if (!target) {
        return MStatus::kSuccess;
    }
    const QPoint position = positionOf(event);
    switch (m_drag) {
    case Drag::None: break;
    case Drag::Select: m_span.end = position; break;
    case Drag::Translate: translateTo(*target, position); break;
    case Drag::Rotate: turnTo(m_transform, m_anchor, position.x()); break;
    case Drag::Scale: scaleTowards(m_transform, m_anchor, position, event.isModifierShift()); break;
    }
    refresh(*target);
    return MStatus::kSuccess;
}

void TransformContext::translateTo(const BaseNode& node, const QPoint& position)
{
    m_transform.viewTranslation = position - m_anchor.translation;
    m_transform.translation = node.portToCanvas(position) - node.portToCanvas(m_anchor.translation);
}

MStatus TransformContext::doRelease(MEvent&)
{
    if (m_drag == Drag::Select) {
        m_span = normalised(m_span);
    }
    m_drag = Drag::None;
    return MStatus::kSuccess;
}

MStatus TransformContext::doPress(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                                  const MHWRender::MFrameContext&)
{
    m_drawManager = &drawManager;
    const MStatus status = doPress(event);
    m_drawManager = nullptr;
    return status;
}

MStatus TransformContext::doDrag(MEvent& event, MHWRender::MUIDrawManager& drawManager, const MHWRender::MFrameContext&)
{
    m_drawManager = &drawManager;
    const MStatus status = doDrag(event);
    m_drawManager = nullptr;
    return status;
}

MStatus TransformContext::doRelease(MEvent& event, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&)
{
    return doRelease(event);
}

// Keys ----------------------------------------------------------------------------------------------------------------

void TransformContext::completeAction()
{
    if (m_state == State::Selecting) {
        start(Taking());
    } else if (!m_failed) {
        apply();
    }
}

// The ways out stay open when the tool has failed: they only take back, and set the tool up again.
void TransformContext::deleteAction()
{
    revert();
    restart();
}

void TransformContext::abortAction()
{
    revert();
    reset();
    script::switchToDrawToolDeferred();
}

// From the selection to the commit ------------------------------------------------------------------------------------

// False, and the tool is done for, when the camera has nothing that may be transformed. Without a drawing node nothing
// happens.
bool TransformContext::begin(bool pasting)
{
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    BaseNode* const master = status ? BaseNode::masterNode() : nullptr;
    const std::shared_ptr<LayerManager> drawing = master ? master->layerManager() : nullptr;
    if (!drawing || !master->prepareToolView(view)) {
        return false;
    }
    reset();
    m_node = master->thisMObject();
    m_camera = activeCamera();
    m_failed = !(pasting ? aimAtPasteTarget(*master, *drawing) : aimAtSelection(*master, *drawing));
    return !m_failed;
}

bool TransformContext::aimAtSelection(BaseNode& node, LayerManager& manager)
{
    const bool canEdit = node.canEditActiveLayer(m_camera);
    if (canEdit) {
        aimAtActiveLayer(manager);
    }
    return canEdit;
}

bool TransformContext::aimAtPasteTarget(BaseNode& node, LayerManager& manager)
{
    int createdLayer = -1;
    if (!node.drawingTarget(m_camera, createdLayer, m_frameCreated)) {
        return false;
    }
    m_layerCreated = createdLayer >= 0;
    aimAtActiveLayer(manager);
    return true;
}

void TransformContext::aimAtActiveLayer(LayerManager& manager)
{
    m_frameNumber = currentFrameNumber();
    if (manager.currentCamera() != m_camera) {
        manager.setActiveLayer(m_camera, manager.activeLayerIndex(m_camera), true);
    }
}

bool TransformContext::start(const Taking& taking)
{
    if (m_failed || isTransforming() || (m_camera.isEmpty() && !begin())) {
        return false;
    }
    BaseNode* const target = node();
    const std::shared_ptr<LayerManager> drawing = manager();
    if (!drawing) {
        return false;
    }
    // The time and the layer may have changed since the region was selected.
    m_failed = !aimAtSelection(*target, *drawing);
    return !m_failed && floatRegion(selectedRegion(*target), taking);
}

QRect TransformContext::selectedRegion(const BaseNode& node) const
{
    if (m_span.start == m_span.end) {
        return wholeCanvas();
    }
    return canvasRegion(node.portToCanvas(m_span.start), node.portToCanvas(m_span.end));
}

// False when no frame is shown, so that there is nothing to take the region from.
bool TransformContext::floatRegion(const QRect& region, const Taking& taking)
{
    BaseNode& target = *node();
    LayerManager& drawing = *manager();
    drawing.dropStroke();  // of a tool that is no longer in use
    ActiveStroke* const stroke = drawing.beginStroke(m_camera, true);
    if (!stroke || drawing.strokeFrame(m_camera).layerIndex < 0) {
        drawing.dropStroke();
        return false;
    }
    stroke->tool = ToolType::Transform;
    stroke->region = region;
    stroke->takeRegion = true;
    stroke->clearOnly = taking.clear;
    stroke->keepCut = taking.keep;
    stroke->pasteAsIs = taking.pasting;
    drawing.advanceStroke(m_camera);
    stroke->pasteAsIs = false;  // from here on what is pasted is turned and scaled like any region
    if (taking.keep) {
        m_clipboard = region;
    }
    m_span = {target.canvasToPort(region.topLeft()), target.canvasToPort(region.bottomRight() + QPoint(1, 1))};
    m_drag = Drag::None;
    m_state = State::Transforming;
    showHelp();
    refresh(target);
    return true;
}

void TransformContext::apply()
{
    const bool canApply = record() && isWhereItBegan();
    const int createdLayer = canApply && m_layerCreated ? manager()->strokeFrame(m_camera).layerIndex : -1;
    if (!canApply || !script::commitStroke(m_camera, createdLayer, m_frameCreated)) {
        revert();
    }
    restart();
}

bool TransformContext::isWhereItBegan() const
{
    return activeCamera() == m_camera && currentFrameNumber() == m_frameNumber;
}

void TransformContext::revert()
{
    const std::shared_ptr<LayerManager> drawing = record() ? manager() : nullptr;
    if (!drawing) {
        return;
    }
    const FrameAddress frame = drawing->strokeFrame(m_camera);  // where the layer is by now
    drawing->dropStroke();
    node()->withdrawDrawingTarget(frame, m_layerCreated ? frame.layerIndex : -1, m_frameCreated);
    if (!m_layerCreated && frame.layerIndex >= 0 && drawing->activeLayerIndex(m_camera) != frame.layerIndex) {
        drawing->setActiveLayer(m_camera, frame.layerIndex, false);
    }
    node()->redrawActiveView();
}

void TransformContext::reset()
{
    if (BaseNode* const target = node()) {
        target->setRegionOutline({});
        target->scheduleRedraw();
    }
    m_state = State::Selecting;
    m_drag = Drag::None;
    m_node = MObject();
    m_camera.clear();
    m_layerCreated = false;
    m_frameCreated = false;
    m_span = ViewSpan();
    m_transform = RegionTransform();
    showHelp();
}

// The tool is ready for the next region by itself; the host may enter it anew without leaving it first.
void TransformContext::restart()
{
    reset();
    script::switchToTransformToolDeferred();
}

// The menu ------------------------------------------------------------------------------------------------------------

bool TransformContext::canPaste() const
{
    const BaseNode* const master = m_clipboard.isValid() ? BaseNode::masterNode() : nullptr;
    const std::shared_ptr<LayerManager> drawing = master ? master->layerManager() : nullptr;
    return drawing && drawing->holdsCut();
}

void TransformContext::transform(bool keepSource)
{
    start({false, keepSource, false});
}

void TransformContext::flipHorizontal()
{
    flip(&RegionTransform::flipHorizontal);
}

void TransformContext::flipVertical()
{
    flip(&RegionTransform::flipVertical);
}

void TransformContext::flip(bool RegionTransform::*direction)
{
    if (!m_failed && record()) {
        m_transform.*direction = !(m_transform.*direction);
        refresh(*node());
    }
}

void TransformContext::cut()
{
    if (start({true, true, false})) {
        apply();
    }
}

void TransformContext::copy()
{
    if (start({false, true, false})) {
        deleteAction();
    }
}

bool TransformContext::paste(const QPoint& position)
{
    if (m_failed || isTransforming() || !canPaste() || !begin(true)) {
        return false;
    }
    return floatRegion(QRect(node()->viewToCanvas(position), m_clipboard.size()), {false, false, true});
}

// Display -------------------------------------------------------------------------------------------------------------

void TransformContext::refresh(BaseNode& node)
{
    if (ActiveStroke* const stroke = record()) {
        fillRecord(*stroke, m_transform);
    }
    showOutline(node);
}

void TransformContext::showOutline(BaseNode& node)
{
    const Outline corners = transformedOutline(m_span, m_transform);
    node.setRegionOutline({m_camera, corners});
    if (m_drawManager) {
        m_drawManager->beginDrawable();
        drawOutline(*m_drawManager, corners);
        m_drawManager->endDrawable();
    }
    node.redrawActiveView();
}
