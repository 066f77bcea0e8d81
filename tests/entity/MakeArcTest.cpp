#include "EntityFixture.h"

#include "dbcircle.h"
#include "dbelipse.h"
#include "dbsolid.h"

#include <array>

namespace
{
using MakeArc = EntityTest;
using MakeCircle = EntityTest;
using MakeEllipse = EntityTest;
using MakeSolid = EntityTest;

const AcGePoint3d east(1, 0, 0), north(0, 1, 0), west(-1, 0, 0), south(0, -1, 0);

TEST_F(MakeArc, ThreePointsAreOnTheArcInEitherDirection)
{
    turnUcs();
    AcDbObjectId left, right;
    ASSERT_EQ(CMakeEnt::MakeArc(east, north, west, left), 1);
    ASSERT_EQ(CMakeEnt::MakeArc(west, north, east, L"0", 300, right), 1);
    for (const AcDbObjectId& id : {left, right}) {
        const Open<AcDbArc> arc(id);
        EXPECT_POINT(arc->center(), 10, 20, 0);
        EXPECT_NEAR(arc->totalAngle(), kPi, 1e-9);
        EXPECT_NEAR(arc->normal().z, 1.0, 1e-12);
        AcGePoint3d start;
        arc->getStartPoint(start);
        EXPECT_POINT(start, 10, 21, 0); // the user's east lies in the world's north
    }
}

TEST_F(MakeArc, PointerFormGivesTheArcOpenForWrite)
{
    AcDbArc* arc = nullptr;
    ASSERT_EQ(CMakeEnt::MakeArc(east, north, west, arc), 1);
    EXPECT_EQ(arc->setRadius(2.0), Acad::eOk);
    arc->close();
    EXPECT_EQ(entityCount(), 1);
}

TEST_F(MakeArc, AnglesAreThoseOfTheUserCoordinateSystem)
{
    turnUcs();
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakeArc({0, 0, 0}, 2.0, 0.0, kPi / 2, id), 1);
    const Open<AcDbArc> arc(id);
    EXPECT_NEAR(arc->startAngle(), kPi / 2, 1e-9);
    EXPECT_NEAR(arc->endAngle(), kPi, 1e-9);
}

TEST(MakeFreeArc, BulgeIsTheTangentOfAQuarterOfTheAngle)
{
    AcGeCircArc2d* flat = nullptr;
    ASSERT_EQ(CMakeEnt::MakeArc(AcGePoint2d(0, 0), AcGePoint2d(2, 0), 1.0, flat), 1);
    const std::unique_ptr<AcGeCircArc2d> owned(flat);
    // A half circle that runs counter-clockwise lies below its chord.
    EXPECT_NEAR(flat->evalPoint((flat->startAng() + flat->endAng()) / 2).y, -1.0, 1e-9);
    AcGeCircArc3d arc;
    const double quarterTurn = std::tan(kPi / 8);
    ASSERT_EQ(CMakeEnt::MakeArc(east, north, quarterTurn, AcGeVector3d::kZAxis, arc), 1);
    EXPECT_POINT(arc.center(), 0, 0, 0);
    ASSERT_EQ(CMakeEnt::MakeArc(east, north, quarterTurn, -AcGeVector3d::kZAxis, arc), 1);
    EXPECT_POINT(arc.center(), 1, 1, 0);
}

/// The numbers of a free arc in space: two points, its bulge and the normal.
using ArcNumbers = std::array<double, 10>;

int makeFreeArc(const ArcNumbers& n, AcGeCircArc3d& arc)
{
    return CMakeEnt::MakeArc({n[0], n[1], n[2]}, {n[3], n[4], n[5]}, n[6], {n[7], n[8], n[9]}, arc);
}

