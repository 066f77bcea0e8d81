#pragma once

#include "FileSource.h"

namespace dxf
{
/// Finds the names of a file's tables before anything is read, so that what refers to a record by its name finds the
/// record's own stub, wherever it stands.
void readNames(ReadContext& context, GroupReader& reader);

/// Reads the section TABLES.
class TableReader
{
public:
    TableReader(ReadContext& context, RecordStream& records, FileSource& source)
        : _context(context), _records(records), _source(source)
    {
    }

    /// Takes the record that the stream stands on: a table, one of its records, or an end.
    void take();

private:
    void takeTable();
    void takeRecord(const TableInfo& table);
    AcDbStub* stubOf(const TableInfo& table, const AcDbSymbolTableRecord& read);
    CString nameFor(const TableInfo& table, const AcDbSymbolTableRecord& read, std::uint64_t handle);

    ReadContext& _context;
    RecordStream& _records;
    FileSource& _source;
};

/// The table, made when the file has none.
AcDbSymbolTable& tableOf(ReadContext& context, const TableInfo& info);
/// Makes a record with default properties for a name that has a stub and nothing behind it.
void defineRecord(ReadContext& context, const TableInfo& info, std::string_view utf8, AcDbStub* stub);
} // namespace dxf
