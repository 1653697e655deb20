#include "contexts/TransformGeometry.h"
#include "support/QtPrint.h"

#include <gtest/gtest.h>

namespace {

void expectOutline(const Outline& actual, const Outline& expected)
{
    for (size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(actual[i].x(), expected[i].x(), 1e-4) << "corner " << i;
        EXPECT_NEAR(actual[i].y(), expected[i].y(), 1e-4) << "corner " << i;
    }
}

}  // namespace

TEST(TransformGeometry, ARegionHoldsBothItsCornersAndReachesNoFartherThanACanvasBeyond)
{
    const QPoint corners[] = {{5, 10}, {20, 10}, {20, 40}, {5, 40}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(canvasRegion(corners[i], corners[(i + 2) % 4]), QRect(5, 10, 16, 31)) << "from corner " << i;
    }
    EXPECT_EQ(canvasRegion({7, 7}, {7, 7}), QRect(7, 7, 1, 1));
    EXPECT_EQ(canvasRegion({-30, 1000}, {20, 1100}), QRect(-30, 1000, 51, 101));
    EXPECT_EQ(canvasRegion({-90000, -90000}, {90000, 90000}), QRect(-1024, -1024, 3072, 3072));
    EXPECT_TRUE(canvasRegion({90000, 0}, {95000, 10}).isValid()) << "far beyond the canvas";
    EXPECT_EQ(wholeCanvas(), QRect(QPoint(0, 0), QPoint(1023, 1023)));
}

TEST(TransformGeometry, AnOutlineIsScaledThenTurnedClockwiseAboutItsCentreThenMoved)
{
    const ViewSpan span = {{10, 80}, {50, 20}};  // 40 wide, 60 high, about (30, 50)
    RegionTransform transform;
    expectOutline(transformedOutline(span, transform), {{{10, 80}, {50, 80}, {50, 20}, {10, 20}}});
    transform.angle = 90;
    expectOutline(transformedOutline(span, transform), {{{60, 70}, {60, 30}, {0, 30}, {0, 70}}});
    transform.scaleX = 2;
    transform.viewTranslation = QPoint(100, -10);
    transform.flipHorizontal = true;  // the region's box is the same
    expectOutline(transformedOutline(span, transform), {{{160, 80}, {160, 0}, {100, 0}, {100, 80}}});
}

TEST(TransformGeometry, ADragTurnsOnFromWhereTheLastOneEnded)
{
    RegionTransform transform;
    turnTo(transform, anchorOf({100, 0}, transform), 145);
    EXPECT_FLOAT_EQ(transform.angle, 45);
    turnTo(transform, anchorOf({300, 0}, transform), 290);
    EXPECT_FLOAT_EQ(transform.angle, 35);
}

TEST(TransformGeometry, ScalingGoesOnAtARateSetByTheDistance)
{
    RegionTransform transform;
    const DragAnchor anchor = anchorOf({100, 100}, transform);
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
    const DragAnchor anchor = anchorOf({0, 0}, transform);
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
