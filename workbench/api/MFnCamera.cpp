#include <maya/MFnCamera.h>

#include "api/Handles.h"
#include "api/PlugValues.h"

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

kernel::NodePtr cameraOf(const MFnBase& set, MStatus* status)
{
    const auto node = api::nodeOf(api::HandleAccess::object(set));
    api::report(status, node ? MStatus::kSuccess : MStatus::kFailure);
    return node;
}

double number(const MFnBase& set, const char* attribute, MStatus* status)
{
    const auto camera = cameraOf(set, status);
    return camera ? camera->number(attribute) : 0;
}

MStatus setNumber(const MFnBase& set, const char* attribute, double value)
{
    return MPlug(api::HandleAccess::object(set), MFnDependencyNode(api::HandleAccess::object(set)).attribute(attribute))
        .setDouble(value);
}

/// The camera's own matrix to a space; none (and a failure) for the world's without a path.
bool matrixTo(MSpace::Space space, const MFnBase& set, const MDagPath& path, MMatrix& matrix, MStatus* status)
{
    const auto camera = cameraOf(set, status);
    if (!camera || (space == MSpace::kWorld && !path.isValid())) {
        api::report(status, MStatus::kFailure);
        return false;
    }
    matrix = space == MSpace::kWorld ? api::toHost(camera->worldMatrix()) : MMatrix();
    return true;
}

MVector direction(const MVector& own, MSpace::Space space, const MFnBase& set, const MDagPath& path, MStatus* status)
{
    MMatrix matrix;
    return matrixTo(space, set, path, matrix, status) ? (own * matrix).normal() : MVector();
}

}  // namespace

MFnCamera::MFnCamera() = default;

MFnCamera::MFnCamera(MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnCamera::setObject(object).statusCode());
}

MFnCamera::MFnCamera(const MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnCamera::setObject(object).statusCode());
}

MFnCamera::MFnCamera(const MDagPath& path, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnCamera::setObject(path).statusCode());
}

MFn::Type MFnCamera::type() const
{
    return MFn::kCamera;
}

MStatus MFnCamera::setObject(MObject& object)
{
    return MFnDagNode::setObject(object);
}

MStatus MFnCamera::setObject(const MObject& object)
{
    return MFnDagNode::setObject(object);
}

MStatus MFnCamera::setObject(const MDagPath& path)
{
    MDagPath shape(path);
    if (shape.node().hasFn(MFn::kTransform))
        shape.extendToShape();
    return MFnDagNode::setObject(shape);
}

double MFnCamera::aspectRatio(MStatus* ReturnStatus) const
{
    const double vertical = verticalFilmAperture(ReturnStatus);
    return vertical > 0 ? horizontalFilmAperture() * lensSqueezeRatio() / vertical : 0;
}

MFnCamera::FilmFit MFnCamera::filmFit(MStatus* ReturnStatus) const
{
    const int fit = api::toWhole(number(*this, "filmFit", ReturnStatus));
    return fit >= kFillFilmFit && fit < kInvalid ? static_cast<FilmFit>(fit) : kInvalid;
}

bool MFnCamera::isOrtho(MStatus* ReturnStatus) const
{
    return number(*this, "orthographic", ReturnStatus) != 0;
}

bool MFnCamera::panZoomEnabled(MStatus* ReturnStatus) const
{
    return number(*this, "panZoomEnabled", ReturnStatus) != 0;
}

bool MFnCamera::renderPanZoom(MStatus* ReturnStatus) const
{
    return number(*this, "renderPanZoom", ReturnStatus) != 0;
}

double MFnCamera::overscan(MStatus* ReturnStatus) const
{
    return number(*this, "overscan", ReturnStatus);
}

double MFnCamera::horizontalPan(MStatus* ReturnStatus) const
{
    return number(*this, "horizontalPan", ReturnStatus);
}

double MFnCamera::verticalPan(MStatus* ReturnStatus) const
{
    return number(*this, "verticalPan", ReturnStatus);
}

double MFnCamera::zoom(MStatus* ReturnStatus) const
{
    return number(*this, "zoom", ReturnStatus);
}

double MFnCamera::nearClippingPlane(MStatus* ReturnStatus) const
{
    return number(*this, "nearClipPlane", ReturnStatus);
}

double MFnCamera::farClippingPlane(MStatus* ReturnStatus) const
{
    return number(*this, "farClipPlane", ReturnStatus);
}

double MFnCamera::orthoWidth(MStatus* ReturnStatus) const
{
    return number(*this, "orthographicWidth", ReturnStatus);
}

double MFnCamera::horizontalFilmAperture(MStatus* ReturnStatus) const
{
    return number(*this, "horizontalFilmAperture", ReturnStatus);
}

double MFnCamera::verticalFilmAperture(MStatus* ReturnStatus) const
{
    return number(*this, "verticalFilmAperture", ReturnStatus);
}

double MFnCamera::focalLength(MStatus* ReturnStatus) const
{
    return number(*this, "focalLength", ReturnStatus);
}

