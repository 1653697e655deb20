#include "api/Views.h"
#include "support/HostFixture.h"

#include <maya/M3dView.h>
#include <maya/MQtUtil.h>
#include <maya/MSelectionList.h>

#include <QWidget>

namespace {

/// A view of 300 x 200 pixels, 3 world units to either side and 2 up and down, looking down -z.
class FlatView : public api::View {
public:
    explicit FlatView(kernel::NodePtr camera) : m_camera(std::move(camera)) { m_widget.setObjectName("flat"); }

    std::string panelName() const override { return "modelPanel9"; }
    QWidget* widget() override { return &m_widget; }
    kernel::NodePtr camera() const override { return m_camera; }
    void setCamera(const kernel::NodePtr& cameraShape) override { m_camera = cameraShape; }
    int portWidth() const override { return 300; }
    int portHeight() const override { return 200; }
    bool isLegacy() const override { return false; }
    api::ViewMatrices matrices() const override
    {
        api::ViewMatrices result;
        result.projection.m[0][0] = 1.0 / 3;
        result.projection.m[1][1] = 1.0 / 2;
        result.projection.m[2][2] = -1.0 / 10;
        return result;
    }
    void refresh(bool) override { ++refreshed; }
    void scheduleRefresh() override { ++scheduled; }
    void beginXorDrawing(float, const float[4]) override {}
    void endXorDrawing() override {}

    int refreshed = 0;
    int scheduled = 0;

private:
    QWidget m_widget;
    kernel::NodePtr m_camera;
};

class OneViewHost : public api::ViewHost {
public:
    OneViewHost() { api::installViewHost(this); }
    ~OneViewHost() override { api::installViewHost(nullptr); }
    std::vector<api::View*> views() const override
    {
        return view ? std::vector<api::View*>{view.get()} : std::vector<api::View*>();
    }
    api::View* activeView() const override { return view.get(); }

    std::unique_ptr<FlatView> view;
};

class M3dViewTest : public HostFixture {
protected:
    M3dViewTest() { m_host.view = std::make_unique<FlatView>(session().scene.findOne("frontShape")); }
    FlatView& flat() { return *m_host.view; }
    void closeView() { m_host.view.reset(); }

private:
    OneViewHost m_host;
};

}  // namespace

TEST_F(M3dViewTest, MapsBetweenPixelsAndTheWorld)
{
    M3dView view = M3dView::active3dView();
    short x = 0;
    short y = 0;
    EXPECT_TRUE(view.worldToView(MPoint(1.5, -1, 0), x, y));
    EXPECT_EQ(x, 225);
    EXPECT_EQ(y, 50);
    MStatus status;
    EXPECT_FALSE(view.worldToView(MPoint(-6, 0, 0), x, y, &status));
    EXPECT_TRUE(status);
    EXPECT_EQ(x, -150);

    MPoint point;
    MVector direction;
    ASSERT_TRUE(view.viewToWorld(225, 50, point, direction));
    EXPECT_TRUE(point.isEquivalent(MPoint(1.5, -1, 10)));
    EXPECT_TRUE(direction.isEquivalent(MVector(0, 0, -1)));
    for (short pixel = 0; pixel <= 300; ++pixel) {
        view.viewToWorld(pixel, 0, point, direction);
        view.worldToView(point, x, y);
        ASSERT_EQ(x, pixel);
    }
}

TEST_F(M3dViewTest, TellsAndChangesItsCamera)
{
    M3dView view;
    ASSERT_TRUE(M3dView::getM3dViewFromModelPanel("modelPanel9", view));
    EXPECT_FALSE(M3dView::getM3dViewFromModelPanel("modelPanel1", view));
    MDagPath camera;
    ASSERT_TRUE(view.getCamera(camera));
    EXPECT_EQ(camera.fullPathName(), MString("|front|frontShape"));
    MDagPath::getAPathTo(camera.transform(), camera);
    EXPECT_TRUE(view.setCamera(camera)) << "a transform with one camera below will do";
    EXPECT_EQ(flat().camera()->name(), "frontShape");
    ASSERT_TRUE(run("createNode transform -n bare"));
    MSelectionList list;
    list.add("bare");
    list.getDagPath(0, camera);
    EXPECT_FALSE(view.setCamera(camera));
    view.refresh(true);
    view.scheduleRefresh();
    M3dView::scheduleRefreshAllViews();
    EXPECT_EQ(flat().refreshed, 1);
    EXPECT_EQ(flat().scheduled, 2);
    EXPECT_FALSE(view.beginXorDrawing()) << "only the legacy viewport has it";
    EXPECT_EQ(view.getRendererName(), M3dView::kViewport2Renderer);
}

TEST_F(M3dViewTest, AHandleMayOutliveItsView)
{
    M3dView view = M3dView::active3dView();
    EXPECT_NE(view.widget(), nullptr);
    closeView();
    MStatus status;
    EXPECT_EQ(view.widget(&status), nullptr);
    EXPECT_FALSE(status);
    EXPECT_EQ(view.portWidth(&status), 0);
    EXPECT_FALSE(status);
    MDagPath camera;
    EXPECT_FALSE(view.getCamera(camera));
    EXPECT_FALSE(view.refresh());
    short x = 7;
    short y = 7;
    EXPECT_FALSE(view.worldToView(MPoint(), x, y, &status));
    EXPECT_FALSE(status);
    M3dView::active3dView(&status);
    EXPECT_FALSE(status);
    EXPECT_EQ(M3dView::numberOf3dViews(), 0u);
}

TEST(MQtUtil, KeepsTextAndFindsItsWay)
{
    const QString text = QString::fromUtf8("Ebene \xc3\xa4 \xf0\x9f\x96\x8a");
    EXPECT_EQ(MQtUtil::toQString(MQtUtil::toMString(text)), text);

    QWidget window;
    window.setObjectName("win");
    QWidget* const layout = new QWidget(&window);
    QWidget* const control = new QWidget(layout);
    control->setObjectName("ctl");
    EXPECT_EQ(MQtUtil::fullName(control), MString("win|ctl"));
    EXPECT_EQ(MQtUtil::findControl("ctl", &window), control);
    EXPECT_EQ(MQtUtil::findControl("win|ctl", &window), control);
}
