#include "acarray.h"
#include "gebndpln.h"
#include "geline2d.h"
#include "geline3d.h"
#include "gelnsg3d.h"
#include "gemat3d.h"
#include "geplane.h"
#include "gept3dar.h"

#include <gtest/gtest.h>
#include <string>

namespace
{
constexpr double kPi = 3.14159265358979323846;

void expectNear(const AcGePoint3d& a, const AcGePoint3d& b, double tol = 1e-12)
{
    EXPECT_LE(a.distanceTo(b), tol) << a.x << ' ' << a.y << ' ' << a.z << " for " << b.x << ' ' << b.y << ' '
                                    << b.z;
}
} // namespace

TEST(AcArray, GrowsByItsGrowLength)
{
    AcArray<int> array;
    EXPECT_EQ(array.physicalLength(), 0);
    EXPECT_EQ(array.growLength(), 8);
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(array.append(i), i);
    EXPECT_EQ(array.physicalLength(), 16); // 8 and 8 again
    array.setGrowLength(-50).setPhysicalLength(9).append(9);
    EXPECT_EQ(array.physicalLength(), 13); // half of 9, rounded down, more
    EXPECT_EQ(array.length(), 10);
    array.setPhysicalLength(4);
    EXPECT_EQ(array.length(), 4);
    EXPECT_EQ(array, (AcArray<int>{0, 1, 2, 3}));
}

TEST(AcArray, KeepsOrderThroughInsertionAndRemoval)
{
    AcArray<std::string> array{"a", "b", "c", "d"};
    array.insertAt(0, array[3]).insertAt(5, "z").removeSubArray(1, 2);
    EXPECT_EQ(array, (AcArray<std::string>{"d", "c", "d", "z"}));
    array.append(array);
    EXPECT_EQ(array.length(), 8);
    EXPECT_EQ(array.findFrom("d", 3), 4);
    EXPECT_EQ(array.find("q"), -1);
    EXPECT_TRUE(array.remove("d", 1));
    EXPECT_EQ(array[2], "z");
    array.insertAt(99, "x").removeAt(-1).removeAt(7);
    EXPECT_EQ(array.length(), 7) << "indices out of range change nothing";
    array.reverse().swap(0, 6);
    EXPECT_EQ(array.first(), "d");
}

TEST(AcArray, MillionAppendsCopyInProportion)
{
    AcGePoint3dArray points;
    int reallocations = 0;
    for (int i = 0, room = 0; i < 1000000; ++i) {
        points.append(AcGePoint3d(i, 0, 0));
        if (points.physicalLength() != room) ++reallocations;
        room = points.physicalLength();
    }
    EXPECT_LT(reallocations, 500); // 341 steps of 8 up to 64 KiB of 24-byte points, then halves
    EXPECT_EQ(points[999999].x, 999999);
}

TEST(AcGeVector3d, AngleWithReferenceRunsRoundTheCircle)
{
    const AcGeVector3d x = AcGeVector3d::kXAxis, z = AcGeVector3d::kZAxis;
    for (int i = 0; i < 16; ++i) {
        const double angle = i * kPi / 8;
        const AcGeVector3d v(2 * std::cos(angle), 2 * std::sin(angle), 0);
        EXPECT_NEAR(x.angleTo(v, z), angle, 1e-14);
        EXPECT_NEAR(x.angleTo(v), std::min(angle, 2 * kPi - angle), 1e-14);
        EXPECT_NEAR(AcGeVector2d(v.x, v.y).angle(), angle, 1e-14);
    }
    EXPECT_EQ(AcGeVector3d().angleTo(x), 0);
}

TEST(AcGeVector3d, ToleranceComparesUnitVectors)
{
    AcGeTol tol;
    tol.setEqualVector(1e-3);
    const AcGeVector3d x(1000, 0, 0);
    EXPECT_TRUE(x.isParallelTo({-5, 0.004, 0}, tol)); // unit vectors 8e-4 apart
    EXPECT_FALSE(x.isParallelTo({-5, 0.006, 0}, tol));
    EXPECT_FALSE(x.isCodirectionalTo({-5, 0, 0}, tol));
    EXPECT_TRUE(x.isPerpendicularTo({0.0009, 1, 0}, tol));
    AcGeError flag;
    EXPECT_FALSE(x.isParallelTo(AcGeVector3d(), tol, flag));
    EXPECT_EQ(flag, AcGe::k0Arg1);
    AcGeVector3d zero(1e-11, 0, 0);
    EXPECT_EQ(zero.normal(), AcGeVector3d::kIdentity);
    zero.normalize(AcGeContext::gTol, flag);
    EXPECT_EQ(flag, AcGe::k0This);
    EXPECT_EQ(zero.x, 1e-11) << "unchanged";
}

TEST(AcGeVector3d, PerpendicularFollowsTheArbitraryAxisRule)
{
    EXPECT_EQ(AcGeVector3d::kZAxis.perpVector(), AcGeVector3d::kXAxis);
    EXPECT_EQ((-AcGeVector3d::kZAxis).perpVector(), -AcGeVector3d::kXAxis);
    EXPECT_EQ(AcGeVector3d::kXAxis.perpVector(), AcGeVector3d::kYAxis);
    // just beyond 1/64 the rule changes from the Y axis to the Z axis
    EXPECT_NEAR(AcGeVector3d(1 / 65.0, 0, 1).perpVector().y, 0, 1e-15);
    EXPECT_NEAR(AcGeVector3d(1 / 60.0, 0, 1).perpVector().y, 1, 1e-15);
}

