#include "MTextLayout.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace lettering;

namespace
{
const FontName arial = {L"Arial", {}};

MTextFormat standard()
{
    MTextFormat format;
    format.font = arial;
    format.height = 3;
    return format;
}

MTextLayout laidOut(std::wstring_view contents, double width = 0, Attachment attachment = Attachment::topLeft)
{
    MTextBox box;
    box.width = width;
    box.attachment = attachment;
    return layoutMText(contents, standard(), box);
}

double widthOf(std::wstring_view text)
{
    Look look;
    look.height = 3;
    return advanceOf(fontNamed(arial), look, text);
}

std::vector<std::wstring> texts(const MTextLayout& layout)
{
    std::vector<std::wstring> found;
    for (const MTextFragment& fragment : layout.fragments)
        found.push_back(fragment.text);
    return found;
}
using Texts = std::vector<std::wstring>;
} // namespace

TEST(MTextLayout, OneLineIsAsHighAsItsLetters)
{
    const MTextLayout layout = laidOut(L"One line");
    EXPECT_EQ(layout.lineCount, 1);
    EXPECT_DOUBLE_EQ(layout.height, 3);
    EXPECT_NEAR(layout.width, widthOf(L"One line"), 1e-9);
    ASSERT_EQ(texts(layout), Texts{L"One line"});
    EXPECT_TRUE(layout.fragments[0].position.isEqualTo({0, -3}));
}

TEST(MTextLayout, LinesAreFiveThirdsOfTheHeightApart)
{
    MTextBox box;
    box.spacingFactor = 1.5;
    for (const LineSpacing spacing : {LineSpacing::atLeast, LineSpacing::exactly}) {
        box.spacing = spacing;
        const MTextLayout layout = layoutMText(L"a\\Pb\\Pc", standard(), box);
        EXPECT_EQ(layout.lineCount, 3);
        EXPECT_NEAR(layout.height, 3 + 2 * 7.5, 1e-9);
        EXPECT_NEAR(layout.fragments[2].position.y, -18, 1e-9);
    }
}

TEST(MTextLayout, HigherLettersMoveLinesApartUnlessExact)
{
    // A line of 6: its top is 5 below that of the first line, its baseline 6 below its top.
    MTextBox box;
    EXPECT_NEAR(layoutMText(L"a\\P{\\H6;b}", standard(), box).height, 11, 1e-9);
    EXPECT_NEAR(layoutMText(L"{\\H6;a}\\Pb", standard(), box).height, 13, 1e-9);
    box.spacing = LineSpacing::exactly;
    EXPECT_NEAR(layoutMText(L"a\\P{\\H6;b}", standard(), box).height, 8, 1e-9);
}

TEST(MTextLayout, WordsWrapAtTheFrame)
{
    const double width = widthOf(L"alpha beta");
    EXPECT_EQ(texts(laidOut(L"alpha beta gamma", width + 0.01)), (Texts{L"alpha beta", L"gamma"}));
    EXPECT_EQ(texts(laidOut(L"alpha beta gamma", width - 0.01)), (Texts{L"alpha", L"beta", L"gamma"}));
    EXPECT_EQ(texts(laidOut(L"a incomprehensible b", widthOf(L"a inc"))),
              (Texts{L"a", L"incomprehensible", L"b"}));
    EXPECT_EQ(texts(laidOut(L"alpha\\~beta gamma", widthOf(L"gamma "))),
              (Texts{L"alpha\u00A0beta", L"gamma"}));
    // A word does not end where its format changes.
    EXPECT_EQ(laidOut(L"aa bb{\\C1;cc}", widthOf(L"aa bb")).lineCount, 2);
}

