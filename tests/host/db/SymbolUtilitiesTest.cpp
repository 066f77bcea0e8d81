#include "dbsymutl.h"

#include "DatabaseFixture.h"

namespace
{
class SymbolUtilities : public DatabaseFixture
{
};
} // namespace

TEST_F(SymbolUtilities, RecordsOfEveryDrawingAreThoseOfTheDatabase)
{
    EXPECT_EQ(acdbSymUtil()->blockModelSpaceId(&mDatabase), mDatabase.modelSpaceId());
    EXPECT_EQ(acdbSymUtil()->layerZeroId(&mDatabase), mDatabase.layerZero());
    EXPECT_EQ(acdbSymUtil()->linetypeByLayerId(&mDatabase), mDatabase.byLayerLinetype());
    EXPECT_EQ(acdbSymUtil()->linetypeByBlockId(&mDatabase), mDatabase.byBlockLinetype());
    EXPECT_EQ(acdbSymUtil()->linetypeContinuousId(&mDatabase), mDatabase.continuousLinetype());
    EXPECT_EQ(acdbSymUtil()->textStyleStandardId(&mDatabase), mDatabase.textstyle());
    for (const AcDbObjectId id :
         {acdbSymUtil()->blockPaperSpaceId(&mDatabase), acdbSymUtil()->dimStyleStandardId(&mDatabase),
          acdbSymUtil()->regAppAcadId(&mDatabase), acdbSymUtil()->viewportActiveId(&mDatabase)})
        EXPECT_TRUE(id.isValid());
    EXPECT_TRUE(acdbSymUtil()->layerDefpointsId(&mDatabase).isNull());
    EXPECT_TRUE(acdbSymUtil()->layerZeroId(nullptr).isNull());
}

TEST_F(SymbolUtilities, NamesLeadToRecordsAndBack)
{
    const AcDbObjectId id = addApplication(L"QmTag");
    AcDbObjectId found;
    EXPECT_EQ(acdbSymUtil()->getRegAppId(found, L"QMTAG", &mDatabase), Acad::eOk);
    EXPECT_EQ(found, id);
    EXPECT_EQ(acdbSymUtil()->getLayerId(found, L"QmTag", &mDatabase), Acad::eKeyNotFound);
    EXPECT_TRUE(found.isNull());
    EXPECT_EQ(acdbSymUtil()->getLayerId(found, L"0", nullptr), Acad::eNoDatabase);
    ACHAR* name = nullptr;
    EXPECT_EQ(acdbSymUtil()->getSymbolName(name, id), Acad::eOk);
    EXPECT_STREQ(name, L"QmTag");
    acutDelString(name);
    EXPECT_EQ(acdbSymUtil()->getSymbolName(name, mDatabase.blockTableId()), Acad::eNotThatKindOfClass);
}

TEST_F(SymbolUtilities, NamesOfUsersHaveNoAsteriskAndNoBarUnlessAllowed)
{
    EXPECT_EQ(acdbSymUtil()->validateSymbolName(L"轴线", false), Acad::eOk);
    EXPECT_EQ(acdbSymUtil()->validateSymbolName(L"plan|walls", true), Acad::eOk);
    for (const wchar_t* bad : {L"", L"*U1", L"a/b", L"plan|walls"})
        EXPECT_EQ(acdbSymUtil()->validateSymbolName(bad, false), Acad::eInvalidInput);
    EXPECT_EQ(acdbSymUtil()->validateSymbolName(nullptr, true), Acad::eInvalidInput);
}

TEST_F(SymbolUtilities, BlocksOfLayoutsAreKnownByName)
{
    for (const wchar_t* name : {L"*MODEL_SPACE", L"*Paper_Space", L"*paper_space12"})
        EXPECT_TRUE(acdbSymUtil()->isBlockLayoutName(name));
    for (const wchar_t* name : {L"Model_Space", L"*Paper_Spaces", L"", static_cast<const wchar_t*>(nullptr)})
        EXPECT_FALSE(acdbSymUtil()->isBlockLayoutName(name));
}
