#include "ArxDbgDocLockWrite.h"

#include "CDebugError.h"
#include "dbapserv.h"

namespace
{
Acad::ErrorStatus reported(Acad::ErrorStatus status)
{
    if (status != Acad::eOk) CArxUtils::CDebugError::RxErrorMsg(status);
    return status;
}
} // namespace

ArxDbgDocLockWrite::ArxDbgDocLockWrite()
    : ArxDbgDocLockWrite(acdbHostApplicationServices()->workingDatabase())
{
}

ArxDbgDocLockWrite::ArxDbgDocLockWrite(AcDbDatabase* database)
    : m_database(database), m_document(database ? acDocManager->document(database) : nullptr)
{
}

ArxDbgDocLockWrite::~ArxDbgDocLockWrite()
{
    ArxDbgDocLockWrite::unlockAndRestoreCurrent();
}

Acad::ErrorStatus ArxDbgDocLockWrite::setDatabase(AcDbDatabase* database)
{
    if (database == m_database) return Acad::eOk;
    if (m_locked) return Acad::eInvalidInput;
    m_database = database;
    m_document = database ? acDocManager->document(database) : nullptr;
    return Acad::eOk;
}

Acad::ErrorStatus ArxDbgDocLockWrite::doLock()
{
    if (m_locked) return Acad::eOk;
    if (!m_database) return Acad::eNullPtr;
    if (!m_document) return Acad::eNoDocument;
    const Acad::ErrorStatus status = acDocManager->lockDocument(m_document, AcAp::kWrite);
    m_locked = status == Acad::eOk;
    return status;
}

Acad::ErrorStatus ArxDbgDocLockWrite::lock(AcDbDatabase* database)
{
    const Acad::ErrorStatus status = setDatabase(database);
    return status == Acad::eOk ? doLock() : status;
}

Acad::ErrorStatus ArxDbgDocLockWrite::lock()
{
    return doLock();
}

Acad::ErrorStatus ArxDbgDocLockWrite::lockAndSetCurrent(AcDbDatabase* database)
{
    const Acad::ErrorStatus status = setDatabase(database);
    return status == Acad::eOk ? lockAndSetCurrent() : status;
}

Acad::ErrorStatus ArxDbgDocLockWrite::lockAndSetCurrent()
{
    const bool hadLock = m_locked;
    Acad::ErrorStatus status = doLock();
    AcApDocument* const current = curDoc();
    if (status != Acad::eOk || current == m_document) return status;
    status = acDocManager->setCurDocument(m_document, AcAp::kNone, false);
    if (status != Acad::eOk) {
        if (!hadLock) unlock();
        return status;
    }
    m_previous = current;
    m_madeCurrent = true;
    return status;
}

Acad::ErrorStatus ArxDbgDocLockWrite::unlock()
{
    if (!m_locked) return Acad::eOk;
    const Acad::ErrorStatus status = reported(acDocManager->unlockDocument(m_document));
    if (status == Acad::eOk) m_locked = false;
    return status;
}

Acad::ErrorStatus ArxDbgDocLockWrite::unlockAndRestoreCurrent()
{
    const Acad::ErrorStatus status = unlock();
    if (!m_madeCurrent) return status;
    m_madeCurrent = false;
    const Acad::ErrorStatus restored = reported(acDocManager->setCurDocument(m_previous, AcAp::kNone, false));
    return status != Acad::eOk ? status : restored;
}
