#include "SavedEntities.h"

#include "EntityFixture.h"

#include "dbgroup.h"
#include "dbline.h"

namespace
{
using MakeGroup = EntityTest;

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

TEST_F(MakeGroup, EntitiesInsideOfBlocksCannotBeGrouped)
{
    AcDbObjectIdArray ids = twoLines();
    AcDbObjectId group;
    ids.append(add(new AcDbLine({0, 0, 0}, {1, 1, 0}), addBlock(L"DOOR")));
    EXPECT_EQ(CMakeEnt::MakeNoNameGroup(ids, group), 0);
    EXPECT_EQ(CMakeEnt::MakeGroup(L"PAIR", ids, group), 0);
    EXPECT_TRUE(group.isNull());
}

TEST_F(MakeGroup, EntitiesThatCannotBeChangedCannotBeGrouped)
{
    addLayer(L"LOCKED", true);
    AcDbObjectId locked, group;
    ASSERT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {1, 0, 0}, L"LOCKED", 256, locked), 1);
    AcDbObjectIdArray ids = twoLines();
    ids.append(ids[0]);
    ASSERT_EQ(CMakeEnt::MakeGroup(L"\u4e00\u7ec4 1", ids, group), 1);
    EXPECT_EQ(Open<AcDbGroup>(group)->numEntities(), 2u) << "each once";
    ids.append(locked);
    EXPECT_EQ(CMakeEnt::MakeNoNameGroup(ids, group), 0) << "a group is noted on its entities";
}

TEST_F(MakeGroup, FailureHalfWayLeavesNoTrace)
{
    const AcDbObjectIdArray ids = twoLines();
    AcDbObjectId group;
    {
        const Open<AcDbLine> held(ids[1]); // cannot be told of a group while it is being read
        EXPECT_EQ(CMakeEnt::MakeGroup(L"PAIR", ids, group), 0);
    }
    EXPECT_TRUE(group.isNull());
    ASSERT_EQ(CMakeEnt::MakeGroup(L"PAIR", ids, group), 1) << "the name is free";
    // Only the group that there is hangs on the line: erasing the line tells no other one.
    EXPECT_TRUE(Open<AcDbLine>(ids[0])->hasPersistentReactor(group));
    EXPECT_EQ(Open<AcDbGroup>(group)->numEntities(), 2u);
}

TEST_F(MakeGroup, GroupsAndTheirMembersAreSaved)
{
    const AcDbObjectIdArray lines = twoLines();
    AcDbObjectId extra, named, first, second;
    ASSERT_EQ(CMakeEnt::MakeLine({5, 5, 0}, {6, 6, 0}, extra), 1);
    AcDbObjectIdArray three = lines;
    three.append(extra);
    ASSERT_EQ(CMakeEnt::MakeGroup(L"\u95e8", three, named), 1);
    ASSERT_EQ(CMakeEnt::MakeNoNameGroup(lines, first), 1);
    ASSERT_EQ(CMakeEnt::MakeNoNameGroup(lines, second), 1);
    Open<AcDbLine>(extra, AcDb::kForWrite)->erase();
    ASSERT_EQ(CMakeEnt::ExplodNoNameGroup(L"*A1"), 1);
    SavedEntities saved(*database());
    const auto read = saved.of<AcDbGroup>(named), anonymous = saved.of<AcDbGroup>(second);
    EXPECT_EQ(read->name(), L"\u95e8");
    EXPECT_EQ(read->numEntities(), 2u) << "without the one that was erased";
    EXPECT_TRUE(read->isSelectable());
    EXPECT_FALSE(read->isAnonymous());
    EXPECT_EQ(anonymous->name(), L"*A2");
    EXPECT_TRUE(anonymous->isAnonymous());
    const AcDbObjectPointer<AcDbDictionary> groups(saved.drawing().groupDictionaryId(), AcDb::kForRead);
    EXPECT_EQ(groups->numEntries(), 2u);
}

TEST_F(MakeGroup, OneMemberSelectsAllUntilTheGroupIsDissolved)
{
    const AcDbObjectIdArray lines = twoLines();
    AcDbObjectId group;
    ASSERT_EQ(CMakeEnt::MakeNoNameGroup(lines, group), 1);
    const ads_point at = {0.5, 0.0, 0.0};
    for (const long wanted : {2L, 1L}) {
        ads_name set = {};
        ASSERT_EQ(acedSSGet(nullptr, at, nullptr, nullptr, set), RTNORM);
        Adesk::Int32 length = 0;
        acedSSLength(set, &length);
        EXPECT_EQ(length, wanted);
        acedSSFree(set);
        EXPECT_EQ(CMakeEnt::ExplodNoNameGroup(L""), wanted == 2 ? 1 : 0);
    }
}

TEST_F(MakeGroup, GroupsThatSomebodyHasOpenStay)
{
    AcDbObjectId first, second;
    ASSERT_EQ(CMakeEnt::MakeNoNameGroup(twoLines(), first), 1);
    ASSERT_EQ(CMakeEnt::MakeNoNameGroup(twoLines(), second), 1);
    const Open<AcDbGroup> held(first);
    EXPECT_EQ(CMakeEnt::ExplodNoNameGroup(L""), 1);
    EXPECT_FALSE(first.isErased());
    EXPECT_TRUE(second.isErased());
    EXPECT_EQ(CMakeEnt::ExplodNoNameGroup(L""), 0);
}
} // namespace
