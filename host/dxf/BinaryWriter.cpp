#include "BinaryWriter.h"

#include "BinaryReader.h"
#include "NumberText.h"

namespace dxf
{
namespace
{
constexpr int firstEscapedCode = 255;

/// Writes the low `count` bytes of a number, the lowest first.
char* putBytes(char* to, std::uint64_t bits, int count)
{
    for (int i = 0; i < count; ++i)
        *to++ = static_cast<char>(bits >> 8 * i);
    return to;
}

int sizeOf(GroupKind kind)
{
    switch (kind) {
    case GroupKind::boolean:
        return 1;
    case GroupKind::int16:
        return 2;
    case GroupKind::int32:
        return 4;
    default:
        return 8;
    }
}

/// A NUL would end the text.
std::string withoutNuls(std::string_view text)
{
    std::string result;
    for (const char c : text) {
        if (c)
            result += c;
        else
            result += "^@";
    }
    return result;
}
} // namespace

BinaryWriter::BinaryWriter(ByteSink& sink, const TextEncoding& encoding, bool hasWideCodes, Start start)
    : GroupWriter(encoding), _out(sink), _hasWideCodes(hasWideCodes)
{
    if (start == Start::sentinel) _out.append(binarySentinel);
}

char* BinaryWriter::startGroup(int code)
{
    char* to = _out.room(OutputBuffer::largestPiece);
    const bool isEscaped = !_hasWideCodes && code >= firstEscapedCode;
    if (isEscaped) *to++ = static_cast<char>(firstEscapedCode);
    return putBytes(to, static_cast<std::uint64_t>(code), _hasWideCodes || isEscaped ? 2 : 1);
}

void BinaryWriter::putText(int code, std::string_view encoded)
{
    if (!encoded.empty() && std::memchr(encoded.data(), 0, encoded.size()))
        return putText(code, withoutNuls(encoded));
    _out.advance(startGroup(code));
    _out.append(encoded);
    _out.append(std::string_view("", 1));
}

void BinaryWriter::putReal(int code, double value)
{
    std::uint64_t bits;
    static_assert(sizeof bits == sizeof value);
    std::memcpy(&bits, &value, sizeof bits);
    _out.advance(putBytes(startGroup(code), bits, 8));
}

void BinaryWriter::putInteger(int code, std::int64_t value)
{
    _out.advance(putBytes(startGroup(code), static_cast<std::uint64_t>(value), sizeOf(kindOf(code))));
}

void BinaryWriter::putHandle(int code, std::uint64_t value)
{
    char* const end = writeHex(startGroup(code), value);
    *end = '\0';
    _out.advance(end + 1);
}

void BinaryWriter::putChunk(int code, std::string_view bytes)
{
    char* to = startGroup(code);
    *to++ = static_cast<char>(bytes.size());
    bytes.copy(to, bytes.size());
    _out.advance(to + bytes.size());
}

/// A handle is a text in this form too. Others have no room for a wrong value; a zero keeps their place.
bool BinaryWriter::putMalformed(const Group& group)
{
    switch (group.kind()) {
    case GroupKind::real:
        putReal(group.code(), 0);
        break;
    case GroupKind::handle:
        putText(group.code(), group.text());
        return true;
    case GroupKind::chunk:
        putChunk(group.code(), {});
        break;
    default:
        putInteger(group.code(), 0);
    }
    return false;
}
} // namespace dxf
