/// Every class of curve against walks along it with many small steps: an answer that owes nothing to the
/// code.

#include "RandomCurves.h"

#include <gtest/gtest.h>

namespace
{
constexpr int kSeeds = 12;

double greatestStep(const AcGePoint2dArray& walk)
{
    double step = 0;
    for (int i = 1; i < walk.length(); ++i)
        step = std::max(step, walk[i].distanceTo(walk[i - 1]));
    return step;
}

AcGeMatrix3d somewhere(RandomCurves& random)
{
    AcGeMatrix3d place = AcGeMatrix3d::rotation(random.real(0, 6), {1, 2, 0.5});
    return place.setTranslation({random.real(-5, 5), 3, -4});
}

/// Calls f(seed, kind, other) for all pairs of classes.
template <class F>
void forPairs(const F& f)
{
    for (unsigned seed = 1; seed <= kSeeds; ++seed)
        for (int kind = 0; kind < RandomCurves::kKinds; ++kind)
            for (int other = 0; other <= kind; ++other) {
                SCOPED_TRACE("seed " + std::to_string(seed) + ' ' + RandomCurves::nameOf(kind) + " and " +
                             RandomCurves::nameOf(other));
                RandomCurves random(seed * 1000 + static_cast<unsigned>(kind * 10 + other));
                f(random, kind, other);
            }
}
} // namespace

class EveryCurve : public testing::TestWithParam<int>
{
};

TEST_P(EveryCurve, ClosestPointIsTheNearestOfAWalk)
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        SCOPED_TRACE(seed);
        RandomCurves random(seed);
        const Curve2d curve = random.make(GetParam());
        AcGePoint2dArray walk;
        AcGeDoubleArray params;
        walkOf(*curve, 3000, walk, params);
        const double step = greatestStep(walk);
        for (int i = 0; i < 10; ++i) {
            const AcGePoint2d p = random.point();
            double nearest = 1e300;
            for (const AcGePoint2d& w : walk)
                nearest = std::min(nearest, w.distanceTo(p));
            const double distance = curve->distanceTo(p);
            EXPECT_LE(distance, nearest + 1e-12);
            EXPECT_GE(distance, nearest - step);
            EXPECT_NEAR(curve->closestPointTo(p).distanceTo(p), distance, 1e-12);
            EXPECT_NEAR(curve->evalPoint(curve->paramOf(p)).distanceTo(p), distance, 1e-12);
        }
        for (int i = 0; i < walk.length(); i += 271) {
            EXPECT_TRUE(curve->isOn(walk[i]));
            EXPECT_LE(curve->evalPoint(curve->paramOf(walk[i])).distanceTo(walk[i]), 1e-10);
        }
    }
}

// The length of a polygon with corrections for its chords (Richardson: (4 fine - coarse) / 3 has an error of
// the fourth order in the step). Curves with corners are walked part by part.
TEST_P(EveryCurve, LengthIsTheLimitOfPolygons)
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        RandomCurves random(seed);
        const Curve2d curve = random.make(GetParam());
        AcGeInterval whole;
        curve->getInterval(whole);
        AcGeVoidPointerArray parts;
        AcGeIntArray flags;
        if (!curve->explode(parts, flags)) parts.append(curve->copy());
        double coarse = 0, fine = 0;
        for (void* part : parts) {
            const Curve2d own(static_cast<AcGeCurve2d*>(part));
            AcGePoint2dArray walk;
            AcGeDoubleArray params;
            walkOf(*own, 24001, walk, params); // the breaks of the splines fall on points of the walk
            for (int i = 2; i < walk.length(); i += 2) {
                coarse += walk[i].distanceTo(walk[i - 2]);
                fine += walk[i].distanceTo(walk[i - 1]) + walk[i - 1].distanceTo(walk[i - 2]);
            }
        }
        const double lo = whole.isBoundedBelow() ? whole.lowerBound() : -50;
        const double hi = whole.isBoundedAbove() ? whole.upperBound() : 50;
        EXPECT_NEAR(curve->length(lo, hi), (4 * fine - coarse) / 3, 1e-8 * fine) << seed;
    }
}

