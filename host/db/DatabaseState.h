#pragma once

#include "StubTable.h"
#include "dbdatabase.h"

/// What a database holds.
struct DatabaseState {
    explicit DatabaseState(AcDbDatabase* database) : stubs(database) {}

    StubTable stubs;
    AcDbObjectId regAppTable;
};

struct DatabaseAccess {
    static DatabaseState& of(AcDbDatabase& database) { return *database.mState; }
    static const DatabaseState& of(const AcDbDatabase& database) { return *database.mState; }
};
