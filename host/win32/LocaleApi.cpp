#include <unicode/ucol.h>

#include "CaseMap.h"
#include "ChineseForms.h"
#include "CodePage.h"
#include "Errno.h"
#include "Text.h"

#include "winerror.h"
#include "winnls.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <cwchar>
#include <memory>
#include <string>

namespace
{
using namespace win32;

constexpr DWORD caseFlags = LCMAP_LOWERCASE | LCMAP_UPPERCASE;
constexpr DWORD formFlags = LCMAP_SIMPLIFIED_CHINESE | LCMAP_TRADITIONAL_CHINESE;

bool areMapFlagsValid(DWORD flags)
{
    return flags != 0 && !(flags & ~(caseFlags | formFlags)) && (flags & caseFlags) != caseFlags &&
           (flags & formFlags) != formFlags;
}

wchar_t mapCharacter(DWORD flags, wchar_t c)
{
    if (flags & LCMAP_SIMPLIFIED_CHINESE) c = toSimplified(c);
    if (flags & LCMAP_TRADITIONAL_CHINESE) c = toTraditional(c);
    if (flags & LCMAP_LOWERCASE) c = toLower(c);
    if (flags & LCMAP_UPPERCASE) c = toUpper(c);
    return c;
}

/// Sees whether a mapping call can be made at all; sets the last error when it cannot.
bool mayMap(DWORD flags, const void* text, int length, const void* to, int capacity)
{
    const bool inPlace = text == to && (flags & formFlags);
    if (!text || length == 0 || capacity < 0 || (!to && capacity > 0) || inPlace)
        return failWith(ERROR_INVALID_PARAMETER);
    return areMapFlagsValid(flags) ? true : failWith(ERROR_INVALID_FLAGS);
}

UINT codePageOfLocale(LCID locale)
{
    if (locale & LOCALE_USE_CP_ACP) return CP_ACP;
    switch (LANGIDFROMLCID(locale)) {
    case 0x0804:
    case 0x1004:
        return 936;
    case 0x0404:
    case 0x0C04:
    case 0x1404:
        return 950;
    default:
        return CP_ACP;
    }
}

LCID resolveLocale(LCID locale)
{
    const bool isDefault = locale == 0 || locale == LOCALE_USER_DEFAULT || locale == LOCALE_SYSTEM_DEFAULT;
    return isDefault ? GetUserDefaultLCID() : locale;
}

const char* collationOf(LCID locale)
{
    switch (codePageOfLocale(locale)) {
    case 936:
        return locale >> 16 & SORT_CHINESE_PRC ? "zh@collation=stroke" : "zh@collation=pinyin";
    case 950:
        return "zh_Hant@collation=stroke";
    default:
        return "";
    }
}

using Collator = std::unique_ptr<UCollator, decltype(&ucol_close)>;

Collator openCollator(const char* name)
{
    UErrorCode status = U_ZERO_ERROR;
    Collator collator(ucol_open(name, &status), ucol_close);
    ucol_setAttribute(collator.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
    return U_SUCCESS(status) ? std::move(collator) : Collator(nullptr, ucol_close);
}

/// The collator of a locale. Comparing with one is safe from several threads.
const UCollator* collatorOf(LCID locale)
{
    static const Collator pinyin = openCollator("zh@collation=pinyin"),
                          stroke = openCollator("zh@collation=stroke"),
                          traditional = openCollator("zh_Hant@collation=stroke"), root = openCollator("");
    const std::string name = collationOf(locale);
    if (name.empty()) return root.get();
    if (name == "zh@collation=pinyin") return pinyin.get();
    return name == "zh@collation=stroke" ? stroke.get() : traditional.get();
}

wchar_t narrowWidth(wchar_t c)
{
    if (c == 0x3000) return L' ';
    return c >= 0xFF01 && c <= 0xFF5E ? static_cast<wchar_t>(c - 0xFEE0) : c;
}

/// The UTF-16 text that the collator compares.
std::u16string collatedText(LPCWSTR text, int length, DWORD flags)
{
    const std::size_t size = length < 0 ? std::wcslen(text) : static_cast<std::size_t>(length);
    std::u16string units;
    for (std::size_t i = 0; i < size; ++i) {
        wchar_t wide = flags & NORM_IGNOREWIDTH ? narrowWidth(text[i]) : text[i];
        if (flags & (NORM_IGNORECASE | LINGUISTIC_IGNORECASE)) wide = toLower(wide);
        const auto c = static_cast<char32_t>(wide);
        if (c > 0xFFFF) units.push_back(static_cast<char16_t>(0xD7C0 + (c >> 10)));
        units.push_back(static_cast<char16_t>(c > 0xFFFF ? 0xDC00 | (c & 0x3FF) : c));
    }
    return units;
}

int compareTexts(LPCWSTR a, LPCWSTR b, DWORD flags)
{
    if (!a || !b) return (a != nullptr) - (b != nullptr);
    return CompareStringW(LOCALE_USER_DEFAULT, flags, a, -1, b, -1) - CSTR_EQUAL;
}
} // namespace

int WINAPI LCMapStringW(LCID, DWORD flags, LPCWSTR text, int length, LPWSTR to, int capacity)
{
    if (!mayMap(flags, text, length, to, capacity)) return 0;
    const std::size_t size = length < 0 ? std::wcslen(text) + 1 : static_cast<std::size_t>(length);
    if (size > INT_MAX) return failWith(ERROR_INVALID_PARAMETER);
    if (capacity == 0) return static_cast<int>(size);
    if (static_cast<std::size_t>(capacity) < size) return failWith(ERROR_INSUFFICIENT_BUFFER);
    std::transform(text, text + size, to, [flags](wchar_t c) { return mapCharacter(flags, c); });
    return static_cast<int>(size);
}

int WINAPI LCMapStringA(LCID locale, DWORD flags, LPCSTR text, int length, LPSTR to, int capacity)
{
    if (!mayMap(flags, text, length, to, capacity)) return 0;
    const UINT page = codePageOfLocale(locale);
    const std::size_t size = length < 0 ? std::strlen(text) + 1 : static_cast<std::size_t>(length);
    std::wstring wide = widen(page, {text, size});
    std::transform(wide.begin(), wide.end(), wide.begin(),
                   [flags](wchar_t c) { return mapCharacter(flags, c); });
    const std::string bytes = narrow(page, wide);
    if (bytes.size() > INT_MAX) return failWith(ERROR_INVALID_PARAMETER);
    if (capacity == 0) return static_cast<int>(bytes.size());
    if (static_cast<std::size_t>(capacity) < bytes.size()) return failWith(ERROR_INSUFFICIENT_BUFFER);
    bytes.copy(to, bytes.size());
    return static_cast<int>(bytes.size());
}

int WINAPI CompareStringW(LCID locale, DWORD flags, LPCWSTR a, int aLength, LPCWSTR b, int bLength)
{
    constexpr DWORD known = NORM_IGNORECASE | LINGUISTIC_IGNORECASE | NORM_IGNOREWIDTH | SORT_STRINGSORT;
    if (!a || !b) return failWith(ERROR_INVALID_PARAMETER);
    if (flags & ~known) return failWith(ERROR_INVALID_FLAGS);
    const std::u16string left = collatedText(a, aLength, flags), right = collatedText(b, bLength, flags);
    const UCollator* collator = collatorOf(resolveLocale(locale));
    if (!collator) return failWith(ERROR_INVALID_PARAMETER);
    const UCollationResult order = ucol_strcoll(collator, left.data(), static_cast<std::int32_t>(left.size()),
                                                right.data(), static_cast<std::int32_t>(right.size()));
    return CSTR_EQUAL + static_cast<int>(order);
}

int WINAPI lstrcmpW(LPCWSTR a, LPCWSTR b)
{
    return compareTexts(a, b, 0);
}

int WINAPI lstrcmpiW(LPCWSTR a, LPCWSTR b)
{
    return compareTexts(a, b, NORM_IGNORECASE);
}

int WINAPI lstrlenW(LPCWSTR text)
{
    return text ? static_cast<int>(std::wcslen(text)) : 0;
}

LCID WINAPI GetUserDefaultLCID()
{
    const UINT page = GetACP();
    return page == 950 ? 0x0404 : page == 1252 ? 0x0409 : 0x0804;
}

LCID WINAPI GetSystemDefaultLCID()
{
    return GetUserDefaultLCID();
}

LANGID WINAPI GetUserDefaultLangID()
{
    return LANGIDFROMLCID(GetUserDefaultLCID());
}

LANGID WINAPI GetSystemDefaultLangID()
{
    return GetUserDefaultLangID();
}
