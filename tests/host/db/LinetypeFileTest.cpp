#include "DatabaseFixture.h"

#include <cstdio>
#include <fstream>

namespace
{
const char* const definitions = ";; metric linetypes\r\n"
                                "*CENTER,Center ____ _ ____\r\n"
                                "A,31.75,-6.35,6.35,-6.35\r\n"
                                "\r\n"
                                "*DOT,\r\n"
                                "a,0,-6.35\r\n"
                                "*GAS_LINE,Gas line ----GAS----\r\n"
                                "A,12.7,-5.08,[\"GAS, 2\",STANDARD,S=2.54,U=90,X=-2.54,Y=-1.27],-6.35\r\n"
                                "*TRACKS,with a shape\r\n"
                                "A,3.81,[TRACK1,ltypeshp.shx,S=6.35],3.81\r\n"
                                "*BROKEN,\r\n"
                                "A,12.7,x\r\n"
                                "*LAST,no pattern\r\n";

class LinetypeFile : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        std::ofstream(mPath, std::ios::binary) << definitions;
    }
    void TearDown() override
    {
        std::remove(mPath);
        DatabaseFixture::TearDown();
    }

    Acad::ErrorStatus load(const wchar_t* name)
    {
        return mDatabase.loadLineTypeFile(name, L"LinetypeFileTest.lin");
    }
    int count()
    {
        AcDbLinetypeTable* table = nullptr;
        EXPECT_EQ(mDatabase.getLinetypeTable(table), Acad::eOk);
        const int all = static_cast<int>(table->recordIds().size());
        table->close();
        return all;
    }
    AcDbLinetypeTableRecord* openRecord(const wchar_t* name)
    {
        AcDbLinetypeTableRecord* record = nullptr;
        AcDbLinetypeTable* table = nullptr;
        EXPECT_EQ(mDatabase.getLinetypeTable(table), Acad::eOk);
        EXPECT_EQ(table->getAt(name, record, AcDb::kForRead), Acad::eOk);
        table->close();
        return record;
    }

    const char* mPath = "LinetypeFileTest.lin";
};
} // namespace

TEST_F(LinetypeFile, NamedTypeIsLoadedOnceWhateverItsCase)
{
    ASSERT_EQ(load(L"center"), Acad::eOk);
    EXPECT_EQ(load(L"CENTER"), Acad::eDuplicateRecordName);
    AcDbLinetypeTableRecord* center = openRecord(L"CENTER");
    ASSERT_TRUE(center);
    ASSERT_EQ(center->numDashes(), 4);
    EXPECT_DOUBLE_EQ(center->dashLengthAt(0), 31.75);
    EXPECT_DOUBLE_EQ(center->dashLengthAt(3), -6.35);
    EXPECT_DOUBLE_EQ(center->patternLength(), 50.8); // 31.75 + 3 * 6.35
    ACHAR* comments = nullptr;
    center->comments(comments);
    EXPECT_STREQ(comments, L"Center ____ _ ____");
    acutDelString(comments);
    center->close();
}

TEST_F(LinetypeFile, TextStandsBehindTheGapThatItLiesIn)
{
    ASSERT_EQ(load(L"GAS_LINE"), Acad::eOk);
    AcDbLinetypeTableRecord* gas = openRecord(L"GAS_LINE");
    ASSERT_TRUE(gas);
    ASSERT_EQ(gas->numDashes(), 3);
    ACHAR* text = nullptr;
    gas->textAt(1, text);
    EXPECT_STREQ(text, L"GAS, 2");
    acutDelString(text);
    EXPECT_EQ(gas->shapeStyleAt(1), mDatabase.textstyle());
    EXPECT_DOUBLE_EQ(gas->shapeScaleAt(1), 2.54);
    EXPECT_NEAR(gas->shapeRotationAt(1), 1.5707963267948966, 1e-15); // 90 degrees
    EXPECT_TRUE(gas->shapeOffsetAt(1).isEqualTo(AcGeVector2d(-2.54, -1.27)));
    gas->close();
}

TEST_F(LinetypeFile, AllThatCanBeUsedIsLoadedByAsterisk)
{
    const int before = count();
    EXPECT_EQ(load(L"*"), Acad::eOk);
    EXPECT_EQ(count(), before + 3); // CENTER, DOT and GAS_LINE
    EXPECT_EQ(load(L"*"), Acad::eOk);
    EXPECT_EQ(count(), before + 3);
}

TEST_F(LinetypeFile, WhatCannotBeUsedAddsNothingAndSaysWhy)
{
    const int before = count();
    EXPECT_EQ(load(L"absent"), Acad::eUndefinedLineType);
    EXPECT_EQ(load(L"TRACKS"), Acad::eUndefineShapeName);
    EXPECT_EQ(load(L"BROKEN"), Acad::eBadLinetypeName);
    EXPECT_EQ(load(L"LAST"), Acad::eBadLinetypeName);
    EXPECT_EQ(load(L"Continuous"), Acad::eDuplicateRecordName);
    EXPECT_EQ(load(nullptr), Acad::eInvalidInput);
    EXPECT_EQ(mDatabase.loadLineTypeFile(L"DOT", L""), Acad::eInvalidInput);
    EXPECT_EQ(mDatabase.loadLineTypeFile(L"DOT", L"absent.lin"), Acad::eFileNotFound);
    EXPECT_EQ(count(), before);
}
