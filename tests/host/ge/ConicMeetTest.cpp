/// Where ellipses, circles and lines of one plane meet, against points of known figures and against walks
/// along the curves that watch the sides change.

#include "RandomCurves.h"

#include <gtest/gtest.h>

namespace
{
using Points = std::vector<AcGePoint2d>;

AcGeEllipArc2d ellipse(const AcGePoint2d& centre, double a, double b, double turn = 0, double from = 0,
                       double to = 2 * kPi)
{
    const AcGeVector2d axis = AcGeVector2d(1, 0).rotateBy(turn);
    return {centre, axis, axis.perpVector(), a, b, from, to};
}

/// Places figures anywhere, at any size.
struct Placing {
    double scale, turn;
    AcGeVector2d shift;

    AcGePoint2d of(const AcGePoint2d& p) const
    {
        return AcGePoint2d() + p.asVector().rotateBy(turn) * scale + shift;
    }
    AcGeEllipArc2d of(double x, double y, double a, double b) const
    {
        return ellipse(of({x, y}), a * scale, b * scale, turn);
    }
};

const Placing placings[] = {
    {1, 0, {0, 0}}, {1, 0.7, {3, -2}}, {250, 2.1, {4e4, -7e4}}, {0.02, 1, {0.3, 0.1}}};

/// The meetings in any order; `touches` says what all of them are.
void expectMeetings(const AcGeCurve2d& a, const AcGeCurve2d& b, const Points& expected, bool touches,
                    double tol)
{
    const AcGeCurveCurveInt2d found(a, b);
    ASSERT_EQ(found.numIntPoints(), static_cast<int>(expected.size()));
    for (const AcGePoint2d& p : expected) {
        double nearest = HUGE_VAL;
        for (int i = 0; i < found.numIntPoints(); ++i)
            nearest = std::min(nearest, found.intPoint(i).distanceTo(p));
        EXPECT_LE(nearest, tol);
    }
    for (int i = 0; i < found.numIntPoints(); ++i)
        EXPECT_EQ(found.isTangential(i), touches) << i;
}

/// Figures around an ellipse of radii 5 and 3 at the origin.
struct Figure {
    const char* name;
    double x, y, a, b;
    Points meetings;
    bool touches;
    double tol; ///< in units of the figure; places of higher contact are wide
};

/// The side of a full ellipse on which a point is: below 0 inside.
double sideOf(const AcGeEllipArc2d& e, const AcGePoint2d& p)
{
    const AcGeVector2d to = p - e.center();
    return std::hypot(to.dotProduct(e.majorAxis()) / e.majorRadius(),
                      to.dotProduct(e.minorAxis()) / e.minorRadius()) -
           1;
}

bool isOnArc(const AcGeEllipArc2d& e, const AcGePoint2d& p)
{
    const AcGeVector2d to = p - e.center();
    const double at = std::atan2(to.dotProduct(e.minorAxis()) / e.minorRadius(),
                                 to.dotProduct(e.majorAxis()) / e.majorRadius());
    const double turns = std::ceil((e.startAng() - at) / (2 * kPi));
    return at + 2 * kPi * turns <= e.endAng();
}

/// Where a walk along `walked` passes through `other`, to the step of the walk.
Points crossingsOf(const AcGeCurve2d& walked, double from, double to, const AcGeEllipArc2d& other)
{
    constexpr int steps = 8000;
    Points crossings;
    AcGePoint2d before = walked.evalPoint(from);
    for (int i = 1; i <= steps; ++i) {
        const AcGePoint2d at = walked.evalPoint(from + (to - from) * i / steps);
        if ((sideOf(other, before) < 0) != (sideOf(other, at) < 0) && isOnArc(other, at))
            crossings.push_back(at);
        before = at;
    }
    return crossings;
}

/// Every crossing of the walk is found once, and everything found is on both curves.
void expectAll(const AcGeCurve2d& walked, const AcGeEllipArc2d& other, const Points& crossings, double step)
{
    const AcGeCurveCurveInt2d found(walked, other);
    EXPECT_GE(found.numIntPoints(), static_cast<int>(crossings.size()));
    for (const AcGePoint2d& p : crossings) {
        int near = 0;
        for (int i = 0; i < found.numIntPoints(); ++i)
            near += found.intPoint(i).distanceTo(p) <= step;
        EXPECT_GE(near, 1) << p.x << ' ' << p.y;
    }
    for (int i = 0; i < found.numIntPoints(); ++i) {
        double s = 0, t = 0;
        found.getIntParams(i, s, t);
        EXPECT_LE(walked.evalPoint(s).distanceTo(other.evalPoint(t)), 1e-9);
        EXPECT_LE(std::fabs(sideOf(other, found.intPoint(i))) * other.minorRadius(), 1e-9);
        for (int k = 0; k < i; ++k)
            EXPECT_GT(found.intPoint(i).distanceTo(found.intPoint(k)), 1e-8);
    }
}
} // namespace

