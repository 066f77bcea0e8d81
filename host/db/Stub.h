#pragma once

/// The fixed place of an object in its database: what an AcDbObjectId points to.

#include "dbid.h"

/// Lives as long as its database, whatever becomes of the object, so that ids held by others stay safe to ask.
struct AcDbStub {
    AcDbObject* object = nullptr; ///< null until the object is added, and after it is purged
    AcDbDatabase* database = nullptr;
    std::uint64_t handle = 0;
    bool erased = false;
    bool undone = false; ///< its making was taken back: only redo brings it back
};

/// The object of an id, open or not; null for the null id and for one whose object is not there.
inline AcDbObject* residentObject(AcDbObjectId id)
{
    const AcDbStub* stub = id;
    return stub ? stub->object : nullptr;
}
