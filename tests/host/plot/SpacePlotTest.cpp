#include "DrawingFixture.h"

#include <cmath>

#include "dbsortentstbl.h"

using namespace plot;

namespace
{
class SpacePlotTest : public DrawingFixture
{
protected:
    /// A square on a layer, in a colour.
    std::unique_ptr<AcDbSolid> mark(double x, double y, AcDbObjectId layer, int color)
    {
        auto solid = square(x, y, 10);
        if (!layer.isNull()) solid->setLayer(layer);
        solid->setColorIndex(static_cast<std::uint16_t>(color));
        return solid;
    }
    /// A reference to a block with marks at 0 (layer 0, by layer), 20 (layer 0, by block) and 40 (layer "blue", by
    /// layer).
    void addMarks(double y, AcDbObjectId layer, int color)
    {
        if (block.isNull()) {
            block = addBlock(L"marks");
            add(mark(0, 0, {}, 256), block);
            add(mark(20, 0, {}, 0), block);
            add(mark(40, 0, blueLayer(), 256), block);
        }
        auto reference = std::make_unique<AcDbBlockReference>(AcGePoint3d(10, y, 0), block);
        reference->setLayer(layer);
        reference->setColorIndex(static_cast<std::uint16_t>(color));
        add(std::move(reference));
    }
    AcDbObjectId blueLayer()
    {
        if (onBlue.isNull()) onBlue = addLayer(L"blue", 5);
        return onBlue;
    }
    template <class Change>
    void changeLayer(AcDbObjectId id, Change change)
    {
        AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
        change(*layer.object());
    }

    AcDbObjectId block, onBlue;
};

/// Where a mark of addMarks is seen.
constexpr int first = 15, second = 35, third = 55;
} // namespace

TEST_F(SpacePlotTest, ColoursComeFromTheEntityOrItsLayer)
{
    add(mark(0, 0, blueLayer(), 256));
    add(mark(20, 0, blueLayer(), 1));
    add(mark(40, 0, {}, 256)); // layer 0 has colour 7: black on paper
    auto own = square(60, 0, 10);
    AcCmColor color;
    color.setRGB(0, 255, 0);
    own->setColor(color);
    add(std::move(own));
    plotModel();
    EXPECT_TRUE(at(5, 5) == blue);
    EXPECT_TRUE(at(25, 5) == red);
    EXPECT_TRUE(at(45, 5) == black);
    EXPECT_TRUE(at(65, 5) == green);
    EXPECT_TRUE(at(85, 5) == white);
}

TEST_F(SpacePlotTest, EntitiesOfBlocksTakeWhatTheReferenceHas)
{
    const AcDbObjectId redLayer = addLayer(L"red", 1);
    addMarks(10, redLayer, 3);
    addMarks(30, redLayer, 256);
    plotModel();
    EXPECT_TRUE(at(first, 15) == red);    // layer 0 is the reference's layer
    EXPECT_TRUE(at(second, 15) == green); // by block
    EXPECT_TRUE(at(third, 15) == blue);   // a layer of its own
    EXPECT_TRUE(at(second, 35) == red);   // by block of a reference by layer
}

TEST_F(SpacePlotTest, HiddenLayersHideInTheirOwnWays)
{
    const AcDbObjectId redLayer = addLayer(L"red", 1);
    addMarks(10, redLayer, 3);
    const struct {
        const char* name;
        void (*hide)(AcDbLayerTableRecord&);
        bool hidesAllOfReferences;
    } cases[] = {{"off", [](AcDbLayerTableRecord& layer) { layer.setIsOff(true); }, false},
                 {"not plotted", [](AcDbLayerTableRecord& layer) { layer.setIsPlottable(false); }, false},
                 {"frozen", [](AcDbLayerTableRecord& layer) { layer.setIsFrozen(true); }, true}};
    for (const auto& one : cases) {
        changeLayer(redLayer, one.hide);
        plotModel();
        EXPECT_TRUE(at(first, 15) == white) << one.name;
        EXPECT_EQ(at(third, 15) == white, one.hidesAllOfReferences) << one.name;
        changeLayer(redLayer, [](AcDbLayerTableRecord& layer) {
            layer.setIsOff(false);
            layer.setIsPlottable(true);
        });
    }
    changeLayer(redLayer, [](AcDbLayerTableRecord& layer) { layer.setIsFrozen(false); });
    plotModel({blueLayer()});
    EXPECT_TRUE(at(first, 15) == red);
    EXPECT_TRUE(at(third, 15) == white);
}

