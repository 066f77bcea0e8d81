/// Hatches around texts.

#include "dbhatch.h"
#include "dbmtext.h"
#include "dbtext.h"
#include "EntityFixture.h"

namespace
{
class TextIslandTest : public EntityTest
{
protected:
    void SetUp() override
    {
        EntityTest::SetUp();
        ASSERT_EQ(CMakeEnt::MakeRect({0, 0, 0}, {100, 50, 0}, m_frame), 1);
        ASSERT_EQ(CMakeEnt::MakeText({20, 20, 0}, L"HALL 12", m_text, 5.0), 1);
        ASSERT_EQ(
            CMakeEnt::MakeMText({60, 40, 0}, L"two\\Plines", AcDbObjectId::kNull, 4.0, 0.0, m_paragraph), 1);
    }
    AcDbObjectId hatch()
    {
        AcDbObjectIdArray ids;
        for (const AcDbObjectId& id : {m_text, m_frame, m_paragraph})
            ids.append(id);
        AcDbObjectId made;
        EXPECT_EQ(CMakeEnt::MakeHatch(ids, made, L"ANSI31", 1.0, 0.0), 1);
        return made;
    }
    static AcDbExtents boxOf(AcDbObjectId id)
    {
        AcDbExtents box;
        EXPECT_EQ(Open<AcDbEntity>(id)->getGeomExtents(box), Acad::eOk);
        return box;
    }
    static double areaOfBox(AcDbObjectId id)
    {
        const AcGeVector3d size = boxOf(id).maxPoint() - boxOf(id).minPoint();
        return size.x * size.y;
    }

    AcDbObjectId m_frame, m_text, m_paragraph;
};

TEST_F(TextIslandTest, FramesOfTextsAreLeftOut)
{
    const AcDbObjectId made = hatch();
    EXPECT_NEAR(areaOf(made), 5000 - areaOfBox(m_text) - areaOfBox(m_paragraph), 1e-6);
    const Open<AcDbHatch> hatch(made);
    ASSERT_EQ(hatch->numLoops(), 3);
    const Adesk::Int32 types[] = {hatch->loopTypeAt(0), hatch->loopTypeAt(1), hatch->loopTypeAt(2)};
    EXPECT_EQ(types[0] & (AcDbHatch::kTextbox | AcDbHatch::kExternal), AcDbHatch::kTextbox);
    EXPECT_EQ(types[1] & (AcDbHatch::kTextbox | AcDbHatch::kExternal), AcDbHatch::kExternal);
    EXPECT_EQ(types[2] & (AcDbHatch::kTextbox | AcDbHatch::kExternal), AcDbHatch::kTextbox);
}

TEST_F(TextIslandTest, TextsThatGrowAreFollowed)
{
    const AcDbObjectId made = hatch();
    const double before = areaOfBox(m_text);
    Open<AcDbText>(m_text, AcDb::kForWrite)->setTextString(L"HALLS 12, 13");
    EXPECT_GT(areaOfBox(m_text), 1.2 * before);
    EXPECT_NEAR(areaOf(made), 5000 - areaOfBox(m_text) - areaOfBox(m_paragraph), 1e-6);
    Open<AcDbText>(m_text, AcDb::kForWrite)->setPosition({300, 20, 0});
    EXPECT_NEAR(areaOf(made), 5000 - areaOfBox(m_paragraph), 1e-6) << "out of the frame";
}

TEST_F(TextIslandTest, FramesOutsideOfWhatIsFilledStayEmpty)
{
    AcDbObjectId around, beside, within, made;
    ASSERT_EQ(CMakeEnt::MakeCircle({30, 22, 0}, 20.0, around), 1); // an island with the text in it
    ASSERT_EQ(CMakeEnt::MakeText({200, 20, 5}, L"BESIDE", beside, 5.0), 1);
    ASSERT_EQ(CMakeEnt::MakeCircle({61, 38, 0}, 0.01, within), 1); // in the frame of the paragraph
    AcDbObjectIdArray ids;
    for (const AcDbObjectId& id : {beside, within, m_text, around, m_frame, m_paragraph})
        ids.append(id);
    ASSERT_EQ(CMakeEnt::MakeHatch(ids, made, L"SOLID", 1.0, 0.0), 1);
    EXPECT_NEAR(areaOf(made), 5000 - 400 * kPi - areaOfBox(m_paragraph), 1e-6);
    const Open<AcDbHatch> hatch(made);
    EXPECT_EQ(hatch->numLoops(), 4) << "without those of the texts in the island and beside the frame";
}

TEST_F(TextIslandTest, TextsAloneBoundNothing)
{
    AcDbObjectId made;
    AcDbObjectIdArray ids;
    for (const AcDbObjectId& id : {m_text, m_paragraph})
        ids.append(id);
    EXPECT_EQ(CMakeEnt::MakeHatch(ids, made, L"SOLID", 1.0, 0.0), 0);
    EXPECT_TRUE(made.isNull());
    EXPECT_EQ(entityCount(), 3);
}
} // namespace
