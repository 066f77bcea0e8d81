#include "TextMetrics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <thread>

using namespace lettering;

namespace
{
/// Twice the signed area of filled contours: outer and inner ones turn in different directions.
double areaOf(const std::vector<Contour>& contours)
{
    double twice = 0;
    for (const Contour& c : contours)
        for (std::size_t i = 0; i < c.size(); ++i) {
            const AcGePoint2d &a = c[i], &b = c[(i + 1) % c.size()];
            twice += a.x * b.y - b.x * a.y;
        }
    return std::abs(twice) / 2;
}

std::vector<TextRun> run(const wchar_t* text)
{
    return {{text, {}}};
}
} // namespace

class EveryFont : public testing::TestWithParam<const wchar_t*>
{
protected:
    const Font& font = fontNamed({GetParam(), {}});
};

INSTANTIATE_TEST_SUITE_P(TextMetrics, EveryFont,
                         testing::Values(L"txt.shx", L"simplex.shx", L"SimSun", L"宋体", L"simhei.ttf",
                                         L"Arial", L"C:\\Windows\\Fonts\\times.ttf", L"no such font", L"",
                                         L"@仿宋_GB2312"));

TEST_P(EveryFont, LetterAIsAsHighAsTheTextAndStandsOnTheBaseline)
{
    Look look;
    look.height = 3.5;
    const TextMeasure a = measureText(font, look, L"A");
    EXPECT_NEAR(a.ink.max.y, 3.5, 1e-9);
    EXPECT_NEAR(a.ink.min.y, 0, 0.02);
    EXPECT_GT(a.advance, a.ink.width() * 0.9);
    EXPECT_GT(a.ascent, 3.0);
    EXPECT_GT(a.descent, 0.2);
}

TEST_P(EveryFont, WidthGrowsWithHeightWidthFactorAndTracking)
{
    Look look;
    const double plain = advanceOf(font, look, L"Text 文字");
    look.height = 4;
    look.widthFactor = 0.5;
    EXPECT_NEAR(advanceOf(font, look, L"Text 文字"), 2 * plain, 1e-9 * plain);
    look.tracking = 1.5;
    EXPECT_NEAR(advanceOf(font, look, L"Text 文字"), 3 * plain, 1e-9 * plain);
}

TEST_P(EveryFont, ChineseCharactersAreDrawnAndOfOneWidth)
{
    const Look look;
    const TextMeasure both = measureText(font, look, L"钢筋");
    EXPECT_NEAR(both.advance, 2 * advanceOf(font, look, L"混"), 1e-9);
    EXPECT_GT(both.ink.height(), 0.8);
    EXPECT_NE(drawText(font, look, run(L"钢")).contours.size(),
              drawText(font, look, run(L"一")).contours.size());
}

TEST(TextMetrics, SimplexHasTheWidthsOfSimplex)
{
    // The frames that someone drew around these texts in AutoCAD, closely.
    const Font& font = fontNamed({L"simplex.shx", {}});
    Look look;
    look.height = 25;
    EXPECT_NEAR(advanceOf(font, look, L"left align"), 165.0, 1.0);
    EXPECT_NEAR(advanceOf(font, look, L"center align"), 222.3, 1.0);
    EXPECT_NEAR(advanceOf(font, look, L"right align"), 189.9, 1.0);
    const TextMeasure m = measureText(font, look, L"m");
    EXPECT_LT(m.ink.max.x, m.advance);
    EXPECT_GT(m.ink.width(), 0.7 * m.advance) << "as wide as its room, not a narrow letter in it";
}

TEST(TextMetrics, ArialHasTheWidthsOfArial)
{
    // Design units of Arial at 2048 an em: A is 1366 wide, i 455, W 1933.
    const Font& arial = fontNamed({L"Arial", {}});
    EXPECT_NEAR(advanceOf(arial, {}, L"i") / advanceOf(arial, {}, L"A"), 455 / 1366.0, 1e-6);
    EXPECT_NEAR(advanceOf(arial, {}, L"W") / advanceOf(arial, {}, L"A"), 1933 / 1366.0, 1e-6);
}

TEST(TextMetrics, BigFontCharactersAreAsHighAsTheText)
{
    for (const wchar_t* name : {L"txt.shx", L"TXT", L"D:\\fonts\\Other.Shx", L""}) {
        const TextMeasure m = measureText(fontNamed({name, L"gbcbig.shx"}), {}, L"国");
        EXPECT_NEAR(m.ink.min.y, 0, 1e-9) << name;
        EXPECT_NEAR(m.ink.max.y, 1, 1e-9) << name;
    }
    // A TrueType font's ideographs share the em of its letters, which are lower.
    EXPECT_GT(measureText(fontNamed({L"Arial", {}}), {}, L"国").ink.height(), 1.1);
}

TEST(TextMetrics, ObliqueTextLeansByTheTangentOfItsAngle)
{
    const Font& font = fontNamed({L"Arial", {}});
    Look look;
    const TextMeasure upright = measureText(font, look, L"I");
    look.obliqueAngle = std::atan(0.25);
    const TextMeasure leaning = measureText(font, look, L"I");
    EXPECT_NEAR(leaning.ink.max.x, upright.ink.max.x + 0.25, 1e-9);
    EXPECT_NEAR(leaning.ink.min.x, upright.ink.min.x, 1e-9);
    EXPECT_DOUBLE_EQ(leaning.advance, upright.advance);
}

