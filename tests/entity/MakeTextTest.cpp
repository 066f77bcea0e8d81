#include "EntityFixture.h"

#include "dbattdef.h"
#include "dbgroup.h"
#include "dbmtext.h"
#include "dbtext.h"

namespace
{
using MakeText = EntityTest;
using MakeMText = EntityTest;
using CopyText = EntityTest;
using MakeTxtStyle = EntityTest;

TEST_F(MakeText, PositionHeightAndRotationAreTaken)
{
    turnUcs();
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakeText({1, 0, 0}, L"标高 ±0.000", id, 2.5, kPi / 6), 1);
    const Open<AcDbText> text(id);
    EXPECT_POINT(text->position(), 10, 21, 0);
    EXPECT_EQ(text->height(), 2.5);
    EXPECT_NEAR(text->rotation(), kPi / 2 + kPi / 6, 1e-9);
    EXPECT_STREQ(text->textStringConst(), L"标高 ±0.000");
    EXPECT_EQ(text->textStyle(), database()->textstyle());
}

TEST_F(MakeText, EachAlignmentHangsItsCornerOnThePoint)
{
    // For every alignment: where the point is in the box around the drawn text, from 0 to 1; the capitals
    // fill the box.
    struct Case {
        _Aligment aligment;
        double x, y;
    };
    const Case cases[] = {
        {kAligLeft, 0, 0},          {kAligCenter, 0.5, 0},     {kAligRight, 1, 0},
        {kAligMiddle, 0.5, 0.5},    {kAligTopLeft, 0, 1},      {kAligTopCenter, 0.5, 1},
        {kAligTopRight, 1, 1},      {kAligMiddleLeft, 0, 0.5}, {kAligMiddleCenter, 0.5, 0.5},
        {kAligMiddleRight, 1, 0.5}, {kAligBottomLeft, 0, 0},   {kAligBottomCenter, 0.5, 0},
        {kAligBottomRight, 1, 0}};
    const AcGePoint3d at(100, 50, 0);
    for (const Case& c : cases) {
        AcDbObjectId id;
        ASSERT_EQ(CMakeEnt::MakeText(at, L"HHHH", id, 10.0, c.aligment, 0.0), 1) << c.aligment;
        const Open<AcDbText> text(id);
        AcDbExtents box;
        ASSERT_EQ(text->getGeomExtents(box), Acad::eOk);
        const AcGeVector3d size = box.maxPoint() - box.minPoint();
        // The spaces beside the letters belong to the alignment, and bottoms lie below the baseline.
        EXPECT_NEAR((at.x - box.minPoint().x) / size.x, c.x, 0.1) << c.aligment;
        EXPECT_NEAR((at.y - box.minPoint().y) / size.y, c.y, 0.4) << c.aligment;
        EXPECT_EQ(text->isDefaultAlignment(), c.aligment == kAligLeft);
    }
    AcDbObjectId id;
    EXPECT_EQ(CMakeEnt::MakeText(at, L"H", id, 10.0, static_cast<_Aligment>(99), 0.0), 0);
    EXPECT_TRUE(id.isNull());
}

