#include "EntityFixture.h"

#include "dbline.h"
#include "dbpoint.h"
#include "dbspline.h"

namespace
{
using MakeLine = EntityTest;
using MakePline = EntityTest;
using MakeRect = EntityTest;
using MakeSpline = EntityTest;
using AddToDb = EntityTest;

TEST_F(MakeLine, PointsAreThoseOfTheUserCoordinateSystem)
{
    turnUcs();
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {1, 0, 0}, id), 1);
    const Open<AcDbLine> line(id);
    EXPECT_POINT(line->startPoint(), 10, 20, 0);
    EXPECT_POINT(line->endPoint(), 10, 21, 0);
}

TEST_F(MakeLine, ColourIsClampedAndLayerTaken)
{
    addLayer(L"WALL");
    const std::pair<int, int> cases[] = {{-5, 0}, {0, 0}, {1, 1}, {256, 256}, {300, 256}};
    for (const auto& [given, taken] : cases) {
        AcDbObjectId id;
        ASSERT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {1, 0, 0}, L"wall", given, id), 1);
        const Open<AcDbLine> line(id);
        EXPECT_EQ(line->colorIndex(), taken) << given;
        CString layer;
        line->layer(layer);
        EXPECT_EQ(layer, L"WALL");
    }
}

TEST_F(MakeLine, OtherPropertiesAreTheDrawingsCurrentOnes)
{
    const AcDbObjectId layer = addLayer(L"NEW");
    database()->setClayer(layer);
    database()->setCeltscale(2.5);
    AcCmColor red;
    red.setColorIndex(1);
    database()->setCecolor(red);
    AcDbObjectId id, colored;
    ASSERT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {1, 0, 0}, id), 1);
    ASSERT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {1, 0, 0}, L"", 7, colored), 1);
    const Open<AcDbLine> line(id), other(colored);
    EXPECT_EQ(line->layerId(), layer);
    EXPECT_EQ(line->linetypeScale(), 2.5);
    EXPECT_EQ(line->colorIndex(), 1);
    EXPECT_EQ(other->colorIndex(), 7);
    EXPECT_EQ(other->layerId(), layer);
}

TEST_F(MakeLine, MissingLayerAddsNothingAndLockedLayerTakesTheLine)
{
    const AcDbObjectId locked = addLayer(L"LOCKED", true);
    AcDbObjectId id;
    EXPECT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {1, 0, 0}, L"NOWHERE", 1, id), 0);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(entityCount(), 0);
    EXPECT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {1, 0, 0}, L"LOCKED", 1, id), 1);
    EXPECT_EQ(Open<AcDbLine>(id)->layerId(), locked);
}

TEST_F(MakeLine, EqualPointsMakeALineWithoutLength)
{
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakeLine({3, 4, 5}, {3, 4, 5}, id), 1);
    EXPECT_POINT(Open<AcDbLine>(id)->endPoint(), 3, 4, 5);
    EXPECT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {1, 1, 0}), 1);
    EXPECT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {1, 1, 0}, 3), 1);
    EXPECT_EQ(entityCount(), 3);
}

TEST_F(MakeLine, UnlockedDocumentTakesNothing)
{
    unlock();
    AcDbObjectId id;
    EXPECT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {1, 0, 0}, id), 0);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(entityCount(), 0);
}

TEST_F(AddToDb, EntityStaysTheCallersWhenItCannotBeAdded)
{
    AcDbObjectId id;
    EXPECT_EQ(CArxUtils::CDatabase::AddToDb(nullptr, id), 0);
    const auto loose = std::make_unique<AcDbPoint>(AcGePoint3d(1, 2, 3));
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_EQ(CArxUtils::CDatabase::AddToDb(loose.get(), id), 0);
    EXPECT_EQ(CArxUtils::CUcsWcs::UcsToWcs(loose.get()), 0);
    acdbHostApplicationServices()->setWorkingDatabase(database());
    const Open<AcDbBlockTableRecord> space(database()->modelSpaceId());
    EXPECT_EQ(CArxUtils::CDatabase::AddToDb(loose.get(), id), 0) << "somebody reads the space";
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(loose->database(), nullptr);
}

TEST_F(AddToDb, EntityIsOpenForWriteUntilTheCallerClosesIt)
{
    AcDbObjectId id;
    auto* const point = new AcDbPoint(AcGePoint3d(1, 2, 3));
    ASSERT_EQ(CArxUtils::CDatabase::AddToDb(point, id), 1);
    EXPECT_EQ(CArxUtils::CDatabase::AddToDb(point, id), 0) << "it is in the drawing already";
    EXPECT_EQ(point->setPosition({4, 5, 6}), Acad::eOk);
    point->close();
    EXPECT_POINT(Open<AcDbPoint>(id)->position(), 4, 5, 6);
}

TEST_F(EntityTest, TextsAndDimensionsThatAreNotFiniteAddNothing)
{
    AcDbObjectId id;
    for (const double bad : {kNan, kInf, -kInf}) {
        const AcGePoint3d p(bad, 0, 0), q(1, 1, 0);
        EXPECT_EQ(CMakeEnt::MakeText(p, L"text", id, 1.0), 0);
        EXPECT_EQ(CMakeEnt::MakeText(q, L"text", id, bad), 0);
        EXPECT_EQ(CMakeEnt::MakeText(q, L"text", id, 1.0, kAligTopRight, bad), 0);
        EXPECT_EQ(CMakeEnt::MakeText(kSoftCommon, p, L"text", id, kAligLeft, kTextClassParagraph), 0);
        EXPECT_EQ(CMakeEnt::MakeMText(p, L"text", AcDbObjectId::kNull, 1.0, 0.0, id), 0);
        EXPECT_EQ(CMakeEnt::MakeMText(q, L"text", AcDbObjectId::kNull, 1.0, bad, id), 0);
        AcDbObjectIdArray ids;
        EXPECT_EQ(CMakeEnt::MakeCoordDim4(p, ids, 0, 5.0), 0);
        EXPECT_EQ(CMakeEnt::MakeCoordDim1(q, ids, 0, bad), 0);
        EXPECT_TRUE(ids.isEmpty());
    }
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(entityCount(), 0);
}

