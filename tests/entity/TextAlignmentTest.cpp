#include "SavedEntities.h"

#include "EntityFixture.h"

#include "dbmtext.h"
#include "dbtext.h"
#include "dbxutil.h"

#include <cmath>

namespace
{
constexpr double kHeight = 10.0;
constexpr double kRotation = 0.3;
const AcGePoint3d at(100, 50, 7);

/// Where an alignment puts the point: which part of the way along the line, and how high.
struct Place {
    _Aligment aligment;
    double along;
    enum Level { baseline, middleOfInk, top, middle, bottom } level;
};
const Place places[] = {{kAligLeft, 0, Place::baseline},         {kAligCenter, 0.5, Place::baseline},
                        {kAligRight, 1, Place::baseline},        {kAligMiddle, 0.5, Place::middleOfInk},
                        {kAligTopLeft, 0, Place::top},           {kAligTopCenter, 0.5, Place::top},
                        {kAligTopRight, 1, Place::top},          {kAligMiddleLeft, 0, Place::middle},
                        {kAligMiddleCenter, 0.5, Place::middle}, {kAligMiddleRight, 1, Place::middle},
                        {kAligBottomLeft, 0, Place::bottom},     {kAligBottomCenter, 0.5, Place::bottom},
                        {kAligBottomRight, 1, Place::bottom}};

class TextAlignment : public EntityTest
{
protected:
    void SetUp() override
    {
        EntityTest::SetUp();
        ASSERT_EQ(CMakeEnt::MakeTxtStyle(L"SHAPE", L"simplex.shx", 0.0, 1.0, 0.0), 1);
        AcDbTextStyleTablePointer(database())->getAt(L"SHAPE", m_style);
        database()->setTextstyle(m_style);
        AcDbText text(AcGePoint3d::kOrigin, kText, m_style, kHeight);
        ASSERT_EQ(text.getGeomExtents(m_box), Acad::eOk);
    }

    /// The sides of its first and last letter are alike: what is free before the first is free behind the
    /// last.
    static constexpr const wchar_t* kText = L"HgH";
    double advance() const { return m_box.minPoint().x + m_box.maxPoint().x; }

