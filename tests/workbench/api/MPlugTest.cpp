#include "kernel/Keying.h"
#include "workbench/api/SampleTypes.h"

#include <maya/MAngle.h>
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

TEST_F(MPlugTest, FlagsBelongToThePlugNotTheType)
{
    const MObject other = createShape();
    MPlug amount = plugOf(shape, "amount");
    EXPECT_TRUE(amount.isKeyable());
    amount.setKeyable(false);
    amount.setChannelBox(true);
    EXPECT_FALSE(amount.isKeyable());
    EXPECT_TRUE(amount.isChannelBoxFlagSet());
    EXPECT_TRUE(plugOf(other, "amount").isKeyable());
    EXPECT_FALSE(plugOf(other, "amount").isChannelBoxFlagSet());
}

TEST_F(MPlugTest, NumbersOutsideTheRangeAreRefused)
{
    MPlug amount = plugOf(shape, "amount");
    EXPECT_EQ(amount.asFloat(), 1);
    EXPECT_TRUE(amount.setFloat(0.25f));
    EXPECT_FALSE(amount.setFloat(1.5f));
    EXPECT_FALSE(amount.setFloat(-0.1f));
    EXPECT_EQ(amount.asFloat(), 0.25f);
    EXPECT_TRUE(amount.setInt(0));
}

TEST_F(MPlugTest, AnglesAreRadiansAndWholeNumbersAreCut)
{
    MPlug turn = plugOf(transform, "rotateY");
    ASSERT_TRUE(turn.setDouble(MAngle(90, MAngle::kDegrees).asRadians()));
    EXPECT_NEAR(api::nodeOf(transform)->number("rotateY"), 90, 1e-12);
    EXPECT_NEAR(turn.asDouble(), 1.5707963267948966, 1e-12);
    ASSERT_TRUE(turn.setMAngle(MAngle(45, MAngle::kDegrees)));
    EXPECT_NEAR(api::nodeOf(transform)->number("rotateY"), 45, 1e-12);

    MPlug order = plugOf(transform, "rotateOrder");
    ASSERT_TRUE(order.setDouble(2.9));
    EXPECT_EQ(order.asInt(), 2);
    MPlug shown = plugOf(transform, "visibility");
    ASSERT_TRUE(shown.setDouble(0.3));
    EXPECT_EQ(shown.asInt(), 1);
}

TEST_F(MPlugTest, AsksForTheRightKindOfValue)
{
    MStatus status;
    plugOf(shape, "amount").asString(&status);
    EXPECT_FALSE(status);
    plugOf(transform, "translate").asDouble(&status);
    EXPECT_FALSE(status);
    double kept = 7;
    EXPECT_FALSE(plugOf(shape, "sampleList").getValue(kept));
    EXPECT_EQ(kept, 7);
    EXPECT_FALSE(plugOf(shape, "amount").setString("1"));
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

TEST_F(MPlugTest, NamesItself)
{
    MPlug x = plugOf(transform, "tx");
    EXPECT_EQ(x.name(), "sample.translateX");
    EXPECT_EQ(x.partialName(), "tx");
    EXPECT_EQ(x.partialName(true, false, false, false, true, true), "sample.translate.translateX");
    EXPECT_EQ(x.parent().name(), "sample.translate");
    EXPECT_TRUE(x.parent().child(0) == x);
    EXPECT_EQ(x.parent().numChildren(), 3u);
    EXPECT_TRUE(x.parent().child(3).isNull());
    EXPECT_TRUE(plugOf(shape, "amount").parent().isNull());
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

TEST_F(MPlugTest, SharesWhatADataObjectOwns)
{
    MStatus status;
    MPlug plug = plugOf(shape, "sampleList");
    {
        MFnPluginData set;
        const MObject value = set.create(MTypeId(SampleData::kId), &status);
        ASSERT_TRUE(status);
        ASSERT_TRUE(plug.setMPxData(set.data()));
        EXPECT_EQ(plug.asMObject(), value);
    }
    EXPECT_EQ(SampleData::s_living, 1);
    ASSERT_TRUE(plug.setMObject(MObject()));
    EXPECT_EQ(SampleData::s_living, 0);
    MFnPluginData unknown;
    EXPECT_TRUE(unknown.create(MTypeId(0x7fff), &status).isNull());
    EXPECT_FALSE(status);
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

TEST_F(MPlugTest, TimesAreInTheUiUnit)
{
    MPlug end = plugOf(api::toObject(session.scene.findOne("defaultRenderGlobals")), "endFrame");
    ASSERT_TRUE(end.setMTime(MTime(2, MTime::kSeconds)));
    EXPECT_EQ(end.asMTime(), MTime(48, MTime::kFilm));
    session.scene.setTimeUnit(kernel::TimeUnit::PalFrame);
    EXPECT_EQ(end.asMTime(), MTime(2, MTime::kSeconds));
}

}  // namespace
