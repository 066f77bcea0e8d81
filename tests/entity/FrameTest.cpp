/// What the makers of geometry make, against closed forms, in user coordinate systems anywhere in space.

#include "SavedDrawing.h"

#include "dbcircle.h"
#include "dbelipse.h"
#include "dbhatch.h"
#include "dbline.h"
#include "dbpoint.h"
#include "dbsolid.h"
#include "dbspline.h"
#include "EntityFixture.h"

namespace
{
struct Frame {
    const char* name;
    AcGePoint3d origin;
    AcGeVector3d x, y;
};

/// Tests run in the user coordinate system of their frame.
class FrameTest : public EntityTest, public testing::WithParamInterface<Frame>
{
protected:
    void SetUp() override
    {
        EntityTest::SetUp();
        const Frame& frame = GetParam();
        setUcs(frame.origin, frame.x, frame.y);
        const AcGeVector3d z = frame.x.crossProduct(frame.y);
        m_worldToUser.setToAlignCoordSys(frame.origin, frame.x, frame.y, z, AcGePoint3d::kOrigin,
                                         AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, AcGeVector3d::kZAxis);
    }

    AcGePoint3d inUser(const AcGePoint3d& world) const { return m_worldToUser * world; }
    /// What rounding leaves of a length at these coordinates.
    double slack() const { return 1e-9 * (1.0 + GetParam().origin.asVector().length() * 1e-3); }

    void expectAt(const AcGePoint3d& world, const AcGePoint3d& user) const
    {
        const AcGePoint3d gotten = inUser(world);
        EXPECT_LT(gotten.distanceTo(user), slack()) << gotten.x << ", " << gotten.y << ", " << gotten.z;
    }
    AcGePoint3d pointOf(AcDbObjectId id, double part) const
    {
        const Open<AcDbCurve> curve(id);
        double from = 0.0, to = 0.0;
        AcGePoint3d point;
        curve->getStartParam(from);
        curve->getEndParam(to);
        EXPECT_EQ(curve->getPointAtParam(from + (to - from) * part, point), Acad::eOk);
        return point;
    }
    double lengthOf(AcDbObjectId id) const
    {
        const Open<AcDbCurve> curve(id);
        double end = 0.0, length = -1.0;
        curve->getEndParam(end);
        curve->getDistAtParam(end, length);
        return length;
    }

    AcDbObjectId ellipse(double x, double y, double a, double b)
    {
        AcDbObjectId id;
        EXPECT_EQ(CMakeEnt::MakeEllipse({x, y, 0}, {1, 1, 0}, a, b, id), 1);
        return id;
    }

