#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MDagPath.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MStatus.h>
#include <maya/MVector.h>

namespace api {
struct Access;
struct FrameState;
}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN
namespace MHWRender {

/// The camera and the size of the frame being drawn. Viewport coordinates are pixels, origin lower left, y up.
class MFrameContext {
public:
    enum MatrixType {
        kWorldMtx,
        kWorldTransposeMtx,
        kWorldInverseMtx,
        kWorldTranspInverseMtx,
        kViewMtx,
        kViewTransposeMtx,
        kViewInverseMtx,
        kViewTranspInverseMtx,
        kProjectionMtx,
        kProjectionTranposeMtx,
        kProjectionInverseMtx,
        kProjectionTranspInverseMtx,
        kViewProjMtx,
        kViewProjTranposeMtx,
        kViewProjInverseMtx,
        kViewProjTranspInverseMtx,
        kWorldViewMtx,
        kWorldViewTransposeMtx,
        kWorldViewInverseMtx,
        kWorldViewTranspInverseMtx,
        kWorldViewProjMtx,
        kWorldViewProjTransposeMtx,
        kWorldViewProjInverseMtx,
        kWorldViewProjTranspInverseMtx
    };

    virtual ~MFrameContext();

    virtual MStatus getViewportDimensions(int& originX, int& originY, int& width, int& height) const;
    /// Ends at the camera shape.
    MDagPath getCurrentCameraPath(MStatus* ReturnStatus = NULL) const;
    /// Fails (identity) for the types that need an object's matrix.
    virtual MMatrix getMatrix(MatrixType type, MStatus* ReturnStatus = NULL) const;
    /// False, with x and y those it would have, for a point outside the view's volume; also for points behind.
    bool worldToViewport(const MPoint& worldPoint, double& x, double& y, MStatus* ReturnStatus = NULL) const;
    /// The point of the near clipping plane under a pixel, and the direction from there into the scene.
    bool viewportToWorld(double x, double y, MPoint& worldPoint, MVector& worldVector,
                         MStatus* ReturnStatus = NULL) const;
    virtual float getGlobalLineWidth() const;

protected:
    explicit MFrameContext(const api::FrameState& state);

private:
    MFrameContext(const MFrameContext&) = delete;
    MFrameContext& operator=(const MFrameContext&) = delete;

    friend struct api::Access;
    const api::FrameState& m_state;
};

}  // namespace MHWRender
OPENMAYA_MAJOR_NAMESPACE_CLOSE
