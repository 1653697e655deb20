#include "view/CameraMoves.h"

#include <algorithm>
#include <cmath>

namespace view {

namespace {

constexpr double kNearest = 0.01;
constexpr double kStrongestZoom = 0.01;
constexpr double kWidestZoom = 10;
constexpr int kFineHeight = 1 << 16;  // of a port that only has the right proportions

struct Axes {
    kernel::Vector3 right;
    kernel::Vector3 up;
    kernel::Vector3 back;
};

/// Rows of the rotation x, then y, then z.
Axes axesOf(const kernel::Vector3& degrees)
{
    constexpr double kRadians = M_PI / 180;
    const double sx = std::sin(degrees.x * kRadians), cx = std::cos(degrees.x * kRadians);
    const double sy = std::sin(degrees.y * kRadians), cy = std::cos(degrees.y * kRadians);
    const double sz = std::sin(degrees.z * kRadians), cz = std::cos(degrees.z * kRadians);
    return {{cy * cz, cy * sz, -sy},
            {sx * sy * cz - cx * sz, sx * sy * sz + cx * cz, sx * cy},
            {cx * sy * cz + sx * sz, cx * sy * sz - sx * cz, cx * cy}};
}

kernel::Vector3 along(const kernel::Vector3& from, const kernel::Vector3& direction, double distance)
{
    return {from.x + direction.x * distance, from.y + direction.y * distance, from.z + direction.z * distance};
}

double dot(const kernel::Vector3& a, const kernel::Vector3& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

kernel::Vector3 difference(const kernel::Vector3& a, const kernel::Vector3& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

void setNumber(kernel::Node& node, const char* name, double number)
{
    const kernel::AttributePtr attribute = node.attribute(name);
    if (attribute && !node.flags(*attribute).locked && node.number(name) != number) {
        node.setValue(*attribute, number);
    }
}

/// Looking around with a startup camera does not make a scene count as changed.
class Looking {
public:
    Looking(kernel::Scene& scene, const kernel::Node& cameraShape)
        : m_scene(scene), m_keeps(cameraShape.startup), m_wasModified(scene.isModified())
    {}
    ~Looking()
    {
        if (m_keeps) {
            m_scene.setModified(m_wasModified);
        }
    }
    Looking(const Looking&) = delete;
    Looking& operator=(const Looking&) = delete;

private:
    kernel::Scene& m_scene;
    const bool m_keeps;
    const bool m_wasModified;
};

}  // namespace

CameraPose orbited(const CameraPose& pose, double across, double up)
{
    CameraPose moved = pose;
    const kernel::Vector3 pivot = along(pose.translate, axesOf(pose.rotate).back, -pose.interest);
    moved.rotate.y -= across;
    moved.rotate.x -= up;
    moved.translate = along(pivot, axesOf(moved.rotate).back, pose.interest);
    return moved;
}

CameraPose tracked(const CameraPose& pose, double right, double up)
{
    CameraPose moved = pose;
    const Axes axes = axesOf(pose.rotate);
    moved.translate = along(along(pose.translate, axes.right, right), axes.up, up);
    return moved;
}

CameraPose dollied(const CameraPose& pose, double factor, bool orthographic)
{
    CameraPose moved = pose;
    if (orthographic) {
        moved.orthographicWidth = std::max(kNearest, pose.orthographicWidth * factor);
        return moved;
    }
    moved.interest = std::max(kNearest, pose.interest * factor);
    moved.translate = along(pose.translate, axesOf(pose.rotate).back, moved.interest - pose.interest);
    return moved;
}

CameraPose framed(const CameraPose& pose, const Box& box, Lens lens, double portAspect, double fill)
{
    lens.panZoom = false;
    const Frustum frustum = frustumOf(lens, int(std::lround(kFineHeight * portAspect)), kFineHeight);
    const Axes axes = axesOf(pose.rotate);
    const kernel::Vector3 centre = box.centre();
    const double halfWidth = fill * frustum.width() / 2, halfHeight = fill * frustum.height() / 2;
    double widen = 0;     // how many times the picture must be as wide
    double distance = 0;  // from which a corner just fits
    for (const kernel::Vector3& corner : box.corners()) {
        const kernel::Vector3 arm = difference(corner, centre);
        const double nearer = dot(arm, axes.back);
        const double outward =
            std::max(std::abs(dot(arm, axes.right)) / halfWidth, std::abs(dot(arm, axes.up)) / halfHeight);
        widen = std::max(widen, outward);
        distance = std::max(distance, nearer + frustum.nearPlane * std::max(outward, 1.0));
    }
    if (!lens.orthographic) {
        CameraPose moved = pose;
        moved.interest = std::max(kNearest, distance);
        moved.translate = along(centre, axes.back, moved.interest);
        return moved;
    }
    const kernel::Vector3 offset = difference(centre, pose.translate);
    CameraPose moved = tracked(pose, dot(offset, axes.right), dot(offset, axes.up));
    moved.orthographicWidth = widen > 0 ? pose.orthographicWidth * widen : pose.orthographicWidth;
    return moved;
}

CameraPose poseOf(const kernel::Node& cameraShape)
{
    CameraPose pose;
    if (const kernel::Node* const transform = cameraShape.parent()) {
        pose.translate = {transform->number("translateX"), transform->number("translateY"),
                          transform->number("translateZ")};
        pose.rotate = {transform->number("rotateX"), transform->number("rotateY"), transform->number("rotateZ")};
    }
    pose.interest = std::max(kNearest, cameraShape.number("centerOfInterest"));
    pose.orthographicWidth = cameraShape.number("orthographicWidth");
    return pose;
}

void applyPose(kernel::Scene& scene, kernel::Node& cameraShape, const CameraPose& pose)
{
    const Looking looking(scene, cameraShape);
    if (kernel::Node* const transform = cameraShape.parent()) {
        setNumber(*transform, "translateX", pose.translate.x);
        setNumber(*transform, "translateY", pose.translate.y);
        setNumber(*transform, "translateZ", pose.translate.z);
        setNumber(*transform, "rotateX", pose.rotate.x);
        setNumber(*transform, "rotateY", pose.rotate.y);
        setNumber(*transform, "rotateZ", pose.rotate.z);
    }
    setNumber(cameraShape, "centerOfInterest", pose.interest);
    setNumber(cameraShape, "orthographicWidth", pose.orthographicWidth);
}

// --- in the plane of the picture -----------------------------------------------------------------------------------

PanZoom panned(const PanZoom& from, double right, double up)
{
    return {from.horizontalPan + right, from.verticalPan + up, from.zoom};
}

PanZoom zoomed(const PanZoom& from, double factor)
{
    return {from.horizontalPan, from.verticalPan, std::clamp(from.zoom * factor, kStrongestZoom, kWidestZoom)};
}

PanZoom panZoomOf(const kernel::Node& cameraShape)
{
    return {cameraShape.number("horizontalPan"), cameraShape.number("verticalPan"), cameraShape.number("zoom")};
}

void applyPanZoom(kernel::Scene& scene, kernel::Node& cameraShape, const PanZoom& panZoom)
{
    const Looking looking(scene, cameraShape);
    setNumber(cameraShape, "panZoomEnabled", 1);
    if (cameraShape.number("panZoomEnabled") == 0) {
        return;
    }
    setNumber(cameraShape, "horizontalPan", panZoom.horizontalPan);
    setNumber(cameraShape, "verticalPan", panZoom.verticalPan);
    setNumber(cameraShape, "zoom", panZoom.zoom);
}

}  // namespace view
