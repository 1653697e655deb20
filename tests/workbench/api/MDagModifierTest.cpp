#include "workbench/api/SampleTypes.h"

#include <maya/MDagModifier.h>
#include <maya/MObjectHandle.h>

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

class MDagModifierTest : public SampleTypes {
protected:
    /// Paths below the world that are not the startup cameras'.
    std::vector<std::string> paths()
    {
        std::vector<std::string> out;
        session.scene.walkDag([&](kernel::Node& node) {
            if (node.startup)
                return false;
            out.push_back(session.scene.fullPath(node));
            return true;
        });
        return out;
    }
};

TEST_F(MDagModifierTest, RedoesTheSameObjectsUnderTheSameNames)
{
    MDagModifier modifier;
    const MObject transform = modifier.createNode("transform");
    ASSERT_TRUE(modifier.renameNode(transform, "drawing"));
    const MObject shape = modifier.createNode(MTypeId(SampleNode::kId), transform);
    ASSERT_TRUE(modifier.renameNode(shape, "drawingShape"));
    EXPECT_THAT(paths(), ElementsAre());  // queued only
    SampleNode* const object = sampleOf(shape);
    ASSERT_NE(object, nullptr);

    ASSERT_TRUE(modifier.doIt());
    EXPECT_THAT(paths(), ElementsAre("|drawing", "|drawing|drawingShape"));
    plugOf(transform, "tx").setDouble(5);
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(modifier.undoIt());
        EXPECT_THAT(paths(), ElementsAre());
        EXPECT_FALSE(MObjectHandle(shape).isValid());
        EXPECT_TRUE(MObjectHandle(shape).isAlive());
        ASSERT_TRUE(modifier.doIt());
        EXPECT_THAT(paths(), ElementsAre("|drawing", "|drawing|drawingShape"));
        EXPECT_TRUE(MObjectHandle(shape).isValid());
        EXPECT_EQ(sampleOf(shape), object);
        EXPECT_EQ(plugOf(transform, "tx").asDouble(), 5);
    }
}

TEST_F(MDagModifierTest, PutsATransformAboveAShapeWithoutParent)
{
    MDagModifier modifier;
    const MObject top = modifier.createNode("sampleNode");
    EXPECT_TRUE(top.hasFn(MFn::kTransform));
    ASSERT_TRUE(modifier.doIt());
    EXPECT_THAT(paths(), ElementsAre("|sampleNode1", "|sampleNode1|sampleNodeShape1"));
    EXPECT_TRUE(MFnDagNode(top).child(0).hasFn(MFn::kPluginLocatorNode));
    modifier.undoIt();
    EXPECT_THAT(paths(), ElementsAre());
}

TEST_F(MDagModifierTest, RefusesWhatItCannotMake)
{
    MDagModifier modifier;
    MStatus status;
    EXPECT_TRUE(modifier.createNode("noSuchType", MObject::kNullObj, &status).isNull());
    EXPECT_FALSE(status);
    EXPECT_TRUE(modifier.createNode("time", MObject::kNullObj, &status).isNull());  // not of the DAG
    EXPECT_FALSE(status);
    EXPECT_TRUE(modifier.createNode("transform", createShape(), &status).isNull());  // a shape is no parent
    EXPECT_FALSE(status);
    EXPECT_FALSE(modifier.renameNode(MObject(), "x"));
    EXPECT_FALSE(modifier.newPlugValueDouble(MPlug(), 1));
    MDGModifier plain;
    EXPECT_TRUE(plain.createNode("transform", &status).isNull());
    EXPECT_FALSE(status);
    EXPECT_FALSE(plain.createNode("script", &status).isNull());
    EXPECT_TRUE(status);
}

TEST_F(MDagModifierTest, TakesBackWhatItDidWhenAStepIsRefused)
{
    MDagModifier modifier;
    const MObject transform = modifier.createNode("transform");
    modifier.newPlugValueDouble(plugOf(transform, "tx"), 3);
    modifier.deleteNode(api::toObject(session.scene.findOne("persp")));  // a startup camera stays
    EXPECT_FALSE(modifier.doIt());
    EXPECT_THAT(paths(), ElementsAre());
    EXPECT_NE(session.scene.findOrNull("persp"), nullptr);
}

TEST_F(MDagModifierTest, SetsValuesAndParentsReversibly)
{
    const MObject shape = createShape("a");
    const MObject a = MFnDagNode(shape).parent(0);
    const MObject b = MFnDagNode(createShape("b")).parent(0);
    MDagModifier modifier;
    modifier.newPlugValueFloat(plugOf(shape, "amount"), 0.5f);
    modifier.reparentNode(b, a);
    ASSERT_TRUE(modifier.doIt());
    EXPECT_EQ(plugOf(shape, "amount").asFloat(), 0.5f);
    EXPECT_EQ(MFnDagNode(b).fullPathName(), "|a|b");
    ASSERT_TRUE(modifier.undoIt());
    EXPECT_EQ(plugOf(shape, "amount").asFloat(), 1);
    EXPECT_EQ(MFnDagNode(b).fullPathName(), "|b");
    EXPECT_FALSE(modifier.newPlugValueFloat(plugOf(shape, "amount"), 2));
}

TEST_F(MDagModifierTest, LaterStepsJoinTheDoneOnes)
{
    MDagModifier modifier;
    const MObject first = modifier.createNode("transform");
    modifier.renameNode(first, "first");
    ASSERT_TRUE(modifier.doIt());
    const MObject second = modifier.createNode("transform", first);
    modifier.renameNode(second, "second");
    ASSERT_TRUE(modifier.doIt());
    EXPECT_THAT(paths(), ElementsAre("|first", "|first|second"));
    ASSERT_TRUE(modifier.undoIt());
    EXPECT_THAT(paths(), ElementsAre());
    ASSERT_TRUE(modifier.doIt());
    EXPECT_THAT(paths(), ElementsAre("|first", "|first|second"));
}

}  // namespace
