#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace dxf
{
/// What is wrong with a place in a drawing file. Readers go on after each of them as told here.
enum class FaultKind : std::uint8_t {
    badCode,   ///< no group code where one has to stand: the line, or the bytes up to a new record, left out
    loneCode,  ///< the file ends after a group code: the code left out
    badNumber, ///< no number: the group is malformed
    numberRemainder, ///< more stands behind the number: ignored
    notAnInteger,    ///< a fraction where an integer stands: cut off
    outOfRange,      ///< too large for the code's kind: kept, or malformed when 64 bits do not hold it
    notFinite,       ///< a real too large for a double, or no finite number: malformed (writers: 0.0)
    badHandle,       ///< not a hexadecimal number of at most 16 digits: malformed
    badChunk,        ///< not pairs of hexadecimal digits: malformed
    truncated,       ///< a binary file ends inside a group: the group left out
    noEnd,           ///< the file ends without its end mark
    unknownCodePage, ///< the header names an unknown code page: bytes above 127 stay undecoded
    kindMismatch,    ///< (writers) a value that the group code cannot carry: the group not written
    malformedValue,  ///< (writers) a malformed group in a binary file: 0 or nothing written
};

/// An English sentence part, without a full stop.
const char* reasonOf(FaultKind kind);

struct Fault {
    FaultKind kind;
    int code;             ///< group code, -1 when there is none
    std::size_t position; ///< as Group::position
};

/// The faults of one file. However many a file has, memory stays small: the first `capacity` are kept,
/// all are counted.
class FaultList
{
public:
    static constexpr std::size_t capacity = 1000;

    void add(FaultKind kind, std::size_t position, int code = -1);
    const std::vector<Fault>& kept() const { return _kept; }
    std::size_t count() const { return _count; }

private:
    std::vector<Fault> _kept;
    std::size_t _count = 0;
};
} // namespace dxf
