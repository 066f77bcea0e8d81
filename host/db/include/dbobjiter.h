#pragma once

/// Walks the vertices of a polyline or the attributes of a block reference.

#include "dbentity.h"

/// It may not outlive the opening of the object it walks. Erased ones are left out.
class AcDbObjectIterator
{
public:
    explicit AcDbObjectIterator(const std::vector<AcDbObjectId>& ids) : mIds(&ids) { start(); }

    void start(bool atBeginning = true, bool skipErased = true);
    bool done() const { return mAt >= mIds->size(); }
    void step(bool backwards = false, bool skipErased = true);
    AcDbObjectId objectId() const { return done() ? AcDbObjectId() : (*mIds)[mAt]; }
    /// The entity the iterator stands on, without opening it: null past the end.
    AcDbEntity* entity() const;
    Acad::ErrorStatus setPosition(AcDbObjectId id);

private:
    const std::vector<AcDbObjectId>* mIds;
    std::size_t mAt = 0;
};
