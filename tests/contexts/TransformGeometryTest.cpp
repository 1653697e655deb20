#include "contexts/TransformGeometry.h"
#include "support/QtPrint.h"

#include <gtest/gtest.h>

TEST(TransformGeometry, ARegionHoldsBothItsCornersAndReachesNoFartherThanACanvasBeyond)
{
    const QPointF corners[] = {{5.4, 9.5}, {20.4, 9.5}, {20.4, 39.9}, {5.4, 39.9}};
    for (int i = 0; i < 4; ++i) {
        const Selection selection = {corners[i], corners[(i + 2) % 4]};
        EXPECT_EQ(regionOf(selection), QRect(5, 10, 16, 31)) << "from corner " << i;
        EXPECT_EQ(normalised(selection).start, corners[0]) << "from corner " << i;
        EXPECT_EQ(cornersOf(normalised(selection))[1], corners[1]) << "from corner " << i;
    }
    EXPECT_EQ(regionOf({{7, 7}, {7.1, 7}}), QRect(7, 7, 1, 1));
    EXPECT_EQ(regionOf({{-30, 1000}, {20, 1100}}), QRect(-30, 1000, 51, 101));
    EXPECT_EQ(regionOf({{-90000, -90000}, {90000, 90000}}), QRect(-1024, -1024, 3072, 3072));
    EXPECT_TRUE(regionOf({{90000, 0}, {95000, 10}}).isValid()) << "far beyond the canvas";
    EXPECT_EQ(regionOf({{7, 7}, {7, 7}}), QRect(QPoint(0, 0), QPoint(1023, 1023))) << "nothing is selected";
}

TEST(TransformGeometry, ADragTurnsOnFromWhereTheLastOneEnded)
{
    RegionTransform transform;
    turnTo(transform, anchorOf({100, 0}, QPoint(), transform), 145);
    EXPECT_FLOAT_EQ(transform.angle, 45);
    turnTo(transform, anchorOf({300, 0}, QPoint(), transform), 290);
    EXPECT_FLOAT_EQ(transform.angle, 35);
}

TEST(TransformGeometry, ScalingGoesOnAtARateSetByTheDistance)
{
    RegionTransform transform;
    const DragAnchor anchor = anchorOf({100, 100}, QPoint(), transform);
    scaleTowards(transform, anchor, {199, 0}, false);
    EXPECT_NEAR(transform.scaleX, 1.01, 1e-6);
    scaleTowards(transform, anchor, {199, 0}, false);
    EXPECT_NEAR(transform.scaleX, 1.02, 1e-6);
    EXPECT_EQ(transform.scaleY, transform.scaleX);
    scaleTowards(transform, anchor, {99, 299}, true);
    EXPECT_NEAR(transform.scaleX, 1.02, 1e-6);
    EXPECT_NEAR(transform.scaleY, 1.04, 1e-6);
}

TEST(TransformGeometry, NoSideIsScaledBelowATenth)
{
    RegionTransform transform;
    const DragAnchor anchor = anchorOf({0, 0}, QPoint(), transform);
    scaleTowards(transform, anchor, {-99999, 99}, true);
    EXPECT_FLOAT_EQ(transform.scaleX, 0.1f);
    EXPECT_NEAR(transform.scaleY, 1.01, 1e-6);
    scaleTowards(transform, anchor, {-99999, 99}, false);
    EXPECT_FLOAT_EQ(transform.scaleY, 0.1f);
}

TEST(TransformGeometry, AFlippedSideIsRecordedAsANegativeScale)
{
    RegionTransform transform;
    transform.translation = QPoint(3, -4);
    transform.angle = 30;
    transform.scaleX = 2;
    transform.scaleY = 0.5;
    ActiveStroke record;
    fillRecord(record, transform);
    EXPECT_EQ(record.translation, QPoint(3, -4));
    EXPECT_EQ(record.angle, 30);
    EXPECT_EQ(record.scaleX, 2);
    EXPECT_EQ(record.scaleY, 0.5);
    EXPECT_TRUE(record.changed);
    transform.flipHorizontal = true;
    fillRecord(record, transform);
    EXPECT_EQ(record.scaleX, -2);
    EXPECT_EQ(record.scaleY, 0.5);
    transform.flipHorizontal = false;
    transform.flipVertical = true;
    fillRecord(record, transform);
    EXPECT_EQ(record.scaleX, 2);
    EXPECT_EQ(record.scaleY, -0.5);
}
