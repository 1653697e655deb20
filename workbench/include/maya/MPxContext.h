#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MCursor.h>
#include <maya/MEvent.h>
#include <maya/MFrameContext.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>
#include <maya/MUIDrawManager.h>

#include <memory>

namespace api {
struct Access;
struct ContextState;
}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A tool: what the pointer does in a view while it is current.
class MPxContext {
public:
    enum ImageIndex { kImage1 = 0, kImage2 = 1, kImage3 = 2 };

    MPxContext();
    virtual ~MPxContext();

    virtual void toolOnSetup(MEvent& event);
    virtual void toolOffCleanup();

    // Called first in Viewport 2.0 views. These answer kUnknownParameter, which makes the host call the plain form.
    virtual MStatus doPress(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                            const MHWRender::MFrameContext& context);
    virtual MStatus doRelease(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                              const MHWRender::MFrameContext& context);
    virtual MStatus doDrag(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                           const MHWRender::MFrameContext& context);
    virtual MStatus doHold(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                           const MHWRender::MFrameContext& context);
    virtual MStatus doPtrMoved(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                               const MHWRender::MFrameContext& context);
    virtual MStatus drawFeedback(MHWRender::MUIDrawManager& drawManager, const MHWRender::MFrameContext& context);

    virtual MStatus doPress(MEvent& event);
    virtual MStatus doRelease(MEvent& event);
    virtual MStatus doDrag(MEvent& event);
    virtual MStatus doHold(MEvent& event);
    virtual MStatus doPtrMoved(MEvent& event);
    virtual MStatus doEnterRegion(MEvent& event);

    /// Called when the help line may have to change.
    virtual MStatus helpStateHasChanged(MEvent& event);
    virtual void deleteAction();
    virtual void completeAction();
    virtual void abortAction();
    /// The name `contextInfo -class` gives; must not be empty.
    virtual void getClassName(MString& name) const;
    static const char* className();

    MStatus setTitleString(const MString& title);
    MStatus setImage(const MString& file, ImageIndex index);
    MString image(ImageIndex index, MStatus* ReturnStatus = NULL) const;
    MStatus setCursor(const MCursor& cursor);

protected:
    MStatus setHelpString(const MString& text);

private:
    MPxContext(const MPxContext&) = delete;
    MPxContext& operator=(const MPxContext&) = delete;

    friend struct api::Access;
    std::unique_ptr<api::ContextState> m_state;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
