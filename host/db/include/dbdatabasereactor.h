#pragma once

/// Told of what happens in a drawing.

#include "dbdatabase.h"

/// Attached by AcDbDatabase::addReactor, and owned by the one who attaches it. Reading a file tells nothing.
/// An object that is told about may be read, not changed.
class AcDbDatabaseReactor : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabaseReactor);

    /// An object was added.
    virtual void objectAppended(const AcDbDatabase*, const AcDbObject*) {}
    /// The opening that had added an object was cancelled, or the addition undone.
    virtual void objectUnAppended(const AcDbDatabase*, const AcDbObject*) {}
    /// The addition was done again.
    virtual void objectReAppended(const AcDbDatabase*, const AcDbObject*) {}
    /// The first change after an open for write; the object is as it was.
    virtual void objectOpenedForModify(const AcDbDatabase*, const AcDbObject*) {}
    /// A changed object is closed, or a change is undone or done again (AcDbObject::isUndoing). Not told of new
    /// objects.
    virtual void objectModified(const AcDbDatabase*, const AcDbObject*) {}
    /// An object was erased, or brought back.
    virtual void objectErased(const AcDbDatabase*, const AcDbObject*, Adesk::Boolean /*erased*/ = true) {}
    /// A variable of the header, named as system variables are ("LTSCALE"), will be set and has been set. A
    /// value that is refused is told of by neither.
    virtual void headerSysVarWillChange(const AcDbDatabase*, const ACHAR*) {}
    virtual void headerSysVarChanged(const AcDbDatabase*, const ACHAR*, Adesk::Boolean /*succeeded*/) {}
    /// The drawing is about to go; its objects are still there.
    virtual void goodbye(const AcDbDatabase*) {}
};
