// Cameras and views that no canvas fits into: nothing crashes, nothing is said, and a sane camera draws again.

#include "support/NodeFixture.h"
#include "support/TestView.h"

#include "node/BaseNodeUserData.h"

#include "api/DrawList.h"

#include <maya/M3dView.h>
#include <maya/MFnDagNode.h>

#include <fstream>

namespace {

using testing::IsEmpty;

class HostileCameras : public NodeFixture {
protected:
    HostileCameras()
    {
        session().batch = false;
        api::setRendererAvailable(true);
        makeDrawing();
    }
    ~HostileCameras() override { api::setRendererAvailable(false); }

    void makeDrawing()
    {
        drawing().insertLayer("persp", -1, "Ink");
        drawing().addFrameAtCurrentTime("persp");
    }

    /// Shows a view of the camera once and points at it as the tools do. Gives the side of the square that is drawn.
    double show(int width, int height)
    {
        views.persp().widget()->resize(width, height);
        M3dView handle = M3dView::active3dView();
        const bool ready = node().prepareToolView(handle);
        viewPointOf(node().toolMetrics(), node().viewToCanvas(QPoint(width / 2, height / 2)));

        api::FrameState state;
        state.camera = views.persp().camera();
        state.width = width;
        state.height = height;
        const auto context = api::makeFrameContext(state);
        MDagPath path;
        MFnDagNode(node().thisMObject()).getPath(path);
        const std::unique_ptr<MHWRender::MPxDrawOverride> drawer(BaseNodeDrawOverride::creator(node().thisMObject()));
        const std::unique_ptr<MUserData> data(
            drawer->prepareForDraw(path, context->getCurrentCameraPath(), *context, nullptr));
        api::DrawList list;
        const auto manager = api::makeDrawManager(list);
        drawer->addUIDrawables(path, *manager, *context, data.get());
        EXPECT_EQ(node().metrics().width, width);
        return ready ? 2.0 * double(static_cast<const BaseNodeUserData&>(*data).halfSize) : 0.0;
    }

    TestViews views;
};

const char* const kNonsense[] = {
    "perspShape.overscan 0",
    "perspShape.overscan -1",
    "perspShape.overscan 1e-300",
    "perspShape.overscan 1e300",
    "perspShape.horizontalFilmAperture 0",
    "perspShape.verticalFilmAperture 0",
    "perspShape.verticalFilmAperture -3",
    "perspShape.verticalFilmAperture 1e-300",
    "perspShape.lensSqueezeRatio 0",
    "perspShape.focalLength 0",
    "perspShape.farClipPlane 1e300",
    "perspShape.horizontalPan 1e300",
    "perspShape.zoom 1e-300",
    "perspShape.zoom -1",
    "perspShape.filmFit 99",
    "perspShape.filmFit -1",
    "defaultResolution.width 0",
    "defaultResolution.height 0",
    "defaultResolution.width -1280",
    "defaultResolution.height -720",
    "defaultResolution.height 2147483647",
};

TEST_F(HostileCameras, NonsenseIsSurvivedAndForgotten)
{
    for (const char* fit : {"0", "1", "2", "3"}) {
        for (const char* panZoom : {"0", "1"}) {
            for (const char* nonsense : kNonsense) {
                SCOPED_TRACE(std::string(nonsense) + ", fit " + fit + ", pan and zoom " + panZoom);
                run(std::string("setAttr perspShape.filmFit ") + fit + "; setAttr perspShape.panZoomEnabled "
                    + panZoom);
                const double sane = show(400, 300);
                EXPECT_GT(sane, 100.0);
                const bool accepted = run(std::string("setAttr ") + nonsense);
                forgetLines();
                EXPECT_GE(show(400, 300), 0.0);
                EXPECT_THAT(errors(), IsEmpty());
                if (accepted) {
                    run("undo");
                }
                EXPECT_EQ(show(400, 300), sane);
            }
        }
    }
}

TEST_F(HostileCameras, ViewsOfAPixelOrNoneAreSurvived)
{
    for (const char* fit : {"0", "1", "2", "3"}) {
        run(std::string("setAttr perspShape.filmFit ") + fit);
        for (const QSize& size : {QSize(1, 1), QSize(1, 1000), QSize(1000, 1), QSize(0, 0), QSize(0, 300)}) {
            EXPECT_LE(show(size.width(), size.height()), 2000.0) << fit << " " << size.width() << "x" << size.height();
        }
    }
    EXPECT_THAT(errors(), IsEmpty());
}

// What setAttr refuses a file may still say.
TEST_F(HostileCameras, ASceneFileWithNonsenseOpensAndItsDrawingIsWhole)
{
    const std::string path = prefsDir().toStdString() + "/nonsense.ma";
    for (const char* nonsense : kNonsense) {
        SCOPED_TRACE(nonsense);
        run("file -force -new");
        makeDrawing();
        const QString before = describeDrawing();
        ASSERT_TRUE(run("file -rename \"" + path + "\"; file -type \"mayaAscii\"; file -save"));
        const std::string text = nonsense;
        const std::size_t dot = text.find('.');
        std::ofstream(path, std::ios::app)
            << "select -ne " << text.substr(0, dot) << ";\n"
            << "setAttr \"" << text.substr(dot, text.find(' ') - dot) << "\"" << text.substr(text.find(' ')) << ";\n";
        run("file -force -open \"" + path + "\"");
        EXPECT_GE(show(400, 300), 0.0);
        EXPECT_EQ(describeDrawing(), before);
    }
}

}  // namespace
