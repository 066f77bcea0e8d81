#include "BinaryReader.h"

#include "NumberText.h"

#include <cmath>
#include <cstring>

namespace dxf
{
namespace
{
constexpr unsigned char largeCodeMark = 255;

/// The number of little-endian bytes, whatever the order of this machine.
template <class Number>
Number littleEndian(const char* bytes)
{
    std::uint64_t bits = 0;
    for (std::size_t i = sizeof(Number); i-- > 0;)
        bits = bits << 8 | static_cast<unsigned char>(bytes[i]);
    if constexpr (std::is_floating_point_v<Number>) {
        Number value;
        static_assert(sizeof value == sizeof bits);
        std::memcpy(&value, &bits, sizeof value);
        return value;
    } else {
        return static_cast<Number>(bits);
    }
}

bool isUpperCase(char c)
{
    return c >= 'A' && c <= 'Z';
}

bool isNameCharacter(char c)
{
    return isUpperCase(c) || (c >= '0' && c <= '9') || c == '_';
}

/// The first group is (0, SECTION), or a comment: the second byte is a letter or part of the code.
bool startsWithWideCode(std::string_view groups)
{
    return groups.size() >= 2 && static_cast<unsigned char>(groups[0]) != largeCodeMark &&
           static_cast<unsigned char>(groups[1]) <= (lastGroupCode >> 8);
}
} // namespace

BinaryReader::BinaryReader(std::shared_ptr<const Input> source)
    : BinaryReader(source, startsWithWideCode(source->bytes().substr(binarySentinel.size())))
{
    _at += binarySentinel.size();
    _isFragment = false;
}

BinaryReader::BinaryReader(std::shared_ptr<const Input> source, bool hasWideCodes)
    : GroupReader(std::move(source)), _at(input()->bytes().data()), _end(_at + input()->bytes().size()),
      _hasWideCodes(hasWideCodes), _isFragment(true)
{
}

bool BinaryReader::read(Group& group)
{
    while (readGroup(group)) {
        if (group._code == commentCode && !hasComments()) continue;
        if (group._code == 0) enterRecord(group);
        if (group.is(0, "EOF") && !_isFragment) {
            _at = _end;
            _isFinished = true;
        }
        return true;
    }
    if (!_isFinished && !_isFragment) faults().add(FaultKind::noEnd, offset());
    _isFinished = true;
    return false;
}

bool BinaryReader::readGroup(Group& group)
{
    while (_at != _end) {
        const std::size_t position = offset();
        const int code = takeCode();
        if (code < 0) {
            faults().add(FaultKind::badCode, position);
            if (!skipToRecord()) return false;
            continue;
        }
        group = Group(code);
        group._position = position;
        if (readValue(group)) return true;
        faults().add(FaultKind::truncated, position, code);
        _at = _end;
    }
    return false;
}

/// Takes a group code; -1, with nothing taken, when there is none.
int BinaryReader::takeCode()
{
    const char* const start = _at;
    std::uint8_t byte = largeCodeMark;
    if (!_hasWideCodes && take(byte) && byte != largeCodeMark) return byte;
    std::int16_t code;
    if (take(code) && isGroupCode(code)) return code;
    _at = start;
    return -1;
}

/// False when the file ends inside the value.
bool BinaryReader::readValue(Group& group)
{
    switch (group._kind) {
    case GroupKind::text:
        return readText(group);
    case GroupKind::handle:
        return readHandle(group);
    case GroupKind::real:
        if (!take(group._real)) return false;
        if (!std::isfinite(group._real)) {
            group._real = 0;
            group._isMalformed = true;
            note(FaultKind::notFinite, group);
        }
        return true;
    case GroupKind::int16:
        return readInteger<std::int16_t>(group);
    case GroupKind::int32:
        return readInteger<std::int32_t>(group);
    case GroupKind::int64:
        return readInteger<std::int64_t>(group);
    case GroupKind::boolean:
        return readInteger<std::uint8_t>(group);
    case GroupKind::chunk:
        return readChunk(group);
    }
    return false;
}

bool BinaryReader::readText(Group& group)
{
    const void* const found = std::memchr(_at, 0, static_cast<std::size_t>(_end - _at));
    if (!found) return false;
    const char* const stop = static_cast<const char*>(found);
    group._text = {_at, static_cast<std::size_t>(stop - _at)};
    _at = stop + 1;
    return true;
}

bool BinaryReader::readHandle(Group& group)
{
    if (!readText(group)) return false;
    std::uint64_t value = 0;
    const char* const end = group._text.data() + group._text.size();
    const NumberScan scan = scanHex(group._text.data(), end, value);
    group._isMalformed = scan.outcome != NumberOutcome::done || scan.end != end;
    group._integer = group._isMalformed ? 0 : static_cast<std::int64_t>(value);
    if (group._isMalformed) noteBadHandle(group);
    return true;
}

bool BinaryReader::readChunk(Group& group)
{
    std::uint8_t length = 0;
    if (!take(length) || _end - _at < length) return false;
    group._text = {_at, length};
    _at += length;
    return true;
}

template <class Number>
bool BinaryReader::take(Number& value)
{
    if (static_cast<std::size_t>(_end - _at) < sizeof(Number)) return false;
    value = littleEndian<Number>(_at);
    _at += sizeof(Number);
    return true;
}

template <class Number>
bool BinaryReader::readInteger(Group& group)
{
    Number value;
    if (!take(value)) return false;
    group._integer = value;
    return true;
}

/// Goes to the next record behind _at; false, and to the end, when there is none.
bool BinaryReader::skipToRecord()
{
    while (++_at < _end)
        if (isRecordAt(_at)) return true;
    _at = _end;
    return false;
}

bool BinaryReader::isRecordAt(const char* at) const
{
    constexpr int longestName = 64;
    for (int i = _hasWideCodes ? 2 : 1; i > 0; --i)
        if (at == _end || *at++ != 0) return false;
    const char* const name = at;
    if (at == _end || !isUpperCase(*at)) return false;
    while (at != _end && at - name < longestName && isNameCharacter(*at))
        ++at;
    return at != _end && *at == 0 && at - name > 1;
}

std::size_t BinaryReader::offset() const
{
    return static_cast<std::size_t>(_at - input()->bytes().data());
}
} // namespace dxf
