#include "Shapes.h"

#include <gtest/gtest.h>

using namespace kernel;

namespace
{
Region combined(BooleanKind kind, const Region& a, const Region& b)
{
    Region result;
    EXPECT_EQ(a.combine(kind, b, result), RegionStatus::kOk);
    return result;
}

std::size_t curveCount(const Region& region)
{
    std::size_t count = 0;
    for (const auto& face : region.faces())
        for (const auto& loop : face)
            count += loop.size();
    return count;
}

/// Areas of the three results add up, and points are where they belong.
void expectConsistent(const Region& a, const Region& b, RandomShapes& shapes, double tol)
{
    const Region both = combined(BooleanKind::kUnion, a, b), common = combined(BooleanKind::kIntersect, a, b),
                 rest = combined(BooleanKind::kSubtract, a, b);
    EXPECT_NEAR(both.area() + common.area(), a.area() + b.area(), tol);
    EXPECT_NEAR(rest.area() + common.area(), a.area(), tol);
    for (int i = 0; i < 40; ++i) {
        const AcGePoint3d p(shapes.real(-9, 9), shapes.real(-9, 9), 0);
        const Side inA = a.classify(p, 1e-6), inB = b.classify(p, 1e-6);
        if (inA == Side::kOn || inB == Side::kOn) continue;
        const bool x = inA == Side::kInside, y = inB == Side::kInside;
        EXPECT_EQ(both.classify(p) == Side::kInside, x || y) << p.x << ", " << p.y;
        EXPECT_EQ(common.classify(p) == Side::kInside, x && y) << p.x << ", " << p.y;
        EXPECT_EQ(rest.classify(p) == Side::kInside, x && !y) << p.x << ", " << p.y;
    }
}
} // namespace

TEST(RegionBoolean, RandomShapesAddUp)
{
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        RandomShapes shapes(seed);
        const Region a = shapes.region(), b = shapes.region();
        expectConsistent(a, b, shapes, 1e-8);
    }
}

TEST(RegionBoolean, ResultsCombineFurther)
{
    for (unsigned seed = 1000; seed < 1040; ++seed) {
        SCOPED_TRACE(seed);
        RandomShapes shapes(seed);
        const Region a = shapes.region(), b = shapes.region(), c = shapes.region();
        expectConsistent(combined(BooleanKind::kSubtract, a, b), combined(BooleanKind::kUnion, b, c), shapes,
                         1e-7);
    }
}

TEST(RegionBoolean, SharedEdgesAndCornersCountExactly)
{
    // Unions of rectangles on a grid share edges and touch at corners all the time; cells are counted.
    for (unsigned seed = 0; seed < 40; ++seed) {
        RandomShapes shapes(seed);
        bool cells[8][8] = {};
        Region region;
        for (int n = 0; n < 12; ++n) {
            const int x = shapes.whole(0, 6), y = shapes.whole(0, 6), w = shapes.whole(1, 8 - x),
                      h = shapes.whole(1, std::min(3, 8 - y));
            const bool add = shapes.whole(0, 2) > 0;
            region = combined(add ? BooleanKind::kUnion : BooleanKind::kSubtract, region,
                              CurveList().rectangle(x, y, x + w, y + h).region());
            int count = 0;
            for (int i = 0; i < 8; ++i)
                for (int k = 0; k < 8; ++k) {
                    if (i >= x && i < x + w && k >= y && k < y + h) cells[i][k] = add;
                    count += cells[i][k];
                }
            ASSERT_NEAR(region.area(), count, 1e-9) << "seed " << seed << ", step " << n;
        }
    }
}

