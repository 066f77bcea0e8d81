#include "dbentity.h"

#include "ClassRegistration.h"
#include "DatabaseHooks.h"
#include "DbObjectAccess.h"
#include "EntityAccess.h"
#include "Stub.h"
#include "acutads.h"
#include "dbapserv.h"
#include "dbblock.h"
#include "dbdatabase.h"

ACDB_ABSTRACT_CLASS(AcDbEntity, AcDbObject)
ACDB_ABSTRACT_CLASS(AcDbEntityReactor, AcDbObjectReactor)

namespace
{
/// Where an entity looks up names: its own drawing, or the working one.
AcDbDatabase* lookupDatabase(const AcDbEntity& entity)
{
    return entity.database() ? entity.database() : acdbHostApplicationServices()->workingDatabase();
}

template <class Table>
Acad::ErrorStatus findRecord(const AcDbEntity& entity, const ACHAR* name, AcDbObjectId& id)
{
    AcDbDatabase* database = lookupDatabase(entity);
    if (!database) return Acad::eNoDatabase;
    Table* table = nullptr;
    const Acad::ErrorStatus status = database->getSymbolTable(table, AcDb::kForRead);
    if (status != Acad::eOk) return status;
    const Acad::ErrorStatus found = table->getAt(name, id);
    table->close();
    return found;
}

const CString* nameOfRecord(AcDbObjectId id)
{
    const auto* record = AcDbSymbolTableRecord::cast(residentObject(id));
    return record ? &record->name() : nullptr;
}

ACHAR* copyOfName(AcDbObjectId id, const ACHAR* unresolved)
{
    const CString* name = nameOfRecord(id);
    ACHAR* copy = nullptr;
    acutNewString(name ? static_cast<const ACHAR*>(*name) : unresolved, copy);
    return copy;
}

bool isRecordOf(AcDbObjectId id, const AcRxClass* aClass) { return id.isValid() && id.objectClass()->isDerivedFrom(aClass); }
} // namespace

AcDbObjectId AcDbEntity::blockId() const
{
    AcDbObjectId id = ownerId();
    while (id.isValid() && !id.objectClass()->isDerivedFrom(AcDbBlockTableRecord::desc())) {
        id = residentObject(id)->ownerId();
    }
    return id.isValid() ? id : AcDbObjectId();
}

Acad::ErrorStatus AcDbEntity::beginChange()
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) recordGraphicsModified();
    return status;
}

Acad::ErrorStatus AcDbEntity::setColor(const AcCmColor& color, bool, AcDbDatabase*)
{
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mColor = color;
    mFileColorIndex = AcCmEntityColor::kACIstandard;
    return status;
}

std::uint16_t AcDbEntity::colorIndex() const { return static_cast<std::uint16_t>(mColor.colorIndex()); }

Acad::ErrorStatus AcDbEntity::setColorIndex(std::uint16_t color, bool doSubents)
{
    AcCmColor wanted;
    const Acad::ErrorStatus status = wanted.setColorIndex(color);
    return status == Acad::eOk ? setColor(wanted, doSubents) : status;
}

Acad::ErrorStatus AcDbEntity::setTransparency(const AcCmTransparency& transparency, bool)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mTransparency = transparency;
    return status;
}

AcDbObjectId AcDbEntity::layerId() const
{
    if (!mLayer.isNull()) return mLayer;
    const AcDbDatabase* database = lookupDatabase(*this);
    return database ? database->layerZero() : AcDbObjectId();
}

ACHAR* AcDbEntity::layer() const { return copyOfName(layerId(), L"0"); }

Acad::ErrorStatus AcDbEntity::layer(CString& name) const
{
    const CString* found = nameOfRecord(layerId());
    name = found ? *found : CString(L"0");
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::layer(AcString& name) const
{
    CString found;
    const Acad::ErrorStatus status = layer(found);
    name = AcString(found);
    return status;
}

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* name, bool doSubents, bool allowHiddenLayer)
{
    AcDbObjectId id;
    const Acad::ErrorStatus status = findRecord<AcDbLayerTable>(*this, name, id);
    return status == Acad::eOk ? setLayer(id, doSubents, allowHiddenLayer) : status;
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId id, bool, bool)
{
    if (!isRecordOf(id, AcDbLayerTableRecord::desc())) return Acad::eInvalidLayer;
    if (database() && id.database() != database()) return Acad::eWrongDatabase;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mLayer = id;
    return status;
}

