#pragma once

/// What happens to drawings as a whole: copies of objects, insertions and extractions.

#include "dbid.h"
#include "rxobject.h"
#include "rxregsvc.h"
#include "rxdict.h"

class AcDbDatabase;
class AcDbIdMapping;
class AcGeMatrix3d;
class AcGePoint3d;

/// Told of every drawing, whether it has a document or not. Owned by the one who attaches it. The id maps are those of the
/// copying; they may be walked, and pairs may be assigned by `other...`.
class AcRxEventReactor : public AcRxObject
{
public:
    /// A drawing has been made; it is about to go.
    virtual void databaseConstructed(AcDbDatabase*) {}
    virtual void databaseToBeDestroyed(AcDbDatabase*) {}

    // Every copying of objects, also by the functions below.

    virtual void beginDeepClone(AcDbDatabase* /*to*/, AcDbIdMapping&) {}
    /// Every pair is in the map; the copies are not there yet. Another status than eOk ends it.
    virtual void beginDeepCloneXlation(AcDbIdMapping&, Acad::ErrorStatus*) {}
    virtual void abortDeepClone(AcDbIdMapping&) {}
    /// The copies are there.
    virtual void endDeepClone(AcDbIdMapping&) {}

    // AcDbDatabase::insert.

    virtual void beginInsert(AcDbDatabase* /*to*/, const ACHAR* /*blockName*/, AcDbDatabase* /*from*/) {}
    virtual void beginInsert(AcDbDatabase* /*to*/, const AcGeMatrix3d&, AcDbDatabase* /*from*/) {}
    virtual void otherInsert(AcDbDatabase* /*to*/, AcDbIdMapping&, AcDbDatabase* /*from*/) {}
    virtual void abortInsert(AcDbDatabase* /*to*/) {}
    virtual void endInsert(AcDbDatabase* /*to*/) {}

    // AcDbDatabase::wblock: first that of the source, then one of the three that begin.

    virtual void wblockNotice(AcDbDatabase* /*from*/) {}
    virtual void beginWblock(AcDbDatabase* /*to*/, AcDbDatabase* /*from*/, const AcGePoint3d*& /*basePoint*/) {}
    virtual void beginWblock(AcDbDatabase* /*to*/, AcDbDatabase* /*from*/, AcDbObjectId /*blockId*/) {}
    virtual void beginWblock(AcDbDatabase* /*to*/, AcDbDatabase* /*from*/) {}
    virtual void otherWblock(AcDbDatabase* /*to*/, AcDbIdMapping&, AcDbDatabase* /*from*/) {}
    virtual void abortWblock(AcDbDatabase* /*to*/) {}
    virtual void endWblock(AcDbDatabase* /*to*/) {}

    /// AcDbDatabase::wblockCloneObjects begins.
    virtual void beginWblockObjects(AcDbDatabase* /*from*/, AcDbIdMapping&) {}
};

/// The one object that reactors are attached to, under ACRX_EVENT_OBJ.
class AcRxEvent : public AcRxObject
{
public:
    static AcRxClass* desc();
    static AcRxEvent* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    /// A reactor that is attached already is told once all the same.
    void addReactor(AcRxEventReactor* reactor);
    void removeReactor(AcRxEventReactor* reactor);
};

#define ACRX_EVENT_OBJ L"AcRxEvent"
#define acrxEvent AcRxEvent::cast(acrxSysRegistry()->at(ACRX_EVENT_OBJ))
