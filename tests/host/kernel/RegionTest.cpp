#include "Shapes.h"

#include <gtest/gtest.h>

using namespace kernel;

namespace
{
RegionStatus statusOf(const CurveList& list)
{
    RegionStatus status = RegionStatus::kOk;
    const bool none = list.regions(status).empty();
    EXPECT_EQ(none, status != RegionStatus::kOk);
    return status;
}

/// 4 x 2 with a half circle of radius 1 on its right side.
CurveList slotEnd()
{
    CurveList list;
    list.line(0, 0, 4, 0).line(0, 2, 0, 0).line(4, 2, 0, 2); // neither in order nor in one direction
    list.add(AcGeCircArc3d({4, 0, 0}, {5, 1, 0}, {4, 2, 0}));
    return list;
}
} // namespace

TEST(Region, AreaAndPerimeterMatchClosedForms)
{
    const Region slot = slotEnd().region();
    EXPECT_NEAR(slot.area(), 8 + kPi / 2, 1e-13);
    EXPECT_NEAR(slot.perimeter(), 10 + kPi, 1e-13);
    const Region ellipse =
        CurveList()
            .add(AcGeEllipArc3d({7, -3, 0}, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, 5, 2))
            .region();
    EXPECT_NEAR(ellipse.area(), 10 * kPi, 1e-12);
    EXPECT_TRUE(ellipse.centroid().isEqualTo({7, -3, 0}, AcGeTol().setEqualPoint(1e-12)));
    // Far from the origin nothing is lost to cancellation beyond the rounding of the coordinates.
    EXPECT_NEAR(CurveList().circle(5e5, 4e6, 0.25).region().area(), kPi / 16, 1e-10);
}

TEST(Region, AreaOfSplinesMatchesFineSampling)
{
    for (unsigned seed = 0; seed < 20; ++seed) {
        RandomShapes shapes(seed);
        const Region region = CurveList().add(shapes.closedSpline({1, 2})).region();
        // The error of an inscribed polygon falls with the square of the step: Richardson's extrapolation.
        const double coarse = polygonArea(polygonsOf(region, 4000)),
                     fine = polygonArea(polygonsOf(region, 8000));
        EXPECT_NEAR(region.area(), fine + (fine - coarse) / 3, 1e-6) << seed;
    }
}

TEST(Region, MeasuresOfRectangleMatchTextbook)
{
    // b = 4, h = 2 with its corner at (1, 2): bh^3/12 and hb^3/12 about the centroid (3, 3), then Steiner.
    const Region region = CurveList().rectangle(1, 2, 5, 4).region();
    RegionMeasures m;
    ASSERT_TRUE(region.measure(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, m));
    EXPECT_NEAR(m.area, 8, 1e-12);
    EXPECT_NEAR(m.perimeter, 12, 1e-12);
    EXPECT_NEAR(m.momentX, 32.0 / 12 + 8 * 9, 1e-11);
    EXPECT_NEAR(m.momentY, 128.0 / 12 + 8 * 9, 1e-11);
    EXPECT_NEAR(m.product, 8 * 9, 1e-11);
    EXPECT_NEAR(m.gyration[0], std::sqrt((32.0 / 12 + 72) / 8), 1e-12);
    EXPECT_NEAR(m.principal[0], 32.0 / 12, 1e-11);
    EXPECT_NEAR(m.principal[1], 128.0 / 12, 1e-11);
    EXPECT_NEAR(m.principalAxes[0].x, 1, 1e-12);
    EXPECT_TRUE(m.low.isEqualTo({1, 2}) && m.high.isEqualTo({5, 4}));
    // In axes turned by 30 degrees the principal moments stay and the axes turn back.
    const AcGeVector3d x(std::cos(kPi / 6), 0.5, 0), y(-0.5, std::cos(kPi / 6), 0);
    ASSERT_TRUE(region.measure({3, 3, 0}, x, y, m));
    EXPECT_NEAR(m.principal[0], 32.0 / 12, 1e-11);
    EXPECT_NEAR(m.principalAxes[0].y, -0.5, 1e-11);
    EXPECT_NEAR(m.centroid.asVector().length(), 0, 1e-12);
}

TEST(Region, MeasureRefusesAxesOutsideOfPlane)
{
    const Region region = CurveList().rectangle(0, 0, 1, 1).region();
    RegionMeasures m;
    m.area = -1;
    EXPECT_FALSE(region.measure(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis, AcGeVector3d::kZAxis, m));
    EXPECT_FALSE(region.measure(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis, AcGeVector3d(0.6, 0.8, 0), m));
    EXPECT_FALSE(Region().measure(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, m));
    EXPECT_EQ(m.area, -1);
}

