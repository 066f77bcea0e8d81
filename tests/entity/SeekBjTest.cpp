#include "EntityFixture.h"

#include "dbline.h"

namespace
{
using SeekBj = EntityTest;

TEST_F(SeekBj, UppermostEntityUnderThePickBoxOnTheLayerIsFound)
{
    turnUcs();
    addLayer(L"WALL-1");
    addLayer(L"AXIS");
    AcDbObjectId wall, axis, found;
    ASSERT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {10, 0, 0}, L"WALL-1", 1, wall), 1);
    ASSERT_EQ(CMakeEnt::MakeLine({5, -5, 0}, {5, 5, 0}, L"AXIS", 1, axis), 1);
    ASSERT_EQ(CMakeEnt::SeekBj({5, 0, 0}, L"", found), 1);
    EXPECT_EQ(found, axis) << "the newest";
    ASSERT_EQ(CMakeEnt::SeekBj({5, 0, 0}, L"wall*", found), 1);
    EXPECT_EQ(found, wall);
    EXPECT_EQ(CMakeEnt::SeekBj({5, 3, 0}, L"WALL*", found), 0);
    EXPECT_EQ(CMakeEnt::SeekBj({kNan, 0, 0}, L"", found), 0);
    EXPECT_EQ(found, wall);
}

TEST_F(SeekBj, OnlyWhatIsShownIsFound)
{
    const AcDbObjectId layer = addLayer(L"STATE", true);
    AcDbObjectId line, found;
    ASSERT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {10, 0, 0}, L"STATE", 1, line), 1);
    EXPECT_EQ(CMakeEnt::SeekBj({5, 0, 0}, L"", found), 1) << "locked layers are shown";
    EXPECT_EQ(found, line);
    Open<AcDbLayerTableRecord>(layer, AcDb::kForWrite)->setIsOff(true);
    EXPECT_EQ(CMakeEnt::SeekBj({5, 0, 0}, L"", found), 0);
    {
        const Open<AcDbLayerTableRecord> state(layer, AcDb::kForWrite);
        state->setIsOff(false);
        state->setIsFrozen(true);
    }
    EXPECT_EQ(CMakeEnt::SeekBj({5, 0, 0}, L"", found), 0);
    {
        const Open<AcDbLayerTableRecord> state(layer, AcDb::kForWrite);
        state->setIsFrozen(false);
        state->setIsLocked(false);
    }
    Open<AcDbLine>(line, AcDb::kForWrite)->erase();
    EXPECT_EQ(CMakeEnt::SeekBj({5, 0, 0}, L"", found), 0);
}

TEST_F(SeekBj, MembersOfItsGroupElsewhereAreNotTakenForIt)
{
    AcDbObjectId under, above, group, found;
    ASSERT_EQ(CMakeEnt::MakeLine({0, 0, 0}, {10, 0, 0}, under), 1);
    ASSERT_EQ(CMakeEnt::MakeLine({0, 8, 0}, {10, 8, 0}, above), 1);
    AcDbObjectIdArray both;
    both.append(under);
    both.append(above);
    ASSERT_EQ(CMakeEnt::MakeNoNameGroup(both, group), 1);
    for (const auto& [y, id] : {std::pair(0.0, under), std::pair(8.0, above)}) {
        ASSERT_EQ(CMakeEnt::SeekBj({5, y, 0}, L"", found), 1);
        EXPECT_EQ(found, id);
    }
    int style = -1;
    EXPECT_EQ(CFamStuSysVar::Get(L"PICKSTYLE", style), 1);
    EXPECT_EQ(style, 1) << "as it was";
}
} // namespace
