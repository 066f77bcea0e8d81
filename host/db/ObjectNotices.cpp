#include "ObjectNotices.h"

#include "DbObjectAccess.h"

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

template <class Tell>
void tellAll(const AcDbObject& object, Tell tell)
{
    tellTransient(object, tell);
    tellPersistent(object, tell);
}
} // namespace

namespace notices
{
void openedForModify(AcDbObject& object)
{
    tellAll(object, [&](auto& reactor) { reactor.openedForModify(&object); });
}

void changesOf(AcDbObject& object)
{
    if (!object.isModified()) return;
    DbObjectAccess::setNotifying(object, true);
    tellAll(object, [&](auto& reactor) {
        reactor.modified(&object);
        if (object.isModifiedXData()) reactor.modifiedXData(&object);
    });
    if (object.isModifiedGraphics())
        tellPersistent(object, [&](AcDbObject& reactor) { reactor.modifiedGraphics(&object); });
    DbObjectAccess::setNotifying(object, false);
}

void erased(AcDbObject& object, bool erasing)
{
    tellAll(object, [&](auto& reactor) { reactor.erased(&object, erasing); });
}

void cancelled(AcDbObject& object)
{
    tellTransient(object, [&](AcDbObjectReactor& reactor) { reactor.cancelled(&object); });
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
} // namespace notices
