#include "kernel/Edits.h"
#include "workbench/api/SampleTypes.h"

#include <maya/MObjectHandle.h>

namespace {

class MObjectTest : public SampleTypes {};

TEST_F(MObjectTest, StaysNonNullAfterItsNodeIsGoneAndFailsPolitely)
{
    const MObject shape = createShape();
    const MPlug plug = plugOf(shape, "amount");
    session.scene.detach(api::nodeOf(MFnDagNode(shape).parent(0)));
    EXPECT_EQ(SampleNode::s_living, 0);

    EXPECT_FALSE(shape.isNull());
    EXPECT_EQ(shape.apiType(), MFn::kInvalid);
    EXPECT_FALSE(shape.hasFn(MFn::kDependencyNode));
    MStatus status;
    const MFnDependencyNode set(shape, &status);
    EXPECT_FALSE(status);
    EXPECT_EQ(set.name(&status), "");
    EXPECT_FALSE(status);
    EXPECT_EQ(set.userNode(&status), nullptr);
    EXPECT_EQ(MPlug(plug).asFloat(&status), 0);
    EXPECT_FALSE(status);
    EXPECT_FALSE(MPlug(plug).setFloat(0.5f));
    EXPECT_EQ(shape, MObject(shape));
}

TEST_F(MObjectTest, HandlesTellTheSceneFromTheUndoQueue)
{
    const MObject shape = createShape();
    const MObjectHandle handle(shape);
    EXPECT_TRUE(handle.isValid());
    {
        const auto removed = kernel::deleteNodesEdit({api::nodeOf(shape)});
        removed->redo(session.scene);
        EXPECT_FALSE(handle.isValid());
        EXPECT_TRUE(handle.isAlive());
        EXPECT_EQ(MFnDependencyNode(handle.object()).name(), "sampleShape");
        removed->undo(session.scene);
        EXPECT_TRUE(handle.isValid());
        removed->redo(session.scene);
    }
    EXPECT_FALSE(handle.isAlive());  // with the edit went the last holder
    EXPECT_FALSE(MObjectHandle().isValid());
}

}  // namespace
