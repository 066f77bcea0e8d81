#include "BoundaryTrace.h"

#include "gearc2d.h"
#include "geell2d.h"
#include "geline2d.h"
#include "genurb2d.h"
#include "Shapes.h"
#include "WindingTree.h"

#include <gtest/gtest.h>

using namespace kernel;

namespace
{
class Drawing
{
public:
    template <class Curve>
    Drawing& add(const Curve& curve)
    {
        mOwned.push_back(std::make_unique<Curve>(curve));
        mCurves.push_back({mOwned.back().get(), 100 + static_cast<int>(mCurves.size())});
        return *this;
    }
    Drawing& line(double x0, double y0, double x1, double y1)
    {
        return add(AcGeLineSeg2d({x0, y0}, AcGePoint2d(x1, y1)));
    }
    Drawing& box(double x0, double y0, double x1, double y1)
    {
        return line(x0, y0, x1, y0).line(x1, y0, x1, y1).line(x1, y1, x0, y1).line(x0, y1, x0, y0);
    }
    Drawing& circle(double x, double y, double r) { return add(AcGeCircArc2d({x, y}, r)); }
    TraceResult trace(double x, double y, const TraceOptions& options = {}) const
    {
        const TraceResult result = traceBoundary(mCurves, {x, y}, options);
        if (result.status == TraceStatus::kOk) expectSound(result);
        return result;
    }
    const AcGeCurve2d& curve(int index) const { return *mOwned[static_cast<std::size_t>(index - 100)]; }

private:
    /// Pieces are parts of their curves, and each starts where the one before ends.
    void expectSound(const TraceResult& result) const
    {
        const AcGeTol tol = AcGeTol().setEqualPoint(1e-6);
        for (const TraceLoop& loop : result.loops)
            for (std::size_t i = 0; i < loop.pieces.size(); ++i) {
                const TracePiece &piece = loop.pieces[i], &next = loop.pieces[(i + 1) % loop.pieces.size()];
                AcGePoint2d end, start;
                ASSERT_TRUE(piece.curve->hasEndPoint(end) && next.curve->hasStartPoint(start));
                EXPECT_TRUE(end.isEqualTo(start, tol)) << end.x << ", " << end.y;
                if (piece.index == kGapPiece) continue;
                EXPECT_TRUE(curve(piece.index).evalPoint(piece.to).isEqualTo(end, tol));
            }
    }

    std::vector<std::unique_ptr<AcGeCurve2d>> mOwned;
    std::vector<TraceCurve> mCurves;
};

/// What is left of a convex polygon to the left of the line through a and b.
std::vector<AcGePoint2d> clipped(const std::vector<AcGePoint2d>& polygon, const AcGePoint2d& a,
                                 const AcGePoint2d& b)
{
    std::vector<AcGePoint2d> result;
    const auto side = [&](const AcGePoint2d& p) {
        return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
    };
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const AcGePoint2d &p = polygon[i], &q = polygon[(i + 1) % polygon.size()];
        const double u = side(p), v = side(q);
        if (u >= 0) result.push_back(p);
        if ((u > 0 && v < 0) || (u < 0 && v > 0)) result.push_back(p + (q - p) * (u / (u - v)));
    }
    return result;
}
} // namespace

TEST(BoundaryTrace, LinesThroughTheBoxLeaveTheConvexCell)
{
    // Lines all through a box: the face of a point is what half-planes leave of the box.
    // With many lines only those near the point are looked at.
    for (unsigned seed = 0; seed < 60; ++seed) {
        RandomShapes shapes(seed);
        Drawing drawing;
        drawing.box(-10, -10, 10, 10);
        const AcGePoint2d pick(shapes.real(-9, 9), shapes.real(-9, 9));
        std::vector<AcGePoint2d> cell{{-10, -10}, {10, -10}, {10, 10}, {-10, 10}};
        for (int i = 0; i < (seed % 3 ? 40 : 1000); ++i) {
            const AcGePoint2d a(shapes.real(-10, 10), shapes.real(-10, 10));
            const AcGeVector2d u = AcGeVector2d(30, 0).rotateBy(shapes.real(0, 2 * kPi));
            drawing.add(AcGeLineSeg2d(a - u, a + u));
            const bool left = u.x * (pick.y - a.y) - u.y * (pick.x - a.x) > 0;
            cell = left ? clipped(cell, a - u, a + u) : clipped(cell, a + u, a - u);
        }
        const TraceResult result = drawing.trace(pick.x, pick.y);
        ASSERT_EQ(result.status, TraceStatus::kOk) << seed;
        EXPECT_NEAR(result.loops[0].area, polygonArea({cell}), 1e-9) << seed;
        EXPECT_EQ(result.loops[0].pieces.size(), cell.size()) << seed;
    }
}

