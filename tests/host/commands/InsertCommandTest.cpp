/// INSERT and WBLOCK, typed at the command line.

#include "EditorFixture.h"

#include "dbents.h"
#include "dbobjptr.h"

#include <algorithm>
#include <iterator>

namespace
{
class InsertCommand : public headless::EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        mPath = L"/tmp/insert_command_" + std::to_wstring(GetCurrentProcessId()) + L".dxf";
        asCommand([&] {
            const AcDbBlockTablePointer table(database(), AcDb::kForWrite);
            auto* block = new AcDbBlockTableRecord;
            block->setName(L"DOOR");
            table->add(mDoor, block);
            add(*block, new AcDbLine({0, 0, 0}, {2, 0, 0}));
            add(*block, new AcDbAttributeDefinition({0, 0, 0}, L"7", L"NUMBER", L"Which?"));
            block->close();
        });
    }
    void TearDown() override
    {
        DeleteFileW(mPath.c_str());
        EditorTest::TearDown();
    }

    static void add(AcDbBlockTableRecord& block, AcDbEntity* entity)
    {
        block.appendAcDbEntity(entity);
        entity->close();
    }
    std::vector<AcDbObjectId> contents() const
    {
        std::vector<AcDbObjectId> living;
        for (const AcDbObjectId id : AcDbObjectPointer<AcDbBlockTableRecord>(database()->modelSpaceId())->entityIds()) {
            if (!id.isErased()) living.push_back(id);
        }
        return living;
    }
    AcDbObjectId last() const { return contents().empty() ? AcDbObjectId() : contents().back(); }
    std::wstring output() { return takeOutput(); }

    AcDbObjectId mDoor;
    std::wstring mPath;
};
} // namespace

TEST_F(InsertCommand, ReferenceHasPointScalesRotationAndTheAttributesTyped)
{
    run(L"-INSERT DOOR 3,4 2 -5 90\n8\n");
    const AcDbObjectPointer<AcDbBlockReference> reference(last());
    ASSERT_EQ(reference.openStatus(), Acad::eOk);
    EXPECT_EQ(reference->position(), AcGePoint3d(3, 4, 0));
    EXPECT_DOUBLE_EQ(reference->scaleFactors().sx, 2.0);
    EXPECT_DOUBLE_EQ(reference->scaleFactors().sy, -5.0);
    EXPECT_DOUBLE_EQ(reference->scaleFactors().sz, 2.0);
    EXPECT_NEAR(reference->rotation(), 1.5707963267948966, 1e-12);
    const std::unique_ptr<AcDbObjectIterator> walk(reference->attributeIterator());
    ASSERT_FALSE(walk->done());
    EXPECT_STREQ(AcDbObjectPointer<AcDbAttribute>(walk->objectId())->textStringConst(), L"8");
    EXPECT_NE(output().find(L"Which? <7>: "), std::wstring::npos);
}

TEST_F(InsertCommand, EnterTakesTheLastBlockAndTheUsualValues)
{
    run(L"INSERT DOOR S 3 R 0 1,1\n\n");
    run(L"INSERT\n\n5,5\n\n\n\n\n");
    ASSERT_EQ(contents().size(), 2u);
    const AcDbObjectPointer<AcDbBlockReference> scaled(contents()[0]), usual(contents()[1]);
    EXPECT_DOUBLE_EQ(scaled->scaleFactors().sz, 3.0);
    EXPECT_EQ(usual->position(), AcGePoint3d(5, 5, 0));
    EXPECT_DOUBLE_EQ(usual->scaleFactors().sx, 1.0);
}

TEST_F(InsertCommand, StarInsertsThePieces)
{
    run(L"INSERT *DOOR 10,0 2 0\n");
    ASSERT_EQ(contents().size(), 2u);
    EXPECT_EQ(AcDbObjectPointer<AcDbLine>(contents()[0])->endPoint(), AcGePoint3d(14, 0, 0));
}

