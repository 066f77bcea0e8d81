#pragma once

/// Walks the vertices of a polyline or the attributes of a block reference.

#include "dbentity.h"

/// It may not outlive the opening of the object it walks. Erased ones are left out.
class AcDbObjectIterator
{
public:
    explicit AcDbObjectIterator(const std::vector<AcDbObjectId>& ids) : mIds(&ids) { start(); }
    /// Of entities that are in no drawing yet: they have no ids.
    explicit AcDbObjectIterator(std::vector<AcDbEntity*> entities) : mEntities(std::move(entities)) {}

    void start(bool atBeginning = true, bool skipErased = true);
    bool done() const { return mAt >= size(); }
    void step(bool backwards = false, bool skipErased = true);
    AcDbObjectId objectId() const { return done() || !mIds ? AcDbObjectId() : (*mIds)[mAt]; }
    /// The entity the iterator stands on, without opening it: null past the end.
    AcDbEntity* entity() const;
    Acad::ErrorStatus setPosition(AcDbObjectId id);

private:
    std::size_t size() const { return mIds ? mIds->size() : mEntities.size(); }
    bool isErased() const { return mIds && (*mIds)[mAt].isErased(); }

    const std::vector<AcDbObjectId>* mIds = nullptr;
    std::vector<AcDbEntity*> mEntities;
    std::size_t mAt = 0;
};
