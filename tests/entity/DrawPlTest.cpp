#include "EntityFixture.h"

#include "ScreenRecord.h"

namespace
{
class DrawnTest : public EntityTest
{
protected:
    void SetUp() override
    {
        EntityTest::SetUp();
        ed::screen() = {};
    }

    /// Runs a maker as a command with the user's keys.
    int draw(const std::wstring& keys,
             int (*maker)(AcDbObjectId&, const CString&, int, double) = CMakeEnt::DrawPlCmd)
    {
        int result = -1;
        m_id.setNull();
        asCommand([&] { result = maker(m_id, L"", 3, 0.5); }, keys);
        return result;
    }

    AcDbObjectId m_id;
};
using DrawPl = DrawnTest;
using DrawArea = DrawnTest;
using MakeGrPl = DrawnTest;

TEST_F(DrawPl, UndoTakesTheLastPointBackAndCloseEnds)
{
    turnUcs();
    ASSERT_EQ(draw(L"0,0,2 10,0 99,99 u 10,5 0,5 c "), 1);
    const Open<AcDbPolyline> polyline(m_id);
    ASSERT_EQ(polyline->numVerts(), 4u);
    EXPECT_TRUE(polyline->isClosed());
    EXPECT_EQ(polyline->colorIndex(), 3);
    AcGePoint3d third;
    polyline->getPointAt(2, third);
    EXPECT_POINT(third, 10 - 5, 20 + 10, 2);
    EXPECT_TRUE(ed::screen().lines.empty()) << "what was drawn meanwhile is wiped away";
}

TEST_F(DrawPl, EnterEndsAndEscDropsThePolyline)
{
    ASSERT_EQ(draw(L"0,0 10,0  "), 1);
    EXPECT_FALSE(Open<AcDbPolyline>(m_id)->isClosed());
    EXPECT_EQ(draw(L"0,0 10,0 20,0 ^C"), 0);
    EXPECT_EQ(draw(L"0,0  "), 0) << "one point only";
    EXPECT_EQ(draw(L"0,0 u  "), 0) << "no point is left";
    EXPECT_TRUE(m_id.isNull());
    EXPECT_EQ(entityCount(), 1);
}

TEST_F(DrawPl, OnePolylineAfterTheOtherUntilEnter)
{
    AcDbObjectIdArray ids;
    asCommand([&] { EXPECT_EQ(CMakeEnt::DrawPl(ids), 1); }, L"0,0 1,0  5,5 6,6 6,7 c  ");
    ASSERT_EQ(ids.length(), 2);
    EXPECT_EQ(Open<AcDbPolyline>(ids[1])->numVerts(), 3u);
    asCommand([&] { EXPECT_EQ(CMakeEnt::DrawPl(ids), 0); }, L" ");
    EXPECT_EQ(ids.length(), 2);
    asCommand([&] { EXPECT_EQ(CMakeEnt::DrawPl(ids, L"NOWHERE"), 0); }, L"0,0 1,0  ");
    EXPECT_EQ(entityCount(), 2);
}

TEST_F(DrawArea, TwoBandsRunToTheCursor)
{
    ASSERT_EQ(draw(L"0,0 10,0 50,50 u 10,10  ", CMakeEnt::DrawPlWithDoubleElastic), 1);
    const Open<AcDbPolyline> area(m_id);
    EXPECT_EQ(area->numVerts(), 3u);
    EXPECT_TRUE(area->isClosed());
    // For the third point: from (0, 0) to (10, 0), to the cursor and back to the first.
    bool isSeen = false;
    for (const auto& image : ed::screen().images)
        for (const auto& shape : image)
            isSeen = isSeen || (shape.points.size() >= 3 && shape.points[2].isEqualTo({50, 50, 0}));
    EXPECT_TRUE(isSeen);
    EXPECT_EQ(draw(L"0,0 10,0 ^C", CMakeEnt::DrawPlWithDoubleElastic), 0);
    EXPECT_EQ(entityCount(), 1);
}

TEST_F(MakeGrPl, LinesAreOnTheScreenAndNotInTheDrawing)
{
    turnUcs();
    AcGePoint3dArray points;
    EXPECT_EQ(CMakeEnt::MakeGrPl(points, 1), 0);
    for (const AcGePoint3d& point : {AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0), AcGePoint3d(1, 1, 0)})
        points.append(point);
    ASSERT_EQ(CMakeEnt::MakeGrPl(points, 5, 1), 1);
    const auto& lines = ed::screen().lines;
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_POINT(lines[2].from, 9, 21, 0);
    EXPECT_POINT(lines[2].to, 10, 20, 0);
    EXPECT_EQ(lines[2].color, 5);
    EXPECT_EQ(entityCount(), 0);
}

TEST_F(MakeGrPl, LineOfTwoPointsIsDrawnOnce)
{
    AcGePoint3dArray points;
    points.append({0, 0, 0});
    points.append({1, 0, 0});
    constexpr int inverting = -1; // twice would be as it was
    ASSERT_EQ(CMakeEnt::MakeGrPl(points, inverting, 1), 1);
    EXPECT_EQ(ed::screen().lines.size(), 1u);
    points.append({1, 0, 0});
    ASSERT_EQ(CMakeEnt::MakeGrPl(points, inverting, 1), 1);
    EXPECT_EQ(ed::screen().lines.size(), 4u);
}
} // namespace
