/// Members of tables, blocks, texts and styles that modules call.

#include "AcString.h"
#include "DatabaseFixture.h"
#include "dbapserv.h"
#include "dbblock.h"
#include "dbdim.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "dbsortentstbl.h"

#include <memory>

namespace
{
class ModuleMembers : public DatabaseFixture
{
protected:
    void TearDown() override
    {
        EXPECT_EQ(live::openObjects(mDatabase), 0);
        DatabaseFixture::TearDown();
    }
    AcDbObjectId addBlock(const wchar_t* name)
    {
        const AcDbBlockTablePointer table(&mDatabase, AcDb::kForWrite);
        auto* block = new AcDbBlockTableRecord;
        block->setName(name);
        AcDbObjectId id;
        EXPECT_EQ(table->add(id, block), Acad::eOk);
        block->close();
        return id;
    }
    AcDbObjectId addLine(AcDbObjectId block)
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(block, AcDb::kForWrite);
        auto* line = new AcDbLine;
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, line), Acad::eOk);
        line->close();
        return id;
    }
    std::vector<AcDbObjectId> entitiesOf(AcDbObjectId block)
    {
        return AcDbObjectPointer<AcDbBlockTableRecord>(block)->entityIds();
    }
};

AcDbObjectIdArray listOf(std::initializer_list<AcDbObjectId> ids)
{
    AcDbObjectIdArray list;
    for (const AcDbObjectId& id : ids)
        list.append(id);
    return list;
}
} // namespace

TEST_F(ModuleMembers, BlocksTakeEntitiesOverFromOthers)
{
    const AcDbObjectId from = addBlock(L"FROM"), to = addBlock(L"TO");
    const AcDbObjectId first = addLine(from), second = addLine(from), third = addLine(from), there = addLine(to);
    const AcDbObjectPointer<AcDbBlockTableRecord> taker(to, AcDb::kForWrite);
    EXPECT_EQ(taker->assumeOwnershipOf(listOf({third, first})), Acad::eOk);
    EXPECT_EQ(taker->entityIds(), (std::vector<AcDbObjectId>{there, third, first}));
    EXPECT_EQ(entitiesOf(from), std::vector<AcDbObjectId>{second});
    EXPECT_EQ(AcDbEntityPointer(first)->ownerId(), to);
    // Nothing is moved when one cannot be.
    const AcDbEntityPointer reader(second);
    EXPECT_EQ(taker->assumeOwnershipOf(listOf({second})), Acad::eWasOpenForRead);
    EXPECT_EQ(taker->assumeOwnershipOf(listOf({mDatabase.layerZero()})), Acad::eNotAnEntity);
    EXPECT_EQ(taker->assumeOwnershipOf(listOf({AcDbObjectId()})), Acad::eNullObjectId);
    EXPECT_EQ(entitiesOf(from), std::vector<AcDbObjectId>{second});
}

TEST_F(ModuleMembers, BlocksMakeTheirDrawOrderWhenAsked)
{
    const AcDbObjectId id = addBlock(L"B"), low = addLine(id), high = addLine(id);
    AcDbObjectPointer<AcDbBlockTableRecord> block(id);
    AcDbSortentsTable* order = nullptr;
    EXPECT_EQ(block->getSortentsTable(order), Acad::eKeyNotFound);
    EXPECT_EQ(block->getSortentsTable(order, AcDb::kForWrite, true), Acad::eNotOpenForWrite);
    EXPECT_EQ(order, nullptr);
    ASSERT_EQ(block->upgradeOpen(), Acad::eOk);
    ASSERT_EQ(block->getSortentsTable(order, AcDb::kForWrite, true), Acad::eOk);
    EXPECT_EQ(order->blockId(), id);
    EXPECT_EQ(order->moveToBottom(listOf({high})), Acad::eOk);
    order->close();
    ASSERT_EQ(block->getSortentsTable(order), Acad::eOk);
    AcDbObjectIdArray sorted;
    order->getFullDrawOrder(sorted);
    order->close();
    ASSERT_EQ(sorted.length(), 2);
    EXPECT_TRUE(sorted[0] == high && sorted[1] == low);
    EXPECT_EQ(block->xrefStatus(), AcDb::kXrfNotAnXref);
}

TEST_F(ModuleMembers, LayersSayWhatTheUsageDataSaid)
{
    const AcDbObjectId id = addLine(mDatabase.modelSpaceId());
    AcDbLayerTablePointer table(&mDatabase, AcDb::kForWrite);
    auto* layer = new AcDbLayerTableRecord;
    layer->setName(L"A");
    ASSERT_EQ(table->add(layer), Acad::eOk);
    EXPECT_FALSE(layer->isInUse());
    EXPECT_EQ(table->generateUsageData(), Acad::eOk);
    EXPECT_FALSE(layer->isInUse());
    EXPECT_TRUE(AcDbObjectPointer<AcDbLayerTableRecord>(mDatabase.layerZero())->isInUse());
    AcDbEntityPointer(id, AcDb::kForWrite)->setLayer(layer->objectId());
    EXPECT_FALSE(layer->isInUse()) << "as it was found";
    table->generateUsageData();
    EXPECT_TRUE(layer->isInUse());
    layer->close();
}

