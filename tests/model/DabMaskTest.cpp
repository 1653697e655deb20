#include "model/DabMask.h"
#include "support/QtPrint.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <limits>

namespace {

using Mode = DabMask::Mode;

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
