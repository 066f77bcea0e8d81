#include "FormatText.h"

#include "crtstring.h"
#include "Text.h"

#include <algorithm>
#include <cstring>
#include <cwchar>

namespace crt
{
namespace
{
constexpr UINT ansi = 0;

std::size_t limitOf(int precision)
{
    return precision < 0 ? SIZE_MAX : static_cast<std::size_t>(precision);
}

std::size_t lengthOf(const wchar_t* text, std::size_t limit)
{
    return limit == SIZE_MAX ? std::wcslen(text) : wcsnlen(text, limit);
}

std::size_t lengthOf(const char* text, std::size_t limit)
{
    return limit == SIZE_MAX ? std::strlen(text) : strnlen(text, limit);
}

/// The bytes of the character at the start; the end of the text ends it too.
std::size_t bytesOfCharacter(const char* text)
{
    const std::size_t bytes = _mbclen(reinterpret_cast<const unsigned char*>(text));
    return std::min(bytes, strnlen(text, bytes));
}

/// The bytes of the first `characters` characters.
std::size_t bytesOf(const char* text, std::size_t characters)
{
    if (characters == SIZE_MAX) return std::strlen(text);
    std::size_t bytes = 0;
    for (; characters && text[bytes]; --characters)
        bytes += bytesOfCharacter(text + bytes);
    return bytes;
}

/// Ends the text at a character, so that it has `limit` bytes at most.
void cut(std::string& text, std::size_t limit)
{
    std::size_t end = 0;
    while (end < text.size()) {
        const std::size_t next = end + bytesOfCharacter(text.c_str() + end);
        if (next > limit) break;
        end = next;
    }
    text.resize(end);
}

bool isNull(const FormatArg& text)
{
    return !text.address;
}
const wchar_t* wideOf(const FormatArg& text)
{
    return static_cast<const wchar_t*>(text.address);
}
const char* narrowOf(const FormatArg& text)
{
    return static_cast<const char*>(text.address);
}
} // namespace

void textOf(const FormatArg& text, int precision, std::wstring& out)
{
    const std::size_t limit = limitOf(precision);
    if (isNull(text))
        out.assign(L"(null)", lengthOf(L"(null)", limit));
    else if (text.kind == FormatArg::Kind::wideText)
        out.assign(wideOf(text), lengthOf(wideOf(text), limit));
    else
        out = win32::widen(ansi, std::string_view(narrowOf(text), bytesOf(narrowOf(text), limit)));
}

void textOf(const FormatArg& text, int precision, std::string& out)
{
    const std::size_t limit = limitOf(precision);
    if (isNull(text)) {
        out.assign("(null)", lengthOf("(null)", limit));
    } else if (text.kind == FormatArg::Kind::wideText) {
        out = win32::narrow(ansi, std::wstring_view(wideOf(text), lengthOf(wideOf(text), limit)));
        if (out.size() > limit) cut(out, limit);
    } else {
        out.assign(narrowOf(text), lengthOf(narrowOf(text), limit));
    }
}

void characterOf(wchar_t character, std::wstring& out)
{
    out.assign(1, character);
}
void characterOf(wchar_t character, std::string& out)
{
    out = win32::narrow(ansi, std::wstring_view(&character, 1));
}
void characterOf(char character, std::wstring& out)
{
    out = win32::widen(ansi, std::string_view(&character, 1));
}
void characterOf(char character, std::string& out)
{
    out.assign(1, character);
}
} // namespace crt
