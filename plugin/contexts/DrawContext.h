#pragma once

#include "contexts/DrawContextInputHandler.h"

#include <maya/MObjectHandle.h>
#include <maya/MPxContext.h>

#include <QString>

class BaseNode;
class LayerManager;

/// The draw tool: a press finds (or makes) the frame to draw on and begins a stroke, which the pointer's samples fill
/// until the release commits it as one undo step.
class DrawContext : public MPxContext {
public:
    DrawContext();

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

private:
    void beginStroke(const MEvent& event);
    void endStroke();
    void giveUpStroke(BaseNode& node, LayerManager& manager);

    DrawContextInputHandler m_inputHandler;
    bool m_drawing = false;  // this press has begun a stroke; what follows is about that stroke
    MObjectHandle m_node;
    QString m_camera;
};
