#include "dblayoutmanager.h"
#include "ViewFixture.h"

namespace
{
class Viewports : public ViewTest
{
protected:
    /// Splits the model tab: the left half stays active, the right half is new.
    AcDbObjectId split()
    {
        const Lock lock;
        AcDbObjectId id;
        AcDbObjectPointer<AcDbViewportTable> table(database()->viewportTableId(), AcDb::kForWrite);
        auto* right = new AcDbViewportTableRecord;
        right->setName(L"*Active");
        right->setLowerLeftCorner({0.5, 0.0});
        right->setUpperRightCorner({1.0, 1.0});
        right->setHeight(50.0);
        right->setCenterPoint({7.0, 8.0});
        EXPECT_EQ(table->add(id, right), Acad::eOk);
        right->close();
        AcDbObjectPointer<AcDbViewportTableRecord> left(acedActiveViewportId(), AcDb::kForWrite);
        left->setUpperRightCorner({0.5, 1.0});
        return id;
    }
    static AcGePoint3d screen() { return pointOf(L"SCREENSIZE"); }
};
} // namespace

// The default drawing shows its limits, 420 x 297, over the height of the window; what it shows beside them
// follows from the window's proportions.
TEST_F(Viewports, ANewDrawingShowsItsLimits)
{
    const double half = 297.0 / 2.0 * screen().x / screen().y;
    EXPECT_DOUBLE_EQ(realOf(L"VIEWSIZE"), 297.0);
    expectNear(pointOf(L"VIEWCTR"), {210.0, 148.5, 0.0});
    expectNear(pointOf(L"VSMIN"), {210.0 - half, 0.0, 0.0});
    expectNear(pointOf(L"VSMAX"), {210.0 + half, 297.0, 0.0});
    EXPECT_EQ(textOf(L"CTAB"), L"Model");
    EXPECT_EQ(acedNumberOfViewports(), 1);
}

// Seen from the front (0, -1, 0) in a UCS whose origin is (1, 2, 3): the view's centre (10, 20) lies at the
// world's (10, 0, 20).
TEST_F(Viewports, VariablesGiveTheViewInTheUcs)
{
    AcDbViewTableRecord view;
    view.setViewDirection({0.0, -2.0, 0.0});
    view.setCenterPoint({10.0, 20.0});
    view.setHeight(100.0);
    view.setTarget({0.0, 0.0, 0.0});
    view.setViewTwist(0.25);
    view.setLensLength(35.0);
    view.setFrontClipDistance(3.0);
    view.setBackClipDistance(-4.0);
    view.setFrontClipEnabled(true);
    view.setFrontClipAtEye(false);
    view.setBackClipEnabled(true);
    ASSERT_EQ(acedSetCurrentView(&view, nullptr), Acad::eOk);
    view.setViewTwist(0.0);
    ASSERT_EQ(acedSetCurrentView(&view, nullptr), Acad::eOk);
    ASSERT_EQ(acedSetCurrentUCS(frame({1.0, 2.0, 3.0}, AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis)),
              Acad::eOk);
    // The world's (10, 0, 20) less (1, 2, 3) is (9, -2, 17); along the axes (0,1,0), (-1,0,0) that is (-2,
    // -9, 17).
    expectNear(pointOf(L"VIEWCTR"), {-2.0, -9.0, 17.0});
    expectNear(pointOf(L"VIEWDIR"), {-2.0, 0.0, 0.0});
    expectNear(pointOf(L"TARGET"), {-2.0, 1.0, -3.0});
    EXPECT_EQ(realOf(L"VIEWSIZE"), 100.0);
    EXPECT_EQ(realOf(L"LENSLENGTH"), 35.0);
    EXPECT_EQ(realOf(L"FRONTZ"), 3.0);
    EXPECT_EQ(realOf(L"BACKZ"), -4.0);
    EXPECT_EQ(integerOf(L"VIEWMODE"), 2 + 4 + 16);
    EXPECT_EQ(realOf(L"VIEWTWIST"), 0.0);
}

