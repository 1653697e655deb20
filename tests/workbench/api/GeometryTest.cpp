#include <maya/MBoundingBox.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>

#include <gtest/gtest.h>

namespace {

/// A quarter turn about z, then a move.
MMatrix turnAndMove()
{
    const double values[4][4] = {{0, 1, 0, 0}, {-1, 0, 0, 0}, {0, 0, 1, 0}, {10, 20, 30, 1}};
    return MMatrix(values);
}

TEST(Geometry, AMatrixTimesItsInverseIsTheIdentity)
{
    const double values[4][4] = {{2, 1, 0, 0.5}, {0, 3, 1, 0}, {1, 0, 4, 0}, {5, 6, 7, 1}};
    const MMatrix matrix(values);
    EXPECT_TRUE((matrix * matrix.inverse()).isEquivalent(MMatrix::identity, 1e-12));
    EXPECT_TRUE((matrix.inverse() * matrix).isEquivalent(MMatrix::identity, 1e-12));
    EXPECT_NEAR(matrix.det4x4(), matrix.transpose().det4x4(), 1e-12);
    EXPECT_NEAR(turnAndMove().det3x3(), 1, 1e-12);
    MMatrix flat;
    flat(2, 2) = 0;
    EXPECT_TRUE(flat.isSingular());
}

TEST(Geometry, ABoxOfOnePointIsNotTheEmptyBox)
{
    const MBoundingBox atOrigin(MPoint(0, 0, 0), MPoint(0, 0, 0));
    EXPECT_TRUE(atOrigin.contains(MPoint::origin));
    EXPECT_FALSE(MBoundingBox().contains(MPoint::origin));
    MBoundingBox grown;
    grown.expand(MBoundingBox());
    grown.expand(MPoint(5, 5, 5));
    EXPECT_EQ(grown.min(), MPoint(5, 5, 5));  // an empty box adds nothing, least of all the origin
    MBoundingBox box(MPoint(1, -1, 2), MPoint(-1, 1, 0));
    box.transformUsing(turnAndMove());
    EXPECT_TRUE(box.min().isEquivalent(MPoint(9, 19, 30)));
    EXPECT_TRUE(box.max().isEquivalent(MPoint(11, 21, 32)));
    EXPECT_TRUE(box.intersects(MBoundingBox(MPoint(11.5, 20, 31), MPoint(12, 20, 31)), 0.6));
    EXPECT_FALSE(box.intersects(MBoundingBox(MPoint(11.5, 20, 31), MPoint(12, 20, 31))));
}

}  // namespace