TEST_P(EveryCurve, DerivativesAreThoseOfDifferences)
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        RandomCurves random(seed);
        const Curve2d curve = random.make(GetParam());
        AcGePoint2dArray walk;
        AcGeDoubleArray params;
        walkOf(*curve, 2, walk, params);
        const double t = random.real(params.first(), params.last()),
                     h = 1e-5 * (params.last() - params.first());
        AcGeVector2dArray d;
        const AcGePoint2d here = curve->evalPoint(t, 2, d), before = curve->evalPoint(t - h),
                          after = curve->evalPoint(t + h);
        EXPECT_LE((d[0] - (after - before) / (2 * h)).length(), 1e-5 * (1 + d[0].length())) << seed;
        const AcGeVector2d bend = ((after - here) - (here - before)) / (h * h);
        EXPECT_LE((d[1] - bend).length(), 1e-2 * (1 + d[1].length())) << seed;
    }
}

TEST_P(EveryCurve, ParameterAtLengthHasThatLength)
{
    for (unsigned seed = 1; seed <= 10; ++seed) {
        RandomCurves random(seed);
        const Curve2d curve = random.make(GetParam());
        AcGePoint2dArray walk;
        AcGeDoubleArray params;
        walkOf(*curve, 3, walk, params);
        const double lo = params.first(), hi = params.last(), whole = curve->length(lo, hi);
        for (const double share : {0.0, 0.1, 0.5, 0.93, 1.0}) {
            const double t = curve->paramAtLength(lo, whole * share);
            EXPECT_NEAR(curve->length(lo, t), whole * share, 1e-11 * whole) << seed;
            EXPECT_NEAR(curve->length(curve->paramAtLength(hi, whole * share, false), hi), whole * share,
                        1e-11 * whole);
        }
    }
}

TEST_P(EveryCurve, ReversedCopiesAndPiecesHaveTheSamePoints)
{
    for (unsigned seed = 1; seed <= 10; ++seed) {
        SCOPED_TRACE(seed);
        RandomCurves random(seed);
        const Curve2d curve = random.make(GetParam());
        const Curve2d turned(static_cast<AcGeCurve2d*>(curve->copy()));
        EXPECT_TRUE(curve->isEqualTo(*turned));
        turned->reverseParam();
        EXPECT_FALSE(curve->isEqualTo(*turned));
        AcGePoint2d a, b;
        EXPECT_EQ(curve->hasStartPoint(a), turned->hasEndPoint(b));
        EXPECT_LE(a.distanceTo(b), 1e-12);
        AcGePoint2dArray walk;
        AcGeDoubleArray params;
        walkOf(*curve, 40, walk, params);
        for (const AcGePoint2d& p : walk)
            EXPECT_LE(turned->distanceTo(p), 1e-10);
        AcGeCurve2d *head, *tail;
        const double cut = random.real(params.first(), params.last());
        curve->getSplitCurves(cut, head, tail);
        const Curve2d ownHead(head), ownTail(tail);
        if (GetParam() < 2) continue; // an unbounded line has no bounded pieces of its class
        for (int i = 0; i < walk.length(); ++i)
            EXPECT_LE((params[i] < cut ? head : tail)->evalPoint(params[i]).distanceTo(walk[i]), 1e-10);
    }
}

