#include "AxisGrid.h"
#include "CFamStuSysVar.h"
#include "EditorFixture.h"

#include "arxHeaders.h"
#include "dbdim.h"
#include "dbdimsty.h"
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
    for (const wchar_t* text : {L"", L"  ", L"6000 x", L"0", L"-5", L"0*6000", L"201*1", L"3*", L"*3", L"2e9", L"1e400", L"nan"})
        EXPECT_FALSE(readSpacings(text, spacings)) << CStringA(text).GetString();
    EXPECT_EQ(spacings, std::vector<double>{1.0});
}

TEST(AxisSpacings, OfEqualWidestBaysTheOneNearestToTheMiddleCounts)
{
    const Bay bay = widestBay({6.0, 3.0, 6.0, 6.0, 1.0}); // middles at 3, 12 and 18, that of all at 11
    EXPECT_EQ(bay.start, 9.0);
    EXPECT_EQ(bay.width, 6.0);
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
    const std::map<std::wstring, int> expected{{L"AcDbLine", 5},     {L"AcDbCircle", 5},           {L"AcDbText", 5},
                                               {L"AcDbMText", 1},    {L"AcDbRegion", 1},           {L"AcDbHatch", 1},
                                               {L"AcDbPolyline", 1}, {L"AcDbOrdinateDimension", 5}};
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

TEST_F(AxisGridCommand, AnswersAreInTheUsersCoordinates)
{
    // The user's X axis is the world's Y axis, from (100,0): (20,0) there is (100,20) here.
    AcGeMatrix3d ucs;
    ucs.setCoordSystem(AcGePoint3d(100.0, 0.0, 0.0), AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
    ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
    run(L"_QMAXISGRID 20,0\n6000\n3000\n\n\n\nWithout\nNo\n");
    AcDbExtents outline;
    forEach([&](AcDbEntity& entity) {
        if (AcDbRegion::cast(&entity)) entity.getGeomExtents(outline);
    });
    EXPECT_LT(outline.minPoint().distanceTo(AcGePoint3d(-2900.0, 20.0, 0.0)), 1e-6);
    EXPECT_LT(outline.maxPoint().distanceTo(AcGePoint3d(100.0, 6020.0, 0.0)), 1e-6);
}

TEST_F(AxisGridCommand, AsksAgainForWhatIsNoAnswer)
{
    run(L"_QMAXISGRID 0,0\nmany\n0\n6000\n3000\n-1\n1\nI\nB\n0\n100\nDots\nWithout\nNo\n");
    EXPECT_NE(takeOutput().find(L"距离须为大于 0 的数"), std::wstring::npos);
    EXPECT_EQ(countByClass()[L"AcDbLine"], 4);
}

TEST_F(AxisGridCommand, EscAtAnyQuestionLeavesNothing)
{
    const std::wstring answers[] = {L"R", L"30", L"0,0", L"6000", L"3000", L"1", L"A", L"100", L"N"};
    std::wstring typed = L"_QMAXISGRID ";
    for (const std::wstring& answer : answers) {
        run(typed + L"^C");
        EXPECT_TRUE(countByClass().empty()) << CStringA(typed.c_str()).GetString();
        typed += answer + L"\n";
    }
    AcDbObjectId layer;
    const AcDbObjectPointer<AcDbLayerTable> layers(database()->layerTableId(), AcDb::kForRead);
    EXPECT_EQ(layers->getAt(L"轴网-轴线", layer), Acad::eKeyNotFound);
}

TEST_F(AxisGridCommand, LooksByItsLayersWhateverIsCurrent)
{
    // On a locked layer, in red, with thick and transparent lines; the layer of an older grid is frozen and locked.
    run(L"-LAYER N 轴网-编号 F 轴网-编号 LO 轴网-编号 M Mine LO Mine \nCECOLOR 1\nCELWEIGHT 50\nCETRANSPARENCY 50\n");
    run(L"_QMAXISGRID 0,0\n6000\n3000\n\n\n\n\n\n");
    const std::map<std::wstring, int> counts = countByClass();
    EXPECT_EQ(counts.at(L"AcDbLine"), 4);
    forEach([](AcDbEntity& entity) {
        EXPECT_TRUE(entity.color().isByLayer());
        EXPECT_EQ(entity.lineWeight(), AcDb::kLnWtByLayer);
        EXPECT_EQ(CString(entity.layer()).Left(2), CString(L"轴网"));
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(entity.layerId(), AcDb::kForRead);
        EXPECT_FALSE(layer->isFrozen() || layer->isLocked());
    });
    CString current;
    ASSERT_TRUE(CFamStuSysVar::Get(L"CLAYER", current));
    EXPECT_EQ(current, CString(L"Mine"));
}

TEST_F(AxisGridCommand, GridsOfTwoScalesHaveTextsOfTheirOwnSize)
{
    run(L"_QMAXISGRID 0,0\n6000\n3000\n\n\n100\n\n\n_QMAXISGRID 50000,0\n6000\n3000\n\n\n200\n\n\n");
    std::map<double, int> sizes; // of dimensions, as their styles say
    forEach([&](AcDbEntity& entity) {
        const auto* dimension = AcDbOrdinateDimension::cast(&entity);
        if (!dimension) return;
        const AcDbObjectPointer<AcDbDimStyleTableRecord> style(dimension->dimensionStyle(), AcDb::kForRead);
        ++sizes[style->dimscale()];
    });
    EXPECT_EQ(sizes, (std::map<double, int>{{100.0, 4}, {200.0, 4}}));
}

TEST_F(AxisGridCommand, ProposesAGridOfTheDrawingsSize)
{
    // Inches: bays of 22 feet would dwarf a figure of 40 inches; a tenth of them is still larger, a hundredth is not.
    run(L"INSUNITS 1\nLINE 0,0 40,30 \n_QMAXISGRID\n\n\n\n\n\n\n\n\n");
    EXPECT_NE(takeOutput().find(L"<4*2.64>"), std::wstring::npos);
}

TEST_F(AxisGridCommand, IsRefusedOnASheet)
{
    run(L"TILEMODE 0\n_QMAXISGRID\n");
    EXPECT_NE(takeOutput().find(L"轴网画在模型空间"), std::wstring::npos);
    EXPECT_EQ(countByClass().count(L"AcDbLine"), 0u);
}
} // namespace
