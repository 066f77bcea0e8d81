#pragma once

#include "GroupReader.h"
#include "RecordClass.h"

#include <vector>

namespace dxf
{
/// One record of a drawing file: its group 0 and the groups up to the next. The header is one record too (SECTION), and
/// so is a preview. Everything in it is a view into the file.
class Record final : public RecordView
{
public:
    std::string_view name;
    std::size_t position = 0; ///< of the group 0
    std::vector<Group> groups; ///< those behind it

    bool hasSection(std::string_view marker) const override;
    std::int64_t integer(int code, std::int64_t otherwise) const override;
    /// The first group with a code; null when there is none.
    const Group* find(int code) const;
    /// The handle that the record gives itself; 0 when it has none.
    std::uint64_t handle() const;
    /// Takes the first group with a code out.
    void remove(int code);
};

/// Cuts the groups of a file into records.
class RecordStream
{
public:
    explicit RecordStream(GroupReader& reader) : _reader(reader) {}

    /// Reads the next record; false at the end mark or the end of the file. Groups in front of the first one are left
    /// out.
    bool next();
    Record& record() { return _record; }
    /// The name of the record that next() will read; empty at the end.
    std::string_view nextName();

private:
    GroupReader& _reader;
    Record _record;
};
} // namespace dxf
