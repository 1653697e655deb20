#include "view/CameraMath.h"

#include "kernel/Session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using view::Frustum;
using view::Lens;

namespace {

constexpr double kClose = 1e-9;

/// A gate twice as wide as high, so that the numbers below are easy: at distance f the view is 2 x 1 inches.
Lens wideLens(Lens::Fit fit)
{
    Lens lens;
    lens.horizontalAperture = 2;
    lens.verticalAperture = 1;
    lens.focalLength = 25.4;
    lens.nearPlane = 1;
    lens.farPlane = 1000;
    lens.fit = fit;
    return lens;
}

struct Pixel {
    double x;
    double y;
};

/// Where a point in camera space (z negative in front) lands in a port.
Pixel pixelOf(const Lens& lens, int width, int height, const kernel::Vector3& p)
{
    const kernel::Matrix4 m = view::projectionMatrix(view::frustumOf(lens, width, height));
    const double w = p.x * m.m[0][3] + p.y * m.m[1][3] + p.z * m.m[2][3] + m.m[3][3];
    const double x = (p.x * m.m[0][0] + p.y * m.m[1][0] + p.z * m.m[2][0] + m.m[3][0]) / w;
    const double y = (p.x * m.m[0][1] + p.y * m.m[1][1] + p.z * m.m[2][1] + m.m[3][1]) / w;
    return {(x + 1) * width / 2, (y + 1) * height / 2};
}

double depthOf(const Lens& lens, double distance)
{
    const kernel::Matrix4 m = view::projectionMatrix(view::frustumOf(lens, 400, 300));
    const double w = -distance * m.m[2][3] + m.m[3][3];
    return (-distance * m.m[2][2] + m.m[3][2]) / w;
}

}  // namespace

TEST(CameraMath, FilmFitDecidesWhichSideOfTheGateFillsThePort)
{
    using Fit = Lens::Fit;
    const struct {
        Fit fit;
        bool orthographic;
        int portWidth, portHeight;
        double width, height;
    } cases[] = {
        // the gate is 2 x 1; ports wider, as wide, narrower
        {Fit::Fill, false, 400, 100, 2, 0.5},
        {Fit::Fill, false, 200, 100, 2, 1},
        {Fit::Fill, false, 100, 100, 1, 1},
        {Fit::Horizontal, false, 400, 100, 2, 0.5},
        {Fit::Horizontal, false, 100, 100, 2, 2},
        {Fit::Vertical, false, 400, 100, 4, 1},
        {Fit::Vertical, false, 100, 100, 1, 1},
        {Fit::Overscan, false, 400, 100, 4, 1},
        {Fit::Overscan, false, 200, 100, 2, 1},
        {Fit::Overscan, false, 100, 100, 2, 2},
        // an orthographic gate is 30 x 15
        {Fit::Fill, true, 100, 100, 30, 30},
        {Fit::Fill, true, 400, 100, 30, 7.5},
        {Fit::Horizontal, true, 100, 100, 30, 30},
        {Fit::Vertical, true, 100, 100, 15, 15},
        {Fit::Overscan, true, 100, 100, 15, 15},
        {Fit::Overscan, true, 400, 100, 60, 15},
    };
    for (const auto& c : cases) {
        Lens lens = wideLens(c.fit);
        lens.orthographic = c.orthographic;
        const Frustum plain = view::frustumOf(lens, c.portWidth, c.portHeight);
        const auto which = testing::Message() << "fit " << int(c.fit) << (c.orthographic ? " flat " : " deep ")
                                              << c.portWidth << " x " << c.portHeight;
        EXPECT_NEAR(plain.width(), c.width, kClose) << which;
        EXPECT_NEAR(plain.height(), c.height, kClose) << which;
        EXPECT_NEAR(plain.left, -plain.right, kClose) << which;

        lens.overscan = 1.5;
        EXPECT_NEAR(view::frustumOf(lens, c.portWidth, c.portHeight).width(), 1.5 * c.width, kClose) << which;
    }
}

