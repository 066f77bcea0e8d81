#include "TextEncoding.h"
#include "CodePageName.h"
#include "TextEscape.h"

#include <windows.h>

#include <random>

using namespace dxf;

namespace
{
std::string randomBytes(std::mt19937& random)
{
    constexpr std::string_view spice("^\\U+M+5D85A \xC3\xA9\xE4\xB8\xAD\xF0\x9F\x80");
    std::string bytes;
    for (auto i = random() % 12; i > 0; --i)
        bytes += random() % 4 ? spice[random() % spice.size()] : static_cast<char>(0x20 + random() % 0xE0);
    return bytes;
}
} // namespace

TEST(TextEncoding, DecodesThePageThatTheHeaderNames)
{
    const struct {
        const char *page, *bytes;
        const wchar_t* text;
    } cases[] = {
        {"ANSI_936", "\xD6\xD0", L"\u4E2D"},
        {"gb2312", "\xD6\xD0", L"\u4E2D"},
        {"ANSI_950", "\xA5\x5C", L"\u529F"},
        {"BIG5", "\xA5\x5C", L"\u529F"},             // the trail is a backslash
        {"dos932", "\x83\x5E\xB1", L"\u30BF\uFF71"}, // the trail is a caret
        {"ANSI_949", "\xC7\xD1", L"\uD55C"},
        {"ANSI_874", "\xA1", L"\u0E01"},
        {"ANSI_1250", "\xB9", L"\u0105"},
        {"ANSI_1251", "\xC6", L"\u0416"},
        {"ANSI_1252", "\x80\xB0", L"\u20AC\u00B0"},
        {"ANSI_1253", "\xE1", L"\u03B1"},
        {"ANSI_1254", "\xFE", L"\u015F"},
        {"ANSI_1255", "\xE0", L"\u05D0"},
        {"ANSI_1256", "\xC7", L"\u0627"},
        {"ANSI_1257", "\xE0", L"\u0105"},
        {"ANSI_1258", "\xF0", L"\u0111"},
        {"DOS437", "\xE1", L"\u00DF"},
        {"dos850", "\x81", L"\u00FC"},
        {"DOS866", "\x80", L"\u0410"},
        {"ISO8859-2", "\xB1", L"\u0105"},
        {"MACINTOSH", "\x8A", L"\u00E4"},
    };
    for (const auto& each : cases) {
        const TextEncoding encoding = TextEncoding::ofHeader(FileVersion::r2000, each.page);
        EXPECT_EQ(encoding.decode(each.bytes), each.text) << each.page;
        EXPECT_EQ(encoding.encode(each.text), each.bytes) << each.page;
    }
}

TEST(TextEncoding, VersionDecidesBeforeTheCodePageName)
{
    EXPECT_EQ(TextEncoding::ofHeader(FileVersion::r2007, "ANSI_936").codePage(), UINT(CP_UTF8));
    EXPECT_EQ(TextEncoding::ofHeader(FileVersion::r2004, "ANSI_936").codePage(), 936u);
    EXPECT_EQ(TextEncoding::ofHeader(FileVersion::r12, "", 1251).codePage(), 1251u);
    EXPECT_EQ(TextEncoding::ofHeader(FileVersion::r12, "").codePage(), GetACP());
    EXPECT_EQ(nameOfCodePage(936), "ANSI_936");
    EXPECT_EQ(codePageOfName(nameOfCodePage(850)), 850u);
}

TEST(TextEncoding, UnknownPageKeepsItsBytes)
{
    const TextEncoding johab(1361);
    EXPECT_FALSE(johab.isKnown());
    const std::wstring text = johab.decode("a\xD0\x65");
    EXPECT_EQ(text, std::wstring({L'a', keptByte(0xD0), L'e'}));
    EXPECT_EQ(johab.encode(text), "a\xD0\x65");
}

TEST(TextEncoding, EscapesStandForCharacters)
{
    const TextEncoding western(1252);
    EXPECT_EQ(western.decode("108\\U+00B0"), L"108\u00B0");
    EXPECT_EQ(western.decode("\\M+5D6D0\\M+1B1"), L"\u4E2D\\M+1B1"); // the second has two digits too few
    EXPECT_EQ(western.decode("a^Jb^Ic^ d"), L"a\nb\tc^d");
    EXPECT_EQ(western.decode("\\U+D83D\\U+DE00"), TextEncoding().decode("\xF0\x9F\x98\x80"));
    EXPECT_EQ(western.decode("\\U+12G4 \\u+0041"), L"\\U+12G4 \\u+0041");
}

TEST(TextEncoding, WhatThePageHasNotIsEscaped)
{
    const TextEncoding western(1252);
    EXPECT_EQ(western.encode(L"\u00DF\u4E2D\n^\t"), "\xDF\\U+4E2D^J^ ^I");
    EXPECT_EQ(western.encode(TextEncoding().decode("\xF0\x9F\x98\x80")), "\\U+D83D\\U+DE00");
    EXPECT_EQ(TextEncoding().encode(L"\u00DF\u4E2D"), "\xC3\x9F\xE4\xB8\xAD");
    EXPECT_EQ(western.encode(L"\uFF21"), "\\U+FF21"); // no letter A instead, as best fit would have it
}

// Text that looks like an escape must not turn into one.
TEST(TextEncoding, EveryTextSurvivesWritingAndReading)
{
    const std::wstring texts[] = {L"\\U+0041",           L"\\\\U+0041", L"\\M+5D6D0",
                                  L"\\U+005CU+0041",     L"^J^ ^^",     L"\\P\\S1^2;",
                                  L"\u0001\u001F\u007F", L"C:\\User",   L"\\\u4E2D"};
    for (const UINT page : {UINT(CP_UTF8), 936u, 1252u})
        for (const std::wstring& text : texts) {
            const TextEncoding encoding(page);
            EXPECT_EQ(encoding.decode(encoding.encode(text)), text) << page;
        }
}

// Ill-formed UTF-8 by table 3-7 of the Unicode standard: a lone trail, an overlong form, a surrogate, a value
// above U+10FFFF, a cut sequence; and carets that start no escape.
TEST(TextEncoding, BytesThatDoNotDecodeComeBackUnchanged)
{
    for (const char* bytes :
         {"a\x80z", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE4\xB8", "x^ay^", "5^2"})
        EXPECT_EQ(TextEncoding().encode(TextEncoding().decode(bytes)), bytes);
    EXPECT_EQ(TextEncoding().decode("a\x80z"), std::wstring({L'a', keptByte(0x80), L'z'}));
    EXPECT_EQ(TextEncoding(936).encode(TextEncoding(936).decode("\xD6")), "\xD6");
}

// One pass may change the spelling (\U+0041 is A); after it nothing changes, and the text is the same.
TEST(TextEncoding, RewrittenBytesMeanTheSame)
{
    std::mt19937 random(7);
    for (const UINT page : {UINT(CP_UTF8), 936u, 932u, 1252u, 1361u})
        for (int i = 0; i < 20000; ++i) {
            const TextEncoding encoding(page);
            const std::wstring text = encoding.decode(randomBytes(random));
            ASSERT_EQ(encoding.decode(encoding.encode(text)), text) << page << ' ' << i;
        }
}
