#pragma once

#include "contexts/TransformContextInputHandler.h"
#include "contexts/TransformGeometry.h"
#include "model/LayerManager.h"

#include <maya/MObjectHandle.h>
#include <maya/MPxContext.h>

class BaseNode;

/// The transform tool: a region of the drawing is selected, moved, turned, scaled and flipped, and put back as one undo
/// step. While it is transformed it floats in the manager's stroke; taking it back leaves no trace.
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
    bool canPaste() const;
    void transform(bool keepSource);  ///< floats what is selected; keepSource: a copy of it
    void flipHorizontal();
    void flipVertical();
    void cut();
    void copy();
    /// Floats what was cut or copied last, its upper left corner at a point of the active view's widget (y pointing
    /// up). False when it cannot.
    bool paste(const QPoint& position);

private:
    enum class State { Selecting, Transforming };
    enum class Drag { None, Select, Translate, Rotate, Scale };

    /// What becomes of the region when it starts to float.
    struct Taking {
        bool clear;    ///< it is emptied, and nothing floats
        bool keep;     ///< a copy is kept for pasting, and unless it is cleared the source stays
        bool pasting;  ///< the kept copy floats, and the source stays
    };

    bool begin(bool pasting = false);
    bool aimAtSelection(BaseNode& node, LayerManager& manager);
    bool aimAtPasteTarget(BaseNode& node, LayerManager& manager);
    void aimAtActiveLayer(LayerManager& manager);
    bool start(const Taking& taking);
    QRect selectedRegion(const BaseNode& node) const;
    bool floatRegion(const QRect& region, const Taking& taking);
    void apply();
    void flip(bool RegionTransform::*direction);
    bool isWhereItBegan() const;
    void revert();
    void reset();
    void restart();

    void pressSelecting(const QPoint& position);
    void pressTransforming(const MEvent& event, const QPoint& position);
    void translateTo(const BaseNode& node, const QPoint& position);
    void refresh(BaseNode& node);
    void showOutline(BaseNode& node);
    MStatus showHelp();

    BaseNode* node() const;  // the one that is worked on; null when it is gone
    std::shared_ptr<LayerManager> manager() const;
    ActiveStroke* record() const;  // of the transform; null when it is gone

    State m_state = State::Selecting;
    TransformContextInputHandler m_inputHandler;
    bool m_failed = false;                               // nothing more is begun until the tool is set up again
    MHWRender::MUIDrawManager* m_drawManager = nullptr;  // during an event in Viewport 2.0
    MObjectHandle m_node;
    QString m_camera;             // empty until something begins
    int m_frameNumber = 0;        // the scene's when it began
    bool m_layerCreated = false;  // for what is pasted
    bool m_frameCreated = false;
    QRect m_clipboard;  // the region kept last, canvas pixels

    Drag m_drag = Drag::None;
    DragAnchor m_anchor;
    ViewSpan m_span;
    RegionTransform m_transform;
};
