/// Boundaries traced among the entities of a selection set.

#include "EntityFixture.h"

#include "acdbads.h"
#include "db2dpl.h"

#include <functional>

namespace
{
class MakeBoundaryBySet : public EntityTest
{
protected:
    /// Runs a maker as a command with the set of some entities.
    int among(const AcDbObjectIdArray& candidates, const std::function<int(const ads_name)>& maker)
    {
        ads_name set = {};
        for (const AcDbObjectId& id : candidates) {
            ads_name entity = {};
            acdbGetAdsName(entity, id);
            acedSSAdd(entity, set, set);
        }
        int result = -1;
        asCommand([&] { result = maker(set); });
        if (!candidates.isEmpty()) {
            EXPECT_EQ(acedSSFree(set), RTNORM) << "the set stays the caller's";
        }
        return result;
    }
};
TEST_F(MakeBoundaryBySet, EntitiesOutsideOfTheSetDoNotBound)
{
    turnUcs();
    const auto outer = rectangle(0, 0, 10, 10), round = circle(5, 5, 3);
    rectangle(0, 0, 2, 2); // the smallest one around the point, but not in the set
    const auto set = listOf({outer, round});
    AcDbObjectIdArray ids;
    ASSERT_EQ(among(set,
                    [&](const ads_name name) {
                        return CMakeEnt::MakeBoundary({1, 1, 0}, name, ids, 1, 0);
                    }),
              1);
    ASSERT_EQ(ids.length(), 2);
    const double areas[] = {100.0, 9 * kPi};
    for (int i = 0; i < 2; ++i) {
        double area = 0.0;
        Open<AcDbPolyline>(ids[i])->getArea(area);
        EXPECT_NEAR(area, areas[i], 1e-6);
    }
    AcDbExtents box;
    Open<AcDbPolyline>(ids[0])->getGeomExtents(box);
    EXPECT_POINT(box.minPoint(), 0, 20, 0);
    ids.setLogicalLength(0);
    ASSERT_EQ(among(set,
                    [&](const ads_name name) {
                        return CMakeEnt::MakeBoundary({1, 1, 0}, name, ids, 0, 1);
                    }),
              1);
    EXPECT_EQ(ids.length(), 1) << "without islands";
    EXPECT_TRUE(ids[0].objectClass()->isDerivedFrom(AcDbRegion::desc()));
}

TEST_F(MakeBoundaryBySet, OneRegionHasItsIslandsCutOut)
{
    const auto set = listOf({rectangle(0, 0, 10, 10), circle(5, 5, 3)});
    AcDbObjectId region, polyline;
    ASSERT_EQ(among(set,
                    [&](const ads_name name) {
                        return CMakeEnt::MakeBoundary({1, 1, 0}, name, region, 1, 1);
                    }),
              1);
    EXPECT_NEAR(areaOf(region), 100 - 9 * kPi, 1e-6);
    EXPECT_EQ(entityCount(), 3) << "the regions that it was made of are gone";
    ASSERT_EQ(among(set,
                    [&](const ads_name name) {
                        return CMakeEnt::MakeBoundary({1, 1, 0}, name, polyline, 1, 0);
                    }),
              1);
    EXPECT_EQ(Open<AcDbPolyline>(polyline).openStatus(), Acad::eOk);
    EXPECT_EQ(entityCount(), 4);
}

TEST_F(MakeBoundaryBySet, CurrentLayerThatIsLockedTakesTheRegion)
{
    const auto set = listOf({rectangle(0, 0, 10, 10), circle(5, 5, 3)});
    const AcDbObjectId layer = addLayer(L"LOCKED", true);
    ASSERT_EQ(database()->setClayer(layer), Acad::eOk);
    AcDbObjectId region;
    ASSERT_EQ(among(set,
                    [&](const ads_name name) {
                        return CMakeEnt::MakeBoundary({1, 1, 0}, name, region, 1, 1);
                    }),
              1);
    EXPECT_NEAR(areaOf(region), 100 - 9 * kPi, 1e-6);
    EXPECT_EQ(Open<AcDbRegion>(region)->layerId(), layer);
    EXPECT_EQ(entityCount(), 3) << "the regions that it was made of are gone";
}

TEST_F(MakeBoundaryBySet, RunningSnapsAndTheKindOfOutlineAreTheUsersOwn)
{
    const auto set = listOf({rectangle(0, 0, 10, 10)});
    const CFamStuSysVar snaps(L"OSMODE", 1), onTypedPoints(L"OSNAPCOORD", 0), kind(L"HPBOUND", 0);
    AcDbObjectId polyline;
    ASSERT_EQ(among(set,
                    [&](const ads_name name) {
                        return CMakeEnt::MakeBoundary({0.01, 0.01, 0}, name, polyline, 0, 0);
                    }),
              1)
        << "the corner nearby does not catch the point";
    int value = -1;
    EXPECT_EQ(CFamStuSysVar::Get(L"OSMODE", value) + value, 2);
    EXPECT_EQ(CFamStuSysVar::Get(L"HPBOUND", value) + value, 1);
}

TEST_F(MakeBoundaryBySet, WhatBelongsToTheLastEntityIsNotTakenForNew)
{
    const auto set = listOf({rectangle(0, 0, 10, 10)});
    AcGePoint3dArray points;
    for (const AcGePoint3d& p : {AcGePoint3d(20, 0, 0), AcGePoint3d(30, 0, 0), AcGePoint3d(30, 9, 0)})
        points.append(p);
    AcDbObjectId id;
    auto* const last = new AcDb2dPolyline(AcDb::k2dSimplePoly, points, 0.0, true);
    ASSERT_EQ(CArxUtils::CDatabase::AddToDb(last, id), 1);
    last->close();
    AcDbObjectIdArray ids;
    ASSERT_EQ(among(set,
                    [&](const ads_name name) {
                        return CMakeEnt::MakeBoundary({1, 1, 0}, name, ids, 1, 0);
                    }),
              1);
    EXPECT_EQ(ids.length(), 1);
}

TEST_F(MakeBoundaryBySet, BadSetsAndPointsAddNothing)
{
    const auto set = listOf({rectangle(0, 0, 10, 10)});
    AcDbObjectIdArray ids;
    AcDbObjectId id;
    const AcGePoint3d points[] = {{50, 50, 0}, {10, 5, 0}, {kNan, 0, 0}, {-kInf, 0, 0}, {0, 0, kInf}};
    for (const AcGePoint3d& pt : points)
        for (const int asRegions : {0, 1}) {
            EXPECT_EQ(
                among(set,
                      [&](const ads_name n) { return CMakeEnt::MakeBoundary(pt, n, ids, 1, asRegions); }),
                0);
            EXPECT_EQ(
                among(set, [&](const ads_name n) { return CMakeEnt::MakeBoundary(pt, n, id, 1, asRegions); }),
                0);
        }
    const AcDbObjectIdArray none;
    EXPECT_EQ(among(none,
                    [&](const ads_name n) {
                        return CMakeEnt::MakeBoundary({1, 1, 0}, n, ids, 1, 0);
                    }),
              0);
    EXPECT_EQ(among(none,
                    [&](const ads_name n) {
                        return CMakeEnt::MakeBoundary({1, 1, 0}, n, id, 1, 1);
                    }),
              0);
    EXPECT_TRUE(ids.isEmpty() && id.isNull());
    EXPECT_EQ(entityCount(), 1);
}
} // namespace
