#include "CurveOffset.h"

#include "gearc2d.h"
#include "geell2d.h"
#include "genurb2d.h"
#include "geplin2d.h"
#include "Shapes.h"

#include <gtest/gtest.h>

using namespace kernel;

namespace
{
using Curves = std::vector<std::shared_ptr<AcGeCurve2d>>;

std::vector<const AcGeCurve2d*> pointers(const Curves& curves)
{
    std::vector<const AcGeCurve2d*> result;
    for (const auto& curve : curves)
        result.push_back(curve.get());
    return result;
}

Curves polygon(const std::vector<AcGePoint2d>& p, bool closed)
{
    Curves curves;
    for (std::size_t i = 0; i + (closed ? 0 : 1) < p.size(); ++i)
        curves.push_back(std::make_shared<AcGeLineSeg2d>(p[i], p[(i + 1) % p.size()]));
    return curves;
}

std::vector<AcGePoint2d> samples(const OffsetChain& chain, int perCurve)
{
    std::vector<AcGePoint2d> points;
    for (const auto& curve : chain.curves) {
        AcGeInterval range;
        curve->getInterval(range);
        for (int i = 0; i < perCurve; ++i)
            points.push_back(curve->evalPoint(range.lowerBound() + range.length() * (i + 0.5) / perCurve));
    }
    return points;
}

double distanceTo(const Curves& curves, const AcGePoint2d& p)
{
    double least = 1e300;
    for (const auto& curve : curves)
        least = std::min(least, curve->distanceTo(p));
    return least;
}

void expectConnected(const OffsetChain& chain)
{
    for (std::size_t i = chain.closed ? 0 : 1; i < chain.curves.size(); ++i) {
        AcGePoint2d end, start;
        chain.curves[i == 0 ? chain.curves.size() - 1 : i - 1]->hasEndPoint(end);
        chain.curves[i]->hasStartPoint(start);
        EXPECT_TRUE(end.isEqualTo(start, AcGeTol().setEqualPoint(1e-6))) << i;
    }
}

double areaOf(const OffsetChain& chain)
{
    return polygonArea({samples(chain, 2000)});
}
} // namespace

