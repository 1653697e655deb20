#include "workbench/api/SampleTypes.h"

#include <maya/MDagPath.h>
#include <maya/MItDag.h>
#include <maya/MSelectionList.h>

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

class MDagPathTest : public SampleTypes {
protected:
    MDagPath pathOf(const char* name)
    {
        MSelectionList list;
        MDagPath path;
        EXPECT_TRUE(list.add(name)) << name;
        EXPECT_TRUE(list.getDagPath(0, path)) << name;
        return path;
    }
    static std::vector<std::string> visited(MItDag walk)
    {
        std::vector<std::string> names;
        for (; !walk.isDone(); walk.next())
            names.push_back(MFnDependencyNode(walk.currentItem()).name().asUTF8());
        return names;
    }
    /// |group|{left, right}, each a sample with its shape.
    MObject makeGroup()
    {
        MFnDagNode group;
        MObject top = group.create("transform", "group");
        for (const char* name : {"left", "right"}) {
            MObject below = MFnDagNode(createShape(name)).parent(0);
            EXPECT_TRUE(group.addChild(below));
        }
        return top;
    }
};

TEST_F(MDagPathTest, GoesUpAndDown)
{
    MDagPath path = pathOf("persp");
    EXPECT_TRUE(path.hasFn(MFn::kTransform));
    ASSERT_TRUE(path.extendToShape());
    EXPECT_EQ(path.fullPathName(), "|persp|perspShape");
    EXPECT_TRUE(path.extendToShape());  // is there already
    EXPECT_EQ(path.length(), 2u);
    EXPECT_EQ(MFnDependencyNode(path.transform()).name(), "persp");
    ASSERT_TRUE(path.pop());
    EXPECT_EQ(path, pathOf("persp"));
    EXPECT_TRUE(path.push(path.child(0)));
    EXPECT_FALSE(path.push(path.node()));
    EXPECT_FALSE(path.pop(3));
    ASSERT_TRUE(path.pop(2));
    EXPECT_EQ(path.length(), 0u);
    EXPECT_TRUE(path.node().hasFn(MFn::kWorld));
}

TEST_F(MDagPathTest, EndsWithItsNode)
{
    const MObject shape = createShape();
    MDagPath path = pathOf("sampleShape");
    const auto held = api::nodeOf(shape);
    session.scene.detach(held);
    EXPECT_FALSE(path.isValid());
    EXPECT_FALSE(MDagPath::getAPathTo(shape, path));
    EXPECT_FALSE(MDagPath().isValid());
    MStatus status;
    EXPECT_EQ(MDagPath().fullPathName(&status), "");
    EXPECT_FALSE(status);
}

TEST_F(MDagPathTest, AWalkVisitsTheWholeDagInOrder)
{
    makeGroup();
    EXPECT_THAT(visited(MItDag()),
                ElementsAre("world", "persp", "perspShape", "top", "topShape", "front", "frontShape", "side",
                            "sideShape", "group", "left", "leftShape", "right", "rightShape"));
    EXPECT_THAT(visited(MItDag(MItDag::kDepthFirst, MFn::kCamera)),
                ElementsAre("perspShape", "topShape", "frontShape", "sideShape"));
    EXPECT_THAT(visited(MItDag(MItDag::kBreadthFirst, MFn::kPluginLocatorNode)),
                ElementsAre("leftShape", "rightShape"));
    MItDag below;
    ASSERT_TRUE(below.reset(pathOf("group"), MItDag::kBreadthFirst));
    EXPECT_THAT(visited(below), ElementsAre("group", "left", "right", "leftShape", "rightShape"));
}

TEST_F(MDagPathTest, SelectionListsTakeNamesPatternsAndPlugs)
{
    makeGroup();
    MSelectionList list;
    EXPECT_FALSE(list.add("nothing"));
    EXPECT_FALSE(list.add("left.nothing"));
    EXPECT_TRUE(list.isEmpty());
    ASSERT_TRUE(list.add("*Shape"));
    EXPECT_EQ(list.length(), 6u);
    list.clear();
    ASSERT_TRUE(list.add("|group|left"));
    ASSERT_TRUE(list.add("left.tx"));
    ASSERT_TRUE(list.add("time1"));
    MPlug plug;
    EXPECT_FALSE(list.getPlug(0, plug));
    ASSERT_TRUE(list.getPlug(1, plug));
    EXPECT_EQ(plug.partialName(), "tx");
    MDagPath path;
    EXPECT_TRUE(list.getDagPath(1, path));
    EXPECT_FALSE(list.getDagPath(2, path));
    EXPECT_FALSE(list.getDagPath(3, path));
    EXPECT_TRUE(MObject::kNullObj.isNull());
    MStringArray texts;
    list.getSelectionStrings(texts);
    ASSERT_EQ(texts.length(), 3u);
    EXPECT_EQ(texts[1], "left.translateX");
}

}  // namespace
