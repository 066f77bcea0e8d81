#include "CFamStuUcs.h"

#include "ViewFixture.h"

namespace
{
class FamStuUcs : public ViewTest
{
protected:
    static AcGePoint3d origin() { return pointOf(L"UCSORG"); }
    static AcGePoint3d xAxis() { return pointOf(L"UCSXDIR"); }

    int countOfSystems()
    {
        AcDbUCSTablePointer table(database());
        return static_cast<int>(table->recordIds().size());
    }
};

const AcGeVector3d x = AcGeVector3d::kXAxis, y = AcGeVector3d::kYAxis, z = AcGeVector3d::kZAxis;
} // namespace

TEST_F(FamStuUcs, NamedSystemsAreMadeAndMadeCurrent)
{
    const Lock lock;
    ASSERT_EQ(CFamStuUcs::CreateUCS(L"front", {1.0, 2.0, 3.0}, x, z), 1);
    ASSERT_EQ(CFamStuUcs::SetCurUcs(L"FRONT"), 1);
    expectNear(origin(), {1.0, 2.0, 3.0});
    expectNear(pointOf(L"UCSYDIR"), {0.0, 0.0, 1.0});
    ASSERT_EQ(CFamStuUcs::CreateUCS(L"front", {4.0, 5.0, 6.0}, y * 2.0, z), 1); // the name gets other axes
    ASSERT_EQ(CFamStuUcs::SetCurUcs(L"front"), 1);
    expectNear(origin(), {4.0, 5.0, 6.0});
    expectNear(xAxis(), {0.0, 1.0, 0.0});
    EXPECT_EQ(countOfSystems(), 1);
}

TEST_F(FamStuUcs, WhatIsNoSystemIsRefused)
{
    EXPECT_EQ(CFamStuUcs::CreateUCS(L"front", {}, x, y), 0); // the document is not locked
    const Lock lock;
    EXPECT_EQ(CFamStuUcs::CreateUCS(L"", {}, x, y), 0);
    EXPECT_EQ(CFamStuUcs::CreateUCS(L"a?b", {}, x, y), 0);
    EXPECT_EQ(CFamStuUcs::CreateUCS(L"skew", {}, x, x + y), 0);
    EXPECT_EQ(CFamStuUcs::CreateUCS(L"flat", {}, x, x * 0.0), 0);
    EXPECT_EQ(CFamStuUcs::SetCurUcs(L"skew"), 0);
    EXPECT_EQ(CFamStuUcs::RotateUcs(1.0, x * 0.0), 0);
    EXPECT_EQ(countOfSystems(), 0);
    EXPECT_EQ(integerOf(L"WORLDUCS"), 1);
}

// A quarter turn about Z makes the system's X the world's Y; moving it by (1, 0, 0) of its own then goes
// along that.
TEST_F(FamStuUcs, TurnsAndMovesAreInItsOwnCoordinates)
{
    ASSERT_EQ(CFamStuUcs::RotateUcs(pi / 2.0), 1);
    ASSERT_EQ(CFamStuUcs::MoveUcsOrigin({1.0, 0.0, 5.0}), 1);
    expectNear(origin(), {0.0, 1.0, 5.0});
    ASSERT_EQ(CFamStuUcs::RotateUcs(pi / 2.0, x), 1); // about the world's Y: its Y becomes the world's Z
    expectNear(pointOf(L"UCSYDIR"), {0.0, 0.0, 1.0});
    expectNear(origin(), {0.0, 1.0, 5.0});
    ASSERT_EQ(CFamStuUcs::returnToWcs(), 1);
    EXPECT_EQ(integerOf(L"WORLDUCS"), 1);
}

TEST_F(FamStuUcs, EntitiesGoFromTheSystemToTheWorld)
{
    ASSERT_EQ(CFamStuUcs::MoveUcsOrigin({10.0, 20.0, 30.0}), 1);
    auto* line = new AcDbLine({1.0, 0.0, 0.0}, {2.0, 0.0, 0.0});
    AcDbObjectId id;
    EXPECT_EQ(CFamStuUcs::AddEntInUcs(line, id), 0); // the document is not locked
    EXPECT_TRUE(id.isNull());
    expectNear(line->startPoint(), {1.0, 0.0, 0.0});
    const Lock lock;
    ASSERT_EQ(CFamStuUcs::AddEntInUcs(line, id), 1);
    AcDbObjectPointer<AcDbLine> added(id);
    expectNear(added->startPoint(), {11.0, 20.0, 30.0});
    EXPECT_EQ(added->ownerId(), database()->modelSpaceId());
    EXPECT_EQ(CFamStuUcs::AddEntInUcs(nullptr, id), 0);
}

// The view's middle is (210, 148.5, 0) of the world; from the front it stays there, at (210, 0) of the
// display.
TEST_F(FamStuUcs, AnotherDirectionKeepsTheMiddleAndTheSize)
{
    ASSERT_EQ(CFamStuUcs::setViewDirection(-y), 1);
    expectNear(pointOf(L"VIEWDIR"), {0.0, -1.0, 0.0});
    EXPECT_DOUBLE_EQ(realOf(L"VIEWSIZE"), 297.0);
    AcGePoint3d middle(210.0, 148.5, 0.0);
    ASSERT_EQ(CFamStuUcs::WcsToDCS(middle), 1);
    expectNear(middle, {210.0, 0.0, -148.5});
    expectNear(trans(pointOf(L"VIEWCTR"), 1, 2), {210.0, 0.0, 0.0});
    EXPECT_EQ(CFamStuUcs::setViewDirection(x * 0.0), 0);
    addWindow();
    EXPECT_EQ(CFamStuUcs::setViewDirection(z), 1); // the sheet has a view too
    expectNear(pointOf(L"VIEWDIR"), {0.0, 0.0, 1.0});
}

// The window's scale is 1:4, its centre (150, 100) shows the model's (0, 0).
TEST_F(FamStuUcs, PointsOfThePaperNeedAnActiveWindow)
{
    addWindow();
    AcGePoint3d point(152.0, 101.0, 0.0);
    EXPECT_EQ(CFamStuUcs::PSDCSToWCS(point), 0);
    EXPECT_EQ(CFamStuUcs::PSDCSToDCS(point), 0);
    expectNear(point, {152.0, 101.0, 0.0});
    ASSERT_EQ(acedMspace(), Acad::eOk);
    ASSERT_EQ(CFamStuUcs::setViewDirection(-y), 1);
    AcGePoint3d shown = point;
    ASSERT_EQ(CFamStuUcs::PSDCSToDCS(shown), 1);
    expectNear(shown, {8.0, 4.0, 0.0});
    ASSERT_EQ(CFamStuUcs::PSDCSToWCS(point), 1);
    expectNear(point, {8.0, 0.0, 4.0});
    ASSERT_EQ(CFamStuUcs::DCSToWCS(shown), 1);
    expectNear(shown, {8.0, 0.0, 4.0});
    ASSERT_EQ(CFamStuUcs::WcsToPSDCS(point), 1);
    expectNear(point, {152.0, 101.0, 0.0});
}
