#include "Headless.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace
{
struct Wide {
    std::wstring text;
    DWORD error;
    bool operator==(const Wide& other) const { return text == other.text && error == other.error; }
};

std::ostream& operator<<(std::ostream& out, const Wide& wide)
{
    for (wchar_t c : wide.text)
        out << std::hex << static_cast<unsigned>(c) << ' ';
    return out << "error " << std::dec << wide.error;
}

/// Measures, then converts into a buffer of exactly that size, so that a sanitizer sees a stray access.
Wide decode(UINT page, const std::string& bytes, DWORD flags = 0)
{
    const std::unique_ptr<char[]> exact(new char[bytes.size()]);
    bytes.copy(exact.get(), bytes.size());
    const int size = static_cast<int>(bytes.size());
    SetLastError(NO_ERROR);
    const int needed = MultiByteToWideChar(page, flags, exact.get(), size, nullptr, 0);
    if (needed == 0) return {L"", GetLastError()};
    const std::unique_ptr<wchar_t[]> wide(new wchar_t[static_cast<std::size_t>(needed)]);
    EXPECT_EQ(MultiByteToWideChar(page, flags, exact.get(), size, wide.get(), needed), needed);
    return {std::wstring(wide.get(), static_cast<std::size_t>(needed)), GetLastError()};
}

struct Narrow {
    std::string text;
    bool usedDefault;
    bool operator==(const Narrow& other) const
    {
        return text == other.text && usedDefault == other.usedDefault;
    }
};

Narrow encode(UINT page, const std::wstring& text, DWORD flags = 0, const char* defaultChar = nullptr)
{
    BOOL used = -1;
    BOOL* const asked = page == CP_UTF8 ? nullptr : &used;
    const int size = static_cast<int>(text.size());
    const int needed = WideCharToMultiByte(page, flags, text.data(), size, nullptr, 0, defaultChar, asked);
    const std::unique_ptr<char[]> bytes(new char[static_cast<std::size_t>(needed)]);
    EXPECT_EQ(WideCharToMultiByte(page, flags, text.data(), size, bytes.get(), needed, defaultChar, asked),
              needed);
    return {std::string(bytes.get(), static_cast<std::size_t>(needed)), used == TRUE};
}

std::wstring wideOf(std::initializer_list<unsigned> codes)
{
    std::wstring text;
    for (unsigned code : codes)
        text.push_back(static_cast<wchar_t>(code));
    return text;
}

// Expected values: the published mapping tables of the code pages.
TEST(CodePage, TextOfEachPageGoesThereAndBack)
{
    const struct {
        UINT page;
        const char* bytes;
        std::wstring text;
    } cases[] = {
        {936, "A\xD6\xD0\xCE\xC4\x80Z", L"A\u4E2D\u6587\u20ACZ"},
        {936, "\xAA\xA1\x81\x40", L"\uE000\u4E02"},
        {950, "A\xA4\xA4\xA4\xE5Z\xA5\x5C", L"A\u4E2D\u6587Z\u529F"},
        {932, "\xB1\x93\xFA\x83\x5C",
         L"\uFF71\u65E5\u30BD"}, // a half-width kana; a trail that is a backslash
        {949, "\xC7\xD1", L"\uD55C"},
        {1251, "\xCC\xE8\xF0", L"\u041C\u0438\u0440"},
        {850, "\x81\xF8", L"\u00FC\u00B0"},
        {874, "\xA1", L"\u0E01"},
        {1252, "\x80\x81\xE9", L"\u20AC\u0081\u00E9"},
        {65001, "A\xC3\xA9\xE4\xB8\xAD\xF0\xA0\x80\x80", L"A\u00E9\u4E2D\U00020000"},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(decode(one.page, one.bytes), (Wide{one.text, NO_ERROR})) << one.page;
        EXPECT_EQ(encode(one.page, one.text).text, one.bytes) << one.page;
    }
}

TEST(CodePage, EveryCharacterOfTheTwoBytePagesSurvivesTheRoundTrip)
{
    for (UINT page : {936u, 950u}) {
        int found = 0;
        for (unsigned c = 0x80; c < 0xFFFE; ++c) {
            if (c >= 0xD800 && c <= 0xDFFF) continue;
            const std::wstring text(1, static_cast<wchar_t>(c));
            const Narrow bytes = encode(page, text, WC_NO_BEST_FIT_CHARS);
            if (bytes.usedDefault) continue;
            ++found;
            ASSERT_EQ(decode(page, bytes.text, MB_ERR_INVALID_CHARS), (Wide{text, NO_ERROR})) << c;
        }
        EXPECT_GT(found, 13000) << page; // Big5 alone has 13,461 assigned pairs
    }
}

TEST(CodePage, AnsiPageIsTheOneOfTheProcess)
{
    EXPECT_EQ(GetACP(), 936u);
    headless::setAnsiCodePage(950);
    EXPECT_EQ(decode(CP_ACP, "\xA4\xA4").text, L"\u4E2D");
    EXPECT_EQ(decode(CP_THREAD_ACP, "\xA4\xA4").text, L"\u4E2D");
    EXPECT_EQ(GetOEMCP(), 950u);
    headless::setAnsiCodePage(936);
    EXPECT_EQ(decode(CP_ACP, "\xD6\xD0").text, L"\u4E2D");
}

TEST(CodePage, DescribesItself)
{
    CPINFO info;
    ASSERT_TRUE(GetCPInfo(936, &info));
    EXPECT_EQ(info.MaxCharSize, 2u);
    EXPECT_EQ(info.DefaultChar[0], '?');
    EXPECT_EQ(info.LeadByte[0], 0x81);
    EXPECT_EQ(info.LeadByte[1], 0xFE);
    EXPECT_EQ(info.LeadByte[2], 0);
    ASSERT_TRUE(GetCPInfo(932, &info));
    EXPECT_EQ(std::string(info.LeadByte, info.LeadByte + 5), std::string("\x81\x9F\xE0\xFC\0", 5));
    ASSERT_TRUE(GetCPInfo(CP_UTF8, &info));
    EXPECT_EQ(info.MaxCharSize, 4u);
    EXPECT_EQ(info.LeadByte[0], 0);
    EXPECT_FALSE(GetCPInfo(1361, &info));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_TRUE(IsDBCSLeadByteEx(950, 0x81) && IsDBCSLeadByte(0xFE));
    EXPECT_FALSE(IsDBCSLeadByteEx(936, 0x80) || IsDBCSLeadByteEx(1252, 0x81) ||
                 IsDBCSLeadByteEx(65001, 0xE4));
    EXPECT_FALSE(IsValidCodePage(1361));
}

TEST(MultiByteToWideChar, LeadByteWithoutTrailIsOneQuestionMark)
{
    EXPECT_EQ(decode(936, "a\xD6"), (Wide{L"a?", NO_ERROR}));
    EXPECT_EQ(decode(936, std::string("\xD6\0z", 3)), (Wide{std::wstring(L"?\0z", 3), NO_ERROR}));
    EXPECT_EQ(decode(936, "\xD6\x31"), (Wide{L"?1", NO_ERROR}));      // a digit is no trail
    EXPECT_EQ(decode(936, "\xD6\x7F"), (Wide{L"?\x7F", NO_ERROR}));   // the hole among the trails
    EXPECT_EQ(decode(936, "\xD6\xFF"), (Wide{L"?\uF8F5", NO_ERROR})); // 0xFF stands alone in this page
    EXPECT_EQ(decode(950, "\xA4\x80"), (Wide{L"?\u0080", NO_ERROR})); // Big5 has no trails below 0xA1
    wchar_t wide[4];
    EXPECT_EQ(MultiByteToWideChar(936, 0, "x\xD6", -1, wide, 4), 3);
    EXPECT_EQ(std::wstring(wide, 3), std::wstring(L"x?\0", 3));
    for (const char* bytes : {"a\xD6", "\xD6\x31", "\xD6\xFF"})
        EXPECT_EQ(decode(936, bytes, MB_ERR_INVALID_CHARS).error, DWORD(ERROR_NO_UNICODE_TRANSLATION));
}

// The samples are those of the Unicode Standard, section 3.9, tables 3-8 to 3-11.
TEST(MultiByteToWideChar, IllFormedUtf8IsOneReplacementForEachMaximalPart)
{
    const wchar_t r = 0xFFFD;
    const struct {
        std::string bytes;
        std::wstring text;
    } cases[] = {
        {"\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41", std::wstring(8, r) + L"A"},
        {"\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41", std::wstring(8, r) + L"A"},
        {"\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42", std::wstring(5, r) + L"A" + r + r + L"B"},
        {"\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41", std::wstring(4, r) + L"A"},
        {"\xE4\xB8", {r}},
        {std::string("\xE4\0", 2), std::wstring{r, L'\0'}},
        {"\xF4\x8F\xBF\xBF", wideOf({0x10FFFF})},
    };
    for (const auto& one : cases)
        EXPECT_EQ(decode(CP_UTF8, one.bytes), (Wide{one.text, NO_ERROR}));
    EXPECT_EQ(decode(CP_UTF8, "ok\xE4\xB8", MB_ERR_INVALID_CHARS).error, DWORD(ERROR_NO_UNICODE_TRANSLATION));
    EXPECT_EQ(decode(CP_UTF8, "\xEF\xBF\xBD", MB_ERR_INVALID_CHARS).error, DWORD(NO_ERROR));
}

TEST(MultiByteToWideChar, ShortBufferFailsWithoutATouchBeyondIt)
{
    for (UINT page : {936u, 65001u})
        for (const std::string& text : {std::string("abcdefghijkl"), std::string("\xD6\xD0\xCE\xC4")}) {
            const Wide whole = decode(page, text);
            for (int capacity = 1; capacity < static_cast<int>(whole.text.size()); ++capacity) {
                std::vector<wchar_t> buffer(whole.text.size() + 1, L'#');
                EXPECT_EQ(MultiByteToWideChar(page, 0, text.data(), static_cast<int>(text.size()),
                                              buffer.data(), capacity),
                          0);
                EXPECT_EQ(GetLastError(), DWORD(ERROR_INSUFFICIENT_BUFFER));
                EXPECT_EQ(buffer[static_cast<std::size_t>(capacity)], L'#');
            }
        }
}

TEST(MultiByteToWideChar, RefusesBadArguments)
{
    wchar_t wide[8] = L"#";
    const auto fails = [&](UINT page, DWORD flags, const char* text, int length, wchar_t* to, int capacity) {
        SetLastError(NO_ERROR);
        EXPECT_EQ(MultiByteToWideChar(page, flags, text, length, to, capacity), 0);
        return GetLastError();
    };
    EXPECT_EQ(fails(936, 0, nullptr, 1, wide, 8), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(fails(936, 0, "a", 0, wide, 8), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(fails(936, 0, "a", 1, nullptr, 8), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(fails(936, 0, "a", 1, wide, -1), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(fails(936, 0, reinterpret_cast<char*>(wide), 1, wide, 8), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(fails(1361, 0, "a", 1, wide, 8), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(fails(936, 0x100, "a", 1, wide, 8), DWORD(ERROR_INVALID_FLAGS));
    EXPECT_EQ(fails(65001, MB_PRECOMPOSED, "a", 1, wide, 8), DWORD(ERROR_INVALID_FLAGS));
    EXPECT_EQ(wide[0], L'#');
    EXPECT_EQ(MultiByteToWideChar(936, MB_PRECOMPOSED, "", -1, wide, 8), 1);
    EXPECT_EQ(wide[0], L'\0');
}

TEST(WideCharToMultiByte, UnknownCharacterBecomesTheDefault)
{
    EXPECT_EQ(encode(936, L"a\u0E01z"), (Narrow{"a?z", true}));
    EXPECT_EQ(encode(936, L"a\u0E01z", 0, "_"), (Narrow{"a_z", true}));
    EXPECT_EQ(encode(936, L"\u0E01", 0, "\xA1\xF5"), (Narrow{"\xA1\xF5", true})); // a default of two bytes
    EXPECT_EQ(encode(936, L"az"), (Narrow{"az", false}));
    // Supplementary characters and pairs alike are two UTF-16 units.
    EXPECT_EQ(encode(936, L"\U00020000"), (Narrow{"??", true}));
    EXPECT_EQ(encode(936, wideOf({0xD840, 0xDC00})), (Narrow{"??", true}));
    EXPECT_EQ(encode(936, wideOf({0xD840, 'a'})), (Narrow{"?a", true}));
}

TEST(WideCharToMultiByte, BestFitIsTakenUnlessForbidden)
{
    EXPECT_EQ(encode(1252, L"\uFF21"), (Narrow{"A", false}));
    EXPECT_EQ(encode(1252, L"\uFF21", WC_NO_BEST_FIT_CHARS), (Narrow{"?", true}));
    EXPECT_EQ(encode(950, L"\u00A9"), (Narrow{"c", false}));
    EXPECT_EQ(encode(950, L"\u00A9\u4E2D", WC_NO_BEST_FIT_CHARS), (Narrow{"?\xA4\xA4", true}));
}

TEST(WideCharToMultiByte, SurrogatesInUtf8ArePairedOrReplaced)
{
    EXPECT_EQ(encode(CP_UTF8, wideOf({0xD840, 0xDC00})).text, "\xF0\xA0\x80\x80");
    EXPECT_EQ(encode(CP_UTF8, wideOf({0xDC00, 0xD840})).text, "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(encode(CP_UTF8, wideOf({'a', 0xD840})).text, "a\xEF\xBF\xBD");
    EXPECT_EQ(encode(CP_UTF8, wideOf({0x110000, 0xFFFFFFFF})).text, "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(encode(CP_UTF8, wideOf({0x7F, 0x80, 0x7FF, 0x800, 0xFFFF, 0x10FFFF})).text,
              "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF4\x8F\xBF\xBF");
    const std::wstring lone = wideOf({0xD840});
    EXPECT_EQ(
        WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, lone.data(), 1, nullptr, 0, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_NO_UNICODE_TRANSLATION));
}

TEST(WideCharToMultiByte, ShortBufferNeverHoldsHalfACharacter)
{
    char bytes[8] = {'#', '#', '#', '#', '#', '#', '#', 0};
    EXPECT_EQ(WideCharToMultiByte(936, 0, L"a\u4E2D", 2, bytes, 2, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_STREQ(bytes, "a######");
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, L"\u4E2D", -1, bytes, 3, nullptr, nullptr), 0);
    EXPECT_EQ(bytes[3], '#');
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, L"\u4E2D", -1, bytes, 4, nullptr, nullptr), 4);
    EXPECT_EQ(bytes[3], '\0');
}

TEST(WideCharToMultiByte, RefusesBadArguments)
{
    char bytes[8];
    BOOL used = -1;
    const auto fails = [&](UINT page, DWORD flags, const wchar_t* text, int length, char* to, int capacity,
                           const char* defaultChar, BOOL* usedDefault) {
        EXPECT_EQ(WideCharToMultiByte(page, flags, text, length, to, capacity, defaultChar, usedDefault), 0);
        return GetLastError();
    };
    EXPECT_EQ(fails(936, 0, nullptr, 1, bytes, 8, nullptr, nullptr), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(fails(936, 0, L"a", 0, bytes, 8, nullptr, nullptr), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(fails(936, 0, L"a", 1, nullptr, 8, nullptr, nullptr), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(fails(65001, 0, L"a", 1, bytes, 8, "?", nullptr), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(fails(65001, 0, L"a", 1, bytes, 8, nullptr, &used), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(fails(65001, WC_NO_BEST_FIT_CHARS, L"a", 1, bytes, 8, nullptr, nullptr),
              DWORD(ERROR_INVALID_FLAGS));
    EXPECT_EQ(fails(936, WC_ERR_INVALID_CHARS, L"a", 1, bytes, 8, nullptr, nullptr),
              DWORD(ERROR_INVALID_FLAGS));
    EXPECT_EQ(used, -1);
}

// Long texts are converted in blocks. Their pieces, put together in every order and at every offset, must
// give what they give alone.
TEST(CodePage, MixedTextGivesWhatItsPiecesGive)
{
    const struct {
        std::string utf8, gbk;
        std::wstring wide;
        bool isValid;
    } pieces[] = {
        {"a", "a", L"a", true},
        {"plain ascii of some length, ", "plain ascii of some length, ", L"plain ascii of some length, ",
         true},
        {"\xC3\xA9", "\xA8\xA6", L"\u00E9", true},
        {"\xE4\xB8\xAD\xE6\x96\x87", "\xD6\xD0\xCE\xC4", L"\u4E2D\u6587", true},
        {"\xE4\xB8\xAD", "\xD6\xD0", L"\u4E2D", true},
        {"\xE2\x82\xAC", "\x80", L"\u20AC", true},
        {"\xE0\xB8\x81", "?", L"\u0E01", true},
        {"\xF0\xA0\x80\x80", "??", L"\U00020000", true},
        {"\xE4\xB8|", "?|", L"\uFFFD|", false},
        {"\xC0\xAF", "??", L"\uFFFD\uFFFD", false},
        {"\xED\xA0\x80", "???", L"\uFFFD\uFFFD\uFFFD", false},
        {"\x80", "?", L"\uFFFD", false},
    };
    unsigned random = 1;
    for (int round = 0; round < 3000; ++round) {
        const unsigned usable = round % 3 == 0   ? 6
                                : round % 3 == 1 ? 8
                                                 : 12; // without odd ones, with some, all
        std::string utf8, gbk;
        std::wstring wide;
        bool isValid = true;
        while (utf8.size() < 200) {
            random = random * 1103515245 + 12345;
            const auto& piece = pieces[(random >> 16) % usable];
            utf8 += piece.utf8, gbk += piece.gbk, wide += piece.wide, isValid &= piece.isValid;
        }
        ASSERT_EQ(decode(CP_UTF8, utf8), (Wide{wide, NO_ERROR})) << round;
        ASSERT_EQ(decode(CP_UTF8, utf8, MB_ERR_INVALID_CHARS).error == NO_ERROR, isValid) << round;
        const Narrow bytes = encode(936, wide);
        ASSERT_EQ(bytes.text, gbk) << round;
        ASSERT_EQ(bytes.usedDefault, gbk.find('?') != std::string::npos) << round;
    }
}

TEST(CodePage, SixtyFourMebibytesSurviveTheWayThroughEveryPage)
{
    std::string text;
    while (text.size() < 64u << 20)
        text += "LINE 3.5,7 \xD6\xD0\xCE\xC4\xD7\xD6\xB7\xFB ";
    const Wide wide = decode(936, text, MB_ERR_INVALID_CHARS);
    ASSERT_EQ(wide.error, DWORD(NO_ERROR));
    const std::string utf8 = encode(CP_UTF8, wide.text).text;
    EXPECT_EQ(decode(CP_UTF8, utf8, MB_ERR_INVALID_CHARS).text, wide.text);
    EXPECT_EQ(encode(936, wide.text).text, text);
}
} // namespace