TEST(MakeFreeArc, BadInputLeavesTheArcAsItWas)
{
    const ArcNumbers good = {1, 0, 0, -1, 0, 0, 0.5, 0, 0, 1};
    std::vector<ArcNumbers> bad = {{1, 0, 0, 1, 0, 0, 0.5, 0, 0, 1}, // equal points
                                   {1, 0, 0, -1, 0, 0, 0.0, 0, 0, 1},
                                   {1, 0, 0, -1, 0, 0, 0.5, 0, 0, 0},
                                   {1, 0, 0, -1, 0, 0, 0.5, 1, 0, 0}}; // the normal along the chord
    for (std::size_t place = 0; place < good.size(); ++place)
        for (const double number : {kNan, kInf, -kInf}) {
            bad.push_back(good);
            bad.back()[place] = number;
        }
    AcGeCircArc3d arc;
    ASSERT_EQ(makeFreeArc(good, arc), 1);
    arc.set({7, 8, 9}, AcGeVector3d::kZAxis, 3.0);
    for (const ArcNumbers& n : bad) {
        SCOPED_TRACE(testing::PrintToString(n));
        AcGeCircArc3d* pointer = &arc;
        AcGeCircArc2d *flat = nullptr, *const before = flat;
        EXPECT_EQ(makeFreeArc(n, arc), 0);
        EXPECT_EQ(
            CMakeEnt::MakeArc({n[0], n[1], n[2]}, {n[3], n[4], n[5]}, n[6], {n[7], n[8], n[9]}, pointer), 0);
        EXPECT_POINT(arc.center(), 7, 8, 9);
        EXPECT_EQ(pointer, &arc);
        // Without a height and a normal some of them are good.
        const bool isFlat = std::isfinite(n[0] + n[1] + n[3] + n[4] + n[6]) && n[0] != n[3] && n[6] != 0.0;
        if (isFlat) continue;
        EXPECT_EQ(CMakeEnt::MakeArc(AcGePoint2d(n[0], n[1]), AcGePoint2d(n[3], n[4]), n[6], flat), 0);
        EXPECT_EQ(flat, before);
    }
}

TEST(MakeFreeArc, HugeNumbersAreRefusedOrMakeAnArcOfNumbers)
{
    const ArcNumbers good = {1, 0, 0, -1, 0, 0, 0.5, 0, 0, 1};
    for (std::size_t place = 0; place < good.size(); ++place)
        for (const double huge : {1e15, -1e100, 1e300, 1.7e308}) {
            ArcNumbers n = good;
            n[place] = huge;
            SCOPED_TRACE(testing::PrintToString(n));
            AcGeCircArc3d arc;
            if (makeFreeArc(n, arc) == 0) continue;
            EXPECT_TRUE(std::isfinite(arc.radius() + arc.center().x + arc.center().y + arc.center().z));
        }
}

TEST_F(MakeArc, NamedLayerThatIsLockedTakesIt)
{
    const AcDbObjectId layer = addLayer(L"LOCKED", true);
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakeArc(east, north, west, L"locked", 1, id), 1);
    EXPECT_EQ(Open<AcDbArc>(id)->layerId(), layer);
}

TEST_F(MakeCircle, LiesInTheUsersPlane)
{
    setUcs({1, 2, 3}, AcGeVector3d::kYAxis, AcGeVector3d::kZAxis);
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakeCircle({1, 0, 0}, 5.0, id), 1);
    const Open<AcDbCircle> circle(id);
    EXPECT_POINT(circle->center(), 1, 3, 3);
    EXPECT_TRUE(circle->normal().isEqualTo(AcGeVector3d::kXAxis));
    EXPECT_EQ(circle->radius(), 5.0);
    EXPECT_EQ(CMakeEnt::MakeCircle({1, 0, 0}, 0.0, id), 0);
    EXPECT_EQ(CMakeEnt::MakeCircle({1, 0, 0}, -5.0, id), 0);
}

TEST_F(MakeEllipse, EitherRadiusMayBeTheLarger)
{
    AcDbObjectId wide, tall;
    ASSERT_EQ(CMakeEnt::MakeEllipse({0, 0, 0}, {7, 0, 0}, 3.0, 2.0, wide, 0.0, kPi / 2), 1);
    ASSERT_EQ(CMakeEnt::MakeEllipse({0, 0, 0}, {7, 0, 0}, 2.0, 3.0, tall, 0.0, kPi / 2), 1);
    AcGePoint3d start, end;
    const Open<AcDbEllipse> first(wide), second(tall);
    first->getStartPoint(start);
    first->getEndPoint(end);
    EXPECT_POINT(start, 3, 0, 0);
    EXPECT_POINT(end, 0, 2, 0);
    second->getStartPoint(start);
    second->getEndPoint(end);
    EXPECT_POINT(start, 2, 0, 0);
    EXPECT_POINT(end, 0, 3, 0);
    EXPECT_EQ(CMakeEnt::MakeEllipse({0, 0, 0}, {0, 0, 0}, 2.0, 3.0, wide), 0);
    EXPECT_EQ(CMakeEnt::MakeEllipse({0, 0, 0}, {1, 0, 1}, 2.0, 1.0, wide), 0) << "an axis out of the plane";
    EXPECT_EQ(CMakeEnt::MakeEllipse({0, 0, 0}, {1, 0, 0}, 0.0, 1.0, wide), 0);
}

