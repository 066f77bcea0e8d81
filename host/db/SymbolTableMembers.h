#pragma once

/// The members that ACDB_SYMBOL_TABLE declares.

#include "ClassRegistration.h"
#include "dbsymtb.h"

#define ACDB_SYMBOL_TABLE_MEMBERS(KIND)                                                                      \
    ACDB_CLASS(AcDb##KIND##Table, AcDbSymbolTable)                                                           \
    const AcRxClass* AcDb##KIND##Table::recordClass() const { return AcDb##KIND##TableRecord::desc(); }      \
    Acad::ErrorStatus AcDb##KIND##Table::getAt(const ACHAR* name, AcDb##KIND##TableRecord*& record,          \
                                               AcDb::OpenMode mode, bool openErased) const                   \
    {                                                                                                        \
        record = nullptr;                                                                                    \
        AcDbObjectId id;                                                                                     \
        const Acad::ErrorStatus status = getAt(name, id, openErased);                                        \
        return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;                  \
    }                                                                                                        \
    Acad::ErrorStatus AcDb##KIND##Table::newIterator(AcDb##KIND##TableIterator*& iterator, bool atBeginning, \
                                                     bool skipDeleted) const                                 \
    {                                                                                                        \
        iterator = new AcDb##KIND##TableIterator(recordIds(), atBeginning, skipDeleted);                     \
        return Acad::eOk;                                                                                    \
    }                                                                                                        \
    Acad::ErrorStatus AcDb##KIND##TableIterator::getRecord(AcDb##KIND##TableRecord*& record,                 \
                                                           AcDb::OpenMode mode, bool openErased) const       \
    {                                                                                                        \
        record = nullptr;                                                                                    \
        AcDbObjectId id;                                                                                     \
        const Acad::ErrorStatus status = getRecordId(id);                                                    \
        return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;                  \
    }
