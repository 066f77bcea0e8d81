/// Lengths, areas and meetings that are known in closed form.

#include "RandomCurves.h"

#include <cmath>
#include <gtest/gtest.h>

namespace
{
AcGeNurbCurve2d circleSpline(const AcGePoint2d& centre, double radius, double from = 0, double to = 2 * kPi)
{
    return {AcGeEllipArc2d(centre, AcGeVector2d::kXAxis, AcGeVector2d::kYAxis, radius, radius, from, to)};
}

AcGeEllipArc2d ellipse(const AcGePoint2d& centre, double a, double b, double turn = 0)
{
    const AcGeVector2d axis(std::cos(turn), std::sin(turn));
    return {centre, axis, axis.perpVector(), a, b};
}

void expectTouch(const AcGeCurve2d& a, const AcGeCurve2d& b, const AcGePoint2d& at, const char* what)
{
    for (const AcGeCurveCurveInt2d& found : {AcGeCurveCurveInt2d(a, b), AcGeCurveCurveInt2d(b, a)}) {
        ASSERT_EQ(found.numIntPoints(), 1) << what;
        EXPECT_LE(found.intPoint(0).distanceTo(at), 1e-7)
            << what; // a touch is flat: the square root of 1e-14
        EXPECT_TRUE(found.isTangential(0)) << what;
        EXPECT_EQ(found.overlapCount(), 0) << what;
    }
}
} // namespace

TEST(AcGeEllipArc2d, LengthIsAnEllipticIntegral)
{
    // 4 a E(k) for the whole, a (E - E(k, phi)) measured from the major axis; E from the standard library
    for (const double b : {5.0, 3.0, 1.0, 0.01}) {
        const AcGeEllipArc2d e = ellipse({1, 2}, 5, b, 0.3);
        const double k = std::sqrt(1 - b * b / 25);
        EXPECT_NEAR(e.length(0, 2 * kPi), 20 * std::comp_ellint_2(k), 1e-9 * 20);
        EXPECT_NEAR(e.length(0, 0.7), 5 * (std::comp_ellint_2(k) - std::ellint_2(k, kPi / 2 - 0.7)),
                    1e-9 * 5);
    }
}

TEST(Curves, AreasAreThoseOfTheirFigures)
{
    double area = 0;
    EXPECT_TRUE(AcGeCircArc2d({3, 4}, 2).area(0, 2 * kPi, area));
    EXPECT_NEAR(area, 4 * kPi, 1e-13);
    EXPECT_TRUE(AcGeCircArc2d({3, 4}, 2).area(1, 2, area)); // a segment: r^2 (angle - sin angle) / 2
    EXPECT_NEAR(area, 2 * (1 - std::sin(1.0)), 1e-13);
    ellipse({-7, 1}, 5, 3, 1).area(0, 2 * kPi, area);
    EXPECT_NEAR(area, 15 * kPi, 1e-12);
    circleSpline({100, -50}, 2).area(0, 2 * kPi, area);
    EXPECT_NEAR(area, 4 * kPi, 4 * kPi * 1e-9);
    AcGePolyline2d(AcGePoint2dArray{{0, 0}, {4, 0}, {4, 3}, {0, 0}}).area(0, 3, area);
    EXPECT_NEAR(area, 6, 1e-13);
    EXPECT_TRUE(AcGeCircArc3d({1, 2, 3}, {1, 1, 1}, 2).area(0, 2 * kPi, area));
    EXPECT_NEAR(area, 4 * kPi, 1e-12);
    EXPECT_FALSE(
        AcGePolyline3d(AcGePoint3dArray{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {1, 1, 1}}).area(0, 3, area));
}

