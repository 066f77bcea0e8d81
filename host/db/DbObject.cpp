#include "dbobject.h"

#include "ClassRegistration.h"
#include "DatabaseHooks.h"
#include "DbObjectAccess.h"
#include "ObjectFiling.h"
#include "ObjectNotices.h"
#include "OwnedObjects.h"
#include "UndoRecording.h"

#include <algorithm>

ACDB_ABSTRACT_CLASS(AcDbObject, AcRxObject)
ACDB_ABSTRACT_CLASS(AcDbObjectReactor, AcRxObject)

namespace
{
constexpr int maxReaders = 256;
}

AcDbObject::AcDbObject()
    : mReaders(0), mIsStateKept(false), mInTransaction(false), mIsUndoing(false), mIsUndoOff(false),
      mOpenForWrite(false), mOpenForNotify(false), mIsNew(true), mModified(false), mModifiedGraphics(false),
      mModifiedXData(false), mNotifying(false), mEraseToggled(false)
{
}

AcDbObject::AcDbObject(const AcDbObject&) : AcDbObject() {}
AcDbObject& AcDbObject::operator=(const AcDbObject&) { return *this; }

AcDbObject::~AcDbObject()
{
    if (mExtras) notices::goodbye(*this);
}

Acad::ErrorStatus AcDbObject::setOwnerId(AcDbObjectId owner)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) mOwner = owner;
    return status;
}

bool AcDbObject::isReadEnabled() const { return !mStub || mReaders || mOpenForWrite || mOpenForNotify; }
bool AcDbObject::isErased() const { return mStub && mStub.isErased(); }

