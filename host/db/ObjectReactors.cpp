#include "dbobject.h"

#include "DbObjectAccess.h"

#include <algorithm>

namespace
{
template <class T>
bool contains(const std::vector<T>& list, const T& wanted)
{
    return std::find(list.begin(), list.end(), wanted) != list.end();
}

template <class T>
bool removeFrom(std::vector<T>& list, const T& unwanted)
{
    const auto at = std::find(list.begin(), list.end(), unwanted);
    if (at == list.end()) return false;
    list.erase(at);
    return true;
}
} // namespace

void AcDbObject::addReactor(AcDbObjectReactor* reactor) const
{
    // Attaching a transient reactor does not change the object: it may be open for read.
    DbObjectExtras& extras = DbObjectAccess::needExtras(const_cast<AcDbObject&>(*this));
    if (reactor && !contains(extras.transientReactors, reactor)) extras.transientReactors.push_back(reactor);
}

void AcDbObject::removeReactor(AcDbObjectReactor* reactor) const
{
    if (mExtras) removeFrom(mExtras->transientReactors, reactor);
}

bool AcDbObject::hasReactor(const AcDbObjectReactor* reactor) const
{
    return mExtras && contains(mExtras->transientReactors, const_cast<AcDbObjectReactor*>(reactor));
}

void AcDbObject::addPersistentReactor(AcDbObjectId reactor)
{
    if (reactor.isNull() || assertWriteEnabled() != Acad::eOk) return;
    std::vector<AcDbObjectId>& reactors = DbObjectAccess::needExtras(*this).persistentReactors;
    if (!contains(reactors, reactor)) reactors.push_back(reactor);
}

Acad::ErrorStatus AcDbObject::removePersistentReactor(AcDbObjectId reactor)
{
    if (!hasPersistentReactor(reactor)) return Acad::eKeyNotFound;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) removeFrom(mExtras->persistentReactors, reactor);
    return status;
}

bool AcDbObject::hasPersistentReactor(AcDbObjectId reactor) const
{
    return mExtras && contains(mExtras->persistentReactors, reactor);
}
