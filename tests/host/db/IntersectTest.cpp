/// Intersections of entities: of all pairs of classes against a walk along the one that watches its distance
/// to the other, and of special places against closed forms.

#include "CurveSamples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace
{
AcGePoint3dArray crossings(const AcDbEntity& a, const AcDbEntity& b,
                           AcDb::Intersect type = AcDb::kOnBothOperands)
{
    AcGePoint3dArray points;
    EXPECT_EQ(a.intersectWith(&b, type, points), Acad::eOk);
    return points;
}

/// Walks along a curve and finds where the distance to another one falls to nothing.
class Walk
{
public:
    Walk(const AcDbCurve& along, const AcDbCurve& other) : mAlong(along), mOther(other)
    {
        along.getStartParam(mStart);
        along.getEndParam(mEnd);
    }

    std::vector<AcGePoint3d> meetings() const
    {
        const int steps = AcDbSpline::cast(&mOther) ? 1500 : 6000;
        const double step = (mEnd - mStart) / steps;
        std::vector<double> distances;
        for (int i = 0; i <= steps; ++i)
            distances.push_back(distanceAt(mStart + i * step));
        std::vector<AcGePoint3d> found;
        for (int i = 0; i <= steps; ++i) {
            const bool least = (i == 0 || distances[i] <= distances[i - 1]) &&
                               (i == steps || distances[i] <= distances[i + 1]);
            if (!least) continue;
            const double at =
                minimum(mStart + std::max(i - 1, 0) * step, mStart + std::min(i + 1, steps) * step);
            if (distanceAt(at) < 1e-6) addOnce(found, pointAt(at));
        }
        return found;
    }

private:
    AcGePoint3d pointAt(double param) const
    {
        AcGePoint3d point;
        mAlong.getPointAtParam(param, point);
        return point;
    }

    double distanceAt(double param) const
    {
        AcGePoint3d nearest;
        mOther.getClosestPointTo(pointAt(param), nearest);
        return nearest.distanceTo(pointAt(param));
    }

    double minimum(double low, double high) const
    {
        for (int i = 0; i < 80; ++i) {
            const double a = low + (high - low) * 0.382, b = low + (high - low) * 0.618;
            (distanceAt(a) < distanceAt(b) ? high : low) = distanceAt(a) < distanceAt(b) ? b : a;
        }
        return (low + high) / 2.0;
    }

    static void addOnce(std::vector<AcGePoint3d>& points, const AcGePoint3d& point)
    {
        const bool known = std::any_of(points.begin(), points.end(),
                                       [&](const AcGePoint3d& p) { return p.distanceTo(point) < 1e-5; });
        if (!known) points.push_back(point);
    }

    const AcDbCurve& mAlong;
    const AcDbCurve& mOther;
    double mStart = 0.0, mEnd = 0.0;
};

struct Pair {
    CurveSample first, second;
};

void PrintTo(const Pair& pair, std::ostream* out)
{
    *out << pair.first.name << pair.second.name;
}

/// All pairs of classes in one tilted plane.
std::vector<Pair> allPairs()
{
    std::vector<CurveSample> samples = planarSamples("", tiltedNormal);
    samples.push_back({"Line", [] {
                           auto line =
                               std::make_unique<AcDbLine>(AcGePoint3d(-3, -1, 0), AcGePoint3d(7, 6, 0));
                           line->transformBy(AcGeMatrix3d::planeToWorld(tiltedNormal));
                           return line;
                       }});
    samples.push_back({"Polyline3d", [] {
                           AcGePoint3dArray points;
                           for (const AcGePoint3d& p : {AcGePoint3d(0, 5, 1), AcGePoint3d(5, 4, 1),
                                                        AcGePoint3d(2, -1, 1), AcGePoint3d(-2, 2, 1)})
                               points.append(p);
                           auto polyline =
                               std::make_unique<AcDb3dPolyline>(AcDb::k3dSimplePoly, points, true);
                           polyline->transformBy(AcGeMatrix3d::planeToWorld(tiltedNormal));
                           return polyline;
                       }});
    std::vector<Pair> pairs;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        for (std::size_t j = i; j < samples.size(); ++j)
            pairs.push_back({samples[i], samples[j]});
    }
    return pairs;
}

