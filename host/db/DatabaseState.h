#pragma once

#include "StubTable.h"
#include "dbdatabase.h"

/// What a database holds.
struct DatabaseState {
    explicit DatabaseState(AcDbDatabase* database) : stubs(database) {}

    StubTable stubs;
    AcDbObjectId blockTable, layerTable, linetypeTable, textStyleTable, dimStyleTable, ucsTable, viewTable,
        viewportTable, regAppTable;
    AcDbObjectId layerZero, byLayer, byBlock, continuous, modelSpace, paperSpace;
    AcDbObjectId namedObjects; ///< the dictionary of all dictionaries

    // What new entities get.
    AcDbObjectId clayer, celtype, textstyle;
    AcCmColor cecolor;
    double celtscale = 1.0;
    AcDb::LineWeight celweight = AcDb::kLnWtByLayer;
};

struct DatabaseAccess {
    static DatabaseState& of(AcDbDatabase& database) { return *database.mState; }
    static const DatabaseState& of(const AcDbDatabase& database) { return *database.mState; }
};
