#include "ViewChange.h"

#include "ViewFixture.h"

namespace
{
class ViewChanges : public ViewTest
{
protected:
    static double aspect() { return pointOf(L"SCREENSIZE").x / pointOf(L"SCREENSIZE").y; }
    /// What the view is wide and high enough for.
    static void expectShown(const AcGePoint3d& center, double width, double height, double room = 1.0)
    {
        expectNear(pointOf(L"VIEWCTR"), center);
        EXPECT_NEAR(realOf(L"VIEWSIZE"), std::max(height, width / aspect()) * room, 1e-9);
    }
    static constexpr double room = 1.02; ///< around extents
};
} // namespace

TEST_F(ViewChanges, WindowsAreShownWholeWhicheverSideIsLonger)
{
    ASSERT_EQ(ed::zoomWindow({10.0, 20.0, 0.0}, {0.0, 0.0, 0.0}), Acad::eOk);
    expectShown({5.0, 10.0, 0.0}, 10.0, 20.0);
    ASSERT_EQ(ed::zoomWindow({0.0, 0.0, 0.0}, {100.0, 2.0, 0.0}), Acad::eOk);
    expectShown({50.0, 1.0, 0.0}, 100.0, 2.0);
    EXPECT_EQ(ed::zoomWindow({1.0, 1.0, 0.0}, {1.0, 1.0, 0.0}), Acad::eInvalidInput);
    EXPECT_EQ(ed::zoomWindow({NAN, 1.0, 0.0}, {1.0, 1.0, 0.0}), Acad::eInvalidInput);
    expectShown({50.0, 1.0, 0.0}, 100.0, 2.0);
}

TEST_F(ViewChanges, ExtentsLeaveOutWhatIsFrozenAndShrinkAgain)
{
    addLine({10.0, 10.0, 0.0}, {30.0, 20.0, 0.0});
    const AcDbObjectId far = addLine({0.0, 0.0, 0.0}, {1000.0, 900.0, 0.0});
    ASSERT_EQ(ed::zoomExtents(), Acad::eOk);
    expectShown({500.0, 450.0, 0.0}, 1000.0, 900.0, room);
    expectNear(pointOf(L"EXTMAX"), {1000.0, 900.0, 0.0});
    {
        const Lock lock;
        AcDbObjectPointer<AcDbEntity> entity(far, AcDb::kForWrite);
        entity->erase();
    }
    expectNear(pointOf(L"EXTMAX"), {1000.0, 900.0, 0.0}); // they shrink with the zoom only
    ASSERT_EQ(ed::zoomExtents(), Acad::eOk);
    expectShown({20.0, 15.0, 0.0}, 20.0, 10.0, room);
    expectNear(pointOf(L"EXTMIN"), {10.0, 10.0, 0.0});
    expectNear(pointOf(L"EXTMAX"), {30.0, 20.0, 0.0});
    addLine({10.0, 10.0, 0.0}, {50.0, 5.0, 0.0});
    expectNear(pointOf(L"EXTMAX"), {50.0, 20.0, 0.0}); // and grow with the drawing
}

TEST_F(ViewChanges, EmptySpacesShowTheirLimits)
{
    ASSERT_EQ(ed::zoomWindow({}, {1.0, 1.0, 0.0}), Acad::eOk);
    ASSERT_EQ(ed::zoomExtents(), Acad::eOk);
    expectShown({210.0, 148.5, 0.0}, 420.0, 297.0);
}

TEST_F(ViewChanges, AllShowsLimitsAndWhatLiesBeyond)
{
    addLine({0.0, 0.0, 0.0}, {100.0, 1000.0, 0.0});
    ASSERT_EQ(ed::zoomAll(), Acad::eOk);
    expectShown({210.0, 500.0, 0.0}, 420.0, 1000.0);
}

