#pragma once

#include "acdocman.h"

#include <afxwin.h>

/// Locks the document of a database for writing, and unlocks it on request or at the object's end. One object
/// holds at most one lock.
class AFX_EXT_CLASS ArxDbgDocLockWrite
{
public:
    /// For the working database. Nothing is locked yet.
    ArxDbgDocLockWrite();
    explicit ArxDbgDocLockWrite(AcDbDatabase* database);
    /// Unlocks, and makes the document current again that was before lockAndSetCurrent.
    virtual ~ArxDbgDocLockWrite();
    ArxDbgDocLockWrite(const ArxDbgDocLockWrite&) = delete;
    ArxDbgDocLockWrite& operator=(const ArxDbgDocLockWrite&) = delete;

    /// Lock the document of a database, the one held or another one, which is held from then on. A second
    /// lock changes nothing. eNullPtr for no database, eNoDocument for one without document, eLockConflict
    /// and others of lockDocument; eInvalidInput, and nothing is changed, for another database while a lock
    /// is taken.
    virtual Acad::ErrorStatus lock(AcDbDatabase* database);
    virtual Acad::ErrorStatus lock();
    /// The same, and make the document current, without activating it. After a failure there is no lock more
    /// than before.
    virtual Acad::ErrorStatus lockAndSetCurrent(AcDbDatabase* database);
    virtual Acad::ErrorStatus lockAndSetCurrent();

    /// Give back the lock that this object took; eOk when it has none. The second also makes the document
    /// current that was so before, and gives the first failure of both steps.
    virtual Acad::ErrorStatus unlock();
    virtual Acad::ErrorStatus unlockAndRestoreCurrent();

protected:
    virtual Acad::ErrorStatus setDatabase(AcDbDatabase* database);
    virtual Acad::ErrorStatus doLock();

private:
    AcDbDatabase* m_database;
    AcApDocument* m_document;
    bool m_locked = false;
    bool m_madeCurrent = false;
    AcApDocument* m_previous = nullptr;
};
