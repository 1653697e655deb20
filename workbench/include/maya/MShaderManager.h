#pragma once

#include <maya/MTextureManager.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN
namespace MHWRender {

/// A texture as a shader parameter takes it.
struct MTextureAssignment {
    MTexture* texture;
};

}  // namespace MHWRender
OPENMAYA_MAJOR_NAMESPACE_CLOSE
