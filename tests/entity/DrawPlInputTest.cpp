#include "EntityFixture.h"

#include "ScreenRecord.h"

namespace
{
using Points = std::vector<AcGePoint3d>;

/// Polylines of the user's, key by key.
class DrawnByKeys : public EntityTest
{
protected:
    void SetUp() override
    {
        EntityTest::SetUp();
        ed::screen() = {};
        takeOutput();
    }

    using Maker = int (*)(AcDbObjectId&, const CString&, int, double);
    int draw(Maker maker, const std::wstring& keys)
    {
        int result = -1;
        m_id.setNull();
        asCommand([&] { result = maker(m_id, L"", 256, 0.0); }, keys);
        EXPECT_TRUE(ed::screen().lines.empty()) << "what was drawn meanwhile is wiped away";
        return result;
    }
    Points vertices() const
    {
        Points points;
        const Open<AcDbPolyline> polyline(m_id);
        for (unsigned i = 0; polyline.openStatus() == Acad::eOk && i < polyline->numVerts(); ++i)
            polyline->getPointAt(i, points.emplace_back());
        return points;
    }
    void expectVertices(const Points& corners)
    {
        const Points drawn = vertices();
        ASSERT_EQ(drawn.size(), corners.size());
        for (std::size_t i = 0; i < corners.size(); ++i)
            EXPECT_POINT(drawn[i], corners[i]);
    }
    int complaints()
    {
        int count = 0;
        const std::wstring said = takeOutput();
        for (const wchar_t* words : {L"Invalid point.", L"Point or option keyword required."})
            for (std::size_t from = said.find(words); from != said.npos; from = said.find(words, from + 1))
                ++count;
        return count;
    }

    AcDbObjectId m_id;
};
using DrawnPolyline = DrawnByKeys;
using DrawnArea = DrawnByKeys;

TEST_F(DrawnPolyline, WrongAnswersAndKeywordsOutOfPlaceAreAskedAgain)
{
    // Undo without a point, a word, Close with two points: three complaints.
    ASSERT_EQ(draw(CMakeEnt::DrawPlCmd, L"u 0,0 what 10,0 c 10,10  "), 1);
    expectVertices({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}});
    EXPECT_FALSE(Open<AcDbPolyline>(m_id)->isClosed());
    EXPECT_EQ(complaints(), 3);
}

TEST_F(DrawnPolyline, RelativePointsCountFromTheLastOneThatIsLeft)
{
    turnUcs(); // (x, y) is (10 - y, 20 + x) in the world
    ASSERT_EQ(draw(CMakeEnt::DrawPlCmd, L"5,5,1 @10,0 @5<90 @99,99 UNDO @-10,0  "), 1);
    expectVertices({{5, 25, 1}, {5, 35, 1}, {0, 35, 1}, {0, 25, 1}});
}

TEST_F(DrawnPolyline, UndoGoesBackToTheFirstPointAndBeyond)
{
    ASSERT_EQ(draw(CMakeEnt::DrawPlCmd, L"1,1 2,2 u u 5,5,9 6,6  "), 1);
    expectVertices({{5, 5, 9}, {6, 6, 9}});
}

TEST_F(DrawnPolyline, EscEndsItAtEveryPoint)
{
    for (const wchar_t* keys : {L"^C", L"0,0 ^C", L"0,0 1,0 ^C", L"0,0 1,0 1,1 u ^C", L" ", L"0,0 u  "}) {
        EXPECT_EQ(draw(CMakeEnt::DrawPlCmd, keys), 0) << keys;
        EXPECT_EQ(draw(CMakeEnt::DrawPlWithDoubleElastic, keys), 0) << keys;
    }
    EXPECT_TRUE(m_id.isNull());
    EXPECT_EQ(entityCount(), 0);
}

TEST_F(DrawnPolyline, SinglePointsMakeNothingAndTheNextPolylineIsAskedFor)
{
    AcDbObjectIdArray ids;
    asCommand([&] { EXPECT_EQ(CMakeEnt::DrawPl(ids), 1); }, L"0,0  1,1 2,2  3,3 4,4 ^C");
    EXPECT_EQ(ids.length(), 1);
    EXPECT_EQ(entityCount(), 1);
}

TEST_F(DrawnPolyline, SamePointTwiceIsTwoVertices)
{
    for (const Maker maker : {CMakeEnt::DrawPlCmd, CMakeEnt::DrawPlWithDoubleElastic}) {
        ASSERT_EQ(draw(maker, L"1,1 1,1 @ 5,5  "), 1);
        expectVertices({{1, 1, 0}, {1, 1, 0}, {1, 1, 0}, {5, 5, 0}});
    }
}

