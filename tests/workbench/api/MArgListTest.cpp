#include "api/Access.h"
#include "support/HostFixture.h"

#include <maya/MArgList.h>

namespace {

class MArgListTest : public HostFixture {};

std::string text(const char* words)
{
    return words;
}

}  // namespace

TEST_F(MArgListTest, ConvertsBetweenNumbersAndText)
{
    const MArgList args = api::Access::arguments({7, 2.75, text("12"), text("on"), text("Ink"), text("1e3")});
    EXPECT_EQ(args.length(), 6u);
    EXPECT_EQ(args.asDouble(0), 7.0);
    EXPECT_EQ(args.asInt(1), 2);
    EXPECT_EQ(args.asInt(2), 12);
    EXPECT_TRUE(args.asBool(3));
    EXPECT_EQ(args.asString(1), MString("2.75"));
    EXPECT_EQ(args.asDouble(5), 1000.0);

    MStatus status;
    EXPECT_EQ(args.asInt(4, &status), 0);
    EXPECT_FALSE(status);
    EXPECT_EQ(args.asString(6, &status), MString());
    EXPECT_FALSE(status);
    EXPECT_EQ(args.asString(4, &status), MString("Ink"));
    EXPECT_TRUE(status);
}

TEST_F(MArgListTest, ReadsTimesInTheCurrentUnitUnlessTheyCarryTheirOwn)
{
    session().scene.setTimeUnit(kernel::TimeUnit::NtscFrame);
    const MArgList args = api::Access::arguments({10, text("10"), text("1.5sec"), text("soon")});
    EXPECT_EQ(args.asTime(0), MTime(10.0, MTime::kNTSCFrame));
    EXPECT_EQ(args.asTime(1), MTime(10.0, MTime::kNTSCFrame));
    EXPECT_EQ(args.asTime(2), MTime(1.5, MTime::kSeconds));
    MStatus status;
    args.asTime(3, &status);
    EXPECT_FALSE(status);
}

TEST_F(MArgListTest, TakesRunsAndArraysAndLeavesTheIndexBehindThem)
{
    const MArgList args =
        api::Access::arguments({1, 2, 3.5, text("x"), kernel::DoubleArray{4, 5}, kernel::Vector3{6, 7, 8}, 9});
    unsigned index = 0;
    const MIntArray run = args.asIntArray(index);
    EXPECT_EQ(run.length(), 3u);
    EXPECT_EQ(index, 3u);
    MStatus status;
    args.asIntArray(index, &status);  // "x"
    EXPECT_FALSE(status);
    EXPECT_EQ(index, 3u);

    index = 4;
    const MDoubleArray array = args.asDoubleArray(index);
    ASSERT_EQ(array.length(), 2u);
    EXPECT_EQ(array[1], 5.0);
    const MVector vector = args.asVector(index);
    EXPECT_EQ(vector, MVector(6, 7, 8));
    EXPECT_EQ(index, 6u);
    args.asPoint(index, 3, &status);  // only one number is left
    EXPECT_FALSE(status);
    EXPECT_EQ(index, 6u);
}

TEST_F(MArgListTest, ALentListIsAskedForWhatIsReadAndACopyHoldsIt)
{
    struct Counting : kernel::Arguments {
        std::size_t size() const override { return 3; }
        kernel::Value at(std::size_t index) const override
        {
            ++asked;
            return std::to_string(index * 2);
        }
        mutable int asked = 0;
    };
    auto source = std::make_unique<Counting>();
    const MArgList lent = api::Access::lent(*source);
    EXPECT_EQ(lent.length(), 3u);
    EXPECT_EQ(source->asked, 0);
    EXPECT_EQ(lent.asInt(1), 2);
    EXPECT_EQ(source->asked, 1);
    MStatus status;
    lent.asInt(3, &status);
    EXPECT_FALSE(status);
    unsigned next = 0;
    EXPECT_EQ(lent.asIntArray(next).length(), 3u);
    EXPECT_EQ(next, 3u);

    MArgList copy(lent);
    source.reset();
    ASSERT_TRUE(copy.addArg(7));
    EXPECT_EQ(copy.asInt(2), 4);
    EXPECT_EQ(copy.asInt(3), 7);
}

TEST_F(MArgListTest, FindsFlagsUnderBothNames)
{
    MArgList args;
    args.addArg(-5);
    args.addArg(MString("-lo"));
    args.addArg(MString("long"));
    EXPECT_EQ(args.flagIndex("lo", "long"), 1u);
    EXPECT_EQ(args.flagIndex("-x", "-lo"), 1u);
    EXPECT_EQ(args.flagIndex("-5"), unsigned(MArgList::kInvalidArgIndex));
    EXPECT_EQ(args.flagIndex("l", "long"), unsigned(MArgList::kInvalidArgIndex));
}
