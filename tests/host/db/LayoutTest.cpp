#include "dblayout.h"

#include "DatabaseFixture.h"
#include "RecordLists.h"
#include "dbblock.h"
#include "dbdict.h"
#include "dbobjptr.h"
#include "dbplhldr.h"

namespace
{
const PackedGroups& sampleSettings()
{
    static const PackedGroups groups = groupsOf(
        {{100, "AcDbPlotSettings"}, {1, "A3横"}, {2, "none_device"}, {4, "ISO_A3"}, {6, "V"}, {40, 7.5}, {41, 20.0},
         {42, 7.5}, {43, 20.0}, {44, 420.0}, {45, 297.0}, {46, 11.5}, {47, -13.6}, {48, 1.0}, {49, 2.0}, {140, 3.0},
         {141, 4.0}, {142, 1.0}, {143, 2.5}, {70, 1712.0}, {72, 1.0}, {73, 1.0}, {74, 5.0}, {7, "mono.ctb"}, {75, 16.0},
         {76, 1.0}, {77, 2.0}, {78, 300.0}, {147, 0.33}, {148, 5.0}, {149, 6.0}});
    return groups;
}

using Layout = DatabaseFixture;

const PackedGroups layoutPart =
    groupsOf({{100, "AcDbLayout"}, {1, "布局1"}, {70, 1.0},   {71, 2.0},   {10, 0.0},    {20, 0.0},
              {11, 420.0},         {21, 297.0},  {12, 0.0},   {22, 0.0},   {32, 0.0},    {14, 1e20},
              {24, 1e20},          {34, 1e20},   {15, -1e20}, {25, -1e20}, {35, -1e20},  {146, 0.0},
              {13, 0.0},           {23, 0.0},    {33, 0.0},   {16, 1.0},   {26, 0.0},    {36, 0.0},
              {17, 0.0},           {27, 1.0},    {37, 0.0},   {76, 0.0},   {330, 900.0}, {331, 901.0}});
} // namespace

TEST_F(Layout, RecordsAreWrittenAsTheyWereRead)
{
    AcDbPlotSettings settings;
    EXPECT_EQ(rewritten(settings, sampleSettings(), &mDatabase), textOf(sampleSettings()));
    EXPECT_TRUE(settings.modelType() && settings.plotPlotStyles() && settings.printLineweights());
    EXPECT_FALSE(settings.plotHidden());
    double numerator = 0.0, denominator = 0.0;
    settings.getCustomPrintScale(numerator, denominator);
    EXPECT_EQ(denominator, 2.5);

    PackedGroups whole = sampleSettings();
    DxfGroup group;
    for (std::size_t at = 0; layoutPart.read(at, group);) whole.append(group);
    AcDbLayout layout;
    EXPECT_EQ(rewritten(layout, whole, &mDatabase), textOf(whole));
    EXPECT_EQ(layout.getTabOrder(), 2);
}

TEST_F(Layout, CopiesSettingsAndKeepsItsOwnData)
{
    AcDbPlotSettings settings;
    rewritten(settings, sampleSettings(), &mDatabase);
    AcDbLayout layout;
    layout.setLayoutName(L"Own");
    EXPECT_EQ(layout.copyFrom(&settings), Acad::eOk);
    const ACHAR* name = nullptr;
    layout.getPlotSettingsName(name);
    EXPECT_STREQ(name, L"A3横");
    layout.getLayoutName(name);
    EXPECT_STREQ(name, L"Own");
    AcDbPlaceHolder* none = nullptr;
    EXPECT_EQ(layout.copyFrom(none), Acad::eNullObjectPointer);
    EXPECT_EQ(layout.setShadePlotCustomDPI(99), Acad::eInvalidInput);
}

TEST_F(Layout, PageSetupsAreFoundUnderTheirNames)
{
    auto* settings = new AcDbPlotSettings;
    EXPECT_EQ(settings->addToPlotSettingsDict(nullptr), Acad::eInvalidInput);
    EXPECT_EQ(settings->addToPlotSettingsDict(&mDatabase), Acad::eInvalidKey);
    settings->setPlotSettingsName(L"A3");
    EXPECT_EQ(settings->addToPlotSettingsDict(&mDatabase), Acad::eOk);
    settings->close();
    const AcDbDictionaryPointer setups(mDatabase.plotSettingsDictionaryId());
    EXPECT_TRUE(setups->has(L"a3"));
}

TEST_F(Layout, BlocksAndLayoutsKnowEachOther)
{
    auto* layout = new AcDbLayout;
    layout->setLayoutName(L"布局1");
    AcDbObjectId space;
    {
        const AcDbBlockTablePointer blocks(&mDatabase);
        ASSERT_EQ(blocks->getAt(ACDB_PAPER_SPACE, space), Acad::eOk);
    }
    EXPECT_EQ(layout->addToLayoutDict(&mDatabase, mDatabase.layerZero()), Acad::eWrongObjectType);
    ASSERT_EQ(layout->addToLayoutDict(&mDatabase, space), Acad::eOk);
    EXPECT_EQ(layout->getBlockTableRecordId(), space);
    const AcDbBlockTableRecordPointer block(space);
    EXPECT_EQ(block->getLayoutId(), layout->objectId());
    EXPECT_STREQ(acdbLayoutNameOf(*block), L"布局1");

    AcDbLayout twin;
    twin.setLayoutName(L"布局1");
    EXPECT_EQ(twin.addToLayoutDict(&mDatabase, space), Acad::eDuplicateKey);
    EXPECT_EQ(layout->setLayoutName(L""), Acad::eInvalidKey);
    EXPECT_EQ(layout->setLayoutName(L"Plan"), Acad::eOk);
    EXPECT_STREQ(acdbLayoutNameOf(*block), L"Plan");
    layout->close();
    const AcDbDictionaryPointer layouts(mDatabase.layoutDictionaryId());
    EXPECT_TRUE(layouts->has(L"Plan"));
    EXPECT_FALSE(layouts->has(L"布局1"));
}
