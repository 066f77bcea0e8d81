#include "EntityFixture.h"

#include "dbdimordinate.h"
#include "dbgroup.h"

namespace
{
using MakeGroup = EntityTest;
using MakeCoordDim = EntityTest;

AcDbObjectIdArray twoLines()
{
    AcDbObjectIdArray ids;
    AcDbObjectId id;
    for (const double y : {0.0, 1.0}) {
        CMakeEnt::MakeLine({0, y, 0}, {1, y, 0}, id);
        ids.append(id);
    }
    return ids;
}

TEST_F(MakeGroup, EntitiesBelongInTheirOrder)
{
    const AcDbObjectIdArray lines = twoLines();
    AcDbObjectId named, anonymous;
    ASSERT_EQ(CMakeEnt::MakeGroup(L"DOOR", lines, named), 1);
    ASSERT_EQ(CMakeEnt::MakeNoNameGroup(lines, anonymous), 1);
    for (const AcDbObjectId& id : {named, anonymous}) {
        const Open<AcDbGroup> group(id);
        AcDbObjectIdArray members;
        group->allEntityIds(members);
        EXPECT_TRUE(members == lines);
        EXPECT_TRUE(group->isSelectable());
        EXPECT_EQ(group->isAnonymous(), id == anonymous);
    }
    EXPECT_EQ(Open<AcDbGroup>(named)->name(), L"DOOR");
    EXPECT_EQ(Open<AcDbGroup>(anonymous)->name(), L"*A1");
}

TEST_F(MakeGroup, BadNamesAndIdsMakeNone)
{
    const AcDbObjectIdArray lines = twoLines();
    AcDbObjectId taken, id;
    ASSERT_EQ(CMakeEnt::MakeGroup(L"TAKEN", lines, taken), 1);
    for (const wchar_t* name : {L"", L"taken", L"a*", L"a|b"})
        EXPECT_EQ(CMakeEnt::MakeGroup(name, lines, id), 0) << name;
    AcDbObjectIdArray bad = lines;
    bad.append(AcDbObjectId());
    EXPECT_EQ(CMakeEnt::MakeGroup(L"NEW", bad, id), 0);
    bad.last() = database()->layerZero();
    EXPECT_EQ(CMakeEnt::MakeNoNameGroup(bad, id), 0);
    EXPECT_EQ(CMakeEnt::MakeNoNameGroup(AcDbObjectIdArray(), id), 0);
    EXPECT_TRUE(id.isNull());
    const Open<AcDbDictionary> groups(database()->groupDictionaryId());
    EXPECT_EQ(groups->numEntries(), 1u);
}

TEST_F(MakeGroup, OnlyAnonymousGroupsAreDissolved)
{
    const AcDbObjectIdArray lines = twoLines();
    AcDbObjectId named, first, second, third;
    ASSERT_EQ(CMakeEnt::MakeGroup(L"DOOR", lines, named), 1);
    ASSERT_EQ(CMakeEnt::MakeNoNameGroup(lines, first), 1);
    ASSERT_EQ(CMakeEnt::MakeNoNameGroup(lines, second), 1);
    ASSERT_EQ(CMakeEnt::MakeNoNameGroup(lines, third), 1);
    EXPECT_EQ(CMakeEnt::ExplodNoNameGroup(L"DOOR"), 0);
    EXPECT_EQ(CMakeEnt::ExplodNoNameGroup(L"*a2"), 1);
    EXPECT_TRUE(second.isErased());
    EXPECT_FALSE(first.isErased());
    EXPECT_EQ(CMakeEnt::ExplodNoNameGroup(L""), 1);
    EXPECT_TRUE(first.isErased() && third.isErased());
    EXPECT_FALSE(named.isErased());
    EXPECT_EQ(CMakeEnt::ExplodNoNameGroup(L""), 0);
    EXPECT_EQ(entityCount(), 2);
}

using Maker = int (*)(const AcGePoint3d&, AcDbObjectIdArray&, int, double, CGTStringW);
const Maker makers[] = {CMakeEnt::MakeCoordDim1, CMakeEnt::MakeCoordDim2, CMakeEnt::MakeCoordDim3,
                        CMakeEnt::MakeCoordDim4};

TEST_F(MakeCoordDim, LeadersGoRoundThePointAndMeasureAcross)
{
    turnUcs();
    for (int count = 1; count <= 4; ++count) {
        AcDbObjectIdArray ids;
        ASSERT_EQ(makers[count - 1]({30, 40, 0}, ids, 3, 10.0, L""), 1);
        ASSERT_EQ(ids.length(), count);
        for (int i = 0; i < count; ++i) {
            const Open<AcDbOrdinateDimension> dimension(ids[i]);
            const bool alongY = (3 + i) % 2 == 1; // sides 3 and 1
            EXPECT_NEAR(std::fabs(dimension->measurement()), alongY ? 30.0 : 40.0, 1e-9) << i;
            EXPECT_POINT(dimension->definingPoint(), 10 - 40, 20 + 30, 0);
            EXPECT_NEAR(dimension->leaderEndPoint().distanceTo(dimension->definingPoint()), 10.0, 1e-9);
            AcDbExtents box;
            EXPECT_EQ(dimension->getGeomExtents(box), Acad::eOk) << "it draws its leader and text";
        }
    }
    // The leader to side 3 runs along the user's -Y, which is the world's +X.
    AcDbObjectIdArray one;
    ASSERT_EQ(CMakeEnt::MakeCoordDim1({0, 5, 0}, one, 7, 10.0), 1);
    EXPECT_POINT(Open<AcDbOrdinateDimension>(one[0])->leaderEndPoint(), 15, 20, 0);
}

TEST_F(MakeCoordDim, MissingStyleOrBadLengthMakesNone)
{
    AcDbObjectIdArray ids;
    for (const Maker make : makers) {
        EXPECT_EQ(make({1, 2, 0}, ids, 0, 10.0, L"NOWHERE"), 0);
        EXPECT_EQ(make({1, 2, 0}, ids, 0, 0.0, L""), 0);
    }
    EXPECT_TRUE(ids.isEmpty());
    EXPECT_EQ(entityCount(), 0);
    EXPECT_EQ(CMakeEnt::MakeCoordDim2({1, 2, 0}, ids, -1, 10.0, L"standard"), 1);
    EXPECT_EQ(ids.length(), 2);
}
} // namespace
