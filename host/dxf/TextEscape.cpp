#include "TextEscape.h"

#include <windows.h>

namespace dxf
{
namespace
{
/// The value of `count` hexadecimal digits at text[at]; -1 when there are fewer.
int hexValue(std::wstring_view text, std::size_t at, std::size_t count)
{
    if (text.size() < at + count) return -1;
    int value = 0;
    for (const wchar_t c : text.substr(at, count)) {
        if (c >= L'0' && c <= L'9')
            value = value << 4 | static_cast<int>(c - L'0');
        else if ((c | 0x20) >= L'a' && (c | 0x20) <= L'f')
            value = value << 4 | static_cast<int>((c | 0x20) - L'a' + 10);
        else
            return -1;
    }
    return value;
}

/// An escape that was read: its character and its length in the text, 0 when there is none.
struct Escape {
    std::uint32_t character = 0;
    std::size_t length = 0;
};

constexpr std::size_t unicodeLength = 7, multiByteLength = 8;

/// The unit of \U+XXXX at text[at], -1 when there is none.
int unicodeUnit(std::wstring_view text, std::size_t at)
{
    return text.substr(at, 3) == L"\\U+" ? hexValue(text, at + 3, 4) : -1;
}

Escape unicodeEscape(std::wstring_view text, std::size_t at)
{
    const int unit = unicodeUnit(text, at);
    if (unit < 0) return {};
    const auto character = static_cast<std::uint32_t>(unit);
    if (isHighSurrogate(character)) {
        const int low = unicodeUnit(text, at + unicodeLength);
        if (low >= 0 && isLowSurrogate(static_cast<std::uint32_t>(low)))
            return {joinSurrogates(character, static_cast<std::uint32_t>(low)), 2 * unicodeLength};
    }
    // What would pass for a kept byte stays an escape.
    if (isKeptByte(static_cast<wchar_t>(unit)) || unit == keptCaret) return {};
    return {character, unicodeLength};
}

Escape multiByteEscape(std::wstring_view text, std::size_t at)
{
    constexpr UINT pages[] = {932, 950, 949, 1361, 936};
    if (text.substr(at, 3) != L"\\M+" || text.size() < at + multiByteLength) return {};
    const wchar_t digit = text[at + 3];
    const int code = hexValue(text, at + 4, 4);
    if (digit < L'1' || digit > L'5' || code < 0) return {};
    const char bytes[] = {static_cast<char>(code >> 8), static_cast<char>(code)};
    const int skip = code < 0x100 ? 1 : 0;
    wchar_t wide[2];
    const int count =
        MultiByteToWideChar(pages[digit - L'1'], MB_ERR_INVALID_CHARS, bytes + skip, 2 - skip, wide, 2);
    if (count != 1) return {};
    return {static_cast<std::uint32_t>(wide[0]), multiByteLength};
}

Escape caretEscape(std::wstring_view text, std::size_t at)
{
    const wchar_t next = at + 1 < text.size() ? text[at + 1] : L'\0';
    if (next == L' ') return {L'^', 2};
    if (next >= L'@' && next <= L'_') return {static_cast<std::uint32_t>(next - L'@'), 2};
    // In front of a control character, which is written with a caret, a kept one would start an escape.
    if (next >= 0 && next < 0x20 && at + 1 < text.size()) return {L'^', 1};
    return {static_cast<std::uint32_t>(keptCaret), 1};
}

Escape escapeAt(std::wstring_view text, std::size_t at)
{
    if (text[at] == L'^') return caretEscape(text, at);
    if (text[at] != L'\\') return {};
    const Escape unicode = unicodeEscape(text, at);
    return unicode.length ? unicode : multiByteEscape(text, at);
}
} // namespace

void appendCharacter(std::uint32_t character, std::wstring& to)
{
    if (sizeof(wchar_t) == 2 && character > 0xFFFF) {
        to += static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10));
        to += static_cast<wchar_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
    } else {
        to += static_cast<wchar_t>(character);
    }
}

void unescape(std::wstring& text, std::size_t from)
{
    std::size_t at = text.find_first_of(L"^\\", from);
    if (at == std::wstring::npos) return;
    const std::wstring source(text, at);
    text.resize(at);
    for (std::size_t i = 0; i < source.size();) {
        const Escape escape = escapeAt(source, i);
        if (escape.length)
            appendCharacter(escape.character, text);
        else
            text += source[i];
        i += escape.length ? escape.length : 1;
    }
}

bool startsEscape(std::wstring_view text, std::size_t at)
{
    return unicodeEscape(text, at).length != 0 || multiByteEscape(text, at).length != 0;
}

void appendEscape(std::uint32_t character, std::string& to)
{
    if (character > 0xFFFF) {
        appendEscape(0xD800 + ((character - 0x10000) >> 10), to);
        appendEscape(0xDC00 + ((character - 0x10000) & 0x3FF), to);
        return;
    }
    to += "\\U+";
    for (int shift = 12; shift >= 0; shift -= 4)
        to += "0123456789ABCDEF"[character >> shift & 15];
}
} // namespace dxf
