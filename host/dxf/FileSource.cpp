#include "FileSource.h"

#include <algorithm>

namespace dxf
{
namespace
{
bool isPlain(std::string_view text)
{
    const auto isPlainByte = [](char c) { return static_cast<signed char>(c) >= 0 && c != '^' && c != '\\'; };
    return std::all_of(text.begin(), text.end(), isPlainByte);
}
/// Whether a record that has sections lacks that of the object's own class.
bool lacksOwnSection(const AcDbObject& object, const Record& record)
{
    const DxfClass* own = object.dxfClass();
    return own && own->marker() && record.find(100) && !record.hasSection(own->marker());
}
} // namespace

DxfFrame FileSource::read(AcDbObject& object, Record& record)
{
    if (lacksOwnSection(object, record)) {
        // Without any marker a group goes to the class that knows it, as in files before R13.
        _context.repair(RepairCode::missingSection, &record,
                        "the section of its class is not marked: found by its groups");
        const auto isMarker = [](const Group& group) { return group.code() == 100; };
        record.groups.erase(std::remove_if(record.groups.begin(), record.groups.end(), isMarker), record.groups.end());
    }
    start(record);
    return dxfRead(object, *this);
}

void FileSource::start(const Record& record)
{
    _record = &record;
    _at = 0;
    _isFilled = false;
    _isPaperSpace = false;
}

void FileSource::fill(const Group& group)
{
    _group.code = group.code();
    _group.kind = group.code() == 5 && isArrowName() ? DxfKind::text : dxfKindOf(group.code());
    _isFilled = true;
    switch (_group.kind) {
    case DxfKind::real: _group.real = group.real(); break;
    case DxfKind::integer: _group.integer = group.integer(); break;
    case DxfKind::handle:
        _group.integer = static_cast<std::int64_t>(group.handle());
        if (group.isMalformed()) fillText(group);
        break;
    case DxfKind::binary:
        _scratch.clear();
        group.appendBytes(_scratch);
        _group.text = _scratch;
        break;
    case DxfKind::text: fillText(group);
    }
}

/// Dimension styles had the name of a block in group 5 before it became a reference; their handle is in 105.
bool FileSource::isArrowName() const
{
    if (_record->name != "DIMSTYLE") return false;
    return _context.state().originalVersion < static_cast<int>(FileVersion::r13) || _record->find(105);
}

void FileSource::fillText(const Group& group)
{
    _group.kind = DxfKind::text;
    _group.text = group.text();
    if (isPlain(_group.text)) return;
    _decoded.clear();
    _encoding.decode(group.text(), _decoded);
    _scratch = utf8Of(CString(_decoded.data(), static_cast<int>(_decoded.size())));
    _group.text = _scratch;
}

AcDbStub* FileSource::stubOf(std::uint64_t handle)
{
    if (!ReadContext::isHandle(handle)) _context.repair(RepairCode::badHandle, _record, "a handle beyond the largest");
    return _context.stubOf(handle);
}

AcDbStub* FileSource::recordOf(int code, std::string_view name)
{
    const TableInfo* table = tableOfCode(code);
    if (!table || name.empty()) return nullptr;
    return _context.obtain(table->kind, name);
}

void FileSource::report(const DxfGroup&, const char* reason)
{
    const std::size_t position = _at < _record->groups.size() ? _record->groups[_at].position() : 0;
    _context.repair(RepairCode::badValue, _record, reason, position);
}

void FileSource::takeAll(PackedGroups& to)
{
    for (; const DxfGroup* group = peek(); take()) to.append(*group);
}
} // namespace dxf
