#include "Stub.h"
#include "dbobjiter.h"

#include <algorithm>

void AcDbObjectIterator::start(bool atBeginning, bool skipErased)
{
    mAt = atBeginning ? 0 : mIds->size() - 1;
    if (!done() && skipErased && (*mIds)[mAt].isErased()) step(!atBeginning, skipErased);
}

void AcDbObjectIterator::step(bool backwards, bool skipErased)
{
    do {
        mAt = backwards ? mAt - 1 : mAt + 1;
    } while (!done() && skipErased && (*mIds)[mAt].isErased());
}

AcDbEntity* AcDbObjectIterator::entity() const { return AcDbEntity::cast(residentObject(objectId())); }

Acad::ErrorStatus AcDbObjectIterator::setPosition(AcDbObjectId id)
{
    const auto at = std::find(mIds->begin(), mIds->end(), id);
    if (at == mIds->end()) return Acad::eKeyNotFound;
    mAt = static_cast<std::size_t>(at - mIds->begin());
    return Acad::eOk;
}
