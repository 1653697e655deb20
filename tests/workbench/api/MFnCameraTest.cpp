#include "workbench/api/SampleTypes.h"

#include <maya/MFnCamera.h>
#include <maya/MSelectionList.h>

namespace {

class MFnCameraTest : public SampleTypes {
protected:
    static MDagPath pathOf(const char* name)
    {
        MSelectionList list;
        MDagPath path;
        list.add(name);
        list.getDagPath(0, path);
        return path;
    }
    struct Aperture {
        double x = 0;
        double y = 0;
        double offsetX = 0;
        double offsetY = 0;
    };
    static Aperture apertureOf(const MFnCamera& camera, double aspect)
    {
        Aperture a;
        EXPECT_TRUE(camera.getViewParameters(aspect, a.x, a.y, a.offsetX, a.offsetY, true, false, true));
        return a;
    }
};

TEST_F(MFnCameraTest, ServesShapesAndPathsThatEndAtTheTransform)
{
    MStatus status;
    const MFnCamera byTransform(pathOf("persp"), &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(byTransform.name(), "perspShape");
    const MFnCamera byShape(pathOf("topShape"), &status);
    ASSERT_TRUE(status);
    EXPECT_TRUE(byShape.isOrtho());
    EXPECT_FALSE(byTransform.isOrtho());
    const MFnCamera byObject(pathOf("persp").node(), &status);
    EXPECT_FALSE(status);  // a transform is no camera
    EXPECT_EQ(byObject.zoom(&status), 0);
    EXPECT_FALSE(status);
}

TEST_F(MFnCameraTest, PanAndZoomCountOnlyWhileEnabled)
{
    MFnCamera camera(pathOf("persp"));
    camera.setFilmFit(MFnCamera::kHorizontalFilmFit);
    camera.setHorizontalPan(0.2);
    camera.setZoom(0.5);
    const Aperture off = apertureOf(camera, 1);
    EXPECT_EQ(off.offsetX, 0);
    camera.setPanZoomEnabled(true);
    const Aperture on = apertureOf(camera, 1);
    EXPECT_NEAR(on.offsetX, 0.2, 1e-12);
    EXPECT_NEAR(on.x, off.x / 2, 1e-12);
    EXPECT_FALSE(camera.setZoom(0));  // below what the attribute allows
}

}  // namespace
