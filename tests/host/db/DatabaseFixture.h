#pragma once

#include "LiveCounts.h"
#include "acutads.h"
#include "dbdatabase.h"

#include <gtest/gtest.h>

/// A fresh database with one application, and a check that every list was released.
class DatabaseFixture : public testing::Test
{
protected:
    void SetUp() override { mListsBefore = live::resbufs(); }
    void TearDown() override { EXPECT_EQ(live::resbufs(), mListsBefore) << "a result buffer list was not released"; }

    AcDbObjectId addApplication(const wchar_t* name)
    {
        AcDbRegAppTable* table = nullptr;
        EXPECT_EQ(mDatabase.getRegAppTable(table, AcDb::kForWrite), Acad::eOk);
        auto* record = new AcDbRegAppTableRecord;
        EXPECT_EQ(record->setName(name), Acad::eOk);
        AcDbObjectId id;
        const Acad::ErrorStatus status = table->add(id, record);
        EXPECT_EQ(status, Acad::eOk);
        if (status == Acad::eOk) {
            record->close();
        } else {
            delete record;
        }
        table->close();
        return id;
    }

    AcDbObject* open(AcDbObjectId id, AcDb::OpenMode mode, bool erasedToo = false)
    {
        AcDbObject* object = nullptr;
        EXPECT_EQ(acdbOpenAcDbObject(object, id, mode, erasedToo), Acad::eOk);
        return object;
    }

    AcDbDatabase mDatabase;

private:
    std::int64_t mListsBefore = 0;
};