TEST_F(MakeEllipse, AnglesAreThoseOfTheLinesFromTheCentre)
{
    // At 45 degrees x = y, so that x^2/9 + x^2/4 = 1.
    const double at = std::sqrt(36.0 / 13.0);
    AcDbObjectId wide, tall;
    ASSERT_EQ(CMakeEnt::MakeEllipse({0, 0, 0}, {1, 0, 0}, 3.0, 2.0, wide, kPi / 4, 3 * kPi / 4), 1);
    ASSERT_EQ(CMakeEnt::MakeEllipse({0, 0, 0}, {1, 0, 0}, 2.0, 3.0, tall, kPi / 4, 3 * kPi / 4), 1);
    for (const AcDbObjectId& id : {wide, tall}) {
        AcGePoint3d start, end;
        const Open<AcDbEllipse> ellipse(id);
        ellipse->getStartPoint(start);
        ellipse->getEndPoint(end);
        EXPECT_POINT(start, at, at, 0);
        EXPECT_POINT(end, -at, at, 0);
    }
}

TEST_F(MakeEllipse, EqualAnglesMakeItWhole)
{
    for (const double angle : {0.0, 1.0, -2.0}) {
        AcDbObjectId id;
        ASSERT_EQ(CMakeEnt::MakeEllipse({0, 0, 0}, {1, 0, 0}, 3.0, 2.0, id, angle, angle), 1);
        double area = 0.0;
        Open<AcDbEllipse>(id)->getArea(area);
        EXPECT_NEAR(area, 6 * kPi, 1e-9) << angle;
        EXPECT_TRUE(Open<AcDbEllipse>(id)->isClosed());
    }
}

double faceOf(const AcDbSolid& solid)
{
    AcGePoint3d p[3];
    for (std::uint16_t i = 0; i < 3; ++i)
        solid.getPointAt(i, p[i]);
    return (p[1] - p[0]).crossProduct(p[2] - p[0]).length() / 2.0;
}

TEST_F(MakeSolid, TriangleHasItsThirdCornerTwice)
{
    turnUcs();
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakeSolid({0, 0, 0}, {4, 0, 0}, {0, 3, 0}, id), 1);
    const Open<AcDbSolid> solid(id);
    AcGePoint3d third, fourth;
    solid->getPointAt(2, third);
    solid->getPointAt(3, fourth);
    EXPECT_POINT(third, 7, 20, 0);
    EXPECT_POINT(fourth, third);
    EXPECT_NEAR(faceOf(*solid.object()), 6.0, 1e-9);
}

TEST_F(MakeSolid, TriangleAtAnyHeightsIsPlanar)
{
    turnUcs();
    const AcGePoint3d corners[][3] = {{{0, 0, 0}, {4, 0, 1}, {0, 3, 2}},
                                      {{0, 3, 2}, {4, 0, 1}, {0, 0, 0}},
                                      {{0, 0, 0}, {0, 3, 0}, {0, 0, 5}},
                                      {{1, 1, 1}, {2, 2, 2}, {3, 3, 3}},
                                      {{0, 0, 0}, {0, 0, 0}, {0, 0, 5}}};
    for (const auto& [a, b, c] : corners) {
        AcDbObjectId id;
        ASSERT_EQ(CMakeEnt::MakeSolid(a, b, c, id), 1);
        const Open<AcDbSolid> solid(id);
        EXPECT_GE(solid->normal().z, -1e-12) << "upwards";
        AcGePlane plane;
        AcDb::Planarity planarity;
        ASSERT_EQ(solid->getPlane(plane, planarity), Acad::eOk);
        AcGePoint3d corner;
        std::uint16_t i = 0;
        for (const AcGePoint3d& p : {a, b, c, c}) {
            solid->getPointAt(i++, corner);
            EXPECT_POINT(corner, 10 - p.y, 20 + p.x, p.z);
            EXPECT_LT(plane.distanceTo(corner), 1e-9);
        }
    }
}