TEST_F(MakeText, ClassChoosesTheEntityAndTheStyleItsHeight)
{
    database()->setTextsize(4.0);
    AcDbObjectId line, paragraph, attribute;
    ASSERT_EQ(CMakeEnt::MakeText(kSoftCommon, {1, 2, 0}, L"A 1", line, kAligTopRight, kTextClassLine), 1);
    ASSERT_EQ(CMakeEnt::MakeText(kSoftPlumbing, {1, 2, 0}, L"a\\Pb", paragraph, kAligTopRight,
                                 kTextClassParagraph, 1.0),
              1);
    ASSERT_EQ(
        CMakeEnt::MakeText(kSoftCommon, {1, 2, 0}, L"no 7", attribute, kAligTopRight, kTextClassAttribute),
        1);
    EXPECT_EQ(Open<AcDbText>(line)->height(), 4.0);
    const Open<AcDbMText> multiline(paragraph);
    ASSERT_EQ(multiline.openStatus(), Acad::eOk);
    EXPECT_EQ(multiline->attachment(), AcDbMText::kTopRight);
    EXPECT_EQ(multiline->textHeight(), 4.0);
    EXPECT_NEAR(multiline->rotation(), 1.0, 1e-9);
    const Open<AcDbAttributeDefinition> definition(attribute);
    ASSERT_EQ(definition.openStatus(), Acad::eOk);
    EXPECT_STREQ(definition->tagConst(), L"NO7");
    EXPECT_STREQ(definition->textStringConst(), L"no 7");
    EXPECT_EQ(CMakeEnt::MakeText(kSoftCommon, {0, 0, 0}, L" ", attribute, kAligLeft, kTextClassAttribute), 0);
    EXPECT_EQ(CMakeEnt::MakeText(kSoftCommon, {0, 0, 0}, L"a", line, kAligLeft, static_cast<_Text_Class>(9)),
              0);
    ASSERT_EQ(CMakeEnt::MakeTxtStyle(L"Standard", L"txt.shx", 7.5, 1.0, 0.0), 1);
    ASSERT_EQ(CMakeEnt::MakeText(kSoftCommon, {0, 0, 0}, L"a", line, kAligLeft, kTextClassLine), 1);
    EXPECT_EQ(Open<AcDbText>(line)->height(), 7.5);
}

TEST_F(MakeText, BadTextOrHeightAddsNothing)
{
    AcDbObjectId id;
    EXPECT_EQ(CMakeEnt::MakeText({0, 0, 0}, nullptr, id, 1.0), 0);
    EXPECT_EQ(CMakeEnt::MakeText({0, 0, 0}, L"a\nb", id, 1.0), 0);
    EXPECT_EQ(CMakeEnt::MakeText({0, 0, 0}, L"a", id, 0.0), 0);
    EXPECT_EQ(CMakeEnt::MakeMText({0, 0, 0}, nullptr, AcDbObjectId::kNull, 1.0, 0.0, id), 0);
    EXPECT_EQ(CMakeEnt::MakeMText({0, 0, 0}, L"a", AcDbObjectId::kNull, 1.0, -2.0, id), 0);
    EXPECT_EQ(CMakeEnt::MakeMText({0, 0, 0}, L"a", database()->layerZero(), 1.0, 0.0, id), 0)
        << "no text style";
    EXPECT_EQ(entityCount(), 0);
}

TEST_F(MakeMText, FrameHangsOnItsTopLeftCorner)
{
    turnUcs();
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakeMText({0, 0, 0}, L"first\\Psecond", database()->textstyle(), 3.0, 40.0, id), 1);
    const Open<AcDbMText> text(id);
    EXPECT_POINT(text->location(), 10, 20, 0);
    EXPECT_EQ(text->attachment(), AcDbMText::kTopLeft);
    EXPECT_EQ(text->width(), 40.0);
    EXPECT_NEAR(text->rotation(), kPi / 2, 1e-9);
}

TEST_F(CopyText, CopyDiffersInItsTextOnly)
{
    turnUcs();
    addLayer(L"NOTES");
    AcDbObjectId source, paragraph, copy, second;
    ASSERT_EQ(CMakeEnt::MakeText({1, 2, 0}, L"one", source, 2.0, kAligMiddleCenter, 0.3), 1);
    ASSERT_EQ(CMakeEnt::MakeMText({0, 0, 0}, L"three", AcDbObjectId::kNull, 1.0, 0.0, paragraph), 1);
    Open<AcDbText>(source, AcDb::kForWrite)->setLayer(L"NOTES");
    ASSERT_EQ(CMakeEnt::CopyText(source, L"two", copy), 1);
    ASSERT_EQ(CMakeEnt::CopyText(paragraph, L"four", second), 1);
    const Open<AcDbText> from(source), to(copy);
    EXPECT_STREQ(from->textStringConst(), L"one");
    EXPECT_STREQ(to->textStringConst(), L"two");
    EXPECT_POINT(to->alignmentPoint(), from->alignmentPoint());
    EXPECT_EQ(to->layerId(), from->layerId());
    EXPECT_EQ(to->rotation(), from->rotation());
    CString contents;
    Open<AcDbMText>(second)->contents(contents);
    EXPECT_EQ(contents, L"four");
}