TEST_F(SpacePlotTest, InvisibleAndErasedEntitiesAreLeftOut)
{
    auto hidden = square(0, 0, 50);
    hidden->setVisibility(AcDb::kInvisible);
    add(std::move(hidden));
    const AcDbObjectId erased = add(square(50, 50, 50));
    AcDbObjectPointer<AcDbSolid>(erased, AcDb::kForWrite)->erase();
    plotModel();
    EXPECT_EQ(inked(), 0);
}

TEST_F(SpacePlotTest, LineTypesLeaveGapsAsLongAsTheirScalesSay)
{
    const AcDbObjectId dashed = addLinetype(L"dashed", 5, 5);
    const auto addDashed = [&](double y, double scale, AcDbObjectId into) {
        auto drawn = line(0, y, 100, y);
        drawn->setLinetype(dashed);
        drawn->setLinetypeScale(scale);
        add(std::move(drawn), into);
    };
    const AcDbObjectId scaled = addBlock(L"scaled");
    addDashed(10.5, 1, {});
    addDashed(30.5, 2, {});
    addDashed(0, 1, scaled);
    auto reference = std::make_unique<AcDbBlockReference>(AcGePoint3d(0, 50.5, 0), scaled);
    reference->setScaleFactors(AcGeScale3d(2, 2, 2));
    add(std::move(reference));
    view.hasWeights = false;
    plotModel();
    const auto inkedIn = [&](int y) {
        int count = 0;
        for (int x = 0; x < 100; ++x)
            if (at(x, y) == black) ++count;
        return count;
    };
    // Ten gaps of 5 but for the round ends, and five of 10.
    EXPECT_NEAR(inkedIn(10), 50, 12);
    EXPECT_TRUE(at(0, 10) != white && at(99, 10) != white);
    int gaps = 0, gapsOfTwo = 0, gapsInBlock = 0;
    for (int x = 1; x < 100; ++x) {
        gaps += at(x - 1, 10) != white && at(x, 10) == white;
        gapsOfTwo += at(x - 1, 30) != white && at(x, 30) == white;
        gapsInBlock += at(x - 1, 50) != white && at(x, 50) == white;
    }
    // Whole patterns stand in the middle, and the dashes at both ends take up what is left.
    EXPECT_NEAR(gaps, 10, 1);
    EXPECT_NEAR(gapsOfTwo, 5, 1);
    EXPECT_EQ(gapsInBlock, gapsOfTwo);
}

TEST_F(SpacePlotTest, PolylinesAreAsWideAsTheySay)
{
    auto wide = std::make_unique<AcDbPolyline>();
    wide->addVertexAt(0, {10, 20}, 0, 10, 10);
    wide->addVertexAt(1, {50, 20}, 0, 10, 10);
    wide->addVertexAt(2, {50, 60}, 0, 10, 0); // narrowing to nothing at 90
    wide->addVertexAt(3, {50, 90}, 0, 0, 0);
    add(std::move(wide));
    auto arc = std::make_unique<AcDbPolyline>();
    arc->addVertexAt(0, {70, 50}, 1, 6, 6); // half a circle about (80, 50), below
    arc->addVertexAt(1, {90, 50}, 0, 0, 0);
    add(std::move(arc));
    plotModel();
    EXPECT_TRUE(at(30, 23) == black && at(30, 17) == black);
    EXPECT_TRUE(at(30, 27) == white && at(30, 13) == white);
    EXPECT_TRUE(at(53, 16) == black) << "the outer corner is mitred";
    EXPECT_TRUE(at(53, 63) == black && at(53, 85) == white && at(50, 80) == black);
    EXPECT_TRUE(at(80, 40) == black && at(80, 38) == black && at(80, 42) == black);
    EXPECT_TRUE(at(80, 60) == white && at(80, 50) == white);
}

