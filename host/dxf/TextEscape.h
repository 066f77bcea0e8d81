#pragma once

/// The escapes in the texts of drawing files, on decoded text:
///
///     ^J  (a caret, then @ ... _)   the control character U+0000 ... U+001F with this letter
///     ^   (a caret, then a blank)   a caret
///     \U+XXXX                       the UTF-16 unit XXXX; two that make up a pair are one character
///     \M+nXXXX                      the character with the bytes XXXX in code page n
///                                   (1: 932, 2: 950, 3: 949, 4: 1361, 5: 936)
///
/// What looks like an escape and is none stays as it stands; only its caret becomes a kept byte.

#include <cstdint>
#include <string>
#include <string_view>

namespace dxf
{
/// A byte of a file that does not decode is kept as the wide character U+DC00 + byte, which no valid text
/// holds, and becomes that byte again when the text is written.
constexpr wchar_t keptByte(unsigned char byte)
{
    return static_cast<wchar_t>(0xDC00 + byte);
}
constexpr bool isKeptByte(wchar_t c)
{
    return c >= 0xDC80 && c <= 0xDCFF;
}
/// A caret that starts no escape, for which no program has a reading, is kept in the same way (not in
/// front of a raw control character, where it is a caret).
constexpr wchar_t keptCaret = 0xDC5E;

constexpr bool isHighSurrogate(std::uint32_t c)
{
    return c >= 0xD800 && c <= 0xDBFF;
}
constexpr bool isLowSurrogate(std::uint32_t c)
{
    return c >= 0xDC00 && c <= 0xDFFF;
}
constexpr std::uint32_t joinSurrogates(std::uint32_t high, std::uint32_t low)
{
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

/// Appends a character, as two units where wchar_t has 16 bits and it needs them.
void appendCharacter(std::uint32_t character, std::wstring& to);

/// Replaces the escapes of text[from ...].
void unescape(std::wstring& text, std::size_t from);

/// True when the backslash at text[at] would be read as the start of an escape.
bool startsEscape(std::wstring_view text, std::size_t at);

/// Appends \U+XXXX, twice for a supplementary character.
void appendEscape(std::uint32_t character, std::string& to);
} // namespace dxf
