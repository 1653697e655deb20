#include "kernel/Keying.h"
#include "workbench/api/SampleTypes.h"

#include <maya/MFnPluginData.h>

namespace {

class MPlugTest : public SampleTypes {
protected:
    MPlugTest() : shape(createShape()), transform(MFnDagNode(shape).parent(0)) {}

    const MObject shape;
    const MObject transform;
};

TEST_F(MPlugTest, UnknownAttributesGiveANullPlug)
{
    MStatus status;
    MPlug plug = MFnDependencyNode(shape).findPlug("nothing", false, &status);
    EXPECT_TRUE(plug.isNull());
    EXPECT_EQ(status, MStatus::kInvalidParameter);
    EXPECT_FALSE(plug.setInt(1));
    // The attribute of another type of node.
    EXPECT_TRUE(MPlug(transform, SampleNode::s_amount).isNull());
    EXPECT_FALSE(MPlug(shape, SampleNode::s_amount).isNull());
}

TEST_F(MPlugTest, LockedPlugsKeepTheirValue)
{
    MPlug x = plugOf(transform, "tx");
    ASSERT_TRUE(x.setDouble(2));
    ASSERT_TRUE(x.setLocked(true));
    EXPECT_FALSE(x.setDouble(3));
    EXPECT_EQ(x.asDouble(), 2);
    x.setLocked(false);

    MPlug all = plugOf(transform, "translate");
    ASSERT_TRUE(all.setLocked(true));
    EXPECT_TRUE(x.isLocked());
    EXPECT_FALSE(x.setDouble(3));
    EXPECT_FALSE(plugOf(transform, "tz").setFloat(3));
    EXPECT_TRUE(plugOf(transform, "sx").setDouble(3));
}

TEST_F(MPlugTest, FollowsTheCurveThatAnimatesIt)
{
    kernel::Session& session = kernel::Session::current();
    const kernel::NodePtr node = api::nodeOf(shape);
    kernel::EditList edits;
    const auto key = [&](double frame, double value) {
        const double ticks = kernel::Time{frame, kernel::TimeUnit::Film}.ticks();
        kernel::setKey(session, {node, node->attribute("amount")}, {ticks, value, {}, {}}, edits);
    };
    MPlug amount = plugOf(shape, "amount");
    EXPECT_FALSE(amount.isConnected());
    key(1, 0.25);
    key(5, 0.75);
    session.scene.setCurrentTime({3, kernel::TimeUnit::Film});
    EXPECT_EQ(amount.asFloat(), 0.5f);
    EXPECT_TRUE(amount.isDestination());
    EXPECT_FALSE(amount.isSource());
    ASSERT_TRUE(amount.setFloat(0.125f));
    EXPECT_EQ(amount.asFloat(), 0.125f);
    session.scene.setCurrentTime({5, kernel::TimeUnit::Film});
    EXPECT_EQ(amount.asFloat(), 0.75f);
    edits.undo(session.scene);
    EXPECT_FALSE(amount.isConnected());
}

TEST_F(MPlugTest, HasNoDataUntilSomeIsSet)
{
    MStatus status;
    EXPECT_TRUE(plugOf(shape, "sampleList").asMObject(&status).isNull());
    EXPECT_FALSE(status);
}

TEST_F(MPlugTest, AdoptsTheDataItIsGiven)
{
    MPlug plug = plugOf(shape, "sampleList");
    auto* given = new SampleData;
    ASSERT_TRUE(plug.setMPxData(given));
    {
        MObject value = plug.asMObject();
        MFnPluginData set(value);
        EXPECT_EQ(set.data(), given);
        EXPECT_EQ(set.typeId(), MTypeId(SampleData::kId));
    }
    ASSERT_TRUE(plug.setMPxData(given));  // the same once more is no second owner
    EXPECT_EQ(SampleData::s_living, 1);
    ASSERT_TRUE(plug.setMPxData(new SampleData));
    EXPECT_EQ(SampleData::s_living, 1);
    session.scene.detach(api::nodeOf(transform));
    EXPECT_EQ(SampleData::s_living, 0);
}

class OtherData : public SampleData {
public:
    MTypeId typeId() const override { return MTypeId(SampleData::kId + 100); }
};

TEST_F(MPlugTest, LeavesRefusedDataWithTheCaller)
{
    OtherData other;
    EXPECT_FALSE(plugOf(shape, "sampleList").setMPxData(&other));
    SampleData same;
    EXPECT_FALSE(plugOf(shape, "amount").setMPxData(&same));
    MPlug locked = plugOf(shape, "sampleList");
    locked.setLocked(true);
    EXPECT_FALSE(locked.setMPxData(&same));
}

}  // namespace
