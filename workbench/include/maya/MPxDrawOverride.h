#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MBoundingBox.h>
#include <maya/MDagPath.h>
#include <maya/MDrawContext.h>
#include <maya/MFrameContext.h>
#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MUIDrawManager.h>
#include <maya/MUserData.h>
#include <maya/MViewport2Renderer.h>

#include <memory>

namespace api {
struct Access;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
namespace MHWRender {

/// Draws one node of a type in Viewport 2.0. The host makes one for each drawn node and deletes it, perhaps after the
/// renderer is gone.
class MPxDrawOverride {
public:
    typedef void (*GeometryDrawOverrideCb)(const MHWRender::MDrawContext& context, const MUserData* data);

    /// callback may be null; it is called after addUIDrawables with the view's GL context current. Overrides that are
    /// not always dirty may be prepared more often than needed.
    MPxDrawOverride(const MObject& object, GeometryDrawOverrideCb callback, bool isAlwaysDirty = true);
    virtual ~MPxDrawOverride();

    virtual MHWRender::DrawAPI supportedDrawAPIs() const;
    virtual bool hasUIDrawables() const;
    virtual MMatrix transform(const MDagPath& objPath, const MDagPath& cameraPath) const;
    virtual MBoundingBox boundingBox(const MDagPath& objPath, const MDagPath& cameraPath) const;
    virtual bool isBounded(const MDagPath& objPath, const MDagPath& cameraPath) const;
    virtual bool disableInternalBoundingBoxDraw() const;
    virtual bool excludedFromPostEffects() const;
    virtual bool isTransparent() const;

    /// Gives the data for drawing: oldData to keep it, another object to replace it (the host deletes the old one), or
    /// null.
    virtual MUserData* prepareForDraw(const MDagPath& objPath, const MDagPath& cameraPath,
                                      const MHWRender::MFrameContext& frameContext, MUserData* oldData);
    virtual void addUIDrawables(const MDagPath& objPath, MHWRender::MUIDrawManager& drawManager,
                                const MHWRender::MFrameContext& frameContext, const MUserData* data);

private:
    MPxDrawOverride(const MPxDrawOverride&) = delete;
    MPxDrawOverride& operator=(const MPxDrawOverride&) = delete;

    friend struct api::Access;
    GeometryDrawOverrideCb m_callback;
};

}  // namespace MHWRender
OPENMAYA_MAJOR_NAMESPACE_CLOSE
