#pragma once

/// How the database and readers reach into symbol tables: names of the system's own ("*Model_Space") pass.

#include "dbsymtb.h"

#include <algorithm>

struct SymbolTableAccess {
    static void setName(AcDbSymbolTableRecord& record, const CString& name) { record.mName = name; }
    /// Lists a record that has a stub and this owner already; its name may be there twice (viewports).
    static void list(AcDbSymbolTable& table, AcDbObjectId record, const CString& name) { table.list(record, name); }
    /// The record of a name; null when there is none.
    static AcDbObjectId find(const AcDbSymbolTable& table, const CString& name) { return table.find(name, false); }
    /// Makes a listed record the first of the table.
    static void putFirst(AcDbSymbolTable& table, AcDbObjectId record)
    {
        const auto at = std::find(table.mIds.begin(), table.mIds.end(), record);
        if (at != table.mIds.end()) std::rotate(table.mIds.begin(), at, at + 1);
    }
    static void swapIds(AcDbSymbolTable& table, std::vector<AcDbObjectId>& ids) { table.mIds.swap(ids); }
    /// Gives a listed record another name, the system's own too.
    static void rename(AcDbSymbolTable& table, AcDbSymbolTableRecord& record, const CString& name)
    {
        table.rename(record.objectId(), record.mName, name);
        record.mName = name;
    }
    static int& flags(AcDbSymbolTableRecord& record) { return record.mFlags; }
};
