#include "model/DabMask.h"
#include "support/QtPrint.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

QStringList rows(const DabMask& dab)
{
    QStringList text;
    for (int y = dab.centre() - dab.reach(); y <= dab.centre() + dab.reach() && y < DabMask::kSide; ++y) {
        QString row;
        for (int x = dab.centre() - dab.reach(); x <= dab.centre() + dab.reach() && x < DabMask::kSide; ++x) {
            const uchar alpha = dab.row(y)[x];
            row += alpha == 0 ? QLatin1Char('.') : QLatin1Char(static_cast<char>('1' + alpha * 8 / 255));
        }
        text << row;
    }
    return text;
}

TEST(DabMask, HardDiscHasAFlatInsideAndASoftRim)
{
    DabMask dab;
    dab.build(0, 2.5f, 1.0f, DabMask::Mode::Hard);
    EXPECT_EQ(rows(dab), (QStringList{"..343..", ".49994.", "3999993", "4999994", "3999993", ".49994.", "..343.."}));
}

TEST(DabMask, SoftDiscIsACone)
{
    DabMask dab;
    dab.build(0, 4, 1.0f, DabMask::Mode::Soft);
    for (int d = 0; d <= 4; ++d) {
        EXPECT_EQ(dab.row(dab.centre())[dab.centre() + d], static_cast<int>((1.0f - static_cast<float>(d) / 4) * 255));
    }
    const int diagonal = static_cast<int>((1.0f - std::sqrt(8.0f) / 4) * 255);
    EXPECT_EQ(dab.row(dab.centre() + 2)[dab.centre() + 2], diagonal);
}

TEST(DabMask, RadiusOneIsABlockOfFour)
{
    DabMask dab;
    dab.build(0, 1, 0.5f, DabMask::Mode::Hard);
    int set = 0;
    for (int y = 0; y < DabMask::kSide; ++y) {
        for (int x = 0; x < DabMask::kSide; ++x) {
            const bool inBlock =
                (y == dab.centre() || y == dab.centre() - 1) && (x == dab.centre() || x == dab.centre() - 1);
            EXPECT_EQ(dab.row(y)[x], inBlock ? 127 : 0) << x << " " << y;
            set += dab.row(y)[x] != 0;
        }
    }
    EXPECT_EQ(set, 4);
}

// For odd and even widths alike, up to the largest.
TEST(DabMask, IsSymmetricAboutItsCentreAndNeverAboveItsOpacity)
{
    DabMask dab;
    for (const auto mode : {DabMask::Mode::Soft, DabMask::Mode::Hard, DabMask::Mode::Flat}) {
        for (int width = 3; width <= 100; ++width) {
            dab.build(0, static_cast<float>(width) * 0.5f, 0.7f, mode);
            const int c = dab.centre();
            EXPECT_EQ(dab.row(c)[c], static_cast<int>(0.7f * 255.0f)) << "width " << width;
            for (int dy = -50; dy <= 50; ++dy) {
                for (int dx = -50; dx <= 50; ++dx) {
                    const bool inTable = c + dx >= 0 && c + dy >= 0 && c - dx >= 0 && c - dy >= 0
                                      && std::max(c + std::abs(dx), c + std::abs(dy)) < DabMask::kSide;
                    if (inTable) {
                        const uchar alpha = dab.row(c + dy)[c + dx];
                        ASSERT_LE(alpha, dab.row(c)[c]);
                        ASSERT_EQ(alpha, dab.row(c - dy)[c - dx]) << width << ": " << dx << " " << dy;
                        ASSERT_EQ(alpha, dab.row(c + dx)[c + dy]) << width << ": " << dx << " " << dy;
                    }
                }
            }
        }
    }
}

TEST(DabMask, CoversAboutTheAreaOfItsDisc)
{
    DabMask dab;
    for (const float radius : {3.0f, 7.5f, 20.0f, 50.0f}) {
        dab.build(0, radius, 1.0f, DabMask::Mode::Hard);
        double area = 0;
        for (int y = 0; y < DabMask::kSide; ++y) {
            for (int x = 0; x < DabMask::kSide; ++x) {
                area += dab.row(y)[x] / 255.0;
            }
        }
        const double disc = M_PI * (radius + 0.5) * (radius + 0.5);  // the centre is a pixel, not a point
        EXPECT_NEAR(area / disc, 1.0, 0.12) << radius;
    }
}

TEST(DabMask, UnusableValuesGiveNothingOrTheLargestDab)
{
    DabMask dab;
    dab.build(0, 50, 1, DabMask::Mode::Hard);
    for (const float radius : {0.0f, -3.0f, std::numeric_limits<float>::quiet_NaN()}) {
        dab.build(0, radius, 1, DabMask::Mode::Hard);
        EXPECT_EQ(dab.row(dab.centre())[dab.centre()], 0) << radius;
    }
    dab.build(0, 500, 9, DabMask::Mode::Soft);
    EXPECT_EQ(dab.centre(), 51);
    EXPECT_EQ(dab.row(51)[51], 255);
    EXPECT_EQ(dab.row(51)[100], static_cast<int>((1.0f - 49.0f / 50.0f) * 255.0f));
    EXPECT_EQ(alphaOf(std::numeric_limits<float>::quiet_NaN()), 0);
    EXPECT_EQ(alphaOf(-1), 0);
    EXPECT_EQ(alphaOf(2), 255);
}

}  // namespace
