#pragma once

/// What the database may do to an object that its users may not.

#include "ObjectExtras.h"
#include "Stub.h"

struct DbObjectAccess {
    /// Makes a new object resident under a stub, open for write.
    static void makeResident(AcDbObject& object, AcDbStub& stub, AcDbObjectId owner);
    static void setOwner(AcDbObject& object, AcDbObjectId owner) { object.mOwner = owner; }
    static void setStub(AcDbObject& object, AcDbObjectId id) { object.mStub = id; }
    static DbObjectExtras* extras(const AcDbObject& object) { return object.mExtras.get(); }
    static DbObjectExtras& needExtras(AcDbObject& object);
    static Acad::ErrorStatus open(AcDbObject& object, AcDb::OpenMode mode);
    /// Opens for write whatever the locks of the document say: views belong to the editor.
    static Acad::ErrorStatus openUnlocked(AcDbObject& object);
    static bool isOpen(const AcDbObject& object)
    {
        return object.mReaders || object.mOpenForWrite || object.mOpenForNotify;
    }
    /// After reading a file: no longer new, not modified, closed.
    static void settle(AcDbObject& object);
    static void setNotifying(AcDbObject& object, bool notifying) { object.mNotifying = notifying; }
    static AcDbObject* newCopy(const AcDbObject& object) { return object.newCopy(); }
    static void assignState(AcDbObject& to, const AcDbObject& from) { to.assignState(from); }
    static void markXDataModified(AcDbObject& object) { object.mModifiedXData = true; }
};
