#include "Boundary.h"

#include "DatabaseFixture.h"
#include "dbapserv.h"
#include "dbblkref.h"
#include "dbcircle.h"
#include "dbelipse.h"
#include "dbline.h"
#include "dbobjptr.h"
#include "dbpl.h"
#include "dbregion.h"

namespace
{
constexpr double pi = 3.141592653589793;

class BoundaryTest : public DatabaseFixture
{
protected:
    BoundaryTest() { acdbHostApplicationServices()->setWorkingDatabase(&mDatabase); }
    ~BoundaryTest() override { acdbHostApplicationServices()->setWorkingDatabase(nullptr); }

    AcDbObjectId add(AcDbEntity* entity, AcDbObjectId block = AcDbObjectId())
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(block.isNull() ? mDatabase.modelSpaceId() : block,
                                                            AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        return id;
    }
    void addSquare(double x0, double y0, double x1, double y1, AcDbObjectId block = AcDbObjectId())
    {
        add(new AcDbLine({x0, y0, 0}, {x1, y0, 0}), block);
        add(new AcDbLine({x1, y0, 0}, {x1, y1, 0}), block);
        add(new AcDbLine({x0, y1, 0}, {x1, y1, 0}), block);
        add(new AcDbLine({x0, y1, 0}, {x0, y0, 0}), block);
    }
    boundary::Outlines around(const AcGePoint3d& seed, bool islands = true)
    {
        boundary::Query query;
        query.seed = seed;
        query.planeToWorld = mPlane;
        query.islands = islands;
        return boundary::around(boundary::candidatesIn(mDatabase.modelSpaceId()), query);
    }
    static double areaOf(const AcDbEntity& outline)
    {
        double area = -1.0;
        if (const auto* curve = AcDbCurve::cast(&outline)) curve->getArea(area);
        if (const auto* region = AcDbRegion::cast(&outline)) region->getArea(area);
        return area;
    }

    AcGeMatrix3d mPlane;
};

TEST_F(BoundaryTest, LinesAndArcsBecomeOneClosedPolyline)
{
    // A square of 10 cut by a circle of 4 around its corner (10, 10); the seed is in the rest.
    addSquare(0, 0, 10, 10);
    add(new AcDbCircle({10, 10, 0}, AcGeVector3d::kZAxis, 4.0));
    const auto found = around({1, 1, 5});
    ASSERT_EQ(found.size(), 1u);
    const auto* outline = AcDbPolyline::cast(found[0].get());
    ASSERT_TRUE(outline);
    EXPECT_TRUE(outline->isClosed());
    EXPECT_EQ(outline->numVerts(), 5u);
    EXPECT_NEAR(areaOf(*outline), 100 - 4 * pi, 1e-6);
    EXPECT_EQ(outline->elevation(), 5.0);
}

TEST_F(BoundaryTest, IslandsAreGivenWithTheirIslands)
{
    addSquare(0, 0, 20, 20);
    add(new AcDbCircle({10, 10, 0}, AcGeVector3d::kZAxis, 5.0));
    add(new AcDbEllipse({10, 10, 0}, AcGeVector3d::kZAxis, {2, 0, 0}, 0.5));
    EXPECT_EQ(around({1, 1, 0}, false).size(), 1u);
    const auto found = around({1, 1, 0});
    ASSERT_EQ(found.size(), 3u);
    EXPECT_NEAR(areaOf(*found[0]), 400.0, 1e-9);
    double islands = 0.0;
    for (std::size_t i = 1; i < 3; ++i)
        islands += areaOf(*found[i]);
    EXPECT_NEAR(islands, 25 * pi + 2 * pi, 1e-6);
    // A full circle has two arcs; an ellipse can be no polyline.
    const bool circleFirst = AcDbPolyline::cast(found[1].get());
    EXPECT_TRUE(AcDbPolyline::cast(found[circleFirst ? 1 : 2].get()));
    EXPECT_TRUE(AcDbRegion::cast(found[circleFirst ? 2 : 1].get()));
}

TEST_F(BoundaryTest, ContentsOfBlocksBoundAndHiddenEntitiesDoNot)
{
    const AcDbObjectPointer<AcDbBlockTable> blocks(mDatabase.blockTableId(), AcDb::kForWrite);
    auto* const record = new AcDbBlockTableRecord;
    record->setName(L"FRAME");
    AcDbObjectId block;
    ASSERT_EQ(blocks->add(block, record), Acad::eOk);
    record->close();
    addSquare(0, 0, 1, 1, block);
    auto* const reference = new AcDbBlockReference({100, 0, 0}, block);
    reference->setScaleFactors({10, 10, 10});
    add(reference);
    auto* const hidden = new AcDbLine({100, 5, 0}, {110, 5, 0});
    hidden->setVisibility(AcDb::kInvisible);
    add(hidden);
    auto found = around({101, 1, 0});
    ASSERT_EQ(found.size(), 1u);
    EXPECT_NEAR(areaOf(*found[0]), 100.0, 1e-9);
    const AcDbObjectId cut = add(new AcDbLine({100, 5, 0}, {110, 5, 0}));
    found = around({101, 1, 0});
    ASSERT_EQ(found.size(), 1u);
    EXPECT_NEAR(areaOf(*found[0]), 50.0, 1e-9);
    // Frozen with its layer it does not count any more.
    const AcDbObjectPointer<AcDbLayerTable> layers(mDatabase.layerTableId(), AcDb::kForWrite);
    auto* const layer = new AcDbLayerTableRecord;
    layer->setName(L"FROZEN");
    layer->setIsFrozen(true);
    AcDbObjectId frozen;
    layers->add(frozen, layer);
    layer->close();
    AcDbEntityPointer(cut, AcDb::kForWrite)->setLayer(frozen);
    found = around({101, 1, 0});
    ASSERT_EQ(found.size(), 1u);
    EXPECT_NEAR(areaOf(*found[0]), 100.0, 1e-9);
}

TEST_F(BoundaryTest, GapsAndPointsOnCurvesGiveNothing)
{
    addSquare(0, 0, 10, 10);
    EXPECT_TRUE(around({5, 0, 0}).empty()) << "on a side";
    EXPECT_TRUE(around({50, 50, 0}).empty()) << "outside";
    add(new AcDbLine({20, 0, 0}, {30, 0, 0}));
    add(new AcDbLine({30, 0, 0}, {30, 10, 0}));
    add(new AcDbLine({30, 10, 0}, {20, 0.5, 0}));
    EXPECT_TRUE(around({29, 1, 0}).empty()) << "a gap of half a unit";
}

TEST_F(BoundaryTest, CurvesCountWhereTheyLieParallelToThePlane)
{
    // The plane is the world's YZ plane; the sloping line leaves it.
    mPlane.setCoordSystem({3, 0, 0}, AcGeVector3d::kYAxis, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis);
    add(new AcDbCircle({7, 0, 0}, AcGeVector3d::kXAxis, 2.0));
    add(new AcDbLine({0, -5, 0}, {9, 5, 0}));
    const auto found = around({0.5, 0.5, 0});
    ASSERT_EQ(found.size(), 1u);
    EXPECT_NEAR(areaOf(*found[0]), 4 * pi, 1e-9);
    AcDbExtents box;
    ASSERT_EQ(found[0]->getGeomExtents(box), Acad::eOk);
    EXPECT_NEAR(box.minPoint().x, 3.0, 1e-9) << "the outline lies in the plane";
}
} // namespace
