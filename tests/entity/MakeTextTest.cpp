#include "EntityFixture.h"

#include "dbattdef.h"
#include "dbgroup.h"
#include "dbmtext.h"
#include "dbtext.h"
#include "dbtrans.h"

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

TEST_F(MakeText, AlignmentNeedsNoRotation)
{
    AcDbObjectId id;
    ASSERT_EQ(CMakeEnt::MakeText({1, 2, 0}, L"A", id, 2.5, kAligTopRight), 1);
    const Open<AcDbText> text(id);
    EXPECT_EQ(text->rotation(), 0.0);
    EXPECT_EQ(text->horizontalMode(), AcDb::kTextRight);
    EXPECT_EQ(text->verticalMode(), AcDb::kTextTop);
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

TEST_F(CopyText, CopyLiesInTheBlockOfItsOriginal)
{
    AcDbObjectId copy;
    const AcDbObjectId block = addBlock(L"LABEL"), source = add(new AcDbText({1, 2, 0}, L"one"), block);
    ASSERT_EQ(CMakeEnt::CopyText(source, L"two", copy), 1);
    EXPECT_EQ(Open<AcDbText>(copy)->ownerId(), block);
    EXPECT_EQ(entityCount(), 0);
    const Open<AcDbBlockTableRecord> held(block);
    EXPECT_EQ(CMakeEnt::CopyText(source, L"three", copy), 0) << "somebody reads the block";
    EXPECT_EQ(held->entityIds().size(), 2u);
}

TEST_F(CopyText, TextsOnLockedLayersGetTheirCopiesThere)
{
    const AcDbObjectId layer = addLayer(L"NOTES");
    ASSERT_EQ(database()->setClayer(layer), Acad::eOk);
    AcDbObjectId line, paragraph, copy;
    ASSERT_EQ(CMakeEnt::MakeText({1, 2, 0}, L"one", line, 2.0), 1);
    ASSERT_EQ(CMakeEnt::MakeMText({0, 0, 0}, L"three", AcDbObjectId(), 1.0, 0.0, paragraph), 1);
    Open<AcDbLayerTableRecord>(layer, AcDb::kForWrite)->setIsLocked(true);
    ASSERT_EQ(CMakeEnt::CopyText(line, L"two", copy), 1);
    EXPECT_STREQ(Open<AcDbText>(copy)->textStringConst(), L"two");
    EXPECT_EQ(Open<AcDbText>(copy)->layerId(), layer);
    EXPECT_EQ(CMakeEnt::CopyText(line, L"two\nlines", copy), 0);
    EXPECT_STREQ(Open<AcDbText>(copy)->textStringConst(), L"two") << "the id is as it was";
    EXPECT_EQ(entityCount(), 3) << "the copy that did not take its text is gone";
    ASSERT_EQ(CMakeEnt::CopyText(paragraph, L"four", copy), 1);
    CString contents;
    Open<AcDbMText>(copy)->contents(contents);
    EXPECT_EQ(contents, L"four");
}

TEST_F(CopyText, ReadersOfTheOriginalAreNotInTheWay)
{
    AcDbObjectId source, copy;
    ASSERT_EQ(CMakeEnt::MakeText({1, 2, 0}, L"one", source, 2.0), 1);
    const Open<AcDbText> held(source);
    ASSERT_EQ(CMakeEnt::CopyText(source, L"two", copy), 1);
    EXPECT_STREQ(Open<AcDbText>(copy)->textStringConst(), L"two");
    EXPECT_STREQ(held->textStringConst(), L"one");
}

TEST_F(CopyText, TextsOfAnotherDrawingAreCopiedInTheirOwn)
{
    AcDbDatabase other;
    AcDbObjectId source, copy;
    acdbHostApplicationServices()->setWorkingDatabase(&other);
    const int isMade = CMakeEnt::MakeText({1, 2, 0}, L"one", source, 2.0);
    acdbHostApplicationServices()->setWorkingDatabase(database());
    ASSERT_EQ(isMade, 1);
    ASSERT_EQ(CMakeEnt::CopyText(source, L"two", copy), 1);
    EXPECT_EQ(copy.database(), &other);
    EXPECT_EQ(Open<AcDbText>(copy)->ownerId(), other.modelSpaceId());
    EXPECT_EQ(entityCount(), 0);
}

TEST_F(CopyText, CopyGoesWithTheTransactionOfItsCaller)
{
    AcDbObjectId source, copy;
    ASSERT_EQ(CMakeEnt::MakeText({1, 2, 0}, L"one", source, 2.0), 1);
    AcDbTransactionManager* const transactions = database()->transactionManager();
    transactions->startTransaction();
    ASSERT_EQ(CMakeEnt::CopyText(source, L"two", copy), 1);
    EXPECT_EQ(CMakeEnt::CopyText(source, L"two\nlines", copy), 0);
    EXPECT_EQ(transactions->numActiveTransactions(), 1);
    EXPECT_EQ(entityCount(), 2);
    ASSERT_EQ(transactions->abortTransaction(), Acad::eOk);
    EXPECT_EQ(entityCount(), 1);
    EXPECT_TRUE(copy.isErased());
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

} // namespace
