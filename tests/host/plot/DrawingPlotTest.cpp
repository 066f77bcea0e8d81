#include "../DrawingFolder.h"
#include "DrawingFixture.h"

#include "DrawingFile.h"
#include "PlotDrawing.h"
#include "PlotPage.h"
#include "dbproxy.h"

#include <algorithm>

using namespace plot;
namespace fs = std::filesystem;

namespace
{
bool hasKnownEntities(const AcDbDatabase& drawing)
{
    AcDbObjectPointer<AcDbBlockTableRecord> space(drawing.modelSpaceId());
    const std::vector<const AcDbEntity*> shown = shownEntities(*space.object());
    return std::any_of(shown.begin(), shown.end(), [](const AcDbEntity* entity) {
        return !entity->isKindOf(AcDbProxyEntity::desc());
    });
}

class DrawingPlot : public DrawingFixture, public testing::WithParamInterface<fs::path>
{
};

class PlotDrawingTest : public DrawingFixture
{
protected:
    PlotRequest request(const char* name)
    {
        target = folder / name;
        PlotRequest made;
        made.file = target.wstring();
        return made;
    }
};
} // namespace

TEST_P(DrawingPlot, ShowsItsModelSpace)
{
    if (GetParam().empty()) GTEST_SKIP() << "there are no drawings here";
    AcDbDatabase drawing(false);
    dxf::RepairReport report;
    ASSERT_EQ(dxf::readDrawing(drawing, GetParam().wstring(), report), Acad::eOk);
    target = folder / "plot.png";
    PlotRequest plotted;
    plotted.file = target.wstring();
    plotted.pixels = 600;
    ASSERT_EQ(plotDrawing(drawing, plotted), PlotStatus::done);
    readPicture();
    EXPECT_EQ(std::max(width(), height()), 600);
    // Not covered by something absurd, and empty only when there is nothing whose class is known.
    EXPECT_LT(inked(), width() * height() / 2);
    EXPECT_EQ(inked() > 100, hasKnownEntities(drawing));
}

INSTANTIATE_TEST_SUITE_P(Shared, DrawingPlot, testing::ValuesIn(drawingsIn({sharedFolder()})), testName);
INSTANTIATE_TEST_SUITE_P(Samples, DrawingPlot, testing::ValuesIn(drawingsIn({QM_SAMPLE_DRAWINGS})), testName);

TEST_F(PlotDrawingTest, ModelSpaceFillsThePaperInsideItsMargins)
{
    add(square(1000, 1000, 50));
    PlotRequest wanted = request("plot.png");
    wanted.width = wanted.height = 100;
    wanted.pixels = 100;
    ASSERT_EQ(plotDrawing(database, wanted), PlotStatus::done);
    readPicture();
    // Margins of a twentieth.
    EXPECT_TRUE(at(7, 7) == black && at(92, 92) == black && at(50, 50) == black);
    EXPECT_TRUE(at(3, 50) == white && at(96, 50) == white);
}

TEST_F(PlotDrawingTest, PaperLiesAsTheDrawingDoes)
{
    add(line(0, 0, 10, 50));
    PlotRequest wanted = request("plot.PNG");
    wanted.pixels = 297;
    ASSERT_EQ(plotDrawing(database, wanted), PlotStatus::done);
    readPicture();
    EXPECT_EQ(width(), 210);
    EXPECT_EQ(height(), 297);
}

TEST_F(PlotDrawingTest, EmptyDrawingIsAnEmptyPage)
{
    ASSERT_EQ(plotDrawing(database, request("plot.png")), PlotStatus::done);
    readPicture();
    EXPECT_EQ(inked(), 0);
}

TEST_F(PlotDrawingTest, RefusalsSayWhyAndLeaveNoFile)
{
    PlotRequest wanted = request("plot.jpg");
    EXPECT_EQ(plotDrawing(database, wanted), PlotStatus::badFormat);
    wanted = request("plot");
    EXPECT_EQ(plotDrawing(database, wanted), PlotStatus::badFormat);
    wanted = request("plot.png");
    wanted.layout = L"No such sheet";
    EXPECT_EQ(plotDrawing(database, wanted), PlotStatus::noSuchLayout);
    wanted = request("plot.png");
    wanted.pixels = 1000000;
    EXPECT_EQ(plotDrawing(database, wanted), PlotStatus::badPage);
    EXPECT_TRUE(isFolderEmpty());
    wanted = request("none/plot.png");
    EXPECT_EQ(plotDrawing(database, wanted), PlotStatus::notFound);
    EXPECT_STREQ(reasonOf(PlotStatus::notFound), "the folder does not exist");
}

TEST(PlotPage, WindowGrowsToThePapersProportions)
{
    const Paper paper{100, 50, 10, 5, 10, 5}; // 80 by 40 are free
    const AcDbExtents2d window = windowOn(paper, {{0, 0}, {40, 40}});
    // A millimetre is a unit; the content's middle is that of the free part.
    EXPECT_TRUE(window.minPoint().isEqualTo({-30, -5}));
    EXPECT_TRUE(window.maxPoint().isEqualTo({70, 45}));
    const AcDbExtents2d ofPoint = windowOn(paper, {{7, 7}, {7, 7}});
    EXPECT_NEAR(ofPoint.maxPoint().y - ofPoint.minPoint().y, 50.0 / 40, 1e-12);
}
