#include "api/DrawList.h"

#include <maya/MFrameContext.h>
#include <maya/MUIDrawManager.h>
#include <maya/MViewport2Renderer.h>

#include <gtest/gtest.h>

#include <cmath>

using Kind = api::DrawItem::Kind;

namespace {

class DrawManagerTest : public testing::Test {
protected:
    DrawManagerTest() : m_manager(api::makeDrawManager(m_list)) {}

    MHWRender::MUIDrawManager& draw() { return *m_manager; }
    const std::vector<api::DrawItem>& items() const { return m_list.items; }

private:
    api::DrawList m_list;
    std::unique_ptr<MHWRender::MUIDrawManager> m_manager;
};

}  // namespace

TEST_F(DrawManagerTest, ACircleStaysOnItsRadius)
{
    draw().beginDrawable();
    draw().circle2d(MPoint(10, 20), 40);
    draw().circle2d(MPoint(10, 20), 40, true);
    draw().endDrawable();
    EXPECT_EQ(items()[0].kind, Kind::ClosedLine);
    EXPECT_EQ(items()[1].kind, Kind::Triangles);
    EXPECT_EQ(items()[1].points.size() % 3, 0u);
    for (const api::DrawItem& item : items()) {
        for (const auto& p : item.points)
            EXPECT_NEAR(std::hypot(p.x - 10, p.y - 20), 40, 1e-9);
    }
}

TEST_F(DrawManagerTest, StateLastsUntilTheDrawableEnds)
{
    draw().line2d(MPoint(0, 0), MPoint(9, 9));  // outside of any drawable
    draw().beginDrawable();
    draw().setColor(MColor(1, 0, 0, 0.5f));
    draw().setLineWidth(3);
    draw().setDepthPriority(5);
    draw().setLineStyle(MHWRender::MUIDrawManager::kDashed);
    draw().line2d(MPoint(1, 2), MPoint(3, 4));
    draw().endDrawable();
    draw().beginDrawable();
    draw().text2d(MPoint(5, 6), "42", MHWRender::MUIDrawManager::kRight);
    draw().endDrawable();

    ASSERT_EQ(items().size(), 2u);
    EXPECT_EQ(items()[0].state.colour[3], 0.5f);
    EXPECT_EQ(items()[0].state.lineWidth, 3.0f);
    EXPECT_EQ(items()[0].state.depthPriority, 5u);
    EXPECT_TRUE(items()[0].state.dashed);
    EXPECT_EQ(items()[1].state.colour[1], 1.0f);
    EXPECT_EQ(items()[1].state.lineWidth, 1.0f);
    EXPECT_EQ(items()[1].state.depthPriority, 0u);
    EXPECT_EQ(items()[1].text, "42");
    EXPECT_EQ(items()[1].textAlignment, 2);
}

namespace {

/// A camera at z = 10 looking down -z: 90 degrees wide and high, clipping planes at 1 and 100.
api::FrameState squareFrame()
{
    api::FrameState state;
    state.width = 200;
    state.height = 200;
    state.matrices.view.m[3][2] = -10;
    auto& p = state.matrices.projection.m;
    p[2][2] = -(100.0 + 1.0) / (100.0 - 1.0);
    p[2][3] = -1;
    p[3][2] = -2 * 100.0 * 1.0 / (100.0 - 1.0);
    p[3][3] = 0;
    return state;
}

}  // namespace

TEST(FrameContext, ProjectsToViewportPixelsAndBack)
{
    const api::FrameState state = squareFrame();
    const auto frame = api::makeFrameContext(state);
    double x = 0;
    double y = 0;
    EXPECT_TRUE(frame->worldToViewport(MPoint(5, -5, 0), x, y));
    EXPECT_NEAR(x, 150, 1e-9);
    EXPECT_NEAR(y, 50, 1e-9);

    MPoint point;
    MVector direction;
    frame->viewportToWorld(150, 50, point, direction);
    EXPECT_NEAR(direction.length(), 1, 1e-9);
    EXPECT_NEAR(point.z, 9, 1e-9);  // on the near plane
    const MPoint reached = point + direction * (point.z / -direction.z);
    EXPECT_TRUE(reached.isEquivalent(MPoint(5, -5, 0), 1e-9));
}

TEST(FrameContext, GivesPixelsForPointsOutsideTheViewToo)
{
    const api::FrameState state = squareFrame();
    const auto frame = api::makeFrameContext(state);
    double x = 0;
    double y = 0;
    MStatus status;
    EXPECT_FALSE(frame->worldToViewport(MPoint(20, 0, 0), x, y, &status));
    EXPECT_TRUE(status);
    EXPECT_NEAR(x, 300, 1e-9);
    EXPECT_FALSE(frame->worldToViewport(MPoint(5, 0, 20), x, y));  // behind: mirrored
    EXPECT_NEAR(x, 50, 1e-9);
    x = -1;
    EXPECT_FALSE(frame->worldToViewport(MPoint(5, 0, 10), x, y, &status));  // in the camera's plane
    EXPECT_FALSE(status);
    EXPECT_EQ(x, -1);
}
