#include "Headless.h"
#include "QmCADLib.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
// The character 中: U+4E2D, D6D0 in code page 936, A4A4 in 950, E4B8AD in UTF-8.
const wchar_t wide[] = L"a\x4e2d";
const char gbk[] = "a\xd6\xd0", big5[] = "a\xa4\xa4", utf8[] = "a\xe4\xb8\xad";

std::string owned(char* text)
{
    return std::unique_ptr<char[]>(text).get();
}

std::wstring owned(wchar_t* text)
{
    return std::unique_ptr<wchar_t[]>(text).get();
}

bool isGb2321(const wchar_t* text)
{
    CString copy(text);
    return CEncoding::isGB2321Code(copy);
}

bool isGbk(const wchar_t* text)
{
    CString copy(text);
    return CEncoding::isGBKCode(copy);
}

class CodePages : public testing::Test
{
protected:
    void SetUp() override { headless::setAnsiCodePage(936); }
    void TearDown() override { headless::setAnsiCodePage(936); }
};
} // namespace

TEST_F(CodePages, EachConversionUsesItsOwn)
{
    EXPECT_EQ(CEncoding::ANSIToUnicode(gbk), wide);
    EXPECT_EQ(CEncoding::UnicodeToANSI(wide), gbk);
    EXPECT_EQ(CEncoding::UTF8ToUnicode(utf8), wide);
    EXPECT_EQ(CEncoding::UTF8ToGBK(std::string(utf8)), gbk);
    EXPECT_EQ(owned(CEncoding::G2U(gbk)), utf8);
    EXPECT_EQ(owned(CEncoding::U2G(utf8)), gbk);
    EXPECT_EQ(owned(CEncoding::GB2312ToUnicode(gbk)), wide);
    EXPECT_EQ(owned(CEncoding::BIG5ToUnicode(big5)), wide);
    EXPECT_EQ(owned(CEncoding::UnicodeToGB2312(wide)), gbk);
    EXPECT_EQ(owned(CEncoding::UnicodeToBIG5(wide)), big5);
}

TEST_F(CodePages, AnsiOnesFollowTheSystemAndNamedOnesDoNot)
{
    headless::setAnsiCodePage(950);
    EXPECT_EQ(CEncoding::UnicodeToANSI(wide), big5);
    EXPECT_EQ(CEncoding::UTF8ToGBK(std::string(utf8)), big5);
    EXPECT_EQ(owned(CEncoding::U2G(utf8)), big5);
    EXPECT_EQ(owned(CEncoding::UnicodeToGB2312(wide)), gbk);
}

TEST_F(CodePages, MapBetweenTheFormsOfChineseWithinGbk)
{
    // 國 is 87F8 in code page 936, 国 is B9FA.
    EXPECT_EQ(owned(CEncoding::BIG5ToGB2312("x\x87\xf8")), "x\xb9\xfa");
    EXPECT_EQ(owned(CEncoding::GB2312ToBIG5("x\xb9\xfa")), "x\x87\xf8");
}

TEST_F(CodePages, NullAndEmptyTextsGiveEmptyTexts)
{
    EXPECT_EQ(CEncoding::ANSIToUTF8(nullptr, 3), "");
    EXPECT_EQ(CEncoding::UnicodeToANSI(nullptr), "");
    EXPECT_EQ(CEncoding::ANSIToUnicode(""), L"");
    EXPECT_EQ(CEncoding::UTF8ToGBK(std::string()), "");
    EXPECT_EQ(CEncoding::UTF8ToGBK(CString()), "");
    for (const char* text : {static_cast<const char*>(nullptr), ""}) {
        EXPECT_EQ(owned(CEncoding::G2U(text)), "");
        EXPECT_EQ(owned(CEncoding::U2G(text)), "");
        EXPECT_EQ(owned(CEncoding::GB2312ToUnicode(text)), L"");
        EXPECT_EQ(owned(CEncoding::BIG5ToUnicode(text)), L"");
        EXPECT_EQ(owned(CEncoding::BIG5ToGB2312(text)), "");
        EXPECT_EQ(owned(CEncoding::GB2312ToBIG5(text)), "");
    }
    EXPECT_EQ(owned(CEncoding::UnicodeToGB2312(nullptr)), "");
    EXPECT_EQ(owned(CEncoding::UnicodeToBIG5(L"")), "");
}

TEST_F(CodePages, TextThatIsNoneGetsTheReplacementCharacter)
{
    EXPECT_EQ(CEncoding::UTF8ToUnicode("a\xe4\xb8"), L"a\xfffd");
    EXPECT_EQ(CEncoding::UTF8ToGBK(std::string("\xff"
                                               "b")),
              "?b");                                              // U+FFFD is not in GBK
    EXPECT_EQ(owned(CEncoding::UnicodeToBIG5(L"a\x4e2a")), "a?"); // 个 is not in Big5
    EXPECT_EQ(CEncoding::ANSIToUnicode("a\xd6").size(), 2u);      // a lead byte without a trail byte
}

