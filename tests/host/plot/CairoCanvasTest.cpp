#include "PictureFixture.h"

#include "DrawLettering.h"

#include <csignal>
#include <cstdlib>
#include <sys/resource.h>

#include <gtest/gtest.h>

using namespace plot;

namespace
{
namespace fs = std::filesystem;

Points square(double from, double to)
{
    return {{from, from}, {to, from}, {to, to}, {from, to}};
}

Paint solid(colors::Rgb color)
{
    Paint paint;
    paint.ink.color = color;
    return paint;
}

using CairoCanvasTest = PictureFixture;

/// No file of this process grows beyond this size while it lives.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        mSignal = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &mBefore);
        const rlimit limit{bytes, mBefore.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &mBefore);
        std::signal(SIGXFSZ, mSignal);
    }

private:
    rlimit mBefore{};
    void (*mSignal)(int);
};
} // namespace

TEST_F(CairoCanvasTest, FilledAreasHaveTheirPixels)
{
    plotHundred([](Canvas& c) {
        c.fill({square(10, 50), square(20, 40)}, FillRule::evenOdd, solid(red));
        c.fill({square(60, 90), square(70, 80)}, FillRule::nonZero, solid(blue));
    });
    EXPECT_TRUE(at(15, 15) == red);
    EXPECT_TRUE(at(30, 30) == white); // the island
    EXPECT_TRUE(at(75, 75) == blue);  // no island: both turn the same way
    EXPECT_TRUE(at(9, 15) == white);
    EXPECT_TRUE(at(15, 9) == white);
    EXPECT_TRUE(at(75, 15) == white);
}

TEST_F(CairoCanvasTest, LinesAreAsWideAsTheirPen)
{
    plotHundred([](Canvas& c) {
        Pen pen;
        pen.ink.color = red;
        pen.width = 2.54; // ten pixels
        pen.cap = Cap::butt;
        c.stroke({{{10, 50}, {90, 50}}, false, false}, pen);
        pen.width = 0; // one pixel
        c.stroke({{{10, 20.5}, {90, 20.5}}, false, false}, pen);
    });
    EXPECT_TRUE(at(50, 45) == red);
    EXPECT_TRUE(at(50, 54) == red);
    EXPECT_TRUE(at(50, 44) == white);
    EXPECT_TRUE(at(50, 55) == white);
    EXPECT_TRUE(at(9, 50) == white);
    EXPECT_TRUE(at(50, 20) == red);
    EXPECT_TRUE(at(50, 21) == white);
}

TEST_F(CairoCanvasTest, TransformsAndClipsEndWithTheirPop)
{
    plotHundred([](Canvas& c) {
        c.pushTransform(AcGeMatrix2d::translation({50, 0}));
        c.pushTransform(AcGeMatrix2d::scaling(2));
        c.fill({square(5, 10)}, FillRule::evenOdd, solid(red)); // 60 ... 70, 10 ... 20
        EXPECT_DOUBLE_EQ(c.finest(), 0.5);
        c.popTransform();
        c.popTransform();
        c.popTransform();
        c.pushClip({square(10, 40)}, FillRule::evenOdd);
        c.fill({square(30, 60)}, FillRule::evenOdd, solid(blue));
        c.popClip();
        c.popClip();
        c.fill({square(80, 90)}, FillRule::evenOdd, solid(black));
    });
    EXPECT_TRUE(at(65, 15) == red);
    EXPECT_TRUE(at(55, 15) == white);
    EXPECT_TRUE(at(35, 35) == blue);
    EXPECT_TRUE(at(45, 45) == white);
    EXPECT_TRUE(at(85, 85) == black);
}

TEST_F(CairoCanvasTest, DashesAreInDrawingUnitsOrMillimetres)
{
    plotHundred([](Canvas& c) {
        Pen pen;
        pen.width = 0.508; // two pixels
        pen.cap = Cap::butt;
        pen.dashes = {20, -10}; // on 90: three patterns, ends of 10
        c.stroke({{{0, 50}, {90, 50}}, false, false}, pen);
        pen.dashes = {5.08, -2.54}; // the same in millimetres
        pen.dashMeasure = Measure::millimetres;
        c.pushTransform(AcGeMatrix2d::scaling(0.5));
        c.stroke({{{0, 40}, {180, 40}}, false, false}, pen);
    });
    for (const int y : {50, 20})
        for (int x = 2; x < 88; ++x) {
            const bool isGap = x % 30 >= 10 && x % 30 < 20;
            EXPECT_TRUE(at(x, y) == (isGap ? white : black)) << x << ',' << y;
        }
}

