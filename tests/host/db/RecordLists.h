#pragma once

/// Records as lists of groups: what a test reads objects from and writes them to.

#include "DatabaseState.h"
#include "DxfFields.h"
#include "PackedGroups.h"
#include "RecordNames.h"

#include <initializer_list>
#include <sstream>
#include <string>
#include <variant>

/// Gives the groups of a list, as a file would.
class ListSource : public DxfSource
{
public:
    explicit ListSource(const PackedGroups& groups, AcDbDatabase* database = nullptr)
        : mGroups(groups), mDatabase(database)
    {
        take();
    }
    const DxfGroup* peek() override { return mMore ? &mGroup : nullptr; }
    void take() override { mMore = mGroups.read(mAt, mGroup); }
    AcDbStub* stubOf(std::uint64_t handle) override
    {
        return mDatabase && handle ? DatabaseAccess::of(*mDatabase).stubs.obtain(handle) : nullptr;
    }
    AcDbStub* recordOf(int code, std::string_view name) override
    {
        return mDatabase ? recordNamed(*mDatabase, code, name) : nullptr;
    }
    void report(const DxfGroup&, const char*) override { ++reports; }

    int reports = 0;

private:
    const PackedGroups& mGroups;
    AcDbDatabase* mDatabase;
    std::size_t mAt = 0;
    DxfGroup mGroup;
    bool mMore = false;
};

class ListSink : public DxfSink
{
public:
    explicit ListSink(DxfVersion version) : mVersion(version) {}
    void real(int code, double value) override { groups.appendReal(code, value); }
    void integer(int code, std::int64_t value) override { groups.appendInteger(code, value); }
    void text(int code, std::string_view utf8) override { groups.appendText(code, utf8); }
    void handle(int code, AcDbStub* stub) override { groups.appendHandle(code, stub ? stub->handle : 0); }
    void binary(int code, std::string_view bytes) override { groups.appendBinary(code, bytes); }
    void rawHandle(int code, std::uint64_t value) override { groups.appendHandle(code, value); }
    int version() const override { return static_cast<int>(mVersion); }

    PackedGroups groups;

private:
    DxfVersion mVersion;
};

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