TEST_F(CopyText, DataGoesAlongAndGroupsDoNot)
{
    AcDbObjectId source, line, group, copy;
    ASSERT_EQ(CMakeEnt::MakeText({1, 2, 0}, L"one", source, 2.0), 1);
    ASSERT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {1, 0, 0}, line), 1);
    AcDbObjectIdArray members;
    members.append(source);
    members.append(line);
    ASSERT_EQ(CMakeEnt::MakeGroup(L"PAIR", members, group), 1);
    {
        const Open<AcDbText> text(source, AcDb::kForWrite);
        ASSERT_EQ(text->createExtensionDictionary(), Acad::eOk);
    }
    ASSERT_EQ(CMakeEnt::CopyText(source, L"two", copy), 1);
    const Open<AcDbText> text(copy);
    EXPECT_FALSE(text->extensionDictionary().isNull());
    EXPECT_NE(text->extensionDictionary(), Open<AcDbText>(source)->extensionDictionary());
    EXPECT_EQ(Open<AcDbGroup>(group)->numEntities(), 2u);
}

TEST_F(CopyText, OtherObjectsAreNotCopied)
{
    AcDbObjectId circle, erased, id;
    ASSERT_EQ(CMakeEnt::MakeCircle({0, 0, 0}, 1.0, circle), 1);
    ASSERT_EQ(CMakeEnt::MakeText({1, 2, 0}, L"one", erased, 2.0), 1);
    Open<AcDbText>(erased, AcDb::kForWrite)->erase();
    for (const AcDbObjectId& source : {circle, erased, database()->layerZero(), AcDbObjectId()})
        EXPECT_EQ(CMakeEnt::CopyText(source, L"two", id), 0);
    EXPECT_EQ(entityCount(), 1);
}

TEST_F(MakeTxtStyle, FilesBigFontsAndTypefacesAreToldApart)
{
    ASSERT_EQ(CMakeEnt::MakeTxtStyle(L"FILES", L"gbenor.shx, gbcbig.shx", 3.5, 0.7, 0.2), 1);
    ASSERT_EQ(CMakeEnt::MakeTxtStyle(L"FACE", L"仿宋", 0.0, 1.0, 0.0), 1);
    const AcDbTextStyleTableRecordPointer files(L"FILES", database()), face(L"FACE", database());
    EXPECT_EQ(files->fileName(), L"gbenor.shx");
    EXPECT_EQ(files->bigFontFileName(), L"gbcbig.shx");
    EXPECT_EQ(files->textSize(), 3.5);
    EXPECT_EQ(files->xScale(), 0.7);
    EXPECT_EQ(files->obliquingAngle(), 0.2);
    ACHAR* typeface = nullptr;
    bool bold = true, italic = true;
    int charset = 0, family = 0;
    ASSERT_EQ(face->font(typeface, bold, italic, charset, family), Acad::eOk);
    EXPECT_STREQ(typeface, L"仿宋");
    acutDelString(typeface);
}

TEST_F(MakeTxtStyle, RefusedValuesLeaveAnExistingStyleAsItWas)
{
    ASSERT_EQ(CMakeEnt::MakeTxtStyle(L"KEEP", L"txt.shx", 3.0, 0.8, 0.0), 1);
    EXPECT_EQ(CMakeEnt::MakeTxtStyle(L"KEEP", L"other.shx", 5.0, 1000.0, 0.0), 0);
    EXPECT_EQ(CMakeEnt::MakeTxtStyle(L"NEW", L"other.shx", -5.0, 1.0, 0.0), 0);
    EXPECT_EQ(CMakeEnt::MakeTxtStyle(L"a<b", L"other.shx", 5.0, 1.0, 0.0), 0);
    EXPECT_EQ(CMakeEnt::MakeTxtStyle(L"", L"other.shx", 5.0, 1.0, 0.0), 0);
    EXPECT_EQ(CMakeEnt::MakeTxtStyle(L"NEW", L"", 5.0, 1.0, 0.0), 0);
    const AcDbTextStyleTableRecordPointer kept(L"KEEP", database());
    EXPECT_EQ(kept->textSize(), 3.0);
    EXPECT_EQ(kept->fileName(), L"txt.shx");
    const AcDbTextStyleTablePointer styles(database());
    EXPECT_FALSE(styles->has(L"NEW"));
}
} // namespace
