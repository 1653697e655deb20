#pragma once

#include <maya/MFnDagNode.h>
#include <maya/MPoint.h>
#include <maya/MSpace.h>
#include <maya/MVector.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A camera shape. Film measures and pans are inches, the focal length millimetres, other lengths centimetres.
class MFnCamera : public MFnDagNode {
public:
    enum FilmFit { kFillFilmFit, kHorizontalFilmFit, kVerticalFilmFit, kOverscanFilmFit, kInvalid };
    enum RollOrder { kRotateTranslate, kTranslateRotate };

    MFnCamera();
    MFnCamera(MObject& object, MStatus* ReturnStatus = nullptr);
    MFnCamera(const MObject& object, MStatus* ReturnStatus = nullptr);
    /// The path may end at the transform of a camera.
    MFnCamera(const MDagPath& path, MStatus* ReturnStatus = nullptr);
    MFn::Type type() const override;
    MStatus setObject(MObject& object) override;
    MStatus setObject(const MObject& object) override;
    MStatus setObject(const MDagPath& path);

    double aspectRatio(
        MStatus* ReturnStatus = nullptr) const;  ///< of the film: width by height, times the lens squeeze
    FilmFit filmFit(MStatus* ReturnStatus = nullptr) const;
    bool isOrtho(MStatus* ReturnStatus = nullptr) const;
    double overscan(MStatus* ReturnStatus = nullptr) const;  ///< 1: none
    bool panZoomEnabled(MStatus* ReturnStatus = nullptr) const;
    double horizontalPan(MStatus* ReturnStatus = nullptr) const;
    double verticalPan(MStatus* ReturnStatus = nullptr) const;
    double zoom(MStatus* ReturnStatus = nullptr) const;
    bool renderPanZoom(MStatus* ReturnStatus = nullptr) const;
    double nearClippingPlane(MStatus* ReturnStatus = nullptr) const;
    double farClippingPlane(MStatus* ReturnStatus = nullptr) const;
    double orthoWidth(MStatus* ReturnStatus = nullptr) const;
    double horizontalFilmAperture(MStatus* ReturnStatus = nullptr) const;
    double verticalFilmAperture(MStatus* ReturnStatus = nullptr) const;
    double focalLength(MStatus* ReturnStatus = nullptr) const;
    double horizontalFilmOffset(MStatus* ReturnStatus = nullptr) const;
    double verticalFilmOffset(MStatus* ReturnStatus = nullptr) const;
    double filmFitOffset(MStatus* ReturnStatus = nullptr) const;
    double lensSqueezeRatio(MStatus* ReturnStatus = nullptr) const;
    double cameraScale(MStatus* ReturnStatus = nullptr) const;
    double centerOfInterest(MStatus* ReturnStatus = nullptr) const;

    /// kWorld needs a set attached by a path; other spaces are the camera's own: at the origin, looking down -z.
    MPoint eyePoint(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = nullptr) const;
    MVector viewDirection(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = nullptr) const;
    MVector upDirection(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = nullptr) const;
    MVector rightDirection(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = nullptr) const;

    /// The part of the film seen by a window of an aspect (width by height), in inches.
    MStatus getViewParameters(double windowAspect, double& apertureX, double& apertureY, double& offsetX,
                              double& offsetY, bool applyOverscan = false, bool applySqueeze = false,
                              bool applyPanZoom = false) const;

    MStatus setOverscan(double overscan);
    MStatus setFilmFit(FilmFit fit);
    MStatus setIsOrtho(bool ortho);
    MStatus setPanZoomEnabled(bool enabled);
    MStatus setHorizontalPan(double pan);
    MStatus setVerticalPan(double pan);
    MStatus setZoom(double zoom);
    /// Keeps the vertical aperture and fits the horizontal one to it.
    MStatus setAspectRatio(double ratio);
    MStatus setNearClippingPlane(double distance);
    MStatus setFarClippingPlane(double distance);
    MStatus setHorizontalFilmAperture(double aperture);
    MStatus setVerticalFilmAperture(double aperture);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
