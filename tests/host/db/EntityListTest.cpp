/// Objects as lists: acdbEntGet and its kin.

#include "acdbads.h"

#include "DatabaseFixture.h"
#include "ResbufSink.h"
#include "dbapserv.h"
#include "dbblock.h"
#include "dbline.h"
#include "dbobjptr.h"

namespace
{
const resbuf* nodeOf(const resbuf* list, int code)
{
    while (list && list->restype != code) list = list->rbnext;
    return list;
}

class EntityList : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        mBefore = acdbHostApplicationServices()->workingDatabase();
        acdbHostApplicationServices()->setWorkingDatabase(&mDatabase);
    }
    void TearDown() override
    {
        acdbHostApplicationServices()->setWorkingDatabase(mBefore);
        DatabaseFixture::TearDown();
    }

    /// A line from (1,2,3) to (4,5,6) on layer "QM", made through a list.
    void makeLine(ads_name name)
    {
        const ads_point start = {1, 2, 3}, end = {4, 5, 6};
        const ResbufList list(acutBuildList(RTDXF0, L"LINE", 8, L"QM", 62, 3, 10, start, 11, end, RTNONE));
        ASSERT_EQ(acdbEntMakeX(list.get(), name), RTNORM);
    }

    AcDbDatabase* mBefore = nullptr;
};
} // namespace

TEST_F(EntityList, EntityMadeFromAListGivesTheListBack)
{
    ads_name name;
    makeLine(name);
    const ResbufList list(acdbEntGet(name));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->restype, -1);
    EXPECT_TRUE(ads_name_equal(list->resval.rlname, name));
    EXPECT_STREQ(nodeOf(list.get(), 0)->resval.rstring, L"LINE");
    EXPECT_STREQ(nodeOf(list.get(), 100)->resval.rstring, L"AcDbEntity");
    EXPECT_STREQ(nodeOf(list.get(), 8)->resval.rstring, L"QM");
    EXPECT_EQ(nodeOf(list.get(), 62)->resval.rint, 3);
    EXPECT_EQ(nodeOf(list.get(), 11)->resval.rpoint[Z], 6.0);
    EXPECT_EQ(nodeOf(list.get(), 210)->resval.rpoint[Z], 1.0);
    EXPECT_EQ(nodeOf(list.get(), 20), nullptr);
    EXPECT_EQ(nodeOf(list.get(), -3), nullptr);
    EXPECT_EQ(nodeOf(list.get(), 330)->resval.rlname[0], mDatabase.modelSpaceId().asOldId());
    ads_name byHandle;
    EXPECT_EQ(acdbHandEnt(nodeOf(list.get(), 5)->resval.rstring, byHandle), RTNORM);
    EXPECT_TRUE(ads_name_equal(byHandle, name));
}

TEST_F(EntityList, ListsThatCannotBeUnderstoodMakeNothing)
{
    ads_name name;
    const int before = mDatabase.approxNumObjects();
    const ResbufList unknown(acutBuildList(RTDXF0, L"NOSUCHTHING", RTNONE));
    EXPECT_EQ(acdbEntMake(unknown.get()), RTREJ);
    const ResbufList nameless(acutBuildList(8, L"0", RTNONE));
    EXPECT_EQ(acdbEntMakeX(nameless.get(), name), RTREJ);
    const ResbufList badLinetype(acutBuildList(RTDXF0, L"LINE", 6, L"absent", RTNONE));
    EXPECT_EQ(acdbEntMakeX(badLinetype.get(), name), RTREJ);
    EXPECT_EQ(acdbEntMake(nullptr), RTREJ);
    EXPECT_EQ(mDatabase.approxNumObjects(), before);
}

TEST_F(EntityList, ModifyingChangesWhatTheListNamesAndKeepsTheRest)
{
    ads_name name;
    makeLine(name);
    const ads_point end = {7, 8, 9};
    const ResbufList change(acutBuildList(-1, name, 8, L"0", 11, end, RTNONE));
    EXPECT_EQ(acdbEntMod(change.get()), RTNORM);
    const AcDbObjectPointer<AcDbLine> line(AcDbObjectId().setFromOldId(name[0]));
    ASSERT_EQ(line.openStatus(), Acad::eOk);
    EXPECT_EQ(line->layerId(), mDatabase.layerZero());
    EXPECT_EQ(line->endPoint(), AcGePoint3d(7, 8, 9));
    EXPECT_EQ(line->startPoint(), AcGePoint3d(1, 2, 3));
    EXPECT_EQ(line->colorIndex(), 3);
    EXPECT_EQ(acdbEntMod(change.get()), RTERROR); // open
}

