#pragma once

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

private:
    enum class State { Selecting, Transforming };
    enum class Drag { None, Select, Translate, Rotate, Scale };

    bool begin();
    bool takeAim(BaseNode& node, LayerManager& manager);
    void start();
    QRect selectedRegion(const BaseNode& node) const;
    bool floatRegion(BaseNode& node, LayerManager& manager, const QRect& region);
    void apply();
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
    bool m_failed = false;                               // nothing more is begun until the tool is set up again
    MHWRender::MUIDrawManager* m_drawManager = nullptr;  // during an event in Viewport 2.0
    MObjectHandle m_node;
    QString m_camera;       // empty until something begins
    int m_frameNumber = 0;  // the scene's when it began
    int m_layerIndex = -1;  // the active layer's

    Drag m_drag = Drag::None;
    DragAnchor m_anchor;
    ViewSpan m_span;
    RegionTransform m_transform;
};
