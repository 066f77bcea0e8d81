/// The boxes of entities, against closed forms.

#include "DatabaseFixture.h"
#include "db2dpl.h"
#include "dbblkref.h"
#include "dbents.h"
#include "dbmline.h"
#include "dbobjptr.h"
#include "dbpl.h"
#include "dbsymtb.h"

#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;

void expectBox(const AcDbEntity& entity, const AcGePoint3d& low, const AcGePoint3d& high)
{
    AcDbExtents box;
    ASSERT_EQ(entity.getGeomExtents(box), Acad::eOk);
    const AcGePoint3d least = box.minPoint(), most = box.maxPoint();
    EXPECT_LT((least - low).length(), 1e-9) << least.x << ", " << least.y << ", " << least.z;
    EXPECT_LT((most - high).length(), 1e-9) << most.x << ", " << most.y << ", " << most.z;
}

class Extents : public DatabaseFixture
{
protected:
    AcDbObjectId addBlock(const wchar_t* name)
    {
        const AcDbBlockTablePointer table(&mDatabase, AcDb::kForWrite);
        auto* block = new AcDbBlockTableRecord;
        AcDbObjectId id;
        EXPECT_EQ(block->setName(name), Acad::eOk);
        EXPECT_EQ(table->add(id, block), Acad::eOk);
        block->close();
        return id;
    }
    static void fill(AcDbObjectId id, AcDbEntity* entity)
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForWrite);
        EXPECT_EQ(block->appendAcDbEntity(entity), Acad::eOk);
        entity->close();
    }

    /// Shows a block so that a circle would become an ellipse that leans: turned by 45 degrees in a block of
    /// which X is doubled. Maps (x, y) to (sqrt(2) (x - y), (x + y) / sqrt(2)).
    AcDbBlockReference leaning(AcDbEntity* content)
    {
        const AcDbObjectId inner = addBlock(L"inner"), outer = addBlock(L"outer");
        fill(inner, content);
        auto* turned = new AcDbBlockReference(AcGePoint3d::kOrigin, inner);
        turned->setRotation(pi / 4.0);
        fill(outer, turned);
        AcDbBlockReference shown(AcGePoint3d::kOrigin, outer);
        shown.setScaleFactors(AcGeScale3d(2.0, 1.0, 1.0));
        return shown;
    }
};

// Half a ring: the outer edge has the radius 2.5, the inner one 1.5.
TEST_F(Extents, WidePolylinesReachTheirEdges)
{
    AcDbPolyline ring;
    ring.addVertexAt(0, {2.0, 0.0}, 1.0, 1.0, 1.0);
    ring.addVertexAt(1, {-2.0, 0.0}, 0.0, 1.0, 1.0);
    expectBox(ring, {-2.5, 0.0, 0.0}, {2.5, 2.5, 0.0});
    ring.setClosed(true); // the straight side goes half its width below
    expectBox(ring, {-2.5, -0.5, 0.0}, {2.5, 2.5, 0.0});
}

// Two pieces of the width 2 that meet at a right angle: the mitre's tip lies 1 beyond both.
TEST_F(Extents, WideCornersReachTheirMitre)
{
    AcDbPolyline corner;
    corner.addVertexAt(0, {0.0, 0.0}, 0.0, 2.0, 2.0);
    corner.addVertexAt(1, {10.0, 0.0}, 0.0, 2.0, 2.0);
    corner.addVertexAt(2, {10.0, 10.0}, 0.0, 2.0, 2.0);
    expectBox(corner, {0.0, -1.0, 0.0}, {11.0, 10.0, 0.0});
    corner.setWidthsAt(1, 0.0, 0.0); // square ends then
    expectBox(corner, {0.0, -1.0, 0.0}, {10.0, 10.0, 0.0});
}

// The radius of the outer edge grows from 1 to 1 + 2 over half a turn: r(a) = 1 + 2 a / pi. Its top is where
// r'(a) sin a + r(a) cos a = 0; the value was found by bisection to 12 digits.
TEST_F(Extents, EdgesOfTaperedArcsHaveTheirOwnTop)
{
    AcDbPolyline horn;
    horn.addVertexAt(0, {1.0, 0.0}, 1.0, 0.0, 4.0);
    horn.addVertexAt(1, {-1.0, 0.0});
    double low = pi / 2.0, high = pi;
    const auto slope = [](double a) { return 2.0 / pi * std::sin(a) + (1.0 + 2.0 * a / pi) * std::cos(a); };
    for (int i = 0; i < 60; ++i)
        (slope((low + high) / 2.0) > 0.0 ? low : high) = (low + high) / 2.0;
    const double top = (1.0 + 2.0 * low / pi) * std::sin(low);
    AcDbExtents box;
    ASSERT_EQ(horn.getGeomExtents(box), Acad::eOk);
    EXPECT_NEAR(box.maxPoint().y, top, 1e-9);
    EXPECT_NEAR(box.minPoint().x, -3.0, 1e-9);
}

// The image of the unit circle reaches 2 along x and 1 along y; the box of the turned square would reach 4
// and 2 / sqrt(2).
TEST_F(Extents, RoundShapesInLeaningBlocksAreTight)
{
    auto* ring = new AcDbPolyline;
    ring->addVertexAt(0, {1.0, 0.0}, 1.0);
    ring->addVertexAt(1, {-1.0, 0.0}, 1.0);
    ring->setClosed(true);
    ring->setThickness(3.0);
    expectBox(leaning(ring), {-2.0, -1.0, 0.0}, {2.0, 1.0, 3.0});
}

TEST_F(Extents, ThicknessLeansWithItsBlock)
{
    auto* circle = new AcDbCircle(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis, 1.0);
    circle->setThickness(
        1.0); // along x, which goes to (sqrt(2), 1 / sqrt(2)); the circle's y goes to (-sqrt(2), 1 / sqrt(2))
    const double wide = std::sqrt(2.0), high = std::sqrt(0.5);
    expectBox(leaning(circle), {-wide, -high, -1.0}, {2.0 * wide, 2.0 * high, 1.0});
}

TEST_F(Extents, RowsOfReferencesThatLeanAreAllCounted)
{
    const AcDbObjectId dot = addBlock(L"dot");
    fill(dot, new AcDbPoint(AcGePoint3d(1.0, 0.0, 0.0)));
    expectBox(leaning(new AcDbMInsertBlock(AcGePoint3d::kOrigin, dot, 3, 2, 10.0, 5.0)),
              {std::sqrt(2.0) * (1.0 - 5.0), std::sqrt(0.5), 0.0},
              {std::sqrt(2.0) * 21.0, std::sqrt(0.5) * 26.0, 0.0});
}

// Twice in itself: shown for every level of nesting it would be shown more often than anyone can wait for.
TEST_F(Extents, BlocksThatShowThemselvesTwiceAreShownOnce)
{
    const AcDbObjectId block = addBlock(L"mirror");
    fill(block, new AcDbPoint(AcGePoint3d(1.0, 2.0, 3.0)));
    fill(block, new AcDbBlockReference(AcGePoint3d(1.0, 0.0, 0.0), block));
    fill(block, new AcDbBlockReference(AcGePoint3d(0.0, 1.0, 0.0), block));
    expectBox(AcDbBlockReference(AcGePoint3d::kOrigin, block), {1.0, 2.0, 3.0}, {1.0, 2.0, 3.0});
}
} // namespace
