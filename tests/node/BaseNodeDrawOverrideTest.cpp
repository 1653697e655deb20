#include "support/NodeFixture.h"
#include "support/TestView.h"

#include "model/Canvas.h"
#include "node/BaseNodeUserData.h"

#include "api/DrawList.h"

#include <maya/MDagPath.h>
#include <maya/MFnDagNode.h>

#include <functional>
#include <memory>

namespace {

class BaseNodeDrawOverrideTest : public NodeFixture {
protected:
    BaseNodeDrawOverrideTest()
    {
        api::setRendererAvailable(true);
        run("setAttr perspShape.filmFit 1; setAttr topShape.filmFit 1");
        MFnDagNode(node().thisMObject()).getPath(path);
        drawer.reset(BaseNodeDrawOverride::creator(node().thisMObject()));
    }
    ~BaseNodeDrawOverrideTest() override
    {
        drawer.reset();
        api::setRendererAvailable(false);
    }

    void draw(const QString& camera)
    {
        drawing().insertLayer(camera, -1, "Ink");
        drawing().addFrameAtCurrentTime(camera);
    }

    /// One refresh of one view.
    struct View {
        View(const char* camera, int width, int height)
        {
            state.camera = kernel::Session::current().scene.findOrNull(std::string(camera) + "Shape");
            state.width = width;
            state.height = height;
            context = api::makeFrameContext(state);
        }

        api::FrameState state;
        std::unique_ptr<MHWRender::MFrameContext> context;
        std::unique_ptr<MUserData> data;
        api::DrawList list;
    };
    void prepare(View& view)
    {
        view.data.reset(
            drawer->prepareForDraw(path, view.context->getCurrentCameraPath(), *view.context, view.data.release()));
    }
    void paint(View& view)
    {
        const auto manager = api::makeDrawManager(view.list);
        drawer->addUIDrawables(path, *manager, *view.context, view.data.get());
    }
    /// Left, right, bottom and top of the one square that was drawn.
    std::vector<double> square(const View& view)
    {
        if (view.list.items.size() != 1) {
            return {};
        }
        std::vector<double> box = {1e9, -1e9, 1e9, -1e9};
        for (const kernel::Vector3& point : view.list.items[0].points) {
            box = {std::min(box[0], point.x), std::max(box[1], point.x), std::min(box[2], point.y),
                   std::max(box[3], point.y)};
        }
        return box;
    }