TEST_F(CodePages, StandardStringsKeepZerosInside)
{
    const std::string text("a\0b", 3);
    EXPECT_EQ(CEncoding::ANSIToUnicode(text), std::wstring(L"a\0b", 3));
    EXPECT_EQ(CEncoding::UTF8ToGBK(text), text);
}

TEST_F(CodePages, DoubleStepRightsUtf8ThatWasReadAsAnsi)
{
    // 中文 in UTF-8 is E4B8 ADE6 9687, three characters of GBK.
    const std::string text = "\xe4\xb8\xad\xe6\x96\x87";
    const CString misread(CEncoding::ANSIToUnicode(text).c_str());
    EXPECT_EQ(misread.GetLength(), 3);
    EXPECT_EQ(CEncoding::UTF8ToGBK(misread), "\xd6\xd0\xce\xc4");
    EXPECT_EQ(CEncoding::UTF8ToGBK(CString(L"A-1")), "A-1");
    EXPECT_EQ(CEncoding::UTF8ToGBK(CString(L"\x4e2d")), "??"); // D6 and D0 lead nothing in UTF-8
}

TEST_F(CodePages, LengthSizesTheResultOfAnsiToUtf8)
{
    EXPECT_EQ(CEncoding::ANSIToUTF8(wide, 2), utf8);
    EXPECT_EQ(CEncoding::ANSIToUTF8(wide, -1), utf8);
    EXPECT_EQ(CEncoding::ANSIToUTF8(wide, 1), "a");
    EXPECT_EQ(CEncoding::ANSIToUTF8(L"\x4e2d"
                                    L"bcd",
                                    2),
              "\xe4\xb8\xad"
              "b");
    EXPECT_EQ(CEncoding::ANSIToUTF8(wide, 0), "");
    EXPECT_EQ(CEncoding::ANSIToUTF8(wide, 1000), utf8); // not read past its end
    EXPECT_EQ(CEncoding::ANSIToUTF8(L"", 5), "");
}

TEST_F(CodePages, CStringsConvertBothWays)
{
    CString text = L"old";
    CStringA bytes = "old";
    EXPECT_TRUE(CEncoding::UTF8ToUnicode(CStringA(utf8), text));
    EXPECT_STREQ(text, wide);
    EXPECT_TRUE(CEncoding::UnicodeToUTF8(CString(wide), bytes));
    EXPECT_STREQ(bytes, utf8);
    EXPECT_TRUE(CEncoding::UTF8ToUnicode(CStringA(), text));
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_TRUE(CEncoding::UnicodeToUTF8(CString(), bytes));
    EXPECT_TRUE(bytes.IsEmpty());
}

TEST_F(CodePages, LargeTextsComeBackUnchanged)
{
    std::string text;
    while (text.size() < (std::size_t{16} << 20))
        text += "\xe6\xa2\x81 KL-12 \xe9\x92\xa2\xe7\xad\x8b";
    const std::string narrow = CEncoding::UTF8ToGBK(text);
    EXPECT_EQ(CEncoding::UTF8ToUnicode(owned(CEncoding::G2U(narrow.c_str()))),
              CEncoding::UTF8ToUnicode(text));
}

TEST_F(CodePages, Utf8ToGbkIsTheSameAsByWayOfWideText)
{
    // Long enough for several pieces, with strays, cut-off and too long sequences at every distance.
    const char* parts[] = {"\xe4\xb8\xad", "a",   "\xf0\x9f\x98\x80", "\x80\x80\x80\x80\x80", "\xe4\xb8",
                           "\xf0\x9f",     "\xc3"};
    std::string text;
    for (unsigned seed = 1; text.size() < 100000; seed = seed * 1103515245 + 12345)
        text += parts[(seed >> 16) % 7];
    const std::wstring between = CEncoding::UTF8ToUnicode(text);
    EXPECT_EQ(CEncoding::UTF8ToGBK(text), CEncoding::UnicodeToANSI(between.c_str()));
    const std::string strays(30000, '\x80');
    EXPECT_EQ(CEncoding::UTF8ToGBK(strays), std::string(30000, '?'));
}

TEST(GbCode, LooksAtTheFirstTwoBytesOnly)
{
    EXPECT_TRUE(isGb2321(L"\x4e2d")); // D6 D0
    EXPECT_TRUE(isGb2321(L"\x4e2d"
                         L"abc"));
    EXPECT_TRUE(isGbk(L"\x4e2d"));
    EXPECT_FALSE(isGb2321(L"\x570b")); // 87 F8: of GBK only
    EXPECT_TRUE(isGbk(L"\x570b"));
    EXPECT_FALSE(isGb2321(L"\xff21")); // A3 C1, a wide letter
    EXPECT_TRUE(isGbk(L"\xff21"));
    EXPECT_FALSE(isGbk(L"a\x4e2d"));
}

TEST(GbCode, TextOfLessThanTwoBytesIsNone)
{
    EXPECT_FALSE(isGb2321(L""));
    EXPECT_FALSE(isGbk(L""));
    EXPECT_FALSE(isGbk(L"a"));
    EXPECT_FALSE(isGbk(L"\x80"));
}