TEST_F(MakeRect, SidesRunAtTheAngleBetweenTheGivenCorners)
{
    AcDbObjectId id;
    // Along (1, 1) and (-1, 1) the diagonal from (0, 0) to (0, 2) is that of a square with sides of sqrt 2.
    ASSERT_EQ(CMakeEnt::MakeRect({0, 0, 7}, {0, 2, 9}, id, kPi / 4), 1);
    const Open<AcDbPolyline> rectangle(id);
    ASSERT_EQ(rectangle->numVerts(), 4u);
    EXPECT_TRUE(rectangle->isClosed());
    const AcGePoint3d corners[] = {{0, 0, 7}, {1, 1, 7}, {0, 2, 7}, {-1, 1, 7}};
    for (unsigned i = 0; i < 4; ++i) {
        AcGePoint3d corner;
        rectangle->getPointAt(i, corner);
        EXPECT_POINT(corner, corners[i]);
    }
    EXPECT_EQ(CMakeEnt::MakeRect({0, 0, 0}, {5, 0, 0}, id), 0) << "no height";
    EXPECT_EQ(CMakeEnt::MakeRect({0, 0, 0}, {5, 5, 0}, id, kPi / 4), 0) << "no height along the diagonal";
    EXPECT_EQ(entityCount(), 1);
}

AcGePoint3dArray corner()
{
    AcGePoint3dArray points;
    points.append({0, 0, 3});
    points.append({4, 0, 3});
    points.append({4, 3, 9});
    return points;
}

TEST_F(MakePline, XAndYAreWorldCoordinatesInAnyUserCoordinateSystem)
{
    turnUcs();
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakePline(corner(), id, 1, 0.5), 1);
    const Open<AcDbPolyline> polyline(id);
    AcGePoint3d last;
    ASSERT_EQ(polyline->getPointAt(2, last), Acad::eOk);
    EXPECT_POINT(last, 4, 3, 0);
    EXPECT_TRUE(polyline->isClosed());
    double width = 0.0;
    EXPECT_EQ(polyline->getConstantWidth(width), Acad::eOk);
    EXPECT_EQ(width, 0.5);
}

TEST_F(MakePline, BulgesGoToTheirVerticesAndMissingOnesAreZero)
{
    AcArray<double> bulges;
    bulges.append(1.0);
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakePline(corner(), id, bulges, 0), 1);
    const Open<AcDbPolyline> polyline(id);
    // A half circle over a chord of 4, then a line of 3.
    double end = 0.0, length = 0.0;
    polyline->getEndParam(end);
    polyline->getDistAtParam(end, length);
    EXPECT_NEAR(length, 2 * kPi + 3, 1e-9);
    bulges.append(kNan);
    EXPECT_EQ(CMakeEnt::MakePline(corner(), id, bulges, 0), 0);
}

TEST_F(MakePline, PointerFormLeavesThePolylineToTheCaller)
{
    const std::unique_ptr<AcDbPolyline> polyline(CMakeEnt::MakePline(corner(), 0, 0.0));
    ASSERT_TRUE(polyline);
    EXPECT_EQ(polyline->database(), nullptr);
    EXPECT_FALSE(polyline->isClosed());
    EXPECT_EQ(entityCount(), 0);
}

TEST_F(MakeSpline, RingIsSmoothWhereItCloses)
{
    AcGePoint3dArray points;
    const double ring[][2] = {{0, 0}, {4, 1}, {3, 5}, {-1, 2}, {0, 0}};
    for (const auto& p : ring)
        points.append({p[0], p[1], 0});
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakeSpline(points, id), 1);
    const Open<AcDbSpline> spline(id);
    EXPECT_TRUE(spline->isClosed());
    double from = 0.0, to = 0.0;
    spline->getStartParam(from);
    spline->getEndParam(to);
    AcGeVector3d out, in;
    ASSERT_EQ(spline->getFirstDeriv(from, out), Acad::eOk);
    ASSERT_EQ(spline->getFirstDeriv(to, in), Acad::eOk);
    EXPECT_TRUE(out.isCodirectionalTo(in, AcGeTol().setEqualVector(1e-9)));
}

TEST_F(MakeSpline, CurvePassesThroughItsPoints)
{
    turnUcs();
    AcGePoint3dArray points = corner();
    points.append(AcGePoint3d(points.last())); // twice the same point counts once
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakeSpline(points, id), 1);
    const Open<AcDbSpline> spline(id);
    EXPECT_EQ(spline->numFitPoints(), 3);
    for (const AcGePoint3d& p : corner()) {
        const AcGePoint3d inWorld(10 - p.y, 20 + p.x, p.z);
        AcGePoint3d nearest;
        ASSERT_EQ(spline->getClosestPointTo(inWorld, nearest), Acad::eOk);
        EXPECT_LT(nearest.distanceTo(inWorld), 1e-6);
    }
    AcGePoint3dArray one;
    one.append({1, 1, 1});
    one.append({1, 1, 1});
    EXPECT_EQ(CMakeEnt::MakeSpline(one, id), 0);
    EXPECT_EQ(CMakeEnt::MakeSpline(AcGePoint3dArray(), id), 0);
}
} // namespace
