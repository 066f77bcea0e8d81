#include "AxisGrid.h"

#include <gtest/gtest.h>

namespace
{
TEST(AxisSpacings, AreReadWithTheirCounts)
{
    std::vector<double> spacings{1.0};
    ASSERT_TRUE(readSpacings(L"2*6600, 3000.5  1200", spacings));
    EXPECT_EQ(spacings, (std::vector<double>{6600.0, 6600.0, 3000.5, 1200.0}));
    EXPECT_EQ(axisPlaces(spacings), (std::vector<double>{0.0, 6600.0, 13200.0, 16200.5, 17400.5}));
    EXPECT_EQ(spacingsText(spacings), CString(L"2*6600 3000.5 1200"));
}

TEST(AxisSpacings, RefusedTextsChangeNothing)
{
    std::vector<double> spacings{1.0};
    for (const wchar_t* text :
         {L"", L"  ", L"6000 x", L"0", L"-5", L"0*6000", L"201*1", L"3*", L"*3", L"2e9", L"1e400", L"nan",
          L"2.5*6000", L"3x*4000", L"+3*5", L"-3*5", L"3 *5", L"99999999999*1"})
        EXPECT_FALSE(readSpacings(text, spacings)) << CStringA(text).GetString();
    EXPECT_EQ(spacings, std::vector<double>{1.0});
}

TEST(AxisSpacings, OfEqualWidestBaysTheOneNearestToTheMiddleCounts)
{
    const Bay bay = widestBay({6.0, 3.0, 6.0, 6.0, 1.0}); // middles at 3, 12 and 18, that of all at 11
    EXPECT_EQ(bay.start, 9.0);
    EXPECT_EQ(bay.width, 6.0);
}

TEST(AxisLetters, LeaveOutThoseThatLookLikeNumbers)
{
    CString all;
    for (int i = 0; i < 24; ++i)
        all += axisLetter(i);
    EXPECT_EQ(all, CString(L"ABCDEFGHJKLMNPQRSTUVWXYA1"));
    EXPECT_EQ(axisLetterIndex(L"h"), 7);
    EXPECT_EQ(axisLetterIndex(L"J"), 8);
    for (const wchar_t* text : {L"", L"I", L"o", L"Z", L"AB", L"1"})
        EXPECT_EQ(axisLetterIndex(text), -1);
}

TEST(AxisBubbles, OfCloseAxesStandSideBySideAndTheOthersAtTheirAxes)
{
    // 10, 11 and 12 need two units more than they have: one to either side. Nothing goes before the first
    // axis.
    EXPECT_EQ(bubblePlaces({0.0, 10.0, 11.0, 12.0, 30.1}, 2.0),
              (std::vector<double>{0.0, 9.0, 11.0, 13.0, 30.1}));
    EXPECT_EQ(bubblePlaces({0.0, 1.0, 2.0, 10.0}, 2.0), (std::vector<double>{0.0, 2.0, 4.0, 10.0}));
    EXPECT_EQ(bubblePlaces({0.0, 2.0, 4.0}, 2.0), (std::vector<double>{0.0, 2.0, 4.0}));
}
} // namespace
