#pragma once

#include "Record.h"
#include "RepairReport.h"
#include "TableKind.h"

#include <unordered_map>
#include <unordered_set>

namespace dxf
{
/// What the parts of the reader share: the drawing that is filled, and who stands behind handles and names.
class ReadContext
{
public:
    ReadContext(AcDbDatabase& database, RepairReport& report);

    AcDbDatabase& database() { return _database; }
    DatabaseState& state() { return DatabaseAccess::of(_database); }
    RepairReport& report() { return _report; }

    /// The stub of a handle of the file, made when it is new; null for the null handle and for one that is too large.
    AcDbStub* stubOf(std::uint64_t handle);
    /// Whether a handle can be one.
    static bool isHandle(std::uint64_t handle) { return handle < largestHandle; }

    /// The stub of a table's record by name, whether it has been read or not.
    AcDbStub* obtain(TableKind kind, std::string_view utf8);
    /// The same without making one: null when nobody has named it.
    AcDbStub* find(TableKind kind, std::string_view utf8) const;
    /// Gives a name to a stub, unless another has it.
    void define(TableKind kind, std::string_view utf8, AcDbStub* stub);
    /// Gives a name, which must be new, to the stub of a record's handle and keeps that for the record: nothing else
    /// becomes resident there. A handle that is kept for another record is refused; the name gets a new one.
    void reserve(TableKind kind, std::string_view utf8, std::uint64_t handle);
    /// Calls for every name: kind, name as it was first written, stub.
    template <class Call>
    void forEachName(Call call) const
    {
        for (const TableInfo& info : tableInfos) {
            for (const auto& [key, entry] : namesOf(info.kind)) call(info, entry.name, entry.stub);
        }
    }

    /// Makes an object that was read resident and closed: under its own handle, under `stub` when that is given, under
    /// a new handle when its own is taken or kept for another, which is reported.
    AcDbStub* attach(AcDbObject& object, std::uint64_t handle, AcDbStub* stub, AcDbObjectId owner,
                     const Record* record = nullptr);

    /// An object that lost its handle to another one.
    struct Double {
        AcDbStub* first;  ///< has the handle of the file
        AcDbStub* second; ///< has a new one
    };
    const std::vector<Double>& doubles() const { return _doubles; }

    void repair(RepairCode code, const Record* record, std::string reason, std::size_t position = 0);

private:
    static constexpr std::uint64_t largestHandle = std::uint64_t(1) << 60;

    struct Entry {
        std::string name;
        AcDbStub* stub;
    };
    using Names = std::unordered_map<std::string, Entry>; ///< keys in lower case
    struct LastName {
        std::string bytes;
        AcDbStub* stub = nullptr;
    };

    const Names& namesOf(TableKind kind) const { return _names[static_cast<std::size_t>(kind)]; }
    AcDbStub* obtainUncached(TableKind kind, std::string_view utf8);
    bool isTaken(const AcDbStub& stub) const { return stub.object || _reserved.count(&stub); }
    AcDbStub* stubFor(std::uint64_t handle, AcDbStub* given, const Record* record);

    AcDbDatabase& _database;
    RepairReport& _report;
    std::array<Names, 9> _names;
    std::array<LastName, 9> _last; ///< neighbours in a file share their layers and line types
    std::unordered_set<const AcDbStub*> _reserved;
    std::vector<Double> _doubles;
};
} // namespace dxf
