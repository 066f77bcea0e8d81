#pragma once

/// How the database and readers reach into symbol tables: names of the system's own ("*Model_Space") pass.

#include "dbsymtb.h"

struct SymbolTableAccess {
    static void setName(AcDbSymbolTableRecord& record, const CString& name) { record.mName = name; }
    static int& flags(AcDbSymbolTableRecord& record) { return record.mFlags; }
};