TEST_F(Viewports, ViewsThatAreTooWideGrowInHeight)
{
    AcDbViewTableRecord view;
    view.setHeight(10.0);
    view.setWidth(1000.0);
    ASSERT_EQ(acedSetCurrentView(&view, nullptr), Acad::eOk);
    EXPECT_DOUBLE_EQ(realOf(L"VIEWSIZE"), 1000.0 * screen().y / screen().x);
}

TEST_F(Viewports, RefuseViewsOfTheOtherSpaceAndForeignViewports)
{
    AcDbViewTableRecord view;
    AcDbViewport stranger;
    EXPECT_EQ(acedSetCurrentView(nullptr, nullptr), Acad::eInvalidInput);
    EXPECT_EQ(acedSetCurrentView(&view, &stranger), Acad::eInvalidInput);
    view.setIsPaperspaceView(true);
    EXPECT_EQ(acedSetCurrentView(&view, nullptr), Acad::eInvalidInput);
    EXPECT_EQ(realOf(L"VIEWSIZE"), 297.0);
    ASSERT_EQ(setInteger(L"TILEMODE", 0), RTNORM);
    EXPECT_EQ(acedSetCurrentView(&view, nullptr), Acad::eOk);
    view.setIsPaperspaceView(false);
    EXPECT_EQ(acedSetCurrentView(&view, nullptr), Acad::eInvalidInput);
}

TEST_F(Viewports, NamedViewsBringTheirUcs)
{
    AcDbObjectId id;
    {
        const Lock lock;
        AcDbObjectPointer<AcDbViewTable> table(database()->viewTableId(), AcDb::kForWrite);
        auto* view = new AcDbViewTableRecord;
        view->setName(L"front");
        view->setHeight(60.0);
        view->setUcs(AcGePoint3d(1.0, 2.0, 3.0), AcGeVector3d::kXAxis, AcGeVector3d::kYAxis);
        ASSERT_EQ(table->add(id, view), Acad::eOk);
        view->close();
    }
    ASSERT_EQ(acedRestoreCurrentView(id), Acad::eOk);
    EXPECT_DOUBLE_EQ(realOf(L"VIEWSIZE"), 60.0);
    expectNear(pointOf(L"UCSORG"), {1.0, 2.0, 3.0});
    EXPECT_EQ(acedRestoreCurrentView(AcDbObjectId()), Acad::eNullObjectId);
}

TEST_F(Viewports, TilesKeepTheirNumbersWhenAnotherBecomesActive)
{
    const AcDbObjectId left = acedActiveViewportId(), right = split();
    EXPECT_EQ(acedNumberOfViewports(), 2);
    EXPECT_EQ(integerOf(L"CVPORT"), 2);
    ASSERT_EQ(acedSetCurrentVPort(3), Acad::eOk);
    EXPECT_EQ(acedActiveViewportId(), right);
    EXPECT_EQ(integerOf(L"CVPORT"), 3);
    EXPECT_EQ(realOf(L"VIEWSIZE"), 50.0);
    EXPECT_NEAR(pointOf(L"SCREENSIZE").x * 2.0, static_cast<double>(acedGetAcadDwgView() ? 1920 : 0), 1.0);
    ASSERT_EQ(setInteger(L"CVPORT", 2), RTNORM);
    EXPECT_EQ(acedActiveViewportId(), left);
    EXPECT_EQ(setInteger(L"CVPORT", 4), RTERROR);
    EXPECT_EQ(acedSetCurrentVPort(1), Acad::eInvalidInput);
    resbuf* list = nullptr;
    ASSERT_EQ(acedVports(&list), RTNORM);
    EXPECT_EQ(list->rbnext->resval.rint, 2); // the active one first
    const resbuf* upper = list->rbnext->rbnext->rbnext;
    EXPECT_EQ(upper->resval.rpoint[X], 0.5);
    EXPECT_EQ(upper->rbnext->rbnext->rbnext->resval.rint, 3);
    acutRelRb(list);
}

