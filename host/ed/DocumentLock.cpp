#include "axlock.h"

AcAxDocLock::AcAxDocLock() { lock(acDocManager->curDocument()); }

AcAxDocLock::AcAxDocLock(const AcDbObjectId& id, DocLockType)
{
    mStatus = id.isNull() ? Acad::eNullObjectId : Acad::eOk;
    if (AcApDocument* found = id.isNull() ? nullptr : acDocManager->document(id.database())) lock(found);
}

AcAxDocLock::AcAxDocLock(AcDbDatabase* database)
{
    mStatus = database ? Acad::eOk : Acad::eNoDatabase;
    if (AcApDocument* found = database ? acDocManager->document(database) : nullptr) lock(found);
}

void AcAxDocLock::lock(AcApDocument* document)
{
    mStatus = document ? acDocManager->lockDocument(document) : Acad::eNoDocument;
    if (mStatus != Acad::eOk) return;
    mDocument = document;
    AcApDocument* const current = acDocManager->curDocument();
    if (current == document) return;
    mBefore = current;
    acDocManager->setCurDocument(document);
}

AcAxDocLock::~AcAxDocLock()
{
    if (!mDocument) return;
    acDocManager->unlockDocument(mDocument);
    if (mBefore) acDocManager->setCurDocument(mBefore);
}
