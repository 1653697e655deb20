#include "contexts/TransformContext.h"

#include "node/BaseNode.h"
#include "node/TimelineMarks.h"
#include "settings/Names.h"
#include "settings/ScriptBridge.h"

#include <maya/M3dView.h>
#include <maya/MCursor.h>
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

}  // namespace

TransformContext::TransformContext() : m_inputHandler(*this), m_anchor()
{
    setTitleString("Transform Context");
    setImage(":/icons/transform_context_01.png", MPxContext::kImage1);
    setCursor(MCursor::editCursor);
}

void TransformContext::toolOnSetup(MEvent&)
{
    reset();
    m_failed = false;
    TimelineMarks::setToolActive(true);
    m_inputHandler.setUp();
}

void TransformContext::toolOffCleanup()
{
    reset();
    TimelineMarks::setToolActive(false);
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
    return setHelpString(isTransforming() ? kTransformingHelp : kSelectingHelp);
}

// Pointer -------------------------------------------------------------------------------------------------------------

MStatus TransformContext::doPress(MEvent& event)
{
    m_drag = Drag::None;
    if (m_failed) {
        return MStatus::kSuccess;
    }
    m_inputHandler.watchActiveView();
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    m_view = status ? view.widget() : nullptr;
    letGoOfWhatIsGone();
    const QPoint position = positionOf(event);
    if (isTransforming()) {
        pressTransforming(event, position);
    } else if (event.mouseButton() == MEvent::kLeftMouse && begin(&FloatingRegion::aimAtSelection)) {
        m_drag = Drag::Select;
        m_span = {position, position};
        showChange();
    }
    return MStatus::kSuccess;
}

// With its node or its scene, or with the drawing that it was a copy of.
void TransformContext::letGoOfWhatIsGone()
{
    const bool isThere = isTransforming() ? m_floating.record() != nullptr : m_floating.node() != nullptr;
    if (m_floating.isOpen() && !isThere) {
        reset();
    }
}

void TransformContext::pressTransforming(const MEvent& event, const QPoint& position)
{
    if (!m_floating.isInActiveView()) {
        m_failed = true;
        return;
    }
    if (!followView(position)) {
        return;
    }
    m_anchor = anchorOf(position, m_transform);
    if (event.mouseButton() == MEvent::kMiddleMouse) {
        m_drag = Drag::Scale;
    } else {
        m_drag = event.isModifierShift() ? Drag::Rotate : Drag::Translate;
    }
    showChange();
}

// The view may have been resized, zoomed or panned: what was begun stays where it is on the canvas, and a drag goes on
// from there. In a view as it was nothing is worked out anew, for the move in view pixels is the exact one.
bool TransformContext::followView(const QPoint& pointer)
{
    BaseNode& node = *m_floating.node();
    const QPoint start = node.portToCanvas(m_span.start);
    const QPoint startBefore = node.canvasToPort(start);
    if (!node.followToolView(m_view, m_floating.camera())) {
        return false;
    }
    const ActiveStroke* const record = m_floating.record();
    if (!record) {
        m_span.start += node.canvasToPort(start) - startBefore;
        return true;
    }
    const ViewSpan span = spanOf(record->region);
    if (span.start != m_span.start || span.end != m_span.end) {
        m_span = span;
        const QPoint moved = record->region.topLeft() + m_transform.translation;
        m_transform.viewTranslation = node.canvasToPort(moved) - span.start;
        m_anchor = anchorOf(pointer, m_transform);
    }
    return true;
}

MStatus TransformContext::doDrag(MEvent& event)
{
    letGoOfWhatIsGone();
    if (m_drag != Drag::None) {
        const QPoint position = positionOf(event);
        followView(position);
        dragTo(position, event.isModifierShift());
        showChange();
    }
    return MStatus::kSuccess;
}