TEST_F(Viewports, TilesKeepAUcsEach)
{
    split();
    ASSERT_EQ(acedSetCurrentUCS(frame({5.0, 0.0, 0.0}, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis)),
              Acad::eOk);
    ASSERT_EQ(acedSetCurrentVPort(3), Acad::eOk);
    EXPECT_EQ(integerOf(L"WORLDUCS"), 1);
    ASSERT_EQ(acedSetCurrentVPort(2), Acad::eOk);
    expectNear(pointOf(L"UCSORG"), {5.0, 0.0, 0.0});
}

TEST_F(Viewports, HaveGridAndSnapEach)
{
    split();
    EXPECT_EQ(integerOf(L"UCSICON"), 3);
    expectNear(pointOf(L"SNAPUNIT"), {10.0, 10.0, 0.0});
    resbuf unit{};
    unit.restype = RTPOINT;
    unit.resval.rpoint[X] = unit.resval.rpoint[Y] = 2.5;
    EXPECT_EQ(setInteger(L"SNAPMODE", 1), RTNORM);
    EXPECT_EQ(acedSetVar(L"SNAPUNIT", &unit), RTNORM);
    EXPECT_EQ(setInteger(L"UCSICON", 1), RTNORM);
    unit.resval.rpoint[X] = -1.0;
    EXPECT_EQ(acedSetVar(L"SNAPUNIT", &unit), RTERROR);
    EXPECT_EQ(setInteger(L"SNAPMODE", 2), RTERROR);
    ASSERT_EQ(acedSetCurrentVPort(3), Acad::eOk);
    EXPECT_EQ(integerOf(L"SNAPMODE"), 0);
    ASSERT_EQ(acedSetCurrentVPort(2), Acad::eOk);
    EXPECT_EQ(integerOf(L"SNAPMODE"), 1);
    EXPECT_EQ(integerOf(L"UCSICON"), 1);
    expectNear(pointOf(L"SNAPUNIT"), {2.5, 2.5, 0.0});
}

// Without UCSVP a viewport does not bring a UCS along: the current one stays.
TEST_F(Viewports, FollowTheCurrentUcsWithoutOneOfTheirOwn)
{
    split();
    ASSERT_EQ(acedSetCurrentVPort(3), Acad::eOk);
    ASSERT_EQ(setInteger(L"UCSVP", 0), RTNORM);
    ASSERT_EQ(acedSetCurrentVPort(2), Acad::eOk);
    ASSERT_EQ(acedSetCurrentUCS(frame({5.0, 0.0, 0.0}, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis)),
              Acad::eOk);
    ASSERT_EQ(acedSetCurrentVPort(3), Acad::eOk);
    expectNear(pointOf(L"UCSORG"), {5.0, 0.0, 0.0});
}

