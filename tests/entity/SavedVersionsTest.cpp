#include "SavedEntities.h"

#include "EntityFixture.h"

#include "dbattdef.h"
#include "dbdimordinate.h"
#include "dbgroup.h"
#include "dbmtext.h"
#include "dbtext.h"

namespace
{
using Version = AcDb::AcDbDwgVersion;

/// One of each kind that the makers of texts, groups, styles and dimensions leave in a drawing.
class SavedAs : public EntityTest, public testing::WithParamInterface<Version>
{
protected:
    void SetUp() override
    {
        EntityTest::SetUp();
        setUcs({10, 20, 5}, AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
        ASSERT_EQ(CMakeEnt::MakeTxtStyle(L"\u6807\u6ce8", L"gbenor.shx,gbcbig.shx", 0.0, 0.7, 0.1), 1);
        ASSERT_EQ(CMakeEnt::MakeTxtStyle(L"FACE", L"\u4eff\u5b8b", 3.5, 1.0, 0.0), 1);
        const AcDbTextStyleTableRecordPointer style(L"\u6807\u6ce8", database());
        ASSERT_EQ(database()->setTextstyle(style->objectId()), Acad::eOk);
        makeTexts();
        ASSERT_EQ(CMakeEnt::MakeCoordDim4({30, 40, 0}, m_dimensions, 0, 12.0), 1);
        ASSERT_EQ(CMakeEnt::MakeGroup(L"\u95e8 1", m_lines, m_group), 1);
        ASSERT_EQ(CMakeEnt::MakeNoNameGroup(m_dimensions, m_anonymous), 1);
    }
    void makeTexts()
    {
        AcDbObjectId id;
        for (int aligment = kAligLeft; aligment <= kAligBottomRight; ++aligment) {
            ASSERT_EQ(CMakeEnt::MakeText({1, 2, 3}, L"%%c20 \u00b10.5^2 \u4e2d", id, 2.5,
                                         static_cast<_Aligment>(aligment), 0.5),
                      1);
            m_lines.append(id);
        }
        ASSERT_EQ(CMakeEnt::MakeMText({1, 2, 3}, L"\u7b2c\u4e00\\P{\\H0.7x;\\S1^ 2;}", AcDbObjectId(), 2.5,
                                      40.0, m_paragraph),
                  1);
        ASSERT_EQ(CMakeEnt::MakeText(kSoftCommon, {1, 2, 3}, L"No 7", m_attribute, kAligTopRight,
                                     kTextClassAttribute),
                  1);
    }

    AcDbObjectIdArray m_lines, m_dimensions;
    AcDbObjectId m_paragraph, m_attribute, m_group, m_anonymous;
};

TEST_P(SavedAs, EverythingIsReadAsItWas)
{
    SavedEntities saved(*database(), GetParam());
    for (const AcDbObjectId& id : m_lines) {
        const Open<AcDbText> before(id);
        const auto after = saved.of<AcDbText>(id);
        ASSERT_EQ(after.openStatus(), Acad::eOk);
        EXPECT_STREQ(after->textStringConst(), before->textStringConst());
        EXPECT_EQ(after->horizontalMode(), before->horizontalMode());
        EXPECT_EQ(after->verticalMode(), before->verticalMode());
        EXPECT_POINT(after->position(), before->position());
        EXPECT_POINT(after->alignmentPoint(), before->alignmentPoint());
        EXPECT_EQ(after->widthFactor(), 0.7);
        EXPECT_LT(after->normal().angleTo(before->normal()), 1e-9);
    }
    CString contents, tag;
    saved.of<AcDbMText>(m_paragraph)->contents(contents);
    EXPECT_EQ(contents, L"\u7b2c\u4e00\\P{\\H0.7x;\\S1^ 2;}");
    EXPECT_STREQ(saved.of<AcDbAttributeDefinition>(m_attribute)->tagConst(), L"NO7");
    for (const AcDbObjectId& id : m_dimensions) {
        const auto after = saved.of<AcDbOrdinateDimension>(id);
        ASSERT_EQ(after.openStatus(), Acad::eOk);
        EXPECT_NEAR(after->measurement(), Open<AcDbOrdinateDimension>(id)->measurement(), 1e-9);
    }
    EXPECT_EQ(saved.of<AcDbGroup>(m_group)->name(), L"\u95e8 1");
    EXPECT_EQ(saved.of<AcDbGroup>(m_group)->numEntities(), 13u);
    EXPECT_TRUE(saved.of<AcDbGroup>(m_anonymous)->isAnonymous());
    const AcDbTextStyleTableRecordPointer style(L"\u6807\u6ce8", &saved.drawing()),
        face(L"FACE", &saved.drawing());
    EXPECT_EQ(style->bigFontFileName(), L"gbcbig.shx");
    EXPECT_EQ(style->obliquingAngle(), 0.1);
    EXPECT_EQ(face->textSize(), 3.5);
}

INSTANTIATE_TEST_SUITE_P(Versions, SavedAs,
                         testing::Values(AcDb::kDHL_1015, AcDb::kDHL_1021, AcDb::kDHL_1024, AcDb::kDHL_1032),
                         [](const auto& info) {
                             const Version version = info.param;
                             return version == AcDb::kDHL_1015   ? "R2000"
                                    : version == AcDb::kDHL_1021 ? "R2007"
                                    : version == AcDb::kDHL_1024 ? "R2010"
                                                                 : "R2018";
                         });
} // namespace