    MDagPath path;
    std::unique_ptr<MHWRender::MPxDrawOverride> drawer;
};

TEST_F(BaseNodeDrawOverrideTest, DrawsNothingForACameraWithoutADrawing)
{
    draw("top");
    View view("persp", 400, 300);
    prepare(view);
    paint(view);
    EXPECT_TRUE(view.list.items.empty());
}

TEST_F(BaseNodeDrawOverrideTest, DrawsTheCanvasAsASquareInTheNodesOpacity)
{
    draw("persp");
    run("setAttr lumisketchShape.opacity 0.5; setAttr tqLumisketch1.opacity 0.5");
    View view("persp", 400, 300);
    prepare(view);
    paint(view);
    ASSERT_EQ(view.list.items.size(), 1u);
    const api::DrawItem& item = view.list.items[0];
    EXPECT_EQ(square(view), (std::vector<double>{0, 400, -50, 350}));
    EXPECT_FLOAT_EQ(item.state.colour[0], 1.f);
    EXPECT_FLOAT_EQ(item.state.colour[3], node().opacity());
    ASSERT_NE(item.state.texture, nullptr);
    EXPECT_EQ(item.state.texture->width, 1024);
    const QImage& image = *drawing().composite("persp");
    EXPECT_TRUE(std::equal(item.state.texture->pixels.begin(), item.state.texture->pixels.end(), image.constBits()));
}

TEST_F(BaseNodeDrawOverrideTest, ViewsOfDifferentSizesPreparedTogetherKeepTheirOwnPlaces)
{
    draw("persp");
    draw("top");
    View persp("persp", 400, 300);
    View top("top", 200, 200);
    prepare(persp);
    prepare(top);
    paint(persp);
    paint(top);
    EXPECT_EQ(square(persp), (std::vector<double>{0, 400, -50, 350}));
    EXPECT_EQ(square(top), (std::vector<double>{0, 200, 0, 200}));
}

TEST_F(BaseNodeDrawOverrideTest, OutlinesTheTransformedRegionInEveryViewOfItsCameraWhereThatShowsIt)
{
    draw("persp");
    draw("top");
    run("setAttr perspShape.filmFit 1");
    node().setRegionOutline({"persp", {{{0, 0}, {1024, 0}, {1024, 512}, {0, 512}}}});
    View persp("persp", 400, 300);
    View top("top", 400, 300);
    View larger("persp", 800, 400);
    for (View* view : {&persp, &top, &larger}) {
        prepare(*view);
        paint(*view);
    }
    EXPECT_EQ(top.list.items.size(), 1u);
    const struct {
        View& view;
        kernel::Vector3 corners[5];
    } cases[] = {{persp, {{0, 350, 0}, {400, 350, 0}, {400, 150, 0}, {0, 150, 0}, {0, 350, 0}}},
                 {larger, {{0, 600, 0}, {800, 600, 0}, {800, 200, 0}, {0, 200, 0}, {0, 600, 0}}}};
    for (const auto& c : cases) {
        ASSERT_EQ(c.view.list.items.size(), 5u);
        for (size_t i = 0; i < 4; ++i) {
            const api::DrawItem& line = c.view.list.items[i + 1];
            EXPECT_EQ(line.state.texture, nullptr);
            EXPECT_GT(line.state.depthPriority, c.view.list.items[0].state.depthPriority);
            EXPECT_FLOAT_EQ(line.state.lineWidth, 1.f);
            EXPECT_EQ(std::vector<float>(line.state.colour, line.state.colour + 4), (std::vector<float>{1, 0, 0, 1}));
            ASSERT_EQ(line.points.size(), 2u);
            for (size_t end = 0; end < 2; ++end) {
                EXPECT_NEAR(line.points[end].x, c.corners[i + end].x, 1e-3);
                EXPECT_NEAR(line.points[end].y, c.corners[i + end].y, 1e-3);
            }
        }
    }

    node().setRegionOutline({});
    persp.list.items.clear();
    prepare(persp);
    paint(persp);
    EXPECT_EQ(persp.list.items.size(), 1u);
}

TEST_F(BaseNodeDrawOverrideTest, OnlyAnotherPictureIsSentToTheTexture)
{
    draw("persp");
    draw("top");
    View persp("persp", 400, 300);
    View top("top", 400, 300);
    const auto refresh = [this](View& view) {
        view.list.items.clear();
        prepare(view);
        paint(view);
    };
    refresh(persp);
    std::vector<unsigned char>& pixels = persp.list.items.at(0).state.texture->pixels;
    const unsigned char mark = 77;  // stays where nothing is sent
    const struct {
        const char* what;
        View& view;
        std::function<void()> change;
        bool sent;
    } cases[] = {
        {"nothing changed", persp, [] {}, false},
        {"another camera", top, [] {}, true},
        {"the first camera again", persp, [] {}, true},
        {"its drawing changed", persp, [this] { drawing().setLayerVisible("persp", 0, false); }, true},
        {"only the opacity changed", persp, [this] { run("setAttr tqLumisketch1.opacity 0.5"); }, false},
        {"the other drawing changed", persp, [this] { drawing().setLayerVisible("top", 0, false); }, false},
    };
    for (const auto& c : cases) {
        pixels[0] = mark;
        c.change();
        refresh(c.view);
        EXPECT_EQ(pixels[0] != mark, c.sent) << c.what;
    }
}

TEST_F(BaseNodeDrawOverrideTest, DataThatTheHostKeepsHoldsNoPictureOfAnObjectThatIsNoDrawing)
{
    draw("persp");
    View view("persp", 400, 300);
    prepare(view);
    const auto& data = dynamic_cast<const BaseNodeUserData&>(*view.data);
    EXPECT_NE(data.image, nullptr);
    EXPECT_TRUE(data.cameraHasDrawing);
    drawing().takeAllLayers("persp");
    prepare(view);
    EXPECT_EQ(data.image, nullptr);
    EXPECT_FALSE(data.cameraHasDrawing);
    draw("persp");
    prepare(view);
    EXPECT_NE(data.image, nullptr);
    path = view.context->getCurrentCameraPath();
    prepare(view);
    EXPECT_EQ(data.image, nullptr);
}

TEST_F(BaseNodeDrawOverrideTest, TwoNodesNeverShareATexture)
{
    draw("persp");
    std::unique_ptr<MHWRender::MPxDrawOverride> other(BaseNodeDrawOverride::creator(node().thisMObject()));
    View first("persp", 400, 300);
    prepare(first);
    paint(first);
    drawer.swap(other);
    View second("persp", 400, 300);
    prepare(second);
    paint(second);
    EXPECT_NE(first.list.items.at(0).state.texture->name, second.list.items.at(0).state.texture->name);
}

TEST_F(BaseNodeDrawOverrideTest, FollowsThe2dPanUnlessToldNotTo)
{
    draw("persp");
    run("setAttr perspShape.panZoomEnabled 1; setAttr perspShape.zoom 0.5");
    View view("persp", 400, 300);
    prepare(view);
    const auto* data = dynamic_cast<const BaseNodeUserData*>(view.data.get());
    ASSERT_NE(data, nullptr);
    EXPECT_FLOAT_EQ(data->halfSize, 400.f);
    Preferences::instance().setIgnore2dPanZoom(true);
    prepare(view);
    EXPECT_FLOAT_EQ(data->halfSize, 200.f);
    EXPECT_EQ(data->centre, MPoint(200, 150));
}

}  // namespace