TEST_F(EntityList, AListThatIsPutBackUnchangedChangesNothing)
{
    ads_name name;
    makeLine(name);
    EXPECT_EQ(acdbRegApp(L"QM"), RTNORM);
    EXPECT_EQ(acdbRegApp(L"qm"), RTNORM);
    EXPECT_EQ(acdbRegApp(L"a<b"), RTERROR);
    const ResbufList all(acutBuildList(RTSTR, L"*", RTNONE));
    {
        ResbufList list(acdbEntGet(name));
        resbuf* tail = list.get();
        while (tail->rbnext) tail = tail->rbnext;
        tail->rbnext = acutBuildList(-3, 1001, L"QM", 1070, 7, RTNONE);
        EXPECT_EQ(acdbEntMod(list.get()), RTNORM);
    }
    const ResbufList list(acdbEntGetX(name, all.get()));
    EXPECT_EQ(nodeOf(list.get(), 1070)->resval.rint, 7);
    EXPECT_EQ(acdbEntMod(list.get()), RTNORM);
    const ResbufList again(acdbEntGetX(name, all.get()));
    const resbuf* node = again.get();
    for (const resbuf* before = list.get(); before; before = before->rbnext, node = node->rbnext) {
        ASSERT_TRUE(node);
        EXPECT_EQ(node->restype, before->restype);
    }
    EXPECT_EQ(node, nullptr);
    std::int32_t room = 0, size = 0;
    EXPECT_EQ(acdbXdSize(nodeOf(list.get(), -3), &size), RTNORM);
    EXPECT_EQ(acdbXdRoom(name, &room), RTNORM);
    EXPECT_EQ(room, 16383 - size);
}

TEST_F(EntityList, WalkPassesErasedEntities)
{
    ads_name lines[3], found;
    EXPECT_EQ(acdbEntNext(nullptr, found), RTERROR);
    for (ads_name& name : lines) makeLine(name);
    EXPECT_EQ(acdbEntDel(lines[1]), RTNORM);
    EXPECT_EQ(acdbEntGet(lines[1]), nullptr);
    ASSERT_EQ(acdbEntNext(nullptr, found), RTNORM);
    EXPECT_TRUE(ads_name_equal(found, lines[0]));
    ASSERT_EQ(acdbEntNext(found, found), RTNORM);
    EXPECT_TRUE(ads_name_equal(found, lines[2]));
    EXPECT_EQ(acdbEntNext(found, found), RTERROR);
    EXPECT_EQ(acdbEntDel(lines[1]), RTNORM);
    EXPECT_EQ(acdbEntDel(lines[2]), RTNORM);
    ASSERT_EQ(acdbEntLast(found), RTNORM);
    EXPECT_TRUE(ads_name_equal(found, lines[1]));
}

TEST_F(EntityList, BlockIsWhatStandsBetweenItsEnds)
{
    const ads_point origin = {1, 1, 0};
    const ResbufList head(acutBuildList(RTDXF0, L"BLOCK", 2, L"DOOR", 70, 0, 10, origin, RTNONE));
    const ResbufList end(acutBuildList(RTDXF0, L"ENDBLK", RTNONE));
    ads_name name;
    EXPECT_EQ(acdbEntMake(head.get()), RTNORM);
    makeLine(name);
    EXPECT_EQ(name[0], 0) << "not in the drawing yet";
    EXPECT_EQ(acdbEntMake(end.get()), RTKWORD);
    const ResbufList block(acdbTblSearch(L"block", L"door", 0));
    ASSERT_TRUE(block);
    const ResbufList line(acdbEntGet(nodeOf(block.get(), -2)->resval.rlname));
    ASSERT_TRUE(line);
    EXPECT_EQ(nodeOf(line.get(), 11)->resval.rpoint[Z], 6.0);
    EXPECT_EQ(nodeOf(block.get(), 10)->resval.rpoint[X], 1.0);
    EXPECT_EQ(acdbEntMake(end.get()), RTERROR);
}

