#include "contexts/TransformContext.h"

#include "model/TransformMap.h"
#include "node/BaseNode.h"
#include "node/TimelineMarks.h"
#include "settings/Names.h"
#include "settings/ScriptBridge.h"
#include "settings/ToolGesture.h"

#include <QApplication>

#include <maya/M3dView.h>
#include <maya/MCursor.h>

namespace {

const char kSelectingHelp[] =
    "Select region to transform and press Enter. No selection will apply transform to entire image.";
const char kTransformingHelp[] =
    "Translate(LMB)  Rotate(Shift+LMB)  Scale(MMB)  Apply Changes(Enter)  Revert(Backspace)  Cancel(ESC)";

const int kScalingInterval = 16;  // ms

}  // namespace

TransformContext::TransformContext() : m_inputHandler(*this), m_anchor()
{
    setTitleString("Transform Context");
    setImage(":/icons/transform_context_01.png", MPxContext::kImage1);
    setCursor(MCursor::editCursor);
    m_scaling.setInterval(kScalingInterval);
    QObject::connect(&m_scaling, &QTimer::timeout, [this] { goOnScaling(); });
}

void TransformContext::toolOnSetup(MEvent&)
{
    handle(Event::Leave);
    showHelp();
    TimelineMarks::setToolActive(true);
    listen();
    m_inputHandler.setUp();
}

void TransformContext::toolOffCleanup()
{
    handle(Event::Leave);
    toolGesture::setAnswers({});
    TimelineMarks::setToolActive(false);
    m_inputHandler.cleanUp();
}

