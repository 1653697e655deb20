#include "kernel/ImageSequence.h"
#include "workbench/mel/SceneFolder.h"

using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class ImagePlane : public SceneFolder {};

}  // namespace

TEST_F(ImagePlane, StandsUnderTheCameraItIsMadeForAsOneStepOfUndo)
{
    run("camera -n shot");
    const std::string nodes = eval("ls");
    EXPECT_EQ(eval("imagePlane -camera shotShape1 -fileName \"/plates/a.0001.png\" -width 2 -height 1"),
              "imagePlane1 imagePlaneShape1");
    EXPECT_EQ(eval("ls -sl"), "imagePlane1");
    EXPECT_EQ(eval("listRelatives -parent imagePlane1"), "shot1");
    EXPECT_EQ(eval("imagePlane -q -fileName imagePlane1"), "/plates/a.0001.png");
    EXPECT_EQ(eval("getAttr imagePlaneShape1.size"), "2 1");
    EXPECT_EQ(eval("imagePlane -q -camera imagePlaneShape1"), "shot1");
    EXPECT_EQ(eval("imagePlane -c persp -n sky"), "sky skyShape");
    run("undo; undo");
    EXPECT_EQ(eval("ls"), nodes);
    run("redo");
    EXPECT_EQ(eval("getAttr imagePlaneShape1.imageName"), "/plates/a.0001.png");
    EXPECT_THAT(errors, IsEmpty());
}

TEST_F(ImagePlane, EditsArePutBackTogether)
{
    run("imagePlane -c persp -fn one.png; select -cl");
    ASSERT_TRUE(run("imagePlane -e -fn two.png -w 3 -c top -n plate imagePlane1"));
    EXPECT_EQ(eval("imagePlane -q -fn plate"), "two.png");
    EXPECT_EQ(eval("imagePlane -q -w plate"), "3");
    EXPECT_EQ(eval("imagePlane -q -camera plateShape"), "top");
    run("undo");
    EXPECT_EQ(eval("imagePlane -q -fn imagePlane1"), "one.png");
    EXPECT_EQ(eval("imagePlane -q -camera imagePlane1"), "persp");
}

TEST_F(ImagePlane, WhatItCannotStandUnderIsRefused)
{
    const std::string nodes = eval("ls");
    EXPECT_THAT(error("imagePlane -fn a.png"), HasSubstr("-camera"));
    EXPECT_THAT(error("imagePlane -c absent"), HasSubstr("absent"));
    EXPECT_THAT(error("imagePlane -c time1"), HasSubstr("is not a camera"));
    EXPECT_THAT(error("imagePlane -q -fn persp"), HasSubstr("is not an image plane"));
    EXPECT_THAT(error("imagePlane -c persp -width -1"), HasSubstr("imagePlane"));
    EXPECT_EQ(eval("ls"), nodes) << "a step that fails leaves nothing behind";
}

TEST_F(ImagePlane, AnAnimatedFrameExtensionNamesThePicture)
{
    run("imagePlane -c persp -fn \"a.0001.png\"; setAttr imagePlaneShape1.ufe 1; setAttr imagePlaneShape1.fe 7;"
        "setAttr imagePlaneShape1.fo 100");
    const kernel::Node& plane = *session.scene.findOne("imagePlaneShape1");
    EXPECT_EQ(kernel::shownImage(plane, 5), "a.0105.png");
    run("setKeyframe -t 1 -v 20 imagePlaneShape1.fe; setKeyframe -t 11 -v 40 imagePlaneShape1.fe");
    EXPECT_EQ(kernel::shownImage(plane, 6), "a.0130.png");
    EXPECT_EQ(kernel::shownImage(plane, 11), "a.0140.png") << "another time than the current one";
}

TEST_F(ImagePlane, IsKeptInScenesOfBothForms)
{
    run("imagePlane -c front -fn \"/plates/a \\\"b\\\".####.png\"");
    run("setAttr imagePlaneShape1.ufe 1; setAttr imagePlaneShape1.fo -3; setAttr imagePlaneShape1.fit 4;"
        "setAttr imagePlaneShape1.fe 12; setAttr imagePlaneShape1.d 40; setAttr imagePlaneShape1.frameIn 3;"
        "setAttr imagePlaneShape1.frameOut 9; setAttr imagePlaneShape1.fc 0; setAttr imagePlaneShape1.dic 1;"
        "setAttr imagePlaneShape1.ag 0.5; setAttr imagePlaneShape1.dm 2; setAttr imagePlaneShape1.offset 0.1 0.2");
    for (const char* const name : {"plates.ma", "plates.mb"}) {
        ASSERT_TRUE(file("-rename", name));
        ASSERT_TRUE(run("file -save -type " + std::string(name[8] == 'a' ? "mayaAscii" : "mayaBinary")));
        ASSERT_TRUE(file("-force -open", name));
        EXPECT_EQ(eval("imagePlane -q -camera imagePlaneShape1"), "front") << name;
        EXPECT_EQ(eval("getAttr imagePlaneShape1.imageName"), "/plates/a \"b\".####.png") << name;
        EXPECT_EQ(eval("getAttr -as imagePlaneShape1.fit"), "To Size") << name;
        EXPECT_EQ(eval("getAttr imagePlaneShape1.of"), "0.1 0.2") << name;
        for (const char* const value :
             {"ufe 1", "fo -3", "ag 0.5", "dm 2", "fe 12", "d 40", "frameIn 3", "frameOut 9", "fc 0", "dic 1"}) {
            const std::string text = value;
            EXPECT_EQ(eval("getAttr imagePlaneShape1." + text.substr(0, text.find(' '))),
                      text.substr(text.find(' ') + 1))
                << name;
        }
    }
    EXPECT_THAT(errors, IsEmpty());
}
