#include "DatabaseFixture.h"
#include "dbblock.h"
#include "dbcircle.h"
#include "dbviewport.h"
#include "Drawn.h"
#include "RecordLists.h"

#include <cmath>

class Viewport : public DatabaseFixture
{
protected:
    AcDbObjectId addLayer(const wchar_t* name)
    {
        AcDbLayerTable* table = nullptr;
        AcDbObjectId id;
        mDatabase.getLayerTable(table, AcDb::kForWrite);
        auto* record = new AcDbLayerTableRecord;
        record->setName(name);
        EXPECT_EQ(table->add(id, record), Acad::eOk);
        record->close();
        table->close();
        return id;
    }

    AcDbObjectId addToPaper(AcDbEntity* entity)
    {
        AcDbBlockTable* table = nullptr;
        AcDbBlockTableRecord* space = nullptr;
        AcDbObjectId id;
        mDatabase.getBlockTable(table);
        EXPECT_EQ(table->getAt(ACDB_PAPER_SPACE, space, AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        space->close();
        table->close();
        return id;
    }

    AcDbViewport mViewport;
};

TEST_F(Viewport, ScaleIsHeightOverViewHeight)
{
    mViewport.setHeight(100.0);
    mViewport.setViewHeight(5000.0);
    EXPECT_DOUBLE_EQ(mViewport.customScale(), 0.02);
    EXPECT_EQ(mViewport.standardScale(), AcDbViewport::k1_50);
    ASSERT_EQ(mViewport.setCustomScale(0.3), Acad::eOk);
    EXPECT_NEAR(mViewport.viewHeight(), 100.0 / 0.3, 1e-9);
    EXPECT_EQ(mViewport.standardScale(), AcDbViewport::kCustomScale);
    EXPECT_EQ(mViewport.setCustomScale(0.0), Acad::eInvalidInput);
    EXPECT_NEAR(mViewport.customScale(), 0.3, 1e-12);
}

TEST_F(Viewport, EveryStandardScaleReadsBack)
{
    // 1:5 is type 5, 1:50 type 12, a quarter inch to the foot type 26 (a 48th).
    EXPECT_DOUBLE_EQ(acdbStandardScaleValue(static_cast<AcDbViewport::StandardScaleType>(5)), 0.2);
    EXPECT_DOUBLE_EQ(acdbStandardScaleValue(static_cast<AcDbViewport::StandardScaleType>(12)), 0.02);
    EXPECT_DOUBLE_EQ(acdbStandardScaleValue(static_cast<AcDbViewport::StandardScaleType>(26)), 1.0 / 48.0);
    for (int i = 2; i <= 34; ++i) {
        const auto type = static_cast<AcDbViewport::StandardScaleType>(i);
        ASSERT_EQ(mViewport.setStandardScale(type), Acad::eOk);
        EXPECT_EQ(mViewport.standardScale(), type);
        EXPECT_NEAR(mViewport.customScale(), acdbStandardScaleValue(type), 1e-12);
    }
    EXPECT_EQ(mViewport.setStandardScale(static_cast<AcDbViewport::StandardScaleType>(35)),
              Acad::eInvalidInput);
}

TEST_F(Viewport, ModelPointsGoToThePaper)
{
    mViewport.setCenterPoint({100, 50, 0});
    mViewport.setHeight(40.0);
    mViewport.setWidth(60.0);
    mViewport.setViewHeight(400.0);
    mViewport.setViewCenter({1000, 2000});
    EXPECT_LT((mViewport.modelToPaper() * AcGePoint3d(1000, 2000, 0)).distanceTo({100, 50, 0}), 1e-9);
    EXPECT_LT((mViewport.modelToPaper() * AcGePoint3d(1100, 2000, 0)).distanceTo({110, 50, 0}), 1e-9);
    // A view turned by 90 degrees: the world's Y runs to the left on the paper, so that +X runs up.
    mViewport.setViewCenter({0, 0});
    mViewport.setTwistAngle(std::acos(-1.0) / 2.0);
    EXPECT_LT((mViewport.modelToPaper() * AcGePoint3d(100, 0, 0)).distanceTo({100, 60, 0}), 1e-9);
    // Seen from the front (from -Y): the world's Z runs up.
    mViewport.setTwistAngle(0.0);
    mViewport.setViewDirection({0, -1, 0});
    const AcGePoint3d top = mViewport.modelToPaper() * AcGePoint3d(100, 0, 200);
    EXPECT_NEAR(top.x, 110.0, 1e-9);
    EXPECT_NEAR(top.y, 70.0, 1e-9);
}

TEST_F(Viewport, LayersFreezeHereOnly)
{
    const AcDbObjectId a = addLayer(L"A"), b = addLayer(L"B");
    AcDbObjectIdArray both, list;
    both.append(a);
    both.append(b);
    ASSERT_EQ(mViewport.freezeLayersInViewport(both), Acad::eOk);
    ASSERT_EQ(mViewport.freezeLayersInViewport(both), Acad::eOk); // a second time adds nothing
    mViewport.getFrozenLayerList(list);
    EXPECT_EQ(list.length(), 2);
    both.removeAt(0);
    mViewport.thawLayersInViewport(both);
    EXPECT_TRUE(mViewport.isLayerFrozenInViewport(a));
    EXPECT_FALSE(mViewport.isLayerFrozenInViewport(b));
    both.append(mDatabase.modelSpaceId());
    EXPECT_EQ(mViewport.freezeLayersInViewport(both), Acad::eInvalidLayer);
    EXPECT_FALSE(mViewport.isLayerFrozenInViewport(b));
    mViewport.thawAllLayersInViewport();
    EXPECT_FALSE(mViewport.isLayerFrozenInViewport(a));
}

TEST_F(Viewport, SwitchingOnGivesTheNextNumber)
{
    for (int number = 1; number <= 3; ++number) {
        auto* viewport = new AcDbViewport;
        addToPaper(viewport);
        EXPECT_FALSE(viewport->isOn());
        ASSERT_EQ(viewport->setOn(), Acad::eOk);
        EXPECT_TRUE(viewport->isOn());
        EXPECT_EQ(viewport->number(), number);
        EXPECT_EQ(drawnLines(*viewport).size(), number == 1 ? 0u : 4u); // the first is the layout itself
        viewport->setOff();
        EXPECT_FALSE(viewport->isOn());
        viewport->close();
    }
}

TEST_F(Viewport, OutlineGivesItsBoxAndKeepsTheScale)
{
    auto* circle = new AcDbCircle({50, 40, 0}, AcGeVector3d::kZAxis, 20.0);
    const AcDbObjectId circleId = addToPaper(circle);
    circle->close();
    auto* viewport = new AcDbViewport;
    addToPaper(viewport);
    EXPECT_EQ(viewport->setNonRectClipOn(), Acad::eInvalidInput);
    viewport->setCustomScale(0.1);
    const AcGePoint3d seen = viewport->modelToPaper() * AcGePoint3d(7, 8, 0);
    ASSERT_EQ(viewport->setNonRectClipEntityId(circleId), Acad::eOk);
    EXPECT_TRUE(viewport->isNonRectClipOn());
    EXPECT_NEAR(viewport->width(), 40.0, 1e-9);
    EXPECT_LT(viewport->centerPoint().distanceTo({50, 40, 0}), 1e-9);
    EXPECT_NEAR(viewport->customScale(), 0.1, 1e-12);
    EXPECT_LT((viewport->modelToPaper() * AcGePoint3d(7, 8, 0)).distanceTo(seen), 1e-9);
    EXPECT_EQ(viewport->setNonRectClipEntityId(viewport->objectId()), Acad::eInvalidInput);
    viewport->close();
}

TEST_F(Viewport, ViewOfOldFilesStandsInExtendedData)
{
    addLayer(L"HIDDEN");
    const PackedGroups groups = groupsOf(
        {{8, "0"},         {10, 5.0},     {20, 6.0},      {30, 0.0},       {40, 40.0},   {41, 20.0},
         {68, 2.0},        {69, 2.0},     {1001, "ACAD"}, {1000, "MVIEW"}, {1002, "{"},  {1070, 16.0},
         {1010, 1.0},      {1020, 2.0},   {1030, 3.0},    {1010, 0.0},     {1020, 0.0},  {1030, 1.0},
         {1040, 0.5},      {1040, 200.0}, {1040, 11.0},   {1040, 12.0},    {1040, 50.0}, {1040, 0.0},
         {1040, 0.0},      {1070, 1.0},   {1070, 1000.0}, {1070, 1.0},     {1070, 1.0},  {1070, 0.0},
         {1070, 1.0},      {1070, 0.0},   {1070, 0.0},    {1040, 0.0},     {1040, 0.0},  {1040, 0.0},
         {1040, 10.0},     {1040, 10.0},  {1040, 20.0},   {1040, 20.0},    {1070, 1.0},  {1002, "{"},
         {1003, "HIDDEN"}, {1002, "}"},   {1002, "}"}});
    auto* viewport = new AcDbViewport;
    addToPaper(viewport);
    ListSource source(groups, &mDatabase);
    dxfRead(*viewport, source);
    viewport->completeRead();
    EXPECT_TRUE(viewport->isOn());
    EXPECT_LT(viewport->viewTarget().distanceTo({1, 2, 3}), 1e-12);
    EXPECT_DOUBLE_EQ(viewport->customScale(), 0.1);
    EXPECT_DOUBLE_EQ(viewport->viewCenter().y, 12.0);
    EXPECT_DOUBLE_EQ(viewport->gridIncrement().x, 20.0);
    EXPECT_TRUE(viewport->isPerspectiveOn());
    EXPECT_TRUE(viewport->isGridOn());
    EXPECT_TRUE(viewport->hiddenLinesRemoved());
    AcDbObjectIdArray frozen;
    viewport->getFrozenLayerList(frozen);
    EXPECT_EQ(frozen.length(), 1);
    viewport->close();
}

TEST_F(Viewport, GroupsGiveTheSameViewport)
{
    mViewport.setCenterPoint({1, 2, 0});
    mViewport.setTwistAngle(0.3);
    mViewport.setLocked();
    mViewport.setUcs({1, 1, 1}, AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis);
    mViewport.setShadePlot(AcDbViewport::kHidden);
    for (const DxfVersion version : {DxfVersion::r12, DxfVersion::r2000, DxfVersion::r2018}) {
        AcDbViewport copy;
        EXPECT_EQ(rewritten(copy, written(mViewport, version), nullptr, version),
                  textOf(written(mViewport, version)));
        EXPECT_EQ(copy.isLocked(), version != DxfVersion::r12);
    }
}

TEST_F(Viewport, RefusesWhatIsOutOfRange)
{
    EXPECT_EQ(mViewport.setHeight(0.0), Acad::eInvalidInput);
    EXPECT_EQ(mViewport.setWidth(std::nan("")), Acad::eInvalidInput);
    EXPECT_EQ(mViewport.setViewDirection(AcGeVector3d()), Acad::eInvalidInput);
    EXPECT_EQ(mViewport.setCircleSides(0), Acad::eInvalidInput);
    EXPECT_EQ(mViewport.setUcs(AcGePoint3d(), AcGeVector3d::kXAxis, AcGeVector3d::kXAxis),
              Acad::eInvalidInput);
    EXPECT_EQ(mViewport.setUcs(mDatabase.modelSpaceId()), Acad::eInvalidInput);
    AcGeMatrix3d uneven;
    uneven(0, 0) = 3.0;
    EXPECT_EQ(mViewport.transformBy(uneven), Acad::eCannotScaleNonUniformly);
}
