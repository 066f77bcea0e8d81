#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace dxf
{
/// What the value of a group is. The group code decides it.
enum class GroupKind : std::uint8_t {
    text,   ///< a string; also the kind of every code without a meaning of its own
    handle, ///< a handle in hexadecimal
    real,   ///< a double; each component of a point is a group of its own
    int16,
    int32,
    int64,
    boolean, ///< 0 or 1; one byte in a binary file
    chunk,   ///< up to 255 bytes, hexadecimal in an ASCII file
};

/// Group codes of files lie in 0 ... lastGroupCode. (Negative codes exist in lists in memory only.)
constexpr int lastGroupCode = 1071;
constexpr int commentCode = 999;

namespace detail
{
struct KindRange {
    int first, last;
    GroupKind kind;
};

// Source: "Group Code Value Types" of the DXF reference. What it does not list is text.
constexpr KindRange kindRanges[] = {
    {5, 5, GroupKind::handle},       {10, 59, GroupKind::real},      {60, 79, GroupKind::int16},
    {90, 99, GroupKind::int32},      {105, 105, GroupKind::handle},  {110, 149, GroupKind::real},
    {160, 169, GroupKind::int64},    {170, 179, GroupKind::int16},   {210, 239, GroupKind::real},
    {270, 289, GroupKind::int16},    {290, 299, GroupKind::boolean}, {310, 319, GroupKind::chunk},
    {320, 369, GroupKind::handle},   {370, 389, GroupKind::int16},   {390, 399, GroupKind::handle},
    {400, 409, GroupKind::int16},    {420, 429, GroupKind::int32},   {440, 459, GroupKind::int32},
    {460, 469, GroupKind::real},     {480, 481, GroupKind::handle},  {1004, 1004, GroupKind::chunk},
    {1005, 1005, GroupKind::handle}, {1010, 1059, GroupKind::real},  {1060, 1070, GroupKind::int16},
    {1071, 1071, GroupKind::int32},
};

constexpr std::array<GroupKind, lastGroupCode + 1> makeKindTable()
{
    std::array<GroupKind, lastGroupCode + 1> table{};
    for (const KindRange& range : kindRanges)
        for (int code = range.first; code <= range.last; ++code)
            table[static_cast<std::size_t>(code)] = range.kind;
    return table;
}

inline constexpr auto kindTable = makeKindTable();
} // namespace detail

/// True for a code that a file may hold.
constexpr bool isGroupCode(long long code)
{
    return code >= 0 && code <= lastGroupCode;
}

/// The kind of a code's value; text for a code outside the range.
constexpr GroupKind kindOf(int code)
{
    return isGroupCode(code) ? detail::kindTable[static_cast<std::size_t>(code)] : GroupKind::text;
}

constexpr bool isInteger(GroupKind kind)
{
    return kind == GroupKind::int16 || kind == GroupKind::int32 || kind == GroupKind::int64 ||
           kind == GroupKind::boolean;
}
} // namespace dxf