void TransformContext::dragTo(const QPoint& position, bool shift)
{
    switch (m_drag) {
    case Drag::None: break;
    case Drag::Select: m_span.end = position; break;
    case Drag::Translate: {
        const BaseNode& node = *m_floating.node();
        m_transform.viewTranslation = position - m_anchor.translation;
        m_transform.translation = node.portToCanvas(position) - node.portToCanvas(m_anchor.translation);
        break;
    }
    case Drag::Rotate: turnTo(m_transform, m_anchor, position.x()); break;
    case Drag::Scale: scaleTowards(m_transform, m_anchor, position, shift); break;
    }
}

MStatus TransformContext::doRelease(MEvent&)
{
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
    if (isTransforming()) {
        apply();
    } else {
        transform(false);
    }
}

// The ways out stay open when the tool has failed: they only take back, and set the tool up again.
void TransformContext::deleteAction()
{
    restart();
}

void TransformContext::abortAction()
{
    reset();
    script::switchToDrawToolDeferred();
}

// The menu ------------------------------------------------------------------------------------------------------------

void TransformContext::transform(bool keepSource)
{
    start({false, keepSource, false});
}

void TransformContext::flip(bool RegionTransform::*direction)
{
    if (!m_failed && m_floating.record()) {
        m_transform.*direction = !(m_transform.*direction);
        showChange();
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
    if (m_failed || isTransforming() || !canPaste() || !begin(&FloatingRegion::aimAtPasteTarget)) {
        return false;
    }
    const QPoint corner = withinReach(m_floating.node()->viewToCanvas(position));
    return floatRegion(QRect(corner, m_floating.clipboardSize()), {false, false, true});
}

// From the selection to the commit ------------------------------------------------------------------------------------

// Without a drawing node nothing happens; with nothing to aim at the tool has failed.
bool TransformContext::begin(Aim aim)
{
    reset();
    return m_floating.open() && aimAt(aim);
}

bool TransformContext::aimAt(Aim aim)
{
    m_failed = !(m_floating.*aim)();
    return !m_failed;
}

bool TransformContext::start(const FloatingRegion::Taking& taking)
{
    if (m_failed || isTransforming()) {
        return false;
    }
    // The time and the layer may have changed since the region was selected, so both are taken up anew.
    const Aim aim = &FloatingRegion::aimAtSelection;
    const bool ready = m_floating.node() ? aimAt(aim) : begin(aim);
    return ready && floatRegion(selectedRegion(), taking);
}

QRect TransformContext::selectedRegion() const
{
    if (m_span.start == m_span.end) {
        return wholeCanvas();
    }
    const BaseNode& node = *m_floating.node();
    return canvasRegion(node.portToCanvas(m_span.start), node.portToCanvas(m_span.end));
}

ViewSpan TransformContext::spanOf(const QRect& region) const
{
    const BaseNode& node = *m_floating.node();
    return {node.canvasToPort(region.topLeft()), node.canvasToPort(region.bottomRight() + QPoint(1, 1))};
}

bool TransformContext::floatRegion(const QRect& region, const FloatingRegion::Taking& taking)
{
    if (!m_floating.take(region, taking)) {
        return false;
    }
    m_span = spanOf(region);
    m_drag = Drag::None;
    m_state = State::Transforming;
    showHelp();
    showChange();
    return true;
}

void TransformContext::apply()
{
    if (m_failed) {
        return;
    }
    if (m_floating.record() && m_floating.isWhereItBegan()) {
        m_floating.commit();
    }
    restart();  // which takes back what was not committed
}

void TransformContext::reset()
{
    m_floating.close();
    m_state = State::Selecting;
    m_drag = Drag::None;
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

// Display -------------------------------------------------------------------------------------------------------------

void TransformContext::showChange()
{
    if (ActiveStroke* const stroke = m_floating.record()) {
        fillRecord(*stroke, m_transform);
    }
    const Outline corners = transformedOutline(m_span, m_transform);
    m_floating.node()->setRegionOutline({m_floating.camera(), corners});
    m_floating.node()->redrawActiveView();
    if (m_drawManager) {
        m_drawManager->beginDrawable();
        drawOutline(*m_drawManager, corners);
        m_drawManager->endDrawable();
        return;
    }
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    if (status) {
        drawOutline(view, corners);
    }
}
