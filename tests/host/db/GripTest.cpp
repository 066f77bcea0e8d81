/// Grips of each class against closed forms: where they are, and what moving one of them does.

#include "DatabaseFixture.h"
#include "dbelipse.h"
#include "dbents.h"
#include "dbhatch.h"
#include "dblead.h"
#include "dbpl.h"
#include "dbspline.h"

#include <cmath>
#include <functional>

namespace
{
const double pi = std::acos(-1.0);
using Points = std::vector<AcGePoint3d>;

struct GripCase {
    const char* name;
    std::function<std::unique_ptr<AcDbEntity>()> make;
    Points grips;
    int moved;
    AcGeVector3d offset;
    Points after; ///< the grips when one of them has moved
};

void PrintTo(const GripCase& test, std::ostream* out) { *out << test.name; }

template <class T, class... Arguments>
std::function<std::unique_ptr<AcDbEntity>()> made(Arguments... arguments)
{
    return [=] { return std::make_unique<T>(arguments...); };
}

std::unique_ptr<AcDbEntity> bulgedPolyline()
{
    auto polyline = std::make_unique<AcDbPolyline>();
    polyline->addVertexAt(0, AcGePoint2d(0, 0), 0.0, 0.5, 1.0);
    polyline->addVertexAt(1, AcGePoint2d(4, 0), 1.0);
    polyline->addVertexAt(2, AcGePoint2d(4, 6));
    return polyline;
}

std::unique_ptr<AcDbEntity> alignedText()
{
    auto text = std::make_unique<AcDbText>(AcGePoint3d(0, 0, 0), L"A", AcDbObjectId(), 1.0);
    text->setHorizontalMode(AcDb::kTextCenter);
    text->setAlignmentPoint(AcGePoint3d(5, 5, 0));
    return text;
}

std::unique_ptr<AcDbEntity> leader()
{
    auto leader = std::make_unique<AcDbLeader>();
    leader->appendVertex({0, 0, 0});
    leader->appendVertex({3, 4, 0});
    return leader;
}

std::unique_ptr<AcDbEntity> mtext()
{
    auto text = std::make_unique<AcDbMText>();
    text->setLocation({1, 2, 0});
    return text;
}

std::unique_ptr<AcDbEntity> fitSpline()
{
    AcGePoint3dArray points;
    for (const AcGePoint3d& point : {AcGePoint3d(0, 0, 0), AcGePoint3d(3, 3, 0), AcGePoint3d(6, 0, 0)})
        points.append(point);
    return std::make_unique<AcDbSpline>(points);
}

std::vector<GripCase> gripCases()
{
    const AcGePoint3d o(0, 0, 0);
    const AcGeVector3d z = AcGeVector3d::kZAxis;
    const double half = 3.0 * std::sqrt(0.5);
    return {
        {"LineEnd", made<AcDbLine>(o, AcGePoint3d(10, 0, 0)), {o, {10, 0, 0}, {5, 0, 0}}, 1, {0, 4, 0},
         {o, {10, 4, 0}, {5, 2, 0}}},
        {"LineMiddle", made<AcDbLine>(o, AcGePoint3d(10, 0, 0)), {o, {10, 0, 0}, {5, 0, 0}}, 2, {0, 4, 0},
         {{0, 4, 0}, {10, 4, 0}, {5, 4, 0}}},
        {"CircleQuadrant", made<AcDbCircle>(o, z, 3.0), {o, {3, 0, 0}, {0, 3, 0}, {-3, 0, 0}, {0, -3, 0}}, 1, {2, 0, 0},
         {o, {5, 0, 0}, {0, 5, 0}, {-5, 0, 0}, {0, -5, 0}}},
        {"CircleCentre", made<AcDbCircle>(o, z, 3.0), {o, {3, 0, 0}, {0, 3, 0}, {-3, 0, 0}, {0, -3, 0}}, 0, {1, 1, 0},
         {{1, 1, 0}, {4, 1, 0}, {1, 4, 0}, {-2, 1, 0}, {1, -2, 0}}},
        // A quarter through (3, 0), (3 cos 45, 3 sin 45), (0, 3).
        {"ArcCentre", made<AcDbArc>(o, 3.0, 0.0, pi / 2), {{3, 0, 0}, {0, 3, 0}, {half, half, 0}, o}, 3, {1, 0, 0},
         {{4, 0, 0}, {1, 3, 0}, {half + 1, half, 0}, {1, 0, 0}}},
        {"EllipseQuadrant", made<AcDbEllipse>(o, z, AcGeVector3d(4, 0, 0), 0.5),
         {o, {4, 0, 0}, {0, 2, 0}, {-4, 0, 0}, {0, -2, 0}}, 2, {0, 1, 0},
         {o, {4, 0, 0}, {0, 3, 0}, {-4, 0, 0}, {0, -3, 0}}},
        {"Point", made<AcDbPoint>(AcGePoint3d(1, 2, 3)), {{1, 2, 3}}, 0, {1, 1, 1}, {{2, 3, 4}}},
        {"Text", made<AcDbText>(AcGePoint3d(1, 2, 3), L"A", AcDbObjectId(), 1.0, 0.0), {{1, 2, 3}}, 0, {1, 1, 0},
         {{2, 3, 3}}},
        {"MText", mtext, {{1, 2, 0}}, 0, {1, 1, 0}, {{2, 3, 0}}},
        {"Leader", leader, {o, {3, 4, 0}}, 1, {1, 0, 0}, {o, {4, 4, 0}}},
        {"Spline", fitSpline, {o, {3, 3, 0}, {6, 0, 0}}, 1, {0, 2, 0}, {o, {3, 5, 0}, {6, 0, 0}}},
        {"Solid", made<AcDbSolid>(o, AcGePoint3d(4, 0, 0), AcGePoint3d(0, 3, 0), AcGePoint3d(4, 3, 0)),
         {o, {4, 0, 0}, {0, 3, 0}, {4, 3, 0}}, 3, {1, 1, 0}, {o, {4, 0, 0}, {0, 3, 0}, {5, 4, 0}}},
        {"Face", made<AcDbFace>(o, AcGePoint3d(4, 0, 0), AcGePoint3d(4, 3, 0), AcGePoint3d(0, 3, 0)),
         {o, {4, 0, 0}, {4, 3, 0}, {0, 3, 0}}, 2, {0, 0, 5}, {o, {4, 0, 0}, {4, 3, 5}, {0, 3, 0}}},
        {"Reference", made<AcDbBlockReference>(AcGePoint3d(7, 8, 9), AcDbObjectId()), {{7, 8, 9}}, 0, {1, 0, 0}, {{8, 8, 9}}},
    };
}

class Grips : public testing::TestWithParam<GripCase>
{
protected:
    static Points gripsOf(const AcDbEntity& entity)
    {
        AcGePoint3dArray points;
        AcDbIntArray modes, ids;
        EXPECT_EQ(entity.getGripPoints(points, modes, ids), Acad::eOk);
        return {points.begin(), points.end()};
    }
    static void expectPoints(const Points& points, const Points& wanted)
    {
        ASSERT_EQ(points.size(), wanted.size());
        for (std::size_t i = 0; i < wanted.size(); ++i)
            EXPECT_LT(points[i].distanceTo(wanted[i]), 1e-9) << i << ": " << points[i].x << ' ' << points[i].y << ' ' << points[i].z;
    }
};

AcDbIntArray one(int index)
{
    AcDbIntArray indices;
    indices.append(index);
    return indices;
}
} // namespace

