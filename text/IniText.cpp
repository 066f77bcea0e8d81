#include "IniText.h"

#include <climits>
#include <cstring>

namespace
{
constexpr char controlZ = 0x1A;

bool isBlank(unsigned unit)
{
    return unit == ' ' || (unit >= '\t' && unit <= '\r');
}

/// Widens bytes one by one; true when that was right because all are ASCII.
bool widenAscii(const char* from, int length, wchar_t* to)
{
    unsigned seen = 0;
    for (int i = 0; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(from[i]);
        seen |= byte;
        to[i] = byte;
    }
    return seen < 0x80;
}

CString widened(UINT codePage, const char* text, int length)
{
    CString wide;
    if (length == 0) return wide;
    wchar_t* const to = wide.GetBufferSetLength(length);
    if (widenAscii(text, length, to)) return wide;
    // No encoding has characters of less than a byte.
    wide.ReleaseBuffer(MultiByteToWideChar(codePage, 0, text, length, to, length));
    return wide;
}

/// Bytes in a code page; what it lacks becomes something else.
std::string narrowed(UINT codePage, std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(codePage, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(codePage, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

bool isHighSurrogate(unsigned unit)
{
    return (unit & 0xFC00) == 0xD800;
}

bool isLowSurrogate(unsigned unit)
{
    return (unit & 0xFC00) == 0xDC00;
}
} // namespace

namespace inifile
{
std::string_view markOf(Encoding encoding)
{
    switch (encoding) {
    case Encoding::utf8:
        return "\xEF\xBB\xBF";
    case Encoding::utf16:
        return "\xFF\xFE";
    case Encoding::utf16BigEndian:
        return "\xFE\xFF";
    default:
        return "";
    }
}

Encoding encodingOf(std::string_view start)
{
    for (Encoding each : {Encoding::utf8, Encoding::utf16, Encoding::utf16BigEndian})
        if (start.substr(0, markOf(each).size()) == markOf(each)) return each;
    return Encoding::ansi;
}

Text::Text(std::string bytes)
    : _bytes(std::move(bytes)), _encoding(encodingOf(_bytes)),
      _unitSize(_encoding == Encoding::ansi || _encoding == Encoding::utf8 ? 1 : 2),
      _begin(markOf(_encoding).size()), _end(_bytes.size() / _unitSize * _unitSize)
{
    _end = find(controlZ, _begin, _end);
}

std::size_t Text::find(char character, std::size_t from, std::size_t to) const
{
    if (_unitSize == 1) {
        const void* const found = std::memchr(_bytes.data() + from, character, to - from);
        return found ? static_cast<std::size_t>(static_cast<const char*>(found) - _bytes.data()) : to;
    }
    while (from < to && unit(from) != static_cast<unsigned char>(character))
        from += 2;
    return from;
}

bool Text::readLine(std::size_t at, Line& line) const
{
    if (at >= _end) return false;
    const std::size_t feed = find('\n', at, _end);
    const bool isPair = feed < _end && feed > at && unit(feed - _unitSize) == '\r';
    line = {at, isPair ? feed - _unitSize : feed, feed < _end ? feed + _unitSize : _end};
    return true;
}

std::size_t Text::skipBlanks(std::size_t from, std::size_t to) const
{
    while (from < to && isBlank(unit(from)))
        from += _unitSize;
    return from;
}

std::size_t Text::dropBlanks(std::size_t from, std::size_t to) const
{
    while (to > from && isBlank(unit(to - _unitSize)))
        to -= _unitSize;
    return to;
}

CString Text::decodeUnits(std::size_t from, std::size_t to) const
{
    CString text;
    wchar_t* const start = text.GetBuffer(static_cast<int>((to - from) / 2));
    wchar_t* at = start;
    for (; from < to; from += 2) {
        unsigned character = unit(from);
        if (sizeof(wchar_t) > 2 && isHighSurrogate(character) && from + 2 < to &&
            isLowSurrogate(unit(from + 2))) {
            from += 2;
            character = 0x10000 + ((character & 0x3FF) << 10) + (unit(from) & 0x3FF);
        }
        *at++ = static_cast<wchar_t>(character);
    }
    text.ReleaseBuffer(static_cast<int>(at - start));
    return text;
}

CString Text::decode(std::size_t from, std::size_t to) const
{
    if (_unitSize == 2) return decodeUnits(from, to);
    return widened(codePage(), _bytes.data() + from, static_cast<int>(to - from));
}

void Text::appendUnit(unsigned unit, std::string& bytes) const
{
    const char low = static_cast<char>(unit), high = static_cast<char>(unit >> 8);
    bytes += _encoding == Encoding::utf16 ? low : high;
    bytes += _encoding == Encoding::utf16 ? high : low;
}

bool Text::encode(std::wstring_view text, std::string& bytes) const
{
    if (text.empty()) return true;
    if (text.size() > INT_MAX / 4) return false;
    if (_unitSize == 1) {
        const std::string added = narrowed(codePage(), text);
        bytes += added;
        return viewOf(widened(codePage(), added.data(), static_cast<int>(added.size()))) == text;
    }
    for (wchar_t wide : text) {
        const auto character = static_cast<unsigned long>(wide);
        if (character > 0xFFFF)
            appendUnit(static_cast<unsigned>(0xD800 + ((character - 0x10000) >> 10)), bytes);
        appendUnit(static_cast<unsigned>(character > 0xFFFF ? 0xDC00 + (character & 0x3FF) : character),
                   bytes);
    }
    return true;
}
} // namespace inifile
