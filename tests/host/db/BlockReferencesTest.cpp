/// Who refers to a block.

#include "DatabaseFixture.h"
#include "dbblkref.h"
#include "dbobjptr.h"

namespace
{
class BlockReferences : public DatabaseFixture
{
protected:
    AcDbObjectId addBlock(const wchar_t* name)
    {
        AcDbObjectId id;
        const AcDbBlockTablePointer table(&mDatabase, AcDb::kForWrite);
        auto* block = new AcDbBlockTableRecord;
        block->setName(name);
        EXPECT_EQ(table->add(id, block), Acad::eOk);
        block->close();
        return id;
    }

    AcDbObjectId refer(AcDbObjectId holder, AcDbObjectId block)
    {
        AcDbObjectId id;
        const AcDbBlockTableRecordPointer space(holder, AcDb::kForWrite);
        auto* reference = new AcDbBlockReference(AcGePoint3d::kOrigin, block);
        EXPECT_EQ(space->appendAcDbEntity(id, reference), Acad::eOk);
        reference->close();
        return id;
    }

    AcDbObjectIdArray referencesTo(AcDbObjectId block, bool directOnly)
    {
        AcDbObjectIdArray ids;
        const AcDbBlockTableRecordPointer record(block);
        EXPECT_EQ(record->getBlockReferenceIds(ids, directOnly), Acad::eOk);
        return ids;
    }
};
} // namespace

TEST_F(BlockReferences, AreFoundAlsoThroughBlocksThatHoldThem)
{
    const AcDbObjectId handle = addBlock(L"HANDLE"), door = addBlock(L"DOOR");
    const AcDbObjectId inDoor = refer(door, handle);
    const AcDbObjectId inSpace = refer(mDatabase.modelSpaceId(), door);
    const AcDbObjectIdArray direct = referencesTo(handle, true);
    ASSERT_EQ(direct.length(), 1);
    EXPECT_EQ(direct[0], inDoor);
    const AcDbObjectIdArray all = referencesTo(handle, false);
    ASSERT_EQ(all.length(), 2);
    EXPECT_TRUE(all.contains(inDoor) && all.contains(inSpace));
    AcDbEntityPointer(inDoor, AcDb::kForWrite)->erase();
    EXPECT_EQ(referencesTo(handle, true).length(), 0);
    AcDbObjectIdArray none;
    EXPECT_EQ(AcDbBlockTableRecord().getBlockReferenceIds(none), Acad::eNotInDatabase);
}