TEST(BoundaryTrace, WhatIsSeenFromThePointIsInside)
{
    // Short segments, most of them dangling. From the point straight lines that meet nothing end inside.
    for (unsigned seed = 0; seed < 60; ++seed) {
        RandomShapes shapes(seed);
        Drawing drawing;
        drawing.box(-10, -10, 10, 10);
        std::vector<AcGeLineSeg2d> segments;
        for (int i = 0; i < 60; ++i) {
            const AcGePoint2d a(shapes.real(-10, 10), shapes.real(-10, 10));
            segments.emplace_back(a,
                                  a + AcGeVector2d(shapes.real(0, 7), 0).rotateBy(shapes.real(0, 2 * kPi)));
            drawing.add(segments.back());
        }
        const AcGePoint2d pick(shapes.real(-9, 9), shapes.real(-9, 9));
        const TraceResult result = drawing.trace(pick.x, pick.y);
        ASSERT_EQ(result.status, TraceStatus::kOk) << seed;
        std::vector<std::vector<AcGePoint2d>> loops;
        for (const TraceLoop& loop : result.loops) {
            if (loop.depth > 1) continue;
            loops.emplace_back();
            for (const TracePiece& piece : loop.pieces)
                loops.back().push_back(static_cast<const AcGeLineSeg2d&>(*piece.curve).startPoint());
        }
        for (int i = 0; i < 200; ++i) {
            const AcGePoint2d q(shapes.real(-10, 10), shapes.real(-10, 10));
            bool seen = true;
            AcGePoint2d hit;
            for (const AcGeLineSeg2d& s : segments)
                seen = seen && !s.intersectWith(AcGeLineSeg2d(pick, q), hit);
            EXPECT_TRUE(!seen || isInPolygons(loops, q)) << seed << ": " << q.x << ", " << q.y;
        }
    }
}

TEST(BoundaryTrace, SegmentsOfAGridMatchFloodFill)
{
    // Segments along grid lines overlap, end on each other and meet at corners all the time.
    constexpr int kSize = 12;
    for (unsigned seed = 0; seed < 150; ++seed) {
        RandomShapes shapes(seed);
        Drawing drawing;
        drawing.box(0, 0, kSize, kSize);
        bool below[kSize + 1][kSize + 1] = {}, before[kSize + 1][kSize + 1] = {}; // walls of cell (x, y)
        for (int n = 0; n < 50; ++n) {
            const int x = shapes.whole(0, kSize - 1), y = shapes.whole(0, kSize - 1),
                      length = shapes.whole(1, 5);
            const bool flat = n % 2 == 0;
            const int end = std::min(kSize, (flat ? x : y) + length);
            flat ? drawing.line(x, y, end, y) : drawing.line(x, end, x, y);
            for (int i = flat ? x : y; i < end; ++i)
                (flat ? below[i][y] : before[x][i]) = true;
        }
        bool filled[kSize][kSize] = {};
        std::vector<std::pair<int, int>> open{{shapes.whole(0, kSize - 1), shapes.whole(0, kSize - 1)}};
        const auto pick = open.front();
        int cells = 0;
        while (!open.empty()) {
            const auto [x, y] = open.back();
            open.pop_back();
            if (x < 0 || y < 0 || x >= kSize || y >= kSize || filled[x][y]) continue;
            filled[x][y] = true;
            ++cells;
            if (!before[x][y]) open.emplace_back(x - 1, y);
            if (!before[x + 1][y]) open.emplace_back(x + 1, y);
            if (!below[x][y]) open.emplace_back(x, y - 1);
            if (!below[x][y + 1]) open.emplace_back(x, y + 1);
        }
        const TraceResult result =
            drawing.trace(pick.first + 0.37, pick.second + 0.41, {1e-8, 0, IslandMode::kOuter});
        ASSERT_EQ(result.status, TraceStatus::kOk) << seed;
        double area = 0;
        for (const TraceLoop& loop : result.loops)
            area += loop.area;
        EXPECT_NEAR(area, cells, 1e-9) << seed;
    }
}