    double heightOf(Place::Level level) const
    {
        switch (level) {
        case Place::middleOfInk:
            return (m_box.minPoint().y + m_box.maxPoint().y) / 2;
        case Place::top:
            return kHeight;
        case Place::middle:
            return kHeight / 2;
        case Place::bottom:
            return -kHeight / 3; // of "simplex": 7 below the line to 21 above it
        default:
            return 0.0;
        }
    }
    /// Where the baseline starts, in the world.
    AcGePoint3d start(const Place& place) const
    {
        AcGeVector3d way(place.along * advance(), heightOf(place.level), 0.0);
        way.rotateBy(kRotation, AcGeVector3d::kZAxis);
        AcGeMatrix3d ucs;
        acdbUcsMatrix(ucs);
        return ucs * (at - way);
    }
    void setUcs(int number)
    {
        const double half = std::sqrt(0.5);
        if (number == 1) turnUcs();
        if (number == 2) EntityTest::setUcs({1, 2, 3}, AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
        if (number == 3) EntityTest::setUcs({9, 8, 7}, {half, half, 0}, {-0.5, 0.5, half});
    }

    AcDbObjectId m_style;
    AcDbExtents m_box; ///< of the left aligned text in the origin
};

TEST_F(TextAlignment, BaselineStartsWhereTheBoxOfTheTextSaysInEveryCoordinateSystem)
{
    for (int ucs = 0; ucs < 4; ++ucs) {
        setUcs(ucs);
        for (const Place& place : places) {
            SCOPED_TRACE(testing::Message() << "UCS " << ucs << ", alignment " << place.aligment);
            AcDbObjectId id;
            ASSERT_EQ(CMakeEnt::MakeText(at, kText, id, kHeight, place.aligment, kRotation), 1);
            const Open<AcDbText> text(id);
            EXPECT_POINT(text->position(), start(place));
            AcGeMatrix3d toWorld;
            acdbUcsMatrix(toWorld);
            if (place.aligment != kAligLeft) {
                EXPECT_POINT(text->alignmentPoint(), toWorld * at);
            }
            EXPECT_NEAR(text->height(), kHeight, 1e-9);
            EXPECT_NEAR(text->widthFactor(), 1.0, 1e-9);
            EXPECT_LT(text->normal().angleTo(toWorld * AcGeVector3d::kZAxis), 1e-9);
        }
    }
}

TEST_F(TextAlignment, SavedTextsAreReadAsTheyWere)
{
    std::vector<AcDbObjectId> ids;
    for (int ucs = 0; ucs < 4; ++ucs) {
        setUcs(ucs);
        for (const Place& place : places) {
            AcDbObjectId& id = ids.emplace_back();
            ASSERT_EQ(CMakeEnt::MakeText(at, kText, id, kHeight, place.aligment, kRotation), 1);
        }
    }
    SavedEntities saved(*database());
    for (const AcDbObjectId& id : ids) {
        const Open<AcDbText> before(id);
        const auto after = saved.of<AcDbText>(id);
        ASSERT_EQ(after.openStatus(), Acad::eOk);
        EXPECT_POINT(after->position(), before->position());
        EXPECT_POINT(after->alignmentPoint(), before->alignmentPoint());
        EXPECT_NEAR(after->rotation(), before->rotation(), 1e-12);
        EXPECT_EQ(after->horizontalMode(), before->horizontalMode());
        EXPECT_EQ(after->verticalMode(), before->verticalMode());
        AcGePoint3d drawnBefore[4], drawnAfter[4];
        ASSERT_TRUE(before->boundingPoints(drawnBefore) && after->boundingPoints(drawnAfter));
        EXPECT_POINT(drawnAfter[0], drawnBefore[0]);
        EXPECT_POINT(drawnAfter[2], drawnBefore[2]);
    }
}

TEST_F(TextAlignment, NewTextsAreMirroredAndSlantedAsTheirStyle)
{
    {
        const Open<AcDbTextStyleTableRecord> style(m_style, AcDb::kForWrite);
        style->setFlagBits(2);
        style->setXScale(0.5);
        style->setObliquingAngle(0.25);
    }
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakeText(at, L"HgH", id, kHeight, kAligRight, 0.0), 1);
    const Open<AcDbText> text(id);
    EXPECT_TRUE(text->isMirroredInX());
    EXPECT_FALSE(text->isMirroredInY());
    EXPECT_EQ(text->widthFactor(), 0.5);
    EXPECT_EQ(text->oblique(), 0.25);
    // The mirror image of a text that ends at the point begins there.
    EXPECT_NEAR(text->position().x, at.x + advance() / 2, 1e-9);
    AcDbExtents box;
    ASSERT_EQ(text->getGeomExtents(box), Acad::eOk);
    EXPECT_GT(box.maxPoint().x, at.x + m_box.maxPoint().x / 2 - 2.0);
}

TEST_F(TextAlignment, ColumnsHangAlongTheirRotationInEveryCoordinateSystem)
{
    {
        const Open<AcDbTextStyleTableRecord> style(m_style, AcDb::kForWrite);
        style->setIsVertical(true);
    }
    // Two steps of 17/14 of the height and a letter: half of it stands above the point.
    constexpr double half = (2 * 17.0 / 14 + 1) / 2 * kHeight;
    for (int ucs = 0; ucs < 4; ++ucs) {
        setUcs(ucs);
        AcDbObjectId id;
        ASSERT_EQ(CMakeEnt::MakeText(at, L"HHH", id, kHeight, kAligCenter, 1.5 * kPi), 1);
        AcGeMatrix3d toWorld;
        acdbUcsMatrix(toWorld);
        EXPECT_POINT(Open<AcDbText>(id)->position(), toWorld * (at + AcGeVector3d(0, half, 0)));
        AcGePoint3d corners[4];
        ASSERT_TRUE(Open<AcDbText>(id)->boundingPoints(corners));
        const AcGePoint3d low = toWorld.inverse() * corners[0], high = toWorld.inverse() * corners[2];
        EXPECT_NEAR(low.y, at.y - half, 0.01);
        EXPECT_NEAR(high.y, at.y + half, 0.01);
        EXPECT_NEAR((low.x + high.x) / 2, at.x, 0.01);
    }
}

TEST_F(TextAlignment, ContentsAreKeptAsTheyStand)
{
    const std::wstring contents[] = {L"",
                                     L" ",
                                     L"%%d %%c %%u%%p %%% %%065 %%",
                                     L"\\U+4E2D \\M+54E2D \\U+ \\",
                                     L"\u4e2d\u6587 \u6807\u9ad8 \u00b10.000 \U00020000",
                                     L"a\tb^c^ d",
                                     L"{x} \"y\" 'z' ; , |",
                                     std::wstring(100000, L'\u957f')};
    std::vector<AcDbObjectId> lines, paragraphs;
    for (const std::wstring& text : contents) {
        ASSERT_EQ(CMakeEnt::MakeText(at, text.c_str(), lines.emplace_back(), 1.0), 1);
        ASSERT_EQ(CMakeEnt::MakeMText(at, text.c_str(), m_style, 1.0, 50.0, paragraphs.emplace_back()), 1);
    }
    SavedEntities saved(*database());
    for (std::size_t i = 0; i < std::size(contents); ++i) {
        CString paragraph;
        EXPECT_STREQ(saved.of<AcDbText>(lines[i])->textStringConst(), contents[i].c_str());
        saved.of<AcDbMText>(paragraphs[i])->contents(paragraph);
        EXPECT_STREQ(paragraph.GetString(), contents[i].c_str());
        AcDbExtents box;
        EXPECT_EQ(saved.of<AcDbText>(lines[i])->getGeomExtents(box), Acad::eOk) << i;
    }
}
} // namespace
