#include "dbsortentstbl.h"

#include "DatabaseFixture.h"
#include "RecordLists.h"
#include "dbblock.h"
#include "dbdict.h"
#include "dbline.h"

namespace
{
/// Four lines in model space and the table of its draw order.
class SortentsTable : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        AcDbBlockTableRecord* space = nullptr;
        ASSERT_EQ(acdbOpenObject(space, mDatabase.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
        for (AcDbObjectId& id : mLines) {
            auto* line = new AcDbLine;
            ASSERT_EQ(space->appendAcDbEntity(id, line), Acad::eOk);
            line->close();
        }
        ASSERT_EQ(space->createExtensionDictionary(), Acad::eOk);
        AcDbDictionary* extension = nullptr;
        ASSERT_EQ(acdbOpenObject(extension, space->extensionDictionary(), AcDb::kForWrite), Acad::eOk);
        mTable = new AcDbSortentsTable;
        AcDbObjectId id;
        ASSERT_EQ(extension->setAt(L"ACAD_SORTENTS", mTable, id), Acad::eOk);
        extension->close();
        space->close();
    }
    void TearDown() override
    {
        mTable->close();
        DatabaseFixture::TearDown();
    }

    AcDbObjectIdArray list(std::initializer_list<int> places)
    {
        AcDbObjectIdArray ids;
        for (const int place : places) ids.append(mLines[place]);
        return ids;
    }

    /// The places in mLines, the lowest first.
    std::string order()
    {
        AcDbObjectIdArray ids;
        EXPECT_EQ(mTable->getFullDrawOrder(ids), Acad::eOk);
        return placesOf(ids);
    }

    std::string placesOf(const AcDbObjectIdArray& ids)
    {
        std::string places;
        for (int i = 0; i < ids.length(); ++i)
            for (int place = 0; place < 4; ++place)
                if (mLines[place] == ids[i]) places += static_cast<char>('0' + place);
        return places;
    }

    AcDbObjectId mLines[4];
    AcDbSortentsTable* mTable = nullptr;
};
} // namespace

TEST_F(SortentsTable, MovesEntitiesUpAndDown)
{
    EXPECT_EQ(mTable->blockId(), mDatabase.modelSpaceId());
    EXPECT_FALSE(mTable->isRelativeDrawOrderUsed());
    EXPECT_EQ(order(), "0123");
    EXPECT_EQ(mTable->moveToTop(list({2, 0})), Acad::eOk);
    EXPECT_EQ(order(), "1302"); // 0 stays below 2
    EXPECT_EQ(mTable->moveToBottom(list({2})), Acad::eOk);
    EXPECT_EQ(order(), "2130");
    EXPECT_EQ(mTable->moveAbove(list({2}), mLines[3]), Acad::eOk);
    EXPECT_EQ(order(), "1320");
    EXPECT_EQ(mTable->moveBelow(list({0}), mLines[1]), Acad::eOk);
    EXPECT_EQ(order(), "0132");
    EXPECT_EQ(mTable->swapOrder(mLines[0], mLines[2]), Acad::eOk);
    EXPECT_EQ(order(), "2130");
    EXPECT_EQ(mTable->setRelativeDrawOrder(list({0, 2})), Acad::eOk);
    EXPECT_EQ(order(), "0132");
    EXPECT_TRUE(mTable->isRelativeDrawOrderUsed());
}

TEST_F(SortentsTable, FirstIdBroughtUpLastEndsUppermost)
{
    for (const int place : {2, 1, 0}) EXPECT_EQ(mTable->moveToTop(list({place})), Acad::eOk);
    EXPECT_EQ(order(), "3210");
    bool isBefore = false;
    EXPECT_EQ(mTable->firstEntityIsDrawnBeforeSecond(mLines[2], mLines[0], isBefore), Acad::eOk);
    EXPECT_TRUE(isBefore);
    AcDbObjectIdArray two = list({0, 3});
    EXPECT_EQ(mTable->getRelativeDrawOrder(two), Acad::eOk);
    EXPECT_EQ(placesOf(two), "30");
}

TEST_F(SortentsTable, RefusesWhatIsNotInTheBlock)
{
    AcDbObjectIdArray foreign = list({0});
    foreign.append(mDatabase.layerZero());
    EXPECT_EQ(mTable->moveToTop(foreign), Acad::eNotInBlock);
    EXPECT_EQ(mTable->moveToTop(AcDbObjectIdArray()), Acad::eInvalidInput);
    EXPECT_EQ(mTable->moveAbove(list({0, 1}), mLines[1]), Acad::eInvalidInput);
    EXPECT_EQ(mTable->moveAbove(list({0}), mDatabase.layerZero()), Acad::eNotInBlock);
    EXPECT_EQ(mTable->setRelativeDrawOrder(list({0, 0})), Acad::eInvalidInput);
    EXPECT_EQ(AcDbSortentsTable().moveToTop(list({0})), Acad::eInvalidOwnerObject);
    EXPECT_EQ(order(), "0123");
    mTable->downgradeOpen();
    EXPECT_EQ(mTable->moveToTop(list({0})), Acad::eNotOpenForWrite);
    EXPECT_EQ(order(), "0123");
}

TEST_F(SortentsTable, RecordIsWrittenAsItWasRead)
{
    const PackedGroups groups = groupsOf({{100, "AcDbSortentsTable"},
                                          {330, 31.0},
                                          {331, 901.0},
                                          {5, 900.0},
                                          {331, 900.0},
                                          {5, 901.0},
                                          {331, 950.0},
                                          {5, 950.0}});
    AcDbSortentsTable table;
    EXPECT_EQ(rewritten(table, groups, &mDatabase), textOf(groups));
}
