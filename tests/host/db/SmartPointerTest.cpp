#include "dbobjptr2.h"

#include "DatabaseFixture.h"
#include "dbblock.h"
#include "dbline.h"

namespace
{
class SmartPointer : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        const AcDbBlockTableRecordPointer space(ACDB_MODEL_SPACE, &mDatabase, AcDb::kForWrite);
        auto* line = new AcDbLine;
        ASSERT_EQ(space->appendAcDbEntity(mId, line), Acad::eOk);
        line->close();
    }
    void TearDown() override
    {
        EXPECT_EQ(live::openObjects(mDatabase), 0);
        DatabaseFixture::TearDown();
    }

    using Pointer = AcDbSmartObjectPointer<AcDbLine>;
    AcDbObjectId mId;
};
} // namespace

TEST_F(SmartPointer, SharesAWriterAndLeavesItOpen)
{
    AcDbObject* writer = open(mId, AcDb::kForWrite);
    for (const AcDb::OpenMode mode : {AcDb::kForRead, AcDb::kForWrite}) {
        const Pointer line(mId, mode);
        EXPECT_EQ(line.openStatus(), Acad::eOk);
        EXPECT_EQ(line->setThickness(2.0), Acad::eOk);
    }
    EXPECT_TRUE(writer->isWriteEnabled());
    writer->close();
}

TEST_F(SmartPointer, RaisesTheOnlyReaderAndLowersItAgain)
{
    AcDbObject* reader = open(mId, AcDb::kForRead);
    {
        const Pointer line(mId, AcDb::kForWrite);
        ASSERT_EQ(line.openStatus(), Acad::eOk);
        EXPECT_EQ(line->setThickness(2.0), Acad::eOk);
    }
    EXPECT_FALSE(reader->isWriteEnabled());
    EXPECT_EQ(reader->numReaders(), 1);
    AcDbObject* second = open(mId, AcDb::kForRead);
    EXPECT_EQ(Pointer(mId, AcDb::kForWrite).openStatus(), Acad::eHadMultipleReaders);
    second->close();
    reader->close();
}

TEST_F(SmartPointer, BorrowsWhatIsOpenForNotify)
{
    AcDbObject* told = open(mId, AcDb::kForNotify);
    {
        const Pointer line(mId, AcDb::kForWrite);
        ASSERT_EQ(line.openStatus(), Acad::eOk);
        EXPECT_EQ(line->setThickness(2.0), Acad::eOk);
    }
    EXPECT_TRUE(told->isNotifyEnabled());
    EXPECT_FALSE(told->isWriteEnabled());
    told->close();
}

TEST_F(SmartPointer, RefusesOtherClassesAndNames)
{
    EXPECT_EQ(AcDbSmartObjectPointer<AcDbLayerTableRecord>(mId).openStatus(), Acad::eNotThatKindOfClass);
    EXPECT_EQ(Pointer(AcDbObjectId()).openStatus(), Acad::eNullObjectId);
    EXPECT_EQ(AcDbSmartLayerTableRecordPointer(L"0", &mDatabase).openStatus(), Acad::eOk);
    EXPECT_EQ(AcDbSmartLayerTableRecordPointer(L"none", &mDatabase).openStatus(), Acad::eKeyNotFound);
}
