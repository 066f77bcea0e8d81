#include "EntityFixture.h"

#include "acdbads.h"
#include "db2dpl.h"
#include "dbcircle.h"
#include "dbelipse.h"
#include "dbhatch.h"
#include "dbline.h"
#include "dbspline.h"

namespace
{
using MakeHatch = EntityTest;
using MakeHatchBoundary = EntityTest;
using MakeRegion = EntityTest;
using MakeBoundary = EntityTest;

TEST_F(MakeHatch, NestedCurvesAreIslandsByTurns)
{
    AcDbObjectId id;
    const auto ids = listOf({rectangle(0, 0, 10, 10), circle(5, 5, 3), rectangle(4, 4, 6, 6)});
    ASSERT_EQ(CMakeEnt::MakeHatch(ids, id, L"ansi31", 2.0, 0.5), 1);
    EXPECT_NEAR(areaOf(id), 100 - 9 * kPi + 4, 1e-6);
    const Open<AcDbHatch> hatch(id);
    EXPECT_TRUE(hatch->associative());
    EXPECT_EQ(hatch->patternScale(), 2.0);
    EXPECT_EQ(hatch->patternAngle(), 0.5);
    EXPECT_TRUE(hatch->loopTypeAt(0) & AcDbHatch::kExternal);
    EXPECT_FALSE(hatch->loopTypeAt(1) & AcDbHatch::kExternal);
}

TEST_F(MakeHatch, AngleCountsFromTheXAxisOfTheUser)
{
    turnUcs(); // its X axis is the world's Y axis
    AcDbObjectId circle, id;
    ASSERT_EQ(CArxEntity::CMakeEnt::MakeCircle({1, 2, 0}, 3.0, circle), 1);
    AcDbObjectIdArray boundary;
    boundary.append(circle);
    ASSERT_EQ(CArxEntity::CMakeEnt::MakeHatch(boundary, id, L"ANSI31", 1.0, 0.25), 1);
    const AcDbObjectPointer<AcDbHatch> hatch(id, AcDb::kForRead);
    EXPECT_NEAR(hatch->patternAngle(), 0.25 + std::acos(0.0), 1e-12);
}

TEST_F(MakeHatch, AngleIsThatOfTheHatchWhereTheXAxisStandsUprightOnIt)
{
    AcDbObjectId circle, id;
    for (const AcGeVector3d& normal : {AcGeVector3d(1, 2, 2) / 3.0, AcGeVector3d(6, 3, 2) / 7.0}) {
        const AcGeVector3d across = normal.perpVector();
        setUcs({1, 2, 3}, across, normal.crossProduct(across));
        ASSERT_EQ(CMakeEnt::MakeCircle({0, 0, 0}, 3.0, circle), 1);
        setUcs({1, 2, 3}, normal, across);
        ASSERT_EQ(CMakeEnt::MakeHatch(listOf({circle}), id, L"ANSI31", 1.0, 0.25), 1);
        EXPECT_NEAR(Open<AcDbHatch>(id)->patternAngle(), 0.25, 1e-12);
    }
}

TEST_F(MakeHatch, HatchFollowsItsBoundary)
{
    AcDbObjectId id;
    const AcDbObjectId round = circle(0, 0, 1);
    AcCmColor green;
    green.setColorIndex(3);
    ASSERT_EQ(CMakeEnt::MakeHatch(round, L"SOLID", 1.0, 0.0, green, id), 1);
    EXPECT_EQ(Open<AcDbHatch>(id)->colorIndex(), 3);
    Open<AcDbCircle>(round, AcDb::kForWrite)->setRadius(2.0);
    EXPECT_NEAR(areaOf(id), 4 * kPi, 1e-6);
}

TEST_F(MakeHatch, OpenCurvesMakeChainsInAnyOrderAndPlane)
{
    // A quarter of a disc that stands upright in the world's XZ plane at y = -2.
    setUcs({0, -2, 0}, AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
    AcDbObjectId bottom, left, arc, hatch;
    ASSERT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {4, 0, 0}, bottom), 1);
    ASSERT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {0, 4, 0}, left), 1);
    ASSERT_EQ(CMakeEnt::MakeArc({0, 0, 0}, 4.0, 0.0, kPi / 2, arc), 1);
    const AcDbObjectId hole = circle(1.5, 1.5, 0.5);
    ASSERT_EQ(CMakeEnt::MakeHatch(listOf({left, arc, hole, bottom}), hatch, L"SOLID", 1.0, 0.0), 1);
    EXPECT_NEAR(areaOf(hatch), 4 * kPi - 0.25 * kPi, 1e-6);
    AcDbExtents box;
    ASSERT_EQ(Open<AcDbHatch>(hatch)->getGeomExtents(box), Acad::eOk);
    EXPECT_NEAR(box.minPoint().y, -2.0, 1e-9);
    EXPECT_NEAR(box.maxPoint().y, -2.0, 1e-9);
    EXPECT_NEAR(box.maxPoint().z, 4.0, 1e-3);
}