    AcGeMatrix3d m_worldToUser;
};

const double third = 1.0 / 3.0;
const Frame frames[] = {
    {"World", {0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
    {"Turned", {10, 20, 0}, {0.6, 0.8, 0}, {-0.8, 0.6, 0}},
    {"Upright", {5, -7, 3}, {0, 1, 0}, {0, 0, 1}},
    {"UpsideDown", {1, 2, 3}, {1, 0, 0}, {0, -1, 0}},
    {"Tilted", {10, 20, 30}, {2 * third, third, 2 * third}, {-2 * third, 2 * third, third}},
    {"FarAway", {3.9e6, 5.1e5, 12.5}, {0.6, 0.8, 0}, {-0.8, 0.6, 0}},
};
INSTANTIATE_TEST_SUITE_P(Frames, FrameTest, testing::ValuesIn(frames),
                         [](const testing::TestParamInfo<Frame>& info) { return info.param.name; });

TEST_P(FrameTest, LinesPointsAndSolidsKeepTheirCorners)
{
    AcDbObjectId line, point, solid;
    ASSERT_EQ(CMakeEnt::MakeLine({1, 2, 3}, {4, 5, 6}, line), 1);
    expectAt(pointOf(line, 0.0), {1, 2, 3});
    expectAt(pointOf(line, 1.0), {4, 5, 6});
    ASSERT_EQ(CMakeEnt::MakePoint({7, 8, 9}, point), 1);
    expectAt(Open<AcDbPoint>(point)->position(), {7, 8, 9});
    ASSERT_EQ(CMakeEnt::MakeSolid({0, 0, 2}, {4, 0, 2}, {0, 3, 2}, solid), 1);
    const AcGePoint3d corners[] = {{0, 0, 2}, {4, 0, 2}, {0, 3, 2}, {0, 3, 2}};
    for (std::uint16_t i = 0; i < 4; ++i) {
        AcGePoint3d corner;
        ASSERT_EQ(Open<AcDbSolid>(solid)->getPointAt(i, corner), Acad::eOk);
        expectAt(corner, corners[i]);
    }
}

TEST_P(FrameTest, SixFormsOfArcsRunThroughTheirPoints)
{
    // Radius 5 around (2, 1): (7, 1), (2, 6), (-3, 1); half a turn, at height 4.
    const AcGePoint3d a(7, 1, 4), b(2, 6, 4), c(-3, 1, 4);
    AcDbObjectId ids[5];
    ASSERT_EQ(CMakeEnt::MakeArc(a, b, c, ids[0]), 1);
    ASSERT_EQ(CMakeEnt::MakeArc(c, b, a, L"0", 1, ids[1]), 1);
    ASSERT_EQ(CMakeEnt::MakeArc({2, 1, 4}, 5.0, 0.0, kPi, ids[2]), 1);
    AcDbArc* arc = nullptr;
    ASSERT_EQ(CMakeEnt::MakeArc(a, b, c, arc), 1);
    ids[3] = arc->objectId();
    arc->close();
    ASSERT_EQ(CMakeEnt::MakeArc(a, b, c), 1);
    ids[4] = AcDbObjectPointer<AcDbBlockTableRecord>(database()->modelSpaceId())->entityIds().back();
    ASSERT_EQ(CMakeEnt::MakeArc(a, b, c, 5), 1);
    for (const AcDbObjectId& id : ids) {
        expectAt(pointOf(id, 0.0), a);
        expectAt(pointOf(id, 0.5), b);
        expectAt(pointOf(id, 1.0), c);
        EXPECT_NEAR(lengthOf(id), 5 * kPi, slack());
        EXPECT_NEAR(Open<AcDbArc>(id)->normal().dotProduct(GetParam().x.crossProduct(GetParam().y)), 1.0,
                    1e-9);
    }
}

TEST_P(FrameTest, EllipsesHaveTheirRadiiAndEnds)
{
    // Radii 3 along (1, 1) and 5 across; a quarter from the end of the first to the end of the second.
    const double c = std::sqrt(0.5);
    AcDbObjectId quarter;
    ASSERT_EQ(CMakeEnt::MakeEllipse({1, 2, 3}, {7, 7, 0}, 3.0, 5.0, quarter, 0.0, kPi / 2), 1);
    expectAt(pointOf(quarter, 0.0), {1 + 3 * c, 2 + 3 * c, 3});
    expectAt(pointOf(quarter, 1.0), {1 - 5 * c, 2 + 5 * c, 3});
    expectAt(pointOf(quarter, 0.5), {1 + 1.5 - 2.5, 2 + 1.5 + 2.5, 3}); // cos = sin = c there
    EXPECT_NEAR(Open<AcDbEllipse>(quarter)->radiusRatio(), 0.6, 1e-12);
    EXPECT_NEAR(areaOf(ellipse(0, 0, 3, 5)), 15 * kPi, 1e-6);
}

TEST_P(FrameTest, RectanglesAndSplinesLieWhereTheyAreDrawn)
{
    AcDbObjectId rectangle, spline;
    // Sides of 5 along (0.6, 0.8) and 10 across: the third corner is (3 - 8, 4 + 6).
    ASSERT_EQ(CMakeEnt::MakeRect({0, 0, 2}, {-5, 10, 9}, rectangle, std::atan2(4.0, 3.0)), 1);
    EXPECT_NEAR(areaOf(rectangle), 50.0, 1e-6);
    expectAt(pointOf(rectangle, 0.25), {3, 4, 2});
    expectAt(pointOf(rectangle, 0.5), {-5, 10, 2});
    expectAt(pointOf(rectangle, 0.75), {-8, 6, 2});
    const AcGePoint3dArray through = pointList({{0, 0, 0}, {4, 0, 1}, {4, 3, 2}, {9, 9, 0}});
    ASSERT_EQ(CMakeEnt::MakeSpline(through, spline), 1);
    for (const AcGePoint3d& p : through) {
        AcGePoint3d nearest;
        const AcGePoint3d world = m_worldToUser.inverse() * p;
        ASSERT_EQ(Open<AcDbSpline>(spline)->getClosestPointTo(world, nearest), Acad::eOk);
        expectAt(nearest, p);
    }
}

TEST_P(FrameTest, TrianglesOfAConcaveOutlineCoverItOnce)
{
    // A comb of three teeth: 7 x 1 for its back and three of 1 x 4, with half a circle of radius 0.5 at its
    // left.
    const double corners[][2] = {{0, 0}, {7, 0}, {7, 5}, {6, 5}, {6, 1}, {4, 1}, {4, 5},
                                 {3, 5}, {3, 1}, {1, 1}, {1, 5}, {0, 5}, {0, 1}};
    AcDbObjectIdArray sides;
    for (std::size_t i = 0; i + 1 < std::size(corners); ++i)
        sides.append(line(corners[i][0], corners[i][1], corners[i + 1][0], corners[i + 1][1]));
    AcDbObjectId arc;
    ASSERT_EQ(CMakeEnt::MakeArc({0, 0.5, 0}, 0.5, kPi / 2, 3 * kPi / 2, arc), 1);
    AcDbObjectIdArray traced, solids;
    ASSERT_EQ(CMakeEnt::MakeBoundary({3.5, 0.5, 0}, traced, 0, 0), 1);
    const double area = 7 + 3 * 4 + kPi / 8;
    EXPECT_NEAR(areaOf(traced[0]), area, 1e-6);
    AcCmColor color;
    color.setColorIndex(1);
    ASSERT_EQ(CMakeEnt::MakeSolid(traced[0], color, solids), 1);
    double covered = 0.0;
    for (const AcDbObjectId& id : solids) {
        AcGePoint3d p[3];
        for (std::uint16_t i = 0; i < 3; ++i) {
            Open<AcDbSolid>(id)->getPointAt(i, p[i]);
            EXPECT_NEAR(inUser(p[i]).z, 0.0, slack());
        }
        covered += (p[1] - p[0]).crossProduct(p[2] - p[0]).length() / 2;
    }
    EXPECT_NEAR(covered, area, 2e-2) << "chords for the arc";
}

TEST_P(FrameTest, HatchesLeaveOutEverySecondIsland)
{
    const auto ids =
        listOf({circle(5, 5, 3), rectangle(0, 0, 10, 10), ellipse(5, 5, 2, 1), circle(5, 5, 0.5)});
    AcDbObjectId hatch;
    ASSERT_EQ(CMakeEnt::MakeHatch(ids, hatch, L"ANSI31", 1.0, 0.0), 1);
    EXPECT_NEAR(areaOf(hatch), 100 - 9 * kPi + 2 * kPi - 0.25 * kPi, 1e-5);
    const Open<AcDbHatch> opened(hatch);
    EXPECT_NEAR(std::fabs(opened->normal().dotProduct(GetParam().x.crossProduct(GetParam().y))), 1.0, 1e-9);
    int external = 0;
    for (int i = 0; i < opened->numLoops(); ++i)
        external += opened->loopTypeAt(i) & AcDbHatch::kExternal ? 1 : 0;
    EXPECT_EQ(external, 1) << "the rectangle";
    EXPECT_GT(opened->numHatchLines(), 3);
}

TEST_P(FrameTest, WhatLiesInANotchIsNoIsland)
{
    // The box of the L holds the circle, the L does not.
    AcDbObjectIdArray ids;
    const double corners[][2] = {{0, 0}, {9, 0}, {9, 3}, {3, 3}, {3, 9}, {0, 9}, {0, 0}};
    for (int i = 0; i < 6; ++i)
        ids.append(line(corners[i][0], corners[i][1], corners[i + 1][0], corners[i + 1][1]));
    ids.append(circle(6, 6, 2));
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakeHatch(ids, id, L"SOLID", 1.0, 0.0), 1);
    EXPECT_NEAR(areaOf(id), 45 + 4 * kPi, 1e-5);
    const Open<AcDbHatch> hatch(id);
    EXPECT_TRUE(hatch->loopTypeAt(0) & hatch->loopTypeAt(1) & AcDbHatch::kExternal);
}

TEST_P(FrameTest, ChainsThatTouchInAPointAreLoopsOfTheirOwn)
{
    // Two triangles that share the corner (4, 3), and the first line drawn in neither's order.
    const auto ids = listOf({line(4, 3, 8, 6), line(0, 0, 4, 3), line(4, 3, 0, 6), line(8, 6, 8, 0),
                             line(0, 6, 0, 0), line(8, 0, 4, 3)});
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakeHatch(ids, id, L"SOLID", 1.0, 0.0), 1);
    EXPECT_EQ(Open<AcDbHatch>(id)->numLoops(), 2);
    EXPECT_NEAR(areaOf(id), 24.0, 1e-6);
}

TEST_P(FrameTest, RegionsWithHolesAreHatchedAroundThem)
{
    AcDbObjectId whole, id;
    rectangle(0, 0, 10, 10);
    circle(5, 5, 3);
    ASSERT_EQ(CMakeEnt::MakeBoundary({1, 1, 0}, whole, 1, 1), 1);
    ASSERT_EQ(CMakeEnt::MakeHatch(listOf({whole}), id, L"SOLID", 1.0, 0.0), 1);
    EXPECT_EQ(Open<AcDbHatch>(id)->numLoops(), 2);
    EXPECT_NEAR(areaOf(id), 100 - 9 * kPi, 1e-5);
    const Open<AcDbHatch> hatch(id);
    EXPECT_TRUE(hatch->loopTypeAt(0) & AcDbHatch::kExternal);
    EXPECT_FALSE(hatch->loopTypeAt(1) & AcDbHatch::kExternal);
}

TEST_P(FrameTest, OutlinesOfAHatchEncloseWhatItsLoopsDo)
{
    const auto ids = listOf({rectangle(0, 0, 10, 10), circle(5, 5, 3), ellipse(5, 5, 2, 1)});
    AcDbObjectId hatch;
    ASSERT_EQ(CMakeEnt::MakeHatch(ids, hatch, L"SOLID", 1.0, 0.0), 1);
    const double areas[] = {100.0, 9 * kPi, 2 * kPi};
    for (const int asRegions : {0, 1}) {
        AcDbObjectIdArray outlines;
        ASSERT_EQ(CMakeEnt::MakeHatchBoundary(hatch, outlines, asRegions), 1);
        ASSERT_EQ(outlines.length(), 3);
        for (int i = 0; i < 3; ++i) {
            EXPECT_NEAR(areaOf(outlines[i]), areas[i], 1e-5);
            AcDbExtents box, expected;
            ASSERT_EQ(Open<AcDbEntity>(outlines[i])->getGeomExtents(box), Acad::eOk);
            ASSERT_EQ(Open<AcDbEntity>(ids[i])->getGeomExtents(expected), Acad::eOk);
            EXPECT_LT(box.minPoint().distanceTo(expected.minPoint()), 1e-5);
            EXPECT_LT(box.maxPoint().distanceTo(expected.maxPoint()), 1e-5);
        }
    }
}

TEST_P(FrameTest, RegionsHaveTheirAreasAndCentroids)
{
    // Corners (0, 0), (6, 0), (0, 3) at height 2: area 9, centroid (2, 1).
    const std::unique_ptr<AcDbRegion> region(CMakeEnt::MakeRegion(pointList({{0, 0, 2}, {6, 0, 2}, {0, 3, 2}})));
    ASSERT_TRUE(region);
    AcGePlane plane;
    ASSERT_EQ(region->getPlane(plane), Acad::eOk);
    AcGePoint3d origin;
    AcGeVector3d x, y;
    plane.getCoordSystem(origin, x, y);
    double perimeter, area, inertia[2], product, principal[2], radii[2];
    AcGePoint2d centroid, low, high;
    AcGeVector2d axes[2];
    ASSERT_EQ(region->getAreaProp(origin, x, y, perimeter, area, centroid, inertia, product, principal, axes,
                                  radii, low, high),
              Acad::eOk);
    EXPECT_NEAR(area, 9.0, 1e-6);
    EXPECT_NEAR(perimeter, 9 + std::sqrt(45.0), 1e-6);
    const AcGePoint3d user = inUser(origin + x * centroid.x + y * centroid.y);
    EXPECT_LT(user.distanceTo({2, 1, 2}), 1e-6) << user.x << ", " << user.y << ", " << user.z;
}

TEST_P(FrameTest, BoundariesFollowLinesArcsSplinesAndEllipses)
{
    // The top of the square is a spline that is straight, its left side half an ellipse bulging out by 1.
    line(0, 0, 4, 0);
    line(4, 0, 4, 4);
    AcDbObjectId spline, arc, outline;
    ASSERT_EQ(CMakeEnt::MakeSpline(pointList({{5, 4, 0}, {3, 4, 0}, {1, 4, 0}, {-1, 4, 0}}), spline), 1);
    ASSERT_EQ(CMakeEnt::MakeEllipse({0, 2, 0}, {0, 1, 0}, 2.0, 1.0, arc, 0.0, kPi), 1);
    ASSERT_EQ(CMakeEnt::MakeBoundary({2, 2, 0}, outline, 0, 0), 1);
    EXPECT_TRUE(outline.objectClass()->isDerivedFrom(AcDbRegion::desc())) << "an ellipse is no polyline";
    EXPECT_NEAR(areaOf(outline), 16 + kPi, 1e-5);
}

TEST_P(FrameTest, BoundariesFindIslandsThreeDeep)
{
    rectangle(-10, -10, 10, 10);
    circle(0, 0, 8);
    rectangle(-4, -4, 4, 4);
    circle(0, 0, 2);
    AcDbObjectIdArray outlines;
    ASSERT_EQ(CMakeEnt::MakeBoundary({9, 9, 5}, outlines, 1, 0), 1);
    ASSERT_EQ(outlines.length(), 4);
    double sum = 0.0;
    for (const AcDbObjectId& id : outlines) {
        sum += areaOf(id);
        EXPECT_NEAR(inUser(pointOf(id, 0.3)).z, 5.0, slack());
    }
    EXPECT_NEAR(sum, 400 + 64 * kPi + 64 + 4 * kPi, 1e-5);
    AcDbObjectId region;
    ASSERT_EQ(CMakeEnt::MakeBoundary({9, 9, 5}, region, 1, 1), 1);
    EXPECT_NEAR(areaOf(region), 400 - 64 * kPi + 64 - 4 * kPi, 1e-5);
    // Between the second circle and the inner square.
    AcDbObjectIdArray inner;
    ASSERT_EQ(CMakeEnt::MakeBoundary({5, 0, 0}, inner, 1, 0), 1);
    ASSERT_EQ(inner.length(), 3);
    EXPECT_NEAR(areaOf(inner[0]), 64 * kPi, 1e-5);
}

TEST_P(FrameTest, ThinAndTouchingAreasAreTracedAndGapsAreNot)
{
    // A sliver a thousandth wide, cut off a square by a line; the circle touches the bottom side.
    rectangle(0, 0, 10, 10);
    line(9.999, -1, 9.999, 11);
    circle(5, 2, 2);
    AcDbObjectId sliver, rest;
    ASSERT_EQ(CMakeEnt::MakeBoundary({9.9995, 5, 0}, sliver, 0, 0), 1);
    EXPECT_NEAR(areaOf(sliver), 0.01, 1e-7);
    ASSERT_EQ(CMakeEnt::MakeBoundary({1, 9, 0}, rest, 1, 1), 1);
    EXPECT_NEAR(areaOf(rest), 99.99 - 4 * kPi, 1e-5);
    line(20, 0, 30, 0);
    line(30, 0, 30, 10);
    line(30, 10, 20, 0.001);
    AcDbObjectId none;
    EXPECT_EQ(CMakeEnt::MakeBoundary({29, 1, 0}, none, 0, 0), 0) << "a gap of a thousandth";
    line(20, 0.001, 20, 0);
    EXPECT_EQ(CMakeEnt::MakeBoundary({29, 1, 0}, none, 0, 0), 1) << "closed";
}

/// A number for each entity that says what and where it is.
std::vector<double> measuresOf(AcDbDatabase& drawing)
{
    std::vector<double> measures;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(drawing.modelSpaceId());
    for (const AcDbObjectId& id : space->entityIds()) {
        const AcDbEntityPointer entity(id, AcDb::kForRead);
        double area = 0.0;
        if (const auto* curve = AcDbCurve::cast(entity.object())) curve->getArea(area);
        if (const auto* region = AcDbRegion::cast(entity.object())) region->getArea(area);
        if (const auto* hatch = AcDbHatch::cast(entity.object())) hatch->getArea(area);
        AcDbExtents box;
        EXPECT_EQ(entity->getGeomExtents(box), Acad::eOk);
        for (const double value : {area, box.minPoint().x, box.minPoint().y, box.minPoint().z,
                                   box.maxPoint().x, box.maxPoint().y, box.maxPoint().z})
            measures.push_back(value);
    }
    return measures;
}

TEST_P(FrameTest, OneOfEachIsTheSameInASavedDrawing)
{
    AcDbObjectId id, spline, arc, outline, hatch;
    AcDbObjectIdArray ids;
    AcCmColor red;
    red.setColorIndex(1);
    CMakeEnt::MakePoint({1, 2, 3}, id);
    CMakeEnt::MakeArc({20, 0, 0}, {21, 1, 0}, {20, 2, 0}, arc);
    CMakeEnt::MakeSpline(pointList({{30, 0, 0}, {34, 0, 1}, {34, 3, 2}, {39, 9, 0}}), spline);
    CMakeEnt::MakePline(pointList({{0, 0, 0}, {4, 0, 0}, {4, 3, 0}}), id, 1, 0.5);
    CMakeEnt::MakeSolid({40, 0, 0}, {44, 0, 0}, {40, 3, 0}, id);
    const auto boundary = listOf({rectangle(0, 0, 10, 10), circle(5, 5, 4), ellipse(5, 5, 2, 1)});
    ASSERT_EQ(CMakeEnt::MakeHatch(boundary, hatch, L"ANSI31", 1.0, 0.3), 1);
    ASSERT_EQ(CMakeEnt::MakeHatchBoundary(hatch, ids, 0), 1);
    ASSERT_EQ(CMakeEnt::MakeHatchBoundary(hatch, ids, 1), 1);
    ASSERT_EQ(CMakeEnt::MakeBoundary({0.5, 0.5, 0}, outline, 1, 1), 1);
    ASSERT_EQ(CMakeEnt::MakeSolid(boundary[1], red, ids), 1);
    std::unique_ptr<AcDbRegion> region(CMakeEnt::MakeRegion(pointList({{0, 0, 2}, {6, 0, 2}, {0, 3, 2}})));
    ASSERT_EQ(CArxUtils::CDatabase::AddToDb(region.get(), id), 1);
    region.release()->close();

    const dxftest::OutputFolder folder;
    const std::filesystem::path path = folder.file("each.dxf");
    ASSERT_EQ(database()->saveAs(path.wstring().c_str()), Acad::eOk);
    dxftest::expectSound(path);
    AcDbDatabase again(false);
    ASSERT_EQ(again.readDwgFile(path.wstring().c_str()), Acad::eOk);
    EXPECT_FALSE(again.needsRecovery());
    const std::vector<double> before = measuresOf(*database()), after = measuresOf(again);
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_NEAR(after[i], before[i], 1e-6) << "entity " << i / 7 << ", measure " << i % 7;
}
} // namespace
