#include "dbid.h"

#include "DbObjectAccess.h"
#include "Stub.h"
#include "dbobjptr2.h"

#include <cwctype>

const AcDbObjectId AcDbObjectId::kNull;

AcDbHandle::AcDbHandle(const ACHAR* hexText)
{
    for (; hexText && std::iswxdigit(static_cast<std::wint_t>(*hexText)); ++hexText) {
        if (*hexText > L'f') break;
        const int digit = *hexText <= L'9' ? *hexText - L'0' : (*hexText | 0x20) - L'a' + 10;
        if (mValue >> 60) { // zeros in front are no digits too many
            mValue = 0;
            return;
        }
        mValue = mValue << 4 | static_cast<std::uint64_t>(digit);
    }
}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer, std::size_t capacity) const
{
    ACHAR digits[17];
    std::size_t count = 0;
    std::uint64_t rest = mValue;
    do {
        digits[count++] = L"0123456789ABCDEF"[rest & 15];
        rest >>= 4;
    } while (rest);
    if (!buffer || capacity <= count) {
        if (buffer && capacity) *buffer = L'\0';
        return false;
    }
    for (std::size_t i = 0; i < count; ++i) buffer[i] = digits[count - 1 - i];
    buffer[count] = L'\0';
    return true;
}

bool AcDbObjectId::isValid() const { return mStub && mStub->object; }
bool AcDbObjectId::isResident() const { return isValid(); }
AcDbDatabase* AcDbObjectId::database() const { return mStub ? mStub->database : nullptr; }
AcDbHandle AcDbObjectId::handle() const { return AcDbHandle(mStub ? mStub->handle : 0); }
AcRxClass* AcDbObjectId::objectClass() const { return isValid() ? mStub->object->isA() : nullptr; }
bool AcDbObjectId::isErased() const { return mStub && mStub->erased; }

bool AcDbObjectId::isEffectivelyErased() const
{
    // Owners form a tree; a damaged file may hold a ring, which the count ends.
    AcDbObjectId at = *this;
    for (int depth = 0; depth < 64 && at.isValid(); ++depth) {
        if (at.isErased()) return true;
        at = at.mStub->object->ownerId();
    }
    return false;
}

AcDbObject* smartptr::openedObject(AcDbObjectId id) { return residentObject(id); }

Acad::ErrorStatus DbObjectAccess::find(AcDbObjectId id, bool openErased)
{
    if (id.isNull()) return Acad::eNullObjectId;
    if (!id.isValid()) return Acad::eUnknownHandle;
    if (id.isErased() && !openErased) return Acad::eWasErased;
    return static_cast<AcDbStub*>(id)->undone ? Acad::ePermanentlyErased : Acad::eOk;
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased)
{
    object = nullptr;
    Acad::ErrorStatus status = DbObjectAccess::find(id, openErased);
    if (status != Acad::eOk) return status;
    AcDbObject* found = static_cast<AcDbStub*>(id)->object;
    status = DbObjectAccess::open(*found, mode);
    if (status == Acad::eOk) object = found;
    return status;
}
