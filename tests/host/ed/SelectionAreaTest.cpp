#include "SelectionFixture.h"

#include "dbarc.h"
#include "dbdict.h"
#include "dbelipse.h"
#include "dbgroup.h"
#include "dbpl.h"
#include "dbpoint.h"
#include "dbspline.h"
#include "dbxline.h"

#include <cmath>

namespace
{
class SelectionAreas : public SelectionTest
{
protected:
    /// Whether a window from (0,0) to (10,10) takes an entity as a window and as a crossing.
    void expectTaken(std::unique_ptr<AcDbEntity> entity, bool asWindow, bool asCrossing)
    {
        const AcDbObjectId id = add(std::move(entity));
        SCOPED_TRACE(id.objectClass()->name());
        EXPECT_EQ(getWindow(L"W", {0, 0, 0}, {10, 10, 0}) == Ids{id}, asWindow);
        EXPECT_EQ(getWindow(L"C", {10, 10, 0}, {0, 0, 0}) == Ids{id}, asCrossing);
        ads_name name;
        nameOf(id, name);
        acdbEntDel(name);
    }
    std::unique_ptr<AcDbEntity> arc(double x, double y, double radius, double from, double to) const
    {
        return std::make_unique<AcDbArc>(AcGePoint3d(x, y, 0), radius, from, to);
    }
    std::unique_ptr<AcDbPolyline> polyline(const std::vector<AcGePoint2d>& points, double bulge = 0,
                                           double width = 0) const
    {
        auto made = std::make_unique<AcDbPolyline>();
        for (const AcGePoint2d& point : points) made->addVertexAt(made->numVerts(), point, bulge, width, width);
        return made;
    }
    AcDbObjectId makeBlock(const wchar_t* name)
    {
        auto* block = new AcDbBlockTableRecord;
        block->setName(name);
        AcDbBlockTable* table = nullptr;
        AcDbObjectId id;
        database()->getBlockTable(table, AcDb::kForWrite);
        table->add(id, block);
        table->close();
        block->close();
        return id;
    }
};
constexpr double pi = 3.14159265358979323846;
} // namespace

TEST_F(SelectionAreas, LinesAreTakenByWhatLiesInTheWindow)
{
    const auto line = [](double x1, double y1, double x2, double y2) {
        return std::make_unique<AcDbLine>(AcGePoint3d(x1, y1, 0), AcGePoint3d(x2, y2, 0));
    };
    expectTaken(line(1, 1, 9, 9), true, true);
    expectTaken(line(0, 0, 10, 10), true, true); // the edge belongs to it
    expectTaken(line(-5, 5, 15, 5), false, true);
    expectTaken(line(-5, 4, 4, -5), false, false); // its box meets the window, the line passes the corner
    expectTaken(line(11, 0, 11, 10), false, false);
}

// The circle about (14, 14) reaches to 14 - r/sqrt 2 along the diagonal: 4 sqrt 2 = 5.657 is the way to the corner.
TEST_F(SelectionAreas, CirclesAndArcsAreTakenExactly)
{
    const auto circle = [](double x, double y, double r) {
        return std::make_unique<AcDbCircle>(AcGePoint3d(x, y, 0), AcGeVector3d::kZAxis, r);
    };
    expectTaken(circle(5, 5, 5), true, true);
    expectTaken(circle(5, 5, 5.0001), false, true);
    expectTaken(circle(5, 5, 8), false, false); // around the window: 8 > 5 sqrt 2
    expectTaken(circle(14, 14, 5.65), false, false);
    expectTaken(circle(14, 14, 5.66), false, true);
    expectTaken(arc(5, 5, 8, 0.0, pi / 2), false, false);
    expectTaken(arc(5, 0, 4, 0.1, pi - 0.1), true, true);
    expectTaken(arc(5, 0, 4, pi + 0.1, 2 * pi - 0.1), false, false);
    // Its circle seen from the edge is the segment from 5 to 15 on y = 5.
    expectTaken(std::make_unique<AcDbCircle>(AcGePoint3d(10, 5, 0), AcGeVector3d::kYAxis, 5.0), false, true);
    expectTaken(std::make_unique<AcDbEllipse>(AcGePoint3d(5, 5, 0), AcGeVector3d::kZAxis, AcGeVector3d(5, 0, 0), 0.5),
                true, true);
}

TEST_F(SelectionAreas, OtherCurvesAreTakenByTheirShape)
{
    expectTaken(polyline({{2, 2}, {8, 2}}, 1.0), false, true); // a half circle below, down to -1
    expectTaken(polyline({{8, 2}, {2, 2}}, 1.0), true, true);  // and above
    expectTaken(polyline({{-2, 12}, {12, 12}}, 0, 3), false, false);
    expectTaken(polyline({{-2, 12}, {12, 12}}, 0, 5), false, true);  // half of the width reaches 9.5
    expectTaken(polyline({{-20, 5}, {20, 5}}, 0, 100), false, true); // the window lies in its width
    expectTaken(std::make_unique<AcDbPoint>(AcGePoint3d(5, 5, 40)), true, true);
    auto endless = std::make_unique<AcDbXline>();
    endless->setBasePoint({-100, -95, 0});
    endless->setUnitDir({1, 1, 0});
    expectTaken(std::move(endless), false, true);
    AcGePoint3dArray fit;
    for (const AcGePoint3d& point : {AcGePoint3d(1, 1, 0), AcGePoint3d(5, 9, 0), AcGePoint3d(9, 1, 0)})
        fit.append(point);
    expectTaken(std::make_unique<AcDbSpline>(fit), true, true);
}