TEST_F(DrawnPolyline, ColorsOutOfRangeAreTheNearest)
{
    for (const auto& [color, taken] : {std::pair(-5, 0), std::pair(300, 256)}) {
        AcDbObjectId line, area;
        AcDbObjectIdArray ids;
        asCommand(
            [&, color = color] {
                CMakeEnt::DrawPl(ids, L"", color);
                CMakeEnt::DrawPlCmd(line, L"", color);
                CMakeEnt::DrawPlWithDoubleElastic(area, L"", color);
            },
            L"0,0 1,0   0,0 1,0  0,0 1,0 1,1  ");
        ASSERT_EQ(ids.length(), 1);
        for (const AcDbObjectId& id : {ids[0], line, area}) {
            const Open<AcDbPolyline> polyline(id);
            ASSERT_EQ(polyline.openStatus(), Acad::eOk);
            EXPECT_EQ(polyline->colorIndex(), taken);
        }
    }
}

TEST_F(DrawnPolyline, NothingIsAskedForALayerThatIsNotThere)
{
    AcDbObjectIdArray ids;
    AcDbObjectId id;
    EXPECT_EQ(CMakeEnt::DrawPl(ids, L"NOWHERE"), 0);
    EXPECT_EQ(CMakeEnt::DrawPlCmd(id, L"NOWHERE"), 0);
    EXPECT_EQ(CMakeEnt::DrawPlWithDoubleElastic(id, L"NOWHERE"), 0);
    EXPECT_EQ(CMakeEnt::DrawPlWithDoubleElastic(id, L"", 256, -1.0), 0);
    EXPECT_EQ(takeOutput(), L"");
}

/// What the jig showed: the corners of its polygon, one image after the other.
std::vector<Points> shownPolygons()
{
    std::vector<Points> polygons;
    for (const auto& image : ed::screen().images)
        for (const auto& shape : image)
            polygons.push_back(shape.points);
    return polygons;
}

TEST_F(DrawnArea, BandsRunFromTheLastPointAndTheFirstWhileTheCursorMoves)
{
    turnUcs();
    int result = 0;
    asCommand([&] {
        pick({0, 0, 0});
        pick({10, 0, 0});
        moveCursor({4, 4, 0});
        moveCursor({5, 6, 0});
        pick({10, 10, 0});
        answer(L" ");
        result = CMakeEnt::DrawPlWithDoubleElastic(m_id);
    });
    ASSERT_EQ(result, 1);
    expectVertices({{10, 20, 0}, {10, 30, 0}, {0, 30, 0}});
    EXPECT_TRUE(Open<AcDbPolyline>(m_id)->isClosed());
    const std::vector<Points> polygons = shownPolygons();
    ASSERT_EQ(polygons.size(), 5u) << "one image for each point and each move";
    // The second move: from (10, 0) to the cursor at (5, 6) and from there back to (0, 0).
    const Points& moved = polygons[3];
    ASSERT_GE(moved.size(), 3u);
    EXPECT_POINT(moved[0], 10, 20, 0);
    EXPECT_POINT(moved[1], 10, 30, 0);
    EXPECT_POINT(moved[2], 10 - 6, 20 + 5, 0);
}

TEST_F(DrawnArea, FewerThanThreePointsAreAskedOn)
{
    // Enter and Close with two points are no end.
    ASSERT_EQ(draw(CMakeEnt::DrawPlWithDoubleElastic, L"u 0,0 10,0  c what @0,10 u 10,5 c "), 1);
    expectVertices({{0, 0, 0}, {10, 0, 0}, {10, 5, 0}});
    EXPECT_EQ(complaints(), 3);
}

TEST_F(DrawnArea, UprightAreaLiesInThePlaneOfTheUser)
{
    setUcs({1, 2, 3}, AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
    ASSERT_EQ(draw(CMakeEnt::DrawPlWithDoubleElastic, L"0,0,4 10,0 @5<90 c "), 1);
    // Its Z axis is the world's -Y.
    expectVertices({{1, -2, 3}, {11, -2, 3}, {11, -2, 8}});
    EXPECT_LT(Open<AcDbPolyline>(m_id)->normal().angleTo(-AcGeVector3d::kYAxis), 1e-9);
}
} // namespace
