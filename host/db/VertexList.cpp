#include "VertexList.h"

#include "dbdatabase.h"
#include "dbobjiter.h"
#include "EntityAccess.h"
#include "Stub.h"

#include <algorithm>

namespace
{
std::unique_ptr<AcDbEntity> copyOf(const AcDbEntity& vertex)
{
    return std::unique_ptr<AcDbEntity>(AcDbEntity::cast(vertex.clone()));
}
} // namespace

VertexList::VertexList(const VertexList& other)
{
    *this = other;
}

VertexList& VertexList::operator=(const VertexList& other)
{
    if (this == &other) return *this;
    mStored = other.mStored;
    mOwned.clear();
    for (const std::unique_ptr<AcDbEntity>& vertex : other.mOwned)
        mOwned.push_back(copyOf(*vertex));
    return *this;
}

std::vector<AcDbEntity*> VertexList::all() const
{
    std::vector<AcDbEntity*> found;
    found.reserve(mStored.ids.size() + mOwned.size());
    for (const AcDbObjectId id : mStored.ids) {
        AcDbEntity* vertex = id.isErased() ? nullptr : AcDbEntity::cast(residentObject(id));
        if (vertex) found.push_back(vertex);
    }
    for (const std::unique_ptr<AcDbEntity>& vertex : mOwned)
        found.push_back(vertex.get());
    return found;
}

AcDbObjectIterator* VertexList::iterator() const
{
    return mOwned.empty() ? new AcDbObjectIterator(mStored.ids) : new AcDbObjectIterator(all());
}

Acad::ErrorStatus VertexList::append(AcDbEntity& owner, AcDbObjectId& id, AcDbEntity* vertex)
{
    return insert(owner, mStored.ids.size() + mOwned.size(), id, vertex);
}

Acad::ErrorStatus VertexList::insertAfter(AcDbEntity& owner, const AcDbEntity* place, AcDbObjectId& id,
                                          AcDbEntity* vertex)
{
    if (!place) return insert(owner, 0, id, vertex);
    const auto stored = std::find(mStored.ids.begin(), mStored.ids.end(), place->objectId());
    const auto owned =
        std::find_if(mOwned.begin(), mOwned.end(), [&](const auto& own) { return own.get() == place; });
    if (place->database() && stored != mStored.ids.end())
        return insert(owner, static_cast<std::size_t>(stored - mStored.ids.begin()) + 1, id, vertex);
    if (owned == mOwned.end()) return Acad::eInvalidInput;
    return insert(owner, static_cast<std::size_t>(owned - mOwned.begin()) + 1, id, vertex);
}

Acad::ErrorStatus VertexList::insert(AcDbEntity& owner, std::size_t index, AcDbObjectId& id,
                                     AcDbEntity* vertex)
{
    id.setNull();
    if (!vertex) return Acad::eNullEntityPointer;
    if (vertex->database()) return Acad::eAlreadyInDb;
    const Acad::ErrorStatus writable = owner.assertWriteEnabled();
    if (writable != Acad::eOk) return writable;
    owner.recordGraphicsModified();
    const auto offset = static_cast<std::ptrdiff_t>(index);
    if (!owner.database()) {
        mOwned.emplace(mOwned.begin() + offset, vertex);
        return Acad::eOk;
    }
    const Acad::ErrorStatus status = owner.database()->addAcDbObject(id, vertex, owner.objectId());
    if (status != Acad::eOk) return status;
    EntityAccess::takeProperties(*vertex, owner);
    EntityAccess::resolveProperties(*vertex);
    mStored.ids.insert(mStored.ids.begin() + offset, id);
    return status;
}

void VertexList::addToDrawing(AcDbEntity& owner)
{
    AcDbDatabase& database = *owner.database();
    for (std::unique_ptr<AcDbEntity>& vertex : mOwned) {
        AcDbEntity* added = vertex.release();
        AcDbObjectId id;
        database.addAcDbObject(id, added, owner.objectId());
        EntityAccess::takeProperties(*added, owner);
        added->close();
        mStored.ids.push_back(id);
    }
    mOwned.clear();
    EntityAccess::endSubentities(owner);
}

void VertexList::detach()
{
    std::vector<std::unique_ptr<AcDbEntity>> copies;
    for (const AcDbEntity* vertex : all())
        copies.push_back(copyOf(*vertex));
    mOwned = std::move(copies);
    mStored = DbSubentities();
}

Acad::ErrorStatus VertexList::openAll(std::vector<AcDbEntity*>& opened) const
{
    for (AcDbEntity* vertex : all()) {
        if (vertex->isWriteEnabled()) continue;
        AcDbEntity* found = nullptr;
        const Acad::ErrorStatus status = acdbOpenObject(found, vertex->objectId(), AcDb::kForWrite);
        if (status != Acad::eOk) return status;
        opened.push_back(found);
    }
    return Acad::eOk;
}
