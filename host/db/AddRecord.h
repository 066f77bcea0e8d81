#pragma once

#include "SymbolTableAccess.h"
#include "dbdatabase.h"

/// Adds a record to a table that is closed; both are closed again.
template <class Table, class Record>
AcDbObjectId addRecord(AcDbDatabase& database, Record* record, const ACHAR* name)
{
    AcDbObjectId id;
    Table* table = nullptr;
    database.getSymbolTable(table, AcDb::kForWrite);
    SymbolTableAccess::setName(*record, name);
    table->add(id, record);
    record->close();
    table->close();
    return id;
}
