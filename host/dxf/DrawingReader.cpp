#include "DrawingReader.h"

#include "Blanks.h"
#include "Progress.h"
#include "dbproxy.h"

#include <memory>

namespace dxf
{
DrawingReader::DrawingReader(ReadContext& context, GroupReader& reader)
    : _context(context), _reader(reader), _records(reader), _source(context, reader.encoding()),
      _tables(context, _records, _source), _entities(context, _records, _source)
{
}

bool DrawingReader::read()
{
    Progress progress(L"Opening");
    const std::string_view file = _reader.input()->bytes();
    while (_records.next()) {
        const std::string_view name = _records.record().name;
        progress.reach(static_cast<std::size_t>(name.data() - file.data()), file.size());
        if (name == "SECTION") {
            enterSection();
        } else if (name == "ENDSEC") {
            endSection();
        } else {
            (this->*_take)();
        }
    }
    endSection();
    noteFaults();
    return _hasSections;
}

void DrawingReader::enterSection()
{
    static const std::pair<std::string_view, Take> sections[] = {
        {"HEADER", &DrawingReader::takeStray},         {"CLASSES", &DrawingReader::takeClass},
        {"TABLES", &DrawingReader::takeOfTables},      {"BLOCKS", &DrawingReader::takeOfBlocks},
        {"ENTITIES", &DrawingReader::takeOfEntities},  {"OBJECTS", &DrawingReader::takeObject},
    };
    endSection();
    const Group* group = _records.record().find(2);
    const std::string_view name = group ? withoutBlanks(group->text()) : std::string_view();
    _take = &DrawingReader::keep;
    for (const auto& [known, take] : sections) {
        if (name == known) _take = take;
    }
    if (name == "HEADER") takeHeader();
    if (_take == &DrawingReader::keep) {
        _context.state().keptSections.emplace_back();
        keep();
    } else {
        _hasSections = true;
    }
}

void DrawingReader::endSection()
{
    _entities.endSection();
    _take = &DrawingReader::takeStray;
}

void DrawingReader::takeHeader()
{
    PackedGroups* value = nullptr;
    for (_source.start(_records.record()); const DxfGroup* group = _source.peek(); _source.take()) {
        if (group->is(9)) {
            value = &_context.state().header.at(group->text);
            value->clear();
        } else if (value) {
            value->append(*group);
        }
    }
}

void DrawingReader::takeClass()
{
    if (_records.record().name != "CLASS") return takeStray();
    PackedGroups groups;
    _source.start(_records.record());
    _source.takeAll(groups);
    _context.state().classes.push_back(std::move(groups));
}

/// A section that the host has no use for is kept whole, group 0 of its records included.
void DrawingReader::keep()
{
    PackedGroups& groups = _context.state().keptSections.back();
    groups.appendText(0, _records.record().name);
    _source.start(_records.record());
    _source.takeAll(groups);
}

void DrawingReader::takeObject()
{
    Record& record = _records.record();
    AcRxClass* found = recordKindOf(record.name).classOf(record);
    const bool isObject =
        found && found->isDerivedFrom(AcDbObject::desc()) && !found->isDerivedFrom(AcDbEntity::desc());
    AcRxObject* made = isObject ? found->create() : nullptr;
    auto* object = made ? static_cast<AcDbObject*>(made) : new AcDbProxyObject(record.name);
    const DxfFrame frame = _source.read(*object, record);
    const AcDbObjectId id = _context.attach(*object, frame.handle, nullptr, frame.owner, &record);
    AcDbObjectId& root = _context.state().namedObjects;
    if (root.isNull() && record.name == "DICTIONARY") root = id;
}

void DrawingReader::takeStray()
{
    _context.repair(RepairCode::strayRecord, &_records.record(), "stands in no section: left out");
}

void DrawingReader::noteFaults()
{
    for (const Fault& fault : _reader.faults().kept())
        _context.repair(RepairCode::badGroup, nullptr, reasonOf(fault.kind), fault.position);
}
} // namespace dxf