TEST(BoundaryTrace, CurvesOfAllKindsBoundTogether)
{
    // Left of the circle, above the line, below the ellipse: cross-checked by counting random points.
    Drawing drawing;
    drawing.circle(6, 0, 3)
        .line(-10, -1, 10, -1)
        .add(AcGeEllipArc2d({0, 0}, AcGeVector2d::kXAxis, AcGeVector2d::kYAxis, 8, 4));
    const TraceResult result = drawing.trace(0, 0);
    ASSERT_EQ(result.status, TraceStatus::kOk);
    ASSERT_EQ(result.loops.size(), 1u);
    EXPECT_EQ(result.loops[0].pieces.size(),
              3u); // the seam of the circle is not on it, that of the ellipse is cut
    RandomShapes shapes(5);
    int inside = 0;
    constexpr int kCount = 400000;
    for (int i = 0; i < kCount; ++i) {
        const double x = shapes.real(-8, 8), y = shapes.real(-1, 4);
        inside += x * x / 64 + y * y / 16 < 1 && (x - 6) * (x - 6) + y * y > 9;
    }
    EXPECT_NEAR(result.loops[0].area, 80.0 * inside / kCount, 0.3); // four standard deviations
}

TEST(BoundaryTrace, LinesThatGoOnPastATangentArcBoundLikeOthers)
{
    // A square of 4 with half a circle of radius 2 at its left: the top side runs on past the point of
    // contact.
    AcGeCircArc2d arc({0, 2}, 2, kPi / 2, 3 * kPi / 2);
    for (const double end : {0.0, -1.0, -5.0}) {
        Drawing drawing;
        drawing.add(arc).line(5, 4, end, 4).line(0, 0, 4, 0).line(4, -1, 4, 4);
        const TraceResult found = drawing.trace(2, 2);
        ASSERT_EQ(found.status, TraceStatus::kOk) << end;
        EXPECT_NEAR(found.loops[0].area, 16 + 2 * kPi, 1e-9);
    }
}

TEST(BoundaryTrace, WhatIsLostFarAwayMakesNothingCoarse)
{
    // A slot a thousandth wide, a circle, and a line that somebody lost.
    for (const double far : {1e6, 1e9, 1e12, 1e16, 1e100, 1e300}) {
        Drawing drawing;
        drawing.box(0, 0, 10, 10).line(9.999, 0, 9.999, 10).circle(3, 3, 1).line(far, far, 2 * far, far);
        const TraceResult slot = drawing.trace(9.9995, 5), rest = drawing.trace(8, 8);
        ASSERT_EQ(slot.status, TraceStatus::kOk) << far;
        EXPECT_NEAR(slot.loops[0].area, 0.01, 1e-9) << far;
        ASSERT_EQ(rest.status, TraceStatus::kOk) << far;
        ASSERT_EQ(rest.loops.size(), 2u) << far;
        EXPECT_NEAR(rest.loops[0].area, 99.99, 1e-9) << far;
    }
}

TEST(BoundaryTrace, CurvesThatRepeatTheBoundaryAreNoIslands)
{
    // Drawn twice, as it is where its outline was made by a trace before. A point on a circle once made the
    // search for its side endless.
    for (const double turn : {0.0, 0.3, 1.7, 4.0}) {
        Drawing drawing;
        const AcGeVector2d axis(std::cos(turn), std::sin(turn));
        for (int i = 0; i < 2; ++i) {
            drawing.add(AcGeCircArc2d({5, -7}, 8.0, 0.0, 2 * kPi, i ? axis : AcGeVector2d::kXAxis));
            drawing.circle(5, -7, 2);
        }
        const TraceResult found = drawing.trace(9, -7);
        ASSERT_EQ(found.status, TraceStatus::kOk);
        ASSERT_EQ(found.loops.size(), 2u);
        EXPECT_NEAR(found.loops[0].area, 64 * kPi, 1e-9);
        EXPECT_NEAR(found.loops[1].area, -4 * kPi, 1e-9);
    }
}

TEST(WindingTree, CountsAsTheSumOverAllRuns)
{
    // A large circle, small ones in a grid within and around it, every second one clockwise.
    std::vector<std::unique_ptr<AcGeCircArc2d>> circles;
    std::vector<kernel::Run> runs;
    circles.push_back(std::make_unique<AcGeCircArc2d>(AcGePoint2d(5, 5), 6.0));
    for (int i = 0; i < 100; ++i)
        circles.push_back(std::make_unique<AcGeCircArc2d>(AcGePoint2d(i % 10, i / 10), 0.7));
    for (const auto& circle : circles)
        runs.push_back({circle->form(), runs.size() % 2 == 0});
    const WindingTree tree(runs, 1e-9);
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-3.0, 12.0);
    for (int i = 0; i < 1000; ++i) {
        const AcGePoint2d p(place(random), place(random));
        EXPECT_EQ(tree.numberAt(p), windingNumber(runs, p)) << p.x << ", " << p.y;
    }
}

