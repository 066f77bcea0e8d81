/// Properties that a group gives to its entities.

#include "Stub.h"
#include "acutads.h"
#include "dbentity.h"
#include "dbgroup.h"

namespace
{
/// Calls a setter of an entity, which is opened unless its caller holds it open for write.
template <class Set>
Acad::ErrorStatus setOf(AcDbObjectId id, Set set)
{
    auto* entity = AcDbEntity::cast(residentObject(id));
    if (!entity) return Acad::eNotAnEntity;
    if (entity->isWriteEnabled()) return set(*entity);
    Acad::ErrorStatus status = acdbOpenObject(entity, id, AcDb::kForWrite);
    if (status != Acad::eOk) return status;
    status = set(*entity);
    entity->close();
    return status;
}

template <class Set>
Acad::ErrorStatus setOfAll(const AcDbGroup& group, Set set)
{
    AcDbObjectIdArray ids;
    group.allEntityIds(ids);
    Acad::ErrorStatus first = Acad::eOk;
    for (const AcDbObjectId& id : ids) {
        const Acad::ErrorStatus status = setOf(id, set);
        if (first == Acad::eOk) first = status;
    }
    return first;
}
} // namespace

Acad::ErrorStatus AcDbGroup::getName(ACHAR*& name) const
{
    const CString found = this->name();
    if (found.IsEmpty()) return Acad::eNotInDatabase;
    return acutNewString(found, name) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbGroup::getName(AcString& name) const
{
    name = AcString(this->name());
    return name.isEmpty() ? Acad::eNotInDatabase : Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::setColor(const AcCmColor& color)
{
    return setOfAll(*this, [&](AcDbEntity& entity) { return entity.setColor(color); });
}

Acad::ErrorStatus AcDbGroup::setColorIndex(Adesk::UInt16 color)
{
    return setOfAll(*this, [&](AcDbEntity& entity) { return entity.setColorIndex(color); });
}

Acad::ErrorStatus AcDbGroup::setLayer(const ACHAR* name)
{
    return setOfAll(*this, [&](AcDbEntity& entity) { return entity.setLayer(name); });
}

Acad::ErrorStatus AcDbGroup::setLayer(AcDbObjectId layer)
{
    return setOfAll(*this, [&](AcDbEntity& entity) { return entity.setLayer(layer); });
}

Acad::ErrorStatus AcDbGroup::setLinetype(const ACHAR* name)
{
    return setOfAll(*this, [&](AcDbEntity& entity) { return entity.setLinetype(name); });
}

Acad::ErrorStatus AcDbGroup::setLinetype(AcDbObjectId linetype)
{
    return setOfAll(*this, [&](AcDbEntity& entity) { return entity.setLinetype(linetype); });
}

Acad::ErrorStatus AcDbGroup::setLinetypeScale(double scale)
{
    return setOfAll(*this, [&](AcDbEntity& entity) { return entity.setLinetypeScale(scale); });
}

Acad::ErrorStatus AcDbGroup::setVisibility(AcDb::Visibility visibility)
{
    return setOfAll(*this, [&](AcDbEntity& entity) { return entity.setVisibility(visibility); });
}

Acad::ErrorStatus AcDbGroup::setHighlight(bool on)
{
    if (!database()) return Acad::eNotInDatabase;
    AcDbObjectIdArray ids;
    allEntityIds(ids);
    for (const AcDbObjectId& id : ids) {
        const auto* entity = AcDbEntity::cast(residentObject(id));
        if (entity && on) entity->highlight();
        if (entity && !on) entity->unhighlight();
    }
    return Acad::eOk;
}
