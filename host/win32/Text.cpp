#include "Text.h"

#include "CodePage.h"
#include "Utf8.h"

namespace win32
{
std::wstring fromUtf8(std::string_view text)
{
    std::wstring wide(utf8ToWide(text, nullptr, 0, false).length, L'\0');
    utf8ToWide(text, wide.data(), wide.size(), false);
    return wide;
}

std::string toUtf8(std::wstring_view text)
{
    std::string narrow(wideToUtf8(text, nullptr, 0, false).length, '\0');
    wideToUtf8(text, narrow.data(), narrow.size(), false);
    return narrow;
}

std::wstring widen(UINT codePage, std::string_view text)
{
    const CodePage* page = codePageTables(resolveCodePage(codePage));
    if (!page) return fromUtf8(text);
    std::wstring wide(text.size(), L'\0'); // a character takes at least one byte
    wide.resize(pageToWide(*page, text, wide.data(), wide.size(), false).length);
    return wide;
}

std::string narrow(UINT codePage, std::wstring_view text)
{
    const CodePage* page = codePageTables(resolveCodePage(codePage));
    if (!page) return toUtf8(text);
    std::string bytes(text.size() * 2, '\0'); // no page needs more than two bytes a character
    bytes.resize(wideToPage(*page, text, bytes.data(), bytes.size(), {}).length);
    return bytes;
}
} // namespace win32
