#pragma once

#include "ConversionSink.h"

#include <string_view>

namespace win32
{
constexpr wchar_t replacementCharacter = 0xFFFD;

/// UTF-8 to wide characters. An ill-formed sequence becomes one U+FFFD for each of its maximal subparts
/// (Unicode 15, section 3.9, table 3-7), or ends the conversion as invalid when `strict`.
/// A null `to` measures; otherwise at most `capacity` characters are written.
Converted utf8ToWide(std::string_view text, wchar_t* to, std::size_t capacity, bool strict);

/// Wide characters to UTF-8. A pair of surrogates is one character; a lone one, and a value above
/// U+10FFFF, becomes U+FFFD, or ends the conversion as invalid when `strict`.
Converted wideToUtf8(std::wstring_view text, char* to, std::size_t capacity, bool strict);

constexpr bool isHighSurrogate(char32_t c)
{
    return (c & 0xFFFFFC00) == 0xD800;
}
constexpr bool isLowSurrogate(char32_t c)
{
    return (c & 0xFFFFFC00) == 0xDC00;
}
constexpr char32_t combineSurrogates(char32_t high, char32_t low)
{
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}
} // namespace win32