TEST_F(CairoCanvasTest, GradientsGoFromInkToInk)
{
    plotHundred([](Canvas& c) {
        Paint paint = solid(red);
        paint.kind = PaintKind::linear;
        paint.endInk.color = blue;
        paint.end.set(100, 0);
        c.fill({square(0, 100)}, FillRule::evenOdd, paint);
    });
    EXPECT_GT(at(2, 50).red, 245);
    EXPECT_NEAR(at(50, 50).red, 127, 4);
    EXPECT_GT(at(97, 50).blue, 245);
}

TEST_F(CairoCanvasTest, FarAwayGeometryIsCutAtThePage)
{
    plotHundred([](Canvas& c) {
        Pen pen;
        pen.width = 1;
        c.stroke({{{-1e12, 50}, {1e12, 50}}, false, false}, pen);
        c.stroke({{{50, 50}, {50, 1e15}, {1e15, 1e15}}, true, false}, pen);
        Points far = square(-1e14, 1e14);
        far[0].set(30, 30);
        far[1].set(1e14, 30);
        far[3].set(30, 1e14);
        c.fill({far}, FillRule::evenOdd, solid({0, 255, 0}));
        c.stroke({{{NAN, 0}, {INFINITY, 5}}, false, false}, pen);
        c.dots({{1e300, 1}, {10, 10}}, pen);
    });
    EXPECT_TRUE(at(15, 50) == black);
    EXPECT_TRUE(at(60, 60) == (colors::Rgb{0, 255, 0}));
    EXPECT_TRUE(at(29, 60) == white);
    EXPECT_TRUE(at(10, 10) == black);
}

TEST_F(CairoCanvasTest, WindowIsShownInTheMiddleOfThePage)
{
    CairoCanvas png = canvas("plot.png", PlotFormat::png);
    Page page = hundred();
    page.windowMin.set(1000, 1000);
    page.windowMax.set(1200, 1050); // 100 pixels wide, 25 high: from 37.5 to 62.5
    page.background = black;
    ASSERT_EQ(png.begin(page), PlotStatus::done);
    png.fill({{{1000, 1000}, {1200, 1000}, {1200, 1050}, {1000, 1050}}}, FillRule::evenOdd, solid(red));
    ASSERT_EQ(png.finish(), PlotStatus::done);
    picture = cairo_image_surface_create_from_png(target.c_str());
    EXPECT_TRUE(at(0, 50) == red);
    EXPECT_TRUE(at(99, 39) == red);
    EXPECT_TRUE(at(50, 36) == black);
    EXPECT_TRUE(at(50, 64) == black);
}

TEST_F(CairoCanvasTest, LetteringIsFilledWithItsInk)
{
    using namespace lettering;
    const Font& font = fontNamed({L"黑体", {}});
    plotHundred([&](Canvas& c) {
        Look look;
        look.height = 60;
        c.pushTransform(AcGeMatrix2d::translation({10, 20}));
        drawLettering(c, drawText(font, look, {{L"I", {true, false, false}}}), 60, {red, 1});
    });
    const InkBox stem = measureText(
                            font,
                            [] {
                                Look l;
                                l.height = 60;
                                return l;
                            }(),
                            L"I")
                            .ink;
    EXPECT_TRUE(at(10 + int((stem.min.x + stem.max.x) / 2), 50) == red);
    EXPECT_TRUE(at(12, 8) == red); // the underline, 12 below the baseline
    EXPECT_TRUE(at(90, 50) == white);
}

TEST_F(CairoCanvasTest, DenseHatchesAreTintedAndOthersDrawn)
{
    plotHundred([](Canvas& c) {
        kernel::HatchFamily dense, wide;
        dense.offset.set(0, 0.01);
        wide.offset.set(0, 10);
        Pen pen;
        pen.width = 0.508;
        drawHatch(c, {square(5, 45)}, {dense}, pen);
        drawHatch(c, {square(55, 95)}, {wide}, pen);
    });
    EXPECT_NEAR(at(25, 25).red, 127, 2);
    EXPECT_TRUE(at(75, 70) == black);
    EXPECT_TRUE(at(75, 75) == white);
}

