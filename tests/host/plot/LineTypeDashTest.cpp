#include "LineTypeDash.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace plot;

namespace
{
double drawnLength(const DashedLine& line)
{
    double length = 0;
    for (const Points& dash : line.dashes)
        for (std::size_t i = 1; i < dash.size(); ++i)
            length += dash[i].distanceTo(dash[i - 1]);
    return length;
}

/// Start and end of each dash on the x axis.
std::vector<double> ends(const DashedLine& line)
{
    std::vector<double> xs;
    for (const Points& dash : line.dashes) {
        xs.push_back(dash.front().x);
        xs.push_back(dash.back().x);
    }
    return xs;
}

void expectNear(const std::vector<double>& actual, const std::vector<double>& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
        EXPECT_NEAR(actual[i], expected[i], 1e-9) << i;
}
} // namespace

TEST(LineTypeDash, WholePatternsStandInTheMiddle)
{
    // Dash 4, gap 2 on 20 units: three patterns are 18, the other 2 and one dash make two ends of 3.
    expectNear(ends(dashLine({{0, 0}, {20, 0}}, {4, -2}, {})), {0, 3, 5, 9, 11, 15, 17, 20});
    // Half as large: ten patterns of 3 are 30 on 31 units; ends of (1 + 2) / 2.
    DashOptions half;
    half.scale = 0.5;
    const std::vector<double> fine = ends(dashLine({{0, 0}, {31, 0}}, {4, -2}, half));
    ASSERT_EQ(fine.size(), 22u);
    EXPECT_NEAR(fine[1], 1.5, 1e-9);
    EXPECT_NEAR(fine[20], 29.5, 1e-9);
}

TEST(LineTypeDash, DotsLieBetweenTheirGaps)
{
    // Dash 6, gap 2, dot, gap 2 on 30: three patterns, ends of 3, dots at 5, 15, 25.
    const DashedLine line = dashLine({{0, 0}, {30, 0}}, {6, -2, 0, -2}, {});
    expectNear(ends(line), {0, 3, 7, 13, 17, 23, 27, 30});
    ASSERT_EQ(line.dots.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(line.dots[i].x, 5 + 10.0 * double(i), 1e-9);
    // Dots alone: 10 units hold three gaps of 3, half a unit is left over at each end.
    const DashedLine dotted = dashLine({{0, 0}, {10, 0}}, {0, -3}, {});
    EXPECT_TRUE(dotted.dashes.empty());
    ASSERT_EQ(dotted.dots.size(), 3u);
    EXPECT_NEAR(dotted.dots[0].x, 0.5, 1e-9);
}

TEST(LineTypeDash, DashesBendAroundCorners)
{
    // 10 + 10 units, dash 4, gap 1: four patterns, ends of 2; the corner lies in the gap behind 8 ... or at a
    // dash.
    const DashedLine line = dashLine({{0, 0}, {10, 0}, {10, 10}}, {4, -1}, {});
    ASSERT_EQ(line.dashes.size(), 5u);
    EXPECT_NEAR(drawnLength(line), 16, 1e-9);
    const Points& bent = line.dashes[2]; // from 8 to 12 along the curve
    ASSERT_EQ(bent.size(), 3u);
    EXPECT_TRUE(bent[0].isEqualTo({8, 0}));
    EXPECT_TRUE(bent[1].isEqualTo({10, 0}));
    EXPECT_TRUE(bent[2].isEqualTo({10, 2}));
}

TEST(LineTypeDash, EverySegmentMayStartThePatternAnew)
{
    DashOptions options;
    options.perSegment = options.isClosed = true;
    const DashedLine square = dashLine({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {4, -1}, options);
    // Two patterns a side: ends of 2 and one dash of 4 between; four sides.
    ASSERT_EQ(square.dashes.size(), 12u);
    EXPECT_NEAR(drawnLength(square), 32, 1e-9);
    EXPECT_TRUE(square.dashes.back().back().isEqualTo({0, 0}));
}

TEST(LineTypeDash, ShortFineAndBrokenPatternsAreContinuous)
{
    const Points curve = {{0, 0}, {10, 0}};
    const auto isContinuous = [&](const DashPattern& pattern, DashOptions options) {
        const DashedLine line = dashLine(curve, pattern, options);
        return line.dots.empty() && ends(line) == std::vector<double>{0, 10};
    };
    DashOptions coarse, nothing, mad;
    coarse.finest = 0.06;
    nothing.scale = 0;
    mad.scale = std::nan("");
    EXPECT_TRUE(isContinuous({}, {}));
    EXPECT_TRUE(isContinuous({3}, {}));
    EXPECT_TRUE(isContinuous({8, -3}, {}));
    EXPECT_TRUE(isContinuous({0.05, -0.05}, coarse));
    EXPECT_TRUE(isContinuous({1e-7, -1e-7}, {}));
    EXPECT_TRUE(isContinuous({1, -1}, nothing));
    EXPECT_TRUE(isContinuous({1, -1}, mad));
    EXPECT_TRUE(isContinuous({1, -INFINITY}, {}));
    EXPECT_FALSE(isContinuous({1, -1}, {}));
}

TEST(LineTypeDash, PointsWithoutALineDrawNothing)
{
    EXPECT_TRUE(dashLine({}, {1, -1}, {}).dashes.empty());
    EXPECT_TRUE(dashLine({{1, 1}, {1, 1}, {NAN, 0}}, {1, -1}, {}).dashes.empty());
}