TEST(MTextLayout, ChineseWrapsAtEveryCharacterButNotBeforeMarks)
{
    const double four = widthOf(L"建筑设计");
    EXPECT_EQ(texts(laidOut(L"建筑设计说明", four + 0.01)), (Texts{L"建筑设计", L"说明"}));
    EXPECT_EQ(texts(laidOut(L"建筑设计，说明", four + 0.01)), (Texts{L"建筑设", L"计，说明"}));
    EXPECT_EQ(texts(laidOut(L"建筑（说明）", widthOf(L"建筑（") + 0.01)), (Texts{L"建筑", L"（说", L"明）"}));
    EXPECT_EQ(texts(laidOut(L"厚200mm墙", widthOf(L"厚200m"))), (Texts{L"厚", L"200mm", L"墙"}));
}

TEST(MTextLayout, AttachmentPlacesTheFrame)
{
    const double w = widthOf(L"AB");
    const MTextLayout center = laidOut(L"AB", 0, Attachment::middleCenter);
    EXPECT_TRUE(center.fragments[0].position.isEqualTo({-w / 2, -1.5}));
    const MTextLayout right = laidOut(L"AB", 100, Attachment::bottomRight);
    EXPECT_TRUE(right.fragments[0].position.isEqualTo({-w, 0}));
    EXPECT_TRUE(right.min.isEqualTo({-w, 0}));
    EXPECT_TRUE(right.max.isEqualTo({0, 3}));
    const MTextLayout framed = laidOut(L"AB", 100, Attachment::topCenter);
    EXPECT_TRUE(framed.fragments[0].position.isEqualTo({-w / 2, -3}));
    // A number that is none of the nine is the first.
    EXPECT_TRUE(laidOut(L"AB", 0, static_cast<Attachment>(0)).fragments[0].position.isEqualTo({0, -3}));
}

TEST(MTextLayout, ParagraphsHaveIndentsTabsAndAlignment)
{
    // Lengths count in heights: first line at 3 * (2 - 1), the others at 6.
    const MTextLayout indented = laidOut(L"\\pi-1,l2;aa bb", 6.1 + widthOf(L"aa"));
    ASSERT_EQ(indented.fragments.size(), 2u);
    EXPECT_NEAR(indented.fragments[0].position.x, 3, 1e-9);
    EXPECT_NEAR(indented.fragments[1].position.x, 6, 1e-9);
    EXPECT_NEAR(laidOut(L"a^Ib").fragments[1].position.x, 12, 1e-9); // every 4 heights
    EXPECT_NEAR(laidOut(L"\\pt5;a^Ib").fragments[1].position.x, 15, 1e-9);
    EXPECT_NEAR(laidOut(L"\\pqr;a", 50).fragments[0].position.x, 50 - widthOf(L"a"), 1e-9);
}

TEST(MTextLayout, JustifiedLinesReachBothEdges)
{
    const double width = widthOf(L"aa bb cc") + 4;
    const MTextLayout layout = laidOut(L"\\pqj;aa bb cc dddddddd", width);
    ASSERT_EQ(layout.lineCount, 2);
    const MTextFragment& last = layout.fragments[layout.fragments.size() - 2];
    EXPECT_NEAR(last.position.x + last.advance, width, 1e-9);
    EXPECT_NEAR(layout.fragments.back().position.x, 0, 1e-9);
}

TEST(MTextLayout, LowerTextStandsAtItsPlaceInTheLine)
{
    const auto rise = [](const wchar_t* contents) { return laidOut(contents).fragments[1].position.y + 3; };
    EXPECT_NEAR(rise(L"A{\\H1;\\A0;b}"), 0, 1e-9);
    EXPECT_NEAR(rise(L"A{\\H1;\\A1;b}"), 1, 1e-9);
    EXPECT_NEAR(rise(L"A{\\H1;\\A2;b}"), 2, 1e-9);
}

