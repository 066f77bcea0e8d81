#include "GroupWriter.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace dxf
{
namespace
{
constexpr std::size_t usualChunk = 127, longestChunk = 255;

template <class Number>
bool isIn(std::int64_t value)
{
    return value >= std::numeric_limits<Number>::min() && value <= std::numeric_limits<Number>::max();
}

bool fits(GroupKind kind, std::int64_t value)
{
    switch (kind) {
    case GroupKind::int16:
        return isIn<std::int16_t>(value);
    case GroupKind::int32:
        return isIn<std::int32_t>(value);
    case GroupKind::boolean:
        return isIn<std::uint8_t>(value);
    default:
        return true;
    }
}

std::int64_t rounded(double value)
{
    constexpr double limit = 9.2e18;
    return std::llround(std::clamp(value, -limit, limit));
}
} // namespace

GroupWriter::~GroupWriter() = default;

void GroupWriter::text(int code, std::wstring_view value)
{
    _encoded.clear();
    _encoding.encode(value, _encoded);
    name(code, _encoded);
}

void GroupWriter::name(int code, std::string_view encoded)
{
    ++_count;
    if (isGroupCode(code) && kindOf(code) == GroupKind::text)
        putText(code, encoded);
    else
        note(FaultKind::kindMismatch, code);
}

void GroupWriter::real(int code, double value)
{
    ++_count;
    const GroupKind kind = kindOf(code);
    const bool isFinite = std::isfinite(value);
    if (!isFinite) note(FaultKind::notFinite, code);
    if (kind == GroupKind::real)
        putReal(code, isFinite ? value : 0.0);
    else if (isInteger(kind))
        putNumber(code, isFinite ? rounded(value) : 0);
    else
        note(FaultKind::kindMismatch, code);
}

void GroupWriter::integer(int code, std::int64_t value)
{
    ++_count;
    const GroupKind kind = kindOf(code);
    if (isInteger(kind))
        putNumber(code, value);
    else if (kind == GroupKind::real)
        putReal(code, static_cast<double>(value));
    else
        note(FaultKind::kindMismatch, code);
}

void GroupWriter::putNumber(int code, std::int64_t value)
{
    if (!fits(kindOf(code), value)) note(FaultKind::outOfRange, code);
    putInteger(code, value);
}

void GroupWriter::handle(int code, std::uint64_t value)
{
    ++_count;
    if (kindOf(code) == GroupKind::handle)
        putHandle(code, value);
    else
        note(FaultKind::kindMismatch, code);
}

void GroupWriter::chunks(int code, std::string_view bytes)
{
    if (kindOf(code) != GroupKind::chunk) {
        ++_count;
        note(FaultKind::kindMismatch, code);
        return;
    }
    for (std::size_t i = 0; i < bytes.size(); i += usualChunk) {
        ++_count;
        putChunk(code, bytes.substr(i, usualChunk));
    }
}

void GroupWriter::point(int code, double x, double y, double z)
{
    real(code, x);
    real(code + 10, y);
    real(code + 20, z);
}

void GroupWriter::group(const Group& group, const TextEncoding& from)
{
    if (group.isMalformed())
        malformed(group);
    else
        wellFormed(group, from);
}

void GroupWriter::wellFormed(const Group& group, const TextEncoding& from)
{
    switch (group.kind()) {
    case GroupKind::text:
        recode(group, from);
        break;
    case GroupKind::real:
        real(group.code(), group.real());
        break;
    case GroupKind::handle:
        handle(group.code(), group.handle());
        break;
    case GroupKind::chunk:
        _encoded.clear();
        group.appendBytes(_encoded);
        if (_encoded.size() > longestChunk) return chunks(group.code(), _encoded);
        ++_count;
        putChunk(group.code(), _encoded);
        break;
    default:
        integer(group.code(), group.integer());
    }
}

void GroupWriter::malformed(const Group& group)
{
    ++_count;
    if (!putMalformed(group)) note(FaultKind::malformedValue, group.code());
}

void GroupWriter::recode(const Group& group, const TextEncoding& from)
{
    if (from == _encoding) return name(group.code(), group.text());
    _decoded.clear();
    from.decode(group.text(), _decoded);
    text(group.code(), _decoded);
}
} // namespace dxf
