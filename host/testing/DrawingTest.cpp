#include "DrawingTest.h"

#include "dbcircle.h"
#include "dbline.h"

namespace headless
{
AcDbObjectId addTo(AcDbObjectId block, AcDbEntity* entity)
{
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
    const Acad::ErrorStatus opened = record.openStatus();
    EXPECT_EQ(opened == Acad::eOk ? record->appendAcDbEntity(id, entity) : opened, Acad::eOk);
    if (id.isNull())
        delete entity;
    else
        entity->close();
    return id;
}

namespace
{
template <class Table, class Record>
AcDbObjectId addRecord(AcDbObjectId tableId, const ACHAR* name,
                       const std::function<void(Record&)>& prepare = {})
{
    const AcDbObjectPointer<Table> table(tableId, AcDb::kForWrite);
    auto record = std::make_unique<Record>();
    EXPECT_EQ(record->setName(name), Acad::eOk);
    if (prepare) prepare(*record);
    AcDbObjectId id;
    EXPECT_EQ(table->add(id, record.get()), Acad::eOk);
    if (!id.isNull()) record.release()->close();
    return id;
}
} // namespace

void DrawingTest::SetUp()
{
    EditorTest::SetUp();
    mLock = std::make_unique<DocumentLock>();
}

void DrawingTest::TearDown()
{
    unlock();
    EditorTest::TearDown();
}

AcDbObjectId DrawingTest::addLine(const AcGePoint3d& from, const AcGePoint3d& to) const
{
    return add(new AcDbLine(from, to));
}

AcDbObjectId DrawingTest::addCircle(const AcGePoint3d& center, double radius) const
{
    return add(new AcDbCircle(center, AcGeVector3d::kZAxis, radius));
}

AcDbObjectId DrawingTest::addBlock(const ACHAR* name) const
{
    return addRecord<AcDbBlockTable, AcDbBlockTableRecord>(database()->blockTableId(), name);
}

AcDbObjectId DrawingTest::addLayer(const ACHAR* name, bool locked) const
{
    return addRecord<AcDbLayerTable, AcDbLayerTableRecord>(
        database()->layerTableId(), name, [&](AcDbLayerTableRecord& layer) { layer.setIsLocked(locked); });
}

void DrawingTest::erase(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
    EXPECT_EQ(object->erase(), Acad::eOk);
}

int DrawingTest::entityCount() const
{
    const AcDbObjectPointer<AcDbBlockTableRecord> space(database()->modelSpaceId(), AcDb::kForRead);
    int count = 0;
    for (const AcDbObjectId& id : space->entityIds())
        count += !id.isErased();
    return count;
}
} // namespace headless
