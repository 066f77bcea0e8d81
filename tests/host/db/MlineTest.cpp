#include "dbline.h"
#include "dbmline.h"
#include "Drawn.h"
#include "RecordLists.h"

#include <gtest/gtest.h>

namespace
{
/// Two lines, one unit apart, along 10 in X; the second is not drawn from 4 to 6.
PackedGroups twoLines()
{
    return groupsOf(
        {{100, "AcDbMline"}, {2, "STANDARD"}, {40, 1.0}, {70, 1.0},  {71, 1.0},  {72, 2.0},  {73, 2.0},
         {10, 0.0},          {20, 0.0},       {30, 0.0}, {210, 0.0}, {220, 0.0}, {230, 1.0}, {11, 0.0},
         {21, 0.0},          {31, 0.0},       {12, 1.0}, {22, 0.0},  {32, 0.0},  {13, 0.0},  {23, 1.0},
         {33, 0.0},          {74, 2.0},       {41, 0.5}, {41, 0.0},  {75, 0.0},  {74, 4.0},  {41, -0.5},
         {41, 0.0},          {41, 4.0},       {41, 6.0}, {75, 0.0},  {11, 10.0}, {21, 0.0},  {31, 0.0},
         {12, 1.0},          {22, 0.0},       {32, 0.0}, {13, 0.0},  {23, 1.0},  {33, 0.0},  {74, 2.0},
         {41, 0.5},          {41, 0.0},       {75, 0.0}, {74, 2.0},  {41, -0.5}, {41, 0.0},  {75, 0.0}});
}

void read(AcDbMline& mline)
{
    const PackedGroups groups = twoLines();
    ListSource source(groups);
    dxfRead(mline, source);
    EXPECT_EQ(source.reports, 0);
}
} // namespace

TEST(Mline, DrawsItsLinesWithTheirGaps)
{
    AcDbMline mline;
    read(mline);
    const std::vector<DrawnLine> lines = drawnLines(mline);
    const DrawnLine expected[] = {
        {{0, 0.5, 0}, {10, 0.5, 0}}, {{0, -0.5, 0}, {4, -0.5, 0}}, {{6, -0.5, 0}, {10, -0.5, 0}}};
    ASSERT_EQ(lines.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_LT(lines[i].start.distanceTo(expected[i].start), 1e-12) << i;
        EXPECT_LT(lines[i].end.distanceTo(expected[i].end), 1e-12) << i;
    }
}

TEST(Mline, GroupsGiveTheSameMultiline)
{
    AcDbMline mline, copy;
    read(mline);
    EXPECT_EQ(rewritten(copy, written(mline)), textOf(written(mline)));
    EXPECT_NE(textOf(written(mline)).find("74 4\n41 -0.5\n41 0\n41 4\n41 6\n75 0\n"), std::string::npos);
    EXPECT_EQ(copy.numVertices(), 2);
}

TEST(Mline, MapAndInverseGiveItBack)
{
    AcDbMline mline;
    read(mline);
    const AcGeMatrix3d map = AcGeMatrix3d::scaling(2.0) * AcGeMatrix3d::rotation(0.7, {1, 1, -0.5});
    ASSERT_EQ(mline.transformBy(map), Acad::eOk);
    EXPECT_LT(drawnLines(mline)[2].start.distanceTo(map * AcGePoint3d(6, -0.5, 0)), 1e-9);
    ASSERT_EQ(mline.transformBy(map.inverse()), Acad::eOk);
    EXPECT_LT(drawnLines(mline)[2].start.distanceTo({6, -0.5, 0}), 1e-9);
}

TEST(Mline, ExplodesIntoItsPieces)
{
    AcDbMline mline;
    AcDbVoidPtrArray pieces;
    AcDbExtents extents;
    EXPECT_EQ(mline.explode(pieces), Acad::eCannotExplodeEntity);
    EXPECT_EQ(mline.getGeomExtents(extents), Acad::eInvalidExtents);
    read(mline);
    ASSERT_EQ(mline.explode(pieces), Acad::eOk);
    EXPECT_EQ(pieces.length(), 3);
    for (int i = 0; i < pieces.length(); ++i)
        delete static_cast<AcDbEntity*>(pieces[i]);
}

TEST(Mline, ValuesBeforeTheFirstVertexAreReported)
{
    const PackedGroups groups = groupsOf({{100, "AcDbMline"}, {12, 1.0}, {74, 2.0}, {41, 0.5}});
    AcDbMline mline;
    ListSource source(groups);
    dxfRead(mline, source);
    EXPECT_EQ(source.reports, 3);
    EXPECT_EQ(mline.numVertices(), 0);
}
