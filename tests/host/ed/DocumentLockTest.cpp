#include "EditorFixture.h"

#include "axlock.h"

#include "dbline.h"
#include "dbobjptr.h"

using DocumentLock = headless::EditorTest;

TEST_F(DocumentLock, HoldsTheDocumentOfADrawingForItsLife)
{
    const auto mayWrite = [&] {
        AcDbBlockTableRecordPointer space(ACDB_MODEL_SPACE, database(), AcDb::kForWrite);
        return space.openStatus();
    };
    ASSERT_EQ(mayWrite(), Acad::eLockViolation);
    {
        const AcAxDocLock lock(database());
        EXPECT_EQ(lock.lockStatus(), Acad::eOk);
        EXPECT_EQ(lock.document(), document());
        EXPECT_EQ(mayWrite(), Acad::eOk);
        const AcAxDocLock inner(database()->layerZero());
        EXPECT_EQ(inner.document(), document());
    }
    EXPECT_EQ(mayWrite(), Acad::eLockViolation);
}

TEST_F(DocumentLock, DrawingsWithoutADocumentNeedNone)
{
    AcDbDatabase alone;
    const AcAxDocLock lock(&alone);
    EXPECT_EQ(lock.lockStatus(), Acad::eOk);
    EXPECT_EQ(lock.document(), nullptr);
    EXPECT_EQ(AcAxDocLock(static_cast<AcDbDatabase*>(nullptr)).lockStatus(), Acad::eNoDatabase);
    EXPECT_EQ(AcAxDocLock(AcDbObjectId()).lockStatus(), Acad::eNullObjectId);
}