TEST_F(EntityList, TablesAreSearchedAndWalked)
{
    const ResbufList zero(acdbTblSearch(L"LAYER", L"0", 1));
    ASSERT_TRUE(zero);
    EXPECT_STREQ(zero->resval.rstring, L"LAYER");
    EXPECT_STREQ(nodeOf(zero.get(), 2)->resval.rstring, L"0");
    EXPECT_EQ(nodeOf(zero.get(), 62)->resval.rint, 7);
    EXPECT_STREQ(nodeOf(zero.get(), 6)->resval.rstring, L"Continuous");
    EXPECT_EQ(nodeOf(zero.get(), 100), nullptr);
    EXPECT_EQ(acdbTblNext(L"LAYER", 0), nullptr);
    EXPECT_EQ(acdbTblSearch(L"LAYER", L"absent", 0), nullptr);
    EXPECT_EQ(acdbTblSearch(L"NOTABLE", L"0", 0), nullptr);
    int count = 0;
    for (ResbufList type(acdbTblNext(L"LTYPE", 1)); type; type.reset(acdbTblNext(L"LTYPE", 0))) ++count;
    EXPECT_EQ(count, 3); // by block, by layer, continuous
    ads_name name;
    EXPECT_EQ(acdbTblObjName(L"LAYER", L"0", name), RTNORM);
    EXPECT_EQ(name[0], mDatabase.layerZero().asOldId());
}

TEST_F(EntityList, DictionariesAreSearchedWalkedAndChanged)
{
    ads_name root, record;
    ASSERT_EQ(acdbNamedObjDict(root), RTNORM);
    const ResbufList list(acutBuildList(RTDXF0, L"XRECORD", 100, L"AcDbXrecord", 1, L"值", RTNONE));
    ASSERT_EQ(acdbEntMakeX(list.get(), record), RTNORM);
    EXPECT_EQ(acdbEntMake(list.get()), RTREJ); // no entity
    EXPECT_EQ(acdbDictAdd(root, L"QM", record), RTNORM);
    EXPECT_EQ(acdbDictAdd(root, L"qm", record), RTERROR);
    EXPECT_EQ(acdbDictRename(root, L"QM", L"AAA"), RTNORM);
    const ResbufList found(acdbDictSearch(root, L"aaa", 0));
    ASSERT_TRUE(found);
    EXPECT_STREQ(nodeOf(found.get(), 1)->resval.rstring, L"值");
    const ResbufList first(acdbDictNext(root, 1));
    EXPECT_TRUE(ads_name_equal(first->resval.rlname, record));
    EXPECT_EQ(acdbDictRemove(root, L"AAA"), RTNORM);
    EXPECT_EQ(acdbDictSearch(root, L"AAA", 0), nullptr);
}

TEST_F(EntityList, GuardsCloseOnEveryPath)
{
    {
        const AcDbLayerTableRecordPointer layer(L"0", &mDatabase, AcDb::kForWrite);
        ASSERT_EQ(layer.openStatus(), Acad::eOk);
        const AcDbLayerTableRecordPointer second(L"0", &mDatabase);
        EXPECT_EQ(second.openStatus(), Acad::eWasOpenForWrite);
        EXPECT_EQ(AcDbEntityPointer(mDatabase.modelSpaceId()).openStatus(), Acad::eNotThatKindOfClass);
        EXPECT_EQ(AcDbLayerTableRecordPointer(L"absent", &mDatabase).openStatus(), Acad::eKeyNotFound);
    }
    AcDbObjectPointer<AcDbLine> made;
    EXPECT_EQ(made.create(), Acad::eOk);
    const AcDbLayerTablePointer table(&mDatabase, AcDb::kForWrite);
    EXPECT_EQ(table.openStatus(), Acad::eOk);
}

TEST_F(EntityList, InventedNamesAreRefusedWithoutBeingRead)
{
    ads_name line;
    makeLine(line);
    // Addresses without memory, the inside of an object's place, and the last place of its 16 KiB, which a small
    // drawing does not use.
    const std::int64_t unused = (line[0] | 16383) - 31;
    for (const std::int64_t number : {std::int64_t(1), std::int64_t(0x7FFF00000000), line[0] + 8, unused}) {
        const ads_name invented = {number, 0};
        AcDbObjectId id;
        EXPECT_EQ(acdbGetObjectId(id, invented), Acad::eInvalidAdsName);
        EXPECT_EQ(acdbEntGet(invented), nullptr);
        EXPECT_EQ(acdbEntDel(invented), RTERROR);
    }
    AcDbObjectId id;
    EXPECT_EQ(acdbGetObjectId(id, line), Acad::eOk);
    ads_name gone = {0, 0};
    {
        AcDbDatabase other;
        ASSERT_EQ(acdbGetAdsName(gone, other.layerZero()), Acad::eOk);
    }
    EXPECT_EQ(acdbGetObjectId(id, gone), Acad::eInvalidAdsName);
}