TEST(RegionFromCurves, EachClosedLoopGivesOneRegion)
{
    CurveList list;
    list.rectangle(0, 0, 10, 10).circle(5, 5, 1).circle(10, 10, 2);
    list.add(AcGeCircArc3d({0, 0, 7}, AcGeVector3d(1, 0, 0), 2)); // in another plane
    RegionStatus status;
    const auto regions = list.regions(status);
    ASSERT_EQ(status, RegionStatus::kOk);
    ASSERT_EQ(regions.size(), 4u);
    EXPECT_NEAR(regions[0].area(), 100, 1e-12);
    EXPECT_NEAR(regions[2].area(), 4 * kPi, 1e-12);
    EXPECT_TRUE(regions[3].normal().isEqualTo(AcGeVector3d::kXAxis));
    EXPECT_TRUE(regions[3].centroid().isEqualTo({0, 0, 7}));
}

TEST(RegionFromCurves, UnusableSetsFailWithTheirReason)
{
    RegionStatus status;
    EXPECT_TRUE(Region::fromCurves({}, status).empty());
    EXPECT_EQ(status, RegionStatus::kNoCurves);
    EXPECT_TRUE(Region::fromCurves({nullptr}, status).empty());
    EXPECT_EQ(status, RegionStatus::kBadCurve);
    EXPECT_EQ(statusOf(CurveList().line(1, 1, 1, 1)), RegionStatus::kBadCurve);
    EXPECT_EQ(statusOf(CurveList().line(std::nan(""), 1, 1, 1)), RegionStatus::kBadCurve);
    EXPECT_EQ(statusOf(CurveList().line(0, 0, 1, 0).line(1, 0, 1, 1)), RegionStatus::kOpen);
    EXPECT_EQ(statusOf(CurveList().rectangle(0, 0, 1, 1).line(3, 3, 4, 4)), RegionStatus::kOpen);
    EXPECT_EQ(statusOf(CurveList().rectangle(0, 0, 1, 1).line(0, 0, 1, 1)), RegionStatus::kBranching);
    EXPECT_EQ(statusOf(CurveList().polygon({{0, 0}, {2, 2}, {2, 0}, {0, 2}})), RegionStatus::kSelfCrossing);
    EXPECT_EQ(statusOf(CurveList().line(0, 0, 1, 0).line(1, 0, 0, 0)), RegionStatus::kSelfCrossing);
    // A notch that touches the opposite side.
    EXPECT_EQ(statusOf(CurveList().polygon({{0, 0}, {4, 0}, {4, 2}, {2, 0}, {0, 2}})),
              RegionStatus::kSelfCrossing);
    CurveList bent;
    bent.line(0, 0, 2, 0).line(2, 0, 2, 2);
    bent.add(AcGeLineSeg3d(AcGePoint3d(2, 2, 0), AcGePoint3d(0, 2, 1)));
    bent.add(AcGeLineSeg3d(AcGePoint3d(0, 2, 1), AcGePoint3d(0, 0, 0)));
    EXPECT_EQ(statusOf(bent), RegionStatus::kNotPlanar);
}

TEST(RegionFromCurves, SplineThatCrossesItselfIsRefused)
{
    const AcGePoint3dArray eight{{0, 0, 0}, {4, 3, 0},  {8, 0, 0}, {4, -3, 0},
                                 {0, 3, 0}, {-2, 1, 0}, {0, 0, 0}};
    EXPECT_EQ(statusOf(CurveList().add(AcGeNurbCurve3d(eight))), RegionStatus::kSelfCrossing);
}