TEST_F(SpacePlotTest, WidePolylinesHaveDashes)
{
    const AcDbObjectId linetype = addLinetype(L"wide dashes", 10, 10);
    for (const bool runsOn : {false, true}) {
        auto wide = std::make_unique<AcDbPolyline>();
        const double y = runsOn ? 60 : 20;
        wide->addVertexAt(0, {0, y}, 0, 8, 8);
        wide->addVertexAt(1, {50, y}, 0, 8, 8);
        wide->addVertexAt(2, {100, y}, 0, 8, 8);
        wide->setLinetype(linetype);
        wide->setPlinegen(runsOn);
        add(std::move(wide));
    }
    plotModel();
    // Half of the line takes two patterns of 20; with the dash at each end that leaves five pieces of 10. The whole line
    // takes five patterns, with half a dash at each end.
    EXPECT_TRUE(at(5, 23) == black && at(15, 20) == white && at(49, 17) == black && at(51, 23) == black);
    EXPECT_TRUE(at(3, 63) == black && at(10, 60) == white && at(20, 57) == black && at(50, 60) == white);
}

TEST_F(SpacePlotTest, EndlessLinesReachTheEdges)
{
    add(std::make_unique<AcDbXline>());
    auto endless = std::make_unique<AcDbXline>();
    endless->setBasePoint({1e6, 50.5, 0});
    endless->setUnitDir(AcGeVector3d::kXAxis);
    add(std::move(endless));
    auto ray = std::make_unique<AcDbRay>();
    ray->setBasePoint({20.5, 20, 0});
    ray->setUnitDir(AcGeVector3d::kYAxis);
    add(std::move(ray));
    plotModel();
    EXPECT_TRUE(at(0, 50) == black && at(99, 50) == black);
    EXPECT_TRUE(at(20, 99) == black && at(20, 15) == white);
}

TEST_F(SpacePlotTest, DrawOrderIsThatOfTheTable)
{
    const AcDbObjectId lower = add(mark(0, 0, {}, 1));
    add(mark(0, 0, {}, 5));
    plotModel();
    EXPECT_TRUE(at(5, 5) == blue);

    AcDbObjectPointer<AcDbBlockTableRecord> space(database.modelSpaceId(), AcDb::kForWrite);
    ASSERT_EQ(space->createExtensionDictionary(), Acad::eOk);
    AcDbObjectPointer<AcDbDictionary> extension(space->extensionDictionary(), AcDb::kForWrite);
    auto* table = new AcDbSortentsTable;
    AcDbObjectId id;
    ASSERT_EQ(extension->setAt(L"ACAD_SORTENTS", table, id), Acad::eOk);
    table->setBlockId(space->objectId());
    AcDbObjectIdArray ids;
    ids.append(lower);
    EXPECT_EQ(table->moveToTop(ids), Acad::eOk);
    table->close();
    extension->close();
    space->close();
    plotModel();
    EXPECT_TRUE(at(5, 5) == red);
}

TEST_F(SpacePlotTest, PointsHaveTheMarksOfTheirStyle)
{
    add(std::make_unique<AcDbPoint>(AcGePoint3d(50.5, 50.5, 0)));
    view.hasWeights = false;
    view.points.size = 20;
    const struct {
        int mode;
        int x, y; // a place that has ink
        int freeX, freeY;
    } cases[] = {{0, 50, 50, 50, 55},  {2, 65, 50, 60, 60},  {3, 65, 65, 65, 50},
                 {4, 50, 55, 50, 45}, {33, 60, 50, 50, 50}, {65, 60, 55, 55, 55}};
    for (const auto& one : cases) {
        view.points.mode = one.mode;
        plotModel();
        EXPECT_TRUE(at(one.x, one.y) != white) << one.mode;
        EXPECT_TRUE(at(one.freeX, one.freeY) == white) << one.mode;
    }
}

