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

}  // namespace
