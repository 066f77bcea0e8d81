/// Each maker as a command of its own: U gives the drawing back as it was before, REDO what it made.

#include "../host/commands/DrawingText.h"

#include "EntityFixture.h"

#include "dbcircle.h"
#include "dbhatch.h"
#include "dbregion.h"

namespace
{
using drawingtext::difference;
using drawingtext::linesOf;

/// Without the fixture's lock: commands lock the document themselves.
class UndoOfMakers : public headless::EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        asCommand([&] {
            AcDbObjectId id;
            CMakeEnt::MakeRect({0, 0, 0}, {20, 10, 0}, mRectangle);
            CMakeEnt::MakeCircle({5, 5, 0}, 2.0, mCircle);
            CMakeEnt::MakeText({8, 5, 0}, L"abc", mText, 2.0);
            CMakeEnt::MakeLine({30, 0, 0}, {40, 0, 0}, id);
        });
    }
    AcDbObjectIdArray outlines() const
    {
        AcDbObjectIdArray ids;
        ids.append(mRectangle);
        ids.append(mCircle);
        return ids;
    }

    AcDbObjectId mRectangle, mCircle, mText, mHatch, mGroup;
};
} // namespace

TEST_F(UndoOfMakers, DrawingIsWhatItWasBeforeAndAgainWhatItBecame)
{
    AcDbObjectId id;
    AcDbObjectIdArray ids;
    const AcGePoint3d inside(15, 5, 0);
    struct Step {
        const char* name;
        std::function<int()> make;
    };
    const Step steps[] = {
        {"hatch", [&] { return CMakeEnt::MakeHatch(outlines(), mHatch, L"ANSI31", 1.0, 0.3); }},
        {"hatch that follows",
         [&] {
             const AcDbObjectPointer<AcDbCircle> circle(mCircle, AcDb::kForWrite);
             return circle->setRadius(3.0) == Acad::eOk ? 1 : 0;
         }},
        {"outlines of the hatch", [&] { return CMakeEnt::MakeHatchBoundary(mHatch, ids, 1); }},
        {"group", [&] { return CMakeEnt::MakeGroup(L"OUTLINES", outlines(), mGroup); }},
        {"group without a name", [&] { return CMakeEnt::MakeNoNameGroup(outlines(), id); }},
        {"group dissolved", [&] { return CMakeEnt::ExplodNoNameGroup(L""); }},
        {"region",
         [&] {
             AcGePoint3dArray corners;
             for (const AcGePoint3d& corner : {AcGePoint3d(0, 0, 0), AcGePoint3d(9, 0, 0), AcGePoint3d(0, 9, 0)})
                 corners.append(corner);
             AcDbRegion* const region = CMakeEnt::MakeRegion(corners);
             return CArxUtils::CDatabase::AddToDb(region, id) && region->close() == Acad::eOk ? 1 : 0;
         }},
        {"boundary", [&] { return CMakeEnt::MakeBoundary(inside, ids, 1, 0); }},
        {"solids", [&] { return CMakeEnt::MakeSolid(mRectangle, AcCmColor(), ids); }},
        {"copy of a text", [&] { return CMakeEnt::CopyText(mText, L"管道", id); }},
        {"text style", [&] { return CMakeEnt::MakeTxtStyle(L"NOTES", L"gbenor.shx,gbcbig.shx", 3.0, 0.8, 0.1); }},
        {"dimensions", [&] { return CMakeEnt::MakeCoordDim4(inside, ids, 1, 7.0); }},
        {"coordinate system",
         [&] { return CFamStuUcs::CreateUCS(L"TURNED", {1, 2, 0}, AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis); }},
        {"its use", [&] { return CFamStuUcs::SetCurUcs(L"TURNED"); }},
    };
    run(L"UNDO C A\n");
    std::vector<std::vector<std::string>> states{linesOf(*database())};
    for (const Step& step : steps) {
        asCommand([&] { EXPECT_EQ(step.make(), 1) << step.name; });
        states.push_back(linesOf(*database()));
        EXPECT_NE(states.back(), states[states.size() - 2]) << step.name;
    }
    for (std::size_t i = std::size(steps); i-- > 0;) {
        run(L"U\n");
        ASSERT_EQ(difference(states[i], linesOf(*database())), "") << "undo of " << steps[i].name;
    }
    for (std::size_t i = 0; i < std::size(steps); ++i) {
        run(L"REDO\n");
        ASSERT_EQ(difference(states[i + 1], linesOf(*database())), "") << "redo of " << steps[i].name;
    }
}
