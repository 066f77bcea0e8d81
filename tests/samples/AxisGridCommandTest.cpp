/// The command as users type it.

#include "AxisGridFixture.h"
#include "CFamStuSysVar.h"

#include "dbdim.h"
#include "dbdimsty.h"
#include "dbhatch.h"
#include "dbmtext.h"
#include "dbregion.h"

#include <cmath>

namespace
{
TEST_F(AxisGridCommand, DrawsWhatWasOrdered)
{
    // 3 + 2 axes, each with bubble, label and dimension; area 9 m by 4.5 m.
    run(L"_QMAXISGRID 100,200\n2*4500\n4500\n7\nC\n100\nNet\nYes\n");
    const std::wstring output = takeOutput();
    EXPECT_NE(output.find(L"建筑面积 40.50 平方米"), std::wstring::npos)
        << CStringA(output.c_str()).GetString();
    const std::map<std::wstring, int> expected{
        {L"AcDbLine", 5},   {L"AcDbCircle", 5}, {L"AcDbText", 5},     {L"AcDbMText", 1},
        {L"AcDbRegion", 1}, {L"AcDbHatch", 1},  {L"AcDbPolyline", 1}, {L"AcDbOrdinateDimension", 5}};
    EXPECT_EQ(countByClass(), expected);
    std::wstring labels;
    double measured = 0.0;
    forEach([&](AcDbEntity& entity) {
        if (const auto* text = AcDbText::cast(&entity))
            labels += std::wstring(text->textStringConst()) + L" ";
        if (const auto* dimension = AcDbOrdinateDimension::cast(&entity)) {
            double value = 0.0;
            dimension->measurement(value);
            measured += value;
        }
    });
    EXPECT_EQ(labels.substr(0, 10), L"7 8 9 C D ");
    EXPECT_NEAR(measured, 0.0 + 4500.0 + 9000.0 + 0.0 + 4500.0, 1e-6);
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
    EXPECT_FALSE(hasLayer(L"轴网-轴线"));
}

TEST_F(AxisGridCommand, LooksByItsLayersWhateverIsCurrent)
{
    // On a locked layer, in red, with thick and transparent lines; the layer of an older grid is frozen and
    // locked.
    run(L"-LAYER N 轴网-编号 F 轴网-编号 LO 轴网-编号 M Mine LO Mine \nCECOLOR 1\nCELWEIGHT "
        L"50\nCETRANSPARENCY 50\n");
    run(L"_QMAXISGRID 0,0\n6000\n3000\n\n\n\n\n\n");
    const std::map<std::wstring, int> counts = countByClass();
    EXPECT_EQ(counts.at(L"AcDbLine"), 4);
    forEach([](AcDbEntity& entity) {
        EXPECT_TRUE(entity.color().isByLayer());
        EXPECT_EQ(entity.lineWeight(), AcDb::kLnWtByLayer);
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(entity.layerId(), AcDb::kForRead);
        CString name;
        ASSERT_EQ(entity.layer(name), Acad::eOk);
        EXPECT_EQ(name.Left(2), CString(L"轴网"));
        EXPECT_FALSE(layer->isFrozen() || layer->isLocked());
    });
    CString current;
    ASSERT_TRUE(CFamStuSysVar::Get(L"CLAYER", current));
    EXPECT_EQ(current, CString(L"Mine"));
}

TEST_F(AxisGridCommand, GridsOfSeveralScalesAndUnitsHaveTextsOfTheirOwnSize)
{
    run(L"_QMAXISGRID 0,0\n6000\n3000\n\n\n100\n\n\n_QMAXISGRID 50000,0\n6000\n3000\n\n\n200\n\n\n");
    run(L"INSUNITS 6\n_QMAXISGRID 0,50000\n6\n3\n\n\n200\n\n\n"); // metres
    std::map<double, std::map<int, int>> sizes;                   // of dimensions, and decimals
    forEach([&](AcDbEntity& entity) {
        const auto* dimension = AcDbOrdinateDimension::cast(&entity);
        if (!dimension) return;
        const AcDbObjectPointer<AcDbDimStyleTableRecord> style(dimension->dimensionStyle(), AcDb::kForRead);
        ++sizes[style->dimscale()][style->dimdec()];
    });
    // Millimetres without decimals, metres with three: 0.005 mm of paper are 1 mm at 1:200.
    EXPECT_EQ(sizes,
              (std::map<double, std::map<int, int>>{{100.0, {{0, 4}}}, {200.0, {{0, 4}}}, {0.2, {{3, 4}}}}));
}

TEST_F(AxisGridCommand, PutsTheAreaBelowABuildingThatHasNoRoomForIt)
{
    run(L"_QMAXISGRID 0,0\n2*1500\n1200\n\n\n200\n\n\n");
    EXPECT_EQ(countByClass().count(L"AcDbPolyline"), 0u)
        << "no frame, which would be an outer loop of the hatch";
    AcDbExtents area, outline;
    std::vector<AcGePoint3d> bubbles;
    double hatched = 0.0;
    forEach([&](AcDbEntity& entity) {
        if (AcDbMText::cast(&entity)) entity.getGeomExtents(area);
        if (AcDbRegion::cast(&entity)) entity.getGeomExtents(outline);
        if (const auto* hatch = AcDbHatch::cast(&entity)) hatch->getArea(hatched);
        if (const auto* circle = AcDbCircle::cast(&entity)) bubbles.push_back(circle->center());
    });
    EXPECT_NEAR(hatched, 3000.0 * 1200.0, 1.0);
    EXPECT_LT(area.maxPoint().y, outline.minPoint().y - (12.0 + 2.0 * 4.0) * 200.0) << "below the bubbles";
    for (std::size_t i = 1; i < bubbles.size(); ++i)
        EXPECT_GE(bubbles[i].distanceTo(bubbles[i - 1]), 2.0 * 4.0 * 200.0) << "bubbles overlap";
}

TEST_F(AxisGridCommand, LeavesTheDrawingAsItWasWhenAStepFails)
{
    // At this scale the hatch is too dense, and axes, bubbles and area are there already.
    run(L"_QMAXISGRID 0,0\n6000\n3000\n\n\n0.001\n\n\n");
    EXPECT_NE(takeOutput().find(L"轴网绘制失败"), std::wstring::npos);
    EXPECT_TRUE(countByClass().empty());
    EXPECT_FALSE(hasLayer(L"轴网-轴线"));
}

TEST_F(AxisGridCommand, IsOneStepOfUndo)
{
    run(L"LINE 0,0 40000,30000 \n_QMAXISGRID\n\n\n\n\n\n\n\n\n");
    ASSERT_GT(countByClass().size(), 5u);
    run(L"U\n");
    EXPECT_EQ(countByClass(), (std::map<std::wstring, int>{{L"AcDbLine", 1}}));
    EXPECT_FALSE(hasLayer(L"轴网-轴线"));
    run(L"REDO\n");
    EXPECT_TRUE(hasLayer(L"轴网-轴线"));
}

TEST_F(AxisGridCommand, ProposesAGridOfTheDrawingsSize)
{
    // Inches: bays of 22 feet would dwarf a figure of 40 inches; a tenth of them is still larger, a hundredth
    // is not.
    run(L"INSUNITS 1\nLINE 0,0 40,30 \n_QMAXISGRID\n\n\n\n\n\n\n\n\n");
    EXPECT_NE(takeOutput().find(L"<4*2.64>"), std::wstring::npos);
}

TEST_F(AxisGridCommand, TakesEnterForAProposalTooSmallToBeWritten)
{
    run(L"INSUNITS 0\nLINE 0,0 0.0000001,0.00000005 \n");
    takeOutput();
    run(L"_QMAXISGRID\n\n\n\n\n\n\n\n\n");
    const std::wstring output = takeOutput();
    EXPECT_NE(output.find(L"<4*0>"), std::wstring::npos) << "six decimals";
    EXPECT_EQ(output.find(L"距离须为大于 0 的数"), std::wstring::npos);
}

TEST_F(AxisGridCommand, IsRefusedOnASheet)
{
    run(L"TILEMODE 0\n_QMAXISGRID\n");
    EXPECT_NE(takeOutput().find(L"轴网画在模型空间"), std::wstring::npos);
    EXPECT_EQ(countByClass().count(L"AcDbLine"), 0u);
}
} // namespace
