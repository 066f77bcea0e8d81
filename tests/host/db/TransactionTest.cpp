/// Transactions of a drawing that records no undo of its own.

#include "DatabaseFixture.h"

#include "actrans.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "Stub.h"


namespace
{
class Transactions : public DatabaseFixture
{
protected:
    AcDbObjectId addLine(double x)
    {
        AcDbObjectId id;
        AcDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(acdbOpenObject(space, mDatabase.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
        auto* line = new AcDbLine({x, 0, 0}, {x, 1, 0});
        EXPECT_EQ(space->appendAcDbEntity(id, line), Acad::eOk);
        line->close();
        space->close();
        return id;
    }
    /// In the transaction.
    AcDbLine* get(AcDbObjectId id, AcDb::OpenMode mode)
    {
        AcDbObject* object = nullptr;
        EXPECT_EQ(mManager->getObject(object, id, mode), Acad::eOk);
        return AcDbLine::cast(object);
    }
    double startOf(AcDbObjectId id)
    {
        const AcDbObjectPointer<AcDbLine> line(id);
        return line->startPoint().x;
    }
    void move(AcDbObjectId id, double x)
    {
        const AcDbObjectPointer<AcDbLine> line(id, AcDb::kForWrite);
        ASSERT_EQ(line.openStatus(), Acad::eOk);
        line->setStartPoint({x, 0, 0});
    }
    Acad::ErrorStatus tryOpen(AcDbObjectId id, AcDb::OpenMode mode, bool erasedToo = false)
    {
        AcDbObject* object = nullptr;
        const Acad::ErrorStatus status = acdbOpenAcDbObject(object, id, mode, erasedToo);
        if (object) object->close();
        return status;
    }

    AcDbTransactionManager* mManager = mDatabase.transactionManager();
};
} // namespace

TEST_F(Transactions, CallsWithoutAnActiveOneAreRefused)
{
    const AcDbObjectId id = addLine(0);
    AcDbObject* object = nullptr;
    AcDbVoidPtrArray all;
    EXPECT_EQ(mManager->getObject(object, id), Acad::eNoActiveTransactions);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(mManager->endTransaction(), Acad::eNoActiveTransactions);
    EXPECT_EQ(mManager->abortTransaction(), Acad::eNoActiveTransactions);
    EXPECT_EQ(mManager->getAllObjects(all), Acad::eNoActiveTransactions);
    EXPECT_EQ(mManager->topTransaction(), nullptr);
    EXPECT_EQ(mManager->numActiveTransactions(), 0);
}

TEST_F(Transactions, AbortGivesBackWhatEitherWayOfOpeningChanged)
{
    const AcDbObjectId held = addLine(1), opened = addLine(2), erased = addLine(3);
    mManager->startTransaction();
    get(held, AcDb::kForWrite)->setStartPoint({10, 0, 0});
    move(opened, 20);
    get(erased, AcDb::kForWrite)->erase();
    mDatabase.setLtscale(5.0);
    EXPECT_EQ(mManager->numOpenedObjects(), 2);
    ASSERT_EQ(mManager->abortTransaction(), Acad::eOk);
    EXPECT_EQ(startOf(held), 1);
    EXPECT_EQ(startOf(opened), 2);
    EXPECT_FALSE(erased.isErased());
    EXPECT_EQ(mDatabase.ltscale(), 1.0);
    EXPECT_EQ(live::openObjects(mDatabase), 0);
}

TEST_F(Transactions, AbortErasesForGoodWhatWasMade)
{
    mManager->startTransaction();
    auto* space = AcDbBlockTableRecord::cast(residentObject(mDatabase.modelSpaceId()));
    AcDbObject* opened = nullptr;
    ASSERT_EQ(mManager->getObject(opened, mDatabase.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
    auto* line = new AcDbLine;
    AcDbObjectId id;
    ASSERT_EQ(space->appendAcDbEntity(id, line), Acad::eOk);
    ASSERT_EQ(mManager->addNewlyCreatedDBRObject(line), Acad::eOk);
    const AcDbObjectId closed = addLine(4);
    ASSERT_EQ(mManager->abortTransaction(), Acad::eOk);
    for (const AcDbObjectId gone : {id, closed}) {
        EXPECT_EQ(tryOpen(gone, AcDb::kForRead), Acad::eWasErased);
        EXPECT_EQ(tryOpen(gone, AcDb::kForWrite, true), Acad::ePermanentlyErased);
    }
    EXPECT_EQ(live::openObjects(mDatabase), 0);
}

TEST_F(Transactions, EndKeepsChangesAndClosesObjects)
{
    const AcDbObjectId id = addLine(1);
    mManager->startTransaction();
    get(id, AcDb::kForWrite)->setStartPoint({10, 0, 0});
    EXPECT_EQ(tryOpen(id, AcDb::kForNotify), Acad::eOk);
    ASSERT_EQ(mManager->endTransaction(), Acad::eOk);
    EXPECT_EQ(startOf(id), 10);
    EXPECT_EQ(live::openObjects(mDatabase), 0);
    EXPECT_FALSE(mDatabase.undoRecording());
    EXPECT_EQ(mDatabase.undo(), Acad::eUndoOperationNotAvailable);
}

TEST_F(Transactions, NestedAbortLeavesWhatTheOuterOneHadChanged)
{
    const AcDbObjectId id = addLine(1), other = addLine(5);
    mManager->startTransaction();
    AcDbLine* line = get(id, AcDb::kForWrite);
    line->setStartPoint({2, 0, 0});
    AcDbLine* made = new AcDbLine;
    AcDbObjectId madeId;
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(mDatabase.modelSpaceId(), AcDb::kForWrite);
        space->appendAcDbEntity(madeId, made);
    }
    mManager->addNewlyCreatedDBRObject(made);
    mManager->startTransaction();
    EXPECT_EQ(mManager->numActiveTransactions(), 2);
    EXPECT_EQ(get(id, AcDb::kForWrite), line);
    line->setStartPoint({3, 0, 0});
    made->setStartPoint({9, 9, 9});
    get(other, AcDb::kForRead);
    ASSERT_EQ(mManager->abortTransaction(), Acad::eOk);
    EXPECT_EQ(line->startPoint().x, 2);
    EXPECT_EQ(made->startPoint(), AcGePoint3d::kOrigin);
    EXPECT_TRUE(line->isWriteEnabled());
    EXPECT_EQ(mManager->numOpenedObjects(), 2);
    line->setEndPoint({7, 0, 0});
    ASSERT_EQ(mManager->abortTransaction(), Acad::eOk);
    EXPECT_EQ(startOf(id), 1);
    EXPECT_TRUE(madeId.isErased());
}

TEST_F(Transactions, NestedEndHandsItsObjectsToTheOuterOne)
{
    const AcDbObjectId id = addLine(1);
    mManager->startTransaction();
    AcTransaction* inner = mManager->startTransaction();
    get(id, AcDb::kForWrite)->setStartPoint({3, 0, 0});
    AcDbVoidPtrArray mine;
    inner->getAllObjects(mine);
    EXPECT_EQ(mine.length(), 1);
    ASSERT_EQ(mManager->endTransaction(), Acad::eOk);
    EXPECT_EQ(mManager->numOpenedObjects(), 1);
    EXPECT_TRUE(residentObject(id)->isTransactionResident());
    ASSERT_EQ(mManager->abortTransaction(), Acad::eOk);
    EXPECT_EQ(startOf(id), 1);
}

TEST_F(Transactions, HeldObjectsAreOpenedAgainAndRaised)
{
    const AcDbObjectId id = addLine(1);
    mManager->startTransaction();
    AcDbLine* line = get(id, AcDb::kForRead);
    EXPECT_EQ(line->setStartPoint({2, 0, 0}), Acad::eNotOpenForWrite);
    EXPECT_EQ(line->close(), Acad::eInvalidOpenState);
    EXPECT_EQ(get(id, AcDb::kForWrite), line);
    EXPECT_EQ(mManager->numOpenedObjects(), 1);
    for (const AcDb::OpenMode mode : {AcDb::kForRead, AcDb::kForWrite}) {
        AcDbLine* again = nullptr;
        ASSERT_EQ(acdbOpenObject(again, id, mode), Acad::eOk);
        EXPECT_EQ(again->setStartPoint({3, 0, 0}), Acad::eOk);
        EXPECT_EQ(again->close(), Acad::eOk);
    }
    EXPECT_TRUE(line->isWriteEnabled());
    EXPECT_EQ(line->cancel(), Acad::eInvalidOpenState);
    mManager->endTransaction();
    EXPECT_EQ(startOf(id), 3);
}

TEST_F(Transactions, OpeningsOutsideAreInTheWayAsEver)
{
    const AcDbObjectId id = addLine(1);
    AcDbObject* reader = open(id, AcDb::kForRead);
    mManager->startTransaction();
    AcDbObject* object = nullptr;
    EXPECT_EQ(mManager->getObject(object, id, AcDb::kForWrite), Acad::eWasOpenForRead);
    EXPECT_EQ(mManager->getObject(object, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(mManager->getObject(object, id, AcDb::kForWrite), Acad::eHadMultipleReaders);
    EXPECT_EQ(mManager->getObject(object, AcDbObjectId::kNull), Acad::eNullObjectId);
    EXPECT_EQ(mManager->getObject(object, id, AcDb::kForNotify), Acad::eInvalidInput);
    AcDbDatabase other;
    EXPECT_EQ(mManager->getObject(object, other.layerZero()), Acad::eWrongDatabase);
    mManager->endTransaction();
    reader->close();
}

TEST_F(Transactions, ErasedAndLockedObjectsOpenWhenAskedFor)
{
    const AcDbObjectId erased = addLine(1), locked = addLine(2);
    {
        const AcDbObjectPointer<AcDbLine> line(erased, AcDb::kForWrite);
        line->erase();
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(mDatabase.layerZero(), AcDb::kForWrite);
        layer->setIsLocked(true);
    }
    mManager->startTransaction();
    AcDbObject* object = nullptr;
    EXPECT_EQ(mManager->getObject(object, erased), Acad::eWasErased);
    EXPECT_EQ(mManager->getObject(object, erased, AcDb::kForRead, true), Acad::eOk);
    EXPECT_EQ(mManager->getObject(object, locked, AcDb::kForWrite), Acad::eOnLockedLayer);
    EXPECT_EQ(mManager->getObject(object, locked, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(mManager->getObject(object, locked, AcDb::kForWrite, false, true), Acad::eOk);
    EXPECT_TRUE(object->isWriteEnabled());
    mManager->endTransaction();
    EXPECT_EQ(live::openObjects(mDatabase), 0);
}

TEST_F(Transactions, OnlyTheNewestOneOpens)
{
    const AcDbObjectId id = addLine(1);
    AcTransaction* outer = mManager->startTransaction();
    AcTransaction* inner = mManager->startTransaction();
    EXPECT_EQ(mManager->topTransaction(), inner);
    AcDbObject* object = nullptr;
    EXPECT_EQ(outer->getObject(object, id), Acad::eNotTopTransaction);
    EXPECT_EQ(inner->getObject(object, id), Acad::eOk);
    EXPECT_EQ(inner->markObjectPageable(object), Acad::eOk);
    EXPECT_EQ(outer->markObjectPageable(object), Acad::eInvalidInput);
    mManager->abortTransaction();
    mManager->abortTransaction();
    AcDbLine unadded;
    mManager->startTransaction();
    EXPECT_EQ(mManager->addNewlyCreatedDBRObject(&unadded), Acad::eNotInDatabase);
    EXPECT_EQ(mManager->addNewlyCreatedDBRObject(nullptr), Acad::eNullObjectPointer);
    mManager->endTransaction();
}

TEST_F(Transactions, ReactorsAreToldOfEachTurn)
{
    struct Log : AcTransactionReactor {
        std::wstring told;
        void transactionAboutToStart(int& n, AcDbTransactionManager*) override { add(L's', n); }
        void transactionStarted(int& n, AcDbTransactionManager*) override { add(L'S', n); }
        void transactionAboutToEnd(int& n, AcDbTransactionManager*) override { add(L'e', n); }
        void transactionEnded(int& n, AcDbTransactionManager*) override { add(L'E', n); }
        void transactionAboutToAbort(int& n, AcDbTransactionManager*) override { add(L'a', n); }
        void transactionAborted(int& n, AcDbTransactionManager*) override { add(L'A', n); }
        void endCalledOnOutermostTransaction(int& n, AcDbTransactionManager*) override { add(L'o', n); }
        void add(wchar_t what, int n) { told += what + std::to_wstring(n); }
    } log;
    mManager->addReactor(&log);
    mManager->startTransaction();
    mManager->startTransaction();
    mManager->abortTransaction();
    mManager->endTransaction();
    mManager->removeReactor(&log);
    mManager->startTransaction();
    mManager->abortTransaction();
    EXPECT_EQ(log.told, L"s0S1s1S2a2A1e1o1E0");
}
