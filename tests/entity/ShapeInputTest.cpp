/// Every maker of geometry with every kind of bad input: the documented result, and nothing left behind.

#include "SavedDrawing.h"

#include "dbcircle.h"
#include "dbhatch.h"
#include "dbline.h"
#include "EntityFixture.h"

#include <array>
#include <fstream>

namespace
{
using Numbers = std::vector<double>;

/// What a call gives back: all of it must be as it was when the call fails.
struct Results {
    AcDbObjectId id;
    AcDbObjectIdArray ids;
    std::unique_ptr<AcDbEntity> loose; ///< what is not added but handed over
};

/// A call with numbers that it accepts; the entities that it works on are in the drawing.
struct Maker {
    const char* name;
    Numbers good;
    std::function<int(const Numbers&, Results&)> make;
};

AcGePoint3d pointAt(const Numbers& n, std::size_t first)
{
    return {n[first], n[first + 1], n[first + 2]};
}

AcGePoint3dArray pointsOf(const Numbers& n, std::size_t count)
{
    AcGePoint3dArray points;
    for (std::size_t i = 0; i < count; ++i)
        points.append(pointAt(n, 3 * i));
    return points;
}

AcDbObjectIdArray listOf(std::initializer_list<AcDbObjectId> ids)
{
    AcDbObjectIdArray list;
    for (const AcDbObjectId& id : ids)
        list.append(id);
    return list;
}

int taken(AcDbEntity* entity, Results& out)
{
    out.loose.reset(entity);
    return entity != nullptr;
}

int closed(int result, AcDbArc* arc)
{
    if (arc) arc->close();
    return result;
}

/// The makers of lines and curves. Those that work in the plane get a third coordinate that is none, where
/// they do not look at it.
const std::vector<Maker> curves = {
    {"line",
     {0, 0, 0, 1, 2, 3},
     [](const Numbers& n, Results& out) { return CMakeEnt::MakeLine(pointAt(n, 0), pointAt(n, 3), out.id); }},
    {"line whose id nobody wants",
     {0, 0, 0, 1, 2, 3},
     [](const Numbers& n, Results&) { return CMakeEnt::MakeLine(pointAt(n, 0), pointAt(n, 3)); }},
    {"coloured line",
     {0, 0, 0, 1, 2, 3},
     [](const Numbers& n, Results&) { return CMakeEnt::MakeLine(pointAt(n, 0), pointAt(n, 3), 1); }},
    {"line on a layer",
     {0, 0, 0, 1, 2, 3},
     [](const Numbers& n, Results& out) {
         return CMakeEnt::MakeLine(pointAt(n, 0), pointAt(n, 3), L"", 1, out.id);
     }},
    {"point",
     {1, 2, 3},
     [](const Numbers& n, Results& out) { return CMakeEnt::MakePoint(pointAt(n, 0), out.id); }},
    {"rectangle",
     {0, 0, 1, 4, 3, 0.5},
     [](const Numbers& n, Results& out) {
         return CMakeEnt::MakeRect(pointAt(n, 0), {n[3], n[4], kNan}, out.id, n[5]);
     }},
    {"polyline",
     {0, 0, 4, 0, 4, 3, 0.1},
     [](const Numbers& n, Results& out) {
         const Numbers flat = {n[0], n[1], kNan, n[2], n[3], kInf, n[4], n[5], 0};
         return CMakeEnt::MakePline(pointsOf(flat, 3), out.id, 1, n[6]);
     }},
    {"polyline with arcs",
     {0, 0, 4, 0, 1, 0.5, 0.1},
     [](const Numbers& n, Results& out) {
         AcArray<double> bulges;
         bulges.append(n[4]);
         bulges.append(n[5]);
         const Numbers flat = {n[0], n[1], kNan, n[2], n[3], -kInf};
         return CMakeEnt::MakePline(pointsOf(flat, 2), out.id, bulges, 1, n[6]);
     }},
    {"polyline of the caller's",
     {0, 0, 4, 0, 4, 3, 0.1},
     [](const Numbers& n, Results& out) {
         const Numbers flat = {n[0], n[1], kNan, n[2], n[3], kInf, n[4], n[5], 0};
         return taken(CMakeEnt::MakePline(pointsOf(flat, 3), 1, n[6]), out);
     }},
    {"spline",
     {0, 0, 0, 4, 0, 1, 4, 3, 2, 9, 9, 0},
     [](const Numbers& n, Results& out) { return CMakeEnt::MakeSpline(pointsOf(n, 4), out.id); }},
    {"arc through points",
     {1, 0, 0, 0, 1, 0, -1, 0, 0},
     [](const Numbers& n, Results& out) {
         return CMakeEnt::MakeArc(pointAt(n, 0), pointAt(n, 3), pointAt(n, 6), out.id);
     }},
    {"arc whose id nobody wants",
     {1, 0, 0, 0, 1, 0, -1, 0, 0},
     [](const Numbers& n, Results&) {
         return CMakeEnt::MakeArc(pointAt(n, 0), pointAt(n, 3), pointAt(n, 6));
     }},
    {"coloured arc",
     {1, 0, 0, 0, 1, 0, -1, 0, 0},
     [](const Numbers& n, Results&) {
         return CMakeEnt::MakeArc(pointAt(n, 0), pointAt(n, 3), pointAt(n, 6), 1);
     }},
    {"arc on a layer",
     {1, 0, 0, 0, 1, 0, -1, 0, 0},
     [](const Numbers& n, Results& out) {
         return CMakeEnt::MakeArc(pointAt(n, 0), pointAt(n, 3), pointAt(n, 6), L"", 1, out.id);
     }},
    {"arc that stays open",
     {1, 0, 0, 0, 1, 0, -1, 0, 0},
     [](const Numbers& n, Results&) {
         AcDbArc* arc = nullptr;
         const int result = CMakeEnt::MakeArc(pointAt(n, 0), pointAt(n, 3), pointAt(n, 6), arc);
         EXPECT_EQ(arc != nullptr, result == 1);
         return closed(result, arc);
     }},
    {"arc by its centre",
     {1, 2, 3, 5, 0.5, 2.5},
     [](const Numbers& n, Results& out) {
         return CMakeEnt::MakeArc(pointAt(n, 0), n[3], n[4], n[5], out.id);
     }},
    {"circle",
     {1, 2, 3, 5},
     [](const Numbers& n, Results& out) { return CMakeEnt::MakeCircle(pointAt(n, 0), n[3], out.id); }},
    {"ellipse",
     {1, 2, 3, 1, 1, 0, 5, 2, 0.5, 2.5},
     [](const Numbers& n, Results& out) {
         return CMakeEnt::MakeEllipse(pointAt(n, 0), pointAt(n, 3).asVector(), n[6], n[7], out.id, n[8],
                                      n[9]);
     }},
    {"filled triangle",
     {0, 0, 0, 4, 0, 0, 0, 3, 0},
     [](const Numbers& n, Results& out) {
         return CMakeEnt::MakeSolid(pointAt(n, 0), pointAt(n, 3), pointAt(n, 6), out.id);
     }},
    {"region of a polygon",
     {0, 0, 0, 4, 0, 0, 0, 3, 0},
     [](const Numbers& n, Results& out) { return taken(CMakeEnt::MakeRegion(pointsOf(n, 3)), out); }},
};

class ShapeInputTest : public EntityTest
{
protected:
    void SetUp() override
    {
        EntityTest::SetUp();
        ASSERT_EQ(CMakeEnt::MakeCircle({0, 0, 0}, 100.0, m_circle), 1);
        ASSERT_EQ(CMakeEnt::MakeLine({200, 0, 0}, {210, 0, 0}, m_line), 1);
        ASSERT_EQ(CMakeEnt::MakeHatch(listOf({m_circle}), m_hatch, L"SOLID", 1.0, 0.0), 1);
        ASSERT_EQ(CMakeEnt::MakeCircle({500, 0, 0}, 1.0, m_erased), 1);
        ASSERT_EQ(Open<AcDbEntity>(m_erased, AcDb::kForWrite)->erase(), Acad::eOk);
    }

