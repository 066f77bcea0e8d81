#include "dbobjiter.h"
#include "Stub.h"

#include <algorithm>

void AcDbObjectIterator::start(bool atBeginning, bool skipErased)
{
    mAt = atBeginning ? 0 : size() - 1;
    if (!done() && skipErased && isErased()) step(!atBeginning, skipErased);
}

void AcDbObjectIterator::step(bool backwards, bool skipErased)
{
    do {
        mAt = backwards ? mAt - 1 : mAt + 1;
    } while (!done() && skipErased && isErased());
}

AcDbEntity* AcDbObjectIterator::entity() const
{
    if (done()) return nullptr;
    return mIds ? AcDbEntity::cast(residentObject(objectId())) : mEntities[mAt];
}

Acad::ErrorStatus AcDbObjectIterator::setPosition(AcDbObjectId id)
{
    if (!mIds) return Acad::eKeyNotFound;
    const auto at = std::find(mIds->begin(), mIds->end(), id);
    if (at == mIds->end()) return Acad::eKeyNotFound;
    mAt = static_cast<std::size_t>(at - mIds->begin());
    return Acad::eOk;
}