TEST(CurveIntersections, FlatArcsKeepTheirCrossings)
{
    for (const double radius : {1e5, 1e7, 1e9})
        for (unsigned seed = 1; seed <= 200; ++seed) {
            RandomCurves random(seed);
            const AcGePoint2d a = random.point(), b = a + 3 * random.vector();
            const AcGeVector2d chord = b - a;
            const AcGeCircArc2d arc(a, b, (seed % 2 ? 1 : -1) * chord.length() / 4 / radius, false);
            const double sweep = arc.endAng() - arc.startAng();
            const AcGePoint2d p = arc.evalPoint(sweep * random.real(0.05, 0.95));
            // Through a point of the arc, at 0.3 radians or more to it.
            const AcGeVector2d u = chord.normal().rotateBy(random.real(0.3, kPi - 0.3)) * 3;
            // Rounding of the centre, seen at that angle; the other arc's height over its chord.
            const double off = std::max(1e-9, 1e-14 * radius) / std::sin(0.3),
                         height = u.lengthSqrd() / radius;
            const AcGeLineSeg2d across(p - u, p + u), ending(p, p + u);
            const AcGeCircArc2d other(p - u, p + u, u.length() / 2 / radius, false);
            for (const AcGeCurve2d* curve :
                 {static_cast<const AcGeCurve2d*>(&across), static_cast<const AcGeCurve2d*>(&ending),
                  static_cast<const AcGeCurve2d*>(&other)}) {
                const AcGeCurveCurveInt2d found(arc, *curve);
                ASSERT_EQ(found.numIntPoints(), 1) << radius << ' ' << seed;
                EXPECT_LE(found.intPoint(0).distanceTo(p), off + 4 * height) << radius << ' ' << seed;
            }
        }
}

TEST(CurveIntersections, FlatArcsAndTheirChordsMeetAtBothEnds)
{
    const AcGePoint2d a(3, 4), b(11, 10); // 10 apart: 1.25e-6 below the arc's middle
    const AcGeCircArc2d arc(a, b, 2.5e-7, false);
    const AcGeCurveCurveInt2d found(arc, AcGeLineSeg2d(a + (a - b), b + (b - a)));
    ASSERT_EQ(found.numIntPoints(), 2);
    // A difference of 1e-8 at the slope of 5e-7 radians that they cross at.
    EXPECT_LE(found.intPoint(0).distanceTo(a), 0.02);
    EXPECT_LE(found.intPoint(1).distanceTo(b), 0.02);
}

TEST(AcGeCircArc2d, ThreePointsAndBulgesGiveTheSameArc)
{
    for (unsigned seed = 1; seed <= 50; ++seed) {
        RandomCurves random(seed);
        const AcGePoint2d a = random.point(), b = random.point();
        const double angle = random.real(0.1, 6) * (seed % 2 ? 1 : -1), bulge = std::tan(angle / 4);
        const AcGeCircArc2d arc(a, b, bulge, false);
        EXPECT_NEAR(arc.endAng() - arc.startAng(), std::fabs(angle), 1e-12) << seed;
        EXPECT_EQ(arc.isClockWise(), bulge < 0);
        EXPECT_LE(arc.startPoint().distanceTo(a), 1e-11);
        EXPECT_LE(arc.endPoint().distanceTo(b), 1e-11);
        AcGeTol tol;
        tol.setEqualPoint(1e-9 * (1 + arc.radius()));
        EXPECT_TRUE(AcGeCircArc2d(a, b, bulge * a.distanceTo(b) / 2).isEqualTo(arc, tol)) << seed;
        EXPECT_TRUE(AcGeCircArc2d(a, arc.evalPoint(std::fabs(angle) / 3), b).isEqualTo(arc, tol)) << seed;
        const AcGePoint2d m = arc.evalPoint(std::fabs(angle) / 3);
        const AcGeCircArc3d space({a.x, a.y, 5}, {m.x, m.y, 5}, AcGePoint3d(b.x, b.y, 5));
        EXPECT_NEAR(space.endAng(), std::fabs(angle), 1e-8) << seed;
        EXPECT_NEAR(space.normal().z, bulge < 0 ? -1 : 1, 1e-9);
    }
    AcGeError error;
    AcGeCircArc2d arc({1, 1}, 3);
    arc.set({0, 0}, {1, 1}, {2, 2}, error);
    EXPECT_EQ(error, AcGe::kLinearlyDependentArg1Arg2Arg3);
    EXPECT_EQ(arc.radius(), 3);
}

