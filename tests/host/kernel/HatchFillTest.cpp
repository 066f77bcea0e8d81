#include "HatchFill.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace kernel;

namespace
{
constexpr double pi = 3.14159265358979323846;

Polygon square(double from, double to)
{
    return {{from, from}, {to, from}, {to, to}, {from, to}};
}

/// Level lines with this distance from (0, 0) upwards.
HatchFamily level(double distance)
{
    HatchFamily family;
    family.offset.set(0, distance);
    return family;
}

HatchFamily slanted(double angle, double distance)
{
    HatchFamily family;
    family.angle = angle;
    family.offset.set(-distance * std::sin(angle), distance * std::cos(angle));
    return family;
}

double lengthOf(const HatchPieces& pieces)
{
    double length = 0;
    for (const HatchPiece& piece : pieces.lines)
        length += piece.start.distanceTo(piece.end);
    return length;
}

Polygon circle(double radius, int count)
{
    Polygon points;
    for (int i = 0; i < count; ++i)
        points.push_back({radius * std::cos(2 * pi * i / count), radius * std::sin(2 * pi * i / count)});
    return points;
}
} // namespace

TEST(HatchFill, LevelLinesReachFromSideToSide)
{
    const HatchPieces pieces = hatchLoops({square(0.5, 10.5)}, {level(2)});
    ASSERT_EQ(pieces.lines.size(), 5u); // at 2, 4 ... 10
    EXPECT_FALSE(pieces.isTooDense);
    for (std::size_t i = 0; i < 5; ++i) {
        const double y = 2 + 2.0 * double(i);
        EXPECT_TRUE(pieces.lines[i].start.isEqualTo({0.5, y}));
        EXPECT_TRUE(pieces.lines[i].end.isEqualTo({10.5, y}));
    }
}

TEST(HatchFill, SlantedLinesEndOnTheSides)
{
    const HatchPieces pieces = hatchLoops({square(0, 10)}, {slanted(pi / 4, 1)});
    for (const HatchPiece& piece : pieces.lines) {
        EXPECT_NEAR(piece.end.y - piece.start.y, piece.end.x - piece.start.x, 1e-9);
        EXPECT_NEAR(std::min(piece.start.x, piece.start.y), 0, 1e-9);
        EXPECT_NEAR(std::max(piece.end.x, piece.end.y), 10, 1e-9);
    }
    // The k-th line from the diagonal is sqrt(2) * 10 - 2 |k| long: 2 * 7 + 1 lines, about the area.
    EXPECT_EQ(pieces.lines.size(), 15u);
    EXPECT_NEAR(lengthOf(pieces), 15 * 10 * std::sqrt(2.0) - 2 * 2 * 28, 1e-9);
}

TEST(HatchFill, IslandsStayFree)
{
    const HatchPieces pieces = hatchLoops({square(-0.5, 10.5), square(3.5, 6.5)}, {level(1)});
    // 11 lines 11 long; 4, 5 and 6 lose 3 each.
    EXPECT_EQ(pieces.lines.size(), 14u);
    EXPECT_NEAR(lengthOf(pieces), 11 * 11 - 3 * 3, 1e-9);
}

TEST(HatchFill, DashesOfEveryLineBeginAtItsOwnPlace)
{
    HatchFamily bricks = level(1);
    bricks.offset.x = 0.5;
    bricks.dashes = {1, -1};
    const HatchPieces pieces = hatchLoops({square(0.25, 4.25)}, {bricks});
    // Line 1 at 0.5, 2.5, 4.5; line 2 at 1, 3, and so on; cut at 0.25 and 4.25.
    const auto line = [&](double y) {
        std::vector<double> xs;
        for (const HatchPiece& piece : pieces.lines) {
            if (std::abs(piece.start.y - y) > 1e-9) continue;
            xs.push_back(piece.start.x);
            xs.push_back(piece.end.x);
        }
        return xs;
    };
    EXPECT_EQ(line(1), (std::vector<double>{0.5, 1.5, 2.5, 3.5}));
    EXPECT_EQ(line(2), (std::vector<double>{1, 2, 3, 4}));
    EXPECT_EQ(line(3), (std::vector<double>{0.25, 0.5, 1.5, 2.5, 3.5, 4.25}));
}

TEST(HatchFill, DotsLieOnAGrid)
{
    HatchFamily dots = level(1);
    dots.dashes = {0, -1};
    const HatchPieces pieces = hatchLoops({square(0.5, 3.5)}, {dots});
    EXPECT_TRUE(pieces.lines.empty());
    ASSERT_EQ(pieces.dots.size(), 9u);
    EXPECT_TRUE(pieces.dots[4].isEqualTo({2, 2}));
}

TEST(HatchFill, VerticesOnLinesKeepInsideAndOutsideApart)
{
    // A diamond and a star with their points on lines: no line runs out of them.
    const Polygon diamond = {{0, -2}, {2, 0}, {0, 2}, {-2, 0}};
    for (const HatchPiece& piece : hatchLoops({diamond}, {level(1)}).lines)
        EXPECT_NEAR(piece.end.x, 2 - std::abs(piece.end.y), 1e-9);
    const Polygon zigzag = {{0, 0}, {1, 2}, {2, 1}, {3, 2}, {4, 0}, {3, 1}, {2, 0}, {1, 1}};
    for (const HatchPiece& piece : hatchLoops({zigzag}, {level(0.25)}).lines)
        EXPECT_LE(piece.end.x, 4);
}

TEST(HatchFill, LoopsOfManyPointsFillLikeTheirCircle)
{
    const HatchPieces pieces = hatchLoops({circle(100, 100000), circle(50, 100000)}, {slanted(0.3, 0.5)});
    // Length times distance is the area.
    EXPECT_NEAR(lengthOf(pieces) * 0.5, pi * (100 * 100 - 50 * 50), 5);
}

TEST(HatchFill, TooDensePatternsAreReported)
{
    HatchLimits limits;
    limits.finest = 0.1;
    EXPECT_TRUE(hatchLoops({square(0, 10)}, {level(0.1)}, limits).isTooDense);
    EXPECT_TRUE(hatchLoops({square(0, 10)}, {level(1e-9)}).isTooDense);
    EXPECT_TRUE(hatchLoops({square(0, 1e300)}, {level(1)}).isTooDense);
    EXPECT_TRUE(hatchLoops({square(0, 10)}, {level(0)}).isTooDense);
    HatchFamily dotted = level(0.01);
    dotted.dashes = {0, -0.0001};
    EXPECT_TRUE(hatchLoops({square(0, 10)}, {dotted}).isTooDense);
    // A family that fits is drawn beside one that does not.
    EXPECT_EQ(hatchLoops({square(0.5, 2.5)}, {level(0), level(1)}).lines.size(), 2u);
}

TEST(HatchFill, BrokenInputDrawsNothing)
{
    EXPECT_TRUE(hatchLoops({}, {level(1)}).lines.empty());
    EXPECT_TRUE(hatchLoops({{{0, 0}, {5, 5}}}, {level(1)}).lines.empty());
    EXPECT_TRUE(hatchLoops({{{0, 0}, {5, NAN}, {5, 5}}}, {level(1)}).lines.empty());
    EXPECT_TRUE(hatchLoops({square(0, 10)}, {slanted(NAN, 1)}).lines.empty());
}
