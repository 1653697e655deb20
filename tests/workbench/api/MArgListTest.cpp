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
