#include "QmCADLib.h"

#include <gtest/gtest.h>

namespace
{
TEST(Colors, NumbersAboveTheTableStay)
{
    EXPECT_EQ(CFamStuGlobe::GetColorFromIndex(256), 256u);
    EXPECT_EQ(CFamStuGlobe::GetColorFromIndex(1), 0xFF0000u);
}

TEST(Colors, NearestIndexIsTheLowestOfEqualOnes)
{
    // 10 is as red as 1; 255 is white as 7 is.
    EXPECT_EQ(CFamStuGlobe::GetColorIndexFromRGB(0xFF0000), 1);
    EXPECT_EQ(CFamStuGlobe::GetColorIndexFromRGB(0xFFFFFF), 7);
    for (int index = 1; index <= 254; ++index) {
        const DWORD rgb = CFamStuGlobe::GetColorFromIndex(index);
        const int nearest = CFamStuGlobe::GetColorIndexFromRGB(rgb);
        EXPECT_LE(nearest, index);
        EXPECT_EQ(CFamStuGlobe::GetColorFromIndex(nearest), rgb);
    }
}

TEST(Colors, FactorScalesEachPartWithinItsRange)
{
    const AcCmColor dark = CFamStuGlobe::ChangeColor(1, 0.5f), light = CFamStuGlobe::ChangeColor(1, 3.0f);
    EXPECT_EQ(dark.color(), 0xC2800000u); // 127.5 is rounded up
    EXPECT_EQ(light.color(), 0xC2FF0000u);
    EXPECT_EQ(CFamStuGlobe::ChangeColor(1, -1.0f).color(), 0xC2000000u);
    EXPECT_TRUE(CFamStuGlobe::GetAcCmColorFromIndex(256).isByLayer());
    EXPECT_EQ(CFamStuGlobe::GetAcCmColorFromIndex(30).colorIndex(), 30);
}
} // namespace
