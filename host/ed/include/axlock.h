#pragma once

/// AcAxDocLock: a document locked for as long as an object lives.

#include "acdocman.h"

class AcAxDocLock
{
public:
    enum DocLockType { kNormal, kCheckOpen };

    /// Locks the current document.
    AcAxDocLock();
    /// Locks the document of an object's drawing, or of a drawing, and makes it current. A drawing that is in no document
    /// needs no lock: eOk, and document() is null. eNullObjectId for the null id, eNoDatabase for no drawing.
    explicit AcAxDocLock(const AcDbObjectId& id, DocLockType type = kNormal);
    explicit AcAxDocLock(AcDbDatabase* database);
    AcAxDocLock(const AcAxDocLock&) = delete;
    AcAxDocLock& operator=(const AcAxDocLock&) = delete;
    /// Takes the lock back, and makes the document current that was so before.
    ~AcAxDocLock();

    /// How locking went: the statuses of AcApDocManager::lockDocument.
    Acad::ErrorStatus lockStatus() const { return mStatus; }
    AcApDocument* document() const { return mDocument; }

private:
    void lock(AcApDocument* document);

    Acad::ErrorStatus mStatus = Acad::eOk;
    AcApDocument* mDocument = nullptr;
    AcApDocument* mBefore = nullptr; ///< the document to make current again; null when it is so
};
