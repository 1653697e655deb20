#pragma once

#include <maya/MFrameContext.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN
namespace MHWRender {

/// A frame context with the matrix of the object being drawn.
class MDrawContext : public MFrameContext {
public:
    ~MDrawContext() override;
    MMatrix getMatrix(MFrameContext::MatrixType type, MStatus* ReturnStatus = NULL) const override;

private:
    friend struct api::Access;
    MDrawContext(const api::FrameState& state, const MMatrix& world);
    MMatrix m_world;
};

}  // namespace MHWRender
OPENMAYA_MAJOR_NAMESPACE_CLOSE
