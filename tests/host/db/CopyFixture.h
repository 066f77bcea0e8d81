#pragma once

/// Two drawings and short ways to fill them and to look at what was copied.

#include "DatabaseFixture.h"
#include "dbents.h"
#include "dbidmap.h"
#include "dbobjptr.h"

#include <string>

class CopyFixture : public DatabaseFixture
{
protected:
    void TearDown() override
    {
        EXPECT_EQ(live::openObjects(mSource), 0);
        EXPECT_EQ(live::openObjects(mDatabase), 0);
        DatabaseFixture::TearDown();
    }

    static AcDbObjectId addTo(AcDbObjectId blockId, AcDbEntity* entity)
    {
        AcDbObjectId id;
        const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId, AcDb::kForWrite);
        EXPECT_EQ(block->appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        return id;
    }
    static AcDbObjectId addLine(AcDbObjectId block, double length = 1.0)
    {
        return addTo(block, new AcDbLine({0, 0, 0}, {length, 0, 0}));
    }
    static AcDbObjectId addReference(AcDbObjectId to, AcDbObjectId block)
    {
        return addTo(to, new AcDbBlockReference({0, 0, 0}, block));
    }

    template <class Record>
    static AcDbObjectId add(AcDbDatabase& database, const wchar_t* name)
    {
        AcDbObjectId id;
        typename AcDbTableOfRecord<Record>::Table* table = nullptr;
        EXPECT_EQ(database.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        auto* record = new Record;
        record->setName(name);
        EXPECT_EQ(table->add(id, record), Acad::eOk);
        record->close();
        table->close();
        return id;
    }
    static AcDbObjectId addBlock(AcDbDatabase& database, const wchar_t* name)
    {
        return add<AcDbBlockTableRecord>(database, name);
    }
    static AcDbObjectId addLayer(AcDbDatabase& database, const wchar_t* name, int color)
    {
        const AcDbObjectId id = add<AcDbLayerTableRecord>(database, name);
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
        AcCmColor index;
        index.setColorIndex(static_cast<std::uint16_t>(color));
        layer->setColor(index);
        return id;
    }

    template <class Record>
    static AcDbObjectId find(AcDbDatabase& database, const wchar_t* name)
    {
        const AcDbSymbolTableRecordPointer<Record> record(name, &database);
        return record.openStatus() == Acad::eOk ? record->objectId() : AcDbObjectId();
    }
    static std::wstring nameOf(AcDbObjectId id)
    {
        const AcDbObjectPointer<AcDbSymbolTableRecord> record(id);
        return record.openStatus() == Acad::eOk ? std::wstring(record->name()) : L"(none)";
    }
    static int colorOf(AcDbObjectId layer)
    {
        return AcDbObjectPointer<AcDbLayerTableRecord>(layer)->color().colorIndex();
    }
    /// The living entities of a block.
    static std::vector<AcDbObjectId> contentsOf(AcDbObjectId block)
    {
        std::vector<AcDbObjectId> living;
        for (const AcDbObjectId id : AcDbObjectPointer<AcDbBlockTableRecord>(block)->entityIds()) {
            if (!id.isErased()) living.push_back(id);
        }
        return living;
    }
    static double lengthOf(AcDbObjectId line) { return AcDbObjectPointer<AcDbLine>(line)->endPoint().x; }

    static AcDbObjectIdArray listOf(std::initializer_list<AcDbObjectId> ids)
    {
        AcDbObjectIdArray list;
        for (const AcDbObjectId id : ids)
            list.append(id);
        return list;
    }
    /// From mSource into mDatabase.
    Acad::ErrorStatus copy(std::initializer_list<AcDbObjectId> ids, AcDbObjectId owner, AcDbIdMapping& map,
                           AcDb::DuplicateRecordCloning way = AcDb::kDrcIgnore, bool isPutOff = false)
    {
        return mSource.wblockCloneObjects(listOf(ids), owner, map, way, isPutOff);
    }
    static AcDbIdPair pairOf(const AcDbIdMapping& map, AcDbObjectId original)
    {
        AcDbIdPair pair(original, AcDbObjectId(), false);
        map.compute(pair);
        return pair;
    }

    AcDbDatabase mSource;
    AcDbObjectId mFrom = mSource.modelSpaceId();
    AcDbObjectId mTo = mDatabase.modelSpaceId();
};
