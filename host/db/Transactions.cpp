#include "Transactions.h"

#include "ClassRegistration.h"
#include "DatabaseState.h"
#include "dbapserv.h"
#include "DbObjectAccess.h"
#include "ObjectNotices.h"
#include "UndoRecording.h"

#include <algorithm>

ACDB_ABSTRACT_CLASS(AcTransaction, AcRxObject)
ACDB_ABSTRACT_CLASS(AcTransactionReactor, AcRxObject)
ACDB_ABSTRACT_CLASS(AcDbTransactionManager, AcRxObject)
ACDB_ABSTRACT_CLASS(AcTransactionManager, AcDbTransactionManager)

namespace
{
class Transaction final : public AcTransaction
{
public:
    explicit Transaction(Transactions& manager) : mManager(manager) {}
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool erased) override
    {
        object = nullptr;
        if (mManager.topTransaction() != this) return Acad::eNotTopTransaction;
        return mManager.getObject(object, id, mode, erased, false);
    }
    Acad::ErrorStatus markObjectPageable(AcDbObject* object) override
    {
        AcDbVoidPtrArray mine;
        mManager.getObjectsOf(*this, mine);
        return object && mine.contains(object) ? Acad::eOk : Acad::eInvalidInput;
    }
    Acad::ErrorStatus getAllObjects(AcDbVoidPtrArray& objects) override
    {
        return mManager.getObjectsOf(*this, objects);
    }

private:
    Transactions& mManager;
};

UndoJournal& journalOf(AcDbDatabase& database)
{
    return undo::historyOf(database).journal();
}

Transactions* transactionsOf(AcDbDatabase* database)
{
    return database ? static_cast<Transactions*>(database->transactionManager()) : nullptr;
}
} // namespace

AcTransaction* Transactions::startTransaction()
{
    tell(&AcTransactionReactor::transactionAboutToStart);
    UndoJournal& journal = journalOf(mDatabase);
    if (mLevels.empty()) journal.hold();
    handOverChanges();
    const std::size_t first = journal.cut();
    for (const Held& held : mHeld) {
        if (held.object->isNewObject()) DbObjectAccess::keepState(*held.object);
    }
    mLevels.push_back({std::make_unique<Transaction>(*this), first});
    tell(&AcTransactionReactor::transactionStarted);
    return topTransaction();
}

/// What was changed before a transaction within another is no part of it.
void Transactions::handOverChanges()
{
    for (const Held& held : mHeld)
        DbObjectAccess::handOverChanges(*held.object);
}

Acad::ErrorStatus Transactions::endTransaction()
{
    if (mLevels.empty()) return Acad::eNoActiveTransactions;
    tell(&AcTransactionReactor::transactionAboutToEnd);
    const bool isOutermost = mLevels.size() == 1;
    if (isOutermost) {
        tell(&AcTransactionReactor::endCalledOnOutermostTransaction);
        closeAll();
    }
    mLevels.pop_back();
    for (Held& held : mHeld)
        held.level = std::min(held.level, mLevels.size());
    if (isOutermost) journalOf(mDatabase).release();
    tell(&AcTransactionReactor::transactionEnded);
    return Acad::eOk;
}

/// Reactors that are told of the closing may open more.
void Transactions::closeAll()
{
    for (std::size_t i = 0; i < mHeld.size(); ++i) {
        DbObjectAccess::leaveTransaction(*mHeld[i].object);
        mHeld[i].object->close();
    }
    mHeld.clear();
}

Acad::ErrorStatus Transactions::abortTransaction()
{
    if (mLevels.empty()) return Acad::eNoActiveTransactions;
    tell(&AcTransactionReactor::transactionAboutToAbort);
    handOverChanges();
    const std::vector<AcDbObjectId> closed = letGo();
    UndoJournal& journal = journalOf(mDatabase);
    journal.rollBack(mLevels.back().firstSegment);
    mLevels.pop_back();
    if (mLevels.empty()) journal.release();
    for (const AcDbObjectId id : closed)
        notices::cancelled(*residentObject(id));
    tell(&AcTransactionReactor::transactionAborted);
    return Acad::eOk;
}

/// Closes what the newest transaction has opened. The objects that were open for write.
std::vector<AcDbObjectId> Transactions::letGo()
{
    const auto mine = std::stable_partition(mHeld.begin(), mHeld.end(),
                                            [&](const Held& held) { return held.level < mLevels.size(); });
    std::vector<AcDbObjectId> written;
    for (auto held = mine; held != mHeld.end(); ++held) {
        if (held->object->isWriteEnabled()) written.push_back(held->object->objectId());
        DbObjectAccess::leaveTransaction(*held->object);
        DbObjectAccess::abandon(*held->object);
    }
    mHeld.erase(mine, mHeld.end());
    return written;
}

AcTransaction* Transactions::topTransaction()
{
    return mLevels.empty() ? nullptr : mLevels.back().transaction.get();
}