TEST_F(InsertCommand, RedefinedBlockComesBackWithItsMarks)
{
    using Ids = std::vector<AcDbObjectId>;
    // The marks of the block that are not erased, and its entities.
    const auto parts = [&] {
        const AcDbObjectPointer<AcDbBlockTableRecord> door(mDoor);
        AcDbBlockBegin* begin = nullptr;
        AcDbBlockEnd* end = nullptr;
        Ids living;
        if (door->openBlockBegin(begin, AcDb::kForRead) == Acad::eOk)
            living.push_back(begin->objectId()), begin->close();
        if (door->openBlockEnd(end, AcDb::kForRead) == Acad::eOk)
            living.push_back(end->objectId()), end->close();
        const Ids& all = door->entityIds();
        std::copy_if(all.begin(), all.end(), std::back_inserter(living),
                     [](AcDbObjectId id) { return !id.isErased(); });
        return living;
    };
    run(L"WBLOCK " + mPath + L" DOOR\n");
    const Ids before = parts();
    run(L"INSERT DOOR=" + mPath + L" 0,0 1 1 0\n8\n");
    const Ids after = parts();
    EXPECT_EQ(before.size(), 4u); // two marks, the line, the attribute's definition
    EXPECT_EQ(after.size(), 4u);
    EXPECT_NE(after, before);
    run(L"U\n");
    EXPECT_EQ(parts(), before);
    run(L"REDO\n");
    EXPECT_EQ(parts(), after);
}

TEST_F(InsertCommand, FileBecomesABlockScaledByItsUnits)
{
    {
        AcDbDatabase other;
        other.setInsunits(AcDb::kUnitsMeters);
        const AcDbObjectPointer<AcDbBlockTableRecord> space(other.modelSpaceId(), AcDb::kForWrite);
        add(*space, new AcDbLine({0, 0, 0}, {1, 0, 0}));
        ASSERT_EQ(other.saveAs(mPath.c_str()), Acad::eOk);
    }
    ASSERT_EQ(database()->insunits(), AcDb::kUnitsMillimeters);
    run(L"INSERT \"site=" + mPath + L"\" 0,0 1 1 0\n");
    const AcDbObjectPointer<AcDbBlockReference> reference(last());
    ASSERT_EQ(reference.openStatus(), Acad::eOk);
    EXPECT_DOUBLE_EQ(reference->scaleFactors().sx, 1000.0) << "a metre in millimetres";
    const AcDbObjectPointer<AcDbBlockTableRecord> block(reference->blockTableRecord());
    EXPECT_EQ(block->name(), L"site");
    takeCommands();
    run(L"INSERT /nowhere/nothing.dxf\n");
    EXPECT_EQ(takeCommands(), (std::vector<std::wstring>{L"!INSERT"}));
}

TEST_F(InsertCommand, WblockSavesWhatWasChosenAndTakesItAway)
{
    run(L"CIRCLE 0,0 1\nLINE 10,10 20,10\n\n");
    ASSERT_EQ(contents().size(), 2u);
    run(L"WBLOCK \"" + mPath + L"\"\n\n10,10 _L\n\n");
    EXPECT_EQ(contents().size(), 1u);
    AcDbDatabase saved(false, true);
    ASSERT_EQ(saved.readDwgFile(mPath.c_str()), Acad::eOk);
    const AcDbObjectPointer<AcDbBlockTableRecord> space(saved.modelSpaceId());
    ASSERT_EQ(space->entityIds().size(), 1u);
    const AcDbObjectPointer<AcDbLine> line(space->entityIds()[0]);
    ASSERT_EQ(line.openStatus(), Acad::eOk);
    EXPECT_EQ(line->startPoint(), AcGePoint3d::kOrigin) << "the base point";
    EXPECT_EQ(line->endPoint(), AcGePoint3d(10, 0, 0));
}

TEST_F(InsertCommand, WblockSavesABlockOrAllOfIt)
{
    run(L"CIRCLE 0,0 1\n");
    run(L"-WBLOCK \"" + mPath + L"\" DOOR\n");
    {
        AcDbDatabase saved(false, true);
        ASSERT_EQ(saved.readDwgFile(mPath.c_str()), Acad::eOk);
        EXPECT_EQ(AcDbObjectPointer<AcDbBlockTableRecord>(saved.modelSpaceId())->entityIds().size(), 2u);
    }
    run(L"-WBLOCK \"" + mPath + L"\" Y *\n");
    AcDbDatabase saved(false, true);
    ASSERT_EQ(saved.readDwgFile(mPath.c_str()), Acad::eOk);
    EXPECT_EQ(AcDbObjectPointer<AcDbBlockTableRecord>(saved.modelSpaceId())->entityIds().size(), 1u);
    takeCommands();
    run(L"-WBLOCK \"" + mPath + L"\" Y WINDOW\n");
    EXPECT_EQ(takeCommands(), (std::vector<std::wstring>{L"!WBLOCK"}));
}
