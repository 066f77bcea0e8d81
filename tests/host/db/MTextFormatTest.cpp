#include "MTextFormat.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace lettering;

namespace
{
MTextFormat standard()
{
    MTextFormat format;
    format.font = {L"txt.shx", L"gbcbig.shx"};
    format.height = 2;
    return format;
}

std::vector<MTextParagraph> parsed(std::wstring_view contents)
{
    return parseMText(contents, standard());
}

/// The pieces of the first paragraph.
std::vector<MTextPiece> pieces(std::wstring_view contents)
{
    return parsed(contents).front().pieces;
}

std::wstring textOf(std::wstring_view contents)
{
    std::wstring text;
    for (const MTextParagraph& paragraph : parsed(contents)) {
        for (const MTextPiece& piece : paragraph.pieces)
            text += piece.text;
        text += L'|';
    }
    return text;
}
} // namespace

TEST(MTextFormat, EscapesAreCharacters)
{
    EXPECT_EQ(textOf(L"a\\\\b\\{c\\}d\\~e"), L"a\\b{c}d\u00A0e|");
    EXPECT_EQ(textOf(L"\\U+4E2D\\M+5CEC4%%c8^ 2"), L"中文\u2300"
                                                   L"8^2|");
    EXPECT_EQ(textOf(L"a^Ib\tc"), L"a\tb\tc|");
}

TEST(MTextFormat, ParagraphsEndAtTheirCodes)
{
    EXPECT_EQ(textOf(L"a\\Pb^Jc\nd\r\\P"), L"a|b|c|d||");
    EXPECT_EQ(textOf(L""), L"|");
    const std::vector<MTextParagraph> columns = parsed(L"a\\Nb");
    ASSERT_EQ(columns.size(), 2u);
    EXPECT_FALSE(columns[0].startsColumn);
    EXPECT_TRUE(columns[1].startsColumn);
}

TEST(MTextFormat, BracesEndFormats)
{
    const auto p = pieces(L"a{\\H3x;\\C1;b{\\Lc}d}e");
    ASSERT_EQ(p.size(), 5u);
    EXPECT_EQ(p[0].format.height, 2);
    EXPECT_EQ(p[1].format.height, 6);
    EXPECT_EQ(p[1].format.color.index, 1);
    EXPECT_TRUE(p[2].format.lines.under);
    EXPECT_EQ(p[2].format.height, 6);
    EXPECT_FALSE(p[3].format.lines.under);
    EXPECT_TRUE(p[4].format == p[0].format);
    EXPECT_EQ(textOf(L"a}b{c"), L"abc|"); // one too many, one too few
}

TEST(MTextFormat, CommandsSetTheirQuantity)
{
    const auto format = [](std::wstring_view codes) { return pieces(std::wstring(codes) + L"x")[0].format; };
    EXPECT_EQ(format(L"\\H5;").height, 5);
    EXPECT_EQ(format(L"\\H.5x;\\H.5x;").height, 0.5);
    EXPECT_EQ(format(L"\\W0.7;").widthFactor, 0.7);
    EXPECT_EQ(format(L"\\T1.5;").tracking, 1.5);
    EXPECT_NEAR(std::tan(format(L"\\Q45;").obliqueAngle), 1, 1e-12);
    EXPECT_EQ(format(L"\\A2;").place, LinePlace::top);
    EXPECT_TRUE(format(L"\\c66051;").color.isRgb); // 0x010203: blue 1, green 2, red 3
    EXPECT_TRUE(format(L"\\c66051;").color.rgb == (colors::Rgb{3, 2, 1}));
    EXPECT_FALSE(format(L"\\c66051;\\C3;").color.isRgb);
    EXPECT_TRUE(format(L"\\f宋体|b1|i0|c134|p2;").font == (FontName{L"宋体", {}, true, false}));
    EXPECT_TRUE(format(L"\\Fsimplex,hztxt.shx|c0;").font == (FontName{L"simplex.shx", L"hztxt.shx"}));
    EXPECT_TRUE(format(L"\\L\\O\\K\\o").lines == (TextLines{true, false, true}));
}

TEST(MTextFormat, WhatIsNoCommandStays)
{
    for (const wchar_t* text : {L"\\z", L"\\H", L"\\H2", L"\\Hx;", L"\\H-1;", L"\\Hnan;", L"\\C300;",
                                L"\\A7;", L"\\Q89;", L"\\", L"C:\\dir"})
        EXPECT_EQ(textOf(text), std::wstring(text) + L"|");
}

TEST(MTextFormat, StacksHaveTwoParts)
{
    const auto p = pieces(L"a\\S1/2;b\\S+0.1^ -0.2;\\S3#4;\\S\\U+2300\\;^x\\^y;\\S;");
    ASSERT_EQ(p.size(), 6u);
    EXPECT_EQ(p[1].stack, StackKind::bar);
    EXPECT_EQ(p[1].text + L"|" + p[1].lower, L"1|2");
    EXPECT_EQ(p[3].stack, StackKind::tolerance);
    EXPECT_EQ(p[3].text + L"|" + p[3].lower, L"+0.1|-0.2");
    EXPECT_EQ(p[4].stack, StackKind::slash);
    EXPECT_EQ(p[5].text + L"|" + p[5].lower, L"\u2300;|x^y");
}

TEST(MTextFormat, ParagraphPropertiesLastUntilChanged)
{
    const auto p = parsed(L"\\pxi-3,l3,r1,qc,t4,c8,12;a\\Pb\\P\\pi0,l0,q*;c");
    ASSERT_EQ(p.size(), 3u);
    for (int i : {0, 1}) {
        EXPECT_EQ(p[i].format.firstIndent, -3);
        EXPECT_EQ(p[i].format.leftIndent, 3);
        EXPECT_EQ(p[i].format.rightIndent, 1);
        EXPECT_EQ(p[i].format.alignment, ParagraphAlignment::center);
        EXPECT_EQ(p[i].format.tabs, (std::vector<double>{4, 8, 12}));
    }
    EXPECT_EQ(p[2].format.firstIndent, 0);
    EXPECT_EQ(p[2].format.rightIndent, 1);
    EXPECT_EQ(p[2].format.alignment, ParagraphAlignment::byAttachment);
}

TEST(MTextFormat, DeepBracesAndLongTextsAreRead)
{
    EXPECT_EQ(textOf(std::wstring(200000, L'{') + L"a"), L"a|");
    EXPECT_EQ(textOf(std::wstring(1000000, L'x')).size(), 1000001u);
}
