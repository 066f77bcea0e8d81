#include "DbObjectAccess.h"
#include "dbblock.h"
#include "EntityAccess.h"
#include "ObjectFiling.h"
#include "ObjectNotices.h"
#include "UndoEdit.h"

namespace
{
/// Proxies copy no members, but have the properties that every entity has.
AcDbObject* copyOfProperties(const AcDbObject& object)
{
    const auto* entity = AcDbEntity::cast(&object);
    if (!entity) return nullptr;
    auto* keeper = new AcDbSequenceEnd;
    EntityAccess::takeProperties(*keeper, *entity);
    return keeper;
}

void tellErased(AcDbStub& stub, bool wasErased)
{
    AcDbObject* object = stub.object;
    if (object && wasErased != stub.erased) notices::erased(*object, stub.erased);
}
} // namespace

ObjectEdit::ObjectEdit(const AcDbObject& object)
    : mStub(object.objectId()), mCopy(filing::copyOf(object, AcDb::kUndoFiler)), mOwner(object.ownerId()),
      mIsErased(object.isErased())
{
    if (!mCopy) {
        mCopy.reset(copyOfProperties(object));
        mIsPropertiesOnly = mCopy != nullptr;
    }
    const AttachedData* attached = DbObjectAccess::extras(object);
    if (attached && !attached->empty()) mAttached = std::make_unique<AttachedData>(*attached);
}

void ObjectEdit::put(AcDbObject& object)
{
    if (mIsPropertiesOnly) {
        EntityAccess::takeProperties(static_cast<AcDbEntity&>(object), static_cast<AcDbEntity&>(*mCopy));
    } else if (mCopy) {
        filing::assign(object, *mCopy, AcDb::kUndoFiler);
    }
    AttachedData* attached = DbObjectAccess::extras(object);
    if (!attached && mAttached) attached = &DbObjectAccess::needExtras(object);
    if (attached) *attached = mAttached ? std::move(*mAttached) : AttachedData();
    DbObjectAccess::setOwner(object, mOwner);
}

void ObjectEdit::restore(AcDbObject& object)
{
    if (mCopy) object.subCancel(*mCopy);
    object.subCancel();
    put(object);
}

void ObjectEdit::exchange(AcDbDatabase&)
{
    AcDbObject* object = mStub->object;
    if (!object) return;
    ObjectEdit now(*object);
    const DbObjectAccess::Undoing undoing(*object);
    // The table finds its records by name; what else follows an object has edits of its own.
    auto* record = AcDbSymbolTableRecord::cast(object);
    if (record && mCopy) static_cast<AcDbObject*>(record)->subCancel(*mCopy);
    put(*object);
    mStub->erased = mIsErased;
    mCopy = std::move(now.mCopy);
    mAttached = std::move(now.mAttached);
    mOwner = now.mOwner;
    mIsErased = now.mIsErased;
}

void ObjectEdit::tell(AcDbDatabase&) const
{
    if (!mStub->object) return;
    const DbObjectAccess::Undoing undoing(*mStub->object);
    notices::modifyUndone(*mStub->object);
    tellErased(*mStub, mIsErased);
}

EraseEdit::EraseEdit(AcDbStub& stub) : mStub(stub), mIsErased(stub.erased) {}

void EraseEdit::exchange(AcDbDatabase&)
{
    std::swap(mStub.erased, mIsErased);
}

void EraseEdit::tell(AcDbDatabase&) const
{
    tellErased(mStub, mIsErased);
}
