#include "ProfileText.h"

#include "Text.h"
#include "Utf8.h"

#include "winnls.h"

namespace
{
void appendUnit(std::string& bytes, char32_t unit)
{
    bytes.push_back(static_cast<char>(unit));
    bytes.push_back(static_cast<char>(unit >> 8));
}
} // namespace

namespace win32
{
ProfileText::ProfileText(std::string bytes)
    : _bytes(std::move(bytes)), _isUtf16(_bytes.compare(0, 2, "\xFF\xFE") == 0),
      _size(_isUtf16 ? _bytes.size() / 2 - 1 : _bytes.size())
{
}

std::wstring ProfileText::decode(std::size_t begin, std::size_t end) const
{
    if (!_isUtf16) return widen(CP_ACP, std::string_view(_bytes).substr(begin, end - begin));
    std::wstring text;
    for (std::size_t i = begin; i < end; ++i) {
        char32_t c = unit(i);
        if (isHighSurrogate(c) && i + 1 < end && isLowSurrogate(unit(i + 1)))
            c = combineSurrogates(c, unit(++i));
        text.push_back(static_cast<wchar_t>(c));
    }
    return text;
}

std::string ProfileText::encode(std::wstring_view text) const
{
    if (!_isUtf16) return narrow(CP_ACP, text);
    std::string bytes;
    for (wchar_t wide : text) {
        const auto c = static_cast<char32_t>(wide);
        if (c > 0xFFFF) appendUnit(bytes, 0xD800 + ((c - 0x10000) >> 10));
        appendUnit(bytes, c > 0xFFFF ? 0xDC00 + (c & 0x3FF) : c);
    }
    return bytes;
}

std::string ProfileText::replaced(std::size_t begin, std::size_t end, std::wstring_view text) const
{
    return _bytes.substr(0, offsetOf(begin)) + encode(text) + _bytes.substr(offsetOf(end));
}
} // namespace win32
