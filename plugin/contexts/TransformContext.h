#pragma once

#include "contexts/FloatingRegion.h"
#include "contexts/TransformContextInputHandler.h"
#include "contexts/TransformGeometry.h"

#include <QPointer>
#include <QWidget>

#include <maya/MPxContext.h>

/// The transform tool: a region of the drawing is selected, moved, turned, scaled and flipped, and put back as one undo
/// step.
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
    bool isTransforming() const { return m_state == State::Transforming; }
    bool canPaste() const { return m_floating.hasClipboard(); }
    void transform(bool keepSource);  ///< floats what is selected; keepSource: a copy of it
    void flip(bool RegionTransform::*direction);
    void cut();
    void copy();
    /// Floats what was kept last, its upper left corner at a point of the active view's widget (y pointing up). False
    /// when it cannot.
    bool paste(const QPoint& position);

private:
    enum class State { Selecting, Transforming };
    enum class Drag { None, Select, Translate, Rotate, Scale };

    using Aim = bool (FloatingRegion::*)();
    bool begin(Aim aim);
    bool aimAt(Aim aim);
    bool start(const FloatingRegion::Taking& taking);
    bool floatRegion(const QRect& region, const FloatingRegion::Taking& taking);
    QRect selectedRegion() const;
    ViewSpan spanOf(const QRect& region) const;
    void apply();
    void reset();
    void restart();

    void letGoOfWhatIsGone();
    void pressTransforming(const MEvent& event, const QPoint& position);
    bool followView(const QPoint& pointer);  // false: the view shows no canvas to work on
    void dragTo(const QPoint& position, bool shift);
    void showChange();
    MStatus showHelp();

    TransformContextInputHandler m_inputHandler;
    MHWRender::MUIDrawManager* m_drawManager = nullptr;  // during an event in Viewport 2.0
    QPointer<QWidget> m_view;                            // of the last press
    FloatingRegion m_floating;
    State m_state = State::Selecting;
    bool m_failed = false;  // nothing more is begun until the tool is set up again

    Drag m_drag = Drag::None;
    DragAnchor m_anchor;
    ViewSpan m_span;
    RegionTransform m_transform;
};
