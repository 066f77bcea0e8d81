#include "DatabaseFixture.h"

namespace
{
class OpenState : public DatabaseFixture
{
protected:
    Acad::ErrorStatus tryOpen(AcDb::OpenMode mode)
    {
        AcDbObject* object = nullptr;
        const Acad::ErrorStatus status = acdbOpenAcDbObject(object, mId, mode);
        EXPECT_EQ(object != nullptr, status == Acad::eOk);
        if (object) object->close();
        return status;
    }

    AcDbObjectId mId = addApplication(L"QM");
};
} // namespace

TEST_F(OpenState, ConflictsNameTheStateThatIsInTheWay)
{
    AcDbObject* reader = open(mId, AcDb::kForRead);
    EXPECT_EQ(tryOpen(AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(tryOpen(AcDb::kForWrite), Acad::eWasOpenForRead);
    EXPECT_EQ(tryOpen(AcDb::kForNotify), Acad::eOk);
    EXPECT_EQ(reader->close(), Acad::eOk);

    AcDbObject* writer = open(mId, AcDb::kForWrite);
    EXPECT_EQ(tryOpen(AcDb::kForRead), Acad::eWasOpenForWrite);
    EXPECT_EQ(tryOpen(AcDb::kForWrite), Acad::eWasOpenForWrite);
    EXPECT_EQ(writer->close(), Acad::eOk);

    AcDbObject* told = open(mId, AcDb::kForNotify);
    for (AcDb::OpenMode mode : {AcDb::kForRead, AcDb::kForWrite, AcDb::kForNotify})
        EXPECT_EQ(tryOpen(mode), Acad::eWasOpenForNotify);
    EXPECT_EQ(told->close(), Acad::eOk);
    EXPECT_EQ(told->close(), Acad::eInvalidOpenState);
}

TEST_F(OpenState, ReadersAreCountedUpTo256)
{
    AcDbObject* object = nullptr;
    for (int i = 0; i < 256; ++i) object = open(mId, AcDb::kForRead);
    EXPECT_EQ(tryOpen(AcDb::kForRead), Acad::eAtMaxReaders);
    EXPECT_EQ(object->upgradeOpen(), Acad::eHadMultipleReaders);
    for (int i = 0; i < 255; ++i) object->close();
    EXPECT_EQ(object->upgradeOpen(), Acad::eOk);
    EXPECT_TRUE(object->isWriteEnabled());
    EXPECT_EQ(object->downgradeOpen(), Acad::eOk);
    EXPECT_EQ(object->numReaders(), 1);
    EXPECT_EQ(object->close(), Acad::eOk);
}

TEST_F(OpenState, SettersOfAReaderChangeNothing)
{
    AcDbRegAppTableRecord* record = nullptr;
    ASSERT_EQ(acdbOpenObject(record, mId, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(record->setName(L"OTHER"), Acad::eNotOpenForWrite);
    EXPECT_EQ(record->erase(), Acad::eNotOpenForWrite);
    EXPECT_STREQ(record->name(), L"QM");
    EXPECT_FALSE(record->isModified());
    record->close();
}

TEST_F(OpenState, CancelTakesChangesBack)
{
    AcDbRegAppTableRecord* record = nullptr;
    ASSERT_EQ(acdbOpenObject(record, mId, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(record->setName(L"OTHER"), Acad::eOk);
    EXPECT_EQ(record->erase(), Acad::eOk);
    EXPECT_EQ(record->cancel(), Acad::eOk);
    EXPECT_STREQ(record->name(), L"QM");
    EXPECT_FALSE(mId.isErased());

    AcDbRegAppTable* table = nullptr;
    ASSERT_EQ(mDatabase.getRegAppTable(table), Acad::eOk);
    EXPECT_TRUE(table->has(L"QM"));
    EXPECT_FALSE(table->has(L"OTHER"));
    table->close();
}

TEST_F(OpenState, ErasedObjectsOpenOnlyWhenAskedFor)
{
    AcDbObject* object = open(mId, AcDb::kForWrite);
    EXPECT_EQ(object->erase(), Acad::eOk);
    EXPECT_EQ(object->erase(), Acad::eWasErased);
    object->close();
    EXPECT_TRUE(mId.isErased());
    EXPECT_EQ(tryOpen(AcDb::kForRead), Acad::eWasErased);

    object = open(mId, AcDb::kForWrite, true);
    EXPECT_EQ(object->erase(false), Acad::eOk);
    EXPECT_EQ(object->erase(false), Acad::eWasNotErased);
    object->close();
    EXPECT_EQ(tryOpen(AcDb::kForRead), Acad::eOk);
}

TEST_F(OpenState, IdsThatNameNothingAreRefused)
{
    AcDbObject* object = nullptr;
    EXPECT_EQ(acdbOpenAcDbObject(object, AcDbObjectId::kNull, AcDb::kForRead), Acad::eNullObjectId);
    AcDbObjectId reserved;
    EXPECT_EQ(mDatabase.getAcDbObjectId(reserved, true, AcDbHandle(0xABCDu)), Acad::eOk);
    EXPECT_EQ(acdbOpenAcDbObject(object, reserved, AcDb::kForRead), Acad::eUnknownHandle);
    EXPECT_EQ(mDatabase.getAcDbObjectId(reserved, false, AcDbHandle(0x7777u)), Acad::eUnknownHandle);
    EXPECT_TRUE(reserved.isNull());
}

TEST_F(OpenState, ReactorsHearOfChangesWhenTheWriterCloses)
{
    struct Listener : AcDbObjectReactor {
        std::string heard;
        void openedForModify(const AcDbObject*) override { heard += "o"; }
        void modified(const AcDbObject*) override { heard += "m"; }
        void erased(const AcDbObject*, bool erasing) override { heard += erasing ? "e" : "u"; }
        void objectClosed(const AcDbObjectId) override { heard += "c"; }
    } listener;

    AcDbRegAppTableRecord* record = nullptr;
    ASSERT_EQ(acdbOpenObject(record, mId, AcDb::kForWrite), Acad::eOk);
    record->addReactor(&listener);
    record->setName(L"QM2");
    EXPECT_EQ(listener.heard, "o");
    record->setName(L"QM3");
    record->erase();
    record->close();
    EXPECT_EQ(listener.heard, "oemc");

    ASSERT_EQ(acdbOpenObject(record, mId, AcDb::kForRead, true), Acad::eOk);
    record->removeReactor(&listener);
    record->close();
}