void TransformContext::listen()
{
    toolGesture::Answers answers;
    answers.takeBack = [this] { handle(Event::TakeBack); };
    answers.drawingChanged = [this] { handle(Event::DrawingChanged); };
    answers.timeChanged = [this] {
        if (BaseNode* const node = m_floating.node()) {
            node->scheduleRedraw();
        }
    };
    toolGesture::setAnswers(answers);
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

// What happens, and what comes of it ----------------------------------------------------------------------------------

struct TransformContext::Transition {
    State state;
    Event event;
    Outcome (TransformContext::*act)();
    State done;
    State refused;
};

// What does not stand here is ignored. Where an act comes to nothing the state stays.
const TransformContext::Transition TransformContext::kTransitions[] = {
    {State::Selecting, Event::Press, &TransformContext::beginSelection, State::Selecting, State::Failed},
    {State::Selecting, Event::Drag, &TransformContext::dragSelection, State::Selecting, State::Selecting},
    {State::Selecting, Event::Release, &TransformContext::endSelection, State::Selecting, State::Selecting},
    {State::Selecting, Event::Float, &TransformContext::floatSelection, State::Transforming, State::Failed},
    {State::Selecting, Event::Paste, &TransformContext::floatClipboard, State::Transforming, State::Failed},
    {State::Selecting, Event::Lost, &TransformContext::close, State::Selecting, State::Selecting},
    {State::Selecting, Event::Leave, &TransformContext::close, State::Selecting, State::Selecting},

    {State::Transforming, Event::Press, &TransformContext::beginDrag, State::Transforming, State::Failed},
    {State::Transforming, Event::Drag, &TransformContext::dragOn, State::Transforming, State::Transforming},
    {State::Transforming, Event::Release, &TransformContext::endDrag, State::Transforming, State::Transforming},
    {State::Transforming, Event::Flip, &TransformContext::flipNow, State::Transforming, State::Transforming},
    {State::Transforming, Event::PutDown, &TransformContext::putDown, State::Selecting, State::Selecting},
    {State::Transforming, Event::TakeBack, &TransformContext::close, State::Selecting, State::Selecting},
    {State::Transforming, Event::DrawingChanged, &TransformContext::letGo, State::Selecting, State::Selecting},
    {State::Transforming, Event::Lost, &TransformContext::close, State::Selecting, State::Selecting},
    {State::Transforming, Event::Leave, &TransformContext::close, State::Selecting, State::Selecting},

    {State::Failed, Event::TakeBack, &TransformContext::close, State::Failed, State::Failed},
    {State::Failed, Event::DrawingChanged, &TransformContext::letGo, State::Failed, State::Failed},
    {State::Failed, Event::Lost, &TransformContext::close, State::Failed, State::Failed},
    {State::Failed, Event::Leave, &TransformContext::close, State::Selecting, State::Selecting},
};

void TransformContext::handle(Event event)
{
    if (isLost()) {
        step(Event::Lost);
    }
    step(event);
}

void TransformContext::step(Event event)
{
    for (const Transition& transition : kTransitions) {
        if (transition.state != m_state || transition.event != event) {
            continue;
        }
        const Outcome outcome = (this->*transition.act)();
        if (outcome != Outcome::Nothing) {
            enter(outcome == Outcome::Done ? transition.done : transition.refused);
        }
        return;
    }
}

void TransformContext::enter(State state)
{
    if (m_state != state) {
        m_state = state;
        stopDrag();
        showHelp();
    }
}

// With its node or its scene, or with the drawing that it was a copy of.
bool TransformContext::isLost() const
{
    const bool isThere = m_state == State::Transforming ? m_floating.record() != nullptr : m_floating.node() != nullptr;
    return m_floating.isOpen() && !isThere;
}

// Pointer -------------------------------------------------------------------------------------------------------------

bool TransformContext::isOfSecondButton(const MEvent& event) const
{
    return m_drag != Drag::None && event.mouseButton() != m_button;
}

void TransformContext::follow(const MEvent& event)
{
    short x = 0;
    short y = 0;
    event.getPosition(x, y);
    m_pointer = QPoint(x, y);
    m_shift = event.isModifierShift();
}

MStatus TransformContext::doPress(MEvent& event)
{
    if (isOfSecondButton(event)) {
        return MStatus::kSuccess;
    }
    follow(event);
    stopDrag();  // of a press whose release never came
    m_button = event.mouseButton();
    if (!isTransforming() || m_floating.isInActiveView()) {
        workInActiveView();
    }
    handle(Event::Press);
    return MStatus::kSuccess;
}

MStatus TransformContext::doDrag(MEvent& event)
{
    follow(event);
    handle(Event::Drag);
    return MStatus::kSuccess;
}

MStatus TransformContext::doRelease(MEvent& event)
{
    if (!isOfSecondButton(event)) {
        handle(Event::Release);
    }
    return MStatus::kSuccess;
}

void TransformContext::workInActiveView()
{
    m_inputHandler.watchActiveView();
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    m_view = status ? view.widget() : nullptr;
}

void TransformContext::releaseLost()
{
    handle(Event::Release);
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

void TransformContext::viewDestroyed()
{
    if (!m_view) {
        handle(Event::TakeBack);
    }
}

// Keys and the menu ---------------------------------------------------------------------------------------------------

void TransformContext::completeAction()
{
    if (m_state != State::Transforming) {
        transform(false);
        return;
    }
    handle(Event::PutDown);  // of what has been lost meanwhile, too
    // The tool is ready for the next region by itself; the host may enter it anew without leaving it first.
    script::switchToTransformToolDeferred();
}

void TransformContext::deleteAction()
{
    handle(Event::Leave);
    script::switchToTransformToolDeferred();
}

void TransformContext::abortAction()
{
    handle(Event::Leave);
    script::switchToDrawToolDeferred();
}

bool TransformContext::floatAs(const FloatingRegion::Taking& taking)
{
    const bool isFree = m_state == State::Selecting;
    m_taking = taking;
    handle(taking.paste ? Event::Paste : Event::Float);
    return isFree && m_state == State::Transforming;
}

void TransformContext::transform(bool keepSource)
{
    floatAs({false, keepSource, false});
}

void TransformContext::cut()
{
    if (floatAs({true, true, false})) {
        completeAction();
    }
}

void TransformContext::copy()
{
    if (floatAs({false, true, false})) {
        deleteAction();
    }
}

bool TransformContext::pasteAndTransform(const QPoint& position)
{
    m_pastePosition = position;
    return floatAs({false, false, true});
}

void TransformContext::paste(const QPoint& position)
{
    if (pasteAndTransform(position)) {
        completeAction();
    }
}

void TransformContext::flip(bool RegionTransform::*direction)
{
    m_flip = direction;
    handle(Event::Flip);
}

// While a region is selected ------------------------------------------------------------------------------------------

// Without a drawing node nothing happens; with nothing to aim at the tool has failed.
TransformContext::Outcome TransformContext::begin(Aim aim)
{
    close();
    if (!m_floating.open()) {
        return Outcome::Nothing;
    }
    workInActiveView();
    return (m_floating.*aim)() ? Outcome::Done : Outcome::Refused;
}

TransformContext::Outcome TransformContext::beginSelection()
{
    if (m_button != MEvent::kLeftMouse) {
        return Outcome::Nothing;
    }
    const Outcome outcome = begin(&FloatingRegion::aimAtSelection);
    if (outcome == Outcome::Done) {
        const QPointF point = m_floating.node()->portToCanvasPoint(m_pointer);
        m_selection = {point, point};
        m_drag = Drag::Select;
        showSelection();
    }
    return outcome;
}

TransformContext::Outcome TransformContext::dragSelection()
{
    if (m_drag == Drag::Select) {
        followView();
        m_selection.end = m_floating.node()->portToCanvasPoint(m_pointer);
        showSelection();
    }
    return Outcome::Done;
}

TransformContext::Outcome TransformContext::endSelection()
{
    m_selection = normalised(m_selection);
    stopDrag();
    return Outcome::Done;
}

// The time and the layer may have changed since the region was selected, so both are taken up anew.
TransformContext::Outcome TransformContext::floatSelection()
{
    const Aim aim = &FloatingRegion::aimAtSelection;
    const Outcome outcome = !m_floating.node() ? begin(aim) : (m_floating.*aim)() ? Outcome::Done : Outcome::Refused;
    if (outcome == Outcome::Refused) {
        close();  // nothing is selected in a tool that has failed
    }
    return outcome == Outcome::Done ? floatRegion(regionOf(m_selection)) : outcome;
}

TransformContext::Outcome TransformContext::floatClipboard()
{
    if (!canPaste()) {
        return Outcome::Nothing;
    }
    const Outcome outcome = begin(&FloatingRegion::aimAtPasteTarget);
    if (outcome != Outcome::Done) {
        return outcome;
    }
    const QPoint corner = withinReach(m_floating.node()->viewToCanvas(m_pastePosition));
    return floatRegion(QRect(corner, m_floating.clipboardSize()));
}

TransformContext::Outcome TransformContext::floatRegion(const QRect& region)
{
    if (!m_floating.take(region, m_taking)) {
        return Outcome::Nothing;
    }
    showTransform();
    return Outcome::Done;
}

// While it floats -----------------------------------------------------------------------------------------------------

TransformContext::Outcome TransformContext::beginDrag()
{
    if (!m_floating.isInActiveView()) {
        return Outcome::Refused;
    }
    if (!followView()) {
        return Outcome::Nothing;
    }
    m_anchor = anchorOf(m_pointer, m_floating.node()->portToCanvas(m_pointer), m_transform);
    if (m_button == MEvent::kMiddleMouse) {
        m_drag = Drag::Scale;
    } else {
        m_drag = m_shift ? Drag::Rotate : Drag::Translate;
    }
    return Outcome::Done;
}

// The view may have been resized, zoomed or panned: a drag goes on from where the region is.
bool TransformContext::followView()
{
    BaseNode& node = *m_floating.node();
    const BaseNode::ToolView view = node.followToolView(m_view, m_floating.camera());
    if (view == BaseNode::ToolView::Changed) {
        m_anchor = anchorOf(m_pointer, node.portToCanvas(m_pointer), m_transform);
    }
    return view != BaseNode::ToolView::Gone;
}

TransformContext::Outcome TransformContext::dragOn()
{
    if (m_drag != Drag::None) {
        followView();
        moveTransform();
        showTransform();
    }
    return Outcome::Done;
}

void TransformContext::moveTransform()
{
    switch (m_drag) {
    case Drag::None:
    case Drag::Select: break;
    case Drag::Translate:
        m_transform.translation = m_floating.node()->portToCanvas(m_pointer) - m_anchor.translation;
        break;
    case Drag::Rotate: turnTo(m_transform, m_anchor, m_pointer.x()); break;
    case Drag::Scale:
        scaleTowards(m_transform, m_anchor, m_pointer, m_shift);
        m_scaling.start();
        break;
    }
}

// The button may have been let go where nobody heard of it.
void TransformContext::goOnScaling()
{
    handle(QApplication::mouseButtons() & Qt::MiddleButton ? Event::Drag : Event::Release);
}

TransformContext::Outcome TransformContext::endDrag()
{
    stopDrag();
    return Outcome::Done;
}

void TransformContext::stopDrag()
{
    m_drag = Drag::None;
    m_scaling.stop();
}

TransformContext::Outcome TransformContext::flipNow()
{
    m_transform.*m_flip = !(m_transform.*m_flip);
    showTransform();
    return Outcome::Done;
}

TransformContext::Outcome TransformContext::putDown()
{
    if (m_floating.isWhereItBegan()) {
        m_floating.commit();
    }
    return close();  // takes back what was not committed
}

TransformContext::Outcome TransformContext::letGo()
{
    m_floating.letGo();
    return close();
}

TransformContext::Outcome TransformContext::close()
{
    m_floating.close();
    m_selection = Selection();
    m_transform = RegionTransform();
    stopDrag();
    return Outcome::Done;
}

// Display -------------------------------------------------------------------------------------------------------------

void TransformContext::showTransform()
{
    ActiveStroke& record = *m_floating.record();
    fillRecord(record, m_transform);
    show(transformedCorners(record));
}

void TransformContext::show(const Corners& corners)
{
    BaseNode& node = *m_floating.node();
    node.setRegionOutline({m_floating.camera(), corners});
    node.redrawActiveView();
    const Corners inView = cornersInView(corners, node.toolMetrics());
    if (m_drawManager) {
        // Lines of an event stay until the next one, between which scaling goes on: there the node's suffice.
        if (m_drag != Drag::Scale) {
            m_drawManager->beginDrawable();
            drawOutline(*m_drawManager, inView);
            m_drawManager->endDrawable();
        }
        return;
    }
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    if (status && m_floating.isInActiveView()) {
        drawOutline(view, inView);
    }
}
