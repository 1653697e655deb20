#include "node/CameraMetrics.h"

#include "settings/Preferences.h"

#include <maya/MCommonRenderSettingsData.h>
#include <maya/MFnCamera.h>
#include <maya/MMatrix.h>
#include <maya/MRenderUtil.h>

namespace {

double resolutionAspect()
{
    MCommonRenderSettingsData settings;
    MRenderUtil::getCommonRenderSettings(settings);
    return settings.height > 0 ? double(settings.width) / settings.height : 1.0;
}

}  // namespace

ViewportMetrics cameraMetrics(const MDagPath& cameraPath, int width, int height)
{
    MFnCamera camera(cameraPath);
    const CameraFilm film = {camera.filmFit(), camera.isOrtho(), camera.overscan(), camera.aspectRatio(),
                             resolutionAspect()};
    const double zoom = camera.zoom();
    const bool isPanZoomed = camera.panZoomEnabled() && !Preferences::instance().ignore2dPanZoom();
    return viewportMetrics(film, width, height, isPanZoomed ? &zoom : nullptr);
}

MPoint panTarget(const MDagPath& cameraPath)
{
    MFnCamera camera(cameraPath);
    if (camera.isOrtho()) {
        return camera.eyePoint(MSpace::kWorld);
    }
    return MPoint(camera.horizontalPan(), camera.verticalPan(), camera.farClippingPlane())
         * cameraPath.inclusiveMatrix();
}