TEST(BoundaryTrace, SplineIsCutWhereItCrossesItself)
{
    Drawing drawing;
    drawing.add(
        AcGeNurbCurve2d(AcGePoint2dArray{{-4, -2}, {0, 2}, {4, -4}, {0, -6}, {-4, -4}, {0, 0}, {4, 2}}));
    const TraceResult result = drawing.trace(0, -3);
    ASSERT_EQ(result.status, TraceStatus::kOk);
    ASSERT_EQ(result.loops.size(), 1u);
    EXPECT_EQ(result.loops[0].pieces.size(), 1u);
    EXPECT_GT(result.loops[0].area, 10);
}

TEST(BoundaryTrace, DanglingEndsAndDuplicatesDoNotCount)
{
    Drawing drawing;
    drawing.box(0, 0, 10, 10).line(0, 0, 10, 0).line(2, 0, 12, 0); // twice and thrice
    drawing.line(5, 0, 5, 4).line(5, 4, 7, 6).line(10, 5, 8, 5);   // dangling
    const TraceResult result = drawing.trace(2, 5);
    ASSERT_EQ(result.status, TraceStatus::kOk);
    ASSERT_EQ(result.loops.size(), 1u);
    EXPECT_NEAR(result.loops[0].area, 100, 1e-9);
    EXPECT_EQ(result.loops[0].pieces.size(), 4u);
}

TEST(BoundaryTrace, BranchesEndAtCurves)
{
    Drawing drawing;
    drawing.box(0, 0, 10, 10).line(0, 4, 10, 4).line(3, 4, 3, 10); // T-junctions
    EXPECT_NEAR(drawing.trace(1, 8).loops[0].area, 18, 1e-9);
    EXPECT_NEAR(drawing.trace(8, 8).loops[0].area, 42, 1e-9);
    EXPECT_NEAR(drawing.trace(8, 2).loops[0].area, 40, 1e-9);
}

TEST(BoundaryTrace, PiecesNameTheirCurvesAndParameters)
{
    Drawing drawing;
    drawing.line(-5, 0, 5, 0).circle(0, 0, 2);
    const TraceResult result = drawing.trace(0, 1);
    ASSERT_EQ(result.status, TraceStatus::kOk);
    ASSERT_EQ(result.loops[0].pieces.size(), 2u);
    for (const TracePiece& piece : result.loops[0].pieces) {
        if (piece.index == 100) {
            EXPECT_NEAR(piece.from * 10, 3, 1e-9); // the segment's parameter is a share of its length
            EXPECT_NEAR(piece.to * 10, 7, 1e-9);
        } else {
            EXPECT_EQ(piece.index, 101);
            EXPECT_NEAR(piece.from, 0, 1e-9);
            EXPECT_NEAR(piece.to, kPi, 1e-9);
        }
    }
    // The lower half is run through over no seam, the left half over one.
    Drawing halves;
    halves.line(0, -5, 0, 5).circle(0, 0, 2);
    const TraceResult right = halves.trace(1, 0.1);
    ASSERT_EQ(right.loops[0].pieces.size(), 2u);
    EXPECT_NEAR(right.loops[0].area, 2 * kPi, 1e-9);
}

TEST(BoundaryTrace, IslandsAreNested)
{
    Drawing drawing;
    drawing.box(0, 0, 20, 20).box(5, 5, 15, 15).box(7, 7, 13, 13).circle(2, 2, 1).line(17, 17, 18, 18);
    drawing.line(5, 10, 7, 10); // ties two boxes together
    drawing.circle(10, 10, 1);
    const TraceResult all = drawing.trace(1, 18);
    ASSERT_EQ(all.status, TraceStatus::kOk);
    EXPECT_NEAR(all.loops[0].area, 400, 1e-9);
    ASSERT_EQ(all.loops.size(), 4u);
    double areas[4] = {};
    for (std::size_t i = 1; i < all.loops.size(); ++i)
        areas[all.loops[i].depth] += all.loops[i].area;
    EXPECT_NEAR(areas[1], -100 - kPi, 1e-9);
    EXPECT_NEAR(areas[2], -kPi, 1e-9); // the inner box hangs on the outer one
    EXPECT_EQ(drawing.trace(1, 18, {1e-8, 0, IslandMode::kOuter}).loops.size(), 3u);
    EXPECT_EQ(drawing.trace(1, 18, {1e-8, 0, IslandMode::kNone}).loops.size(), 1u);
    // Between the boxes: the inner one is tied to the boundary and still an island.
    const TraceResult between = drawing.trace(6, 6);
    ASSERT_EQ(between.loops.size(), 3u);
    EXPECT_NEAR(between.loops[0].area + between.loops[1].area, 100 - 36, 1e-9);
}

