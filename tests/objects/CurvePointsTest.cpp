#include "QmCADLib.h"

#include "DrawingTest.h"

#include "acdbads.h"
#include "acutads.h"
#include "db2dpl.h"
#include "db3dpl.h"
#include "dbelipse.h"
#include "dbents.h"
#include "dbpl.h"
#include "dbspline.h"

#include <cmath>
#include <limits>
#include <vector>

namespace
{
using CurvePoints = headless::DrawingTest;

AcGePoint3dArray pointsOf(AcDbObjectId id, int closeFlag, int wantedResult = 1)
{
    AcGePoint3dArray points;
    EXPECT_EQ(CFamStuEnt::GetCurvePoints(id, points, closeFlag), wantedResult);
    return points;
}

AcDbPolyline* square(bool closed)
{
    auto* const polyline = new AcDbPolyline;
    const double corners[][2] = {{0, 0}, {4, 0}, {4, 3}, {0, 3}};
    for (unsigned i = 0; i < 4; ++i)
        polyline->addVertexAt(i, AcGePoint2d(corners[i][0], corners[i][1]), i == 1 ? 1.0 : 0.0);
    polyline->setClosed(closed);
    return polyline;
}

TEST_F(CurvePoints, ClosedPolylineRepeatsItsFirstVertexWhenAsked)
{
    const AcDbObjectId closed = add(square(true)), open = add(square(false));
    const AcGePoint3dArray around = pointsOf(closed, 1);
    ASSERT_EQ(around.length(), 5);
    EXPECT_EQ(around[4], around[0]);
    EXPECT_EQ(around[2], AcGePoint3d(4, 3, 0));
    EXPECT_EQ(pointsOf(closed, 0).length(), 4);
    EXPECT_EQ(pointsOf(open, 1).length(), 4);
}

TEST_F(CurvePoints, RepeatedPointIsTheFirstOfTheArray)
{
    AcGePoint3dArray points;
    points.append(AcGePoint3d(9, 9, 9));
    EXPECT_EQ(CFamStuEnt::GetPolylinePoints(add(square(true)), points, 1), 1);
    ASSERT_EQ(points.length(), 6);
    EXPECT_EQ(points.last(), AcGePoint3d(9, 9, 9));
}

TEST_F(CurvePoints, PolylineVerticesAreInTheWorld)
{
    AcDbPolyline* const upright = square(false);
    upright->setNormal(AcGeVector3d::kXAxis);
    upright->setElevation(7.0);
    // The arbitrary axes of the normal (1,0,0) are x = (0,1,0) and y = (0,0,1).
    const AcGePoint3dArray points = pointsOf(add(upright), 0);
    ASSERT_EQ(points.length(), 4);
    EXPECT_TRUE(points[2].isEqualTo(AcGePoint3d(7, 4, 3)));
}

TEST_F(CurvePoints, OldPolylineIsClosedWhateverTheFlag)
{
    AcGePoint3dArray corners;
    for (const AcGePoint3d& point : {AcGePoint3d(0, 0, 0), AcGePoint3d(2, 0, 0), AcGePoint3d(2, 2, 0)})
        corners.append(point);
    const AcDbObjectId flat = add(new AcDb2dPolyline(AcDb::k2dSimplePoly, corners, 0.0, true));
    EXPECT_EQ(pointsOf(flat, 0).length(), 4);
    const AcDbObjectPointer<AcDb2dPolyline> polyline(flat, AcDb::kForRead);
    AcGePoint3dArray points;
    EXPECT_EQ(CFamStuEnt::Get2dPolylinePoints(polyline.object(), points, 0), 1);
    EXPECT_EQ(points.length(), 3);
    EXPECT_EQ(CFamStuEnt::Get2dPolylinePoints(nullptr, points, 0), 0);
    EXPECT_EQ(points.length(), 3);
}

void make(resbuf* list)
{
    EXPECT_EQ(acdbEntMake(list), RTNORM);
    acutRelRb(list);
}

/// An old-style polyline at the elevation 4, as fitting leaves it: one vertex of each flag at x = 0, 1, 2 ...
AcDbObjectId fitted(short polylineFlags, const std::vector<short>& vertexFlags)
{
    const ads_point elevation = {0, 0, 4};
    make(acutBuildList(RTDXF0, L"POLYLINE", 66, 1, 10, elevation, 70, polylineFlags, RTNONE));
    double x = 0.0;
    for (const short flags : vertexFlags) {
        const ads_point at = {x++, 0, 4};
        make(acutBuildList(RTDXF0, L"VERTEX", 10, at, 70, flags, RTNONE));
    }
    make(acutBuildList(RTDXF0, L"SEQEND", RTNONE));
    ads_name name;
    AcDbObjectId id;
    EXPECT_EQ(acdbEntLast(name), RTNORM);
    EXPECT_EQ(acdbGetObjectId(id, name), Acad::eOk);
    return id;
}

// Flags: 16 a control point of a spline's frame, 8 a point that the spline added, 1 one that an arc fit
// added.
TEST_F(CurvePoints, FittedPolylinesGiveThePointsOfTheirCurve)
{
    const AcGePoint3dArray spline = pointsOf(fitted(4, {16, 8, 8, 16, 8, 16}), 0);
    ASSERT_EQ(spline.length(), 3); // the frame is not on the curve
    EXPECT_EQ(spline[0], AcGePoint3d(1, 0, 4));
    EXPECT_EQ(spline[2], AcGePoint3d(4, 0, 4));
    const AcGePoint3dArray arcs = pointsOf(fitted(2, {0, 1, 0}), 0);
    ASSERT_EQ(arcs.length(), 3);
    EXPECT_EQ(arcs[1], AcGePoint3d(1, 0, 4));
}

// The second vertex is held for writing: what lies before it stays.
TEST_F(CurvePoints, VerticesThatAreHeldOrErasedAreNotRead)
{
    AcGePoint3dArray corners;
    for (const double x : {0.0, 1.0, 2.0})
        corners.append(AcGePoint3d(x, 0, 0));
    const AcDbObjectId id = add(new AcDb2dPolyline(AcDb::k2dSimplePoly, corners, 0, Adesk::kFalse));
    const AcDbObjectPointer<AcDb2dPolyline> polyline(id, AcDb::kForRead);
    std::unique_ptr<AcDbObjectIterator> at(polyline->vertexIterator());
    at->step();
    AcGePoint3dArray points;
    {
        const AcDbObjectPointer<AcDb2dVertex> held(at->objectId(), AcDb::kForWrite);
        EXPECT_EQ(CFamStuEnt::Get2dPolylinePoints(polyline.object(), points, 0), 0);
        EXPECT_EQ(points.length(), 1);
    }
    erase(at->objectId());
    points.removeAll();
    EXPECT_EQ(CFamStuEnt::Get2dPolylinePoints(polyline.object(), points, 0), 1);
    ASSERT_EQ(points.length(), 2);
    EXPECT_EQ(points[1], AcGePoint3d(2, 0, 0));
}

TEST_F(CurvePoints, PolylinesOutsideDrawingsGiveTheirVertices)
{
    AcGePoint3dArray corners;
    for (const double x : {0.0, 1.0, 1.0})
        corners.append(AcGePoint3d(x, 0, 0));
    AcDb2dPolyline polyline(AcDb::k2dSimplePoly, corners, 7, Adesk::kTrue);
    AcGePoint3dArray points;
    EXPECT_EQ(CFamStuEnt::Get2dPolylinePoints(&polyline, points, 1), 1);
    ASSERT_EQ(points.length(), 4); // equal ones are kept, the first follows again
    EXPECT_EQ(points[2], AcGePoint3d(1, 0, 7));
    EXPECT_EQ(points[3], AcGePoint3d(0, 0, 7));
}

TEST_F(CurvePoints, CountWhatWasThereBeforeForSplines)
{
    AcGePoint3dArray points;
    for (const int wanted : {0, 0, 1}) { // more than one point makes the result 1
        AcDbSpline none;
        EXPECT_EQ(CFamStuEnt::GetCurvePoints(&none, points, 0), wanted) << points.length();
        points.append(AcGePoint3d::kOrigin);
    }
}

TEST_F(CurvePoints, SpatialPolylineGivesNone)
{
    AcGePoint3dArray corners;
    for (const AcGePoint3d& point : {AcGePoint3d(0, 0, 0), AcGePoint3d(2, 0, 5)}) corners.append(point);
    const AcDbObjectId id = add(new AcDb3dPolyline(AcDb::k3dSimplePoly, corners));
    AcGePoint3dArray points = pointsOf(id, 1, 0);
    EXPECT_TRUE(points.isEmpty());
    points.append(AcGePoint3d::kOrigin);
    EXPECT_EQ(CFamStuEnt::GetCurvePoints(id, points, 1), 1); // there was a point before
    EXPECT_EQ(points.length(), 1);
}

TEST_F(CurvePoints, OtherCurvesGiveTheirEndsOrControlPoints)
{
    const AcGePoint3dArray line = pointsOf(add(new AcDbLine(AcGePoint3d(1, 2, 3), AcGePoint3d(4, 5, 6))), 0);
    ASSERT_EQ(line.length(), 2);
    EXPECT_EQ(line[1], AcGePoint3d(4, 5, 6));

    const double quarter = std::acos(0.0);
    const AcGePoint3dArray arc = pointsOf(add(new AcDbArc(AcGePoint3d(1, 1, 0), 2.0, 0.0, quarter)), 0);
    ASSERT_EQ(arc.length(), 2);
    EXPECT_TRUE(arc[0].isEqualTo(AcGePoint3d(3, 1, 0)));
    EXPECT_TRUE(arc[1].isEqualTo(AcGePoint3d(1, 3, 0)));

    const AcGePoint3dArray circle = pointsOf(add(new AcDbCircle(AcGePoint3d::kOrigin, AcGeVector3d::kZAxis, 5.0)), 0);
    ASSERT_EQ(circle.length(), 2);
    EXPECT_TRUE(circle[0].isEqualTo(circle[1]));
    EXPECT_TRUE(circle[0].isEqualTo(AcGePoint3d(5, 0, 0)));

    AcGePoint3dArray control;
    for (const AcGePoint3d& point :
         {AcGePoint3d(0, 0, 0), AcGePoint3d(1, 2, 0), AcGePoint3d(3, 2, 0), AcGePoint3d(4, 0, 0)})
        control.append(point);
    AcGeDoubleArray knots;
    for (const double knot : {0, 0, 0, 0, 1, 1, 1, 1}) knots.append(knot);
    const AcGePoint3dArray spline =
        pointsOf(add(new AcDbSpline(3, false, false, false, control, knots, AcGeDoubleArray())), 0);
    ASSERT_EQ(spline.length(), 4);
    EXPECT_EQ(spline[2], control[2]);
}

TEST_F(CurvePoints, OtherObjectsGiveNone)
{
    const AcDbObjectId text = add(new AcDbText(AcGePoint3d::kOrigin, L"x"));
    EXPECT_TRUE(pointsOf(text, 1, 0).isEmpty());
    EXPECT_TRUE(pointsOf(AcDbObjectId(), 1, 0).isEmpty());
    EXPECT_TRUE(pointsOf(database()->layerZero(), 1, 0).isEmpty());
    AcGePoint3dArray points;
    EXPECT_EQ(CFamStuEnt::GetPolylinePoints(text, points, 1), 0);
    EXPECT_EQ(CFamStuEnt::GetPolylinePoints(static_cast<AcDbPolyline*>(nullptr), points, 1), 0);
    EXPECT_EQ(CFamStuEnt::GetCurvePoints(static_cast<AcDbEntity*>(nullptr), points, 1), 0);
}

TEST(PointOnLine, CodesFollowTheSegment)
{
    const AcGePoint3d a(0, 0, 0), b(10, 0, 0);
    const auto judge = [&](double x, double y, int extend) {
        return CFamStuEnt::JudgePointOnLine(a, b, AcGePoint3d(x, y, 0), extend);
    };
    EXPECT_EQ(judge(0, 0.00009, 0), 1);
    EXPECT_EQ(judge(10, -0.00009, 0), 2);
    EXPECT_EQ(judge(5, 0, 0), 3);
    EXPECT_EQ(judge(5, 0.0002, 0), 3); // 8e-5 short of a straight angle
    EXPECT_EQ(judge(5, 0.01, 1), 0);
    EXPECT_EQ(judge(12, 0, 1), 4);
    EXPECT_EQ(judge(-2, 0, 1), 5);
    EXPECT_EQ(judge(12, 0, 0), 0);
    EXPECT_EQ(judge(12, 1, 1), 0);
    EXPECT_EQ(CFamStuEnt::JudgePointOnLine(a, a, a, 0), 1);
}

TEST(PointOnLine, HeightCountsForTheEndsOnly)
{
    const AcGePoint3d a(0, 0, 0), b(10, 0, 0);
    EXPECT_EQ(CFamStuEnt::JudgePointOnLine(a, b, AcGePoint3d(5, 0, 100), 0), 3);
    EXPECT_NE(CFamStuEnt::JudgePointOnLine(a, b, AcGePoint3d(0, 0, 100), 0), 1);
}

// Where a direction has no length in plan there is no angle: neither between nor beyond.
TEST(PointOnLine, DirectionsWithoutLengthInPlanLieNowhere)
{
    const AcGePoint3d a(0, 0, 0), b(10, 0, 0);
    for (const int extend : {0, 1}) {
        EXPECT_EQ(CFamStuEnt::JudgePointOnLine(a, a, {5, 0, 0}, extend), 0);
        EXPECT_EQ(CFamStuEnt::JudgePointOnLine(a, {0, 0, 9}, {5, 0, 0}, extend), 0);
        EXPECT_EQ(CFamStuEnt::JudgePointOnLine(a, b, {0, 0, 3}, extend), 0);
        EXPECT_EQ(CFamStuEnt::JudgePointOnLine(a, b, {10, 0, 3}, extend), 0);
        EXPECT_EQ(CFamStuEnt::JudgePointOnLine(a, b, {5, 0, 3}, extend), 3); // heights elsewhere do not count
    }
    EXPECT_EQ(CFamStuEnt::JudgePointOnLine(a, b, {-1e-4, 0, 0}, 1), 5); // no longer within the tolerance of a
}
} // namespace
