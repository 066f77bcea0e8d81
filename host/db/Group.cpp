#include "dbgroup.h"

#include "ClassRegistration.h"
#include "DxfFields.h"
#include "Stub.h"
#include "dbdatabase.h"
#include "dbdict.h"
#include "dbentity.h"

#include <algorithm>

ACDB_DXF_CLASS(AcDbGroup, AcDbObject, GROUP)

struct GroupAccess {
    static void readEntity(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        const auto handle = static_cast<std::uint64_t>(source.peek()->integer);
        if (AcDbStub* stub = source.stubOf(handle)) static_cast<AcDbGroup&>(object).mEntities.push_back(stub);
        source.take();
    }

    static void writeEntities(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        for (const AcDbObjectId id : static_cast<const AcDbGroup&>(object).mEntities) {
            if (!id.isErased()) sink.handle(field.code, id);
        }
    }
};

const DxfClass AcDbGroup::dxf("AcDbGroup", nullptr,
                              {
                                  dxf::text<&AcDbGroup::mDescription>(300),
                                  dxf::integer<&AcDbGroup::mIsAnonymous>(70),
                                  dxf::integer<&AcDbGroup::mIsSelectable>(71),
                                  dxf::custom(340, GroupAccess::readEntity, GroupAccess::writeEntities),
                              });

namespace
{
/// Makes the group a reactor of an entity, or takes it away. An entity that its caller holds open for write is told as
/// it is.
Acad::ErrorStatus tell(AcDbObjectId id, AcDbObjectId group, bool belongs)
{
    AcDbObject* entity = residentObject(id);
    const bool isOpen = entity && entity->isWriteEnabled();
    const Acad::ErrorStatus status = isOpen ? Acad::eOk : acdbOpenAcDbObject(entity, id, AcDb::kForWrite);
    if (status != Acad::eOk) return status;
    if (belongs) {
        entity->addPersistentReactor(group);
    } else {
        entity->removePersistentReactor(group);
    }
    if (!isOpen) entity->close();
    return Acad::eOk;
}

AcDbDictionary* openGroups(AcDbDatabase* database, AcDb::OpenMode mode)
{
    AcDbDictionary* groups = nullptr;
    if (database) database->getGroupDictionary(groups, mode);
    return groups;
}

/// The group dictionary is looked at without being opened: its caller may have it open.
const AcDbDictionary* groupsOf(const AcDbDatabase* database)
{
    return database ? AcDbDictionary::cast(residentObject(database->groupDictionaryId())) : nullptr;
}
} // namespace

AcDbGroupIterator* AcDbGroup::newIterator()
{
    auto* walk = new AcDbGroupIterator;
    std::copy_if(mEntities.begin(), mEntities.end(), std::back_inserter(walk->mIds),
                 [](AcDbObjectId id) { return !id.isErased(); });
    return walk;
}

Acad::ErrorStatus AcDbGroupIterator::getObject(AcDbObject*& object, AcDb::OpenMode mode) const
{
    object = nullptr;
    return done() ? Acad::eIteratorDone : acdbOpenAcDbObject(object, mIds[mAt], mode);
}

AcDbObjectId AcDbGroupIterator::objectId() const { return done() ? AcDbObjectId() : mIds[mAt]; }

bool AcDbGroupIterator::next()
{
    if (!done()) ++mAt;
    return !done();
}

CString AcDbGroup::name() const
{
    CString name;
    if (const AcDbDictionary* groups = groupsOf(database())) groups->nameAt(objectId(), name);
    return name;
}

Acad::ErrorStatus AcDbGroup::setName(const ACHAR* name)
{
    if (!name || !*name) return Acad::eInvalidKey;
    const CString old = this->name();
    if (old.IsEmpty()) return Acad::eNotInDatabase;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    AcDbDictionary* groups = openGroups(database(), AcDb::kForWrite);
    if (!groups) return Acad::eWasOpenForWrite;
    const bool renamed = groups->setName(old, name);
    groups->close();
    if (!renamed) return Acad::eDuplicateKey;
    mIsAnonymous = *name == L'*';
    return status;
}

bool AcDbGroup::isAnonymous() const { return mIsAnonymous != 0 || name().Left(1) == L"*"; }

Acad::ErrorStatus AcDbGroup::setAnonymous()
{
    const AcDbDictionary* groups = groupsOf(database());
    if (!groups) return Acad::eNotInDatabase;
    CString free;
    int number = 0;
    do {
        free.Format(L"*A%d", ++number);
    } while (groups->has(free));
    return setName(free);
}

std::uint32_t AcDbGroup::numEntities() const
{
    return static_cast<std::uint32_t>(
        std::count_if(mEntities.begin(), mEntities.end(), [](AcDbObjectId id) { return !id.isErased(); }));
}

bool AcDbGroup::holds(AcDbObjectId id) const
{
    return std::find(mEntities.begin(), mEntities.end(), id) != mEntities.end();
}

bool AcDbGroup::has(const AcDbEntity* entity) const
{
    return entity && entity->database() && holds(entity->objectId());
}