    /// The makers that work on entities of the drawing.
    std::vector<Maker> areas()
    {
        AcCmColor red;
        red.setColorIndex(1);
        return {
            {"hatch",
             {2, 0.5},
             [this](const Numbers& n, Results& out) {
                 return CMakeEnt::MakeHatch(listOf({m_circle}), out.id, L"ANSI31", n[0], n[1]);
             }},
            {"coloured hatch",
             {2, 0.5},
             [this, red](const Numbers& n, Results& out) {
                 return CMakeEnt::MakeHatch(m_circle, L"ANSI31", n[0], n[1], red, out.id);
             }},
            {"filled circle",
             {},
             [this, red](const Numbers&, Results& out) {
                 return CMakeEnt::MakeSolid(m_circle, red, out.ids);
             }},
            {"outline of a hatch",
             {},
             [this](const Numbers&, Results& out) {
                 return CMakeEnt::MakeHatchBoundary(m_hatch, out.ids, 0);
             }},
            {"region of a hatch",
             {},
             [this](const Numbers&, Results& out) {
                 return CMakeEnt::MakeHatchBoundary(m_hatch, out.ids, 1);
             }},
            {"boundary",
             {1, 2, 3},
             [](const Numbers& n, Results& out) {
                 return CMakeEnt::MakeBoundary(pointAt(n, 0), out.id, 0, 0);
             }},
            {"boundary as a region",
             {1, 2, 3},
             [](const Numbers& n, Results& out) {
                 return CMakeEnt::MakeBoundary(pointAt(n, 0), out.id, 1, 1);
             }},
            {"boundaries",
             {1, 2, 3},
             [](const Numbers& n, Results& out) {
                 return CMakeEnt::MakeBoundary(pointAt(n, 0), out.ids, 1, 0);
             }},
            {"boundaries as regions",
             {1, 2, 3},
             [](const Numbers& n, Results& out) {
                 return CMakeEnt::MakeBoundary(pointAt(n, 0), out.ids, 1, 1);
             }},
        };
    }
    std::vector<Maker> makers()
    {
        std::vector<Maker> all = curves;
        for (Maker& maker : areas())
            all.push_back(std::move(maker));
        return all;
    }

