#include "view/CameraMoves.h"

#include "kernel/Session.h"
#include "view/CameraMath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using view::CameraPose;

namespace {

/// What the camera looks at, by the node's own matrix rather than by the code under test.
kernel::Vector3 interestOf(const kernel::Node& shape)
{
    return kernel::transformPoint({0, 0, -shape.number("centerOfInterest")}, shape.worldMatrix());
}

double distance(const kernel::Vector3& a, const kernel::Vector3& b)
{
    return std::sqrt((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y) + (a.z - b.z) * (a.z - b.z));
}

class CameraMoves : public testing::Test {
protected:
    kernel::Node& camera(const char* name) { return *session.scene.findOne(std::string(name) + "Shape"); }
    void apply(kernel::Node& shape, const CameraPose& pose) { view::applyPose(session.scene, shape, pose); }

    kernel::Session session;
};

}  // namespace

TEST_F(CameraMoves, OrbitingKeepsThePointOfInterestAndItsDistance)
{
    kernel::Node& persp = camera("persp");
    const kernel::Vector3 before = interestOf(persp);
    const double coi = persp.number("centerOfInterest");
    const double steps[][2] = {{30, 0}, {0, 20}, {-75, -40}, {10, 65}};
    for (const auto& step : steps) {
        apply(persp, view::orbited(view::poseOf(persp), step[0], step[1]));
        EXPECT_LT(distance(interestOf(persp), before), 1e-6);
        EXPECT_NEAR(persp.number("centerOfInterest"), coi, 1e-9);
    }
    // A drag to the right turns the scene with it: the camera goes left around.
    CameraPose pose;
    pose.interest = 10;
    pose.translate = {0, 0, 10};
    EXPECT_LT(view::orbited(pose, 20, 0).translate.x, 0);
    EXPECT_GT(view::orbited(pose, 0, 20).translate.y, 0);
}

TEST_F(CameraMoves, TrackingByAPixelMovesThePictureByOne)
{
    kernel::Node& persp = camera("persp");
    const int width = 640, height = 360;
    const kernel::Vector3 point = interestOf(persp);
    const view::Frustum frustum = view::frustumOf(view::lensOf(persp), width, height);
    const double units = view::unitsPerPixel(frustum, height, persp.number("centerOfInterest"));
    apply(persp, view::tracked(view::poseOf(persp), -units, 2 * units));

    const api::ViewMatrices matrices = view::matricesOf(persp, width, height);
    const kernel::Vector3 eye = kernel::transformPoint(point, matrices.view);
    EXPECT_NEAR(eye.x / -eye.z * frustum.nearPlane / frustum.width() * width, 1, 1e-6);
    EXPECT_NEAR(eye.y / -eye.z * frustum.nearPlane / frustum.height() * height, -2, 1e-6);
}

TEST_F(CameraMoves, DollyingComesNearerOrNarrowsAFlatView)
{
    kernel::Node& persp = camera("persp");
    const kernel::Vector3 before = interestOf(persp);
    const double coi = persp.number("centerOfInterest");
    apply(persp, view::dollied(view::poseOf(persp), 0.5, false));
    EXPECT_NEAR(persp.number("centerOfInterest"), coi / 2, 1e-9);
    EXPECT_LT(distance(interestOf(persp), before), 1e-6);
    for (int i = 0; i < 100; ++i) {
        apply(persp, view::dollied(view::poseOf(persp), 0.5, false));
    }
    EXPECT_GT(persp.number("centerOfInterest"), 0) << "never through the point it looks at";

    kernel::Node& top = camera("top");
    apply(top, view::dollied(view::poseOf(top), 2, true));
    EXPECT_DOUBLE_EQ(top.number("orthographicWidth"), 60);
    EXPECT_DOUBLE_EQ(top.parent()->number("translateY"), 1000.1);
}

