#include "api/DrawList.h"

#include <maya/MFrameContext.h>
#include <maya/MTextureManager.h>
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

/// A texture for the test's lifetime.
class TestTexture {
public:
    TestTexture()
    {
        api::setRendererAvailable(true);
        MHWRender::MTextureDescription description;
        description.fWidth = 2;
        description.fHeight = 2;
        texture = manager().acquireTexture("", description, nullptr);
    }
    ~TestTexture()
    {
        manager().releaseTexture(texture);
        api::setRendererAvailable(false);
    }
    MHWRender::MTexture* texture = nullptr;

private:
    static MHWRender::MTextureManager& manager() { return *MHWRender::MRenderer::theRenderer()->getTextureManager(); }
};

}  // namespace

TEST_F(DrawManagerTest, AFilledSquareReachesItsScalesOnBothSides)
{
    draw().beginDrawable();
    draw().rect2d(MPoint(100, 50), MVector(0, 1, 0), 30, 20, true);
    draw().endDrawable();
    ASSERT_EQ(items().size(), 1u);
    const api::DrawItem& item = items()[0];
    EXPECT_EQ(item.kind, Kind::Triangles);
    ASSERT_EQ(item.points.size(), 6u);
    ASSERT_EQ(item.textureCoordinates.size(), 6u);
    double area = 0;
    for (std::size_t i = 0; i < 6; ++i) {
        const auto& p = item.points[i];
        const auto& t = item.textureCoordinates[i];
        // row 0 of the texture is the upper edge, column 0 the left one
        EXPECT_DOUBLE_EQ(p.x, t.x == 0 ? 70 : 130);
        EXPECT_DOUBLE_EQ(p.y, t.y == 0 ? 70 : 30);
        const auto& q = item.points[i % 3 == 2 ? i - 2 : i + 1];
        area += (p.x * q.y - q.x * p.y) / 2;
    }
    EXPECT_DOUBLE_EQ(std::fabs(area), 60.0 * 40.0) << "the two triangles cover the rectangle once";
}

TEST_F(DrawManagerTest, UpTurnsTheRectangle)
{
    draw().beginDrawable();
    draw().rect2d(MPoint(0, 0), MVector(2, 0, 0), 3, 1);  // up is to the right: the upper left corner is at the top
    draw().endDrawable();
    ASSERT_EQ(items()[0].kind, Kind::ClosedLine);
    ASSERT_EQ(items()[0].points.size(), 4u);
    EXPECT_EQ(items()[0].points[0], (kernel::Vector3{1, 3, 0}));
    EXPECT_EQ(items()[0].points[1], (kernel::Vector3{1, -3, 0}));
    EXPECT_EQ(items()[0].points[2], (kernel::Vector3{-1, -3, 0}));
}

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

TEST_F(DrawManagerTest, OnlyFilledShapesAreTextured)
{
    const TestTexture texture;
    ASSERT_NE(texture.texture, nullptr);
    draw().beginDrawable();
    draw().setTexture(texture.texture);
    draw().setTextureSampler(MHWRender::MSamplerState::kMinMagMipLinear, MHWRender::MSamplerState::kTexWrap);
    draw().rect2d(MPoint(0, 0), MVector(0, 1, 0), 1, 1, true);
    draw().line2d(MPoint(0, 0), MPoint(1, 1));
    draw().setTexture(nullptr);
    draw().rect2d(MPoint(0, 0), MVector(0, 1, 0), 1, 1, true);
    draw().endDrawable();
    EXPECT_TRUE(items()[0].state.texture);
    EXPECT_FALSE(items()[0].state.clampTexture);
    EXPECT_FALSE(items()[1].state.texture);
    EXPECT_FALSE(items()[2].state.texture);
}

TEST_F(DrawManagerTest, ATextBackgroundStandsBehindTheTextAndFollowsItsAlignment)
{
    const int size[] = {40, 10};
    const MColor grey(0.5f, 0.5f, 0.5f);
    draw().beginDrawable();
    draw().text2d(MPoint(100, 0), "right", MHWRender::MUIDrawManager::kRight, size, &grey);
    draw().endDrawable();
    ASSERT_EQ(items().size(), 2u);
    EXPECT_EQ(items()[0].kind, Kind::Triangles);
    for (const auto& p : items()[0].points)
        EXPECT_TRUE(p.x == 60 || p.x == 100) << p.x;
    EXPECT_EQ(items()[1].kind, Kind::Text);
    EXPECT_EQ(items()[1].state.colour[0], 1.0f);
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

TEST(FrameContext, MatricesComeInTheirVariants)
{
    const api::FrameState state = squareFrame();
    const auto frame = api::makeFrameContext(state);
    using Context = MHWRender::MFrameContext;
    const MMatrix both = frame->getMatrix(Context::kViewMtx) * frame->getMatrix(Context::kProjectionMtx);
    EXPECT_TRUE(both.isEquivalent(frame->getMatrix(Context::kViewProjMtx)));
    EXPECT_TRUE((both * frame->getMatrix(Context::kViewProjInverseMtx)).isEquivalent(MMatrix::identity, 1e-9));
    EXPECT_EQ(frame->getMatrix(Context::kViewTransposeMtx)(2, 3), -10.0);
    MStatus status;
    frame->getMatrix(Context::kWorldMtx, &status);
    EXPECT_FALSE(status) << "a frame has no object";
}