double MFnCamera::horizontalFilmOffset(MStatus* ReturnStatus) const
{
    return number(*this, "horizontalFilmOffset", ReturnStatus);
}

double MFnCamera::verticalFilmOffset(MStatus* ReturnStatus) const
{
    return number(*this, "verticalFilmOffset", ReturnStatus);
}

double MFnCamera::filmFitOffset(MStatus* ReturnStatus) const
{
    return number(*this, "filmFitOffset", ReturnStatus);
}

double MFnCamera::lensSqueezeRatio(MStatus* ReturnStatus) const
{
    return number(*this, "lensSqueezeRatio", ReturnStatus);
}

double MFnCamera::cameraScale(MStatus* ReturnStatus) const
{
    return number(*this, "cameraScale", ReturnStatus);
}

double MFnCamera::centerOfInterest(MStatus* ReturnStatus) const
{
    return number(*this, "centerOfInterest", ReturnStatus);
}

MPoint MFnCamera::eyePoint(MSpace::Space space, MStatus* ReturnStatus) const
{
    MMatrix matrix;
    return matrixTo(space, *this, m_path, matrix, ReturnStatus) ? MPoint::origin * matrix : MPoint();
}

MVector MFnCamera::viewDirection(MSpace::Space space, MStatus* ReturnStatus) const
{
    return direction(MVector::zNegAxis, space, *this, m_path, ReturnStatus);
}

MVector MFnCamera::upDirection(MSpace::Space space, MStatus* ReturnStatus) const
{
    return direction(MVector::yAxis, space, *this, m_path, ReturnStatus);
}

MVector MFnCamera::rightDirection(MSpace::Space space, MStatus* ReturnStatus) const
{
    return direction(MVector::xAxis, space, *this, m_path, ReturnStatus);
}

MStatus MFnCamera::getViewParameters(double windowAspect, double& apertureX, double& apertureY, double& offsetX,
                                     double& offsetY, bool applyOverscan, bool applySqueeze, bool applyPanZoom) const
{
    if (!cameraOf(*this, nullptr) || !(windowAspect > 0))
        return MStatus::kFailure;
    const double squeeze = applySqueeze ? lensSqueezeRatio() : 1;
    const double gateWidth = (isOrtho() ? orthoWidth() : horizontalFilmAperture()) * squeeze;
    const double gateHeight = gateWidth * verticalFilmAperture() / (horizontalFilmAperture() * squeeze);
    const bool isWindowWider = windowAspect >= gateWidth / gateHeight;
    const FilmFit fit = filmFit();
    const bool fitsWidth = fit == kHorizontalFilmFit || fit == kInvalid
                        || (fit == kFillFilmFit && (isOrtho() || isWindowWider))
                        || (fit == kOverscanFilmFit && !isOrtho() && !isWindowWider);
    double scale = applyOverscan ? overscan() : 1;
    offsetX = horizontalFilmOffset();
    offsetY = verticalFilmOffset();
    if (applyPanZoom && panZoomEnabled()) {
        scale *= zoom();
        offsetX += horizontalPan();
        offsetY += verticalPan();
    }
    apertureX = (fitsWidth ? gateWidth : gateHeight * windowAspect) * scale;
    apertureY = (fitsWidth ? gateWidth / windowAspect : gateHeight) * scale;
    return MStatus::kSuccess;
}

MStatus MFnCamera::setFilmFit(FilmFit fit)
{
    return fit >= kFillFilmFit && fit < kInvalid ? setNumber(*this, "filmFit", fit)
                                                 : MStatus(MStatus::kInvalidParameter);
}

MStatus MFnCamera::setIsOrtho(bool ortho)
{
    return setNumber(*this, "orthographic", ortho);
}

MStatus MFnCamera::setAspectRatio(double ratio)
{
    return setNumber(*this, "horizontalFilmAperture", verticalFilmAperture() * ratio / lensSqueezeRatio());
}

MStatus MFnCamera::setOverscan(double overscan)
{
    return setNumber(*this, "overscan", overscan);
}

MStatus MFnCamera::setPanZoomEnabled(bool enabled)
{
    return setNumber(*this, "panZoomEnabled", enabled);
}

MStatus MFnCamera::setHorizontalPan(double pan)
{
    return setNumber(*this, "horizontalPan", pan);
}

MStatus MFnCamera::setVerticalPan(double pan)
{
    return setNumber(*this, "verticalPan", pan);
}

MStatus MFnCamera::setZoom(double zoom)
{
    return setNumber(*this, "zoom", zoom);
}

MStatus MFnCamera::setNearClippingPlane(double distance)
{
    return setNumber(*this, "nearClipPlane", distance);
}

MStatus MFnCamera::setFarClippingPlane(double distance)
{
    return setNumber(*this, "farClipPlane", distance);
}

MStatus MFnCamera::setHorizontalFilmAperture(double aperture)
{
    return setNumber(*this, "horizontalFilmAperture", aperture);
}

MStatus MFnCamera::setVerticalFilmAperture(double aperture)
{
    return setNumber(*this, "verticalFilmAperture", aperture);
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
