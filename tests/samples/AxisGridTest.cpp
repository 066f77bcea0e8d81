#include "AxisGrid.h"
#include "EditorFixture.h"

#include "arxHeaders.h"
#include "dbdim.h"
#include "dbhatch.h"
#include "dbobjptr.h"
#include "dbregion.h"
#include "rxdlinkr.h"

#include <cmath>
#include <map>

namespace
{
TEST(AxisSpacings, AreReadWithTheirCounts)
{
    std::vector<double> spacings{1.0};
    ASSERT_TRUE(readSpacings(L"2*6600, 3000.5  1200", spacings));
    EXPECT_EQ(spacings, (std::vector<double>{6600.0, 6600.0, 3000.5, 1200.0}));
    EXPECT_EQ(axisPlaces(spacings), (std::vector<double>{0.0, 6600.0, 13200.0, 16200.5, 17400.5}));
    EXPECT_EQ(spacingsText(spacings), CString(L"2*6600 3000.5 1200"));
}

TEST(AxisSpacings, RefusedTextsChangeNothing)
{
    std::vector<double> spacings{1.0};
    for (const wchar_t* text : {L"", L"  ", L"6000 x", L"0", L"-5", L"0*6000", L"201*1", L"3*", L"*3", L"1e400", L"nan"})
        EXPECT_FALSE(readSpacings(text, spacings)) << CStringA(text).GetString();
    EXPECT_EQ(spacings, std::vector<double>{1.0});
}

TEST(AxisLetters, LeaveOutThoseThatLookLikeNumbers)
{
    CString all;
    for (int i = 0; i < 24; ++i) all += axisLetter(i);
    EXPECT_EQ(all, CString(L"ABCDEFGHJKLMNPQRSTUVWXYA1"));
    EXPECT_EQ(axisLetterIndex(L"h"), 7);
    EXPECT_EQ(axisLetterIndex(L"J"), 8);
    for (const wchar_t* text : {L"", L"I", L"o", L"Z", L"AB", L"1"}) EXPECT_EQ(axisLetterIndex(text), -1);
}

/// The module in the hands of the host, with the library under it.
class AxisGridCommand : public headless::EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        ASSERT_TRUE(acrxLoadModule(L"" SAMPLE_MODULES "/QmCADLib.arx", false));
        ASSERT_TRUE(acrxLoadModule(L"" SAMPLE_MODULES "/AxisGrid.arx", false));
    }
    void TearDown() override
    {
        EXPECT_TRUE(acrxUnloadModule(L"AxisGrid.arx"));
        EXPECT_TRUE(acrxUnloadModule(L"QmCADLib.arx"));
        EditorTest::TearDown();
    }

    std::map<std::wstring, int> countByClass() const
    {
        std::map<std::wstring, int> counts;
        forEach([&](AcDbEntity& entity) { ++counts[entity.isA()->name()]; });
        return counts;
    }
    template <class Action>
    void forEach(Action action) const
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(database()->currentSpaceId(), AcDb::kForRead);
        AcDbBlockTableRecordIterator* made = nullptr;
        ASSERT_EQ(space->newIterator(made), Acad::eOk);
        const std::unique_ptr<AcDbBlockTableRecordIterator> entities(made);
        for (; !entities->done(); entities->step()) {
            AcDbObjectId id;
            entities->getEntityId(id);
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            action(*entity.object());
        }
    }
};

TEST_F(AxisGridCommand, DrawsWhatWasOrdered)
{
    // 3 + 2 axes, each with bubble, label and dimension; area 9 m by 4.5 m.
    run(L"_QMAXISGRID 100,200\n2*4500\n4500\n7\nC\n100\nNet\nYes\n");
    const std::wstring output = takeOutput();
    EXPECT_NE(output.find(L"建筑面积 40.50 平方米"), std::wstring::npos) << CStringA(output.c_str()).GetString();
    const std::map<std::wstring, int> expected{{L"AcDbLine", 5},     {L"AcDbCircle", 5},           {L"AcDbText", 6},
                                               {L"AcDbRegion", 1},   {L"AcDbOrdinateDimension", 5}, {L"AcDbPolyline", 1},
                                               {L"AcDbHatch", 1}};
    EXPECT_EQ(countByClass(), expected);
    std::wstring labels;
    double measured = 0.0;
    forEach([&](AcDbEntity& entity) {
        if (const auto* text = AcDbText::cast(&entity)) labels += std::wstring(text->textStringConst()) + L" ";
        if (const auto* dimension = AcDbOrdinateDimension::cast(&entity)) {
            double value = 0.0;
            dimension->measurement(value);
            measured += value;
        }
    });
    EXPECT_EQ(labels.substr(0, 10), L"7 8 9 C D ");
    EXPECT_NEAR(measured, 0.0 + 4500.0 + 9000.0 + 0.0 + 4500.0, 1e-6);
}

TEST_F(AxisGridCommand, TurnsWithTheGrid)
{
    run(L"_QMAXISGRID R 30 1000,0\n6000\n3000\n\n\n\nWithout\nNo\n");
    forEach([](AcDbEntity& entity) {
        const auto* line = AcDbLine::cast(&entity);
        if (!line) return;
        const AcGeVector3d way = line->endPoint() - line->startPoint();
        const double degrees = std::atan2(way.y, way.x) * 180.0 / 3.141592653589793;
        EXPECT_NEAR(std::fmod(degrees, 90.0), 30.0, 1e-9);
    });
    const std::map<std::wstring, int> counts = countByClass();
    EXPECT_EQ(counts.count(L"AcDbHatch") + counts.count(L"AcDbOrdinateDimension"), 0u);
    // The user's own coordinate system is back.
    AcGeMatrix3d ucs;
    ASSERT_EQ(acedGetCurrentUCS(ucs), Acad::eOk);
    EXPECT_EQ(ucs, AcGeMatrix3d::kIdentity);
}

TEST_F(AxisGridCommand, AsksAgainAndLeavesNothingWhenCancelled)
{
    run(L"_QMAXISGRID 0,0\nmany\n0\n6000\n^C");
    EXPECT_TRUE(countByClass().empty());
    const std::wstring output = takeOutput();
    EXPECT_NE(output.find(L"距离须为大于 0 的数"), std::wstring::npos);
    EXPECT_NE(output.find(L"*取消*"), std::wstring::npos);
}
} // namespace