TEST(RegionFromFaces, LoopsInAnyDirectionMakeFacesWithHoles)
{
    const auto loopOf = [](const CurveList& list) {
        LoopCurves loop;
        for (const AcGeCurve3d* curve : list.pointers())
            loop.emplace_back(static_cast<AcGeCurve3d*>(curve->copy()));
        return loop;
    };
    // The hole first, and both loops in the same direction.
    const FaceCurves face{loopOf(CurveList().circle(5, 5, 2)), loopOf(CurveList().rectangle(0, 0, 10, 10))};
    RegionStatus status;
    const Region region = Region::fromFaces({face}, AcGeVector3d::kZAxis, status);
    ASSERT_EQ(status, RegionStatus::kOk);
    EXPECT_NEAR(region.area(), 100 - 4 * kPi, 1e-12);
    EXPECT_NEAR(region.perimeter(), 40 + 4 * kPi, 1e-12);
    EXPECT_EQ(region.classify({5, 5, 0}), Side::kOutside);
    EXPECT_EQ(region.classify({7, 5, 0}), Side::kOn);
    EXPECT_EQ(region.classify({1, 1, 0}), Side::kInside);
    EXPECT_EQ(region.classify({1, 1, 1}), Side::kOutside);
    Region::fromFaces({face}, AcGeVector3d::kXAxis, status);
    EXPECT_EQ(status, RegionStatus::kNotPlanar);
    Region::fromFaces({{loopOf(CurveList().line(0, 0, 1, 0).line(1, 0, 1, 1))}}, AcGeVector3d::kZAxis,
                      status);
    EXPECT_EQ(status, RegionStatus::kOpen);
}

TEST(Region, ClassifyAgreesWithFinePolygons)
{
    for (unsigned seed = 0; seed < 60; ++seed) {
        RandomShapes shapes(seed);
        const Region region = shapes.region();
        ASSERT_FALSE(region.isEmpty()) << seed;
        const auto polygons = polygonsOf(region, 2000);
        for (int i = 0; i < 50; ++i) {
            const AcGePoint2d p(shapes.real(-9, 9), shapes.real(-9, 9));
            const Side side = region.classify({p.x, p.y, 0}, 1e-4); // wider than the sag of the polygons
            if (side == Side::kOn) continue;
            EXPECT_EQ(side == Side::kInside, isInPolygons(polygons, p)) << seed << ": " << p.x << ", " << p.y;
        }
    }
}

TEST(Region, CurvesOfTheBoundaryAreOnIt)
{
    for (unsigned seed = 100; seed < 120; ++seed) {
        RandomShapes shapes(seed);
        const Region region = shapes.region();
        for (const auto& polygon : polygonsOf(region, 7))
            for (const AcGePoint2d& p : polygon)
                EXPECT_EQ(region.classify({p.x, p.y, 0}), Side::kOn) << seed;
    }
}

TEST(Region, TransformMapsAreaAndBoundary)
{
    RandomShapes shapes(7);
    for (int i = 0; i < 20; ++i) {
        const Region before = shapes.region();
        AcGeMatrix3d map = AcGeMatrix3d::rotation(shapes.real(0, 6), AcGeVector3d(1, 2, 3).normal()) *
                           AcGeMatrix3d::translation({shapes.real(-9, 9), 4, 5});
        Region after = before;
        ASSERT_EQ(after.transformBy(map), RegionStatus::kOk);
        EXPECT_NEAR(after.area(), before.area(), 1e-9);
        EXPECT_TRUE(after.centroid().isEqualTo(map * before.centroid(), AcGeTol().setEqualPoint(1e-9)));
        ASSERT_EQ(after.transformBy(map.inverse()), RegionStatus::kOk);
        EXPECT_TRUE(after.centroid().isEqualTo(before.centroid(), AcGeTol().setEqualPoint(1e-9)));
        map.setToIdentity(); // 3 : 0.5, and mirrored
        map(0, 0) = -3;
        map(1, 1) = 0.5;
        after = before;
        ASSERT_EQ(after.transformBy(map), RegionStatus::kOk);
        EXPECT_NEAR(after.area(), 1.5 * before.area(), 1e-9);
        EXPECT_TRUE(after.normal().isEqualTo(before.normal()));
        map(1, 1) = 0;
        EXPECT_EQ(after.transformBy(map), RegionStatus::kSingular);
        EXPECT_NEAR(after.area(), 1.5 * before.area(), 1e-9);
    }
}

TEST(Region, ExtentsAreThoseOfTheCurvesInTheWorld)
{
    Region region = CurveList().circle(3, 4, 2).region();
    AcGePoint3d low, high;
    ASSERT_TRUE(region.extents(low, high));
    EXPECT_TRUE(low.isEqualTo({1, 2, 0}) && high.isEqualTo({5, 6, 0}));
    region.transformBy(AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kXAxis));
    ASSERT_TRUE(region.extents(low, high));
    EXPECT_TRUE(low.isEqualTo({1, 0, 2}) && high.isEqualTo({5, 0, 6}));
    EXPECT_FALSE(Region().extents(low, high));
}
