/// Object snaps and grips of entities against closed forms.

#include "DatabaseFixture.h"
#include "dbelipse.h"
#include "dbents.h"
#include "dbpl.h"
#include "dbspline.h"

#include <cmath>

namespace
{
std::vector<AcGePoint3d> snaps(const AcDbEntity& entity, AcDb::OsnapMode mode, const AcGePoint3d& pick,
                               const AcGePoint3d& last = AcGePoint3d())
{
    AcGePoint3dArray points;
    AcDbIntArray ids;
    EXPECT_EQ(entity.getOsnapPoints(mode, 0, pick, last, AcGeMatrix3d::kIdentity, points, ids), Acad::eOk);
    return {points.begin(), points.end()};
}

bool hasNear(const std::vector<AcGePoint3d>& points, const AcGePoint3d& wanted)
{
    for (const AcGePoint3d& point : points) {
        if (point.distanceTo(wanted) < 1e-9) return true;
    }
    return false;
}
} // namespace

TEST(Osnap, LineGivesEndsMiddleFootAndNearest)
{
    const AcDbLine line(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
    EXPECT_TRUE(hasNear(snaps(line, AcDb::kOsModeEnd, {9, 0, 0}), {10, 0, 0}));
    EXPECT_TRUE(hasNear(snaps(line, AcDb::kOsModeMid, {9, 0, 0}), {5, 0, 0}));
    EXPECT_TRUE(hasNear(snaps(line, AcDb::kOsModeNear, {3, 1, 0}), {3, 0, 0}));
    EXPECT_TRUE(hasNear(snaps(line, AcDb::kOsModePerp, {9, 0, 0}, {12, 5, 0}), {12, 0, 0}))
        << "beyond its end";
    EXPECT_TRUE(snaps(line, AcDb::kOsModeCen, {9, 0, 0}).empty());
}

TEST(Osnap, CircleGivesTangentsAndQuadrants)
{
    const AcDbCircle circle(AcGePoint3d(0, 0, 0), AcGeVector3d::kZAxis, 3.0);
    EXPECT_TRUE(hasNear(snaps(circle, AcDb::kOsModeCen, {3, 0, 0}), {0, 0, 0}));
    EXPECT_TRUE(hasNear(snaps(circle, AcDb::kOsModeQuad, {0.1, 3, 0}), {0, 3, 0}));
    // From (5, 0): cos = 3/5.
    const auto tangents = snaps(circle, AcDb::kOsModeTan, {3, 0, 0}, {5, 0, 0});
    EXPECT_EQ(tangents.size(), 2u);
    EXPECT_TRUE(hasNear(tangents, {1.8, 2.4, 0}) && hasNear(tangents, {1.8, -2.4, 0}));
    EXPECT_TRUE(hasNear(snaps(circle, AcDb::kOsModePerp, {3, 0, 0}, {0, 7, 0}), {0, 3, 0}));
    EXPECT_TRUE(snaps(circle, AcDb::kOsModeTan, {3, 0, 0}, {1, 0, 0}).empty()) << "from inside";
}

TEST(Osnap, ArcGivesOnlyWhatLiesOnIt)
{
    const double pi = std::acos(-1.0);
    const AcDbArc arc(AcGePoint3d(1, 1, 0), 2.0, 0.0, pi / 2);
    EXPECT_TRUE(hasNear(snaps(arc, AcDb::kOsModeEnd, {1, 4, 0}), {1, 3, 0}));
    EXPECT_TRUE(
        hasNear(snaps(arc, AcDb::kOsModeMid, {1, 4, 0}), {1 + std::sqrt(2.0), 1 + std::sqrt(2.0), 0}));
    for (const AcGePoint3d& point : snaps(arc, AcDb::kOsModeQuad, {-1, 1, 0}))
        EXPECT_TRUE(point.x >= 1.0 - 1e-9 && point.y >= 1.0 - 1e-9);
}

TEST(Osnap, EllipseGivesQuadrantsAndTangents)
{
    const AcDbEllipse ellipse(AcGePoint3d(0, 0, 0), AcGeVector3d::kZAxis, AcGeVector3d(4, 0, 0), 0.5);
    EXPECT_TRUE(hasNear(snaps(ellipse, AcDb::kOsModeCen, {4, 0, 0}), {0, 0, 0}));
    EXPECT_TRUE(hasNear(snaps(ellipse, AcDb::kOsModeQuad, {0.1, 2, 0}), {0, 2, 0}));
    // Scaled to the unit circle the point is (2, 0): tangents at cos 1/2, so at (2, +-sqrt(3)).
    const auto tangents = snaps(ellipse, AcDb::kOsModeTan, {4, 0, 0}, {8, 0, 0});
    EXPECT_EQ(tangents.size(), 2u);
    EXPECT_TRUE(hasNear(tangents, {2, std::sqrt(3.0), 0}) && hasNear(tangents, {2, -std::sqrt(3.0), 0}));
    const AcDbEllipse half(AcGePoint3d(0, 0, 0), AcGeVector3d::kZAxis, AcGeVector3d(4, 0, 0), 0.5, 0.1, 3.0);
    EXPECT_TRUE(hasNear(snaps(half, AcDb::kOsModeTan, {4, 0, 0}, {8, 0, 0}), {2, std::sqrt(3.0), 0}));
    EXPECT_EQ(snaps(half, AcDb::kOsModeTan, {4, 0, 0}, {8, 0, 0}).size(), 1u);
    EXPECT_TRUE(hasNear(snaps(half, AcDb::kOsModeQuad, {4, 0, 0}), {0, 2, 0}));
}

TEST(Osnap, PolylineGivesThoseOfTheSegmentAtHand)
{
    AcDbPolyline path;
    path.addVertexAt(0, {0, 0});
    path.addVertexAt(1, {10, 0}, 1.0); // half a circle around (10, 5), turning left
    path.addVertexAt(2, {10, 10});
    EXPECT_TRUE(hasNear(snaps(path, AcDb::kOsModeMid, {4, 0, 0}), {5, 0, 0}));
    EXPECT_TRUE(hasNear(snaps(path, AcDb::kOsModeEnd, {8, 0, 0}), {10, 0, 0}));
    EXPECT_TRUE(hasNear(snaps(path, AcDb::kOsModeMid, {14, 6, 0}), {15, 5, 0}));
    EXPECT_TRUE(hasNear(snaps(path, AcDb::kOsModeCen, {14, 6, 0}), {10, 5, 0}));
    EXPECT_TRUE(snaps(path, AcDb::kOsModeCen, {4, 0, 0}).empty());
}

TEST(Osnap, PointsAndTextsGiveTheirPlaces)
{
    const AcDbPoint point(AcGePoint3d(1, 2, 3));
    EXPECT_TRUE(hasNear(snaps(point, AcDb::kOsModeNode, {1, 2, 3}), {1, 2, 3}));
    const AcDbText text(AcGePoint3d(4, 5, 0), L"text", AcDbObjectId(), 2.0);
    EXPECT_TRUE(hasNear(snaps(text, AcDb::kOsModeIns, {4, 5, 0}), {4, 5, 0}));
    const AcDbBlockReference reference(AcGePoint3d(7, 8, 9), AcDbObjectId());
    EXPECT_TRUE(hasNear(snaps(reference, AcDb::kOsModeIns, {7, 8, 9}), {7, 8, 9}));
}

TEST(Osnap, EllipseGivesEveryFoot)
{
    const AcDbEllipse ellipse(AcGePoint3d(0, 0, 0), AcGeVector3d::kZAxis, AcGeVector3d(4, 0, 0), 0.5);
    // From (1, 0), inside the evolute: x = 16 * 1 / (16 - 4) = 4/3 besides both ends of the major axis.
    const auto feet = snaps(ellipse, AcDb::kOsModePerp, {4, 0, 0}, {1, 0, 0});
    const double y = 2.0 * std::sqrt(1.0 - 1.0 / 9.0);
    EXPECT_EQ(feet.size(), 4u);
    EXPECT_TRUE(hasNear(feet, {4, 0, 0}) && hasNear(feet, {-4, 0, 0}));
    EXPECT_TRUE(hasNear(feet, {4.0 / 3.0, y, 0}) && hasNear(feet, {4.0 / 3.0, -y, 0}));
    // From far outside there are two.
    EXPECT_EQ(snaps(ellipse, AcDb::kOsModePerp, {4, 0, 0}, {0, 50, 0}).size(), 2u);
}

TEST(Osnap, ArcsOfPolylinesGiveTangentsAndQuadrants)
{
    AcDbPolyline polyline;
    polyline.addVertexAt(0, AcGePoint2d(-3, 0), -1.0); // the upper half of a circle of 3 about the origin
    polyline.addVertexAt(1, AcGePoint2d(3, 0));
    polyline.addVertexAt(2, AcGePoint2d(3, -9));
    EXPECT_TRUE(hasNear(snaps(polyline, AcDb::kOsModeQuad, {0.2, 3, 0}), {0, 3, 0}));
    // From (0, 5): cos = 3/5, to both sides.
    const auto tangents = snaps(polyline, AcDb::kOsModeTan, {0.2, 3, 0}, {0, 5, 0});
    EXPECT_TRUE(hasNear(tangents, {2.4, 1.8, 0}) && hasNear(tangents, {-2.4, 1.8, 0}));
    EXPECT_TRUE(snaps(polyline, AcDb::kOsModeTan, {3, -5, 0}, {0, 5, 0}).empty()) << "a straight part";
}

TEST(Osnap, SplineGivesFeetAndTangents)
{
    // y = x * x / 4 from -4 to 4 as a quadratic curve: a Bezier of (-4, 4), (0, -4), (4, 4).
    AcGePoint3dArray points;
    for (const AcGePoint3d& point : {AcGePoint3d(-4, 4, 0), AcGePoint3d(0, -4, 0), AcGePoint3d(4, 4, 0)})
        points.append(point);
    AcGeDoubleArray knots;
    for (const double knot : {0.0, 0.0, 0.0, 1.0, 1.0, 1.0})
        knots.append(knot);
    const AcDbSpline spline(2, false, false, false, points, knots, AcGeDoubleArray());
    // Feet from (0, 4): x = 0 and, with x * x = 4 * 4 - 8, x = +-sqrt(8).
    const auto feet = snaps(spline, AcDb::kOsModePerp, {0, 0, 0}, {0, 4, 0});
    EXPECT_EQ(feet.size(), 3u);
    EXPECT_TRUE(hasNear(feet, {0, 0, 0}) && hasNear(feet, {std::sqrt(8.0), 2, 0}));
    // Tangents through (0, -1) touch where x * x / 4 = 1.
    const auto tangents = snaps(spline, AcDb::kOsModeTan, {0, 0, 0}, {0, -1, 0});
    EXPECT_EQ(tangents.size(), 2u);
    EXPECT_TRUE(hasNear(tangents, {2, 1, 0}) && hasNear(tangents, {-2, 1, 0}));
}