TEST(CameraMath, PanMovesTheFilmBackAndZoomMagnifiesAroundIt)
{
    Lens lens = wideLens(Lens::Fit::Horizontal);
    lens.horizontalPan = 0.5;
    lens.verticalPan = 0.25;
    lens.zoom = 0.5;
    EXPECT_NEAR(pixelOf(lens, 200, 100, {0, 0, -7}).x, 100, kClose) << "switched off";

    lens.panZoom = true;
    // Half an inch to the right at the film is in the middle of the picture now, whatever the distance.
    for (const double distance : {1.0, 50.0}) {
        const Pixel middle = pixelOf(lens, 200, 100, {0.5 * distance, 0.25 * distance, -distance});
        EXPECT_NEAR(middle.x, 100, 1e-6);
        EXPECT_NEAR(middle.y, 50, 1e-6);
    }
    EXPECT_NEAR(pixelOf(lens, 200, 100, {0, 0, -7}).x, 0, 1e-6) << "0.5 inches of the inch that is shown";

    // Without perspective an inch of film is as wide as the gate makes it.
    lens.orthographic = true;
    lens.orthographicWidth = 30;
    const Pixel middle = pixelOf(lens, 200, 100, {7.5, 3.75, -10});
    EXPECT_NEAR(middle.x, 100, 1e-6);
    EXPECT_NEAR(middle.y, 50, 1e-6);

    lens.zoom = 0;
    EXPECT_GT(view::frustumOf(lens, 200, 100).width(), 0);
}

namespace {

struct GateCase {
    Lens::Fit fit;
    bool orthographic;
    int portWidth, portHeight;
    double aspect;
    double left, bottom, width, height;
};

void expectRect(const view::PortRect& rect, const GateCase& c, const char* what)
{
    const auto which = testing::Message() << what << ", fit " << int(c.fit) << (c.orthographic ? " flat " : " deep ")
                                          << c.portWidth << " x " << c.portHeight << " aspect " << c.aspect;
    EXPECT_NEAR(rect.left, c.left, 1e-6) << which;
    EXPECT_NEAR(rect.bottom, c.bottom, 1e-6) << which;
    EXPECT_NEAR(rect.width, c.width, 1e-6) << which;
    EXPECT_NEAR(rect.height, c.height, 1e-6) << which;
}

}  // namespace

TEST(CameraMath, GatesStandInTheFilmAsTheFitSays)
{
    using Fit = Lens::Fit;
    const GateCase cases[] = {
        // the film is 2 x 1; in a port of its aspect it is all there is
        {Fit::Fill, false, 400, 200, 2, 0, 0, 400, 200},
        {Fit::Fill, false, 400, 200, 1.5, 50, 0, 300, 200},
        {Fit::Fill, false, 400, 200, 4, 0, 50, 400, 100},
        {Fit::Horizontal, false, 400, 200, 1.6, 0, -25, 400, 250},
        {Fit::Vertical, false, 400, 200, 4, -200, 0, 800, 200},
        {Fit::Overscan, false, 400, 200, 1.6, 0, -25, 400, 250},
        {Fit::Overscan, false, 400, 200, 4, -200, 0, 800, 200},
        // a tall port shows a part of the film, or more than it
        {Fit::Fill, false, 100, 200, 2, -150, 0, 400, 200},
        {Fit::Fill, false, 100, 200, 1, -50, 0, 200, 200},
        {Fit::Horizontal, false, 100, 200, 2, 0, 75, 100, 50},
        {Fit::Vertical, false, 100, 200, 1, -50, 0, 200, 200},
        {Fit::Overscan, false, 100, 200, 2, 0, 75, 100, 50},
        {Fit::Overscan, false, 100, 200, 1, 0, 50, 100, 100},
        // so does a wide one
        {Fit::Fill, false, 400, 100, 2, 0, -50, 400, 200},
        {Fit::Vertical, false, 400, 100, 2, 100, 0, 200, 100},
        {Fit::Overscan, false, 400, 100, 1, 100, -50, 200, 200},
        // without perspective: as wide as the film for fill, as high for overscan
        {Fit::Fill, true, 400, 200, 1, 0, -100, 400, 400},
        {Fit::Horizontal, true, 100, 200, 2, 0, 75, 100, 50},
        {Fit::Vertical, true, 100, 200, 1, -50, 0, 200, 200},
        {Fit::Overscan, true, 400, 200, 1, 100, 0, 200, 200},
    };
    for (GateCase c : cases) {
        Lens lens = wideLens(c.fit);
        lens.orthographic = c.orthographic;
        expectRect(view::gateRect(lens, c.portWidth, c.portHeight, c.aspect), c, "plain");

        lens.overscan = 2;
        const GateCase half = {c.fit,
                               c.orthographic,
                               c.portWidth,
                               c.portHeight,
                               c.aspect,
                               (c.left + c.portWidth / 2.0) / 2,
                               (c.bottom + c.portHeight / 2.0) / 2,
                               c.width / 2,
                               c.height / 2};
        expectRect(view::gateRect(lens, c.portWidth, c.portHeight, c.aspect), half, "overscan 2");
    }
}