Acad::ErrorStatus AcDbObject::upgradeOpen()
{
    if (mOpenForWrite) return Acad::eWasOpenForWrite;
    if (mReaders == 0) return mOpenForNotify ? Acad::eWasOpenForNotify : Acad::eInvalidOpenState;
    if (mReaders > 1) return Acad::eHadMultipleReaders;
    const Acad::ErrorStatus allowed = hooks::mayWrite(*this);
    if (allowed != Acad::eOk) return allowed;
    mReaders = 0;
    mOpenForWrite = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::upgradeFromNotify(bool& wasWritable)
{
    wasWritable = mOpenForWrite;
    if (!mOpenForNotify) return Acad::eInvalidOpenState;
    if (mReaders) return Acad::eWasOpenForRead;
    const Acad::ErrorStatus allowed = hooks::mayWrite(*this);
    if (allowed != Acad::eOk) return allowed;
    mOpenForNotify = false;
    mOpenForWrite = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeOpen()
{
    if (!mOpenForWrite) return Acad::eWasNotOpenForWrite;
    notices::changesOf(*this);
    DbObjectAccess::settle(*this);
    mReaders = 1;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeToNotify(bool wasWritable)
{
    if (!mOpenForWrite) return Acad::eWasNotOpenForWrite;
    if (!wasWritable) {
        notices::changesOf(*this);
        DbObjectAccess::settle(*this);
    }
    mOpenForNotify = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::close()
{
    if (mOpenForNotify) {
        mOpenForNotify = false;
        return Acad::eOk;
    }
    if (mInTransaction) return DbObjectAccess::closeInTransaction(*this);
    if (mReaders) {
        --mReaders;
        return Acad::eOk;
    }
    if (!mOpenForWrite) return Acad::eInvalidOpenState;
    if (mNotifying) return Acad::eCloseWasNotifying;
    subClose();
    notices::changesOf(*this);
    DbObjectAccess::settle(*this);
    notices::closed(*this);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::cancel()
{
    if (!mOpenForWrite) return close();
    if (mInTransaction) return Acad::eInvalidOpenState;
    // An object added in this very opening never was: erased is the nearest state that ids can still ask about.
    if (mIsNew || mEraseToggled) {
        static_cast<AcDbStub*>(mStub)->erased = mIsNew || !isErased();
        owned::followErase(*this, isErased());
    }
    DbObjectAccess::takeBack(*this);
    notices::cancelled(*this);
    if (mIsNew) notices::unappended(*this);
    DbObjectAccess::settle(*this);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::disableUndoRecording(bool disable)
{
    if (!mOpenForWrite) return Acad::eNotOpenForWrite;
    mIsUndoOff = disable;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::assertWriteEnabled(bool autoUndo, bool recordModified)
{
    if (!mStub) return Acad::eOk;
    if (!mOpenForWrite) return Acad::eNotOpenForWrite;
    if (autoUndo && !mIsStateKept && !mIsNew) DbObjectAccess::keepState(*this);
    if (!recordModified || mModified) return Acad::eOk;
    mModified = true;
    if (!mIsNew) notices::openedForModify(*this);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::erase(bool erasing)
{
    if (!mStub) return Acad::eNotInDatabase;
    if (!mOpenForWrite) return Acad::eNotOpenForWrite;
    if (erasing == isErased()) return erasing ? Acad::eWasErased : Acad::eWasNotErased;
    const Acad::ErrorStatus status = subErase(erasing);
    if (status != Acad::eOk) return status;
    assertWriteEnabled();
    mEraseToggled = !mEraseToggled;
    static_cast<AcDbStub*>(mStub)->erased = erasing;
    owned::followErase(*this, erasing);
    notices::erased(*this, erasing);
    return Acad::eOk;
}

const DxfClass* AcDbObject::dxfClass() const { return nullptr; }
std::string_view AcDbObject::dxfRecordName() const { return isA()->dxfRecordName(); }

AcRxObject* AcDbObject::clone() const { return filing::copyOf(*this).release(); }

Acad::ErrorStatus AcDbObject::copyFrom(const AcRxObject* other)
{
    if (!other) return Acad::eNullObjectPointer;
    if (other->isA() != isA()) return Acad::eWrongObjectType;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) filing::assign(*this, *static_cast<const AcDbObject*>(other));
    return status;
}

void DbObjectAccess::makeResident(AcDbObject& object, AcDbStub& stub, AcDbObjectId owner)
{
    stub.object = &object;
    object.mStub = &stub;
    object.mOwner = owner;
    object.mOpenForWrite = true;
}

DbObjectExtras& DbObjectAccess::needExtras(AcDbObject& object)
{
    if (!object.mExtras) object.mExtras = std::make_unique<DbObjectExtras>();
    return *object.mExtras;
}

Acad::ErrorStatus DbObjectAccess::open(AcDbObject& object, AcDb::OpenMode mode)
{
    if (object.mOpenForNotify) return Acad::eWasOpenForNotify;
    if (object.mInTransaction && mode != AcDb::kForNotify) return openInTransaction(object, mode);
    if (mode == AcDb::kForNotify) {
        object.mOpenForNotify = true;
        return Acad::eOk;
    }
    if (object.mOpenForWrite) return Acad::eWasOpenForWrite;
    if (mode == AcDb::kForRead) {
        if (object.mReaders == maxReaders) return Acad::eAtMaxReaders;
        ++object.mReaders;
        return Acad::eOk;
    }
    if (object.mReaders) return Acad::eWasOpenForRead;
    const Acad::ErrorStatus allowed = hooks::mayWrite(object);
    if (allowed == Acad::eOk) object.mOpenForWrite = true;
    return allowed;
}

Acad::ErrorStatus DbObjectAccess::openUnlocked(AcDbObject& object)
{
    if (object.mOpenForNotify) return Acad::eWasOpenForNotify;
    if (object.mReaders) return Acad::eWasOpenForRead;
    if (object.mOpenForWrite) return Acad::eWasOpenForWrite;
    object.mOpenForWrite = true;
    return Acad::eOk;
}

void DbObjectAccess::settle(AcDbObject& object)
{
    object.mOpenForWrite = false;
    object.mIsNew = object.mModified = object.mModifiedGraphics = object.mModifiedXData = object.mEraseToggled = false;
    if (object.mExtras) undo::handOver(object, *object.mExtras);
    object.mIsStateKept = object.mIsUndoOff = false;
}

void DbObjectAccess::keepState(AcDbObject& object)
{
    needExtras(object).before = std::make_unique<ObjectEdit>(object);
    object.mIsStateKept = true;
}

void DbObjectAccess::takeBack(AcDbObject& object)
{
    if (!object.mExtras) return;
    auto edits = std::move(object.mExtras->edits);
    const auto before = std::move(object.mExtras->before);
    object.mExtras->edits.clear();
    std::for_each(edits.rbegin(), edits.rend(), [&](auto& edit) { edit->exchange(*object.database()); });
    if (before) before->restore(object);
}
