#include "model/DabMask.h"
#include "model/CpuFeatures.h"
#include "support/QtPrint.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using Mode = DabMask::Mode;

constexpr Mode kModes[] = {Mode::Soft, Mode::Hard, Mode::Flat};
constexpr int kReach = 51;  // of the largest dab and a pixel beyond

class Dab : public DabMask {
public:
    Dab(float radius, float opacity, Mode mode)
    {
        setShape(0, radius, mode);
        setOpacity(opacity);
    }
};

QStringList rows(DabMask& dab)
{
    QStringList text;
    for (int y = dab.box().top(); y <= dab.box().bottom(); ++y) {
        QString row;
        for (int x = dab.box().left(); x <= dab.box().right(); ++x) {
            const uchar alpha = dab.at(x, y);
            row += alpha == 0 ? QLatin1Char('.') : QLatin1Char(static_cast<char>('1' + alpha * 8 / 255));
        }
        text << row;
    }
    return text;
}

TEST(DabMask, HardDiscHasAFlatInsideAndASoftRim)
{
    Dab dab(2.5f, 1.0f, Mode::Hard);
    EXPECT_EQ(rows(dab), (QStringList{"..343..", ".49994.", "3999993", "4999994", "3999993", ".49994.", "..343.."}));
}

TEST(DabMask, SoftDiscIsACone)
{
    Dab dab(4, 1.0f, Mode::Soft);
    for (int d = 0; d <= 4; ++d) {
        EXPECT_EQ(dab.at(d, 0), static_cast<int>((1.0f - static_cast<float>(d) / 4) * 255));
    }
    EXPECT_EQ(dab.at(2, 2), static_cast<int>((1.0f - std::sqrt(8.0f) / 4) * 255));
}

TEST(DabMask, RadiusOneIsABlockOfFour)
{
    Dab dab(1, 0.5f, Mode::Hard);
    EXPECT_EQ(dab.box(), QRect(-1, -1, 2, 2));
    for (int y = -kReach; y <= kReach; ++y) {
        for (int x = -kReach; x <= kReach; ++x) {
            const bool inBlock = (y == -1 || y == 0) && (x == -1 || x == 0);
            EXPECT_EQ(dab.at(x, y), inBlock ? 127 : 0) << x << " " << y;
        }
    }
}

// For odd and even widths alike, up to the largest.
TEST(DabMask, IsSymmetricAboutItsCentreAndNeverAboveItsOpacity)
{
    for (const Mode mode : kModes) {
        for (int width = 3; width <= 100; ++width) {
            Dab dab(static_cast<float>(width) * 0.5f, 0.7f, mode);
            EXPECT_EQ(dab.at(0, 0), static_cast<int>(0.7f * 255.0f)) << "width " << width;
            for (int dy = -kReach; dy <= kReach; ++dy) {
                for (int dx = -kReach; dx <= kReach; ++dx) {
                    const uchar alpha = dab.at(dx, dy);
                    ASSERT_LE(alpha, dab.at(0, 0));
                    ASSERT_EQ(alpha, dab.at(-dx, -dy)) << width << ": " << dx << " " << dy;
                    ASSERT_EQ(alpha, dab.at(dy, dx)) << width << ": " << dx << " " << dy;
                }
            }
        }
    }
}

TEST(DabMask, CoversAboutTheAreaOfItsDisc)
{
    for (const float radius : {3.0f, 7.5f, 20.0f, 50.0f}) {
        Dab dab(radius, 1.0f, Mode::Hard);
        double area = 0;
        for (int y = -kReach; y <= kReach; ++y) {
            for (int x = -kReach; x <= kReach; ++x) {
                area += dab.at(x, y) / 255.0;
            }
        }
        const double disc = M_PI * (radius + 0.5) * (radius + 0.5);  // the centre is a pixel, not a point
        EXPECT_NEAR(area / disc, 1.0, 0.12) << radius;
    }
}

// How far apart the rows lie in memory, and how they are padded, differs with the width.
class DabMaskLoops : public testing::Test {
protected:
    ~DabMaskLoops() override { allowAvx2(true); }
};

TEST_F(DabMaskLoops, GiveTheSameAsBytesAndAsWordsWithAndWithoutAvx2)
{
    for (const Mode mode : kModes) {
        for (int width = 2; width <= 100; ++width) {
            const float radius = static_cast<float>(width) * 0.5f;
            const float opacity = static_cast<float>(width) / 103.0f;
            allowAvx2(false);
            Dab plain(radius, opacity, mode);
            plain.bytes();
            for (const bool avx2 : {false, true}) {
                allowAvx2(avx2);
                Dab dab(radius, opacity, mode);
                const ByteRows& bytes = dab.bytes();
                const WordRows& words = dab.words();
                for (int row = -1; row <= bytes.count; ++row) {
                    const int plainRow = plain.bytes().starts[row];
                    for (int x = 0; x < bytes.columns; ++x) {
                        const int value = plain.bytes().values[plainRow + x];
                        ASSERT_EQ(bytes.values[bytes.starts[row] + x], value) << width << ": " << x << " " << row;
                        ASSERT_EQ(words.values[words.starts[row] + x], value) << width << ": " << x << " " << row;
                        ASSERT_TRUE(value == 0 || (x < dab.box().width() && row >= 0 && row < bytes.count));
                    }
                }
            }
        }
    }
}

TEST(DabMask, IsAsNewWhateverItWasBefore)
{
    DabMask dab;
    for (const float opacity : {0.3f, 0.9f, 0.0f, 0.9f}) {
        for (const float radius : {50.0f, 1.0f, 0.0f, 12.5f}) {
            dab.setOpacity(opacity);
            dab.setShape(0, radius, Mode::Hard);
            Dab fresh(radius, opacity, Mode::Hard);
            EXPECT_EQ(rows(dab), rows(fresh)) << radius << " at " << opacity;
            EXPECT_EQ(dab.isEmpty(), fresh.isEmpty()) << radius << " at " << opacity;
            EXPECT_EQ(dab.words().values[dab.words().starts[0]], dab.bytes().values[dab.bytes().starts[0]]);
        }
    }
}

TEST(DabMask, UnusableValuesGiveNothingOrTheLargestDab)
{
    DabMask dab;
    for (const float radius : {0.0f, -3.0f, std::numeric_limits<float>::quiet_NaN()}) {
        dab.setShape(0, 50, Mode::Hard);
        dab.setOpacity(1);
        dab.setShape(0, radius, Mode::Hard);
        EXPECT_EQ(dab.at(0, 0), 0) << radius;
        EXPECT_TRUE(dab.box().isEmpty()) << radius;
    }
    dab.setShape(0, 500, Mode::Soft);
    dab.setOpacity(9);
    EXPECT_EQ(dab.at(0, 0), 255);
    EXPECT_EQ(dab.at(49, 0), static_cast<int>((1.0f - 49.0f / 50.0f) * 255.0f));
    dab.setOpacity(std::numeric_limits<float>::quiet_NaN());
    EXPECT_TRUE(dab.isEmpty());
    EXPECT_EQ(alphaOf(std::numeric_limits<float>::quiet_NaN()), 0);
    EXPECT_EQ(alphaOf(-1), 0);
    EXPECT_EQ(alphaOf(2), 255);
}

}  // namespace