TEST(CurveIntersections, OfTouchingCurvesAreOnePoint)
{
    const AcGeCircArc2d circle({0, 0}, 5);
    expectTouch(AcGeLine2d({-3, 5}, AcGeVector2d(2, 0)), circle, {0, 5}, "line, circle");
    expectTouch(AcGeCircArc2d({8, 0}, 3), circle, {5, 0}, "circles from outside");
    expectTouch(AcGeCircArc2d({2, 0}, 3), circle, {5, 0}, "circles from inside");
    expectTouch(AcGeCircArc2d({8e-6, 0}, 5 - 8e-6), circle, {5, 0}, "circles of nearly one radius");
    expectTouch(AcGeLineSeg2d({5, -1}, AcGePoint2d(5, 2)), circleSpline({0, 0}, 5), {5, 0},
                "segment, spline");
    expectTouch(ellipse({0, 8}, 5, 3, 0), circle, {0, 5}, "ellipse, circle");
    expectTouch(ellipse({0, 8}, 5, 3, 0), circleSpline({0, 0}, 5, 0.1, 3), {0, 5}, "ellipse, spline");
    expectTouch(AcGeLine2d({0, 3}, AcGeVector2d(1, 0)), ellipse({0, 0}, 5, 3), {0, 3}, "line, ellipse");
    // y = x^2 as a spline and the line y = 2 x - 1 touch at (1, 1)
    const double flat[] = {0, 0, 0, 1, 1, 1};
    const AcGeNurbCurve2d parabola(2, AcGeKnotVector(6, flat), {{0, 0}, {1, 0}, {2, 4}});
    expectTouch(AcGeLine2d({0, -1}, AcGeVector2d(1, 2)), parabola, {1, 1}, "line, parabola");
}

// A gap or a depth within the tolerance is a touch; beyond it there is nothing, or there are two points.
TEST(CurveIntersections, ToleranceDecidesNearTouches)
{
    const AcGeLine2d line({0, 0}, AcGeVector2d(1, 0));
    for (const double radius : {0.5, 5.0, 500.0})
        for (const bool spline : {false, true})
            for (const double shift : {-4e-10, -0.8e-10, 0.8e-10, 4e-10}) {
                const Curve2d curve(spline ? static_cast<AcGeCurve2d*>(
                                                 new AcGeNurbCurve2d(circleSpline({0, 0}, radius, 1, 5)))
                                           : new AcGeCircArc2d({0, 0}, radius));
                curve->translateBy({0, radius + shift}); // rests on the line, higher by shift
                const int expected = shift < -1e-10 ? 2 : shift > 1e-10 ? 0 : 1;
                EXPECT_EQ(AcGeCurveCurveInt2d(*curve, line).numIntPoints(), expected)
                    << radius << ' ' << shift << spline;
            }
}

TEST(CurveIntersections, OfCurvesThatShareAStretchAreOverlaps)
{
    AcGeInterval first, second;
    const AcGeLineSeg2d a({0, 0}, AcGePoint2d(10, 0)), b({14, 0}, AcGePoint2d(6, 0));
    const AcGeCurveCurveInt2d lines(a, b);
    ASSERT_EQ(lines.overlapCount(), 1);
    EXPECT_EQ(lines.numIntPoints(), 0);
    EXPECT_FALSE(lines.overlapDirection());
    lines.getOverlapRanges(0, first, second);
    EXPECT_NEAR(first.lowerBound(), 0.6, 1e-12);
    EXPECT_NEAR(first.upperBound(), 1, 1e-12);
    EXPECT_NEAR(second.lowerBound(), 0.5, 1e-12);

    // Arcs of one circle from 0 to 4 and, clockwise, from 1 back to -3.5: they share 0..1 and 2 pi - 3.5
    // .. 4.
    const AcGeCircArc2d long1({0, 0}, 2, 0, 4), long2({0, 0}, 2, -1, 3.5, AcGeVector2d::kXAxis, true);
    AcGeCurveCurveInt2d arcs(long1, long2);
    ASSERT_EQ(arcs.overlapCount(), 2);
    arcs.getOverlapRanges(0, first, second);
    EXPECT_NEAR(first.lowerBound(), 0, 1e-12);
    EXPECT_NEAR(first.upperBound(), 1, 1e-12);
    arcs.getOverlapRanges(1, first, second);
    EXPECT_NEAR(first.lowerBound(), 2 * kPi - 3.5, 1e-12);
    EXPECT_NEAR(first.upperBound(), 4, 1e-12);

    // A spline that is a circle exactly, against an arc of it.
    const AcGeCurveCurveInt2d mixed(circleSpline({0, 0}, 2, 0, 3), AcGeCircArc2d({0, 0}, 2, 1, 5));
    ASSERT_EQ(mixed.overlapCount(), 1);
    mixed.getOverlapRanges(0, first, second);
    EXPECT_LE(circleSpline({0, 0}, 2, 0, 3)
                  .evalPoint(first.lowerBound())
                  .distanceTo({2 * std::cos(1), 2 * std::sin(1)}),
              1e-9);
    EXPECT_NEAR(second.upperBound(), 3, 1e-9);
}

