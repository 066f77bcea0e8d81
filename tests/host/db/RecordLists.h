#pragma once

/// Records as lists of groups: what a test reads objects from and writes them to.

#include "PackedRecords.h"

#include <initializer_list>
#include <sstream>
#include <string>
#include <variant>

using ListSource = PackedSource;
using ListSink = PackedSink;

inline PackedGroups written(const AcDbObject& object, DxfVersion version = DxfVersion::r2018)
{
    ListSink sink(version);
    dxfWrite(object, sink);
    return sink.groups;
}

/// One group of a record a test writes down.
struct TestGroup {
    int code;
    std::variant<double, const char*> value;
};

/// Groups as a file has them: numbers and texts by what their codes hold.
inline PackedGroups groupsOf(std::initializer_list<TestGroup> list)
{
    PackedGroups groups;
    for (const TestGroup& group : list) {
        const double* number = std::get_if<double>(&group.value);
        const char* text = number ? "" : std::get<const char*>(group.value);
        switch (dxfKindOf(group.code)) {
        case DxfKind::real: groups.appendReal(group.code, *number); break;
        case DxfKind::integer: groups.appendInteger(group.code, static_cast<std::int64_t>(*number)); break;
        case DxfKind::handle: groups.appendHandle(group.code, static_cast<std::uint64_t>(*number)); break;
        case DxfKind::text: groups.appendText(group.code, text); break;
        case DxfKind::binary: groups.appendBinary(group.code, text); break;
        }
    }
    return groups;
}

/// The groups one a line, for messages and comparisons.
inline std::string textOf(const PackedGroups& groups)
{
    std::ostringstream out;
    DxfGroup group;
    for (std::size_t at = 0; groups.read(at, group);) {
        out << group.code << ' ';
        if (group.kind == DxfKind::real) out << group.real;
        else if (group.kind == DxfKind::text || group.kind == DxfKind::binary) out << group.text;
        else out << group.integer;
        out << '\n';
    }
    return out.str();
}

/// What an object writes after it has read a record.
inline std::string rewritten(AcDbObject& object, const PackedGroups& groups, AcDbDatabase* database = nullptr,
                             DxfVersion version = DxfVersion::r2018)
{
    ListSource source(groups, database);
    dxfRead(object, source);
    return textOf(written(object, version));
}
