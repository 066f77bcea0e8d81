#include "AnsiCodePage.h"
#include "CodePage.h"
#include "Utf8.h"

#include "errhandlingapi.h"
#include "stringapiset.h"
#include "winerror.h"
#include "winnls.h"

#include <climits>
#include <cwchar>

namespace
{
using namespace win32;

int failWith(DWORD code)
{
    SetLastError(code);
    return 0;
}

/// The result value of a conversion call; sets the last error when it failed.
int resultOf(const Converted& converted)
{
    if (converted.outcome == Outcome::invalid) return failWith(ERROR_NO_UNICODE_TRANSLATION);
    if (converted.outcome == Outcome::full) return failWith(ERROR_INSUFFICIENT_BUFFER);
    if (converted.length > INT_MAX) return failWith(ERROR_INVALID_PARAMETER);
    return static_cast<int>(converted.length);
}

bool areBuffersValid(const void* text, int length, const void* to, int capacity)
{
    return text && length != 0 && capacity >= 0 && (to || capacity == 0) && text != to;
}

std::uint16_t defaultBytes(const CodePage& page, LPCCH character)
{
    if (!character) return '?';
    const auto first = static_cast<unsigned char>(character[0]);
    if (!page.isLead[first] || !character[1]) return first;
    return static_cast<std::uint16_t>(first << 8 | static_cast<unsigned char>(character[1]));
}

int encodeUtf8(std::wstring_view text, LPSTR to, int capacity, DWORD flags, bool hasDefault)
{
    if (hasDefault) return failWith(ERROR_INVALID_PARAMETER);
    if (flags & ~DWORD(WC_ERR_INVALID_CHARS)) return failWith(ERROR_INVALID_FLAGS);
    return resultOf(wideToUtf8(text, to, static_cast<std::size_t>(capacity), flags != 0));
}

int encodePage(const CodePage& page, std::wstring_view text, LPSTR to, int capacity, DWORD flags,
               LPCCH defaultChar, LPBOOL usedDefault)
{
    if (flags & ~DWORD(WC_NO_BEST_FIT_CHARS)) return failWith(ERROR_INVALID_FLAGS);
    const EncodeRules rules{flags == 0, defaultBytes(page, defaultChar)};
    const Converted converted = wideToPage(page, text, to, static_cast<std::size_t>(capacity), rules);
    if (usedDefault) *usedDefault = converted.usedDefault;
    return resultOf(converted);
}

/// Writes the ranges of lead bytes as pairs (first, last).
void listLeadBytes(const CodePage& page, BYTE* to)
{
    for (unsigned byte = 0x80; byte < 0xFF; ++byte) {
        if (page.isLead[byte] && !page.isLead[byte - 1]) *to++ = static_cast<BYTE>(byte);
        if (page.isLead[byte] && !page.isLead[byte + 1]) *to++ = static_cast<BYTE>(byte);
    }
}
} // namespace

UINT WINAPI GetACP()
{
    return win32::ansiCodePage();
}

UINT WINAPI GetOEMCP()
{
    return GetACP();
}

BOOL WINAPI IsValidCodePage(UINT codePage)
{
    return codePage == CP_UTF8 || codePageTables(codePage) != nullptr;
}

BOOL WINAPI GetCPInfo(UINT codePage, LPCPINFO info)
{
    const UINT number = resolveCodePage(codePage);
    if (!info || !IsValidCodePage(number)) return failWith(ERROR_INVALID_PARAMETER);
    *info = {1, {'?'}, {}};
    if (number == CP_UTF8) {
        info->MaxCharSize = 4;
    } else if (codePageTables(number)->hasPairs()) {
        info->MaxCharSize = 2;
        listLeadBytes(*codePageTables(number), info->LeadByte);
    }
    return TRUE;
}

BOOL WINAPI IsDBCSLeadByte(BYTE byte)
{
    return IsDBCSLeadByteEx(CP_ACP, byte);
}

BOOL WINAPI IsDBCSLeadByteEx(UINT codePage, BYTE byte)
{
    const CodePage* page = codePageTables(resolveCodePage(codePage));
    return page && page->isLead[byte];
}

int WINAPI MultiByteToWideChar(UINT codePage, DWORD flags, LPCCH text, int length, LPWSTR to, int capacity)
{
    const UINT number = resolveCodePage(codePage);
    if (!areBuffersValid(text, length, to, capacity) || !IsValidCodePage(number))
        return failWith(ERROR_INVALID_PARAMETER);
    const DWORD known = number == CP_UTF8 ? MB_ERR_INVALID_CHARS : MB_ERR_INVALID_CHARS | MB_PRECOMPOSED;
    if (flags & ~known) return failWith(ERROR_INVALID_FLAGS);

    const std::string_view source(text,
                                  length < 0 ? std::strlen(text) + 1 : static_cast<std::size_t>(length));
    const bool strict = flags & MB_ERR_INVALID_CHARS;
    if (capacity == 0) to = nullptr;
    const auto room = static_cast<std::size_t>(capacity);
    return resultOf(number == CP_UTF8 ? utf8ToWide(source, to, room, strict)
                                      : pageToWide(*codePageTables(number), source, to, room, strict));
}

int WINAPI WideCharToMultiByte(UINT codePage, DWORD flags, LPCWCH text, int length, LPSTR to, int capacity,
                               LPCCH defaultChar, LPBOOL usedDefault)
{
    const UINT number = resolveCodePage(codePage);
    if (!areBuffersValid(text, length, to, capacity) || !IsValidCodePage(number))
        return failWith(ERROR_INVALID_PARAMETER);

    const std::wstring_view source(text,
                                   length < 0 ? std::wcslen(text) + 1 : static_cast<std::size_t>(length));
    if (capacity == 0) to = nullptr;
    if (number == CP_UTF8) return encodeUtf8(source, to, capacity, flags, defaultChar || usedDefault);
    return encodePage(*codePageTables(number), source, to, capacity, flags, defaultChar, usedDefault);
}
