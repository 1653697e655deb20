#include <maya/MBoundingBox.h>
#include <maya/MColor.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// A quarter turn about z, then a move.
MMatrix turnAndMove()
{
    const double values[4][4] = {{0, 1, 0, 0}, {-1, 0, 0, 0}, {0, 0, 1, 0}, {10, 20, 30, 1}};
    return MMatrix(values);
}

TEST(Geometry, PointsAreMovedByAMatrixAndVectorsAreNot)
{
    EXPECT_TRUE((MPoint(1, 0, 0) * turnAndMove()).isEquivalent(MPoint(10, 21, 30)));
    EXPECT_TRUE((MVector(1, 0, 0) * turnAndMove()).isEquivalent(MVector(0, 1, 0)));
    // The left factor acts first.
    const MMatrix twice = turnAndMove() * turnAndMove();
    EXPECT_TRUE((MPoint(1, 0, 0) * twice).isEquivalent((MPoint(1, 0, 0) * turnAndMove()) * turnAndMove()));
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

TEST(Geometry, PointsAndVectorsSubtract)
{
    EXPECT_EQ((MPoint(3, 4) - MPoint(0, 0)).length(), 5);
    EXPECT_EQ(MPoint(3, 4, 5) - MVector(1, 1, 1), MPoint(2, 3, 4));
    EXPECT_EQ(MVector::xAxis ^ MVector::yAxis, MVector::zAxis);
    EXPECT_NEAR(MVector(1, 1, 0).angle(MVector::xAxis), std::acos(std::sqrt(0.5)), 1e-12);
    EXPECT_EQ(MVector::zero.normal(), MVector::zero);
    EXPECT_EQ(MPoint(2, 4, 6, 2).cartesianize(), MPoint(1, 2, 3, 1));
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

TEST(Geometry, ColoursSurviveOtherModels)
{
    const MColor colours[] = {MColor(1, 0, 0), MColor(0.2f, 0.4f, 0.9f), MColor(0.5f, 0.5f, 0.5f), MColor(0, 0, 0),
                              MColor(0.9f, 0.1f, 0.8f)};
    for (const auto model : {MColor::kRGB, MColor::kHSV, MColor::kCMY}) {
        for (const MColor& colour : colours) {
            float a = 0, b = 0, c = 0;
            ASSERT_TRUE(colour.get(model, a, b, c));
            const MColor back(model, a, b, c);
            EXPECT_NEAR(back.r, colour.r, 1e-5);
            EXPECT_NEAR(back.g, colour.g, 1e-5);
            EXPECT_NEAR(back.b, colour.b, 1e-5);
        }
    }
    EXPECT_EQ(MColor(), MColor(0, 0, 0, 1));
}

}  // namespace
