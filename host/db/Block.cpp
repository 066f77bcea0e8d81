#include "BlockAccess.h"
#include "DatabaseState.h"
#include "DbObjectAccess.h"
#include "DxfFields.h"
#include "EntityAccess.h"
#include "Stub.h"
#include "SymbolTableMembers.h"
#include "acutads.h"
#include "dbdatabase.h"

#include <algorithm>

ACDB_DXF_CLASS(AcDbBlockTableRecord, AcDbSymbolTableRecord, BLOCK_RECORD)
ACDB_SYMBOL_TABLE_MEMBERS(Block)

namespace
{
template <class T>
AcDbObjectId addHidden(AcDbDatabase& database, AcDbObjectId owner)
{
    AcDbObjectId id;
    auto* object = new T;
    database.addAcDbObject(id, object, owner);
    EntityAccess::resolveProperties(*object);
    object->close();
    return id;
}
} // namespace

void BlockAccess::addMarks(AcDbBlockTableRecord& block)
{
    block.mBegin = addHidden<AcDbBlockBegin>(*block.database(), block.objectId());
    block.mEnd = addHidden<AcDbBlockEnd>(*block.database(), block.objectId());
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity)
{
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity)
{
    id.setNull();
    if (!entity) return Acad::eNullEntityPointer;
    if (entity->database()) return Acad::eAlreadyInDb;
    if (!database()) return Acad::eNotInDatabase;
    const Acad::ErrorStatus writable = assertWriteEnabled(false);
    if (writable != Acad::eOk) return writable;
    const Acad::ErrorStatus status = database()->addAcDbObject(id, entity, objectId());
    if (status != Acad::eOk) return status;
    EntityAccess::resolveProperties(*entity);
    mEntities.push_back(id);
    entity->addedToDrawing();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::copyFrom(const AcRxObject* other)
{
    if (!other) return Acad::eNullObjectPointer;
    return other->isA() == isA() ? assertWriteEnabled() : Acad::eWrongObjectType;
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning,
                                                    bool skipDeleted) const
{
    iterator = new AcDbBlockTableRecordIterator(mEntities, atBeginning, skipDeleted);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& origin)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) mOrigin = origin;
    return status;
}

Acad::ErrorStatus AcDbBlockTableRecord::comments(ACHAR*& text) const
{
    return acutNewString(mComments, text) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbBlockTableRecord::comments(AcString& text) const
{
    text = AcString(mComments);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::pathName(AcString& path) const
{
    path = AcString(mPathName);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::setComments(const ACHAR* text)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) mComments = text;
    return status;
}

Acad::ErrorStatus AcDbBlockTableRecord::pathName(ACHAR*& path) const
{
    return acutNewString(mPathName, path) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbBlockTableRecord::setPathName(const ACHAR* path)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) mPathName = path;
    return status;
}

bool AcDbBlockTableRecord::isLayout() const
{
    return !mLayout.isNull() || mName.CompareNoCase(ACDB_MODEL_SPACE) == 0 ||
           mName.Left(12).CompareNoCase(ACDB_PAPER_SPACE) == 0;
}

Acad::ErrorStatus AcDbBlockTableRecord::setLayoutId(AcDbObjectId layout)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) mLayout = layout;
    return status;
}

Acad::ErrorStatus AcDbBlockTableRecord::setBlockInsertUnits(AcDb::UnitsValue units)
{
    if (units < AcDb::kUnitsUndefined || units > AcDb::kUnitsParsecs) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) mInsertUnits = static_cast<std::int16_t>(units);
    return status;
}

Acad::ErrorStatus AcDbBlockTableRecord::setExplodable(bool explodable)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) mExplodable = explodable;
    return status;
}

Acad::ErrorStatus AcDbBlockTableRecord::setBlockScaling(BlockScaling scaling)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) mUniformScale = scaling == kUniform;
    return status;
}

Acad::ErrorStatus AcDbBlockTableRecord::openBlockBegin(AcDbBlockBegin*& begin, AcDb::OpenMode mode) const
{
    return acdbOpenObject(begin, mBegin, mode);
}

Acad::ErrorStatus AcDbBlockTableRecord::openBlockEnd(AcDbBlockEnd*& end, AcDb::OpenMode mode) const
{
    return acdbOpenObject(end, mEnd, mode);
}

bool AcDbBlockTableRecord::isPermanent() const
{
    const bool isCurrentSpace = mName.CompareNoCase(ACDB_MODEL_SPACE) == 0 || mName.CompareNoCase(ACDB_PAPER_SPACE) == 0;
    return isCurrentSpace || (mLayout.isValid() && !mLayout.isErased());
}

CString AcDbBlockTableRecord::nameIn(const AcDbSymbolTable& table) const
{
    if (mName.GetLength() != 2 || mName[0] != L'*' || !wcschr(L"UDXTEAudxtea", mName[1])) return mName;
    CString name;
    // Most numbers up to that of the records are taken.
    for (std::size_t number = std::max<std::size_t>(table.recordIds().size(), 2) - 1;; ++number) {
        name.Format(L"%ls%d", static_cast<const wchar_t*>(mName), static_cast<int>(number));
        if (!table.has(name)) return name;
    }
}

void AcDbBlockTableRecord::addedToTable()
{
    if (mName[0] == L'*' && !isLayout()) mFlags |= 1;
    BlockAccess::addMarks(*this);
}

Acad::ErrorStatus AcDbBlockTableRecord::subErase(bool erasing)
{
    return AcDbSymbolTableRecord::subErase(erasing);
}

void AcDbBlockTableRecordIterator::start(bool atBeginning, bool skipDeleted)
{
    mAt = atBeginning ? 0 : mIds->size() - 1;
    if (!done() && skipDeleted && (*mIds)[mAt].isErased()) step(atBeginning, skipDeleted);
}

void AcDbBlockTableRecordIterator::step(bool forward, bool skipDeleted)
{
    do {
        mAt = forward ? mAt + 1 : mAt - 1;
    } while (!done() && skipDeleted && (*mIds)[mAt].isErased());
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::seek(AcDbObjectId id)
{
    for (std::size_t i = 0; i < mIds->size(); ++i) {
        if ((*mIds)[i] != id) continue;
        mAt = i;
        return Acad::eOk;
    }
    return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::seek(const AcDbEntity* entity)
{
    return entity ? seek(entity->objectId()) : Acad::eNullEntityPointer;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId& id) const
{
    if (done()) return Acad::eIteratorDone;
    id = (*mIds)[mAt];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity*& entity, AcDb::OpenMode mode,
                                                          bool openErased) const
{
    entity = nullptr;
    return done() ? Acad::eIteratorDone : acdbOpenObject(entity, (*mIds)[mAt], mode, openErased);
}

bool AcDbBlockTableRecord::hasAttributeDefinitions() const
{
    static const AcRxClass* definitions = acrxClassOfName(L"AcDbAttributeDefinition");
    return std::any_of(mEntities.begin(), mEntities.end(), [&](AcDbObjectId id) {
        return !id.isErased() && residentObject(id)->isKindOf(definitions);
    });
}
