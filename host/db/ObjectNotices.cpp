#include "ObjectNotices.h"

#include "ClassRegistration.h"
#include "DatabaseState.h"
#include "DbObjectAccess.h"
#include "dbdatabasereactor.h"
#include "dbentity.h"

#include <algorithm>

ACDB_ABSTRACT_CLASS(AcDbDatabaseReactor, AcRxObject)

namespace
{
/// Calls every reactor of an object. Reactors may detach themselves, or others, while they are told: the list is
/// copied, and one that has gone is not told any more.
template <class Tell>
void tellTransient(const AcDbObject& object, Tell tell)
{
    const DbObjectExtras* extras = DbObjectAccess::extras(object);
    if (!extras || extras->transientReactors.empty()) return;
    const std::vector<AcDbObjectReactor*> reactors = extras->transientReactors;
    for (AcDbObjectReactor* reactor : reactors) {
        if (object.hasReactor(reactor)) tell(*reactor);
    }
}

/// Opens every persistent reactor for notify and calls it; one that cannot be opened is not told.
template <class Tell>
void tellPersistent(const AcDbObject& object, Tell tell)
{
    const DbObjectExtras* extras = DbObjectAccess::extras(object);
    if (!extras || extras->persistentReactors.empty()) return;
    const std::vector<AcDbObjectId> reactors = extras->persistentReactors;
    for (const AcDbObjectId id : reactors) {
        AcDbObject* reactor = nullptr;
        if (acdbOpenAcDbObject(reactor, id, AcDb::kForNotify) != Acad::eOk) continue;
        tell(*reactor);
        reactor->close();
    }
}

bool isAttached(const AcDbDatabase& database, AcDbDatabaseReactor* reactor)
{
    const std::vector<AcDbDatabaseReactor*>& all = DatabaseAccess::of(database).reactors;
    return std::find(all.begin(), all.end(), reactor) != all.end();
}

template <class Tell>
void tellDatabase(const AcDbDatabase& database, Tell tell)
{
    if (DatabaseAccess::of(database).reactors.empty()) return;
    const std::vector<AcDbDatabaseReactor*> reactors = DatabaseAccess::of(database).reactors;
    for (AcDbDatabaseReactor* reactor : reactors) {
        if (isAttached(database, reactor)) tell(*reactor);
    }
}

/// The reactors of the drawing that an object is in; `tell(reactor, drawing)`.
template <class Tell>
void tellDrawing(const AcDbObject& object, Tell tell)
{
    const AcDbDatabase* drawing = object.database();
    if (drawing) tellDatabase(*drawing, [&](AcDbDatabaseReactor& reactor) { tell(reactor, drawing); });
}

template <class Tell>
void tellAll(const AcDbObject& object, Tell tell)
{
    tellTransient(object, tell);
    tellPersistent(object, tell);
}
void graphicsChanged(AcDbObject& object)
{
    tellPersistent(object, [&](AcDbObject& reactor) { reactor.modifiedGraphics(&object); });
    const AcDbEntity* entity = AcDbEntity::cast(&object);
    if (!entity) return;
    tellTransient(object, [&](AcDbObjectReactor& reactor) {
        if (auto* ofEntity = AcDbEntityReactor::cast(&reactor)) ofEntity->modifiedGraphics(entity);
    });
}

/// The polyline of a vertex, the reference of an attribute.
void tellOwner(AcDbObject& object)
{
    const AcDbEntity* owner = AcDbEntity::cast(residentObject(object.ownerId()));
    if (owner) tellAll(*owner, [&](auto& reactor) { reactor.subObjModified(owner, &object); });
}
} // namespace

namespace notices
{
void openedForModify(AcDbObject& object)
{
    tellAll(object, [&](auto& reactor) { reactor.openedForModify(&object); });
    tellDrawing(object, [&](auto& reactor, auto* drawing) { reactor.objectOpenedForModify(drawing, &object); });
}

void changesOf(AcDbObject& object)
{
    if (!object.isModified()) return;
    DbObjectAccess::setNotifying(object, true);
    tellAll(object, [&](auto& reactor) {
        reactor.modified(&object);
        if (object.isModifiedXData()) reactor.modifiedXData(&object);
    });
    if (object.isModifiedGraphics()) graphicsChanged(object);
    tellOwner(object);
    if (!object.isNewObject())
        tellDrawing(object, [&](auto& reactor, auto* drawing) { reactor.objectModified(drawing, &object); });
    DbObjectAccess::setNotifying(object, false);
}

void appended(AcDbObject& object)
{
    tellDrawing(object, [&](auto& reactor, auto* drawing) { reactor.objectAppended(drawing, &object); });
}

void unappended(AcDbObject& object)
{
    tellAll(object, [&](auto& reactor) { reactor.unappended(&object); });
    tellDrawing(object, [&](auto& reactor, auto* drawing) { reactor.objectUnAppended(drawing, &object); });
}

void reappended(AcDbObject& object)
{
    tellAll(object, [&](auto& reactor) { reactor.reappended(&object); });
    tellDrawing(object, [&](auto& reactor, auto* drawing) { reactor.objectReAppended(drawing, &object); });
}

void modifyUndone(AcDbObject& object)
{
    tellAll(object, [&](auto& reactor) { reactor.modifyUndone(&object); });
    tellDrawing(object, [&](auto& reactor, auto* drawing) { reactor.objectModified(drawing, &object); });
}

void erased(AcDbObject& object, bool erasing)
{
    tellAll(object, [&](auto& reactor) { reactor.erased(&object, erasing); });
    tellDrawing(object, [&](auto& reactor, auto* drawing) { reactor.objectErased(drawing, &object, erasing); });
}

void cancelled(AcDbObject& object)
{
    tellAll(object, [&](auto& reactor) { reactor.cancelled(&object); });
}

void closed(AcDbObject& object)
{
    const AcDbObjectId id = object.objectId();
    tellAll(object, [&](auto& reactor) { reactor.objectClosed(id); });
}

void copied(const AcDbObject& original, const AcDbObject& copy)
{
    tellAll(original, [&](auto& reactor) { reactor.copied(&original, &copy); });
}

void goodbye(AcDbObject& object)
{
    tellTransient(object, [&](AcDbObjectReactor& reactor) { reactor.goodbye(&object); });
}

void goodbye(const AcDbDatabase& database)
{
    tellDatabase(database, [&](AcDbDatabaseReactor& reactor) { reactor.goodbye(&database); });
}

void headerWillChange(const AcDbDatabase& database, const ACHAR* name)
{
    tellDatabase(database, [&](AcDbDatabaseReactor& reactor) { reactor.headerSysVarWillChange(&database, name); });
}

void headerChanged(const AcDbDatabase& database, const ACHAR* name)
{
    tellDatabase(database, [&](AcDbDatabaseReactor& reactor) { reactor.headerSysVarChanged(&database, name, true); });
}
} // namespace notices

Acad::ErrorStatus AcDbDatabase::addReactor(AcDbDatabaseReactor* reactor) const
{
    if (!reactor) return Acad::eNullObjectPointer;
    if (isAttached(*this, reactor)) return Acad::eDuplicateKey;
    mState->reactors.push_back(reactor);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::removeReactor(AcDbDatabaseReactor* reactor) const
{
    std::vector<AcDbDatabaseReactor*>& all = mState->reactors;
    const auto at = std::find(all.begin(), all.end(), reactor);
    if (at == all.end()) return Acad::eKeyNotFound;
    all.erase(at);
    return Acad::eOk;
}