TEST(CurveOffset, SquareGrowsWithSharpCornersAndShrinks)
{
    const Curves square = polygon({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, true);
    const OffsetResult outer = offsetChain(pointers(square), -1), inner = offsetChain(pointers(square), 2);
    ASSERT_EQ(outer.status, OffsetStatus::kOk);
    ASSERT_EQ(outer.chains.size(), 1u);
    EXPECT_EQ(outer.chains[0].curves.size(), 4u);
    EXPECT_TRUE(outer.chains[0].closed);
    for (const auto& curve : outer.chains[0].curves)
        EXPECT_NEAR(static_cast<const AcGeLineSeg2d&>(*curve).length(), 12, 1e-9);
    ASSERT_EQ(inner.chains.size(), 1u);
    EXPECT_EQ(inner.chains[0].curves.size(), 4u);
    for (const auto& curve : inner.chains[0].curves)
        EXPECT_NEAR(static_cast<const AcGeLineSeg2d&>(*curve).length(), 6, 1e-9);
    EXPECT_EQ(offsetChain(pointers(square), 5.5).status, OffsetStatus::kNothing);
}

TEST(CurveOffset, ArcsKeepTheirCentre)
{
    // A slot: half circles of radius 2 join two lines smoothly.
    const Curves slot{std::make_shared<AcGeLineSeg2d>(AcGePoint2d(0, 0), AcGePoint2d(6, 0)),
                      std::make_shared<AcGeCircArc2d>(AcGePoint2d(6, 0), AcGePoint2d(6, 4), 1.0, false),
                      std::make_shared<AcGeLineSeg2d>(AcGePoint2d(6, 4), AcGePoint2d(0, 4)),
                      std::make_shared<AcGeCircArc2d>(AcGePoint2d(0, 4), AcGePoint2d(0, 0), 1.0, false)};
    for (const double distance : {-3.0, -0.5, 1.0, 1.9}) {
        const OffsetResult result = offsetChain(pointers(slot), distance);
        ASSERT_EQ(result.chains.size(), 1u) << distance;
        ASSERT_EQ(result.chains[0].curves.size(), 4u) << distance;
        int arcs = 0;
        for (const auto& curve : result.chains[0].curves) {
            if (curve->type() != AcGe::kCircArc2d) continue;
            const auto& arc = static_cast<const AcGeCircArc2d&>(*curve);
            ++arcs;
            EXPECT_NEAR(arc.radius(), 2 - distance, 1e-9);
            EXPECT_NEAR(arc.center().y, 2, 1e-9);
        }
        EXPECT_EQ(arcs, 2);
    }
    EXPECT_EQ(offsetChain(pointers(slot), 2.5).status, OffsetStatus::kNothing);
}

TEST(CurveOffset, LineAndArcAreExtendedUntilTheyMeet)
{
    // From the line along X into a quarter circle about (10, 5) that starts downwards: the gap is on the
    // left.
    const Curves chain{
        std::make_shared<AcGeLineSeg2d>(AcGePoint2d(0, 0), AcGePoint2d(10, 0)),
        std::make_shared<AcGeCircArc2d>(AcGePoint2d(5, 0), 5, 0, kPi / 2, AcGeVector2d::kXAxis, true)};
    const OffsetResult result = offsetChain(pointers(chain), 1);
    ASSERT_EQ(result.chains.size(), 1u);
    ASSERT_EQ(result.chains[0].curves.size(), 2u);
    AcGePoint2d end;
    result.chains[0].curves[0]->hasEndPoint(end);
    // The circle about (5, 0) with radius 6 at y = 1.
    EXPECT_NEAR(end.x, 5 + std::sqrt(35.0), 1e-9);
    EXPECT_NEAR(end.y, 1, 1e-9);
    expectConnected(result.chains[0]);
}

TEST(CurveOffset, RandomPolygonsKeepTheDistance)
{
    for (unsigned seed = 1000; seed < 1400; ++seed) {
        SCOPED_TRACE(seed);
        RandomShapes shapes(seed);
        const std::vector<AcGePoint2d> corners = shapes.star({0, 0}, shapes.whole(4, 12));
        const bool closed = seed % 2 == 0;
        const Curves curves = polygon(corners, closed);
        for (const double distance : {0.2, -0.7, 1.1}) {
            const OffsetResult result = offsetChain(pointers(curves), distance);
            ASSERT_TRUE(result.status == OffsetStatus::kOk || distance > 0.5) << distance;
            for (const OffsetChain& chain : result.chains) {
                expectConnected(chain);
                EXPECT_TRUE(chain.closed || !closed);
                for (const AcGePoint2d& p : samples(chain, 9)) {
                    EXPECT_GE(distanceTo(curves, p), std::fabs(distance) * (1 - 5e-6)) << distance;
                    EXPECT_TRUE(!closed || isInPolygons({corners}, p) == (distance > 0));
                }
            }
        }
    }
}

TEST(CurveOffset, PinchedShapeFallsIntoTwo)
{
    // Two rooms with a passage of width 1 between them.
    const Curves rooms = polygon({{0, 0},
                                  {4, 0},
                                  {4, 1.5},
                                  {6, 1.5},
                                  {6, 0},
                                  {10, 0},
                                  {10, 4},
                                  {6, 4},
                                  {6, 2.5},
                                  {4, 2.5},
                                  {4, 4},
                                  {0, 4}},
                                 true);
    const OffsetResult result = offsetChain(pointers(rooms), 0.75);
    ASSERT_EQ(result.chains.size(), 2u);
    for (const OffsetChain& chain : result.chains)
        EXPECT_NEAR(areaOf(chain), 6.25, 0.01);
}

TEST(CurveOffset, EllipseAndSplineAreWithinTheFit)
{
    const Curves ellipse{std::make_shared<AcGeEllipArc2d>(AcGePoint2d(1, 2), AcGeVector2d::kXAxis,
                                                          AcGeVector2d::kYAxis, 6, 3)};
    RandomShapes shapes(11);
    AcGePoint2dArray through;
    for (int i = 0; i < 7; ++i)
        through.append(AcGePoint2d(3.0 * i, shapes.real(-2, 2)));
    const Curves spline{std::make_shared<AcGeNurbCurve2d>(through)};
    for (const Curves& curves : {ellipse, spline})
        for (const double distance : {0.3, -0.3, 1.2}) { // the ellipse's sharpest radius is 1.5
            const OffsetResult result = offsetChain(pointers(curves), distance);
            ASSERT_EQ(result.status, OffsetStatus::kOk);
            for (const OffsetChain& chain : result.chains)
                for (const AcGePoint2d& p : samples(chain, 200))
                    EXPECT_NEAR(distanceTo(curves, p), std::fabs(distance), 1e-5 * std::fabs(distance));
        }
}

TEST(CurveOffset, SwallowtailsOfAnEllipseAreCut)
{
    // Nearer to the centre than its sharpest radius (1.5) the offset folds; two corners on the long axis
    // remain.
    const Curves ellipse{std::make_shared<AcGeEllipArc2d>(AcGePoint2d(0, 0), AcGeVector2d::kXAxis,
                                                          AcGeVector2d::kYAxis, 6, 3)};
    const OffsetResult result = offsetChain(pointers(ellipse), 2);
    ASSERT_EQ(result.chains.size(), 1u);
    EXPECT_TRUE(result.chains[0].closed);
    for (const AcGePoint2d& p : samples(result.chains[0], 500))
        EXPECT_NEAR(distanceTo(ellipse, p), 2, 1e-5);
    EXPECT_EQ(offsetChain(pointers(ellipse), 3.1).status, OffsetStatus::kNothing);
}

TEST(CurveOffset, BadInputIsRefused)
{
    const AcGeLineSeg2d a({0, 0}, AcGePoint2d(1, 0)), b({2, 0}, AcGePoint2d(3, 0));
    EXPECT_EQ(offsetChain({}, 1).status, OffsetStatus::kBadCurve);
    EXPECT_EQ(offsetChain({nullptr}, 1).status, OffsetStatus::kBadCurve);
    EXPECT_EQ(offsetChain({&a}, 0).status, OffsetStatus::kBadCurve);
    EXPECT_EQ(offsetChain({&a}, std::nan("")).status, OffsetStatus::kBadCurve);
    EXPECT_EQ(offsetChain({&a, &b}, 1).status, OffsetStatus::kNotConnected);
}
