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
    AcDbEntityPointer(inDoor, AcDb::kForWrite, true)->erase(false);
    EXPECT_EQ(referencesTo(handle, true).length(), 1);
    AcDbObjectIdArray none;
    EXPECT_EQ(AcDbBlockTableRecord().getBlockReferenceIds(none), Acad::eNotInDatabase);
}

TEST_F(BlockReferences, FollowAReferenceToAnotherBlockAndBack)
{
    const AcDbObjectId oak = addBlock(L"OAK"), pine = addBlock(L"PINE");
    const AcDbObjectId tree = refer(mDatabase.modelSpaceId(), oak);
    const auto expectIn = [&](AcDbObjectId shown, AcDbObjectId other) {
        EXPECT_EQ(referencesTo(shown, true).length(), 1);
        EXPECT_EQ(referencesTo(other, true).length(), 0);
    };
    const auto show = [&](AcDbObjectId block) {
        AcDbObjectPointer<AcDbBlockReference>(tree, AcDb::kForWrite)->setBlockTableRecord(block);
    };
    show(pine);
    expectIn(pine, oak);
    show(oak);
    expectIn(oak, pine);
    AcDbObjectPointer<AcDbBlockReference> reference(tree, AcDb::kForWrite);
    reference->setBlockTableRecord(pine);
    reference->cancel();
    expectIn(oak, pine);
}

TEST_F(BlockReferences, AnonymousBlocksAreNumbered)
{
    const AcDbBlockTablePointer table(&mDatabase, AcDb::kForWrite);
    CString names;
    for (const wchar_t* name : {L"*U", L"*u", L"*D", L"*U7", L"U"}) {
        auto* block = new AcDbBlockTableRecord;
        block->setName(name);
        ASSERT_EQ(table->add(block), Acad::eOk);
        names += block->name() + (block->isAnonymous() ? L"! " : L" ");
        block->close();
    }
    EXPECT_STREQ(names, L"*U1! *u2! *D3! *U7! U ");
}
