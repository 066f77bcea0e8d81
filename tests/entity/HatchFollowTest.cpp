/// Hatches that follow their boundaries through every kind of change.

#include "SavedDrawing.h"

#include "dbcircle.h"
#include "dbelipse.h"
#include "dbhatch.h"
#include "dbline.h"
#include "dbspline.h"
#include "EntityFixture.h"

namespace
{
class HatchFollowTest : public EntityTest
{
protected:
    AcDbObjectId hatchOver(const AcDbObjectIdArray& ids)
    {
        AcDbObjectId id;
        EXPECT_EQ(CMakeEnt::MakeHatch(ids, id, L"SOLID", 1.0, 0.0), 1);
        return id;
    }
    void move(AcDbObjectId id, const AcGeMatrix3d& map)
    {
        EXPECT_EQ(Open<AcDbEntity>(id, AcDb::kForWrite)->transformBy(map), Acad::eOk);
    }
    static AcGePoint3d middleOf(AcDbObjectId id)
    {
        AcDbExtents box;
        EXPECT_EQ(Open<AcDbEntity>(id)->getGeomExtents(box), Acad::eOk);
        return box.minPoint() + (box.maxPoint() - box.minPoint()) / 2;
    }
    static void expectSameMiddle(AcDbObjectId a, AcDbObjectId b)
    {
        const AcGePoint3d p = middleOf(a), q = middleOf(b);
        EXPECT_LT(p.distanceTo(q), 1e-6) << p.x << ", " << p.y << ", " << p.z;
    }