Acad::ErrorStatus Transactions::hold(AcDbObject& object, AcDb::OpenMode mode, bool forced)
{
    if (object.isTransactionResident()) {
        const bool isEnough = mode == AcDb::kForRead || object.isWriteEnabled();
        return isEnough ? Acad::eOk : DbObjectAccess::raise(object, forced);
    }
    const Acad::ErrorStatus status =
        forced ? DbObjectAccess::openOnLockedLayer(object, mode) : DbObjectAccess::open(object, mode);
    if (status != Acad::eOk) return status;
    DbObjectAccess::enterTransaction(object);
    mHeld.push_back({&object, mLevels.size()});
    return status;
}

Acad::ErrorStatus Transactions::getObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                          bool openErased, bool forced)
{
    object = nullptr;
    if (mLevels.empty()) return Acad::eNoActiveTransactions;
    if (mode != AcDb::kForRead && mode != AcDb::kForWrite) return Acad::eInvalidInput;
    const Acad::ErrorStatus found = DbObjectAccess::find(id, openErased);
    if (found != Acad::eOk) return found;
    if (id.database() != &mDatabase) return Acad::eWrongDatabase;
    const Acad::ErrorStatus status = hold(*residentObject(id), mode, forced);
    if (status == Acad::eOk) object = residentObject(id);
    return status;
}

Acad::ErrorStatus Transactions::addNewlyCreatedDBRObject(AcDbObject* object, bool add)
{
    if (mLevels.empty()) return Acad::eNoActiveTransactions;
    if (!object) return Acad::eNullObjectPointer;
    if (!object->database()) return Acad::eNotInDatabase;
    if (object->database() != &mDatabase) return Acad::eWrongDatabase;
    if (!object->isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (object->isTransactionResident() == add) return add ? Acad::eOk : Acad::eInvalidInput;
    if (add) {
        DbObjectAccess::enterTransaction(*object);
        mHeld.push_back({object, mLevels.size()});
        return Acad::eOk;
    }
    DbObjectAccess::leaveTransaction(*object);
    mHeld.erase(std::find_if(mHeld.begin(), mHeld.end(), [&](const Held& held) { return held.object == object; }));
    return Acad::eOk;
}

Acad::ErrorStatus Transactions::markObjectPageable(AcDbObject* object)
{
    if (mLevels.empty()) return Acad::eNoActiveTransactions;
    if (!object) return Acad::eNullObjectPointer;
    const bool isMine = object->database() == &mDatabase && object->isTransactionResident();
    return isMine ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus Transactions::queueForGraphicsFlush()
{
    return mLevels.empty() ? Acad::eNoActiveTransactions : Acad::eOk;
}

Acad::ErrorStatus Transactions::getAllObjects(AcDbVoidPtrArray& objects)
{
    if (mLevels.empty()) return Acad::eNoActiveTransactions;
    for (const Held& held : mHeld)
        objects.append(held.object);
    return Acad::eOk;
}

Acad::ErrorStatus Transactions::getObjectsOf(const AcTransaction& transaction, AcDbVoidPtrArray& objects) const
{
    const auto at = std::find_if(mLevels.begin(), mLevels.end(),
                                 [&](const Level& level) { return level.transaction.get() == &transaction; });
    const auto level = static_cast<std::size_t>(at - mLevels.begin()) + 1;
    for (const Held& held : mHeld) {
        if (held.level == level) objects.append(held.object);
    }
    return Acad::eOk;
}

void Transactions::addReactor(AcTransactionReactor* reactor)
{
    const bool isKnown = std::find(mReactors.begin(), mReactors.end(), reactor) != mReactors.end();
    if (reactor && !isKnown) mReactors.push_back(reactor);
}

void Transactions::removeReactor(AcTransactionReactor* reactor)
{
    mReactors.erase(std::remove(mReactors.begin(), mReactors.end(), reactor), mReactors.end());
}

void Transactions::tell(Event event)
{
    const std::vector<AcTransactionReactor*> some = mReactors;
    for (AcTransactionReactor* reactor : some) {
        int count = numActiveTransactions();
        const bool isThere = std::find(mReactors.begin(), mReactors.end(), reactor) != mReactors.end();
        if (isThere) (reactor->*event)(count, this);
    }
}

AcDbTransactionManager* AcDbDatabase::transactionManager() const
{
    if (!mState->transactions)
        mState->transactions = std::make_unique<Transactions>(const_cast<AcDbDatabase&>(*this));
    return mState->transactions.get();
}

AcDbTransactionManager* AcDbHostApplicationServices::workingTransactionManager() const
{
    return mWorking ? mWorking->transactionManager() : nullptr;
}

AcDbTransactionManager* acdbTransactionManagerPtr()
{
    return acdbHostApplicationServices()->workingTransactionManager();
}

AcTransactionManager* acTransactionManagerPtr()
{
    return transactionsOf(acdbHostApplicationServices()->workingDatabase());
}
