#include "kernel/Session.h"

#include <maya/MTime.h>

#include <gtest/gtest.h>

#include <sstream>

namespace {

std::string printed(const MTime& time)
{
    std::ostringstream out;
    out << time;
    return out.str();
}

TEST(MTime, ConvertsWholeFramesBetweenRatesWithoutLoss)
{
    const struct {
        double value;
        MTime::Unit from;
        MTime::Unit to;
        double expected;
    } cases[] = {
        {1, MTime::kSeconds, MTime::kFilm, 24},
        {24, MTime::kFilm, MTime::kSeconds, 1},
        {100001, MTime::kFilm, MTime::kNTSCField, 250002.5},
        {7, MTime::kPALFrame, MTime::kMilliseconds, 280},
        {30, MTime::kNTSCFrame, MTime::kFilm, 24},
        {90, MTime::k90FPS, MTime::kFilm, 24},
        {-24000, MTime::k23_976FPS, MTime::kSeconds, -1001},
        {30000, MTime::k29_97DF, MTime::kFilm, 24024},
        {100000, MTime::k59_94FPS, MTime::k29_97FPS, 50000},
        {-999, MTime::kFilm, MTime::kShowScan, -1998},
    };
    for (const auto& c : cases)
        EXPECT_EQ(MTime(c.value, c.from).as(c.to), c.expected) << c.value << " of unit " << c.from;
}

// Whole ticks, in integers, are the measure; a result a hair below a whole number would be truncated to another frame.
TEST(MTime, WholeFramesAreExactInEveryUnitThatHoldsThemAndComeBackFromAll)
{
    const int frameNumbers[] = {-100001, -100000, -999, -7, -1, 0, 1, 7, 23, 24, 29, 1001, 86399, 100000, 1000003};
    for (int from = MTime::kHours; from < MTime::kUserDef; ++from) {
        const auto a = static_cast<MTime::Unit>(from);
        const MInt64 ticks = static_cast<MInt64>(kernel::ticksPerUnit(static_cast<kernel::TimeUnit>(from)));
        for (int to = MTime::kHours; to < MTime::kUserDef; ++to) {
            const auto b = static_cast<MTime::Unit>(to);
            const MInt64 otherTicks = static_cast<MInt64>(kernel::ticksPerUnit(static_cast<kernel::TimeUnit>(to)));
            for (const int n : frameNumbers) {
                const double there = MTime(n, a).as(b);
                if (n * ticks % otherTicks == 0) {
                    EXPECT_EQ(there, double(n * ticks / otherTicks)) << n << " of unit " << from << " in " << to;
                }
                EXPECT_EQ(MTime(there, b).asUnits(a), n) << "unit " << from << " by way of " << to;
            }
        }
    }
}

TEST(MTime, ReadsABareNumberAsFilmFramesWhateverTheUiUnit)
{
    kernel::Session session;
    session.scene.setTimeUnit(kernel::TimeUnit::PalFrame);
    EXPECT_EQ(MTime(10.0).unit(), MTime::kFilm);
    EXPECT_EQ(MTime().unit(), MTime::kPALFrame);
    EXPECT_EQ(MTime::uiUnit(), MTime::kPALFrame);
    ASSERT_TRUE(MTime::setUIUnit(MTime::kNTSCFrame));
    EXPECT_EQ(session.scene.timeUnit(), kernel::TimeUnit::NtscFrame);
    EXPECT_FALSE(MTime::setUIUnit(MTime::kInvalid));
    EXPECT_EQ(MTime::uiUnit(), MTime::kNTSCFrame);
}

TEST(MTime, ComparesInstantsAndKeepsTheLeftUnitInSums)
{
    const MTime second(1, MTime::kSeconds);
    EXPECT_EQ(second, MTime(24, MTime::kFilm));
    EXPECT_LT(MTime(23, MTime::kFilm), second);
    EXPECT_GE(MTime(25, MTime::kPALFrame), second);
    EXPECT_EQ(MTime(0.1, MTime::kSeconds), MTime(2.4, MTime::kFilm));  // off by a rounding error
    const MTime sum = MTime(12, MTime::kFilm) + second;
    EXPECT_EQ(sum.unit(), MTime::kFilm);
    EXPECT_EQ(sum.value(), 36);
    EXPECT_EQ((sum - 6.0).value(), 30);
    EXPECT_EQ(sum / second, 1.5);
}

TEST(MTime, PrintsInTheUiUnitWithEnoughDigitsToReadBack)
{
    kernel::Session session;
    session.scene.setTimeUnit(kernel::TimeUnit::Film);
    const struct {
        MTime time;
        const char* text;
    } cases[] = {{MTime(12, MTime::kFilm), "12"},
                 {MTime(-3, MTime::kFilm), "-3"},
                 {MTime(2, MTime::kSeconds), "48"},
                 {MTime(1234567, MTime::kFilm), "1234567"},
                 {MTime(2.5, MTime::kFilm), "2.5"}};
    for (const auto& c : cases)
        EXPECT_EQ(printed(c.time), c.text);
    for (const double value : {0.1, 1.0 / 3, 100000.123456789, 7.000000000001}) {
        double read = 0;
        ASSERT_TRUE(kernel::parseDouble(printed(MTime(value, MTime::kFilm)), read));
        EXPECT_EQ(read, value);
    }
}

}  // namespace
