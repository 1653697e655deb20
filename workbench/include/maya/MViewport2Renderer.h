#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MTextureManager.h>

namespace api {
struct Access;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
namespace MHWRender {

/// A bit mask.
enum DrawAPI { kNone = 0, kOpenGL = 1, kDirectX11 = 2, kOpenGLCoreProfile = 4, kAllDevices = 7 };

inline DrawAPI operator|(DrawAPI a, DrawAPI b)
{
    return DrawAPI(int(a) | int(b));
}

class MRenderer {
public:
    /// Null when there is no Viewport 2.0, as in batch mode.
    static MRenderer* theRenderer(bool initializeRenderer = true);
    MTextureManager* getTextureManager() const;
    DrawAPI drawAPI() const;
    bool drawAPIIsOpenGL() const;
    /// An override that is not always dirty prepares this object again before the next frame.
    static void setGeometryDrawDirty(MObject object, bool topologyChanged = true);

private:
    friend struct api::Access;
    MRenderer();
    ~MRenderer();
    MRenderer(const MRenderer&) = delete;
    MRenderer& operator=(const MRenderer&) = delete;
};

}  // namespace MHWRender
OPENMAYA_MAJOR_NAMESPACE_CLOSE
