#pragma once

/// Transactions: openings and changes that come to an end together, kept or taken back.
///
/// Objects that a transaction opens stay open until the outermost transaction ends, and are not closed by their users. They
/// may be asked for again, in either mode; asked for in write mode, one that is open for read is raised. acdbOpenObject
/// works on them too, and is then followed by close(), which leaves the object open. What is changed by openings of
/// that kind, of other objects as well, belongs to the transaction and is taken back with it.

#include "dbentity.h"


class AcDbTransactionManager;

/// One transaction; it belongs to the manager, and is gone when it has ended.
class AcTransaction : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcTransaction);

    /// Like getObject of the manager; eNotTopTransaction when another was started after this one.
    virtual Acad::ErrorStatus getObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                        bool openErasedObject = false) = 0;
    /// Like that of the manager, for objects of this transaction.
    virtual Acad::ErrorStatus markObjectPageable(AcDbObject* object) = 0;
    /// Appends what this transaction has opened.
    virtual Acad::ErrorStatus getAllObjects(AcDbVoidPtrArray& objects) = 0;
};

/// Told of transactions, while it is attached. `numTransactions` counts those that are active.
class AcTransactionReactor : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcTransactionReactor);
    virtual void transactionAboutToStart(int& /*numTransactions*/, AcDbTransactionManager*) {}
    virtual void transactionStarted(int& /*numTransactions*/, AcDbTransactionManager*) {}
    virtual void transactionAboutToEnd(int& /*numTransactions*/, AcDbTransactionManager*) {}
    virtual void transactionEnded(int& /*numTransactions*/, AcDbTransactionManager*) {}
    virtual void transactionAboutToAbort(int& /*numTransactions*/, AcDbTransactionManager*) {}
    virtual void transactionAborted(int& /*numTransactions*/, AcDbTransactionManager*) {}
    /// The outermost transaction ends: its objects are still open and may be changed.
    virtual void endCalledOnOutermostTransaction(int& /*numTransactions*/, AcDbTransactionManager*) {}
};

/// The transactions of one drawing, one within another. Without an active one, calls return eNoActiveTransactions.
class AcDbTransactionManager : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbTransactionManager);

    /// Begins a transaction, within the one that is active. Never null.
    virtual AcTransaction* startTransaction() = 0;
    /// Ends the newest transaction. What it has opened goes over to the one around it, or is closed when there is none.
    virtual Acad::ErrorStatus endTransaction() = 0;
    /// Ends the newest transaction and takes back all that was changed in the drawing since it started. What it has opened
    /// is closed; what was made is erased for good (ePermanentlyErased).
    virtual Acad::ErrorStatus abortTransaction() = 0;

    virtual int numActiveTransactions() = 0;
    /// How many objects the active transactions have opened.
    virtual int numOpenedObjects() = 0;
    /// The newest transaction; null when none is active.
    virtual AcTransaction* topTransaction() = 0;

    /// Opens an object of this drawing: the statuses of acdbOpenObject when somebody outside has it open, eWrongDatabase,
    /// eInvalidInput for kForNotify. With `forceOpenOnLockedLayer` it may be on a locked layer.
    virtual Acad::ErrorStatus getObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                        bool openErasedObject = false, bool forceOpenOnLockedLayer = false) = 0;
    /// Takes over an object that its maker has added to the drawing and has open for write: eNotInDatabase,
    /// eWrongDatabase, eNotOpenForWrite. Without `add` one is given back, open as it is (eInvalidInput for another).
    virtual Acad::ErrorStatus addNewlyCreatedDBRObject(AcDbObject* object, bool add = true) = 0;
    /// eInvalidInput unless a transaction has opened it. Objects always stay in memory here.
    virtual Acad::ErrorStatus markObjectPageable(AcDbObject* object) = 0;
    /// Nothing waits to be drawn here: eOk.
    virtual Acad::ErrorStatus queueForGraphicsFlush() = 0;
    /// Appends what all active transactions have opened, in that order.
    virtual Acad::ErrorStatus getAllObjects(AcDbVoidPtrArray& objects) = 0;

    virtual void addReactor(AcTransactionReactor* reactor) = 0;
    virtual void removeReactor(AcTransactionReactor* reactor) = 0;
};

/// The transactions of the working database; null when there is none.
AcDbTransactionManager* acdbTransactionManagerPtr();
#define acdbTransactionManager acdbTransactionManagerPtr()
