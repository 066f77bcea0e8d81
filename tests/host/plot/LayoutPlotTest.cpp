#include "DrawingFixture.h"

#include "PlotDrawing.h"
#include "PlotPage.h"
#include "ViewportPlot.h"
#include "dblayout.h"
#include "dbviewport.h"

using namespace plot;

namespace
{
constexpr double pi = 3.14159265358979323846;

/// A sheet of 100 by 100 with one viewport on it: 60 by 60 about its middle, which shows 30 by 30 of model space
/// about (15, 15).
class LayoutPlotTest : public DrawingFixture
{
protected:
    void SetUp() override
    {
        DrawingFixture::SetUp();
        sheet = addBlock(L"*Paper_Space7");
        auto window = std::make_unique<AcDbViewport>();
        window->setCenterPoint({50, 50, 0});
        window->setWidth(60);
        window->setHeight(60);
        window->setViewCenter({15, 15});
        window->setViewHeight(30);
        // The first viewport that is on is that of the sheet itself.
        viewport = add(std::make_unique<AcDbViewport>(), sheet);
        change([](AcDbViewport& whole) { whole.setOn(); });
        viewport = add(std::move(window), sheet);
        change([](AcDbViewport& shown) { shown.setOn(); });
    }

    template <class Change>
    void change(Change change)
    {
        AcDbObjectPointer<AcDbViewport> window(viewport, AcDb::kForWrite);
        change(*window.object());
    }

    void plotSheet()
    {
        plotHundred([&](Canvas& canvas) {
            PlotStyles styles(database);
            view.max.set(100, 100);
            AcDbObjectPointer<AcDbBlockTableRecord> block(sheet);
            drawViewports(canvas, styles, *block.object(), view);
        });
    }

    AcDbObjectId sheet, viewport;
};
} // namespace

TEST_F(LayoutPlotTest, ViewportShowsItsPartOfModelSpaceAtItsScale)
{
    auto mark = square(10, 10, 5);
    mark->setColorIndex(1);
    add(std::move(mark));
    plotSheet();
    // Two units of paper for one: the square is 10 wide and starts at 20 + 2 * 10.
    EXPECT_TRUE(at(41, 41) == red && at(48, 48) == red);
    EXPECT_TRUE(at(38, 41) == white && at(52, 41) == white);
}

TEST_F(LayoutPlotTest, ViewportCutsWhatLiesOutside)
{
    auto all = square(-1000, -1000, 2000);
    all->setColorIndex(1);
    add(std::move(all));
    plotSheet();
    EXPECT_TRUE(at(21, 21) == red && at(78, 78) == red);
    EXPECT_TRUE(at(18, 50) == white && at(81, 50) == white && at(50, 18) == white && at(50, 81) == white);
    change([&](AcDbViewport& window) {
        EXPECT_EQ(window.setNonRectClipEntityId(add(std::make_unique<AcDbCircle>(AcGePoint3d(50, 50, 0),
                                                                                AcGeVector3d::kZAxis, 20), sheet)),
                  Acad::eOk);
        window.setNonRectClipOn();
    });
    plotSheet();
    EXPECT_TRUE(at(50, 50) == red && at(50, 68) == red && at(50, 72) == white && at(66, 66) == white);
    change([](AcDbViewport& window) { window.setOff(); });
    plotSheet();
    EXPECT_EQ(inked(), 0);
}

TEST_F(LayoutPlotTest, LayersFrozenInTheViewportAreLeftOut)
{
    const AcDbObjectId layer = addLayer(L"here not", 1);
    auto mark = square(0, 0, 30);
    mark->setLayer(layer);
    add(std::move(mark));
    AcDbObjectIdArray layers;
    layers.append(layer);
    plotSheet();
    EXPECT_TRUE(at(50, 50) == red);
    change([&](AcDbViewport& window) { window.freezeLayersInViewport(layers); });
    plotSheet();
    EXPECT_EQ(inked(), 0);
}

TEST_F(LayoutPlotTest, TwistedAndTiltedViewsTurnModelSpace)
{
    auto mark = square(25, 10, 10); // at the right of the target
    mark->setColorIndex(1);
    add(std::move(mark));
    change([](AcDbViewport& window) {
        window.setViewTarget({15, 15, 0});
        window.setViewCenter({0, 0});
        window.setTwistAngle(pi / 2);
    });
    plotSheet();
    EXPECT_TRUE(at(50, 75) == red || at(50, 25) == red);
    EXPECT_TRUE(at(75, 50) == white && at(25, 50) == white);
    // From the front nothing of a flat square is seen but its edge.
    change([](AcDbViewport& window) {
        window.setTwistAngle(0);
        window.setViewDirection(-AcGeVector3d::kYAxis);
    });
    plotSheet();
    EXPECT_TRUE(at(75, 60) == white && at(75, 40) == white);
}

TEST_F(LayoutPlotTest, LineTypesAreAsLongOnThePaperInAllViewports)
{
    auto drawn = line(0, 15.25, 30, 15.25);
    drawn->setLinetype(addLinetype(L"dashed", 5, 5));
    add(std::move(drawn));
    view.hasWeights = false;
    plotSheet();
    int gaps = 0;
    for (int x = 21; x < 80; ++x) gaps += at(x - 1, 50) != white && at(x, 50) == white;
    EXPECT_NEAR(gaps, 6, 1); // 60 long on the paper; with the lengths of model space there were three
}

TEST(PlotPage, LayoutWithoutPaperHasNoSize)
{
    const AcDbLayout layout;
    EXPECT_EQ(paperOf(layout).width, 0.0);
}