TEST_F(ModuleMembers, JustificationIsBothModes)
{
    struct Case {
        AcDbText::AcTextAlignment both;
        AcDb::TextHorzMode across;
        AcDb::TextVertMode up;
    };
    const Case cases[] = {{AcDbText::kTextAlignmentLeft, AcDb::kTextLeft, AcDb::kTextBase},
                          {AcDbText::kTextAlignmentRight, AcDb::kTextRight, AcDb::kTextBase},
                          {AcDbText::kTextAlignmentAligned, AcDb::kTextAlign, AcDb::kTextBase},
                          {AcDbText::kTextAlignmentMiddle, AcDb::kTextMid, AcDb::kTextBase},
                          {AcDbText::kTextAlignmentFit, AcDb::kTextFit, AcDb::kTextBase},
                          {AcDbText::kTextAlignmentTopLeft, AcDb::kTextLeft, AcDb::kTextTop},
                          {AcDbText::kTextAlignmentMiddleCenter, AcDb::kTextCenter, AcDb::kTextVertMid},
                          {AcDbText::kTextAlignmentBottomRight, AcDb::kTextRight, AcDb::kTextBottom}};
    for (const Case& test : cases) {
        AcDbText text;
        EXPECT_EQ(text.setJustification(test.both), Acad::eOk);
        EXPECT_EQ(text.horizontalMode(), test.across) << test.both;
        EXPECT_EQ(text.verticalMode(), test.up) << test.both;
        EXPECT_EQ(text.justification(), test.both);
    }
    EXPECT_EQ(AcDbText().setJustification(static_cast<AcDbText::AcTextAlignment>(15)), Acad::eInvalidInput);
}

TEST_F(ModuleMembers, DimensionStylesAreGivenWithWhatOverridesThem)
{
    AcDbDimStyleTableRecord* data = nullptr;
    ASSERT_EQ(mDatabase.getDimstyleData(data), Acad::eOk);
    std::unique_ptr<AcDbDimStyleTableRecord> owned(data);
    EXPECT_EQ(owned->dimtxt(), 2.5) << "of the header";
    owned->setDimtxt(7.0);
    owned->setDimclrt([] {
        AcCmColor red;
        red.setColorIndex(1);
        return red;
    }());
    EXPECT_EQ(mDatabase.setDimstyleData(owned.get()), Acad::eOk);
    ASSERT_EQ(mDatabase.getDimstyleData(data), Acad::eOk);
    owned.reset(data);
    EXPECT_EQ(owned->dimtxt(), 7.0);
    EXPECT_EQ(owned->dimclrt().colorIndex(), 1);

    acdbHostApplicationServices()->setWorkingDatabase(&mDatabase);
    AcDbAlignedDimension dimension;
    dimension.setDimensionStyle(mDatabase.dimstyle());
    EXPECT_EQ(dimension.setDimstyleData(owned.get()), Acad::eOk);
    EXPECT_EQ(dimension.dimtxt(), 7.0);
    ASSERT_EQ(dimension.getDimstyleData(data), Acad::eOk);
    owned.reset(data);
    EXPECT_EQ(owned->dimtxt(), 7.0);
    EXPECT_EQ(dimension.setDimstyleData(mDatabase.dimstyle()), Acad::eOk);
    EXPECT_NE(dimension.dimtxt(), 7.0) << "the style's own again";
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}

TEST_F(ModuleMembers, OrthographicSystemsHaveOrigins)
{
    EXPECT_EQ(mDatabase.setWorldUcsBaseOrigin({1, 2, 3}, AcDb::kLeftView), Acad::eOk);
    EXPECT_EQ(mDatabase.worldUcsBaseOrigin(AcDb::kLeftView), AcGePoint3d(1, 2, 3));
    EXPECT_EQ(mDatabase.worldPucsBaseOrigin(AcDb::kLeftView), AcGePoint3d(0, 0, 0));
    EXPECT_EQ(mDatabase.setWorldUcsBaseOrigin({1, 2, 3}, AcDb::kNonOrthoView), Acad::eInvalidInput);
    const AcDbUCSTablePointer table(&mDatabase, AcDb::kForWrite);
    auto* system = new AcDbUCSTableRecord;
    system->setName(L"SITE");
    ASSERT_EQ(table->add(system), Acad::eOk);
    EXPECT_TRUE(mDatabase.ucsBase().isNull());
    EXPECT_EQ(mDatabase.setUcsBase(system->objectId()), Acad::eOk);
    EXPECT_EQ(mDatabase.ucsBase(), system->objectId());
    EXPECT_EQ(mDatabase.setUcsBase(mDatabase.layerZero()), Acad::eInvalidInput);
    system->close();
}

TEST(AcStrings, ReadAndChangeTexts)
{
    AcString text(L"axis");
    text += L'-';
    text.appendFormat(L"%d/%ls", 7, L"B");
    EXPECT_STREQ(text, L"axis-7/B");
    EXPECT_EQ(text.find(L"7"), 5);
    EXPECT_EQ(text.findLast(L"i"), 2);
    EXPECT_EQ(text.find(L"Z"), -1);
    EXPECT_STREQ(text.mid(5, 1), L"7");
    EXPECT_STREQ(text.substr(4), L"axis");
    EXPECT_TRUE(text.mid(99).isEmpty());
    EXPECT_EQ(text.compareNoCase(L"AXIS-7/b"), 0);
    EXPECT_EQ(text.match(L"axles"), 2u);
    EXPECT_STREQ(text.replace(L"-", L"--") ? text.constPtr() : L"", L"axis--7/B");
    EXPECT_STREQ(AcString(L"  x ").trim(), L"x");
    EXPECT_EQ(AcString(L"12 m").asDeci(), 12);
    EXPECT_EQ(AcString(L"ff").asHex(), 255u);
    EXPECT_STREQ(AcString(L"轴").utf8Ptr(), "\xE8\xBD\xB4");
    EXPECT_FALSE(AcString(L"轴").isAscii());
    EXPECT_TRUE(AcString(static_cast<const wchar_t*>(nullptr)).isEmpty());
}