class EveryPair : public testing::TestWithParam<Pair>
{
};

/// Puts a curve into the plane through the origin and turns and moves it there.
void place(AcDbCurve& curve, double angle, double x, double y)
{
    AcGePlane plane;
    AcDb::Planarity planarity;
    ASSERT_EQ(curve.getPlane(plane, planarity), Acad::eOk);
    const AcGeMatrix3d local = AcGeMatrix3d::worldToPlane(tiltedNormal);
    const double height = (local * plane.pointOnPlane()).z;
    const AcGeMatrix3d map = AcGeMatrix3d::translation({x, y, 0.0}) *
                             AcGeMatrix3d::rotation(angle, AcGeVector3d::kZAxis, {2.0, 3.0, 0.0}) *
                             AcGeMatrix3d::translation({0.0, 0.0, -height});
    ASSERT_EQ(curve.transformBy(local.inverse() * map * local), Acad::eOk);
}
} // namespace

TEST_P(EveryPair, MeetsWhereTheDistanceIsNothing)
{
    std::mt19937 random(4711);
    std::uniform_real_distribution<double> angle(0.0, 6.28), shift(-2.0, 2.0);
    for (int round = 0; round < 3; ++round) {
        const std::unique_ptr<AcDbCurve> first = GetParam().first.make(), second = GetParam().second.make();
        place(*first, 0.0, 0.0, 0.0);
        place(*second, angle(random), shift(random), shift(random));
        const AcGePoint3dArray points = crossings(*first, *second);
        for (const AcGePoint3d& p : points) {
            AcGePoint3d onFirst, onSecond;
            first->getClosestPointTo(p, onFirst);
            second->getClosestPointTo(p, onSecond);
            EXPECT_LT(onFirst.distanceTo(p), 1e-9);
            EXPECT_LT(onSecond.distanceTo(p), 1e-9);
        }
        const std::vector<AcGePoint3d> expected = Walk(*first, *second).meetings();
        EXPECT_EQ(points.length(), static_cast<int>(expected.size()));
        EXPECT_EQ(crossings(*second, *first).length(), points.length());
        for (const AcGePoint3d& wanted : expected) {
            double nearest = 1.0;
            for (const AcGePoint3d& p : points)
                nearest = std::min(nearest, p.distanceTo(wanted));
            EXPECT_LT(nearest, 1e-5);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Classes, EveryPair, testing::ValuesIn(allPairs()),
                         [](const testing::TestParamInfo<Pair>& info) {
                             return info.param.first.name + "With" + info.param.second.name;
                         });

namespace
{
using PointList = std::vector<AcGePoint3d>;

void expectPoints(const AcGePoint3dArray& points, const PointList& expected, const char* what)
{
    ASSERT_EQ(points.length(), static_cast<int>(expected.size())) << what;
    for (int i = 0; i < points.length(); ++i)
        EXPECT_LT(points[i].distanceTo(expected[static_cast<std::size_t>(i)]), 1e-9) << what << ' ' << i;
}

AcDbPolyline openZigzag(int vertices)
{
    AcDbPolyline zigzag;
    for (int i = 0; i < vertices; ++i)
        zigzag.addVertexAt(static_cast<unsigned>(i), {static_cast<double>(i), i % 2 ? 1.0 : -1.0});
    return zigzag;
}
} // namespace

TEST(Intersect, TouchingAndSharedPlacesAreFoundOnce)
{
    const AcDbCircle circle({0, 0, 0}, AcGeVector3d::kZAxis, 5.0);
    const AcDbCircle outside({8, 0, 0}, AcGeVector3d::kZAxis, 3.0),
        inside({2, 0, 0}, AcGeVector3d::kZAxis, 3.0);
    const AcDbLine tangent({-9, 5, 0}, {9, 5, 0}), ending({5, 0, 0}, {9, 9, 0}),
        across({0, 0, -1}, {0, 0, 1});
    expectPoints(crossings(circle, outside), {{5, 0, 0}}, "circles from outside");
    expectPoints(crossings(circle, inside), {{5, 0, 0}}, "circles from inside");
    expectPoints(crossings(circle, tangent), {{0, 5, 0}}, "tangent line");
    expectPoints(crossings(ending, circle), {{5, 0, 0}}, "line that ends on it");
    expectPoints(crossings(circle, across), {}, "line through the centre, along the axis");
    expectPoints(crossings(circle, circle), {}, "one and the same circle");
}

TEST(Intersect, FlatSegmentsOfPolylinesCountTheirJointsOnce)
{
    // Two arcs with a radius of 1e7 (a chord of 10, a bulge of 10 / 4e7) that join where a line passes.
    AcDbPolyline path;
    path.addVertexAt(0, {0, 0}, 2.5e-7);
    path.addVertexAt(1, {10, 0}, -2.5e-7);
    path.addVertexAt(2, {20, 0});
    const AcDbLine joint({10, -5, 0}, {10, 5, 0}), ending({10, 0, 0}, {13, 5, 0});
    for (const AcDbLine* line : {&joint, &ending}) {
        const AcGePoint3dArray points = crossings(path, *line);
        ASSERT_EQ(points.length(), 1);
        EXPECT_LT(points[0].distanceTo({10, 0, 0}), 1e-7); // rounding: 4e-15 times the radius
    }
}

TEST(Intersect, SharedStretchesGiveTheirEnds)
{
    const AcDbLine line({0, 0, 0}, {10, 0, 0}), part({14, 0, 0}, {4, 0, 0}), beyond({11, 0, 0}, {12, 0, 0});
    expectPoints(crossings(line, part), {{4, 0, 0}, {10, 0, 0}}, "lines");
    expectPoints(crossings(line, beyond), {}, "lines with a gap");
    const AcDbArc quarter({0, 0, 0}, 2.0, 0.0, 1.5707963267948966),
        half({0, 0, 0}, 2.0, 0.7853981633974483, 3.0);
    expectPoints(crossings(quarter, half), {{std::sqrt(2.0), std::sqrt(2.0), 0}, {0, 2, 0}}, "arcs");
}

TEST(Intersect, ExtensionsFollowTheMode)
{
    const AcDbLine wall({0, 0, 0}, {4, 0, 0}), post({6, 5, 0}, {6, 2, 0});
    const PointList corner{{6, 0, 0}};
    expectPoints(crossings(wall, post), {}, "as they are");
    expectPoints(crossings(wall, post, AcDb::kExtendThis), {}, "the wall alone");
    expectPoints(crossings(wall, post, AcDb::kExtendArg), {}, "the post alone");
    expectPoints(crossings(wall, post, AcDb::kExtendBoth), corner, "both");
    const AcDbLine low({6, -1, 0}, {6, 2, 0});
    expectPoints(crossings(wall, low, AcDb::kExtendThis), corner, "the wall reaches");
    const AcDbLine parallel({0, 1, 0}, {4, 1, 0});
    expectPoints(crossings(wall, parallel, AcDb::kExtendBoth), {}, "parallel");
    const AcDbArc arc({0, 0, 0}, 5.0, 0.1, 1.0);
    const AcDbLine left({-9, 3, 0}, {0, 3, 0});
    expectPoints(crossings(arc, left, AcDb::kExtendThis), {{-4, 3, 0}}, "an arc becomes its circle");
}

TEST(Intersect, PolylinesExtendByTheirFirstAndLastSegments)
{
    AcDbPolyline hook;
    hook.addVertexAt(0, {0, 0});
    hook.addVertexAt(1, {4, 0});
    hook.addVertexAt(2, {4, 4});
    const AcDbLine left({-3, -1, 0}, {-3, 1, 0}), above({0, 6, 0}, {9, 6, 0}), below({0, -2, 0}, {9, -2, 0});
    expectPoints(crossings(hook, left, AcDb::kExtendThis), {{-3, 0, 0}}, "before the start");
    expectPoints(crossings(hook, above, AcDb::kExtendThis), {{4, 6, 0}}, "beyond the end");
    expectPoints(crossings(hook, below, AcDb::kExtendThis), {}, "the corner does not extend");
    hook.setClosed(true);
    expectPoints(crossings(hook, left, AcDb::kExtendThis), {}, "closed ones do not extend");
}

TEST(Intersect, PointsFollowTheFirstEntityAndVerticesCountOnce)
{
    const AcDbPolyline zigzag = openZigzag(6);
    const AcDbLine backwards({5, 0, 0}, {0, 0, 0});
    expectPoints(crossings(zigzag, backwards),
                 {{0.5, 0, 0}, {1.5, 0, 0}, {2.5, 0, 0}, {3.5, 0, 0}, {4.5, 0, 0}}, "along the polyline");
    expectPoints(crossings(backwards, zigzag),
                 {{4.5, 0, 0}, {3.5, 0, 0}, {2.5, 0, 0}, {1.5, 0, 0}, {0.5, 0, 0}}, "along the line");
    const AcDbLine top({0, 1, 0}, {5, 1, 0});
    expectPoints(crossings(zigzag, top), {{1, 1, 0}, {3, 1, 0}, {5, 1, 0}}, "at vertices");
}

TEST(Intersect, LongPolylinesMeetEveryTime)
{
    // Two zigzags of 10,000 vertices, the second half a step further: it is crossed a quarter
    // of a step behind each inner vertex of the first.
    const AcDbPolyline first = openZigzag(10000);
    AcDbPolyline second = openZigzag(10000);
    ASSERT_EQ(second.transformBy(AcGeMatrix3d::translation({0.5, 0.0, 0.0})), Acad::eOk);
    const AcGePoint3dArray points = crossings(first, second);
    EXPECT_EQ(points.length(), 9998);
    for (int i = 1; i < points.length(); ++i)
        EXPECT_GT(points[i].x, points[i - 1].x);
}

TEST(Intersect, ProjectionSeesApparentCrossings)
{
    const AcDbLine low({0, 0, 0}, {10, 10, 0}), high({0, 10, 7}, {10, 0, 9});
    const AcDbCircle standing({5, 0, 3}, AcGeVector3d::kYAxis, 2.0);
    expectPoints(crossings(low, high), {}, "in space");
    AcGePoint3dArray points;
    ASSERT_EQ(high.intersectWith(&low, AcDb::kOnBothOperands, AcGePlane::kXYPlane, points), Acad::eOk);
    expectPoints(points, {{5, 5, 8}}, "seen from above, on the first");
    points.setLogicalLength(0);
    const AcDbLine crossing({4, -1, -5}, {4, 1, -5});
    ASSERT_EQ(crossing.intersectWith(&standing, AcDb::kOnBothOperands, AcGePlane::kXYPlane, points),
              Acad::eOk);
    expectPoints(points, {{4, 0, -5}}, "a circle seen from its edge is a segment");
}

TEST(Intersect, MisuseHasItsStatus)
{
    const AcDbLine line({0, 0, 0}, {1, 0, 0});
    AcGePoint3dArray points;
    EXPECT_EQ(line.intersectWith(nullptr, AcDb::kOnBothOperands, points), Acad::eNullEntityPointer);
    EXPECT_EQ(line.intersectWith(&line, static_cast<AcDb::Intersect>(7), points), Acad::eInvalidInput);
    const AcDbPolyline empty;
    EXPECT_EQ(line.intersectWith(&empty, AcDb::kExtendBoth, points), Acad::eOk);
    EXPECT_TRUE(points.isEmpty());
}
