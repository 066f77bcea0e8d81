#include "QmCADLib.h"

#include "acedads.h"
#include "arxHeaders.h"
#include "dbview.h"
#include "DrawingTest.h"

#include <cmath>
#include <limits>

namespace
{
/// What the variables say of the view.
class Zooming : public headless::EditorTest
{
protected:
    AcDbObjectId addLine(const AcGePoint3d& from, const AcGePoint3d& to)
    {
        AcDbObjectId id;
        asCommand([&] { id = headless::addTo(database()->currentSpaceId(), new AcDbLine(from, to)); });
        return id;
    }
    static double real(const wchar_t* name)
    {
        double value = -1.0;
        CFamStuSysVar::Get(name, value);
        return value;
    }
    static AcGePoint3d point(const wchar_t* name)
    {
        AcGePoint3d value;
        CFamStuSysVar::Get(name, value);
        return value;
    }
    /// The view in its own coordinates: corners of the screen.
    static AcDbExtents seen()
    {
        AcGePoint3d low, high;
        EXPECT_EQ(CArxUtils::CDocView::ScrlbrtPt(low, high), 1);
        AcDbExtents box;
        box.addPoint(low);
        box.addPoint(high);
        return box;
    }
    static void expectSeen(const AcDbExtents& view, const AcGePoint3d& at)
    {
        const double slack = 1e-6;
        EXPECT_GE(at.x, view.minPoint().x - slack);
        EXPECT_LE(at.x, view.maxPoint().x + slack);
        EXPECT_GE(at.y, view.minPoint().y - slack);
        EXPECT_LE(at.y, view.maxPoint().y + slack);
    }
};

TEST_F(Zooming, WindowOfTwoPointsFillsTheView)
{
    CFamStuGlobe::Zoom(AcGePoint3d(110, 60, 0), AcGePoint3d(100, 20, 0));
    EXPECT_NEAR(real(L"VIEWSIZE"), 40.0, 1e-9);
    EXPECT_NEAR(point(L"VIEWCTR").distanceTo({105, 40, 0}), 0.0, 1e-9);
}

TEST_F(Zooming, WindowIsAtLeastFiveUnitsHigh)
{
    CFamStuGlobe::Zoom(AcGePoint3d(1, 1, 0), AcGePoint3d(2, 2, 0));
    EXPECT_NEAR(real(L"VIEWSIZE"), 5.0, 1e-9);
}

TEST_F(Zooming, ObjectsAreSeenWhole)
{
    const AcDbObjectId first = addLine({1000, 0, 0}, {1100, 40, 0}),
                       second = addLine({-500, 7, 0}, {-400, 7, 0});
    CFamStuGlobe::Zoom(first);
    expectSeen(seen(), {1000, 0, 0});
    expectSeen(seen(), {1100, 40, 0});
    EXPECT_NEAR(point(L"VIEWCTR").distanceTo({1050, 20, 0}), 0.0, 1e-6);
    AcDbObjectIdArray both;
    both.append(first);
    both.append(AcDbObjectId::kNull);
    both.append(second);
    CFamStuGlobe::Zoom(both);
    expectSeen(seen(), {1100, 40, 0});
    expectSeen(seen(), {-500, 7, 0});
}

TEST_F(Zooming, NothingToSeeChangesNothing)
{
    const double before = real(L"VIEWSIZE");
    CFamStuGlobe::Zoom(AcDbObjectId::kNull);
    CFamStuGlobe::Zoom(AcDbObjectIdArray());
    CFamStuGlobe::Zoom(AcGePoint3d(0, std::numeric_limits<double>::quiet_NaN(), 0), AcGePoint3d(1, 1, 0));
    EXPECT_EQ(real(L"VIEWSIZE"), before);
}

// The system is turned by 90 degrees and moved: the world point (x, y) is (y, 100 - x) there.
TEST_F(Zooming, ViewKeepsItsDirectionAndTargetInAnotherUcs)
{
    const AcDbObjectId line = addLine({100, 0, 0}, {140, 60, 0});
    AcGeMatrix3d toWorld;
    toWorld.setCoordSystem({100, 0, 0}, AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
    ASSERT_EQ(acedSetCurrentUCS(toWorld), Acad::eOk);
    CFamStuGlobe::Zoom(line);
    EXPECT_NEAR(point(L"VIEWCTR").distanceTo({30, -20, 0}), 0.0, 1e-6);
    const AcGePoint3d direction = point(L"VIEWDIR");
    EXPECT_NEAR(AcGeVector3d(direction.x, direction.y, direction.z).angleTo(AcGeVector3d::kZAxis), 0.0, 1e-9);
    expectSeen(seen(), {0, 0, 0});
    expectSeen(seen(), {60, -40, 0});
}
TEST_F(Zooming, ObliqueTwistedViewStaysSo)
{
    AcDbViewTableRecord oblique;
    oblique.setViewDirection({1, -2, 3});
    oblique.setViewTwist(0.5);
    oblique.setTarget({7, 8, 9});
    oblique.setLensLength(35.0);
    oblique.setHeight(100.0);
    ASSERT_EQ(acedSetCurrentView(&oblique, nullptr), Acad::eOk);
    const AcGePoint3d from(300, 0, 20), to(340, 60, -20);
    CFamStuGlobe::Zoom(addLine(from, to));
    EXPECT_NEAR(real(L"VIEWTWIST"), 0.5, 1e-9);
    EXPECT_NEAR(real(L"LENSLENGTH"), 35.0, 1e-9);
    EXPECT_NEAR(point(L"TARGET").distanceTo({7, 8, 9}), 0.0, 1e-9);
    EXPECT_NEAR((point(L"VIEWDIR") - AcGePoint3d::kOrigin).angleTo({1, -2, 3}), 0.0, 1e-9);
    AcGePoint3d center = point(L"VIEWCTR");
    CFamStuUcs::WcsToDCS(center);
    for (AcGePoint3d end : {from, to}) {
        CFamStuUcs::WcsToDCS(end);
        EXPECT_LE(std::fabs(end.y - center.y), real(L"VIEWSIZE") / 2.0 + 1e-6);
    }
}

TEST_F(Zooming, SheetOfALayoutIsZoomedAsPaper)
{
    const CFamStuSysVar paper(L"TILEMODE", 0, FALSE);
    CFamStuGlobe::Zoom(AcGePoint3d(0, 0, 0), AcGePoint3d(20, 60, 0));
    EXPECT_NEAR(real(L"VIEWSIZE"), 60.0, 1e-9);
    EXPECT_NEAR(point(L"VIEWCTR").distanceTo({10, 30, 0}), 0.0, 1e-9);
    const CFamStuSysVar model(L"TILEMODE", 1, FALSE);
    EXPECT_GT(std::fabs(real(L"VIEWSIZE") - 60.0), 1e-3); // model space has its own view
}
} // namespace