TEST(ConicMeetings, OfKnownFiguresAreTheirs)
{
    const double x = 1 / std::sqrt(1.0 / 25 + 1.0 / 9); // where both equations are one with x = y
    const Figure figures[] = {
        {"turned by a right angle", 0, 0, 3, 5, {{x, x}, {-x, x}, {x, -x}, {-x, -x}}, false, 1e-9},
        {"circle between the vertices", 0, 0, 4, 4, {}, false, 1e-9},
        {"circle in it", 0, 0, 3, 3, {{0, 3}, {0, -3}}, true, 1e-6},
        {"circle around it", 0, 0, 5, 5, {{5, 0}, {-5, 0}}, true, 1e-6},
        {"circle at the end, inside", 4, 0, 1, 1, {{5, 0}}, true, 1e-6},
        {"circle at the end, outside", 7, 0, 2, 2, {{5, 0}}, true, 1e-6},
        // The circle of curvature at a vertex has four points in common there.
        {"circle of curvature", 3.2, 0, 1.8, 1.8, {{5, 0}}, true, 0.02},
        {"ellipse beside it", 0, 5, 4, 2, {{0, 3}}, true, 1e-6},
        {"ellipse far away", 12, 1, 4, 2, {}, false, 1e-9},
        {"small ellipse inside", 1, 1, 1, 0.5, {}, false, 1e-9},
    };
    for (const Placing& place : placings) {
        for (Figure figure : figures) {
            SCOPED_TRACE(std::string(figure.name) + " times " + std::to_string(place.scale));
            if (figure.a == 4 && figure.b == 4) { // x x + y y = 16 in the ellipse's equation
                const double u = std::sqrt((16 - 9) / (1 - 9.0 / 25)), v = std::sqrt(16 - u * u);
                figure.meetings = {{u, v}, {-u, v}, {u, -v}, {-u, -v}};
            }
            for (AcGePoint2d& p : figure.meetings)
                p = place.of(p);
            const AcGeEllipArc2d base = place.of(0, 0, 5, 3),
                                 other = place.of(figure.x, figure.y, figure.a, figure.b);
            expectMeetings(base, other, figure.meetings, figure.touches, figure.tol * place.scale);
            expectMeetings(other, base, figure.meetings, figure.touches, figure.tol * place.scale);
        }
    }
}

TEST(ConicMeetings, OfLinesAndAnEllipseAreThoseOfItsEquation)
{
    for (const Placing& place : placings) {
        SCOPED_TRACE(place.scale);
        const AcGeEllipArc2d base = place.of(0, 0, 5, 3);
        const auto line = [&](double y) { return AcGeLine2d(place.of({-2000, y}), place.of({700, y})); };
        expectMeetings(line(0), base, {place.of({5, 0}), place.of({-5, 0})}, false, 1e-8 * place.scale);
        expectMeetings(line(1.8), base, {place.of({4, 1.8}), place.of({-4, 1.8})}, false, 1e-8 * place.scale);
        expectMeetings(base, line(3), {place.of({0, 3})}, true, 1e-4 * place.scale);
        expectMeetings(line(3.001), base, {}, false, 0);
        const AcGeLineSeg2d half(place.of({0, 0}), place.of({9, 0})),
            inside(place.of({0, 0}), place.of({4.9, 0})), reaching(place.of({1, 0}), place.of({5, 0}));
        expectMeetings(half, base, {place.of({5, 0})}, false, 1e-9 * place.scale);
        expectMeetings(inside, base, {}, false, 0);
        expectMeetings(reaching, base, {place.of({5, 0})}, false, 1e-9 * place.scale);
    }
}

