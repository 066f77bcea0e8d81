#include "SavedEntities.h"

#include "EntityFixture.h"

#include "dbdimordinate.h"
#include "dbline.h"
#include "dbmtext.h"
#include "dbxutil.h"

#include <climits>
#include <cmath>

namespace
{
using Maker = int (*)(const AcGePoint3d&, AcDbObjectIdArray&, int, double, CGTStringW);
const Maker makers[] = {CMakeEnt::MakeCoordDim1, CMakeEnt::MakeCoordDim2, CMakeEnt::MakeCoordDim3,
                        CMakeEnt::MakeCoordDim4};
const AcGeVector3d sides[] = {AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis,
                              -AcGeVector3d::kYAxis};

/// What a dimension's block shows.
struct Picture {
    std::vector<std::pair<AcGePoint3d, AcGePoint3d>> lines;
    CString text;
    AcGePoint3d textAt;
    AcGeVector3d textAlong;
    int texts = 0;
};

Picture pictureOf(AcDbObjectId block)
{
    Picture picture;
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
    for (const AcDbObjectId& id : record->entityIds()) {
        const AcDbEntityPointer entity(id, AcDb::kForRead);
        if (const auto* line = AcDbLine::cast(entity.object()))
            picture.lines.emplace_back(line->startPoint(), line->endPoint());
        if (const auto* text = AcDbMText::cast(entity.object())) {
            ++picture.texts;
            text->text(picture.text);
            picture.textAt = text->location();
            picture.textAlong = text->direction();
        }
    }
    return picture;
}

class CoordDim : public EntityTest
{
protected:
    /// The style whose sizes the tests count with.
    void SetUp() override
    {
        EntityTest::SetUp();
        AcDbObjectId standard;
        ASSERT_EQ(AcDbDimStyleTablePointer(database())->getAt(L"Standard", standard), Acad::eOk);
        ASSERT_EQ(database()->setDimstyleData(standard), Acad::eOk);
    }
    void setUcs(int number)
    {
        const double half = std::sqrt(0.5);
        if (number == 1) turnUcs();
        if (number == 2) EntityTest::setUcs({1, 2, 3}, AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
        if (number == 3) EntityTest::setUcs({9, 8, 7}, {half, half, 0}, {-0.5, 0.5, half});
        acdbUcsMatrix(m_toWorld);
    }
    static CString shown(double ordinate)
    {
        CString text;
        text.Format(L"%.4f", ordinate); // of the style "Standard": four digits, decimal
        return text;
    }
    /// The leader of a dimension to one side of a point of the user's, and the text behind its end.
    void expectDrawn(const AcDbOrdinateDimension& dimension, const AcGePoint3d& pt, const AcGeVector3d& side,
                     double length);

    AcGeMatrix3d m_toWorld;
};

void CoordDim::expectDrawn(const AcDbOrdinateDimension& dimension, const AcGePoint3d& pt,
                           const AcGeVector3d& side, double length)
{
    const Picture picture = pictureOf(dimension.dimBlockId());
    ASSERT_EQ(picture.lines.size(), 1u) << "a straight leader has no legs";
    constexpr double offset = 0.0625; // DIMEXO of "Standard": the leader starts beside the point
    EXPECT_POINT(picture.lines[0].first, m_toWorld * (pt + offset * side));
    EXPECT_POINT(picture.lines[0].second, m_toWorld * (pt + length * side));
    ASSERT_EQ(picture.texts, 1);
    const bool measuresX = side.x == 0.0;
    EXPECT_EQ(picture.text, shown(std::fabs(measuresX ? pt.x : pt.y)));
    const AcGeVector3d beyond = m_toWorld.inverse() * picture.textAt - (pt + length * side);
    EXPECT_GT(beyond.dotProduct(side), 0.09) << "behind the end and DIMGAP";
    EXPECT_LT(beyond.crossProduct(side).length(), 1e-9) << "in line with the leader";
    // It reads along the leader, to the right or upwards.
    const AcGeVector3d reading = measuresX ? AcGeVector3d::kYAxis : AcGeVector3d::kXAxis;
    EXPECT_LT(picture.textAlong.angleTo(m_toWorld * reading), 1e-9);
}

TEST_F(CoordDim, EachMeasuresTheRightOrdinateInEveryCoordinateSystem)
{
    constexpr double length = 12.0;
    for (int ucs = 0; ucs < 4; ++ucs)
        for (const AcGePoint3d& pt : {AcGePoint3d(30, 40, 6), AcGePoint3d(-5, 0.25, 0)})
            for (int side = -2; side < 4; ++side) {
                setUcs(ucs);
                SCOPED_TRACE(testing::Message() << "UCS " << ucs << ", side " << side << ", x " << pt.x);
                AcDbObjectIdArray ids;
                ASSERT_EQ(CMakeEnt::MakeCoordDim4(pt, ids, side, length), 1);
                for (int i = 0; i < 4; ++i) {
                    const AcGeVector3d to = sides[(side + 4 + i) % 4];
                    const Open<AcDbOrdinateDimension> dimension(ids[i]);
                    ASSERT_EQ(dimension.openStatus(), Acad::eOk);
                    EXPECT_EQ(dimension->isUsingXAxis(), to.x == 0.0);
                    EXPECT_NEAR(dimension->measurement(), std::fabs(to.x == 0.0 ? pt.x : pt.y), 1e-9);
                    EXPECT_POINT(dimension->origin(), m_toWorld * AcGePoint3d::kOrigin);
                    EXPECT_POINT(dimension->definingPoint(), m_toWorld * pt);
                    EXPECT_POINT(dimension->leaderEndPoint(), m_toWorld * (pt + length * to));
                    expectDrawn(*dimension, pt, to, length);
                }
            }
}

TEST_F(CoordDim, CountIsThatOfItsName)
{
    for (int count = 1; count <= 4; ++count) {
        AcDbObjectIdArray ids;
        ids.append(database()->modelSpaceId());
        ASSERT_EQ(makers[count - 1]({1, 2, 0}, ids, 1, 3.0, count > 2 ? L"STANDARD" : L""), 1);
        EXPECT_EQ(ids.length(), 1 + count) << "behind those of before";
        EXPECT_EQ(ids[0], database()->modelSpaceId());
        EXPECT_EQ(Open<AcDbOrdinateDimension>(ids[1])->xData(), nullptr) << "nothing differs from the style";
    }
}

TEST_F(CoordDim, SidesGoOnRoundInBothDirections)
{
    // 2147483647 leaves 3 by 4, and -2147483648 nothing.
    for (const auto& [side, direction] :
         {std::pair(INT_MAX, sides[3]), std::pair(INT_MIN, sides[0]), std::pair(-1, sides[3])}) {
        AcDbObjectIdArray ids;
        ASSERT_EQ(CMakeEnt::MakeCoordDim4({1, 2, 0}, ids, side, 3.0), 1);
        EXPECT_POINT(Open<AcDbOrdinateDimension>(ids[0])->leaderEndPoint(),
                     AcGePoint3d(1, 2, 0) + 3.0 * direction);
        EXPECT_POINT(Open<AcDbOrdinateDimension>(ids[2])->leaderEndPoint(),
                     AcGePoint3d(1, 2, 0) - 3.0 * direction);
    }
}

TEST_F(CoordDim, MissingStyleMakesNoneAndAGivenOneIsTaken)
{
    AcDbObjectIdArray ids;
    for (const Maker make : makers)
        EXPECT_EQ(make({1, 2, 0}, ids, 0, 10.0, L"NOWHERE"), 0);
    EXPECT_TRUE(ids.isEmpty());
    EXPECT_EQ(entityCount(), 0);
    AcDbObjectId style;
    {
        const AcDbDimStyleTablePointer table(database(), AcDb::kForWrite);
        auto* const record = new AcDbDimStyleTableRecord;
        record->setName(L"SITE");
        ASSERT_EQ(table->add(style, record), Acad::eOk);
        record->close();
    }
    ASSERT_EQ(CMakeEnt::MakeCoordDim2({1, 2, 0}, ids, -1, 10.0, L"site"), 1);
    EXPECT_EQ(Open<AcDbOrdinateDimension>(ids[1])->dimensionStyle(), style);
}

TEST_F(CoordDim, VariablesSetSinceTheStyleWasChosenCountForTheCurrentLookOnly)
{
    resbuf scale = {};
    scale.restype = RTREAL;
    scale.resval.rreal = 100.0;
    ASSERT_EQ(acedSetVar(L"DIMSCALE", &scale), RTNORM);
    AcDbObjectIdArray ids;
    ASSERT_EQ(CMakeEnt::MakeCoordDim1({30, 40, 0}, ids, 0, 500.0), 1);
    ASSERT_EQ(CMakeEnt::MakeCoordDim1({30, 40, 0}, ids, 0, 500.0, L"Standard"), 1);
    EXPECT_EQ(Open<AcDbOrdinateDimension>(ids[0])->dimscale(), 100.0);
    EXPECT_EQ(Open<AcDbOrdinateDimension>(ids[1])->dimscale(), 1.0);
    SavedEntities saved(*database());
    EXPECT_EQ(saved.of<AcDbOrdinateDimension>(ids[0])->dimscale(), 100.0);
    // The text starts DIMGAP behind the end of the leader: 0.09 times the scale.
    const Picture large = pictureOf(saved.of<AcDbOrdinateDimension>(ids[0])->dimBlockId()),
                  small = pictureOf(saved.of<AcDbOrdinateDimension>(ids[1])->dimBlockId());
    EXPECT_GT(large.textAt.x, 530.0 + 9.0);
    EXPECT_LT(small.textAt.x, 530.0 + 1.0);
}

TEST_F(CoordDim, SavedDimensionsAreReadAsTheyWere)
{
    AcDbObjectIdArray ids;
    for (int ucs = 0; ucs < 4; ++ucs) {
        setUcs(ucs);
        ASSERT_EQ(CMakeEnt::MakeCoordDim4({30, 40, 5}, ids, 0, 12.0), 1);
    }
    SavedEntities saved(*database());
    for (const AcDbObjectId& id : ids) {
        const Open<AcDbOrdinateDimension> before(id);
        const auto after = saved.of<AcDbOrdinateDimension>(id);
        ASSERT_EQ(after.openStatus(), Acad::eOk);
        EXPECT_NEAR(after->measurement(), before->measurement(), 1e-9);
        EXPECT_EQ(after->isUsingXAxis(), before->isUsingXAxis());
        EXPECT_POINT(after->definingPoint(), before->definingPoint());
        EXPECT_POINT(after->leaderEndPoint(), before->leaderEndPoint());
        EXPECT_NEAR(after->horizontalRotation(), before->horizontalRotation(), 1e-9);
        const Picture was = pictureOf(before->dimBlockId()), is = pictureOf(after->dimBlockId());
        ASSERT_EQ(is.lines.size(), was.lines.size());
        EXPECT_POINT(is.lines[0].second, was.lines[0].second);
        EXPECT_EQ(is.text, was.text);
        EXPECT_POINT(is.textAt, was.textAt);
    }
}

TEST_F(CoordDim, LeaderBendsOnItsWayToAnEndThatLiesAside)
{
    turnUcs();
    AcDbObjectIdArray ids;
    ASSERT_EQ(CMakeEnt::MakeCoordDim1({30, 40, 0}, ids, 0, 12.0), 1);
    AcGeMatrix3d toWorld;
    acdbUcsMatrix(toWorld);
    {
        const Open<AcDbOrdinateDimension> dimension(ids[0], AcDb::kForWrite);
        ASSERT_EQ(dimension->setLeaderEndPoint(toWorld * AcGePoint3d(42, 45, 0)), Acad::eOk);
    }
    const Open<AcDbOrdinateDimension> dimension(ids[0]);
    EXPECT_NEAR(dimension->measurement(), 40.0, 1e-9) << "of the point, not of the end";
    const Picture picture = pictureOf(dimension->dimBlockId());
    ASSERT_EQ(picture.lines.size(), 3u);
    // Two arrows of 0.18 straight on before the end, as much between the bends.
    EXPECT_POINT(picture.lines[0].second, toWorld * AcGePoint3d(42 - 4 * 0.18, 40, 0));
    EXPECT_POINT(picture.lines[1].second, toWorld * AcGePoint3d(42 - 2 * 0.18, 45, 0));
    EXPECT_POINT(picture.lines[2].second, toWorld * AcGePoint3d(42, 45, 0));
    EXPECT_EQ(picture.text, L"40.0000");
}
} // namespace
