#include "node/ViewportMetrics.h"

#include <maya/MFnCamera.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

ViewportMetrics squareView(int side, const double* zoom = nullptr)
{
    const CameraFilm film = {MFnCamera::kHorizontalFilmFit, false, 1.0, 1.5, 1.0};
    return viewportMetrics(film, side, side, zoom);
}

TEST(ViewportMetrics, SizesTheCanvasByTheFilmFit)
{
    const int fill = MFnCamera::kFillFilmFit;
    const int horizontal = MFnCamera::kHorizontalFilmFit;
    const int vertical = MFnCamera::kVerticalFilmFit;
    const int overscan = MFnCamera::kOverscanFilmFit;
    const int invalid = MFnCamera::kInvalid;
    const struct {
        const char* what;
        CameraFilm film;
        int size;
    } cases[] = {
        {"horizontal", {horizontal, false, 1.0, 1.5, 1.6}, 1000},
        {"an unknown fit is horizontal", {invalid, false, 1.0, 1.5, 1.6}, 1000},
        {"overscan shrinks, the rest is cut", {horizontal, false, 1.3, 1.5, 1.6}, 769},
        {"vertical", {vertical, false, 1.0, 1.5, 1.6}, 800},
        {"vertical overscan", {vertical, false, 1.25, 1.5, 1.6}, 640},
        {"fill, film narrower than view, wide picture", {fill, false, 1.0, 1.5, 1.6}, 1000},
        {"fill, film narrower than view, narrow picture", {fill, false, 1.0, 1.5, 0.75}, 500},
        {"fill, film as wide as the view", {fill, false, 1.0, 2.0, 2.0}, 1000},
        {"fill, film wider than view, narrower picture", {fill, false, 1.0, 2.5, 1.6}, 800},
        {"fill, film wider than view, wider picture", {fill, false, 1.0, 2.5, 3.0}, 1250},
        {"fit all, film narrower than view, wide picture", {overscan, false, 1.0, 1.5, 1.6}, 800},
        {"fit all, film narrower than view, narrow picture", {overscan, false, 1.0, 1.5, 0.75}, 750},
        {"fit all, film wider than view, narrower picture", {overscan, false, 1.0, 2.5, 1.6}, 1000},
        {"fit all, film wider than view, wider picture", {overscan, false, 1.0, 2.5, 3.0}, 1200},
        {"orthographic fill is horizontal", {fill, true, 1.25, 2.5, 1.2}, 800},
        {"orthographic fit all is vertical", {overscan, true, 1.25, 2.5, 1.2}, 480},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(canvasSizeInView(c.film, 1000, 500), c.size) << c.what;
    }
}

TEST(ViewportMetrics, KeepsAbsurdCamerasFinite)
{
    const CameraFilm cases[] = {
        {MFnCamera::kHorizontalFilmFit, false, 0.0, 1.5, 1.6},
        {MFnCamera::kOverscanFilmFit, false, 1.0, 1.5, 0.0},
        {MFnCamera::kFillFilmFit, false, 1.0, 0.0, 0.0},
    };
    for (const CameraFilm& film : cases) {
        const ViewportMetrics metrics = viewportMetrics(film, 1000, 500, nullptr);
        EXPECT_GE(metrics.canvasSize, 0);
        canvasPixelAt(metrics, 10, 10);  // overflow would be caught by the sanitizer
    }
    EXPECT_EQ(canvasSizeInView(cases[0], 0, 0), 0);
    EXPECT_EQ(canvasPixelAt(ViewportMetrics(), 5, 5), QPoint());
}