TEST(MTextLayout, FractionsHaveABarBetweenTheirParts)
{
    const MTextLayout layout = laidOut(L"\\A1;x\\S1/100;y\\Pz");
    ASSERT_EQ(texts(layout), (Texts{L"x", L"1", L"100", L"y", L"z"}));
    ASSERT_EQ(layout.rules.size(), 1u);
    const TextBar& bar = layout.rules[0].bar;
    // 2.3 heights, 6.9, about the middle of the line: from the top to the baseline are 1.5 + 3.45.
    EXPECT_NEAR(bar.start.y, -3.45, 1e-9);
    EXPECT_NEAR(layout.fragments[0].position.y, -4.95, 1e-9);
    EXPECT_NEAR(layout.fragments[4].position.y, -6.9 - 2 - 3, 1e-9); // the gap of two thirds, and z itself
    EXPECT_NEAR(bar.end.x - bar.start.x, widthOf(L"100"), 1e-9);
    EXPECT_GT(layout.fragments[1].position.y, bar.start.y);
    EXPECT_LT(layout.fragments[2].position.y + 3, bar.start.y);
    EXPECT_NEAR(layout.fragments[1].position.x, bar.start.x + widthOf(L"100") / 2 - widthOf(L"1") / 2, 1e-9);
    EXPECT_NEAR(layout.fragments[3].position.x, bar.end.x, 1e-9);
}

TEST(MTextLayout, EmptyTextsAndBadHeightsHaveNoFragments)
{
    EXPECT_EQ(laidOut(L"").lineCount, 1);
    EXPECT_TRUE(laidOut(L"").fragments.empty());
    EXPECT_DOUBLE_EQ(laidOut(L"\\P").height, 8);
    MTextFormat bad = standard();
    bad.height = std::nan("");
    EXPECT_EQ(layoutMText(L"a", bad, {}).lineCount, 0);
}

TEST(MTextLayout, ColumnsStandFromLeftToRightWithUprightLetters)
{
    MTextFormat format;
    format.font = {L"simplex.shx", {}};
    format.height = 14; // a step of 17, columns 4/3 of 14 apart
    format.isVertical = true;
    const MTextLayout layout = layoutMText(L"HI\\PH", format, {});
    ASSERT_EQ(texts(layout), (Texts{L"H", L"I", L"H"}));
    const auto middleOf = [&](int i) {
        return layout.fragments[i].position.x + layout.fragments[i].advance / 2;
    };
    EXPECT_NEAR(middleOf(0), 7.0, 1e-9);
    EXPECT_NEAR(middleOf(1), 7.0, 1e-9);
    EXPECT_NEAR(middleOf(2), 7.0 + 14 * 4.0 / 3, 1e-9);
    EXPECT_NEAR(layout.fragments[0].position.y, -14.0, 1e-9);
    EXPECT_NEAR(layout.fragments[1].position.y, -17.0 - 14.0, 1e-9);
    EXPECT_NEAR(layout.fragments[2].position.y, -14.0, 1e-9);
    EXPECT_FALSE(layout.fragments[0].look().isVertical) << "each letter is drawn as a line of its own";
    EXPECT_NEAR(layout.min.y, -34.0, 1e-9);
    EXPECT_NEAR(layout.max.x, 14 + 14 * 4.0 / 3, 1e-9);
}

TEST(MTextLayout, ColumnsBreakAtTheWidthAndHangOnTheirAttachment)
{
    MTextFormat format;
    format.font = {L"simplex.shx", {}};
    format.height = 14;
    format.isVertical = true;
    MTextBox box;
    box.width = 40; // two letters
    box.attachment = Attachment::bottomRight;
    const MTextLayout layout = layoutMText(L"\u4e2d\u6587\u6807", format, box);
    EXPECT_EQ(layout.lineCount, 2);
    ASSERT_EQ(layout.fragments.size(), 3u);
    EXPECT_LT(layout.fragments[0].position.x, layout.fragments[2].position.x) << "the first one stands left";
    EXPECT_NEAR(layout.max.x, 0.0, 1e-9);
    EXPECT_NEAR(layout.min.y, 0.0, 1e-9);
    // The second column ends at the bottom, as texts that hang at the right end there.
    EXPECT_NEAR(layout.fragments[2].position.y, 3.0, 1e-9);
    EXPECT_NEAR(layout.fragments[1].position.y, 3.0, 1e-9);
}
