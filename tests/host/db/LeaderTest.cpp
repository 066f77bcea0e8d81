#include "DatabaseFixture.h"
#include "dblead.h"
#include "dbline.h"
#include "Drawn.h"
#include "RecordLists.h"

#include <cmath>

namespace
{
/// From the arrow at the origin to (10, 0), then up to (10, 5).
void fill(AcDbLeader& leader)
{
    for (const AcGePoint3d& p : {AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0), AcGePoint3d(10, 5, 0)})
        EXPECT_TRUE(leader.appendVertex(p));
}
} // namespace

TEST(Leader, VerticesKeepTheirRules)
{
    AcDbLeader leader;
    fill(leader);
    EXPECT_FALSE(leader.appendVertex({10, 5, 0}));
    EXPECT_FALSE(leader.appendVertex({std::nan(""), 5, 0}));
    EXPECT_EQ(leader.setVertexAt(3, {1, 1, 0}), Acad::eInvalidIndex);
    EXPECT_EQ(leader.removeLastVertex(), Acad::eOk);
    EXPECT_EQ(leader.removeLastVertex(), Acad::eInvalidInput);
    EXPECT_EQ(leader.numVertices(), 2);
    EXPECT_EQ(leader.attachAnnotation(AcDbObjectId()), Acad::eWrongObjectType);
    EXPECT_EQ(leader.annoType(), AcDbLeader::kNoAnno);
}

TEST(Leader, DefaultsOfADrawingAreItsStyle)
{
    AcDbDatabase drawing;
    AcDbLeader leader;
    leader.setDatabaseDefaults(&drawing);
    EXPECT_EQ(leader.dimensionStyle(), drawing.dimstyle());
    EXPECT_FALSE(leader.dimensionStyle().isNull());
}

TEST(Leader, DrawsItsPathAndArrow)
{
    AcDbLeader leader;
    fill(leader);
    EXPECT_EQ(drawnLines(leader).size(), 2u);
    EXPECT_EQ(drawnAreas(leader), 1);
    double length = 0.0, end = 0.0;
    ASSERT_EQ(leader.getEndParam(end), Acad::eOk);
    ASSERT_EQ(leader.getDistAtParam(end, length), Acad::eOk);
    EXPECT_NEAR(length, 15.0, 1e-9);
    AcDbExtents extents;
    ASSERT_EQ(leader.getGeomExtents(extents), Acad::eOk);
    EXPECT_NEAR(extents.minPoint().y, -0.03, 1e-9); // half the width of an arrow of 0.18
    leader.disableArrowHead();
    EXPECT_EQ(drawnAreas(leader), 0);
    leader.setToSpline();
    EXPECT_EQ(DrawnPicture(leader).shapes.curves, 1);
    EXPECT_EQ(AcDbLeader().getGeomExtents(extents), Acad::eInvalidExtents);
}

TEST(Leader, ExplodesIntoLinesAndAnArrow)
{
    AcDbLeader leader;
    fill(leader);
    AcDbVoidPtrArray pieces;
    ASSERT_EQ(leader.explode(pieces), Acad::eOk);
    EXPECT_EQ(pieces.length(), 3);
    for (int i = 0; i < pieces.length(); ++i)
        delete static_cast<AcDbEntity*>(pieces[i]);
}

TEST(Leader, MapAndInverseGiveItBack)
{
    AcDbLeader leader;
    fill(leader);
    const AcGeMatrix3d map = AcGeMatrix3d::translation({1, 2, 3}) * AcGeMatrix3d::rotation(0.7, {1, 1, -0.5});
    ASSERT_EQ(leader.transformBy(map), Acad::eOk);
    EXPECT_LT(leader.lastVertex().distanceTo(map * AcGePoint3d(10, 5, 0)), 1e-9);
    ASSERT_EQ(leader.transformBy(map.inverse()), Acad::eOk);
    EXPECT_LT(leader.lastVertex().distanceTo({10, 5, 0}), 1e-9);
    EXPECT_TRUE(leader.normal().isEqualTo(AcGeVector3d::kZAxis));
}

TEST(Leader, GroupsGiveTheSameLeader)
{
    AcDbLeader leader, copy;
    fill(leader);
    leader.setAnnotationOffset({1, 2, 0});
    leader.setToSpline();
    EXPECT_EQ(rewritten(copy, written(leader)), textOf(written(leader)));
    EXPECT_TRUE(copy.isSplined());
    EXPECT_EQ(copy.numVertices(), 3);
}