TEST(RegionBoolean, NeighboursOnOneLineOrCircleBecomeOneCurve)
{
    const Region wide = combined(BooleanKind::kUnion, CurveList().rectangle(0, 0, 2, 1).region(),
                                 CurveList().rectangle(2, 0, 5, 1).region());
    EXPECT_EQ(curveCount(wide), 4u);
    const Region disk = CurveList().circle(0, 0, 2).region();
    const Region half = combined(BooleanKind::kIntersect, disk, CurveList().rectangle(0, -3, 3, 3).region());
    EXPECT_EQ(curveCount(half), 2u); // the seam of the circle lies in the middle of the arc
    const Region other = combined(BooleanKind::kSubtract, disk, CurveList().rectangle(0, -3, 3, 3).region());
    EXPECT_NEAR(half.area(), 2 * kPi, 1e-12);
    const Region whole = combined(BooleanKind::kUnion, half, other);
    EXPECT_NEAR(whole.area(), 4 * kPi, 1e-12);
    EXPECT_EQ(curveCount(whole), 1u);
}

TEST(RegionBoolean, SameRegionIsItsOwnUnionAndLeavesNothing)
{
    for (unsigned seed = 0; seed < 20; ++seed) {
        RandomShapes shapes(seed);
        const Region a = shapes.region();
        EXPECT_NEAR(combined(BooleanKind::kUnion, a, a).area(), a.area(), 1e-9) << seed;
        EXPECT_NEAR(combined(BooleanKind::kIntersect, a, a).area(), a.area(), 1e-9) << seed;
        EXPECT_TRUE(combined(BooleanKind::kSubtract, a, a).isEmpty()) << seed;
    }
}

TEST(RegionBoolean, TouchingCirclesKeepTheirAreas)
{
    const Region big = CurveList().circle(0, 0, 3).region(), inner = CurveList().circle(1, 0, 2).region(),
                 outer = CurveList().circle(5, 0, 2).region();
    EXPECT_NEAR(combined(BooleanKind::kSubtract, big, inner).area(), 5 * kPi, 1e-7);
    EXPECT_NEAR(combined(BooleanKind::kUnion, big, inner).area(), 9 * kPi, 1e-7);
    EXPECT_NEAR(combined(BooleanKind::kUnion, big, outer).area(), 13 * kPi, 1e-7);
    EXPECT_NEAR(combined(BooleanKind::kIntersect, big, outer).area(), 0, 1e-7);
}

TEST(RegionBoolean, HolesAndIslandsAreFaces)
{
    const Region ring = combined(BooleanKind::kSubtract, CurveList().rectangle(0, 0, 10, 10).region(),
                                 CurveList().circle(5, 5, 4).region());
    const Region target = combined(BooleanKind::kUnion, ring, CurveList().circle(5, 5, 1).region());
    ASSERT_EQ(target.faces().size(), 2u);
    EXPECT_NEAR(target.area(), 100 - 15 * kPi, 1e-12);
    EXPECT_EQ(target.classify({5, 5, 0}), Side::kInside);
    EXPECT_EQ(target.classify({7, 5, 0}), Side::kOutside);
}

TEST(RegionBoolean, OtherPlaneIsRefused)
{
    const Region a = CurveList().circle(0, 0, 1).region();
    Region b = a, result = a;
    b.transformBy(AcGeMatrix3d::translation({0, 0, 0.1}));
    EXPECT_EQ(a.combine(BooleanKind::kUnion, b, result), RegionStatus::kNotCoplanar);
    b = a;
    b.transformBy(AcGeMatrix3d::rotation(0.1, AcGeVector3d::kXAxis));
    EXPECT_EQ(a.combine(BooleanKind::kUnion, b, result), RegionStatus::kNotCoplanar);
    EXPECT_NEAR(result.area(), kPi, 1e-12);
    b = CurveList().rectangle(0, -2, 2, 2).region(); // upside down in the same plane
    b.transformBy(AcGeMatrix3d::rotation(kPi, AcGeVector3d::kXAxis));
    EXPECT_EQ(a.combine(BooleanKind::kIntersect, b, result), RegionStatus::kOk);
    EXPECT_NEAR(result.area(), kPi / 2, 1e-12);
}
