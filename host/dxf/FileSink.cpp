#include "FileSink.h"

#include "Stub.h"
#include "dbproxy.h"
#include "dbsymtb.h"

#include <algorithm>

namespace dxf
{
namespace
{
bool isPlain(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c != '^' && c != '\\'; });
}

/// Classes whose records have their present form from a version on.
struct NewerClass {
    std::string_view record;
    FileVersion since;
};
constexpr NewerClass newerClasses[] = {
    {"MATERIAL", FileVersion::r2007},     {"SCALE", FileVersion::r2007},
    {"TABLESTYLE", FileVersion::r2007},   {"MLEADERSTYLE", FileVersion::r2010},
    {"VISUALSTYLE", FileVersion::r2013},  {"ACDBDETAILVIEWSTYLE", FileVersion::r2013},
    {"ACDBSECTIONVIEWSTYLE", FileVersion::r2013},
};

std::wstring_view viewOf(const CString& text)
{
    return {static_cast<const wchar_t*>(text), static_cast<std::size_t>(text.GetLength())};
}
} // namespace

void FileSink::text(int code, std::string_view utf8)
{
    if (isPlain(utf8)) return _writer.name(code, utf8);
    _writer.text(code, viewOf(wideOf(utf8)));
}

void FileSink::handle(int code, AcDbStub* stub)
{
    _writer.handle(code, stub && !stub->erased && holds(stub) ? stub->handle : 0);
}

bool FileSink::isNewer(const AcDbStub* stub) const
{
    const AcDbObject* object = stub ? stub->object : nullptr;
    if (!AcDbProxyObject::cast(object)) return false;
    const std::string_view record = object->dxfRecordName();
    return std::any_of(std::begin(newerClasses), std::end(newerClasses), [&](const NewerClass& one) {
        return record == one.record && _version < one.since;
    });
}

void FileSink::binary(int code, std::string_view bytes)
{
    _writer.group(Group::ofChunk(code, bytes), _writer.encoding());
}

void FileSink::record(int code, AcDbStub* stub)
{
    if (!stub || !stub->object) return;
    const unsigned place = static_cast<unsigned>(code) & 7u;
    if (_lastStub[place] != stub) {
        auto at = _names.find(stub);
        if (at == _names.end()) {
            // An id that a file gave by its handle may be of any object.
            const auto* named = AcDbSymbolTableRecord::cast(stub->object);
            if (!named) return;
            at = _names.try_emplace(stub).first;
            _writer.encoding().encode(viewOf(named->name()), at->second);
        }
        _lastStub[place] = stub;
        _lastName[place] = &at->second;
    }
    _writer.name(code, *_lastName[place]);
}
} // namespace dxf