TEST_F(MakeHatchBoundary, PolylinesEncloseTheAreaOfTheLoops)
{
    turnUcs();
    AcDbObjectId hatch;
    ASSERT_EQ(
        CMakeEnt::MakeHatch(listOf({rectangle(0, 0, 10, 10), circle(5, 5, 3)}), hatch, L"SOLID", 1.0, 0.0),
        1);
    AcDbObjectIdArray ids;
    ASSERT_EQ(CMakeEnt::MakeHatchBoundary(hatch, ids), 1);
    ASSERT_EQ(ids.length(), 2);
    const double areas[] = {100.0, 9 * kPi};
    for (int i = 0; i < 2; ++i) {
        const Open<AcDbPolyline> outline(ids[i]);
        ASSERT_EQ(outline.openStatus(), Acad::eOk);
        double area = 0.0;
        outline->getArea(area);
        EXPECT_NEAR(area, areas[i], 1e-6);
        AcDbExtents box;
        outline->getGeomExtents(box);
        EXPECT_NEAR((box.minPoint().x + box.maxPoint().x) / 2, 5.0, 1e-6); // 10 - 5
        EXPECT_NEAR((box.minPoint().y + box.maxPoint().y) / 2, 25.0, 1e-6);
    }
}

/// A hatch as other programs write it: each edge runs as it likes.
AcDbObjectId hatchOfEdges(const std::vector<AcGePoint2d>& ends)
{
    resbuf* list = acutBuildList(RTDXF0, L"HATCH", 100, L"AcDbEntity", 100, L"AcDbHatch", RTNONE);
    resbuf* last = list->rbnext->rbnext;
    const auto add = [&](resbuf* group) { last = last->rbnext = group; };
    const auto point = [&](short code, double x, double y) {
        const ads_point at = {x, y, 0.0};
        add(acutBuildList(code, at, RTNONE));
    };
    const auto number = [&](short code, int value) { add(acutBuildList(code, value, RTNONE)); };
    point(10, 0, 0);
    add(acutBuildList(2, L"SOLID", RTNONE));
    for (const auto& [code, value] : {std::pair(70, 1), std::pair(71, 0), std::pair(91, 1), std::pair(92, 1)})
        number(static_cast<short>(code), value);
    number(93, static_cast<int>(ends.size() / 2));
    for (std::size_t i = 0; i < ends.size(); i += 2) {
        number(72, 1);
        point(10, ends[i].x, ends[i].y);
        point(11, ends[i + 1].x, ends[i + 1].y);
    }
    for (const short code : {short(97), short(75), short(98)})
        number(code, 0);
    const int result = acdbEntMake(list);
    acutRelRb(list);
    EXPECT_EQ(result, RTNORM);
    ads_name name;
    AcDbObjectId id;
    if (acdbEntLast(name) == RTNORM) acdbGetObjectId(id, name);
    return id;
}

