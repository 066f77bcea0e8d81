/// Figures, ids and lists that the makers of geometry refuse.

#include "ShapeFixture.h"

#include "dbpoint.h"
#include "dbsymutl.h"

namespace
{
/// One call that is not to work: what it is given reads as the rest of the sentence "it refuses ...".
struct Refused {
    const char* what;
    std::function<int(Results&)> make;
};

class ShapeRefusedTest : public ShapeFixture
{
protected:
    void expectRefused(const std::vector<Refused>& rows, const char* of = "")
    {
        for (const Refused& row : rows) {
            SCOPED_TRACE(testing::Message() << row.what << of);
            EXPECT_EQ(call({row.what, {}, [&](const Numbers&, Results& r) { return row.make(r); }}, {}), 0);
        }
    }
    /// Both ways to hatch, to fill and to outline.
    std::vector<Refused> areasOf(AcDbObjectId id)
    {
        return {
            {"hatch",
             [=](Results& r) { return CMakeEnt::MakeHatch(listOf({id}), r.id, L"SOLID", 1.0, 0.0); }},
            {"hatch with a circle",
             [=](Results& r) {
                 return CMakeEnt::MakeHatch(listOf({m_circle, id}), r.id, L"SOLID", 1.0, 0.0);
             }},
            {"coloured hatch",
             [=](Results& r) { return CMakeEnt::MakeHatch(id, L"SOLID", 1.0, 0.0, AcCmColor(), r.id); }},
            {"outline of a hatch", [=](Results& r) { return CMakeEnt::MakeHatchBoundary(id, r.ids, 0); }},
            {"region of a hatch", [=](Results& r) { return CMakeEnt::MakeHatchBoundary(id, r.ids, 1); }},
            {"filled curve", [=](Results& r) { return CMakeEnt::MakeSolid(id, AcCmColor(), r.ids); }},
        };
    }
};

TEST_F(ShapeRefusedTest, FiguresWithoutExtentAreRefused)
{
    AcArray<double> noBulges;
    const AcGePoint3d o(0, 0, 0), x(1, 0, 0), xx(2, 0, 0), y(0, 1, 0);
    const auto pointers = [](std::initializer_list<AcDbEntity*> list) {
        AcArray<void*> array;
        for (AcDbEntity* const pointer : list)
            array.append(pointer);
        return array;
    };
    AcDbCircle round(o, AcGeVector3d::kZAxis, 1.0);
    AcDbPoint dot(o);
    AcDbArc bow(o, 1.0, 0.0, 1.0);
    const std::vector<Refused> rows = {
        {"an arc through equal points", [&](Results& r) { return CMakeEnt::MakeArc(x, x, y, r.id); }},
        {"an arc through one point", [&](Results&) { return CMakeEnt::MakeArc(x, x, x); }},
        {"a coloured arc through equal points", [&](Results&) { return CMakeEnt::MakeArc(x, y, y, 1); }},
        {"an arc on a layer through equal points",
         [&](Results& r) { return CMakeEnt::MakeArc(y, x, x, L"0", 1, r.id); }},
        {"an open arc through equal points",
         [&](Results&) {
             AcDbArc* arc = &bow;
             const int result = CMakeEnt::MakeArc(x, x, y, arc);
             EXPECT_EQ(arc, nullptr);
             return result;
         }},
        {"an arc that ends where it starts", [&](Results& r) { return CMakeEnt::MakeArc(x, y, x, r.id); }},
        {"an arc through points in line", [&](Results& r) { return CMakeEnt::MakeArc(o, x, xx, r.id); }},
        {"an arc on a missing layer",
         [&](Results& r) { return CMakeEnt::MakeArc(x, y, o, L"NOWHERE", 1, r.id); }},
        {"an arc with radius 0", [&](Results& r) { return CMakeEnt::MakeArc(o, 0.0, 0.0, 1.0, r.id); }},
        {"an arc with a negative radius",
         [&](Results& r) { return CMakeEnt::MakeArc(o, -1.0, 0.0, 1.0, r.id); }},
        {"a circle with radius 0", [&](Results& r) { return CMakeEnt::MakeCircle(o, 0.0, r.id); }},
        {"a circle with a negative radius", [&](Results& r) { return CMakeEnt::MakeCircle(o, -1.0, r.id); }},
        {"an ellipse without axis",
         [&](Results& r) {
             return CMakeEnt::MakeEllipse(o, {0, 0, 0}, 2.0, 1.0, r.id);
         }},
        {"an ellipse out of the plane",
         [&](Results& r) {
             return CMakeEnt::MakeEllipse(o, {1, 0, 1}, 2.0, 1.0, r.id);
         }},
        {"an ellipse along Z",
         [&](Results& r) {
             return CMakeEnt::MakeEllipse(o, {0, 0, 1}, 2.0, 1.0, r.id);
         }},
        {"an ellipse with a radius of 0",
         [&](Results& r) {
             return CMakeEnt::MakeEllipse(o, {1, 0, 0}, 0.0, 1.0, r.id);
         }},
        {"an ellipse with a negative radius",
         [&](Results& r) {
             return CMakeEnt::MakeEllipse(o, {1, 0, 0}, 1.0, -1.0, r.id);
         }},
        {"a rectangle without height", [&](Results& r) { return CMakeEnt::MakeRect(o, xx, r.id); }},
        {"a rectangle of one point", [&](Results& r) { return CMakeEnt::MakeRect(x, x, r.id); }},
        {"a line on a missing layer",
         [&](Results& r) { return CMakeEnt::MakeLine(o, x, L"NOWHERE", 1, r.id); }},
        {"a polyline without points", [&](Results& r) { return CMakeEnt::MakePline(pointList({}), r.id); }},
        {"a polyline of negative width",
         [&](Results& r) {
             return CMakeEnt::MakePline(pointList({o, x}), r.id, 0, -1.0);
         }},
        {"a polyline with bulges of negative width",
         [&](Results& r) {
             return CMakeEnt::MakePline(pointList({o, x}), r.id, noBulges, 0, -1.0);
         }},
        {"a polyline of the caller's without points",
         [&](Results& r) { return taken(CMakeEnt::MakePline(pointList({})), r); }},
        {"a polyline of the caller's of negative width",
         [&](Results& r) {
             return taken(CMakeEnt::MakePline(pointList({o, x}), 0, -1.0), r);
         }},
        {"bulges without points",
         [&](Results& r) { return CMakeEnt::MakePline(pointList({}), r.id, noBulges, 0); }},
        {"a spline without points", [&](Results& r) { return CMakeEnt::MakeSpline(pointList({}), r.id); }},
        {"a spline of one point", [&](Results& r) { return CMakeEnt::MakeSpline(pointList({x}), r.id); }},
        {"a spline of equal points",
         [&](Results& r) {
             return CMakeEnt::MakeSpline(pointList({x, x, x}), r.id);
         }},
        {"a region without points", [&](Results& r) { return taken(CMakeEnt::MakeRegion(pointList({})), r); }},
        {"a region of one point", [&](Results& r) { return taken(CMakeEnt::MakeRegion(pointList({x})), r); }},
        {"a region of equal points",
         [&](Results& r) {
             return taken(CMakeEnt::MakeRegion(pointList({x, x, x})), r);
         }},
        {"a region of points in line",
         [&](Results& r) {
             return taken(CMakeEnt::MakeRegion(pointList({o, x, xx})), r);
         }},
        {"a region that crosses itself",
         [&](Results& r) {
             return taken(CMakeEnt::MakeRegion(pointList({o, {2, 2, 0}, xx, y})), r);
         }},
        {"a region that is not flat",
         [&](Results& r) {
             return taken(CMakeEnt::MakeRegion(pointList({o, xx, {2, 2, 1}, y})), r);
         }},
        {"a region without curves",
         [&](Results& r) { return taken(CMakeEnt::MakeRegion(AcArray<void*>()), r); }},
        {"a region of null", [&](Results& r) { return taken(CMakeEnt::MakeRegion(pointers({nullptr})), r); }},
        {"a region of a circle and null",
         [&](Results& r) {
             return taken(CMakeEnt::MakeRegion(pointers({&round, nullptr})), r);
         }},
        {"a region of what is no curve",
         [&](Results& r) {
             return taken(CMakeEnt::MakeRegion(pointers({&round, &dot})), r);
         }},
        {"a boundary at a point on a curve",
         [&](Results& r) {
             return CMakeEnt::MakeBoundary({100, 0, 0}, r.id, 0, 0);
         }},
        {"boundaries at a point on a curve",
         [&](Results& r) {
             return CMakeEnt::MakeBoundary({0, 100, 0}, r.ids, 1, 1);
         }},
        {"a boundary outside of everything",
         [&](Results& r) {
             return CMakeEnt::MakeBoundary({300, 0, 0}, r.id, 1, 1);
         }},
    };
    expectRefused(rows);
}

TEST_F(ShapeRefusedTest, IdsOfNothingAndOfOtherClassesAreRefused)
{
    AcDbObjectId point, text;
    ASSERT_EQ(CMakeEnt::MakePoint({5, 5, 5}, point), 1);
    ASSERT_EQ(CMakeEnt::MakeText({500, 500, 0}, L"beside", text, 1.0), 1);
    const std::pair<const char*, AcDbObjectId> ids[] = {
        {" of null", AcDbObjectId()},          {" of an erased circle", m_erased},
        {" of an open line", m_line},          {" of a point", point},
        {" of a layer", database()->clayer()}, {" of model space", database()->modelSpaceId()}};
    for (const auto& [name, id] : ids)
        expectRefused(areasOf(id), name);
    expectRefused(
        {{"a hatch of a hatch",
          [&](Results& r) { return CMakeEnt::MakeHatch(listOf({m_hatch}), r.id, L"SOLID", 1.0, 0.0); }},
         {"a hatch of a text",
          [&](Results& r) { return CMakeEnt::MakeHatch(text, L"SOLID", 1.0, 0.0, AcCmColor(), r.id); }},
         {"a text as a curve", [&](Results& r) { return CMakeEnt::MakeSolid(text, AcCmColor(), r.ids); }},
         {"a text as a hatch", [&](Results& r) { return CMakeEnt::MakeHatchBoundary(text, r.ids); }}});
}

TEST_F(ShapeRefusedTest, EntitiesOfOtherPlacesAreNotHatched)
{
    AcDbDatabase other;
    const auto circleIn = [](AcDbObjectId block) {
        return add(new AcDbCircle({1, 2, 3}, AcGeVector3d::kZAxis, 3.0), block);
    };
    const AcDbObjectId foreign = circleIn(other.modelSpaceId()), inBlock = circleIn(addBlock(L"PART"));
    const AcDbObjectId onSheet = circleIn(acdbSymUtil()->blockPaperSpaceId(database()));
    AcDbObjectIdArray filled;
    for (const auto& [name, id] : {std::pair(" of another drawing", foreign),
                                   std::pair(" of a sheet", onSheet), std::pair(" of a block", inBlock)}) {
        std::vector<Refused> hatches = areasOf(id);
        hatches.pop_back();
        expectRefused(hatches, name);
        EXPECT_EQ(CMakeEnt::MakeSolid(id, AcCmColor(), filled), 1) << "only its shape counts";
    }
    EXPECT_GT(filled.length(), 3);
}

TEST_F(ShapeRefusedTest, CurvesWithoutInsideAreNotFilled)
{
    AcDbObjectId helix, pinched, region;
    const AcGePoint3dArray wave = pointList({{0, 0, 0}, {4, 0, 1}, {4, 4, -1}, {0, 4, 2}, {0, 0, 0}});
    ASSERT_EQ(CMakeEnt::MakeSpline(wave, helix), 1);
    ASSERT_EQ(CMakeEnt::MakePline(
                  pointList({{0, 0, 0}, {2, 2, 0}, {4, 0, 0}, {4, 4, 0}, {2, 2, 0}, {0, 4, 0}}), pinched, 1),
              1);
    std::unique_ptr<AcDbEntity> made(CMakeEnt::MakeRegion(pointList({{0, 0, 0}, {4, 0, 0}, {0, 4, 0}})));
    ASSERT_EQ(CArxUtils::CDatabase::AddToDb(made.get(), region), 1);
    made.release()->close();
    for (const auto& [name, id] :
         {std::pair("a closed curve out of a plane", helix),
          std::pair("a polyline that touches itself", pinched), std::pair("a region", region)})
        expectRefused(
            {{name, [id = id](Results& r) { return CMakeEnt::MakeSolid(id, AcCmColor(), r.ids); }}});
    auto* const empty = new AcDbHatch;
    AcDbObjectId hatch;
    ASSERT_EQ(CArxUtils::CDatabase::AddToDb(empty, hatch), 1);
    empty->close();
    expectRefused(
        {{"a hatch without loops", [&](Results& r) { return CMakeEnt::MakeHatchBoundary(hatch, r.ids); }}});
}

TEST_F(ShapeRefusedTest, ClosedCurvesAsGoodAsPointsBoundNothing)
{
    AcDbObjectId point, circle, fold, bow, hatch;
    ASSERT_EQ(CMakeEnt::MakePline(pointList({{1, 1, 0}, {1, 1, 0}, {1, 1, 0}}), point, 1), 1);
    ASSERT_EQ(CMakeEnt::MakeCircle({0, 0, 0}, 5.0, circle), 1);
    ASSERT_EQ(CMakeEnt::MakePline(pointList({{4e5, 3e6, 0}, {4e5 + 7, 3e6 + 3, 0}}), fold, 1), 1); // there and back
    const auto corners = pointList({{20, 0, 0}, {30, 10, 0}, {30, 0, 0}, {20, 10, 0}});
    ASSERT_EQ(CMakeEnt::MakePline(corners, bow, 1), 1);
    EXPECT_EQ(CMakeEnt::MakeHatch(listOf({bow}), hatch, L"SOLID", 1.0, 0.0), 1) << "its halves only turn two ways";
    EXPECT_EQ(CMakeEnt::MakeHatch(listOf({point}), hatch, L"SOLID", 1.0, 0.0), 0);
    EXPECT_EQ(CMakeEnt::MakeHatch(listOf({fold}), hatch, L"SOLID", 1.0, 0.0), 0);
    ASSERT_EQ(CMakeEnt::MakeHatch(listOf({point, circle}), hatch, L"SOLID", 1.0, 0.0), 1);
    EXPECT_NEAR(areaOf(hatch), 25.0 * kPi, 1e-9);
}

TEST_F(ShapeRefusedTest, HatchesOfBadPatternsAndListsAreRefused)
{
    AcDbObjectId raised, tilted;
    ASSERT_EQ(CMakeEnt::MakeCircle({0, 0, 5}, 10.0, raised), 1);
    setRotatedUcs();
    ASSERT_EQ(CMakeEnt::MakeCircle({0, 0, 0}, 10.0, tilted), 1);
    const auto hatch = [&](const AcDbObjectIdArray& ids, const wchar_t* pattern, double scale) {
        return [=](Results& r) { return CMakeEnt::MakeHatch(ids, r.id, pattern, scale, 0.0); };
    };
    const auto one = listOf({m_circle});
    const std::vector<Refused> rows = {
        {"an empty list", hatch({}, L"SOLID", 1.0)},
        {"an unknown pattern", hatch(one, L"NO SUCH", 1.0)},
        {"no pattern", hatch(one, L"", 1.0)},
        {"scale 0", hatch(one, L"ANSI31", 0.0)},
        {"a negative scale", hatch(one, L"ANSI31", -1.0)},
        {"lines too dense", hatch(one, L"ANSI31", 1e-9)},
        {"a curve above the plane", hatch(listOf({m_circle, raised}), L"SOLID", 1.0)},
        {"a curve out of the plane", hatch(listOf({m_circle, tilted}), L"SOLID", 1.0)},
    };
    expectRefused(rows);
}

TEST_F(ShapeRefusedTest, EntitiesThatSomebodyChangesAreRefused)
{
    AcCmColor red;
    red.setColorIndex(1);
    const Open<AcDbEntity> circle(m_circle, AcDb::kForWrite), hatch(m_hatch, AcDb::kForWrite);
    ASSERT_EQ(circle.openStatus(), Acad::eOk);
    Results out;
    const int before = entityCount();
    EXPECT_EQ(CMakeEnt::MakeHatch(listOf({m_circle}), out.id, L"SOLID", 1.0, 0.0), 0);
    EXPECT_EQ(CMakeEnt::MakeHatch(m_circle, L"SOLID", 1.0, 0.0, red, out.id), 0);
    EXPECT_EQ(CMakeEnt::MakeSolid(m_circle, red, out.ids), 0);
    EXPECT_EQ(CMakeEnt::MakeHatchBoundary(m_hatch, out.ids, 0), 0);
    EXPECT_TRUE(out.id.isNull() && out.ids.isEmpty());
    EXPECT_EQ(entityCount(), before);
}

/// What is odd and works all the same.
TEST_F(ShapeRefusedTest, DegenerateInputThatIsDocumentedWorks)
{
    const AcGePoint3d o(0, 0, 0), x(1, 0, 0), xx(2, 0, 0), y(0, 1, 0);
    AcDbObjectId id, dot;
    AcArray<double> bulges;
    for (const double bulge : {1.0, 0.0, 5.0, 7.0})
        bulges.append(bulge);
    const auto verticesOf = [](AcDbObjectId pline) { return Open<AcDbPolyline>(pline)->numVerts(); };
    EXPECT_EQ(CMakeEnt::MakePline(pointList({x}), id), 1);
    EXPECT_EQ(verticesOf(id), 1u);
    EXPECT_EQ(CMakeEnt::MakePline(pointList({x, x}), id, bulges, 1), 1);
    EXPECT_EQ(verticesOf(id), 2u) << "more bulges than vertices";
    std::unique_ptr<AcDbPolyline> single(CMakeEnt::MakePline(pointList({x, x, x})));
    EXPECT_EQ(single->numVerts(), 3u);
    EXPECT_EQ(CMakeEnt::MakeSolid(x, x, x, id), 1);
    EXPECT_EQ(CMakeEnt::MakeSolid(o, x, xx, id), 1);
    EXPECT_EQ(CMakeEnt::MakeSpline(pointList({o, x, o}), id), 1);
    EXPECT_TRUE(Open<AcDbCurve>(id)->isClosed());
    EXPECT_EQ(CMakeEnt::MakeArc(o, 2.0, 1.0, 1.0, id), 1);
    EXPECT_NEAR(Open<AcDbArc>(id)->totalAngle(), 2 * kPi, 1e-9) << "a full turn";
    ASSERT_EQ(CMakeEnt::MakeLine(y, y, dot), 1);
    const Open<AcDbEntity> read(m_circle);
    ASSERT_EQ(CMakeEnt::MakeHatch(listOf({m_circle, dot, m_circle}), id, L"SOLID", 1.0, 0.0), 1);
    EXPECT_EQ(Open<AcDbHatch>(id)->numLoops(), 1) << "twice the same, a point, and open for read";
}
} // namespace