TEST_F(Viewports, LayoutsHaveASheetAndWindows)
{
    EXPECT_EQ(acedMspace(), Acad::eNotInPaperspace);
    EXPECT_EQ(acedPspace(), Acad::eNotInPaperspace);
    ASSERT_EQ(setInteger(L"TILEMODE", 0), RTNORM);
    EXPECT_EQ(textOf(L"CTAB"), L"Layout1");
    EXPECT_EQ(integerOf(L"CVPORT"), 1);
    EXPECT_EQ(acedMspace(), Acad::eCannotChangeActiveViewport);
    const AcDbObjectId paper = database()->currentSpaceId();
    EXPECT_NE(paper, database()->modelSpaceId());
    const AcDbObjectId window = addWindow();
    ASSERT_EQ(acedMspace(), Acad::eOk);
    EXPECT_EQ(acedActiveViewportId(), window);
    EXPECT_EQ(integerOf(L"CVPORT"), 2);
    EXPECT_EQ(realOf(L"VIEWSIZE"), 400.0);
    EXPECT_EQ(database()->currentSpaceId(), database()->modelSpaceId());
    ASSERT_EQ(acedPspace(), Acad::eOk);
    EXPECT_EQ(database()->currentSpaceId(), paper);
    edit(window, [](AcDbViewport& viewport) {
        viewport.setOff();
        EXPECT_EQ(acedSetCurrentVPort(&viewport), Acad::eCannotChangeActiveViewport);
        viewport.setOn();
        EXPECT_EQ(acedSetCurrentVPort(&viewport), Acad::eOk);
    });
    EXPECT_EQ(acedActiveViewportId(), window);
    edit(window, [](AcDbViewport& viewport) { viewport.setOff(); }); // one cannot work where nothing is shown
    EXPECT_EQ(integerOf(L"CVPORT"), 1);
    EXPECT_EQ(database()->currentSpaceId(), paper);
    edit(window, [](AcDbViewport& viewport) { viewport.setOn(); });
    EXPECT_EQ(acedActiveViewportId(), window);
    edit(window, [](AcDbViewport& viewport) { viewport.erase(); });
    EXPECT_EQ(integerOf(L"CVPORT"), 1);
    EXPECT_EQ(database()->currentSpaceId(), paper);
    ASSERT_EQ(setInteger(L"TILEMODE", 1), RTNORM);
    EXPECT_EQ(integerOf(L"CVPORT"), 2);
}

// Without a lock of the caller's: the variable takes its own for the sheets that are shown for the first
// time.
TEST_F(Viewports, TabsAreShownByTheirNames)
{
    const auto show = [](const wchar_t* name) {
        resbuf value;
        value.restype = RTSTR;
        value.resval.rstring = const_cast<wchar_t*>(name);
        return acedSetVar(L"CTAB", &value);
    };
    AcDbLayoutManager& layouts = *acdbHostApplicationServices()->layoutManager();
    AcDbObjectId layout, block;
    {
        const Lock lock;
        ASSERT_EQ(layouts.createLayout(L"Plan", layout, block), Acad::eOk);
    }
    const AcDbObjectId window = addWindow(); // of Layout1
    ASSERT_EQ(acedMspace(), Acad::eOk);
    ASSERT_EQ(show(L"plan"), RTNORM);
    EXPECT_EQ(textOf(L"CTAB"), L"Plan");
    EXPECT_EQ(integerOf(L"TILEMODE"), 0);
    EXPECT_EQ(database()->currentSpaceId(), block);
    EXPECT_EQ(integerOf(L"CVPORT"), 1) << "the window is on the other sheet";
    EXPECT_NE(acedActiveViewportId(), window);
    EXPECT_FALSE(acedActiveViewportId().isNull()) << "the sheet has its viewport";
    EXPECT_EQ(show(L"no such tab"), RTERROR);
    EXPECT_EQ(textOf(L"CTAB"), L"Plan");
    ASSERT_EQ(show(L"MODEL"), RTNORM);
    EXPECT_EQ(database()->currentSpaceId(), database()->modelSpaceId());
    ASSERT_EQ(setInteger(L"TILEMODE", 0), RTNORM);
    EXPECT_EQ(textOf(L"CTAB"), L"Plan") << "the layout shown last";
    EXPECT_EQ(acDocManager->curDocument()->myLockMode(), AcAp::kNotLocked);
}

TEST_F(Viewports, ViewsGoIntoAWindowThatIsOpenForWrite)
{
    const AcDbObjectId id = addWindow();
    AcDbViewTableRecord view;
    view.setHeight(80.0);
    view.setWidth(80.0);
    edit(id, [&](AcDbViewport& window) {
        EXPECT_EQ(acedSetCurrentView(&view, &window), Acad::eOk);
        EXPECT_EQ(window.viewHeight(), 80.0);
        EXPECT_TRUE(window.isWriteEnabled());
    });
    AcDbObjectPointer<AcDbViewport> readOnly(id);
    EXPECT_EQ(acedSetCurrentView(&view, readOnly), Acad::eWasOpenForRead);
}