TEST_P(EveryCurve, BoundingBlockTouchesItsWalkOnEverySide)
{
    if (GetParam() < 2) return;
    for (unsigned seed = 1; seed <= 20; ++seed) {
        RandomCurves random(seed);
        const Curve2d curve = random.make(GetParam());
        AcGePoint2dArray walk;
        AcGeDoubleArray params;
        walkOf(*curve, 5000, walk, params);
        AcGePoint2d low, high, min = walk[0], max = walk[0];
        curve->boundBlock().getMinMaxPoints(low, high);
        for (const AcGePoint2d& p : walk)
            for (unsigned int axis = 0; axis < 2; ++axis) {
                min[axis] = std::min(min[axis], p[axis]);
                max[axis] = std::max(max[axis], p[axis]);
            }
        for (unsigned int axis = 0; axis < 2; ++axis) {
            EXPECT_LE(low[axis], min[axis] + 1e-12) << seed;
            EXPECT_GE(high[axis], max[axis] - 1e-12) << seed;
            // steps of 1/5000 miss a smooth extreme by their square, a corner by themselves
            const double missed = GetParam() < 7 ? 1e-4 : greatestStep(walk);
            EXPECT_NEAR(low[axis], min[axis], missed) << seed;
            EXPECT_NEAR(high[axis], max[axis], missed) << seed;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryCurve, testing::Range(0, RandomCurves::kKinds),
                         [](const auto& info) { return RandomCurves::nameOf(info.param); });

// Two polygons that approximate the curves cross next to every crossing of the curves; what the polygons show
// beyond doubt (their segments cross well inside) must be reported, and what is reported must be on both
// curves.
TEST(CurveIntersections, OfAllPairsAgreeWithCrossingPolygons)
{
    int crossings = 0;
    forPairs([&](RandomCurves& random, int kind, int other) {
        const Curve2d a = random.make(kind), b = random.make(other);
        const AcGeCurveCurveInt2d found(*a, *b);
        for (int i = 0; i < found.numIntPoints(); ++i) {
            EXPECT_LE(a->distanceTo(found.intPoint(i)), 1e-9);
            EXPECT_LE(b->distanceTo(found.intPoint(i)), 1e-9);
            for (int k = 0; k < i; ++k)
                EXPECT_GT(found.intPoint(i).distanceTo(found.intPoint(k)), 1e-9);
        }
        AcGePoint2dArray p, q;
        AcGeDoubleArray s, t;
        walkOf(*a, 500, p, s);
        walkOf(*b, 500, q, t);
        for (int i = 1; i < p.length(); ++i)
            for (int k = 1; k < q.length(); ++k) {
                const AcGeVector2d u = p[i] - p[i - 1], v = q[k] - q[k - 1], w = q[k - 1] - p[i - 1];
                const double det = u.crossProduct(v);
                if (std::fabs(det) < 0.05 * u.length() * v.length()) continue;
                const double x = w.crossProduct(v) / det, y = w.crossProduct(u) / det;
                if (x < 0.05 || x > 0.95 || y < 0.05 || y > 0.95) continue;
                ++crossings;
                const AcGePoint2d seen = p[i - 1] + u * x;
                double nearest = 1e300;
                for (int n = 0; n < found.numIntPoints(); ++n)
                    nearest = std::min(nearest, found.intPoint(n).distanceTo(seen));
                EXPECT_LE(nearest, u.length() + v.length());
            }
    });
    EXPECT_GT(crossings, 500);
}

TEST(CurveIntersections, AreTheSameInSpaceAndInEitherOrder)
{
    forPairs([](RandomCurves& random, int kind, int other) {
        const Curve2d a = random.make(kind), b = random.make(other);
        const AcGeMatrix3d place = somewhere(random);
        const Curve3d c = liftOf(*a, place), d = liftOf(*b, place);
        const AcGeCurveCurveInt2d flat(*a, *b), turned(*b, *a);
        AcGeTol tol;
        tol.setEqualPoint(1e-9); // rounding of the map
        const AcGeCurveCurveInt3d space(*c, *d, AcGeVector3d(), tol);
        ASSERT_EQ(flat.numIntPoints(), turned.numIntPoints());
        ASSERT_EQ(flat.numIntPoints(), space.numIntPoints());
        for (int i = 0; i < flat.numIntPoints(); ++i) {
            const AcGePoint2d p = flat.intPoint(i);
            EXPECT_TRUE(turned.isOn(p, tol));
            tol.setEqualPoint(1e-7);
            EXPECT_TRUE(space.isOn(place * AcGePoint3d(p.x, p.y, 0), tol));
        }
    });
}

TEST(CurveDistance, OfAllPairsIsTheLeastOfTwoWalks)
{
    forPairs([](RandomCurves& random, int kind, int other) {
        const Curve2d a = random.make(kind), b = random.make(other);
        AcGePoint2d onB;
        const AcGePoint2d onA = a->closestPointTo(*b, onB);
        const double distance = a->distanceTo(*b);
        EXPECT_NEAR(onA.distanceTo(onB), distance, 1e-12);
        EXPECT_LE(a->distanceTo(onA), 1e-9);
        EXPECT_LE(b->distanceTo(onB), 1e-9);
        EXPECT_NEAR(b->distanceTo(*a), distance, 1e-8);
        AcGePoint2dArray p;
        AcGeDoubleArray s;
        walkOf(*a, 300, p, s);
        double nearest = 1e300;
        for (const AcGePoint2d& w : p)
            nearest = std::min(nearest, b->distanceTo(w));
        EXPECT_LE(distance, nearest + 1e-9);
        EXPECT_TRUE(kind == 0 ||
                    distance >= nearest - greatestStep(p)); // two lines may meet far outside of the walk
        EXPECT_TRUE(AcGeCurveCurveInt2d(*a, *b).numIntPoints() == 0 || distance <= 1e-8);
    });
}