TEST(ViewportMetrics, AreReadyWhereverTheCanvasShowsAndOnlyThere)
{
    const int horizontal = MFnCamera::kHorizontalFilmFit;
    const double fine = 0.5, huge = 1e30, none = 0.0;
    const double infinite = std::numeric_limits<double>::infinity();
    const struct {
        const char* what;
        CameraFilm film;
        const double* zoom;
        double panX;
        bool ready;
    } cases[] = {
        {"plain", {horizontal, false, 1.0, 1.5, 1.6}, nullptr, 0.0, true},
        {"panned and zoomed", {horizontal, false, 1.0, 1.5, 1.6}, &fine, -3000.0, true},
        {"zoom 0 counts as 0.001", {horizontal, false, 1.0, 1.5, 1.6}, &none, 0.0, true},
        {"hardly any overscan", {horizontal, false, 1e-9, 1.5, 1.6}, nullptr, 0.0, false},
        {"no overscan", {horizontal, false, 0.0, 1.5, 1.6}, nullptr, 0.0, false},
        {"overscan so large that no pixel is left", {horizontal, false, 1e9, 1.5, 1.6}, nullptr, 0.0, false},
        {"no picture", {MFnCamera::kVerticalFilmFit, false, 1.0, 1.5, 0.0}, nullptr, 0.0, false},
        {"neither picture nor fit", {MFnCamera::kOverscanFilmFit, false, 1.0, 1.5, 0.0}, nullptr, 0.0, false},
        {"zoomed out to nothing", {horizontal, false, 1.0, 1.5, 1.6}, &huge, 0.0, false},
        {"panned out of the world", {horizontal, false, 1.0, 1.5, 1.6}, &fine, infinite, false},
        {"panned to nowhere", {horizontal, false, 1.0, 1.5, 1.6}, &fine, std::nan(""), false},
    };
    for (const auto& c : cases) {
        ViewportMetrics metrics = viewportMetrics(c.film, 1000, 500, c.zoom);
        metrics.panOffset.x = c.panX;
        EXPECT_EQ(isReady(metrics), c.ready) << c.what;
    }
    EXPECT_FALSE(isReady(ViewportMetrics()));
}

TEST(ViewportMetrics, ZoomEnlargesWhatIsDrawnNotTheCanvas)
{
    const struct {
        double zoom;
        float drawn;
    } cases[] = {{0.5, 1000.f}, {2.0, 250.f}, {0.0, 500000.f}, {-3.0, 500000.f}};
    for (const auto& c : cases) {
        const ViewportMetrics metrics = squareView(500, &c.zoom);
        EXPECT_EQ(metrics.canvasSize, 500) << c.zoom;
        EXPECT_FLOAT_EQ(metrics.drawnSize, c.drawn) << c.zoom;
        EXPECT_FLOAT_EQ(metrics.halfSize, c.drawn / 2) << c.zoom;
    }
}

TEST(ViewportMetrics, MapsTheViewOntoTheCanvasUpsideDown)
{
    const CameraFilm film = {MFnCamera::kHorizontalFilmFit, false, 1.0, 1.5, 16.0 / 9.0};
    const ViewportMetrics metrics = viewportMetrics(film, 2048, 1024, nullptr);  // the canvas shows at twice its size
    EXPECT_EQ(canvasPixelAt(metrics, 1024, 512), QPoint(512, 512));
    EXPECT_EQ(canvasPixelAt(metrics, 0, 1024), QPoint(0, 256));
    EXPECT_EQ(canvasPixelAt(metrics, 2048, 0), QPoint(1024, 768));
    EXPECT_EQ(canvasPixelAt(metrics, -100, 1636), QPoint(-50, -50));
}

TEST(ViewportMetrics, RoundsHalvesUpBelowZeroToo)
{
    const ViewportMetrics metrics = squareView(2048);
    const struct {
        int view, canvas;
    } cases[] = {{1, 1}, {2, 1}, {3, 2}, {-1, 0}, {-2, -1}, {-3, -1}, {-5, -2}};
    for (const auto& c : cases) {
        EXPECT_EQ(canvasPixelAt(metrics, c.view, 2048 - c.view), QPoint(c.canvas, c.canvas)) << c.view;
    }
}

TEST(ViewportMetrics, FollowsThePanWithTheDrawingAndTheTools)
{
    const double zoom = 0.5;
    ViewportMetrics metrics = squareView(512, &zoom);
    panTo(metrics, MPoint(300, 100));
    EXPECT_EQ(metrics.centre, MPoint(300, 100, 0));
    EXPECT_EQ(metrics.panOffset, MVector(-44, 156, 0));
    EXPECT_EQ(canvasPixelAt(metrics, 300, 100), QPoint(512, 512));
    EXPECT_EQ(canvasPixelAt(metrics, 310, 120), QPoint(522, 492));
    EXPECT_EQ(viewPointOf(metrics, QPointF(522, 492)), QPointF(310, 120));
}

}  // namespace