TEST(CurveIntersections, OfCurvesThatTouchAtTheirEndsAreThoseEnds)
{
    for (unsigned seed = 1; seed <= 20; ++seed)
        for (int kind = 2; kind < RandomCurves::kKinds; ++kind)
            for (int other = 2; other < RandomCurves::kKinds; ++other) {
                if (kind == 3 || other == 3) continue; // a circle has no ends
                RandomCurves random(seed * 100 + static_cast<unsigned>(kind * 10 + other));
                const Curve2d a = random.make(kind), b = random.make(other);
                AcGePoint2d end, start;
                ASSERT_TRUE(a->hasEndPoint(end) && b->hasStartPoint(start));
                b->translateBy(end - start);
                AcGeTol near;
                near.setEqualPoint(1e-9);
                EXPECT_TRUE(AcGeCurveCurveInt2d(*a, *b).isOn(end, near))
                    << seed << ' ' << RandomCurves::nameOf(kind) << ' ' << RandomCurves::nameOf(other);
            }
}

TEST(CurveIntersections, InSpaceNeedBothPlanes)
{
    const AcGeCircArc3d flat({0, 0, 0}, AcGeVector3d::kZAxis, 5), upright({5, 0, 0}, AcGeVector3d::kYAxis, 3);
    AcGeCurveCurveInt3d rings(
        flat, upright); // meet where y = 0, z = 0: x = 5 - 3 and 5 + 3, of which none is on the first
    EXPECT_EQ(rings.numIntPoints(), 0);
    const AcGeCircArc3d linked({4, 0, 0}, AcGeVector3d::kYAxis, 1);
    rings.set(flat, linked);
    ASSERT_EQ(rings.numIntPoints(), 1);
    EXPECT_LE(rings.intPoint(0).distanceTo({5, 0, 0}), 1e-12);
    AcGePoint3d p, q;
    int count;
    EXPECT_TRUE(flat.intersectWith(AcGePlane({3, 0, 0}, AcGeVector3d::kXAxis), count, p, q));
    EXPECT_EQ(count, 2);
    EXPECT_NEAR(std::fabs(p.y), 4, 1e-12);
    EXPECT_FALSE(flat.intersectWith(AcGeLine3d({3, 0, 1}, AcGeVector3d::kYAxis), count, p, q));
    EXPECT_TRUE(flat.intersectWith(AcGeLine3d({3, 4, 1}, AcGeVector3d::kZAxis), count, p, q));
    EXPECT_NEAR(flat.distanceTo(AcGeLine3d({3, 0, 1}, AcGeVector3d::kYAxis)), 1, 1e-9);
    EXPECT_NEAR(flat.distanceTo(AcGeCircArc3d({0, 0, 2}, AcGeVector3d::kZAxis, 5)), 2, 1e-9);
}