TEST_P(Grips, StandWhereTheShapeSaysAndMoveIt)
{
    const GripCase& test = GetParam();
    const std::unique_ptr<AcDbEntity> entity = test.make();
    expectPoints(gripsOf(*entity), test.grips);
    EXPECT_EQ(entity->moveGripPointsAt(one(test.moved), test.offset), Acad::eOk);
    expectPoints(gripsOf(*entity), test.after);
    EXPECT_EQ(entity->moveGripPointsAt(one(static_cast<int>(test.after.size())), test.offset), Acad::eInvalidIndex);
    EXPECT_EQ(entity->moveGripPointsAt(AcDbIntArray(), test.offset), Acad::eOk);
    expectPoints(gripsOf(*entity), test.after);
}

TEST_P(Grips, AllOfThemTogetherMoveTheWhole)
{
    const GripCase& test = GetParam();
    const std::unique_ptr<AcDbEntity> entity = test.make();
    AcDbIntArray all;
    for (std::size_t i = 0; i < test.grips.size(); ++i)
        all.append(static_cast<int>(i));
    const AcGeVector3d offset(2, -1, 0);
    EXPECT_EQ(entity->moveStretchPointsAt(all, offset), Acad::eOk);
    Points wanted = test.grips;
    for (AcGePoint3d& point : wanted)
        point += offset;
    expectPoints(gripsOf(*entity), wanted);
}

INSTANTIATE_TEST_SUITE_P(OfClasses, Grips, testing::ValuesIn(gripCases()),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(PolylineGrips, MovedVertexKeepsBulgesAndWidths)
{
    const std::unique_ptr<AcDbEntity> entity = bulgedPolyline();
    auto& polyline = static_cast<AcDbPolyline&>(*entity);
    AcGePoint3dArray points;
    AcDbIntArray modes, ids;
    ASSERT_EQ(polyline.getGripPoints(points, modes, ids), Acad::eOk);
    ASSERT_GE(points.length(), 3);
    EXPECT_EQ(points[1], AcGePoint3d(4, 0, 0));
    EXPECT_EQ(polyline.moveGripPointsAt(one(1), {2, 0, 0}), Acad::eOk);
    AcGePoint2d vertex;
    polyline.getPointAt(1, vertex);
    EXPECT_EQ(vertex, AcGePoint2d(6, 0));
    double bulge = 0.0, from = 0.0, to = 0.0;
    polyline.getBulgeAt(1, bulge);
    polyline.getWidthsAt(0, from, to);
    EXPECT_EQ(bulge, 1.0);
    EXPECT_EQ(from, 0.5);
    EXPECT_EQ(to, 1.0);
}

TEST(TextGrips, AlignedTextsHangOnTheirAlignmentPoint)
{
    const std::unique_ptr<AcDbEntity> entity = alignedText();
    auto& text = static_cast<AcDbText&>(*entity);
    EXPECT_EQ(text.moveGripPointsAt(one(1), {1, 1, 0}), Acad::eOk);
    EXPECT_EQ(text.alignmentPoint(), AcGePoint3d(6, 6, 0));
}
