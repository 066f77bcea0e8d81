#include "Headless.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
std::wstring map(DWORD flags, const std::wstring& text)
{
    std::wstring to(text.size(), L'#');
    const int size = static_cast<int>(text.size());
    EXPECT_EQ(LCMapStringW(0x0804, flags, text.data(), size, nullptr, 0), size);
    EXPECT_EQ(LCMapStringW(0x0804, flags, text.data(), size, to.data(), size), size);
    return to;
}

std::string map(LCID locale, DWORD flags, const std::string& text)
{
    const int size = LCMapStringA(locale, flags, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::string to(static_cast<std::size_t>(size), '#');
    EXPECT_EQ(LCMapStringA(locale, flags, text.data(), static_cast<int>(text.size()), to.data(), size), size);
    return to;
}

// 汉语 simplified, 漢語 traditional.
TEST(LCMapString, ChineseFormsAreMappedCharacterByCharacter)
{
    EXPECT_EQ(map(LCMAP_TRADITIONAL_CHINESE, L"A\u6C49\u8BED\U00020000\u4E2D"),
              L"A\u6F22\u8A9E\U00020000\u4E2D");
    EXPECT_EQ(map(LCMAP_SIMPLIFIED_CHINESE | LCMAP_LOWERCASE, L"A\u6F22\u8A9E!"), L"a\u6C49\u8BED!");
    EXPECT_EQ(map(0x0804, LCMAP_TRADITIONAL_CHINESE, "A\xBA\xBA\xD3\xEF"), "A\x9D\x68\xD5\x5A");
    EXPECT_EQ(map(0x20804, LCMAP_SIMPLIFIED_CHINESE, "\x9D\x68\xD5\x5A"), "\xBA\xBA\xD3\xEF");
    EXPECT_EQ(map(0x0404, LCMAP_UPPERCASE, "a\xBA\x7E"), "A\xBA\x7E"); // 漢 in Big5
    EXPECT_EQ(map(0x0404, LCMAP_SIMPLIFIED_CHINESE, "\xBA\x7E"), "?"); // Big5 has no 汉
}

TEST(LCMapString, CaseMappingStaysOutsideAscii)
{
    EXPECT_EQ(map(LCMAP_UPPERCASE, L"a\u00E9\u00FF\u03C3\u0131\u017F\u00B5\u0451\U00010428"),
              L"A\u00C9\u0178\u03A3\u0131\u017F\u00B5\u0401\U00010400");
    EXPECT_EQ(map(LCMAP_LOWERCASE, L"Z\u00C9\u0130\u212A\u0416\U00010400"),
              L"z\u00E9\u0130\u212A\u0436\U00010428");
    wchar_t inPlace[] = L"abc";
    EXPECT_EQ(LCMapStringW(0, LCMAP_UPPERCASE, inPlace, -1, inPlace, 4), 4);
    EXPECT_STREQ(inPlace, L"ABC");
}

TEST(LCMapString, RefusesBadArguments)
{
    wchar_t to[4] = L"#";
    const auto fails = [&](DWORD flags, const wchar_t* text, int length, wchar_t* buffer, int capacity) {
        EXPECT_EQ(LCMapStringW(0x0804, flags, text, length, buffer, capacity), 0);
        return GetLastError();
    };
    EXPECT_EQ(fails(LCMAP_UPPERCASE, nullptr, 1, to, 4), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(fails(LCMAP_UPPERCASE, L"a", 0, to, 4), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(fails(LCMAP_SIMPLIFIED_CHINESE, to, 1, to, 4), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(fails(LCMAP_UPPERCASE | LCMAP_LOWERCASE, L"a", 1, to, 4), DWORD(ERROR_INVALID_FLAGS));
    EXPECT_EQ(fails(0, L"a", 1, to, 4), DWORD(ERROR_INVALID_FLAGS));
    EXPECT_EQ(fails(LCMAP_UPPERCASE, L"abcd", -1, to, 4), DWORD(ERROR_INSUFFICIENT_BUFFER));
    char bytes[2];
    EXPECT_EQ(LCMapStringA(0x0804, LCMAP_UPPERCASE, "abc", 3, bytes, 2), 0);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(LCMapStringA(0x0804, LCMAP_UPPERCASE, "a\xD6", 2, bytes, 2), 2); // half a character at the end
    EXPECT_EQ(std::string(bytes, 2), "A?");
}

TEST(CompareString, OrdersByLocaleAndFlags)
{
    const auto order = [](LCID locale, DWORD flags, const wchar_t* a, const wchar_t* b) {
        return CompareStringW(locale, flags, a, -1, b, -1);
    };
    EXPECT_EQ(order(LOCALE_INVARIANT, 0, L"a", L"B"), CSTR_LESS_THAN);
    EXPECT_EQ(order(LOCALE_INVARIANT, 0, L"a", L"A"), CSTR_LESS_THAN);
    EXPECT_EQ(order(LOCALE_INVARIANT, NORM_IGNORECASE, L"a\u00E9", L"A\u00C9"), CSTR_EQUAL);
    EXPECT_EQ(order(LOCALE_INVARIANT, NORM_IGNORECASE, L"a", L"\uFF41"), CSTR_LESS_THAN);
    EXPECT_EQ(order(LOCALE_INVARIANT, NORM_IGNOREWIDTH, L"a", L"\uFF41"), CSTR_EQUAL);
    // 一 (yi, 1 stroke) and 安 (an, 6 strokes)
    EXPECT_EQ(order(0x0804, 0, L"\u4E00", L"\u5B89"), CSTR_GREATER_THAN);
    EXPECT_EQ(order(0x20804, 0, L"\u4E00", L"\u5B89"), CSTR_LESS_THAN);
    EXPECT_EQ(order(LOCALE_USER_DEFAULT, 0, L"\u4E00", L"\u5B89"), CSTR_GREATER_THAN);
    EXPECT_EQ(CompareStringW(0x0804, 0, L"abc", 2, L"abd", 2), CSTR_EQUAL);
    EXPECT_EQ(CompareStringW(0x0804, 0, nullptr, 1, L"a", 1), 0);
    EXPECT_EQ(order(0x0804, 0x40000000, L"a", L"a"), 0);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_FLAGS));
    EXPECT_EQ(lstrcmpiW(L"Name", L"nAME"), 0);
    EXPECT_LT(lstrcmpW(nullptr, L""), 0);
}
} // namespace
