#include "DatabaseFixture.h"

namespace
{
class SymbolTable : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        ASSERT_EQ(mDatabase.getRegAppTable(mTable, AcDb::kForWrite), Acad::eOk);
    }
    void TearDown() override
    {
        mTable->close();
        DatabaseFixture::TearDown();
    }

    Acad::ErrorStatus add(const wchar_t* name)
    {
        auto* record = new AcDbRegAppTableRecord;
        Acad::ErrorStatus status = record->setName(name);
        if (status == Acad::eOk) status = mTable->add(record);
        if (record->database()) {
            record->close();
        } else {
            delete record;
        }
        return status;
    }

    std::wstring names(bool forward, bool skipDeleted)
    {
        std::wstring all;
        AcDbSymbolTableIterator* walk = nullptr;
        mTable->newIterator(walk, forward, skipDeleted);
        for (; !walk->done(); walk->step(forward, skipDeleted)) {
            AcDbSymbolTableRecord* record = nullptr;
            EXPECT_EQ(walk->getRecord(record, AcDb::kForRead, true), Acad::eOk);
            all += record->name();
            all += L' ';
            record->close();
        }
        delete walk;
        return all;
    }

    AcDbRegAppTable* mTable = nullptr;
};
} // namespace

TEST_F(SymbolTable, NamesAreFoundWithoutCaseAndTakenOnce)
{
    EXPECT_EQ(add(L"QmTag"), Acad::eOk);
    EXPECT_EQ(add(L"QMTAG"), Acad::eDuplicateRecordName);
    EXPECT_TRUE(mTable->has(L"qmtag"));
    AcDbObjectId id;
    EXPECT_EQ(mTable->getAt(L"absent", id), Acad::eKeyNotFound);
    EXPECT_TRUE(id.isNull());
}

TEST_F(SymbolTable, BadNamesAreRefused)
{
    for (const wchar_t* bad : {L"", L"a<b", L"a:b", L"a?b", L"*", L"a\nb", L"a=b"})
        EXPECT_EQ(add(bad), Acad::eInvalidSymbolTableName) << CStringA(bad).GetString();
    EXPECT_EQ(add(std::wstring(256, L'x').c_str()), Acad::eInvalidSymbolTableName);
    EXPECT_EQ(add(std::wstring(255, L'x').c_str()), Acad::eOk);
    EXPECT_EQ(add(L"图层 名|标"), Acad::eOk);
}

TEST_F(SymbolTable, ErasedNamesAreFreeAgain)
{
    ASSERT_EQ(add(L"A"), Acad::eOk);
    AcDbRegAppTableRecord* record = nullptr;
    ASSERT_EQ(mTable->getAt(L"a", record, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(record->erase(), Acad::eOk);
    record->close();
    EXPECT_FALSE(mTable->has(L"A"));
    AcDbObjectId erased;
    EXPECT_EQ(mTable->getAt(L"A", erased, true), Acad::eOk);
    EXPECT_EQ(add(L"A"), Acad::eOk);
}

TEST_F(SymbolTable, IteratorsWalkBothWaysPastErasedRecords)
{
    for (const wchar_t* name : {L"A", L"B", L"C"}) ASSERT_EQ(add(name), Acad::eOk);
    AcDbRegAppTableRecord* record = nullptr;
    ASSERT_EQ(mTable->getAt(L"B", record, AcDb::kForWrite), Acad::eOk);
    record->erase();
    record->close();
    EXPECT_EQ(names(true, true), L"ACAD A C ");
    EXPECT_EQ(names(false, true), L"C A ACAD ");
    EXPECT_EQ(names(true, false), L"ACAD A B C ");
}

TEST_F(SymbolTable, RecordsADrawingNeedsCannotBeErased)
{
    AcDbRegAppTableRecord* record = nullptr;
    ASSERT_EQ(mTable->getAt(L"acad", record, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(record->erase(), Acad::eCannotBeErasedByCaller);
    record->close();
    EXPECT_TRUE(mTable->has(L"ACAD"));
}

TEST_F(SymbolTable, WalkOfOneKindOpensItsRecords)
{
    AcDbLayerTable* layers = nullptr;
    ASSERT_EQ(mDatabase.getLayerTable(layers), Acad::eOk);
    AcDbLayerTableIterator* walk = nullptr;
    ASSERT_EQ(layers->newIterator(walk), Acad::eOk);
    AcDbLayerTableRecord* layer = nullptr;
    ASSERT_EQ(walk->getRecord(layer), Acad::eOk);
    EXPECT_EQ(layer->objectId(), mDatabase.layerZero());
    layer->close();
    walk->step();
    EXPECT_EQ(walk->getRecord(layer), Acad::eIteratorDone);
    EXPECT_EQ(layer, nullptr);
    delete walk;
    AcDbObjectId id;
    EXPECT_EQ(layers->getIdAt(L"0", id), Acad::eOk);
    EXPECT_EQ(id, mDatabase.layerZero());
    layers->close();
}

TEST_F(SymbolTable, NewLayerIsContinuousUnlessItHasALinetype)
{
    AcDbLayerTable* layers = nullptr;
    ASSERT_EQ(mDatabase.getLayerTable(layers, AcDb::kForWrite), Acad::eOk);
    AcDbLayerTableRecord* plain = new AcDbLayerTableRecord;
    AcDbLayerTableRecord* other = new AcDbLayerTableRecord;
    plain->setName(L"plain");
    other->setName(L"other");
    other->setLinetypeObjectId(mDatabase.byBlockLinetype());
    ASSERT_EQ(layers->add(plain), Acad::eOk);
    ASSERT_EQ(layers->add(other), Acad::eOk);
    EXPECT_EQ(plain->linetypeObjectId(), mDatabase.continuousLinetype());
    EXPECT_EQ(other->linetypeObjectId(), mDatabase.byBlockLinetype());
    plain->close();
    other->close();
    layers->close();
}