TEST_F(SelectionAreas, BlocksAreTakenByTheirContents)
{
    const AcDbObjectId block = makeBlock(L"MARK");
    add(std::make_unique<AcDbLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(4, 0, 0)), nullptr, block);
    add(std::make_unique<AcDbLine>(AcGePoint3d(0, 14, 0), AcGePoint3d(4, 14, 0)), L"Detail", block);
    const auto reference = [block](double x, double y, double scale = 1) {
        auto made = std::make_unique<AcDbBlockReference>(AcGePoint3d(x, y, 0), block);
        made->setScaleFactors(AcGeScale3d(scale, scale, scale));
        return made;
    };
    expectTaken(reference(3, 2, 0.5), true, true);
    expectTaken(reference(3, 3), false, true);
    expectTaken(reference(3, -2), false, false); // the window lies between the two lines
    changeLayer(L"Detail", [](AcDbLayerTableRecord& layer) { layer.setIsOff(true); });
    expectTaken(reference(3, 3), true, true);
    expectTaken(reference(3, -10), false, false);
}

TEST_F(SelectionAreas, PolygonsMayBeAnyShape)
{
    const AcDbObjectId inNotch = addLine(4, 6, 6, 6), inArm = addLine(1, 6, 2, 8), across = addLine(1, 8, 9, 8);
    const std::vector<AcGePoint2d> u{{0, 0}, {10, 0}, {10, 10}, {7, 10}, {7, 3}, {3, 3}, {3, 10}, {0, 10}};
    EXPECT_EQ(getPolygon(L"WP", u), Ids{inArm});
    EXPECT_EQ(getPolygon(L"CP", u), (Ids{across, inArm}));
    EXPECT_EQ(getPolygon(L"F", {{5, 5}, {5, 7}, {5, 9}}), (Ids{across, inNotch}));
    EXPECT_TRUE(getPolygon(L"F", {{5, 5}}).empty());
    EXPECT_EQ(status(), RTERROR);
    EXPECT_TRUE(getPolygon(L"CP", {{0, 0}, {9, 9}}).empty());
}

TEST_F(SelectionAreas, BoxesGoByTheirDirection)
{
    const AcDbObjectId in = addLine(1, 1, 2, 2), across = addLine(5, 5, 15, 5);
    EXPECT_EQ(getWindow(L"B", {0, 0, 0}, {10, 10, 0}), Ids{in});
    EXPECT_EQ(getWindow(L"B", {10, 0, 0}, {0, 10, 0}), (Ids{across, in}));
}

TEST_F(SelectionAreas, WhatIsNotSeenIsFoundInTheWholeDrawingAlone)
{
    const AcDbObjectId shown = addLine(1, 1, 2, 2), off = addLine(1, 1, 2, 2, L"Off"),
                       frozen = addLine(1, 1, 2, 2, L"Frozen"), locked = addLine(1, 1, 2, 2, L"Locked");
    auto hiddenLine = std::make_unique<AcDbLine>(AcGePoint3d(1, 1, 0), AcGePoint3d(2, 2, 0));
    hiddenLine->setVisibility(AcDb::kInvisible);
    const AcDbObjectId hidden = add(std::move(hiddenLine));
    changeLayer(L"Off", [](AcDbLayerTableRecord& layer) { layer.setIsOff(true); });
    changeLayer(L"Frozen", [](AcDbLayerTableRecord& layer) { layer.setIsFrozen(true); });
    changeLayer(L"Locked", [](AcDbLayerTableRecord& layer) { layer.setIsLocked(true); });
    EXPECT_EQ(get(L"X"), (Ids{hidden, locked, frozen, off, shown}));
    EXPECT_EQ(get(L"X:L"), (Ids{hidden, frozen, off, shown}));
    EXPECT_EQ(get(L"A"), (Ids{hidden, locked, off, shown}));
    EXPECT_EQ(getWindow(L"C", {0, 0, 0}, {9, 9, 0}), (Ids{locked, shown}));
    EXPECT_EQ(getWindow(L"_C:L", {0, 0, 0}, {9, 9, 0}), Ids{shown});
    EXPECT_EQ(get(L"L"), Ids{locked});
}

