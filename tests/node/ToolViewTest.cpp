#include "support/NodeFixture.h"
#include "support/TestView.h"

#include "api/DrawList.h"

#include <maya/M3dView.h>

namespace {

/// How the tools find the canvas under a point, against where the draw override shows it.
class ToolViewTest : public NodeFixture {
protected:
    ToolViewTest() { run("setAttr perspShape.filmFit 1; setAttr topShape.filmFit 1"); }

    /// Prepares the tools' view and draws the same view; the two must agree.
    ViewportMetrics prepareAndDraw(TestView& view)
    {
        views.activate(view);
        M3dView handle = M3dView::active3dView();
        EXPECT_TRUE(node().prepareToolView(handle));

        api::FrameState state;
        state.camera = view.camera();
        state.width = view.portWidth();
        state.height = view.portHeight();
        state.matrices = view.projection;
        const auto context = api::makeFrameContext(state);
        const MDagPath camera = context->getCurrentCameraPath();
        node().updateViewportMetrics(camera, state.width, state.height);
        node().updatePanOffset(camera, *context);
        return node().metrics();
    }
    QPoint middle(const ViewportMetrics& metrics)
    {
        return node().viewToCanvas(QPoint(qRound(metrics.centre.x), qRound(metrics.centre.y)));
    }

    TestViews views;
};

TEST_F(ToolViewTest, APannedPerspectiveCanvasIsWhereItIsDrawn)
{
    run("setAttr perspShape.panZoomEnabled 1; setAttr perspShape.zoom 0.5; setAttr perspShape.horizontalPan 0.25;"
        "setAttr perspShape.farClipPlane 100000");
    kernel::Matrix4& view = views.persp().projection.view;
    view = kernel::inverse(views.persp().camera()->worldMatrix());
    // A projection whose axis meets the view a quarter right of its middle and an eighth below.
    kernel::Matrix4& clip = views.persp().projection.projection;
    clip.m[2][0] = -0.5;
    clip.m[2][1] = 0.25;
    clip.m[2][2] = -1.0;
    clip.m[2][3] = -1.0;
    clip.m[3][2] = -0.2;
    clip.m[3][3] = 0.0;
    const ViewportMetrics drawn = prepareAndDraw(views.persp());
    EXPECT_NEAR(drawn.centre.x, 384, 0.1);
    EXPECT_NEAR(drawn.centre.y, 192, 0.1);
    EXPECT_FLOAT_EQ(drawn.drawnSize, 1024.f);
    EXPECT_EQ(middle(drawn), QPoint(512, 512));
}

TEST_F(ToolViewTest, APannedOrthographicCanvasFollowsTheCamerasEye)
{
    run("setAttr topShape.panZoomEnabled 1");
    kernel::Matrix4& clip = views.top().projection.projection;
    views.top().projection.view = kernel::inverse(views.top().camera()->worldMatrix());
    clip.m[3][0] = -0.25;
    clip.m[3][1] = 0.5;
    const ViewportMetrics drawn = prepareAndDraw(views.top());
    EXPECT_NEAR(drawn.centre.x, 384, 1e-6);
    EXPECT_NEAR(drawn.centre.y, 384, 1e-6);
    EXPECT_EQ(middle(drawn), QPoint(512, 512));
}

TEST_F(ToolViewTest, PointsOfADenseScreensWidgetsAreCountedInItsPixels)
{
    views.persp().pixelRatio = 2;
    const ViewportMetrics drawn = prepareAndDraw(views.persp());
    EXPECT_EQ(drawn.canvasSize, 1024);
    EXPECT_EQ(node().viewToCanvas(QPoint(256, 256)), QPoint(512, 512));
    EXPECT_EQ(node().viewToCanvas(QPoint(512, 0)), QPoint(1024, 1024));
}

TEST_F(ToolViewTest, AViewThatShowsNoCanvasLeavesTheMappingAsItWas)
{
    prepareAndDraw(views.persp());
    run("setAttr perspShape.overscan 1000000");
    M3dView handle = M3dView::active3dView();
    EXPECT_FALSE(node().prepareToolView(handle));
    EXPECT_EQ(node().viewToCanvas(QPoint(256, 256)), QPoint(512, 512));
}

TEST_F(ToolViewTest, AViewThatIsGoneCannotBePrepared)
{
    M3dView view = M3dView::active3dView();
    api::installViewHost(nullptr);
    EXPECT_FALSE(node().prepareToolView(view));
}

}  // namespace
