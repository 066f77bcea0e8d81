/// Every maker of geometry with numbers that are none, and in drawings that take nothing: the documented
/// result, and nothing left behind.

#include "SavedDrawing.h"

#include "ShapeFixture.h"

#include "acdbads.h"

#include <algorithm>
#include <array>

namespace
{
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

class ShapeInputTest : public ShapeFixture
{
protected:
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
            {"boundary by a set",
             {1, 2, 3},
             [this](const Numbers& n, Results& out) {
                 return bySet([&](const ads_name set) {
                     return CMakeEnt::MakeBoundary(pointAt(n, 0), set, out.id, 1, 1);
                 });
             },
             true},
            {"boundaries by a set",
             {1, 2, 3},
             [this](const Numbers& n, Results& out) {
                 return bySet([&](const ads_name set) {
                     return CMakeEnt::MakeBoundary(pointAt(n, 0), set, out.ids, 1, 0);
                 });
             },
             true},
        };
    }
    /// Runs a maker with a set of the circle, as a command (which locks its document) or outside of one.
    int bySet(const std::function<int(const ads_name)>& maker)
    {
        ads_name set = {}, circle = {};
        acdbGetAdsName(circle, m_circle);
        acedSSAdd(circle, nullptr, set);
        int result = -1;
        if (m_isCommand)
            asCommand([&] { result = maker(set); });
        else
            result = maker(set);
        acedSSFree(set);
        return result;
    }
    std::vector<Maker> makers()
    {
        std::vector<Maker> all = curves;
        for (Maker& maker : areas())
            all.push_back(std::move(maker));
        return all;
    }

    bool m_isCommand = true;
};

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

/// How many entities of model space reach to where there are no numbers.
int unmeasurable(AcDbDatabase& drawing)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> space(drawing.modelSpaceId(), AcDb::kForRead);
    const std::vector<AcDbObjectId>& ids = space->entityIds();
    return static_cast<int>(std::count_if(ids.begin(), ids.end(), [](AcDbObjectId id) {
        AcDbExtents box;
        const AcDbEntityPointer entity(id, AcDb::kForRead);
        return entity.openStatus() == Acad::eOk && entity->getGeomExtents(box) != Acad::eOk;
    }));
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
                // Two of them overflow where they are turned into the world.
                if (place + 1 < numbers.size()) numbers[place + 1] = huge;
                call(maker, numbers);
                ASSERT_EQ(unmeasurable(*database()), 0);
            }
    const std::filesystem::path path = folder.file("huge.dxf");
    ASSERT_EQ(database()->saveAs(path.wstring().c_str()), Acad::eOk);
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
    unlock();
    for (const Maker& maker : makers()) {
        SCOPED_TRACE(maker.name);
        Results out;
        const int before = entityCount();
        const int result = maker.make(maker.good, out);
        EXPECT_EQ(result, out.loose || maker.isCommand) << "else only what is not added can be made";
        EXPECT_EQ(entityCount(), before + maker.isCommand);
    }
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
    m_isCommand = false;
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
} // namespace
