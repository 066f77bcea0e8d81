#include "ReadContext.h"

#include "DbObjectAccess.h"

namespace dxf
{
namespace
{
std::string keyOf(std::string_view utf8)
{
    CString key = wideOf(utf8);
    return utf8Of(key.MakeLower());
}
} // namespace

ReadContext::ReadContext(AcDbDatabase& database, RepairReport& report) : _database(database), _report(report) {}

AcDbStub* ReadContext::stubOf(std::uint64_t handle)
{
    if (handle == 0 || !isHandle(handle)) return nullptr;
    return state().stubs.obtain(handle);
}

AcDbStub* ReadContext::find(TableKind kind, std::string_view utf8) const
{
    const Names& names = namesOf(kind);
    const auto at = names.find(keyOf(utf8));
    return at == names.end() ? nullptr : at->second.stub;
}

void ReadContext::define(TableKind kind, std::string_view utf8, AcDbStub* stub)
{
    _names[static_cast<std::size_t>(kind)].emplace(keyOf(utf8), Entry{std::string(utf8), stub});
}

AcDbStub* ReadContext::obtain(TableKind kind, std::string_view utf8)
{
    LastName& last = _last[static_cast<std::size_t>(kind)];
    if (last.stub && last.bytes == utf8) return last.stub;
    last.stub = obtainUncached(kind, utf8);
    last.bytes = utf8;
    return last.stub;
}

AcDbStub* ReadContext::obtainUncached(TableKind kind, std::string_view utf8)
{
    if (AcDbStub* known = find(kind, utf8)) return known;
    AcDbStub* made = state().stubs.addPending();
    define(kind, utf8, made);
    return made;
}

void ReadContext::reserve(TableKind kind, std::string_view utf8, std::uint64_t handle)
{
    AcDbStub* stub = stubOf(handle);
    if (!stub || !_reserved.insert(stub).second) stub = state().stubs.addPending();
    define(kind, utf8, stub);
}

AcDbStub* ReadContext::attach(AcDbObject& object, std::uint64_t handle, AcDbStub* stub, AcDbObjectId owner,
                              const Record* record)
{
    stub = stubFor(handle, stub, record);
    DbObjectAccess::makeResident(object, *stub, owner);
    DbObjectAccess::settle(object);
    return stub;
}

/// The stub under which an object of a handle becomes resident: `given`, or the handle's own when that is free.
AcDbStub* ReadContext::stubFor(std::uint64_t handle, AcDbStub* given, const Record* record)
{
    AcDbStub* const own = given ? state().stubs.find(handle) : stubOf(handle);
    if (given && given == own) return given;
    const bool isRefused = own && isTaken(*own);
    AcDbStub* const stub = given ? given : own && !isRefused ? own : state().stubs.addPending();
    if (isRefused) {
        repair(RepairCode::duplicateHandle, record, "the handle was taken: a new one was given");
        _doubles.push_back({own, stub});
    }
    return stub;
}

void ReadContext::repair(RepairCode code, const Record* record, std::string reason, std::size_t position)
{
    if (!position && record) position = record->position;
    _report.add({code, position, record ? std::string(record->name) : std::string(), record ? record->handle() : 0,
                 std::move(reason)});
}
} // namespace dxf