TEST(BoundaryTrace, ShapeThatTouchesTheBoundaryIsAnIsland)
{
    Drawing drawing;
    drawing.box(0, 0, 10, 10).line(0, 5, 3, 7).line(3, 7, 3, 3).line(3, 3, 0, 5);
    const TraceResult result = drawing.trace(8, 8);
    ASSERT_EQ(result.loops.size(), 2u);
    EXPECT_NEAR(result.loops[0].area, 100, 1e-9);
    EXPECT_NEAR(result.loops[1].area, -6, 1e-9);
}

TEST(BoundaryTrace, GapsAreClosedOrReported)
{
    Drawing drawing;
    drawing.line(0, 0, 10, 0).line(10, 0, 10, 10).line(10, 10, 0, 10).line(0, 10, 0, 0.5);
    TraceResult result = drawing.trace(3, 3);
    EXPECT_EQ(result.status, TraceStatus::kGap);
    EXPECT_NEAR(result.gapWidth, 0.5, 1e-9);
    EXPECT_TRUE(result.gapPoint.isEqualTo({0, 0.25}));
    EXPECT_TRUE(result.loops.empty());
    EXPECT_EQ(drawing.trace(3, 3, {1e-8, 0.4, IslandMode::kNested}).status, TraceStatus::kGap);
    result = drawing.trace(3, 3, {1e-8, 0.6, IslandMode::kNested});
    ASSERT_EQ(result.status, TraceStatus::kOk);
    EXPECT_NEAR(result.loops[0].area, 100, 1e-9);
    int bridges = 0;
    for (const TracePiece& piece : result.loops[0].pieces)
        bridges += piece.index == kGapPiece;
    EXPECT_EQ(bridges, 1);
}

TEST(BoundaryTrace, PointsWithoutFaceAreRefused)
{
    Drawing drawing;
    drawing.box(0, 0, 10, 10).circle(20, 0, 3);
    EXPECT_EQ(drawing.trace(15, 5).status, TraceStatus::kOutside);
    EXPECT_EQ(drawing.trace(10, 5).status, TraceStatus::kOnCurve);
    EXPECT_EQ(Drawing().trace(0, 0).status, TraceStatus::kOutside);
    EXPECT_EQ(traceBoundary({{nullptr, 0}}, {0, 0}).status, TraceStatus::kBadCurve);
    EXPECT_EQ(drawing.trace(std::nan(""), 0).status, TraceStatus::kBadCurve);
    Drawing bad;
    bad.line(0, 0, std::nan(""), 1);
    EXPECT_EQ(bad.trace(0, 0).status, TraceStatus::kBadCurve);
}

TEST(BoundaryTrace, UnboundedLinesBound)
{
    Drawing drawing;
    drawing.add(AcGeLine2d({0, 0}, AcGeVector2d(1, 0))).add(AcGeLine2d({0, 0}, AcGeVector2d(0, 1)));
    drawing.line(4, -1, -1, 4);
    EXPECT_NEAR(drawing.trace(1, 1).loops[0].area, 4.5, 1e-9);
}

TEST(BoundaryTrace, HallAmongManySmallThingsIsFoundWithWhatIsInIt)
{
    // A hall of 200 by 100 with a column in it, between small boxes that enclose nothing of it; the nearest
    // hundreds of curves are a dense grating beside the point.
    Drawing drawing;
    drawing.box(0, 0, 200, 100).circle(150, 50, 5);
    for (int i = 0; i < 300; ++i)
        drawing.line(60 + i * 0.1, 20, 60 + i * 0.1, 80);
    for (int i = 0; i < 200; ++i)
        drawing.box(-10 - 3 * i, -5, -8 - 3 * i, -3).box(210 + 3 * i, 5, 212 + 3 * i, 7);
    const TraceResult result = drawing.trace(59, 50);
    ASSERT_EQ(result.status, TraceStatus::kOk);
    ASSERT_EQ(result.loops.size(), 2u);
    EXPECT_NEAR(result.loops[0].area, 200 * 100, 1e-6);
    EXPECT_NEAR(result.loops[1].area, -25 * 3.14159265358979, 1e-9);
    // Beside the hall, where there is no boundary.
    EXPECT_EQ(drawing.trace(100, 105).status, TraceStatus::kOutside);
}