std::uint32_t AcDbGroup::allEntityIds(AcDbObjectIdArray& ids) const
{
    for (const AcDbObjectId id : mEntities) {
        if (!id.isErased()) ids.append(id);
    }
    return numEntities();
}

Acad::ErrorStatus AcDbGroup::getIndex(AcDbObjectId id, std::uint32_t& index) const
{
    const auto found = std::find(mEntities.begin(), mEntities.end(), id);
    if (found == mEntities.end()) return Acad::eNotInGroup;
    index = static_cast<std::uint32_t>(found - mEntities.begin());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::append(AcDbObjectId id)
{
    return insertAt(static_cast<std::uint32_t>(mEntities.size()), id);
}

Acad::ErrorStatus AcDbGroup::append(const AcDbObjectIdArray& ids)
{
    return insertAt(static_cast<std::uint32_t>(mEntities.size()), ids);
}

Acad::ErrorStatus AcDbGroup::prepend(AcDbObjectId id) { return insertAt(0, id); }
Acad::ErrorStatus AcDbGroup::prepend(const AcDbObjectIdArray& ids) { return insertAt(0, ids); }

Acad::ErrorStatus AcDbGroup::insertAt(std::uint32_t index, AcDbObjectId id)
{
    if (index > mEntities.size()) return Acad::eInvalidIndex;
    if (id.isNull()) return Acad::eNullObjectId;
    if (database() && id.database() != database()) return Acad::eWrongDatabase;
    if (!AcDbEntity::cast(residentObject(id))) return Acad::eNotAnEntity;
    if (holds(id)) return Acad::eAlreadyInGroup;
    Acad::ErrorStatus status = assertWriteEnabled();
    // A group that is not in a drawing yet tells its entities when it comes to be in one.
    if (status == Acad::eOk && database()) status = tell(id, objectId(), true);
    if (status == Acad::eOk) mEntities.insert(mEntities.begin() + index, id);
    return status;
}

Acad::ErrorStatus AcDbGroup::insertAt(std::uint32_t index, const AcDbObjectIdArray& ids)
{
    if (index > mEntities.size()) return Acad::eInvalidIndex;
    for (int i = 0; i < ids.length(); ++i) {
        if (ids[i].isNull()) continue;
        const Acad::ErrorStatus status = insertAt(index, ids[i]);
        if (status == Acad::eOk) {
            ++index;
        } else if (status != Acad::eAlreadyInGroup) {
            return status;
        }
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::remove(AcDbObjectId id)
{
    std::uint32_t index = 0;
    const Acad::ErrorStatus status = getIndex(id, index);
    return status == Acad::eOk ? removeAt(index) : status;
}

Acad::ErrorStatus AcDbGroup::remove(const AcDbObjectIdArray& ids)
{
    for (int i = 0; i < ids.length(); ++i) {
        if (!holds(ids[i])) return Acad::eNotInGroup;
    }
    Acad::ErrorStatus status = assertWriteEnabled();
    for (int i = 0; status == Acad::eOk && i < ids.length(); ++i) status = remove(ids[i]);
    return status;
}

Acad::ErrorStatus AcDbGroup::removeAt(std::uint32_t index)
{
    if (index >= mEntities.size()) return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    // An entity that cannot be opened keeps the reactor, which means nothing without the group's entry.
    tell(mEntities[index], objectId(), false);
    mEntities.erase(mEntities.begin() + index);
    return status;
}

Acad::ErrorStatus AcDbGroup::replace(AcDbObjectId oldId, AcDbObjectId newId)
{
    std::uint32_t index = 0;
    const Acad::ErrorStatus found = getIndex(oldId, index);
    if (found != Acad::eOk) return found;
    const Acad::ErrorStatus status = insertAt(index + 1, newId);
    return status == Acad::eOk ? removeAt(index) : status;
}

Acad::ErrorStatus AcDbGroup::transfer(std::uint32_t from, std::uint32_t to, std::uint32_t count)
{
    const std::size_t size = mEntities.size();
    if (from >= size || to >= size || count > size - from || count > size - to) return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    const auto first = mEntities.begin() + from;
    if (to < from) {
        std::rotate(mEntities.begin() + to, first, first + count);
    } else {
        std::rotate(first, first + count, mEntities.begin() + to + count);
    }
    return status;
}

Acad::ErrorStatus AcDbGroup::clear()
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    tellAll(objectId(), false);
    mEntities.clear();
    return status;
}

Acad::ErrorStatus AcDbGroup::reverse()
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) std::reverse(mEntities.begin(), mEntities.end());
    return status;
}

void AcDbGroup::tellAll(AcDbObjectId group, bool belongs) const
{
    for (const AcDbObjectId id : mEntities) tell(id, group, belongs);
}

Acad::ErrorStatus AcDbGroup::subErase(bool erasing)
{
    tellAll(objectId(), !erasing);
    return AcDbObject::subErase(erasing);
}

Acad::ErrorStatus AcDbGroup::subClose()
{
    if (isNewObject()) tellAll(objectId(), true);
    return AcDbObject::subClose();
}

void AcDbGroup::subCancel(const AcDbObject& before)
{
    tellAll(objectId(), false);
    static_cast<const AcDbGroup&>(before).tellAll(objectId(), true);
}