    /// Calls it, and fails the test when a call that gives 0 leaves something behind.
    int call(const Maker& maker, const Numbers& numbers)
    {
        Results out;
        out.id = m_line;
        out.ids.append(m_line);
        const int before = entityCount();
        const int result = maker.make(numbers, out);
        EXPECT_TRUE(result == 0 || result == 1);
        EXPECT_EQ(headless::openObjects(*database()), 0);
        if (result) return result;
        EXPECT_EQ(entityCount(), before);
        EXPECT_EQ(out.id, m_line);
        EXPECT_EQ(out.ids.length(), 1);
        EXPECT_EQ(out.loose, nullptr);
        return result;
    }

    AcDbObjectId m_circle, m_line, m_hatch, m_erased;
};

void setRotatedUcs()
{
    AcGeMatrix3d ucs;
    const AcGeVector3d x = AcGeVector3d(2, 1, 2) / 3.0, y = AcGeVector3d(-2, 2, 1) / 3.0;
    ucs.setCoordSystem({10, 20, 30}, x, y, x.crossProduct(y));
    ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
}

TEST_F(ShapeInputTest, NumbersThatAreNotFiniteAreRefusedInEveryPlace)
{
    for (const bool isRotated : {false, true}) {
        if (isRotated) setRotatedUcs();
        for (const Maker& maker : makers())
            for (std::size_t place = 0; place < maker.good.size(); ++place)
                for (const double bad : {kNan, kInf, -kInf}) {
                    SCOPED_TRACE(testing::Message() << maker.name << ": number " << place << " is " << bad);
                    Numbers numbers = maker.good;
                    numbers[place] = bad;
                    EXPECT_EQ(call(maker, numbers), 0);
                }
    }
}

std::string contentsOf(const std::filesystem::path& path)
{
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(ShapeInputTest, HugeNumbersAreRefusedOrMakeASoundDrawing)
{
    setRotatedUcs();
    const dxftest::OutputFolder folder;
    for (const Maker& maker : makers())
        for (std::size_t place = 0; place < maker.good.size(); ++place)
            for (const double huge : {1e15, -1e100, 1e200, 1e300, 1.7e308}) {
                SCOPED_TRACE(testing::Message() << maker.name << ": number " << place << " is " << huge);
                Numbers numbers = maker.good;
                numbers[place] = huge;
                call(maker, numbers);
            }
    const std::filesystem::path path = folder.file("huge.dxf");
    ASSERT_EQ(database()->saveAs(path.wstring().c_str()), Acad::eOk);
    const std::string text = contentsOf(path);
    for (const char* word : {"nan\n", "inf\n"})
        EXPECT_EQ(text.find(word), std::string::npos)
            << word << text.substr(std::max<std::size_t>(text.find(word), 300) - 300, 300);
    AcDbDatabase again(false);
    ASSERT_EQ(again.readDwgFile(path.wstring().c_str()), Acad::eOk);
    EXPECT_FALSE(again.needsRecovery());
}

TEST_F(ShapeInputTest, GoodNumbersMakeOneThingEach)
{
    for (const Maker& maker : makers()) {
        SCOPED_TRACE(maker.name);
        EXPECT_EQ(call(maker, maker.good), 1);
    }
}

TEST_F(ShapeInputTest, DocumentThatIsNotLockedTakesNothing)
{
    m_lock.unlock();
    for (const Maker& maker : makers()) {
        SCOPED_TRACE(maker.name);
        Results out;
        const int before = entityCount();
        const int result = maker.make(maker.good, out);
        EXPECT_EQ(result, out.loose ? 1 : 0) << "only what is not added can be made";
        EXPECT_EQ(entityCount(), before);
    }
    m_lock.lock(database());
}

TEST_F(ShapeInputTest, SpaceThatSomebodyReadsTakesNothing)
{
    const Open<AcDbBlockTableRecord> space(database()->currentSpaceId());
    for (const Maker& maker : makers()) {
        SCOPED_TRACE(maker.name);
        Results out;
        const int result = maker.make(maker.good, out);
        EXPECT_EQ(result, out.loose ? 1 : 0);
        EXPECT_TRUE(out.id.isNull() && out.ids.isEmpty());
        EXPECT_EQ(headless::openObjects(*database()), 1) << "the space";
    }
}

TEST_F(ShapeInputTest, WithoutAWorkingDrawingNothingIsMade)
{
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    for (const Maker& maker : makers()) {
        SCOPED_TRACE(maker.name);
        Results out;
        const int result = maker.make(maker.good, out);
        EXPECT_EQ(result, out.loose ? 1 : 0);
        EXPECT_TRUE(out.id.isNull() && out.ids.isEmpty());
    }
    acdbHostApplicationServices()->setWorkingDatabase(database());
}

TEST_F(ShapeInputTest, CurrentLayerThatIsLockedFrozenOrOffTakesEverything)
{
    const std::vector<std::function<void(AcDbLayerTableRecord&)>> states = {
        [](AcDbLayerTableRecord& layer) { layer.setIsLocked(true); },
        [](AcDbLayerTableRecord& layer) { layer.setIsOff(true); },
        [](AcDbLayerTableRecord& layer) { layer.setIsFrozen(true); },
    };
    for (std::size_t i = 0; i < states.size(); ++i) {
        const AcDbObjectId layer = addLayer((L"STATE" + std::to_wstring(i)).c_str());
        ASSERT_EQ(database()->setClayer(layer), Acad::eOk);
        states[i](*Open<AcDbLayerTableRecord>(layer, AcDb::kForWrite).object());
        for (const Maker& maker : makers()) {
            SCOPED_TRACE(testing::Message() << maker.name << ", state " << i);
            Results out;
            ASSERT_EQ(maker.make(maker.good, out), 1);
            if (!out.id.isNull()) out.ids.append(out.id);
            for (const AcDbObjectId& id : out.ids)
                EXPECT_EQ(Open<AcDbEntity>(id)->layerId(), layer);
        }
    }
}

/// One call that is not to work: what it is given reads as the rest of the sentence "it refuses ...".
struct Refused {
    const char* what;
    std::function<int(Results&)> make;
};

TEST_F(ShapeInputTest, FiguresWithoutExtentAreRefused)
{
    AcArray<double> noBulges;
    const AcGePoint3d o(0, 0, 0), x(1, 0, 0), xx(2, 0, 0), y(0, 1, 0);
    const auto points = [](std::initializer_list<AcGePoint3d> list) {
        AcGePoint3dArray array;
        for (const AcGePoint3d& p : list)
            array.append(p);
        return array;
    };
    const Refused rows[] = {
        {"an arc through equal points", [&](Results& r) { return CMakeEnt::MakeArc(x, x, y, r.id); }},
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
        {"a polyline without points", [&](Results& r) { return CMakeEnt::MakePline(points({}), r.id); }},
        {"a polyline of negative width",
         [&](Results& r) {
             return CMakeEnt::MakePline(points({o, x}), r.id, 0, -1.0);
         }},
        {"bulges without points",
         [&](Results& r) { return CMakeEnt::MakePline(points({}), r.id, noBulges, 0); }},
        {"a spline without points", [&](Results& r) { return CMakeEnt::MakeSpline(points({}), r.id); }},
        {"a spline of one point", [&](Results& r) { return CMakeEnt::MakeSpline(points({x}), r.id); }},
        {"a spline of equal points",
         [&](Results& r) {
             return CMakeEnt::MakeSpline(points({x, x, x}), r.id);
         }},
        {"a region without points", [&](Results& r) { return taken(CMakeEnt::MakeRegion(points({})), r); }},
        {"a region of one point", [&](Results& r) { return taken(CMakeEnt::MakeRegion(points({x})), r); }},
        {"a region of points in line",
         [&](Results& r) {
             return taken(CMakeEnt::MakeRegion(points({o, x, xx})), r);
         }},
        {"a region that crosses itself",
         [&](Results& r) {
             return taken(CMakeEnt::MakeRegion(points({o, {2, 2, 0}, xx, y})), r);
         }},
        {"a region that is not flat",
         [&](Results& r) {
             return taken(CMakeEnt::MakeRegion(points({o, xx, {2, 2, 1}, y})), r);
         }},
        {"a region without curves",
         [&](Results& r) { return taken(CMakeEnt::MakeRegion(AcArray<void*>()), r); }},
        {"a region of null",
         [&](Results& r) {
             AcArray<void*> curves;
             curves.append(nullptr);
             return taken(CMakeEnt::MakeRegion(curves), r);
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
    for (const Refused& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(call({row.what, {}, [&](const Numbers&, Results& r) { return row.make(r); }}, {}), 0);
    }
}

TEST_F(ShapeInputTest, IdsOfNothingAndOfOtherClassesAreRefused)
{
    AcCmColor red;
    red.setColorIndex(1);
    AcDbObjectId point;
    ASSERT_EQ(CMakeEnt::MakePoint({5, 5, 5}, point), 1);
    const std::pair<const char*, AcDbObjectId> ids[] = {
        {"null", AcDbObjectId()},          {"an erased circle", m_erased},
        {"an open line", m_line},          {"a point", point},
        {"a layer", database()->clayer()}, {"model space", database()->modelSpaceId()}};
    for (const auto& at : ids) {
        const AcDbObjectId id = at.second;
        const Refused rows[] = {
            {"hatch",
             [&](Results& r) { return CMakeEnt::MakeHatch(listOf({id}), r.id, L"SOLID", 1.0, 0.0); }},
            {"hatch with a circle",
             [&](Results& r) {
                 return CMakeEnt::MakeHatch(listOf({m_circle, id}), r.id, L"SOLID", 1.0, 0.0);
             }},
            {"coloured hatch",
             [&](Results& r) { return CMakeEnt::MakeHatch(id, L"SOLID", 1.0, 0.0, red, r.id); }},
            {"outline of a hatch", [&](Results& r) { return CMakeEnt::MakeHatchBoundary(id, r.ids, 0); }},
            {"region of a hatch", [&](Results& r) { return CMakeEnt::MakeHatchBoundary(id, r.ids, 1); }},
            {"filled curve", [&](Results& r) { return CMakeEnt::MakeSolid(id, red, r.ids); }},
        };
        for (const Refused& row : rows) {
            SCOPED_TRACE(testing::Message() << row.what << " of " << at.first);
            EXPECT_EQ(call({row.what, {}, [&](const Numbers&, Results& r) { return row.make(r); }}, {}), 0);
        }
    }
    EXPECT_EQ(call({"hatch of a hatch",
                    {},
                    [&](const Numbers&, Results& r) {
                        return CMakeEnt::MakeHatch(listOf({m_hatch}), r.id, L"SOLID", 1.0, 0.0);
                    }},
                   {}),
              0);
}

TEST_F(ShapeInputTest, HatchesOfBadPatternsAndListsAreRefused)
{
    AcDbObjectId raised, tilted;
    ASSERT_EQ(CMakeEnt::MakeCircle({0, 0, 5}, 10.0, raised), 1);
    setRotatedUcs();
    ASSERT_EQ(CMakeEnt::MakeCircle({0, 0, 0}, 10.0, tilted), 1);
    const auto hatch = [&](const AcDbObjectIdArray& ids, const wchar_t* pattern, double scale) {
        return [=](Results& r) { return CMakeEnt::MakeHatch(ids, r.id, pattern, scale, 0.0); };
    };
    const auto one = listOf({m_circle});
    const Refused rows[] = {
        {"an empty list", hatch({}, L"SOLID", 1.0)},
        {"an unknown pattern", hatch(one, L"NO SUCH", 1.0)},
        {"no pattern", hatch(one, L"", 1.0)},
        {"scale 0", hatch(one, L"ANSI31", 0.0)},
        {"a negative scale", hatch(one, L"ANSI31", -1.0)},
        {"lines too dense", hatch(one, L"ANSI31", 1e-9)},
        {"a curve above the plane", hatch(listOf({m_circle, raised}), L"SOLID", 1.0)},
        {"a curve out of the plane", hatch(listOf({m_circle, tilted}), L"SOLID", 1.0)},
    };
    for (const Refused& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(call({row.what, {}, [&](const Numbers&, Results& r) { return row.make(r); }}, {}), 0);
    }
}

TEST_F(ShapeInputTest, EntitiesThatSomebodyChangesAreRefused)
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
} // namespace