TEST_F(MakeSolid, TrianglesOfACombAreAsManyAsItsCornersLessTwo)
{
    // 300 teeth, 1 wide and 9 high, 1 apart, on a back that is 1 high; in either direction.
    AcGePoint3dArray comb, turned;
    comb.append({0, -1, 0});
    comb.append({599, -1, 0});
    for (int tooth = 299; tooth >= 0; --tooth)
        for (const auto& [x, y] : {std::pair(1, 0), std::pair(1, 9), std::pair(0, 9), std::pair(0, 0)})
            comb.append({2.0 * tooth + x, static_cast<double>(y), 0});
    comb.remove({599, 0, 0}); // in line with the back's end
    comb.remove({0, 0, 0});
    for (int i = comb.length() - 1; i >= 0; --i)
        turned.append(comb[i]);
    for (const AcGePoint3dArray* points : {&comb, &turned}) {
        AcDbObjectId outline;
        AcDbObjectIdArray ids;
        ASSERT_EQ(CMakeEnt::MakePline(*points, outline, 1), 1);
        ASSERT_EQ(CMakeEnt::MakeSolid(outline, AcCmColor(), ids), 1);
        EXPECT_LE(ids.length(), comb.length() - 2);
        double sum = 0.0;
        for (const AcDbObjectId& id : ids)
            sum += faceOf(*Open<AcDbSolid>(id).object());
        EXPECT_NEAR(sum, 599 + 300 * 9, 1e-6);
    }
}

TEST_F(MakeSolid, TrianglesCoverAClosedCurveOnce)
{
    AcCmColor blue;
    blue.setColorIndex(5);
    AcGePoint3dArray points; // an L: 3 x 3 without its upper right 2 x 2
    const double corners[][2] = {{0, 0}, {3, 0}, {3, 1}, {1, 1}, {1, 3}, {0, 3}};
    for (const auto& c : corners)
        points.append({c[0], c[1], 0});
    AcDbObjectId outline, circle;
    ASSERT_EQ(CMakeEnt::MakePline(points, outline, 1), 1);
    ASSERT_EQ(CMakeEnt::MakeCircle({10, 0, 0}, 2.0, circle), 1);
    AcDbObjectIdArray ofOutline, ofCircle;
    ASSERT_EQ(CMakeEnt::MakeSolid(outline, blue, ofOutline), 1);
    ASSERT_EQ(CMakeEnt::MakeSolid(circle, blue, ofCircle), 1);
    EXPECT_EQ(ofOutline.length(), 4); // n - 2
    const std::pair<AcDbObjectIdArray*, double> cases[] = {{&ofOutline, 5.0}, {&ofCircle, 4 * kPi}};
    for (const auto& [ids, area] : cases) {
        double sum = 0.0;
        for (const AcDbObjectId& id : *ids) {
            const Open<AcDbSolid> solid(id);
            EXPECT_EQ(solid->colorIndex(), 5);
            sum += faceOf(*solid.object());
        }
        EXPECT_NEAR(sum, area, 0.01 * area);
    }
}

TEST_F(MakeSolid, OpenAndCrossingCurvesAreNotFilled)
{
    AcCmColor color;
    AcDbObjectIdArray ids;
    AcGePoint3dArray points; // a bow tie
    const double corners[][2] = {{0, 0}, {2, 2}, {2, 0}, {0, 1}};
    for (const auto& c : corners)
        points.append({c[0], c[1], 0});
    AcDbObjectId open, crossing, line;
    ASSERT_EQ(CMakeEnt::MakePline(points, open, 0), 1);
    ASSERT_EQ(CMakeEnt::MakePline(points, crossing, 1), 1);
    ASSERT_EQ(CMakeEnt::MakeLine(east, west, line), 1);
    for (const AcDbObjectId& id : {open, crossing, line, AcDbObjectId()})
        EXPECT_EQ(CMakeEnt::MakeSolid(id, color, ids), 0);
    EXPECT_TRUE(ids.isEmpty());
    EXPECT_EQ(entityCount(), 3);
}
} // namespace