TEST(AcGeMatrix3d, ProductsApplyTheRightFactorFirst)
{
    const AcGeMatrix3d turn = AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kZAxis);
    const AcGeMatrix3d move = AcGeMatrix3d::translation({10, 0, 0});
    expectNear(move * turn * AcGePoint3d(1, 0, 0), {10, 1, 0});
    expectNear(turn * move * AcGePoint3d(1, 0, 0), {0, 11, 0});
    AcGeMatrix3d both = turn;
    EXPECT_EQ(both.preMultBy(move), move * turn);
    EXPECT_EQ((both * both.inverse()), AcGeMatrix3d::kIdentity);
    expectNear(AcGePoint3d(2, 1, 0).scaleBy(3, {1, 1, 0}), {4, 1, 0});
}

TEST(AcGeMatrix3d, InverseUndoesSkewedMapsOfAnyScale)
{
    for (const double size : {1e-6, 1.0, 1e6}) {
        AcGeMatrix3d m;
        m.setCoordSystem({1, 2, 3}, AcGeVector3d(1, 2, 0) * size, AcGeVector3d(-1, 1, 1) * size,
                         AcGeVector3d(0, 1, 3) * size);
        EXPECT_FALSE(m.isSingular());
        EXPECT_FALSE(m.isScaledOrtho());
        expectNear(m.inverse() * (m * AcGePoint3d(5, -7, 11)), {5, -7, 11}, 1e-9);
    }
    AcGeMatrix3d flat = AcGeMatrix3d::projection(AcGePlane::kXYPlane, {1, 0, 1});
    EXPECT_TRUE(flat.isSingular());
    EXPECT_EQ(flat.inverse(), flat);
    expectNear(flat * AcGePoint3d(5, 5, 2), {3, 5, 0});
}

TEST(AcGeMatrix3d, MirrorsKeepWhatTheyMirrorIn)
{
    const AcGePlane plane({1, 2, 3}, AcGeVector3d(1, 1, 1));
    const AcGeMatrix3d m = AcGeMatrix3d::mirroring(plane);
    EXPECT_LT(m.det(), 0);
    EXPECT_TRUE(m.isUniScaledOrtho());
    expectNear(m * AcGePoint3d(1, 2, 3), {1, 2, 3});
    // (2, 3, 4) is one step along the normal from the plane's point
    expectNear(m * AcGePoint3d(2, 3, 4), {0, 1, 2});
    expectNear(AcGePoint3d(2, 3, 4).mirror(plane), {0, 1, 2});
    const AcGeMatrix3d half = AcGeMatrix3d::mirroring(AcGeLine3d({0, 0, 5}, AcGeVector3d::kXAxis));
    expectNear(half * AcGePoint3d(7, 1, 6), {7, -1, 4});
    expectNear(
        AcGePoint3d(AcGePlane::kXYPlane, AcGePoint2d(3, 0).mirror(AcGeLine2d({0, 0}, AcGeVector2d(1, 1)))),
        {0, 3, 0});
}

TEST(AcGeMatrix3d, PlaneSystemsAreInverse)
{
    const AcGePlane plane({4, 5, 6}, AcGeVector3d(1, -2, 0.5));
    expectNear(AcGeMatrix3d::planeToWorld(plane) * AcGePoint3d(0, 0, 2),
               plane.pointOnPlane() + plane.normal() * 2);
    const AcGePoint3d p(9, -1, 2);
    const AcGePoint3d local = AcGeMatrix3d::worldToPlane(plane) * p;
    EXPECT_NEAR(local.z, plane.signedDistanceTo(p), 1e-12);
    EXPECT_TRUE(p.convert2d(plane).isEqualTo({local.x, local.y}));
    expectNear(AcGePoint3d(plane, p.convert2d(plane)), p.orthoProject(plane));
    const AcGeVector3d n(0.3, 0.4, -0.5);
    EXPECT_EQ(AcGeMatrix3d::worldToPlane(n) * AcGeMatrix3d::planeToWorld(n), AcGeMatrix3d::kIdentity);
}

TEST(AcGePlane, MeetsPlanesAndLinesInTheirCommonPoints)
{
    AcGeLine3d line;
    const AcGePlane a({0, 0, 1}, AcGeVector3d::kZAxis), b({3, 0, 0}, AcGeVector3d(1, 0, 1));
    ASSERT_TRUE(a.intersectWith(b, line));
    for (const double t : {-5.0, 0.0, 7.0}) {
        EXPECT_NEAR(a.signedDistanceTo(line.evalPoint(t)), 0, 1e-12);
        EXPECT_NEAR(b.signedDistanceTo(line.evalPoint(t)), 0, 1e-12);
    }
    EXPECT_FALSE(a.intersectWith(AcGePlane({0, 0, 9}, -AcGeVector3d::kZAxis), line));
    AcGePoint3d p;
    EXPECT_TRUE(a.intersectWith(AcGeLineSeg3d({1, 1, 0}, AcGePoint3d(3, 3, 2)), p));
    expectNear(p, {2, 2, 1});
    EXPECT_FALSE(a.intersectWith(AcGeLineSeg3d({1, 1, 0}, AcGePoint3d(3, 3, 0.9)), p));
    AcGeLineSeg3d cut;
    const AcGeBoundedPlane square({0, 0, 0}, AcGeVector3d(4, 0, 0), AcGeVector3d(0, 4, 0));
    ASSERT_TRUE(square.intersectWith(AcGePlane({1, 0, 0}, AcGeVector3d::kXAxis), cut));
    EXPECT_NEAR(cut.length(), 4, 1e-9);
}