TEST(CameraMath, GatesGoWithThePictureThatIsPannedAndZoomed)
{
    for (const bool orthographic : {false, true}) {
        Lens lens = wideLens(Lens::Fit::Overscan);
        lens.orthographic = orthographic;
        lens.overscan = 1.3;
        lens.panZoom = true;
        lens.horizontalPan = 0.4;
        lens.verticalPan = -0.2;
        lens.zoom = 0.7;
        // The corner of the film, an inch and half an inch from its middle, 20 units away.
        const kernel::Vector3 corner = orthographic ? kernel::Vector3{15, 7.5, -20} : kernel::Vector3{20, 10, -20};
        for (const int portWidth : {640, 100}) {
            const Pixel seen = pixelOf(lens, portWidth, 300, corner);
            const view::PortRect film = view::gateRect(lens, portWidth, 300, 2);
            EXPECT_NEAR(film.left + film.width, seen.x, 1e-6);
            EXPECT_NEAR(film.bottom + film.height, seen.y, 1e-6);
        }
    }
}

TEST(CameraMath, NearAndFarPlanesAreTheEndsOfClipSpace)
{
    for (const bool orthographic : {false, true}) {
        Lens lens = wideLens(Lens::Fit::Fill);
        lens.orthographic = orthographic;
        EXPECT_NEAR(depthOf(lens, 1), -1, kClose);
        EXPECT_NEAR(depthOf(lens, 1000), 1, kClose);
        EXPECT_LT(depthOf(lens, 20), depthOf(lens, 21));
    }
}

TEST(CameraMath, ScaledAndShearedCamerasSeeUndistorted)
{
    kernel::Matrix4 world;
    const double rows[4][4] = {{0, 0, -3, 0}, {0.2, 2, 0, 0}, {5, 0, 0, 0}, {10, 20, 30, 1}};  // looks along -x
    std::copy(&rows[0][0], &rows[0][0] + 16, &world.m[0][0]);
    const kernel::Matrix4 view = view::viewMatrix(world);
    const auto inView = [&](double x, double y, double z) { return kernel::transformPoint({x, y, z}, view); };
    const kernel::Vector3 eye = inView(10, 20, 30);
    EXPECT_NEAR(eye.x, 0, kClose);
    EXPECT_NEAR(eye.z, 0, kClose);
    const kernel::Vector3 ahead = inView(4, 20, 30);
    EXPECT_NEAR(ahead.z, -6, kClose);
    EXPECT_NEAR(inView(10, 20, 26).x, 4, kClose);
    EXPECT_NEAR(std::hypot(inView(10, 21, 30).y, inView(10, 21, 30).z), 1, kClose);
}

TEST(CameraMath, ReadsTheCameraNodeAndRepairsWhatNoPictureCanBeMadeWith)
{
    kernel::Session session;
    kernel::Node& shape = *session.scene.findOne("perspShape");
    const auto set = [&](const char* name, double value) { shape.setValue(*shape.attribute(name), value); };
    set("filmFit", 3);
    set("overscan", 1.2);
    set("horizontalPan", 0.3);
    const Lens lens = view::lensOf(shape);
    EXPECT_EQ(lens.fit, Lens::Fit::Overscan);
    EXPECT_DOUBLE_EQ(lens.overscan, 1.2);
    EXPECT_DOUBLE_EQ(lens.horizontalPan, 0.3);
    EXPECT_FALSE(lens.orthographic);
    EXPECT_TRUE(view::lensOf(*session.scene.findOne("topShape")).orthographic);

    set("nearClipPlane", -5);
    set("farClipPlane", -10);
    set("verticalFilmAperture", 0);
    set("focalLength", 0);
    const Frustum frustum = view::frustumOf(view::lensOf(shape), 0, 0);
    EXPECT_GT(frustum.nearPlane, 0);
    EXPECT_GT(frustum.farPlane, frustum.nearPlane);
    EXPECT_TRUE(std::isfinite(frustum.width()) && frustum.width() > 0);
}
