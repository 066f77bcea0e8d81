#include "Group.h"

#include "NumberText.h"

#include <cassert>
#include <cstring>

namespace dxf
{
namespace
{
std::string bytesOf(const Group& group)
{
    std::string bytes;
    group.appendBytes(bytes);
    return bytes;
}

bool areSameBits(double one, double other)
{
    return std::memcmp(&one, &other, sizeof one) == 0;
}
} // namespace

Group Group::ofText(int code, std::string_view encoded)
{
    Group group(code);
    assert(group._kind == GroupKind::text);
    group._text = encoded;
    return group;
}

Group Group::ofReal(int code, double value)
{
    Group group(code);
    assert(group._kind == GroupKind::real);
    group._real = value;
    return group;
}

Group Group::ofInteger(int code, std::int64_t value)
{
    Group group(code);
    assert(isInteger(group._kind));
    group._integer = value;
    return group;
}

Group Group::ofHandle(int code, std::uint64_t value)
{
    Group group(code);
    assert(group._kind == GroupKind::handle);
    group._integer = static_cast<std::int64_t>(value);
    return group;
}

Group Group::ofChunk(int code, std::string_view bytes)
{
    Group group(code);
    assert(group._kind == GroupKind::chunk);
    group._text = bytes;
    return group;
}

void Group::appendBytes(std::string& to) const
{
    if (_kind != GroupKind::chunk || _isMalformed) return;
    if (_isHex)
        appendHexBytes(_text, to);
    else
        to.append(_text);
}

bool areSame(const Group& one, const Group& other)
{
    if (one.code() != other.code() || one.isMalformed() != other.isMalformed()) return false;
    switch (one.kind()) {
    case GroupKind::text:
        return one.text() == other.text();
    case GroupKind::real:
        return areSameBits(one.real(), other.real());
    case GroupKind::handle:
        return one.handle() == other.handle();
    case GroupKind::chunk:
        return bytesOf(one) == bytesOf(other);
    default:
        return one.integer() == other.integer();
    }
}
} // namespace dxf
