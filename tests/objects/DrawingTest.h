#pragma once

#include "EditorFixture.h"

#include "dbobjptr.h"
#include "dbsymtb.h"

/// A locked document whose model space takes entities.
class DrawingTest : public headless::EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        acDocManager->lockDocument(document());
    }
    void TearDown() override
    {
        acDocManager->unlockDocument(document());
        EditorTest::TearDown();
    }

    /// Adds to model space, or to another block, and closes.
    AcDbObjectId add(AcDbEntity* entity) { return add(entity, database()->currentSpaceId()); }
    AcDbObjectId add(AcDbEntity* entity, AcDbObjectId blockId)
    {
        AcDbObjectId id;
        const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId, AcDb::kForWrite);
        EXPECT_EQ(block->appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        return id;
    }

    AcDbObjectId addBlock(const ACHAR* name)
    {
        const AcDbObjectPointer<AcDbBlockTable> table(database()->blockTableId(), AcDb::kForWrite);
        auto* const block = new AcDbBlockTableRecord;
        block->setName(name);
        AcDbObjectId id;
        EXPECT_EQ(table->add(id, block), Acad::eOk);
        block->close();
        return id;
    }

    void erase(AcDbObjectId id)
    {
        const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
        EXPECT_EQ(object->erase(), Acad::eOk);
    }
};
