#include "kernel/Edits.h"
#include "workbench/api/SampleTypes.h"

#include <maya/MFnTransform.h>
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

TEST_F(MObjectTest, ComparesWhatItStandsFor)
{
    const MObject shape = createShape();
    const MObject other = createShape();
    EXPECT_EQ(shape, MFnDagNode(MFnDagNode(shape).parent(0)).child(0));
    EXPECT_NE(shape, other);
    EXPECT_EQ(SampleNode::s_amount, MFnDependencyNode(shape).attribute("am"));
    EXPECT_NE(SampleNode::s_amount, SampleNode::s_data);
    EXPECT_NE(shape, MObject());
    EXPECT_EQ(MObject(), MObject::kNullObj);
}

TEST_F(MObjectTest, KnowsItsKind)
{
    const MObject shape = createShape();
    const MObject transform = MFnDagNode(shape).parent(0);
    const MObject camera = api::toObject(session.scene.findOne("perspShape"));
    const MObject time = api::toObject(session.scene.findOne("time1"));
    const struct {
        MObject object;
        MFn::Type type;
        bool isDag;
        bool isShape;
    } cases[] = {{shape, MFn::kPluginLocatorNode, true, true},
                 {transform, MFn::kTransform, true, false},
                 {camera, MFn::kCamera, true, true},
                 {time, MFn::kDependencyNode, false, false},
                 {MFnDagNode(transform).parent(0), MFn::kWorld, true, false},
                 {SampleNode::s_amount, MFn::kNumericAttribute, false, false},
                 {SampleNode::s_data, MFn::kTypedAttribute, false, false}};
    for (const auto& c : cases) {
        EXPECT_EQ(c.object.apiType(), c.type);
        EXPECT_TRUE(c.object.hasFn(c.type)) << c.object.apiTypeStr();
        EXPECT_EQ(c.object.hasFn(MFn::kDagNode), c.isDag) << c.object.apiTypeStr();
        EXPECT_EQ(c.object.hasFn(MFn::kShape), c.isShape) << c.object.apiTypeStr();
    }
    EXPECT_STREQ(shape.apiTypeStr(), "kPluginLocatorNode");
}

TEST_F(MObjectTest, FunctionSetsRefuseWhatTheyCannotServe)
{
    const MObject shape = createShape();
    MStatus status;
    MFnTransform transform(shape, &status);
    EXPECT_FALSE(status);
    EXPECT_TRUE(transform.object().isNull());
    EXPECT_TRUE(transform.setObject(MFnDagNode(shape).parent(0)));
    EXPECT_FALSE(transform.setObject(shape));
    EXPECT_TRUE(transform.object().isNull());  // a failed one is unusable
}

}  // namespace