// From the front the line's x and z count: 40 wide and 60 high around (20, *, 30).
TEST_F(ViewChanges, ExtentsAreThoseOfTheViewsPlane)
{
    const AcDbObjectId id = addLine({0.0, -500.0, 0.0}, {40.0, 700.0, 60.0});
    look(-AcGeVector3d::kYAxis, 0.0);
    AcDbObjectIdArray ids;
    ids.append(id);
    ASSERT_EQ(ed::zoomObjects(ids), Acad::eOk);
    EXPECT_NEAR(realOf(L"VIEWSIZE"), 60.0 * room, 1e-9);
    expectNear(trans(pointOf(L"VIEWCTR"), 1, 2), {20.0, 30.0, 0.0});
    EXPECT_EQ(ed::zoomObjects({}), Acad::eInvalidInput);
}

TEST_F(ViewChanges, ScalesCountFromTheLimitsOrTheView)
{
    ASSERT_EQ(ed::zoomScale(2.0, ed::ZoomBase::view), Acad::eOk);
    EXPECT_DOUBLE_EQ(realOf(L"VIEWSIZE"), 148.5);
    ASSERT_EQ(ed::zoomScale(0.5, ed::ZoomBase::limits), Acad::eOk);
    EXPECT_DOUBLE_EQ(realOf(L"VIEWSIZE"), 594.0);
    for (const double bad : {0.0, -1.0, double(NAN), double(INFINITY)})
        EXPECT_EQ(ed::zoomScale(bad, ed::ZoomBase::view), Acad::eInvalidInput);
    ASSERT_EQ(ed::zoomCenter({5.0, 6.0, 0.0}, 10.0), Acad::eOk);
    expectShown({5.0, 6.0, 0.0}, 0.0, 10.0);
    ASSERT_EQ(ed::pan({0.0, 0.0, 0.0}, {2.0, 1.0, 0.0}), Acad::eOk);
    expectShown({3.0, 5.0, 0.0}, 0.0, 10.0);
}

TEST_F(ViewChanges, PreviousGoesBackTenSteps)
{
    for (int i = 1; i <= 12; ++i)
        ASSERT_EQ(ed::zoomCenter({}, i), Acad::eOk);
    for (int i = 11; i >= 2; --i) {
        ASSERT_EQ(ed::zoomPrevious(), Acad::eOk);
        EXPECT_EQ(realOf(L"VIEWSIZE"), i);
    }
    EXPECT_EQ(ed::zoomPrevious(), Acad::eNotApplicable);
    EXPECT_EQ(realOf(L"VIEWSIZE"), 2.0);
}

TEST_F(ViewChanges, PlanIsOneStep)
{
    look({1.0, 1.0, 1.0}, 0.4);
    ASSERT_EQ(ed::showPlan(AcGeMatrix3d::kIdentity), Acad::eOk);
    expectNear(AcGePoint3d::kOrigin + pointOf(L"VIEWDIR").asVector().normal(), {0.0, 0.0, 1.0});
    EXPECT_NEAR(std::fmod(realOf(L"VIEWTWIST"), 2.0 * pi), 0.0, 1e-12);
    ASSERT_EQ(ed::zoomPrevious(), Acad::eOk);
    EXPECT_DOUBLE_EQ(realOf(L"VIEWTWIST"), 0.4);
}

TEST_F(ViewChanges, WindowsZoomToPaperScaleAndStayWhenLocked)
{
    const AcDbObjectId id = addWindow(); // 100 high
    ASSERT_EQ(acedMspace(), Acad::eOk);
    ASSERT_EQ(ed::zoomScale(0.5, ed::ZoomBase::paper), Acad::eOk);
    EXPECT_DOUBLE_EQ(realOf(L"VIEWSIZE"), 200.0);
    edit(id, [](AcDbViewport& window) { window.setLocked(); });
    // Twice as near to the model's (20, 0), which the window shows 10 to the right of its centre (150, 100).
    ASSERT_EQ(ed::zoomCenter({20.0, 0.0, 0.0}, 100.0), Acad::eOk);
    EXPECT_DOUBLE_EQ(realOf(L"VIEWSIZE"), 200.0);
    ASSERT_EQ(acedPspace(), Acad::eOk);
    expectNear(pointOf(L"VIEWCTR"), {160.0, 100.0, 0.0});
    const double height = realOf(L"VIEWSIZE");
    ASSERT_EQ(ed::zoomPrevious(), Acad::eOk);
    EXPECT_DOUBLE_EQ(realOf(L"VIEWSIZE"), height * 2.0);
}