    const AcGeMatrix3d m_shift = AcGeMatrix3d::translation({100, 50, 0});
    const AcGeMatrix3d m_lift = AcGeMatrix3d::translation({0, 0, 7});
    const AcGeMatrix3d m_tilt = AcGeMatrix3d::rotation(0.5, {1, 2, 3}, {4, 0, 0});
};

TEST_F(HatchFollowTest, EveryKindOfBoundaryIsFollowedWhenItMovesAndIsScaled)
{
    AcGePoint3dArray corners, wave;
    for (const AcGePoint3d& p : {AcGePoint3d(0, 0, 0), AcGePoint3d(4, 0, 0), AcGePoint3d(4, 3, 0)})
        corners.append(p);
    for (const AcGePoint3d& p : {AcGePoint3d(0, 0, 0), AcGePoint3d(4, 1, 0), AcGePoint3d(3, 5, 0),
                                 AcGePoint3d(-1, 2, 0), AcGePoint3d(0, 0, 0)})
        wave.append(p);
    AcArray<double> bulges;
    bulges.append(0.5);
    AcDbObjectId straight, bulged, ellipse, spline;
    ASSERT_EQ(CMakeEnt::MakePline(corners, straight, 1), 1);
    ASSERT_EQ(CMakeEnt::MakePline(corners, bulged, bulges, 1), 1);
    ASSERT_EQ(CMakeEnt::MakeEllipse({0, 0, 0}, {1, 1, 0}, 3.0, 2.0, ellipse), 1);
    ASSERT_EQ(CMakeEnt::MakeSpline(wave, spline), 1);
    std::unique_ptr<AcDbRegion> made(CMakeEnt::MakeRegion(corners));
    AcDbObjectId region;
    ASSERT_EQ(CArxUtils::CDatabase::AddToDb(made.get(), region), 1);
    made.release()->close();
    for (const AcDbObjectId& id : {straight, bulged, ellipse, spline, region, circle(1, 2, 3)}) {
        SCOPED_TRACE(CString(id.objectClass()->name()).GetString());
        const AcDbObjectId hatch = hatchOver(listOf({id}));
        const double area = areaOf(hatch);
        EXPECT_GT(area, 1.0);
        move(id, m_shift);
        expectSameMiddle(hatch, id);
        move(id, AcGeMatrix3d::scaling(2.0, {5, 5, 0}));
        EXPECT_NEAR(areaOf(hatch), 4 * area, 1e-6);
        move(id, m_lift);
        expectSameMiddle(hatch, id);
        move(id, m_tilt);
        expectSameMiddle(hatch, id);
        EXPECT_NEAR(areaOf(hatch), 4 * area, 1e-6);
        EXPECT_TRUE(Open<AcDbHatch>(hatch)->associative());
    }
}

TEST_F(HatchFollowTest, ChainsAreFollowedOnceTheLastOfTheirCurvesHasMoved)
{
    AcDbObjectId arc;
    ASSERT_EQ(CMakeEnt::MakeArc({0, 2, 0}, 2.0, kPi / 2, 3 * kPi / 2, arc), 1);
    const auto ids = listOf({line(0, 0, 4, 0), line(4, 4, 4, 0), arc, line(4, 4, 0, 4)});
    const AcDbObjectId island = circle(2, 2, 1);
    AcDbObjectIdArray all = ids;
    all.append(island);
    const AcDbObjectId hatch = hatchOver(all);
    const double area = 16 + 2 * kPi - kPi;
    EXPECT_NEAR(areaOf(hatch), area, 1e-6);
    for (const AcGeMatrix3d& map : {m_shift, m_lift, m_tilt}) {
        const AcGePoint3d wanted = map * middleOf(island);
        for (const AcDbObjectId& id : all)
            move(id, map);
        EXPECT_NEAR(areaOf(hatch), area, 1e-6);
        EXPECT_LT(middleOf(island).distanceTo(wanted), 1e-9);
        AcDbExtents box, part;
        ASSERT_EQ(Open<AcDbHatch>(hatch)->getGeomExtents(box), Acad::eOk);
        AcDbExtents wide;
        for (const AcDbObjectId& id : ids) {
            ASSERT_EQ(Open<AcDbEntity>(id)->getGeomExtents(part), Acad::eOk);
            wide.addExt(part);
        }
        EXPECT_LT(box.minPoint().distanceTo(wide.minPoint()), 1e-6);
        EXPECT_LT(box.maxPoint().distanceTo(wide.maxPoint()), 1e-6);
    }
}

TEST_F(HatchFollowTest, StretchedCornersAreFollowed)
{
    const auto ids = listOf({line(0, 0, 4, 0), line(4, 0, 4, 4), line(4, 4, 0, 4), line(0, 4, 0, 0)});
    const AcDbObjectId hatch = hatchOver(ids);
    Open<AcDbLine>(ids[0], AcDb::kForWrite)->setEndPoint({6, 0, 0});
    EXPECT_NEAR(areaOf(hatch), 16.0, 1e-9) << "the chain is open: the hatch waits";
    Open<AcDbLine>(ids[1], AcDb::kForWrite)->setStartPoint({6, 0, 0});
    EXPECT_NEAR(areaOf(hatch), 20.0, 1e-9);
    EXPECT_TRUE(Open<AcDbHatch>(hatch)->associative());
}

TEST_F(HatchFollowTest, RegionsWithHolesAreFollowedWithAllTheirLoops)
{
    AcDbCircle outer({0, 0, 0}, AcGeVector3d::kZAxis, 5.0), hole({1, 0, 0}, AcGeVector3d::kZAxis, 2.0);
    AcArray<void*> curves;
    curves.append(&outer);
    curves.append(&hole);
    std::unique_ptr<AcDbRegion> made(CMakeEnt::MakeRegion(curves));
    ASSERT_TRUE(made);
    AcDbObjectId region;
    ASSERT_EQ(CArxUtils::CDatabase::AddToDb(made.get(), region), 1);
    made.release()->close();
    const AcDbObjectId hatch = hatchOver(listOf({region}));
    move(region, AcGeMatrix3d::scaling(3.0, {9, 9, 0}));
    EXPECT_EQ(Open<AcDbHatch>(hatch)->numLoops(), 2);
    EXPECT_NEAR(areaOf(hatch), 9 * 21 * kPi, 1e-6);
    {
        // A disc that covers the hole.
        AcDbVoidPtrArray discs, made2;
        AcDbCircle disc({-15, -18, 0}, AcGeVector3d::kZAxis, 7.0);
        discs.append(&disc);
        ASSERT_EQ(AcDbRegion::createFromCurves(discs, made2), Acad::eOk);
        const std::unique_ptr<AcDbRegion> plug(static_cast<AcDbRegion*>(made2[0]));
        ASSERT_EQ(Open<AcDbRegion>(region, AcDb::kForWrite)->booleanOper(AcDb::kBoolUnite, plug.get()),
                  Acad::eOk);
    }
    EXPECT_EQ(Open<AcDbHatch>(hatch)->numLoops(), 1);
    EXPECT_NEAR(areaOf(hatch), 9 * 25 * kPi, 1e-6);
}

TEST_F(HatchFollowTest, ErasedBoundariesLeaveTheHatchAsItWas)
{
    const AcDbObjectId outer = circle(0, 0, 5), inner = circle(0, 0, 2);
    const AcDbObjectId hatch = hatchOver(listOf({outer, inner}));
    erase(inner);
    EXPECT_TRUE(Open<AcDbHatch>(hatch)->associative()) << "the outer one is still there";
    EXPECT_NEAR(areaOf(hatch), 21 * kPi, 1e-6);
    Open<AcDbCircle>(outer, AcDb::kForWrite)->setRadius(6.0);
    EXPECT_NEAR(areaOf(hatch), 32 * kPi, 1e-6);
    erase(outer);
    EXPECT_FALSE(Open<AcDbHatch>(hatch)->associative());
    EXPECT_NEAR(areaOf(hatch), 32 * kPi, 1e-6);
}

TEST_F(HatchFollowTest, BoundariesOnLockedLayersAreFollowedOnceUnlocked)
{
    const AcDbObjectId layer = addLayer(L"LOCKED", true);
    const AcDbObjectId round = circle(0, 0, 1);
    ASSERT_EQ(Open<AcDbEntity>(round, AcDb::kForWrite)->setLayer(layer), Acad::eOk);
    const AcDbObjectId hatch = hatchOver(listOf({round}));
    Open<AcDbLayerTableRecord>(layer, AcDb::kForWrite)->setIsLocked(false);
    Open<AcDbCircle>(round, AcDb::kForWrite)->setRadius(2.0);
    EXPECT_NEAR(areaOf(hatch), 4 * kPi, 1e-6);
}

TEST_F(HatchFollowTest, HatchesOfASavedDrawingFollowOn)
{
    const AcDbObjectId round = circle(0, 0, 1), hatch = hatchOver(listOf({round, circle(5, 0, 1)}));
    const AcDbHandle roundHandle = round.handle(), hatchHandle = hatch.handle();
    const dxftest::OutputFolder folder;
    const std::filesystem::path path = folder.file("follow.dxf");
    ASSERT_EQ(database()->saveAs(path.wstring().c_str()), Acad::eOk);
    AcDbDatabase again(false);
    ASSERT_EQ(again.readDwgFile(path.wstring().c_str()), Acad::eOk);
    AcDbObjectId roundAgain, hatchAgain;
    ASSERT_EQ(again.getAcDbObjectId(roundAgain, false, roundHandle), Acad::eOk);
    ASSERT_EQ(again.getAcDbObjectId(hatchAgain, false, hatchHandle), Acad::eOk);
    Open<AcDbCircle>(roundAgain, AcDb::kForWrite)->setRadius(2.0);
    EXPECT_NEAR(areaOf(hatchAgain), 5 * kPi, 1e-6);
}
} // namespace