TEST_F(Viewports, LayersFreezeInOneWindow)
{
    const AcDbObjectId id = addWindow();
    AcDbObjectIdArray layers;
    layers.append(database()->layerZero());
    const Lock lock;
    const auto isFrozen = [&] {
        AcDbObjectPointer<AcDbViewport> window(id);
        return window->isLayerFrozenInViewport(database()->layerZero());
    };
    EXPECT_EQ(acedVPLayer(id, layers, AcDb::kFreeze), Acad::eOk);
    EXPECT_TRUE(isFrozen());
    EXPECT_EQ(acedVPLayer(id, layers, AcDb::kReset), Acad::eOk); // new viewports show the layer
    EXPECT_FALSE(isFrozen());
    EXPECT_EQ(acedVPLayer(id, layers, AcDb::kVpVisDefChange), Acad::eNotImplementedYet);
    EXPECT_EQ(acedVPLayer(database()->layerZero(), layers, AcDb::kFreeze), Acad::eInvalidInput);
    layers.append(id);
    EXPECT_EQ(acedVPLayer(id, layers, AcDb::kFreeze), Acad::eInvalidInput);
    EXPECT_FALSE(isFrozen());
}

TEST_F(Viewports, PixelsAndPointsLeadBackToEachOther)
{
    split();
    acedDwgPoint point;
    CPoint pixel;
    for (const CPoint& at : {CPoint(0, 0), CPoint(400, 300), CPoint(959, 999), CPoint(1500, 20)}) {
        const int number = acedCoordFromPixelToWorld(at, point);
        EXPECT_EQ(number, at.x < 960 ? 2 : 3);
        EXPECT_EQ(acedGetWinNum(at.x, at.y), number);
        ASSERT_TRUE(acedCoordFromWorldToPixel(number, point, pixel));
        EXPECT_EQ(pixel, at);
    }
    // The middle of the right tile shows its centre.
    ASSERT_TRUE(acedCoordFromPixelToWorld(3, CPoint(1440, static_cast<int>(screen().y / 2)), point));
    EXPECT_DOUBLE_EQ(point[X], 7.0);
    EXPECT_DOUBLE_EQ(point[Y], 8.0);
    EXPECT_FALSE(acedCoordFromPixelToWorld(9, CPoint(1, 1), point));
    point[X] = NAN;
    EXPECT_FALSE(acedCoordFromWorldToPixel(2, point, pixel));
}

// The sheet shows 297 paper units over the height of the drawing view; the window is 100 high, and its centre
// shows (0, 0).
TEST_F(Viewports, PixelsOfAWindowLieWhereTheSheetShowsIt)
{
    addWindow();
    ASSERT_EQ(acedMspace(), Acad::eOk);
    const AcGePoint3d size = screen();
    EXPECT_NEAR(size.x / size.y, 2.0, 1e-9);
    ASSERT_EQ(acedPspace(), Acad::eOk);
    EXPECT_NEAR(size.y, screen().y * 100.0 / realOf(L"VIEWSIZE"), 1e-9);
    const double perUnit = screen().y / realOf(L"VIEWSIZE");
    const AcGePoint3d center = pointOf(L"VIEWCTR");
    ASSERT_EQ(acedMspace(), Acad::eOk);
    const acedDwgPoint origin = {0.0, 0.0, 0.0};
    CPoint pixel;
    ASSERT_TRUE(acedCoordFromWorldToPixel(2, origin, pixel));
    EXPECT_NEAR(pixel.x, 960 + (150.0 - center.x) * perUnit, 1.0);
    EXPECT_NEAR(pixel.y, 500 - (100.0 - center.y) * perUnit, 1.0);
}