TEST_F(CairoCanvasTest, SvgIsWellFormedAndHoldsThePaths)
{
    CairoCanvas svg = canvas("plot.svg", PlotFormat::svg);
    ASSERT_EQ(svg.begin(hundred()), PlotStatus::done);
    svg.fill({square(10, 50)}, FillRule::evenOdd, solid(red));
    svg.stroke({{{0, 0}, {50, 50}}, false, false}, {});
    EXPECT_EQ(svg.begin(hundred()), PlotStatus::badPage);
    EXPECT_EQ(svg.finish(), PlotStatus::badPage);
    EXPECT_TRUE(isFolderEmpty());

    CairoCanvas once = canvas("plot.svg", PlotFormat::svg);
    ASSERT_EQ(once.begin(hundred()), PlotStatus::done);
    once.fill({square(10, 50)}, FillRule::evenOdd, solid(red));
    once.stroke({{{0, 0}, {50, 50}}, false, false}, {});
    ASSERT_EQ(once.finish(), PlotStatus::done);
    const std::string check = "python3 -c \"import sys, xml.etree.ElementTree as e; "
                              "r = e.parse(sys.argv[1]).getroot(); "
                              "sys.exit(len(list(r.iter('{http://www.w3.org/2000/svg}path'))) != 2)\" '" +
                              target.string() + "'";
    EXPECT_EQ(std::system(check.c_str()), 0);
}

TEST_F(CairoCanvasTest, PdfHasAsManyPagesAsWereBegun)
{
    CairoCanvas pdf = canvas("plot.pdf", PlotFormat::pdf);
    ASSERT_EQ(pdf.begin(hundred()), PlotStatus::done);
    pdf.pushClip({square(0, 1)}, FillRule::evenOdd);
    Page large = hundred();
    large.width = 841;
    large.height = 1189;
    ASSERT_EQ(pdf.begin(large), PlotStatus::done);
    pdf.fill({square(10, 50)}, FillRule::evenOdd, solid(red));
    ASSERT_EQ(pdf.finish(), PlotStatus::done);
    EXPECT_EQ(contents().substr(0, 5), "%PDF-");
    EXPECT_NE(contents().find("/Count 2"), std::string::npos);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
}

TEST_F(CairoCanvasTest, FullDiskKeepsTheOldPlot)
{
    for (const PlotFormat format : {PlotFormat::png, PlotFormat::svg, PlotFormat::pdf}) {
        CairoCanvas plotted = canvas("plot", format);
        std::ofstream(target) << "old";
        const FullDisk disk(512);
        ASSERT_EQ(plotted.begin(hundred()), PlotStatus::done);
        for (int i = 0; i < 5000; ++i)
            plotted.stroke({{{i % 97 * 1.0, i % 89 * 1.0}, {i % 83 * 1.0, i % 79 * 1.0}}, false, false}, {});
        EXPECT_EQ(plotted.finish(), PlotStatus::diskFull);
        EXPECT_EQ(contents(), "old");
        EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
    }
}

TEST_F(CairoCanvasTest, MissingFoldersAndBadPagesAreRefused)
{
    CairoCanvas nowhere((folder / "none" / "plot.png").wstring(), PlotFormat::png);
    EXPECT_EQ(nowhere.begin(hundred()), PlotStatus::notFound);
    EXPECT_EQ(nowhere.finish(), PlotStatus::notFound);
    const auto begun = [&](const Page& page) { return canvas("plot.png", PlotFormat::png).begin(page); };
    Page huge = hundred(), empty = hundred(), odd = hundred(), margin = hundred();
    huge.dotsPerInch = 1e6;
    empty.windowMax = empty.windowMin;
    odd.width = NAN;
    margin.margin = 13;
    for (const Page& page : {huge, empty, odd, margin})
        EXPECT_EQ(begun(page), PlotStatus::badPage);
    EXPECT_TRUE(isFolderEmpty());
}

TEST_F(CairoCanvasTest, NothingIsLeftOfAPlotThatIsGivenUp)
{
    {
        CairoCanvas pdf = canvas("plot.pdf", PlotFormat::pdf);
        pdf.fill({square(0, 1)}, FillRule::evenOdd, {}); // before the page: nothing happens
        ASSERT_EQ(pdf.begin(hundred()), PlotStatus::done);
    }
    EXPECT_TRUE(isFolderEmpty());
    EXPECT_EQ(canvas("plot.pdf", PlotFormat::pdf).finish(), PlotStatus::failed);
}