TEST_F(CameraMoves, FramingFitsABoxIntoThePictureWithoutTurning)
{
    const view::Box boxes[] = {{{-1, 0, -1}, {1, 2, 1}}, {{40, -3, 7}, {41, 30, 8}}, {{-500, -1, -1}, {500, 1, 1}}};
    const int ports[][2] = {{640, 360}, {300, 900}};
    for (const char* name : {"persp", "top", "side"}) {
        kernel::Node& shape = camera(name);
        for (const view::Box& box : boxes) {
            for (const auto& port : ports) {
                const CameraPose before = view::poseOf(shape);
                const double aspect = double(port[0]) / port[1];
                apply(shape, view::framed(before, box, view::lensOf(shape), aspect, 0.8));
                EXPECT_EQ(view::poseOf(shape).rotate, before.rotate);
                const api::ViewMatrices matrices = view::matricesOf(shape, port[0], port[1]);
                const bool isFlat = matrices.projection.m[3][3] == 1;
                double outmost = 0;
                for (const kernel::Vector3& corner : box.corners()) {
                    const kernel::Vector3 eye = kernel::transformPoint(corner, matrices.view);
                    const kernel::Vector3 clip = kernel::transformPoint(eye, matrices.projection);
                    const double w = isFlat ? 1 : -eye.z;
                    outmost = std::max({outmost, std::abs(clip.x / w), std::abs(clip.y / w)});
                    EXPECT_LT(eye.z, 0) << "in front of the camera";
                }
                EXPECT_NEAR(outmost, 0.8, 0.001) << name << ' ' << port[0];
                if (!isFlat) {
                    EXPECT_LT(distance(interestOf(shape), box.centre()), 1e-6) << "and turns around it";
                }
            }
        }
    }
}

TEST_F(CameraMoves, OnlyCamerasOfTheScenesOwnMakeItCountAsChanged)
{
    apply(camera("persp"), view::orbited(view::poseOf(camera("persp")), 10, 10));
    EXPECT_FALSE(session.scene.isModified());

    const kernel::NodePtr transform = session.scene.makeNode(*session.nodeTypes.find("transform"), "shotCam");
    const kernel::NodePtr shape = session.scene.makeNode(*session.nodeTypes.find("camera"), "shotCamShape");
    session.scene.attach(transform);
    session.scene.attach(shape, transform.get());
    session.scene.setModified(false);
    kernel::PlugFlags locked;
    locked.locked = true;
    transform->setFlags(*transform->attribute("translateX"), locked);
    session.scene.setModified(false);
    apply(*shape, view::tracked(view::poseOf(*shape), 3, 4));
    EXPECT_TRUE(session.scene.isModified());
    EXPECT_EQ(transform->number("translateX"), 0) << "locked";
    EXPECT_DOUBLE_EQ(transform->number("translateY"), 4);
}

TEST_F(CameraMoves, PanningByAPixelMovesThePictureByOne)
{
    for (const char* name : {"persp", "top"}) {
        kernel::Node& shape = camera(name);
        shape.setValue(*shape.attribute("zoom"), 0.5);
        for (const bool wasOn : {false, true}) {
            view::applyPanZoom(session.scene, shape, view::panZoomOf(shape));
            const view::PortRect before = view::gateRect(view::lensOf(shape), 640, 360, 1.5);
            shape.setValue(*shape.attribute("panZoomEnabled"), double(wasOn));
            const double inches = view::inchesPerPixel(view::lensOf(shape), 640, 360);
            view::applyPanZoom(session.scene, shape, view::panned(view::panZoomOf(shape), -30 * inches, 7 * inches));
            const view::PortRect after = view::gateRect(view::lensOf(shape), 640, 360, 1.5);
            EXPECT_NEAR(after.left - before.left, 30, 1e-6) << name;
            EXPECT_NEAR(after.bottom - before.bottom, -7, 1e-6) << name;
            EXPECT_NEAR(after.width, before.width, 1e-6) << name;
        }
    }
    EXPECT_FALSE(session.scene.isModified()) << "looking around";
}

TEST_F(CameraMoves, ZoomingStaysWithinWhatIsOfUse)
{
    EXPECT_DOUBLE_EQ(view::zoomed({0.3, 0.1, 1}, 0.5).zoom, 0.5);
    EXPECT_DOUBLE_EQ(view::zoomed({0.3, 0.1, 1}, 0.5).horizontalPan, 0.3) << "around the middle of the view";
    EXPECT_DOUBLE_EQ(view::zoomed({0, 0, 0.02}, 1e-9).zoom, 0.01);
    EXPECT_DOUBLE_EQ(view::zoomed({0, 0, 2}, 1e9).zoom, 10);
}

TEST_F(CameraMoves, PanAndZoomLeaveLockedAttributesAlone)
{
    for (const char* locked : {"zoom", "panZoomEnabled"}) {
        kernel::Node& persp = camera("persp");
        kernel::PlugFlags flags;
        flags.locked = true;
        persp.setFlags(*persp.attribute(locked), flags);
        view::applyPanZoom(session.scene, persp, {0.5, locked == std::string("zoom") ? 0.25 : 0.75, 0.1});
        EXPECT_EQ(persp.number("zoom"), 1);
        EXPECT_EQ(persp.number("verticalPan"), 0.25) << locked;
        persp.setValue(*persp.attribute("panZoomEnabled"), 0.0);
    }
}