TEST_F(SpacePlotTest, ViewsFromTheSideSeeHeights)
{
    auto upright = std::make_unique<AcDbLine>(AcGePoint3d(20.5, 0, 10), AcGePoint3d(20.5, 0, 90));
    add(std::move(upright));
    auto circle = std::make_unique<AcDbCircle>(AcGePoint3d(60, 7, 50), AcGeVector3d::kYAxis, 30.5);
    add(std::move(circle));
    // Seen along Y: z is up.
    view.toPlane.setCoordSystem(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis, AcGeVector3d::kZAxis,
                                -AcGeVector3d::kYAxis);
    view.toPlane.transposeIt();
    view.hasWeights = false;
    plotModel();
    EXPECT_TRUE(at(20, 50) == black && at(20, 5) == white);
    EXPECT_TRUE(at(90, 50) != white && at(29, 50) != white && at(60, 80) != white && at(60, 50) == white);
}

TEST_F(SpacePlotTest, TextsAreFilledWithTheirColour)
{
    auto text = std::make_unique<AcDbText>(AcGePoint3d(10, 10, 0), L"III", AcDbObjectId(), 60);
    text->setColorIndex(1);
    add(std::move(text));
    auto paragraphs = std::make_unique<AcDbMText>();
    paragraphs->setContents(L"\u4e2d{\\C5;\u4e2d}");
    paragraphs->setTextHeight(20);
    paragraphs->setLocation({10, 95, 0});
    add(std::move(paragraphs));
    plotModel();
    int reds = 0, blues = 0, blacks = 0;
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 100; ++x) {
            const colors::Rgb pixel = at(x, y);
            reds += pixel == red && y >= 10 && y < 70;
            blues += y > 72 && pixel.blue > pixel.red + 100;
            blacks += y > 72 && pixel.blue < 100;
        }
    EXPECT_GT(reds, 200); // three stems of 60 by a few pixels
    EXPECT_GT(blues, 30);
    EXPECT_GT(blacks, 30);
}

TEST_F(SpacePlotTest, ColumnsStandUprightBelowTheirPoint)
{
    const AcDbObjectId down = addColumnStyle(L"DOWN");
    const double upright = 3 * std::acos(-1.0) / 2;
    add(std::make_unique<AcDbText>(AcGePoint3d(50, 90, 0), L"III", down, 20, upright));
    plotModel();
    // Three stems from 90 to 70, 60 to 40 and 30 to 10, and nothing beside them.
    for (const int y : {80, 50, 20})
        EXPECT_NE(at(50, y), white) << y;
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 100; ++x) {
            const bool isBeside = std::abs(x - 50) > 8 || y > 90 || y < 9 || y == 65 || y == 35;
            EXPECT_TRUE(at(x, y) == white || !isBeside) << x << ", " << y;
        }
}

TEST_F(SpacePlotTest, LinesOfOnePenAreDrawnTogether)
{
    for (int i = 0; i < 1000; ++i) add(line(i % 100, i / 10, i % 100 + 1, i / 10));
    CairoCanvas svg = canvas("plot.svg", PlotFormat::svg);
    ASSERT_EQ(svg.begin(hundred()), PlotStatus::done);
    PlotStyles styles(database);
    view.max.set(100, 100);
    drawBlock(svg, styles, modelSpace(), view);
    ASSERT_EQ(svg.finish(), PlotStatus::done);
    const std::string file = contents();
    int paths = 0, moves = 0;
    for (std::size_t at = 0; (at = file.find("<path", at)) != std::string::npos; ++at) ++paths;
    for (std::size_t at = 0; (at = file.find("M ", at)) != std::string::npos; ++at) ++moves;
    EXPECT_EQ(moves, 1000);
    EXPECT_LE(paths, 8);
}

TEST_F(SpacePlotTest, BlockThatHoldsItselfEnds)
{
    const AcDbObjectId inner = addBlock(L"inner"), outer = addBlock(L"outer");
    add(mark(0, 0, {}, 1), inner);
    add(std::make_unique<AcDbBlockReference>(AcGePoint3d(10, 0, 0), outer), inner);
    add(std::make_unique<AcDbBlockReference>(AcGePoint3d(10, 0, 0), inner), outer);
    add(std::make_unique<AcDbBlockReference>(AcGePoint3d(0, 0, 0), inner));
    plotModel();
    EXPECT_TRUE(at(5, 5) == red);
}