TEST(TextMetrics, MirroredTextRunsTheOtherWay)
{
    const Font& font = fontNamed({L"Arial", {}});
    Look look;
    const InkBox plain = measureText(font, look, L"Lg").ink;
    look.isBackward = look.isUpsideDown = true;
    const InkBox mirrored = measureText(font, look, L"Lg").ink;
    EXPECT_DOUBLE_EQ(mirrored.min.x, -plain.max.x);
    EXPECT_DOUBLE_EQ(mirrored.max.x, -plain.min.x);
    EXPECT_DOUBLE_EQ(mirrored.max.y, -plain.min.y);
}

TEST(TextMetrics, VerticalTextHangsBelowTheOrigin)
{
    Look look;
    look.height = 2;
    look.isVertical = true;
    const TextMeasure m = measureText(fontNamed({L"txt.shx", {}}), look, L"HHH");
    EXPECT_DOUBLE_EQ(m.advance, 8); // two steps of 1.5 heights and a letter
    EXPECT_NEAR(m.ink.max.y, 0, 0.02);
    EXPECT_NEAR(m.ink.min.y, -8, 0.02); // two steps and a letter
    EXPECT_NEAR(m.ink.min.x + m.ink.max.x, 0, 0.2);
}

TEST(TextMetrics, OutlinesFillTheInkBoxAndScaleWithIt)
{
    const Font& font = fontNamed({L"宋体", {}});
    Look look;
    const double area = areaOf(drawText(font, look, run(L"B8国")).contours);
    look.height = 10;
    const TextDrawing big = drawText(font, look, run(L"B8国"));
    EXPECT_NEAR(areaOf(big.contours), 100 * area, 1e-6 * area);
    InkBox drawn;
    for (const Contour& contour : big.contours)
        for (const AcGePoint2d& point : contour)
            drawn.add(point);
    const InkBox ink = measureText(font, look, L"B8国").ink;
    EXPECT_NEAR(drawn.min.x, ink.min.x, 0.01);
    EXPECT_NEAR(drawn.max.x, ink.max.x, 0.01);
    EXPECT_NEAR(drawn.max.y, ink.max.y, 0.01);
}

TEST(TextMetrics, BoldIsHeavierAndItalicLeansWhereTheFaceHasNeither)
{
    const auto stem = [](bool bold, bool italic) {
        return measureText(fontNamed({L"宋体", {}, bold, italic}), {}, L"丨").ink.width();
    };
    EXPECT_GT(stem(true, false), 1.1 * stem(false, false));
    EXPECT_GT(stem(false, true), stem(false, false) + 0.15);
}

TEST(TextMetrics, BarsReachFromTheStartOfARunToItsEnd)
{
    const Font& font = fontNamed({L"Arial", {}});
    Look look;
    look.height = 2;
    const std::vector<TextRun> runs = decodeTextCodes(L"ab%%ucd%%u%%oe");
    const TextDrawing drawing = drawText(font, look, runs);
    ASSERT_EQ(drawing.bars.size(), 2u);
    const double ab = advanceOf(font, look, L"ab"), cd = advanceOf(font, look, L"cd");
    EXPECT_NEAR(drawing.bars[0].start.x, ab, 1e-12);
    EXPECT_NEAR(drawing.bars[0].end.x, ab + cd, 1e-12);
    EXPECT_DOUBLE_EQ(drawing.bars[0].start.y, -0.4);
    EXPECT_DOUBLE_EQ(drawing.bars[1].start.y, 2.4);
    EXPECT_DOUBLE_EQ(measureText(font, look, runs).ink.max.y, 2.4);
}

TEST(TextMetrics, BadLooksMeasureNothing)
{
    const Font& font = fontNamed({L"Arial", {}});
    const double nan = std::nan("");
    for (const Look& look : {Look{0}, Look{-1}, Look{nan}, Look{1, 0}, Look{1, nan}, Look{1, 1, 1.5},
                             Look{1, 1, nan}, Look{1, 1, 0, 0}}) {
        EXPECT_EQ(measureText(font, look, L"A").advance, 0);
        EXPECT_TRUE(measureText(font, look, L"A").ink.isEmpty());
        EXPECT_TRUE(drawText(font, look, run(L"A")).contours.empty());
    }
}

TEST(TextMetrics, OddCharactersAreMeasured)
{
    const Font& font = fontNamed({L"Arial", {}});
    std::wstring odd = {L'\0', L'\t', static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0xFFFF)};
    odd += L"\U00020000"; // an ideograph beyond the first 65536 characters
    EXPECT_GT(advanceOf(font, {}, odd), 0);
    EXPECT_TRUE(measureText(font, {}, L" ").ink.isEmpty());
    EXPECT_EQ(advanceOf(font, {}, L""), 0);
}

TEST(TextMetrics, ThreadsShareAFont)
{
    const Font font({L"黑体", {}});
    double widths[4] = {};
    std::vector<std::thread> threads;
    for (double& width : widths)
        threads.emplace_back([&] {
            for (wchar_t c = 0x4E00; c < 0x4E80; ++c)
                width += advanceOf(font, {}, std::wstring(1, c));
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const double width : widths)
        EXPECT_EQ(width, widths[0]);
    EXPECT_GT(widths[0], 100);
}