TEST(ConicMeetings, OfRandomArcsAreThoseOfAWalk)
{
    RandomCurves random(77);
    int crossed = 0;
    for (int i = 0; i < 600; ++i) {
        SCOPED_TRACE(i);
        const auto arc = [&] {
            const double from = random.real(-7, 7), a = random.real(1, 9);
            const double b = i % 3 ? random.real(0.02, 6) : a; // every third pair holds circles
            const AcGePoint2d centre(random.real(-3, 3), random.real(-3, 3));
            return ellipse(centre, a, b, random.real(0, 6), from, from + random.real(0.2, 2 * kPi));
        };
        const AcGeEllipArc2d walked = arc(), other = arc();
        const Points crossings = crossingsOf(walked, walked.startAng(), walked.endAng(), other);
        crossed += static_cast<int>(crossings.size());
        expectAll(walked, other, crossings, 0.05);
        const AcGeLineSeg2d segment(random.point(), random.point());
        expectAll(segment, other, crossingsOf(segment, 0, 1, other), 0.05);
    }
    EXPECT_GT(crossed, 200);
}

TEST(ConicMeetings, OfOneEllipseAreTheStretchesThatArcsShare)
{
    const AcGeEllipArc2d first = ellipse({1, 2}, 5, 3, 0.4, 0, 3), second = ellipse({1, 2}, 5, 3, 0.4, 2, 5);
    // The same ellipse from the other axis: its parameter runs a quarter turn behind.
    const AcGeEllipArc2d turned = ellipse({1, 2}, 3, 5, 0.4 + kPi / 2, 2 - kPi / 2, 5 - kPi / 2);
    for (const AcGeEllipArc2d& other : {second, turned}) {
        const AcGeCurveCurveInt2d found(first, other);
        EXPECT_EQ(found.numIntPoints(), 0);
        ASSERT_EQ(found.overlapCount(), 1);
        AcGeInterval onFirst, onOther;
        found.getOverlapRanges(0, onFirst, onOther);
        EXPECT_NEAR(onFirst.lowerBound(), 2, 1e-8);
        EXPECT_NEAR(onFirst.upperBound(), 3, 1e-8);
        EXPECT_LE(other.evalPoint(onOther.lowerBound()).distanceTo(first.evalPoint(2)), 1e-8);
    }
    const AcGeCurveCurveInt2d apart(first, ellipse({1, 2}, 5, 3, 0.4, 3.5, 5));
    EXPECT_EQ(apart.numIntPoints() + apart.overlapCount(), 0);
    const AcGeCurveCurveInt2d joined(first, ellipse({1, 2}, 5, 3, 0.4, 3, 5));
    EXPECT_EQ(joined.overlapCount(), 0);
    ASSERT_EQ(joined.numIntPoints(), 1);
    EXPECT_LE(joined.intPoint(0).distanceTo(first.evalPoint(3)), 1e-9);
}

TEST(ConicMeetings, EndsThatReachTheOtherCurveCount)
{
    const AcGeEllipArc2d whole = ellipse({0, 0}, 5, 3);
    // Its start is the vertex (5, 0); from there it runs outside.
    const AcGeEllipArc2d starting = ellipse({8, 0}, 3, 2, kPi, 0, 1);
    expectMeetings(whole, starting, {{5, 0}}, true, 1e-8);
    const AcGeEllipArc2d past = ellipse({8, 0}, 3, 2, kPi, 0.01, 1);
    expectMeetings(whole, past, {}, true, 1e-8);
}