AcDbObjectId AcDbEntity::linetypeId() const
{
    if (!mLinetype.isNull()) return mLinetype;
    const AcDbDatabase* database = lookupDatabase(*this);
    return database ? database->byLayerLinetype() : AcDbObjectId();
}

ACHAR* AcDbEntity::linetype() const { return copyOfName(linetypeId(), L"ByLayer"); }

Acad::ErrorStatus AcDbEntity::linetype(AcString& name) const
{
    const CString* found = nameOfRecord(linetypeId());
    name = AcString(found ? *found : CString(L"ByLayer"));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::highlight() const
{
    if (!database()) return Acad::eNotInDatabase;
    hooks::highlight(objectId(), true);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::unhighlight() const
{
    if (!database()) return Acad::eNotInDatabase;
    hooks::highlight(objectId(), false);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR* name, bool doSubents)
{
    AcDbObjectId id;
    const Acad::ErrorStatus status = findRecord<AcDbLinetypeTable>(*this, name, id);
    return status == Acad::eOk ? setLinetype(id, doSubents) : status;
}

Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId id, bool)
{
    if (!isRecordOf(id, AcDbLinetypeTableRecord::desc())) return Acad::eUndefinedLineType;
    if (database() && id.database() != database()) return Acad::eWrongDatabase;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mLinetype = id;
    return status;
}

Acad::ErrorStatus AcDbEntity::setLinetypeScale(double scale, bool)
{
    if (!(scale > 0.0)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mLinetypeScale = scale;
    return status;
}

Acad::ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight weight, bool)
{
    if (weight < AcDb::kLnWtByLwDefault || weight > AcDb::kLnWt211) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mLineWeight = static_cast<std::int16_t>(weight);
    return status;
}

Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility visibility, bool)
{
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mFlags = visibility == AcDb::kInvisible ? mFlags | EntityAccess::invisible : mFlags & ~EntityAccess::invisible;
    return status;
}

Acad::ErrorStatus AcDbEntity::setPropertiesFrom(const AcDbEntity* from, bool)
{
    if (!from) return Acad::eNullEntityPointer;
    if (database() && from->database() && database() != from->database()) return Acad::eWrongDatabase;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) EntityAccess::takeProperties(*this, *from);
    return status;
}

void AcDbEntity::setDatabaseDefaults(AcDbDatabase* db)
{
    AcDbDatabase* from = db ? db : lookupDatabase(*this);
    if (!from || beginChange() != Acad::eOk) return;
    mLayer = from->clayer();
    mLinetype = from->celtype();
    mColor = from->cecolor();
    mLineWeight = static_cast<std::int16_t>(from->celweight());
    mLinetypeScale = from->celtscale();
    subSetDatabaseDefaults(from);
}

void EntityAccess::resolveProperties(AcDbEntity& entity)
{
    const AcDbDatabase* database = entity.database();
    if (entity.mLayer.isNull()) entity.mLayer = database->layerZero();
    if (entity.mLinetype.isNull()) entity.mLinetype = database->byLayerLinetype();
}

void EntityAccess::takeProperties(AcDbEntity& to, const AcDbEntity& from)
{
    to.mFlags = static_cast<std::uint8_t>((to.mFlags & ~invisible) | (from.mFlags & invisible));
    to.mFileColorIndex = from.mFileColorIndex;
    to.mColor = from.mColor;
    to.mTransparency = from.mTransparency;
    to.mLayer = from.mLayer;
    to.mLinetype = from.mLinetype;
    to.mLinetypeScale = from.mLinetypeScale;
    to.mLineWeight = from.mLineWeight;
}

void EntityAccess::endSubentities(AcDbEntity& owner)
{
    AcDbObjectId& mark = owner.subentities()->sequenceEnd;
    if (!mark.isNull() && !mark.isErased()) return;
    auto* end = new AcDbSequenceEnd;
    owner.database()->addAcDbObject(mark, end, owner.objectId());
    takeProperties(*end, owner);
    end->close();
}

Acad::ErrorStatus AcDbEntity::subMayWrite() const
{
    constexpr int lockedFlag = 4;
    const AcDbObject* layer = residentObject(mLayer);
    const bool isLocked = layer && (static_cast<const AcDbSymbolTableRecord*>(layer)->flags() & lockedFlag);
    return isLocked ? Acad::eOnLockedLayer : Acad::eOk;
}
