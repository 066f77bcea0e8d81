#include "TableReader.h"

#include "BlockAccess.h"
#include "Blanks.h"
#include "SymbolTableAccess.h"

#include <memory>

namespace dxf
{
namespace
{
bool isEndOfTables(const Record& record, bool areIn)
{
    if (record.name == "ENDSEC") return areIn;
    if (record.name != "SECTION") return false;
    const Group* name = record.find(2);
    return name && (name->text() == "BLOCKS" || name->text() == "ENTITIES" || name->text() == "OBJECTS");
}

bool startsTables(const Record& record)
{
    const Group* name = record.find(2);
    return record.name == "SECTION" && name && name->text() == "TABLES";
}

/// The name of a record, which stands behind its section's marker; R12 has no markers.
std::string nameIn(FileSource& source, const Record& record)
{
    source.start(record);
    for (; const DxfGroup* group = source.peek(); source.take()) {
        if (group->is(2)) return std::string(group->text);
    }
    return {};
}

void readName(ReadContext& context, FileSource& source, const Record& record)
{
    const TableInfo* table = tableOfName(record.name);
    if (!table) return;
    const std::string name = nameIn(source, record);
    if (!name.empty() && !context.find(table->kind, name)) context.reserve(table->kind, name, record.handle());
}
} // namespace

void readNames(ReadContext& context, GroupReader& reader)
{
    RecordStream records(reader);
    FileSource source(context, reader.encoding());
    bool areIn = false;
    while (records.next() && !isEndOfTables(records.record(), areIn)) {
        areIn |= startsTables(records.record());
        if (areIn) readName(context, source, records.record());
    }
}

void TableReader::take()
{
    const Record& record = _records.record();
    if (record.name == "TABLE") return takeTable();
    if (record.name == "ENDTAB") return;
    if (const TableInfo* table = tableOfName(record.name)) return takeRecord(*table);
    _context.repair(RepairCode::strayRecord, &record, "not a record of a table: left out");
}

void TableReader::takeTable()
{
    Record& record = _records.record();
    const Group* name = record.find(2);
    const TableInfo* info = name ? tableOfName(withoutBlanks(name->text())) : nullptr;
    if (!info) return _context.repair(RepairCode::strayRecord, &record, "a table of an unknown name: left out");
    AcDbObjectId& id = _context.state().*info->id;
    if (!id.isNull()) return;
    // The name and the number of records follow from the table.
    record.remove(2);
    if (_context.state().originalVersion < static_cast<int>(FileVersion::r13)) record.remove(70);
    std::unique_ptr<AcDbSymbolTable> table(info->makeTable());
    const DxfFrame frame = _source.read(*table, record);
    id = _context.attach(*table.release(), frame.handle, nullptr, AcDbObjectId(), &record);
}

void TableReader::takeRecord(const TableInfo& info)
{
    std::unique_ptr<AcDbSymbolTableRecord> read(info.makeRecord());
    const DxfFrame frame = _source.read(*read, _records.record());
    AcDbSymbolTable& table = tableOf(_context, info);
    AcDbStub* stub = stubOf(info, *read);
    const CString name = nameFor(info, *read, frame.handle);
    SymbolTableAccess::setName(*read, name);
    stub = _context.attach(*read.release(), frame.handle, stub, table.objectId(), &_records.record());
    _context.define(info.kind, utf8Of(name), stub);
    SymbolTableAccess::list(table, stub, name);
}

/// The stub that the record's name has got already; null when there is none, or another record is there.
AcDbStub* TableReader::stubOf(const TableInfo& info, const AcDbSymbolTableRecord& read)
{
    AcDbStub* named = _context.find(info.kind, utf8Of(read.name()));
    return named && !named->object ? named : nullptr;
}

/// A name that the table does not have yet. Viewports of one configuration share theirs.
CString TableReader::nameFor(const TableInfo& info, const AcDbSymbolTableRecord& read, std::uint64_t handle)
{
    // Text styles for shape files have no name.
    if (read.name().IsEmpty() && info.kind == TableKind::textStyle) return read.name();
    const AcDbStub* named = _context.find(info.kind, utf8Of(read.name()));
    const bool isTaken = named && named->object && info.kind != TableKind::viewport;
    if (!read.name().IsEmpty() && !isTaken) return read.name();
    _context.repair(isTaken ? RepairCode::duplicateName : RepairCode::missingName, &_records.record(),
                    isTaken ? "the name was taken: a new one was given" : "no name: one was given");
    CString name;
    for (std::uint64_t number = handle;; ++number) {
        name.Format(L"%ls$%llX", static_cast<const wchar_t*>(read.name()), static_cast<unsigned long long>(number));
        if (!_context.find(info.kind, utf8Of(name))) return name;
    }
}

AcDbSymbolTable& tableOf(ReadContext& context, const TableInfo& info)
{
    AcDbObjectId& id = context.state().*info.id;
    if (id.isNull()) id = context.attach(*info.makeTable(), 0, nullptr, AcDbObjectId());
    return *static_cast<AcDbSymbolTable*>(residentObject(id));
}

void defineRecord(ReadContext& context, const TableInfo& info, std::string_view utf8, AcDbStub* stub)
{
    AcDbSymbolTableRecord* record = info.makeRecord();
    AcDbSymbolTable& table = tableOf(context, info);
    const CString name = wideOf(utf8);
    SymbolTableAccess::setName(*record, name);
    context.attach(*record, 0, stub, table.objectId());
    SymbolTableAccess::list(table, stub, name);
}
} // namespace dxf
