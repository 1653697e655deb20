#pragma once

#include "contexts/FloatingRegion.h"
#include "contexts/TransformContextInputHandler.h"
#include "contexts/TransformGeometry.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <maya/MEvent.h>
#include <maya/MPxContext.h>

/// The transform tool: a region of the drawing is selected, moved, turned, scaled and flipped, and put back as one undo
/// step. What it does when something happens stands in a table of transitions.
class TransformContext : public MPxContext {
public:
    TransformContext();

    void toolOnSetup(MEvent& event) override;
    void toolOffCleanup() override;
    void getClassName(MString& name) const override;
    MStatus helpStateHasChanged(MEvent& event) override;

    MStatus doPress(MEvent& event) override;
    MStatus doRelease(MEvent& event) override;
    MStatus doDrag(MEvent& event) override;
    MStatus doPress(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                    const MHWRender::MFrameContext& context) override;
    MStatus doRelease(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                      const MHWRender::MFrameContext& context) override;
    MStatus doDrag(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                   const MHWRender::MFrameContext& context) override;

    void deleteAction() override;    ///< takes the transform back
    void completeAction() override;  ///< floats what is selected; then puts it down
    void abortAction() override;     ///< takes the transform back and goes on to the draw tool

    // The menu's actions; each does nothing where the menu does not offer it.
    bool isTransforming() const { return m_floating.record() != nullptr; }
    bool canPaste() const { return m_floating.hasClipboard(); }
    void transform(bool keepSource);  ///< floats what is selected; keepSource: a copy of it
    void flip(bool RegionTransform::*direction);
    void cut();
    void copy();
    /// Floats what was kept last, its upper left corner at a point of the active view's widget (y pointing up). False
    /// when it cannot.
    bool pasteAndTransform(const QPoint& position);
    void paste(const QPoint& position);  ///< and puts it down there

    /// The button that was pressed in the view has been let go elsewhere; nothing when none is held.
    void releaseLost();
    void viewDestroyed();  ///< takes back what floats when it was the view that the tool works in

private:
    enum class State { Selecting, Transforming, Failed };  // failed: until the tool is set up again
    enum class Event { Press, Drag, Release, Float, Paste, Flip, PutDown, TakeBack, DrawingChanged, Lost, Leave };
    enum class Outcome { Done, Refused, Nothing };
    struct Transition;
    static const Transition kTransitions[];
    enum class Drag { None, Select, Translate, Rotate, Scale };

    void handle(Event event);
    void step(Event event);
    void enter(State state);
    bool isLost() const;
    bool floatAs(const FloatingRegion::Taking& taking);  // false when it does not come to float
    void workInActiveView();

    // What the table names
    Outcome beginSelection();
    Outcome dragSelection();
    Outcome endSelection();
    Outcome floatSelection();
    Outcome floatClipboard();
    Outcome beginDrag();
    Outcome dragOn();
    Outcome endDrag();
    Outcome flipNow();
    Outcome putDown();
    Outcome close();
    Outcome letGo();

    using Aim = bool (FloatingRegion::*)();
    Outcome begin(Aim aim);
    Outcome floatRegion(const QRect& region);
    void follow(const MEvent& event);
    bool isOfSecondButton(const MEvent& event) const;
    bool followView();  // false: the view shows no canvas to work on
    void moveTransform();
    void stopDrag();
    void goOnScaling();
    void listen();

    void showSelection() { show(cornersOf(m_selection)); }
    void showTransform();
    void show(const Corners& corners);
    MStatus showHelp();

    TransformContextInputHandler m_inputHandler;
    MHWRender::MUIDrawManager* m_drawManager = nullptr;  // during an event in Viewport 2.0
    FloatingRegion m_floating;
    State m_state = State::Selecting;

    // What the event in hand is about
    QPointer<QWidget> m_view;  // of the last press
    MEvent::MouseButtonType m_button = MEvent::kLeftMouse;
    QPoint m_pointer;  // port pixels
    bool m_shift = false;
    FloatingRegion::Taking m_taking = {false, false, false};
    QPoint m_pastePosition;
    bool RegionTransform::*m_flip = nullptr;

    Drag m_drag = Drag::None;
    DragAnchor m_anchor;
    QTimer m_scaling;  // the host tells of a pointer only while that moves
    Selection m_selection;
    RegionTransform m_transform;
};