TEST_F(MakeHatchBoundary, EdgesThatRunBackwardsAreTurnedRound)
{
    AcDbObjectIdArray ids;
    const AcDbObjectId hatch = hatchOfEdges({{4, 0}, {0, 0}, {4, 0}, {4, 3}, {0, 3}, {4, 3}, {0, 3}, {0, 0}});
    ASSERT_EQ(CMakeEnt::MakeHatchBoundary(hatch, ids), 1);
    ASSERT_EQ(ids.length(), 1);
    double area = 0.0;
    Open<AcDbPolyline>(ids[0])->getArea(area);
    EXPECT_NEAR(area, 12.0, 1e-9);
    EXPECT_EQ(Open<AcDbPolyline>(ids[0])->numVerts(), 4u);
}

TEST_F(MakeHatchBoundary, EdgesThatDoNotMeetMakeNoOutline)
{
    AcDbObjectIdArray ids;
    const AcDbObjectId hatch = hatchOfEdges({{0, 0}, {4, 0}, {4, 0}, {4, 3}, {4, 2}, {0, 0}});
    const int before = entityCount();
    EXPECT_EQ(CMakeEnt::MakeHatchBoundary(hatch, ids), 0);
    EXPECT_EQ(entityCount(), before);
}

TEST_F(MakeHatchBoundary, OtherCurvesAreGivenEdgeByEdgeOrAsRegions)
{
    AcDbObjectId ellipse, hatch;
    ASSERT_EQ(CMakeEnt::MakeEllipse({1, 2, 0}, {1, 1, 0}, 5.0, 2.0, ellipse), 1);
    ASSERT_EQ(CMakeEnt::MakeHatch(listOf({ellipse}), hatch, L"SOLID", 1.0, 0.0), 1);
    AcDbObjectIdArray curves, regions;
    ASSERT_EQ(CMakeEnt::MakeHatchBoundary(hatch, curves, 0), 1);
    ASSERT_EQ(CMakeEnt::MakeHatchBoundary(hatch, regions, 1), 1);
    ASSERT_EQ(curves.length(), 1);
    ASSERT_EQ(regions.length(), 1);
    double area = 0.0;
    Open<AcDbEllipse>(curves[0])->getArea(area);
    EXPECT_NEAR(area, 10 * kPi, 1e-6);
    Open<AcDbRegion>(regions[0])->getArea(area);
    EXPECT_NEAR(area, 10 * kPi, 1e-6);
    for (const AcDbObjectId& id : {ellipse, AcDbObjectId()})
        EXPECT_EQ(CMakeEnt::MakeHatchBoundary(id, curves, 0), 0);
    EXPECT_EQ(curves.length(), 1);
}

double areaOfRegion(const AcDbRegion& region)
{
    double area = -1.0;
    region.getArea(area);
    return area;
}

TEST_F(MakeRegion, PolygonIsClosedOnceAndInTheWorld)
{
    turnUcs();
    const auto corners = pointList({{0, 0, 1}, {4, 0, 1}, {4, 3, 1}, {0, 0, 1}});
    const std::unique_ptr<AcDbRegion> region(CMakeEnt::MakeRegion(corners));
    ASSERT_TRUE(region);
    EXPECT_NEAR(areaOfRegion(*region), 6.0, 1e-9);
    AcDbExtents box;
    region->getGeomExtents(box);
    EXPECT_POINT(box.minPoint(), 7, 20, 1);
    EXPECT_POINT(box.maxPoint(), 10, 24, 1);
    EXPECT_EQ(region->database(), nullptr);
    EXPECT_EQ(entityCount(), 0);
}

TEST_F(MakeRegion, ChainsOfCurvesCountByTurns)
{
    AcDbCircle outer({0, 0, 0}, AcGeVector3d::kZAxis, 5.0), hole({0, 0, 0}, AcGeVector3d::kZAxis, 3.0),
        core({0, 0, 0}, AcGeVector3d::kZAxis, 1.0), apart({20, 0, 0}, AcGeVector3d::kZAxis, 2.0);
    AcArray<void*> curves;
    for (AcDbCircle* circle : {&hole, &outer, &apart, &core})
        curves.append(circle);
    const std::unique_ptr<AcDbRegion> region(CMakeEnt::MakeRegion(curves));
    ASSERT_TRUE(region);
    EXPECT_NEAR(areaOfRegion(*region), (25 - 9 + 1 + 4) * kPi, 1e-6);
    AcDbCircle raised({0, 0, 1}, AcGeVector3d::kZAxis, 5.0);
    curves.append(&raised);
    EXPECT_EQ(CMakeEnt::MakeRegion(curves), nullptr) << "out of the plane";
    AcDbLine open({0, 0, 0}, {1, 0, 0});
    AcArray<void*> loose;
    loose.append(&open);
    EXPECT_EQ(CMakeEnt::MakeRegion(loose), nullptr);
    EXPECT_EQ(CMakeEnt::MakeRegion(AcArray<void*>()), nullptr);
}