TEST_F(SelectionAreas, SpacesAreThoseOfTheCurrentLayout)
{
    const AcDbObjectId model = addLine(1, 1, 2, 2);
    AcDbBlockTable* table = nullptr;
    AcDbObjectId paperSpace;
    database()->getBlockTable(table);
    table->getAt(ACDB_PAPER_SPACE, paperSpace);
    table->close();
    const AcDbObjectId paper =
        add(std::make_unique<AcDbLine>(AcGePoint3d(1, 1, 0), AcGePoint3d(2, 2, 0)), nullptr, paperSpace);
    EXPECT_EQ(get(L"A"), Ids{model});
    resbuf* inPaper = acutBuildList(67, 1, RTDXF0, L"LINE", RTNONE);
    EXPECT_EQ(get(L"X", nullptr, nullptr, inPaper), Ids{paper});
    acutRelRb(inPaper);
    EXPECT_EQ(getWindow(L"C", {0, 0, 0}, {9, 9, 0}), Ids{model});
}

TEST_F(SelectionAreas, GroupsAreTakenAsAWholeWhenPickstyleSaysSo)
{
    const AcDbObjectId near = addLine(1, 1, 2, 2), far = addLine(100, 100, 110, 110);
    AcDbDictionary* groups = nullptr;
    database()->getGroupDictionary(groups, AcDb::kForWrite);
    auto* group = new AcDbGroup(L"two lines");
    AcDbObjectId id;
    groups->setAt(L"PAIR", group, id);
    groups->close();
    group->append(near);
    group->append(far);
    group->close();
    EXPECT_EQ(getWindow(L"C", {0, 0, 0}, {9, 9, 0}), (Ids{near, far}));
    EXPECT_EQ(get(L"G", L"pair"), (Ids{near, far}));
    EXPECT_TRUE(get(L"G", L"none").empty());
    setVariable(L"PICKSTYLE", 0);
    EXPECT_EQ(getWindow(L"C", {0, 0, 0}, {9, 9, 0}), Ids{near});
}

TEST_F(SelectionAreas, FaultyRequestsAreErrors)
{
    addLine(1, 1, 2, 2);
    const ads_point point = {0, 0, 0}, nowhere = {std::nan(""), 0, 0};
    for (const wchar_t* mode : {L"Q", L"X:", L"X:Q", L":$:!", L"CQ"}) {
        EXPECT_TRUE(get(mode, point, point).empty());
        EXPECT_EQ(status(), RTERROR);
    }
    EXPECT_TRUE(get(L"W", point, nullptr).empty());
    EXPECT_TRUE(get(L"C", nowhere, point).empty());
    EXPECT_TRUE(get(L"CP", nullptr).empty());
    EXPECT_TRUE(get(L"P").empty());
    EXPECT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, nullptr), RTERROR);
}

// The parts of the list are those of the documentation of acedSSNameX.
TEST_F(SelectionAreas, SetsTellHowTheirEntitiesCameIn)
{
    const AcDbObjectId line = addLine(1, 1, 5, 1);
    ads_name ss;
    const ads_point one = {0, 0, 0}, other = {9, 9, 0};
    ASSERT_EQ(acedSSGet(L"C", one, other, nullptr, ss), RTNORM);
    resbuf* list = nullptr;
    ASSERT_EQ(acedSSNameX(&list, ss, 0), RTNORM);
    std::vector<int> types;
    for (const resbuf* node = list; node; node = node->rbnext) types.push_back(node->restype);
    const std::vector<int> corner{RTLB, RTSHORT, RT3DPOINT, RTLE};
    std::vector<int> expected{RTLB, RTSHORT, RTENAME, RTSHORT, RTSHORT, RTLE, RTLB, RTSHORT};
    for (int i = 0; i < 4; ++i) expected.insert(expected.end(), corner.begin(), corner.end());
    expected.push_back(RTLE);
    EXPECT_EQ(types, expected);
    EXPECT_EQ(list->rbnext->resval.rint, 3); // by crossing
    EXPECT_EQ(list->rbnext->rbnext->resval.rlname[0], line.asOldId());
    EXPECT_EQ(list->rbnext->rbnext->rbnext->rbnext->resval.rint, -1);
    acutRelRb(list);
    EXPECT_EQ(acedSSNameX(&list, ss, 1), RTERROR);
    acedSSFree(ss);

    const ads_point below = {3, -2, 0}, above = {3, 7, 0};
    resbuf* fence = acutBuildList(RTPOINT, below, RTPOINT, above, RTNONE);
    ASSERT_EQ(acedSSGet(L"F", fence, nullptr, nullptr, ss), RTNORM);
    acutRelRb(fence);
    ASSERT_EQ(acedSSNameX(&list, ss, -1), RTNORM);
    const resbuf* point = list;
    while (point && point->restype != RT3DPOINT) point = point->rbnext;
    ASSERT_TRUE(point);
    EXPECT_NEAR(point->resval.rpoint[X], 3, 1e-9);
    EXPECT_NEAR(point->resval.rpoint[Y], 1, 1e-9);
    acutRelRb(list);
    acedSSFree(ss);
}
