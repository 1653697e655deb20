#pragma once

#include "contexts/DrawContextInputHandler.h"
#include "contexts/TextEntry.h"
#include "contexts/ToolAdjustment.h"

#include <maya/MObjectHandle.h>
#include <maya/MPxContext.h>

#include <QPointer>
#include <QString>
#include <QWidget>

class BaseNode;
class LayerManager;

/// The draw tool: a press finds (or makes) the frame to draw on and begins a stroke, which the pointer's samples fill
/// until the release commits it as one undo step. A text is typed before that; with B or M held a drag changes the
/// tool's size or opacity instead.
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

    // For the input handler.
    bool isTyping();  ///< lets go of a text whose stroke has gone
    TextEntry& textEntry() { return m_text; }
    void endTyping();                        ///< commits a text that is being typed
    void releaseLost();                      ///< ends a press that is still held, as its release would have
    void windowLeft(const QObject* window);  ///< the same when it is held in a view of that window
    void viewDestroyed();                    ///< ends what is done in a view that is no more

private:
    enum class State { Idle, Drawing, Typing, Adjusting };
    bool isHeld() const { return m_state == State::Drawing || m_state == State::Adjusting; }
    bool isOfSecondButton(const MEvent& event) const;

    void beginAdjustment(const MEvent& event, BaseNode& node);
    void beginStroke(const MEvent& event, BaseNode& node);
    void workOnCamera(BaseNode& node);
    void release();
    bool beginTyping();
    void finish();
    void endAdjustment();
    void endStroke();
    void giveUpStroke(BaseNode& node, LayerManager& manager);

    DrawContextInputHandler m_inputHandler{*this};
    TextEntry m_text;
    ToolAdjustment m_adjustment;
    MHWRender::MUIDrawManager* m_drawManager = nullptr;  // while Viewport 2.0 has an event handled
    State m_state = State::Idle;
    MEvent::MouseButtonType m_button = MEvent::kLeftMouse;  // that is held
    QPointer<QWidget> m_view;
    MObjectHandle m_node;
    QString m_camera;
};