TEST(AcGeNurbCurve2d, FitPassesThroughItsPointsWithItsTangents)
{
    for (unsigned seed = 1; seed <= 10; ++seed)
        for (const auto rule : {AcGe::kChord, AcGe::kSqrtChord, AcGe::kUniform}) {
            RandomCurves random(seed);
            AcGePoint2dArray points = random.points(8);
            const AcGeVector2d start = random.vector(), end = random.vector();
            const AcGeNurbCurve2d curve(points, start, end, true, true, AcGeContext::gTol, rule);
            for (const AcGePoint2d& p : points)
                EXPECT_LE(curve.distanceTo(p), 1e-10) << seed;
            AcGeVector2dArray d;
            curve.evalPoint(curve.startParam(), 1, d);
            EXPECT_LE(d[0].angleTo(start), 1e-9);
            curve.evalPoint(curve.endParam(), 1, d);
            EXPECT_LE(d[0].angleTo(end), 1e-9);
            for (int i = 4; i < curve.numKnots() - 4; ++i) { // second derivatives do not jump
                AcGeVector2dArray before, after;
                const double knot = curve.knotAt(i), h = 1e-7 * curve.endParam();
                curve.evalPoint(knot - h, 2, before);
                curve.evalPoint(knot + h, 2, after);
                EXPECT_LE((before[1] - after[1]).length(), 1e-4 * (1 + before[1].length()));
            }
            points.append(points.first());
            const AcGeNurbCurve2d ring(points, AcGeContext::gTol, rule);
            EXPECT_TRUE(ring.isClosed());
            AcGeVector2dArray first, last;
            ring.evalPoint(ring.startParam(), 2, first);
            ring.evalPoint(ring.endParam(), 2, last);
            EXPECT_LE((first[0] - last[0]).length() + (first[1] - last[1]).length(),
                      1e-8 * (1 + first[1].length()));
        }
}

TEST(AcGeNurbCurve2d, KnotsDegreeTrimAndJoinKeepTheShape)
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        RandomCurves random(seed);
        const AcGeNurbCurve2d curve = random.spline();
        const double end = curve.endParam(), cut = random.real(0.1, end - 0.1);
        AcGeNurbCurve2d knots(curve), raised(curve), head(curve), tail(curve);
        knots.insertKnot(cut).insertKnot(cut).insertKnot(0.5);
        raised.elevateDegree(2);
        ASSERT_TRUE(head.hardTrimByParams(0, cut));
        ASSERT_TRUE(tail.hardTrimByParams(cut, end));
        AcGeError error;
        AcGeNurbCurve2d whole(head);
        whole.joinWith(tail, error);
        ASSERT_EQ(error, AcGe::kOk);
        EXPECT_EQ(raised.degree(), curve.degree() + 2);
        for (int i = 0; i <= 20; ++i) {
            const double t = end * i / 20;
            const AcGePoint2d p = curve.evalPoint(t);
            EXPECT_LE(knots.evalPoint(t).distanceTo(p), 1e-11) << seed;
            EXPECT_LE(raised.evalPoint(t).distanceTo(p), 1e-11) << seed;
            EXPECT_LE((t < cut ? head : tail).evalPoint(t).distanceTo(p), 1e-11) << seed;
            EXPECT_LE(whole.evalPoint(t).distanceTo(p), 1e-11) << seed;
        }
    }
}

TEST(AcGeNurbCurve2d, PeriodKnotsWrapRound)
{
    // A uniform quadratic ring over a square: the middle of each side is a knot.
    const double period[] = {0, 1, 2, 3, 4};
    const AcGeNurbCurve2d ring(2, AcGeKnotVector(5, period), {{1, 1}, {-1, 1}, {-1, -1}, {1, -1}}, true);
    double length;
    EXPECT_TRUE(ring.isPeriodic(length));
    EXPECT_EQ(length, 4);
    EXPECT_TRUE(ring.isClosed());
    EXPECT_LE(ring.evalPoint(0).distanceTo({0, 1}), 1e-12);
    EXPECT_LE(ring.evalPoint(2.5).distanceTo({0.75, -0.75}), 1e-12); // (corner * 6 + both neighbours) / 8
}

TEST(Curves, AffineMapsOfEllipsesMapTheirPoints)
{
    const AcGeEllipArc2d e = ellipse({1, 2}, 5, 2, 0.4);
    AcGeMatrix2d skew;
    skew.setCoordSystem({3, -1}, {1, 0.5}, {-0.3, 2});
    AcGeEllipArc2d image(e);
    image.transformBy(skew);
    EXPECT_TRUE(image.majorAxis().isPerpendicularTo(image.minorAxis()));
    for (int i = 0; i < 12; ++i)
        EXPECT_LE(image.distanceTo(skew * e.evalPoint(i * 0.5)), 1e-12);
    // A circle seen obliquely is an ellipse: radii 2 and 2 cos 60 degrees.
    const AcGeCircArc3d ring({0, 0, 4}, AcGeVector3d(std::sin(kPi / 3), 0, std::cos(kPi / 3)), 2);
    const std::unique_ptr<AcGeEntity3d> shadow(ring.orthoProject(AcGePlane::kXYPlane));
    ASSERT_TRUE(shadow && shadow->isKindOf(AcGe::kEllipArc3d));
    const auto& seen = static_cast<const AcGeEllipArc3d&>(*shadow);
    EXPECT_NEAR(seen.majorRadius(), 2, 1e-12);
    EXPECT_NEAR(seen.minorRadius(), 1, 1e-12);
}

