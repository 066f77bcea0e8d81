#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dxf
{
/// What was wrong with a drawing file and is not any more. The names of the codes are stable.
enum class RepairCode : std::uint8_t {
    badGroup,        ///< a group that cannot be read: see FaultKind
    badValue,        ///< a value that its class cannot use: left out, or a default taken
    badHandle,       ///< a handle beyond the largest: taken for none
    duplicateHandle, ///< a second object under a handle: it got a new one
    duplicateName,   ///< a second record under a name: it got a new name
    missingName,     ///< a record without a name: it got one
    undefinedName,   ///< a name without a record: a record with default properties was made
    strayRecord,     ///< a record outside of a section, or in one where it cannot stand: left out
    noBlockEnd,      ///< a block or list of vertices without its end mark: it was added
    missingSection,  ///< a record without the marker of its class: its groups were found all the same
    missingTable,    ///< a table or record that every drawing has: it was made
};

const char* nameOf(RepairCode code);

struct Repair {
    RepairCode code;
    std::size_t position; ///< line, counted from 1 (ASCII), or byte offset (binary); 0: not of one place
    std::string record;   ///< the record's name; empty when there is none
    std::uint64_t handle; ///< of the record, 0 when it has none
    std::string reason;   ///< an English sentence part
};

/// "line 12: LINE 1F: the handle was taken: a new one was given (duplicateHandle)"
std::string textOf(const Repair& repair);

/// What reading a file repaired. However damaged the file, memory stays small: the first `capacity` repairs are kept,
/// all are counted.
class RepairReport
{
public:
    static constexpr std::size_t capacity = 1000;

    void add(Repair repair);
    const std::vector<Repair>& kept() const { return _kept; }
    std::size_t count() const { return _count; }
    bool isEmpty() const { return _count == 0; }

private:
    std::vector<Repair> _kept;
    std::size_t _count = 0;
};
} // namespace dxf
