#include "IndexColors.h"
#include "LineWeights.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace colors;

TEST(IndexColors, TableHoldsTheDocumentedColours)
{
    // Corners of the published palette: basic colours, one whole hue, mixed hues, greys.
    const struct {
        int index;
        Rgb color;
    } known[] = {{1, {255, 0, 0}},     {2, {255, 255, 0}},     {5, {0, 0, 255}},      {7, {255, 255, 255}},
                 {8, {128, 128, 128}}, {9, {192, 192, 192}},   {10, {255, 0, 0}},     {11, {255, 127, 127}},
                 {12, {165, 0, 0}},    {13, {165, 82, 82}},    {18, {38, 0, 0}},      {19, {38, 19, 19}},
                 {20, {255, 63, 0}},   {21, {255, 159, 127}},  {22, {165, 41, 0}},    {30, {255, 127, 0}},
                 {50, {255, 255, 0}},  {90, {0, 255, 0}},      {130, {0, 255, 255}},  {170, {0, 0, 255}},
                 {200, {191, 0, 255}}, {210, {255, 0, 255}},   {240, {255, 0, 63}},   {250, {51, 51, 51}},
                 {251, {91, 91, 91}},  {254, {214, 214, 214}}, {255, {255, 255, 255}}};
    for (const auto& entry : known)
        EXPECT_TRUE(rgbOfIndex(entry.index) == entry.color) << entry.index;
    for (const int none : {0, 256, 257, -1})
        EXPECT_TRUE(rgbOfIndex(none) == rgbOfIndex(7));
}

TEST(IndexColors, NearestNumberHasTheColourItself)
{
    for (int i = 1; i < 256; ++i)
        EXPECT_TRUE(rgbOfIndex(indexOfRgb(rgbOfIndex(i))) == rgbOfIndex(i)) << i;
    EXPECT_EQ(indexOfRgb({254, 1, 2}), 1);
}

TEST(LineWeights, WidthsGoToTheNearestWeight)
{
    EXPECT_EQ(lineweights::nearestLineWeight(0.24), 25);
    EXPECT_EQ(lineweights::nearestLineWeight(0.065), 5);
    EXPECT_EQ(lineweights::nearestLineWeight(0.025), 0); // as far from 0.05: the lighter
    EXPECT_EQ(lineweights::nearestLineWeight(9), 211);
    EXPECT_EQ(lineweights::nearestLineWeight(-1), 0);
    EXPECT_EQ(lineweights::nearestLineWeight(std::nan("")), 0);
    EXPECT_DOUBLE_EQ(lineweights::millimetresOf(50), 0.5);
    EXPECT_DOUBLE_EQ(lineweights::millimetresOf(lineweights::standard), 0.25);
    EXPECT_FALSE(lineweights::isLineWeight(26));
}