TEST(Curves, OffsetsLieToTheLeft)
{
    AcGeVoidPointerArray list;
    AcGeLineSeg2d({0, 0}, AcGePoint2d(4, 0)).getTrimmedOffset(1, list);
    AcGeCircArc2d({0, 0}, 3).getTrimmedOffset(1, list);
    AcGeCircArc2d({0, 0}, 3, 0, 1, AcGeVector2d::kXAxis, true).getTrimmedOffset(1, list);
    AcGeCircArc2d({0, 0}, 3).getTrimmedOffset(3, list); // nothing is left of it
    ASSERT_EQ(list.length(), 3);
    EXPECT_TRUE(*static_cast<AcGeCurve2d*>(list[0]) == AcGeLineSeg2d({0, 1}, AcGePoint2d(4, 1)));
    EXPECT_TRUE(*static_cast<AcGeCurve2d*>(list[1]) == AcGeCircArc2d({0, 0}, 2));
    EXPECT_TRUE(*static_cast<AcGeCurve2d*>(list[2]) ==
                AcGeCircArc2d({0, 0}, 4, 0, 1, AcGeVector2d::kXAxis, true));
    for (void* curve : list)
        delete static_cast<AcGeCurve2d*>(curve);
}

// No answer is asked of them but an end.
TEST(Curves, DegenerateOnesComeToAnEnd)
{
    const double nan = std::nan(""), infinity = HUGE_VAL;
    std::vector<Curve2d> curves;
    for (const double bad : {nan, infinity, 0.0, 1e308, 1e-308}) {
        curves.push_back(std::make_unique<AcGeLineSeg2d>(AcGePoint2d(0, 0), AcGePoint2d(bad, 0)));
        curves.push_back(std::make_unique<AcGeLine2d>(AcGePoint2d(bad, 0), AcGeVector2d(bad, bad)));
        curves.push_back(std::make_unique<AcGeCircArc2d>(AcGePoint2d(0, bad), bad, bad, 1));
        curves.push_back(std::make_unique<AcGeEllipArc2d>(AcGePoint2d(0, 0), AcGeVector2d(1, 0),
                                                          AcGeVector2d(0, 1), bad, 1));
        curves.push_back(std::make_unique<AcGeNurbCurve2d>(AcGePoint2dArray{{0, 0}, {bad, 0}, {0, bad}}));
        curves.push_back(std::make_unique<AcGePolyline2d>(AcGePoint2dArray{{0, 0}, {bad, bad}, {bad, bad}}));
    }
    curves.push_back(std::make_unique<AcGeNurbCurve2d>());
    curves.push_back(std::make_unique<AcGeCompositeCurve2d>());
    curves.push_back(std::make_unique<AcGeCircArc2d>(AcGePoint2d(0, 0), 2));
    int checked = 0;
    for (const Curve2d& a : curves)
        for (const Curve2d& b : curves) {
            const AcGeCurveCurveInt2d found(*a, *b);
            AcGeInterval interval;
            a->getInterval(interval);
            double value = 0;
            a->area(interval.lowerBound(), interval.upperBound(), value);
            AcGePoint2dArray points;
            a->getSamplePoints(10, points);
            checked += found.numIntPoints() >= 0 && !(a->distanceTo(*b) < 0) && !(a->length(0, 1) < 0);
            checked += !(a->distanceTo(AcGePoint2d(1, 1)) < 0) && !(value < 0) && points.length() <= 10;
        }
    EXPECT_EQ(checked, 2 * static_cast<int>(curves.size() * curves.size()));
}
