/// Open states of objects that a transaction holds.

#include "DatabaseHooks.h"
#include "DbObjectAccess.h"
#include "UndoRecording.h"

Acad::ErrorStatus DbObjectAccess::openInTransaction(AcDbObject& object, AcDb::OpenMode mode)
{
    const bool isRaised = mode == AcDb::kForWrite && !object.mOpenForWrite;
    const Acad::ErrorStatus status = isRaised ? object.upgradeOpen() : Acad::eOk;
    if (status == Acad::eOk) ++needExtras(object).transactionOpens;
    return status;
}

Acad::ErrorStatus DbObjectAccess::closeInTransaction(AcDbObject& object)
{
    int& opens = needExtras(object).transactionOpens;
    if (opens == 0) return Acad::eInvalidOpenState;
    --opens;
    return Acad::eOk;
}

void DbObjectAccess::leaveTransaction(AcDbObject& object)
{
    object.mInTransaction = false;
    if (object.mExtras) object.mExtras->transactionOpens = 0;
}

void DbObjectAccess::handOverChanges(AcDbObject& object)
{
    if (object.mExtras) undo::handOver(object, *object.mExtras);
    object.mIsStateKept = false;
}

void DbObjectAccess::abandon(AcDbObject& object)
{
    if (object.mOpenForWrite) {
        settle(object);
    } else if (object.mReaders) {
        --object.mReaders;
    }
}

Acad::ErrorStatus DbObjectAccess::raise(AcDbObject& object, bool forced)
{
    if (!forced) return object.upgradeOpen();
    const Acad::ErrorStatus allowed = hooks::mayWrite(object.database());
    if (allowed != Acad::eOk) return allowed;
    if (object.mReaders != 1) return Acad::eHadMultipleReaders;
    object.mReaders = 0;
    return openUnlocked(object);
}

Acad::ErrorStatus DbObjectAccess::openOnLockedLayer(AcDbObject& object, AcDb::OpenMode mode)
{
    if (mode != AcDb::kForWrite) return open(object, mode);
    const Acad::ErrorStatus allowed = hooks::mayWrite(object.database());
    return allowed == Acad::eOk ? openUnlocked(object) : allowed;
}