TEST_F(MakeBoundary, OutlinesAreAppendedWithTheirIslands)
{
    turnUcs();
    rectangle(0, 0, 10, 10);
    circle(5, 5, 3);
    rectangle(4, 4, 6, 6);
    AcDbObjectIdArray ids;
    ASSERT_EQ(CMakeEnt::MakeBoundary({1, 1, 0}, ids, 0, 0), 1);
    EXPECT_EQ(ids.length(), 1);
    ASSERT_EQ(CMakeEnt::MakeBoundary({1, 1, 0}, ids, 1, 0), 1);
    ASSERT_EQ(ids.length(), 4);
    double area = 0.0;
    Open<AcDbPolyline>(ids[1])->getArea(area);
    EXPECT_NEAR(area, 100.0, 1e-6);
    AcDbExtents box;
    Open<AcDbPolyline>(ids[1])->getGeomExtents(box);
    EXPECT_POINT(box.minPoint(), 0, 20, 0);
    EXPECT_POINT(box.maxPoint(), 10, 30, 0);
}

TEST_F(MakeBoundary, OneRegionHasItsIslandsCutOut)
{
    rectangle(0, 0, 10, 10);
    circle(5, 5, 3);
    AcDbObjectId ellipse, whole, polyline, region;
    ASSERT_EQ(CMakeEnt::MakeEllipse({5, 5, 0}, AcGeVector3d::kXAxis, 2.0, 1.0, ellipse), 1);
    ASSERT_EQ(CMakeEnt::MakeBoundary({1, 1, 0}, whole, 0, 1), 1);
    EXPECT_NEAR(areaOf(whole), 100.0, 1e-6);
    Open<AcDbEntity>(whole, AcDb::kForWrite)->erase();
    ASSERT_EQ(CMakeEnt::MakeBoundary({1, 1, 0}, region, 1, 1), 1);
    EXPECT_NEAR(areaOf(region), 100 - 9 * kPi + 2 * kPi, 1e-6);
    Open<AcDbEntity>(region, AcDb::kForWrite)->erase();
    ASSERT_EQ(CMakeEnt::MakeBoundary({1, 1, 0}, polyline, 1, 0), 1);
    EXPECT_EQ(Open<AcDbPolyline>(polyline).openStatus(), Acad::eOk);
}

TEST_F(MakeBoundary, OpenAreasAndBadPointsAddNothing)
{
    AcDbObjectId line, id;
    AcDbObjectIdArray ids;
    CMakeEnt::MakeLine({0, 0, 0}, {10, 0, 0}, line);
    CMakeEnt::MakeLine({10, 0, 0}, {10, 10, 0}, line);
    CMakeEnt::MakeLine({10, 10, 0}, {0, 0.01, 0}, line);
    for (const AcGePoint3d& point :
         {AcGePoint3d(8, 1, 0), AcGePoint3d(5, 0, 0), AcGePoint3d(kNan, 0, 0), AcGePoint3d(0, kInf, 0)})
        for (const int asRegions : {0, 1}) {
            EXPECT_EQ(CMakeEnt::MakeBoundary(point, ids, 1, asRegions), 0);
            EXPECT_EQ(CMakeEnt::MakeBoundary(point, id, 1, asRegions), 0);
        }
    EXPECT_TRUE(id.isNull() && ids.isEmpty());
    EXPECT_EQ(entityCount(), 3);
}
} // namespace
