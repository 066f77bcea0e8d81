#include "PackedGroups.h"

#include <cstring>

namespace
{
// Codes lie between -5 and 1071, so the kind of the value fits beside the code.
constexpr int kindShift = 12;
constexpr int codeBias = 8;

template <class T>
T get(const std::string& bytes, std::size_t& position)
{
    T value;
    std::memcpy(&value, bytes.data() + position, sizeof value);
    position += sizeof value;
    return value;
}

std::uint16_t headOf(int code, DxfKind kind)
{
    return static_cast<std::uint16_t>(static_cast<int>(kind) << kindShift | (code + codeBias));
}
} // namespace

template <class T>
void PackedGroups::put(T value)
{
    mBytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

void PackedGroups::appendReal(int code, double value)
{
    put(headOf(code, DxfKind::real));
    put(value);
}

void PackedGroups::appendInteger(int code, std::int64_t value)
{
    put(headOf(code, DxfKind::integer));
    put(value);
}

void PackedGroups::appendHandle(int code, std::uint64_t value)
{
    put(headOf(code, DxfKind::handle));
    put(value);
}

void PackedGroups::appendText(int code, std::string_view utf8)
{
    put(headOf(code, DxfKind::text));
    put(static_cast<std::uint32_t>(utf8.size()));
    mBytes.append(utf8);
}

void PackedGroups::appendBinary(int code, std::string_view bytes)
{
    put(headOf(code, DxfKind::binary));
    put(static_cast<std::uint32_t>(bytes.size()));
    mBytes.append(bytes);
}

void PackedGroups::append(const DxfGroup& group)
{
    switch (group.kind) {
    case DxfKind::real: return appendReal(group.code, group.real);
    case DxfKind::integer: return appendInteger(group.code, group.integer);
    case DxfKind::handle: return appendHandle(group.code, static_cast<std::uint64_t>(group.integer));
    case DxfKind::text: return appendText(group.code, group.text);
    case DxfKind::binary: return appendBinary(group.code, group.text);
    }
}

bool PackedGroups::read(std::size_t& position, DxfGroup& group) const
{
    if (position >= mBytes.size()) return false;
    const int head = get<std::uint16_t>(mBytes, position);
    group = DxfGroup();
    group.code = (head & ((1 << kindShift) - 1)) - codeBias;
    group.kind = static_cast<DxfKind>(head >> kindShift);
    if (group.kind == DxfKind::real) {
        group.real = get<double>(mBytes, position);
    } else if (group.kind == DxfKind::integer || group.kind == DxfKind::handle) {
        group.integer = get<std::int64_t>(mBytes, position);
    } else {
        const std::size_t length = get<std::uint32_t>(mBytes, position);
        group.text = std::string_view(mBytes).substr(position, length);
        position += length;
    }
    return true;
}
