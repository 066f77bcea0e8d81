/// U, UNDO, REDO and MREDO.

#include "DrawingText.h"
#include "RandomChanges.h"

#include "actrans.h"
#include "dbents.h"
#include "dbobjptr.h"

namespace
{
using drawingtext::difference;
using drawingtext::linesOf;

class UndoCommand : public headless::EditorTest
{
protected:
    /// What typing keys shows.
    std::wstring type(const std::wstring& keys)
    {
        takeOutput();
        run(keys);
        return takeOutput();
    }
    std::size_t countEntities() const
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(database()->modelSpaceId());
        const auto& ids = space->entityIds();
        return static_cast<std::size_t>(
            std::count_if(ids.begin(), ids.end(), [](AcDbObjectId id) { return !id.isErased(); }));
    }
    long variable(const wchar_t* name)
    {
        resbuf value;
        EXPECT_EQ(acedGetVar(name, &value), RTNORM);
        return value.resval.rint;
    }
};
} // namespace

TEST_F(UndoCommand, EachCommandIsAStepWithItsName)
{
    type(L"LINE 0,0 1,0 1,1 \nCIRCLE 5,5 2\n");
    EXPECT_EQ(countEntities(), 3u);
    EXPECT_NE(type(L"U\n").find(L"CIRCLE"), std::wstring::npos);
    EXPECT_EQ(countEntities(), 2u);
    EXPECT_NE(type(L"U\n").find(L"LINE"), std::wstring::npos);
    EXPECT_EQ(countEntities(), 0u);
    EXPECT_NE(type(L"U\n").find(L"Everything has been undone"), std::wstring::npos);
}

TEST_F(UndoCommand, EscLeavesThePartThatIsDone)
{
    type(L"LINE 0,0 1,0 1,1 ^C");
    EXPECT_EQ(countEntities(), 2u);
    type(L"U\n");
    EXPECT_EQ(countEntities(), 0u);
}

TEST_F(UndoCommand, NumbersGoOverSeveralSteps)
{
    type(L"POINT 1,1\nPOINT 2,2\nPOINT 3,3\n");
    EXPECT_NE(type(L"UNDO 2\n").find(L"POINT POINT"), std::wstring::npos);
    EXPECT_EQ(countEntities(), 1u);
    type(L"UNDO\n\n"); // Enter: one
    EXPECT_EQ(countEntities(), 0u);
    type(L"REDO\n");
    EXPECT_EQ(countEntities(), 1u);
    type(L"REDO\n"); // both at once
    EXPECT_EQ(countEntities(), 3u);
    EXPECT_NE(type(L"REDO\n").find(L"Nothing to redo"), std::wstring::npos);
}

TEST_F(UndoCommand, SomethingNewEndsRedo)
{
    type(L"POINT 1,1\nU\nPOINT 2,2\n");
    EXPECT_NE(type(L"REDO\n").find(L"Nothing to redo"), std::wstring::npos);
    EXPECT_EQ(countEntities(), 1u);
}

TEST_F(UndoCommand, MredoTakesNumbersAndAll)
{
    type(L"POINT 1,1\nPOINT 2,2\nPOINT 3,3\nU\nU\nU\nMREDO 2\n");
    EXPECT_EQ(countEntities(), 2u);
    type(L"MREDO A\n");
    EXPECT_EQ(countEntities(), 3u);
    type(L"U\nU\nMREDO L\n");
    EXPECT_EQ(countEntities(), 2u);
}

TEST_F(UndoCommand, GroupsAreOneStep)
{
    type(L"POINT 0,0\nUNDO BE\n");
    EXPECT_EQ(variable(L"UNDOCTL") & 8, 8);
    type(L"POINT 1,1\nLTSCALE 3\nUNDO E\n");
    EXPECT_EQ(variable(L"UNDOCTL") & 8, 0);
    EXPECT_NE(type(L"U\n").find(L"GROUP"), std::wstring::npos);
    EXPECT_EQ(countEntities(), 1u);
    EXPECT_EQ(database()->ltscale(), 1.0);
    type(L"REDO\n");
    EXPECT_EQ(countEntities(), 2u);
    EXPECT_EQ(database()->ltscale(), 3.0);
    type(L"U\nU\n");
    EXPECT_EQ(countEntities(), 0u);
}

TEST_F(UndoCommand, BackGoesToTheMark)
{
    type(L"POINT 0,0\nUNDO M\nPOINT 1,1\nPOINT 2,2\n");
    EXPECT_EQ(variable(L"UNDOMARKS"), 1);
    EXPECT_NE(type(L"UNDO B\n").find(L"Mark encountered"), std::wstring::npos);
    EXPECT_EQ(countEntities(), 1u);
    EXPECT_EQ(variable(L"UNDOMARKS"), 0);
    type(L"UNDO B N\n");
    EXPECT_EQ(countEntities(), 1u);
    type(L"UNDO B Y\n");
    EXPECT_EQ(countEntities(), 0u);
}

TEST_F(UndoCommand, ControlLimitsWhatIsKept)
{
    type(L"POINT 0,0\nPOINT 1,1\nUNDO C O\n");
    EXPECT_EQ(variable(L"UNDOCTL") & 3, 3);
    EXPECT_NE(type(L"UNDO 2\n").find(L"Everything"), std::wstring::npos);
    EXPECT_EQ(countEntities(), 1u);
    type(L"UNDO C N\n");
    EXPECT_EQ(variable(L"UNDOCTL") & 1, 0);
    EXPECT_FALSE(database()->undoRecording());
    type(L"POINT 2,2\nU\n");
    EXPECT_EQ(countEntities(), 2u);
    type(L"UNDO A\nPOINT 3,3\nU\n");
    EXPECT_EQ(countEntities(), 2u);
}

TEST_F(UndoCommand, ViewsInARowAreOneStep)
{
    const std::vector<std::string> before = linesOf(*database());
    type(L"ZOOM 1,1 9,9\nPAN 0,0 5,5\nZOOM 2X\n");
    EXPECT_NE(linesOf(*database()), before);
    type(L"U\n");
    EXPECT_EQ(difference(before, linesOf(*database())), "");
}

TEST_F(UndoCommand, ExpressionsAndCallsOutsideOfCommandsAreSteps)
{
    type(L"(setvar \"LTSCALE\" 2.0)\n");
    EXPECT_EQ(database()->ltscale(), 2.0);
    acDocManager->lockDocument(document());
    database()->setTextsize(7.0);
    acDocManager->unlockDocument(document());
    type(L"U\n");
    EXPECT_NE(database()->textsize(), 7.0);
    type(L"U\n");
    EXPECT_EQ(database()->ltscale(), 1.0);
}

TEST_F(UndoCommand, TransactionsThatACommandLeavesAreAborted)
{
    asCommand([&] {
        document()->transactionManager()->startTransaction();
        acedCommandS(RTSTR, L"POINT", RTSTR, L"1,1", RTNONE);
        EXPECT_EQ(acedCommandS(RTSTR, L"U", RTNONE), RTERROR);
    });
    EXPECT_EQ(document()->transactionManager()->numActiveTransactions(), 0);
    EXPECT_EQ(countEntities(), 0u);
}

TEST_F(UndoCommand, CommandsOfACommandBelongToIt)
{
    asCommand([] {
        acedCommandS(RTSTR, L"POINT", RTSTR, L"1,1", RTNONE);
        acedCommandS(RTSTR, L"POINT", RTSTR, L"2,2", RTNONE);
    });
    type(L"U\n");
    EXPECT_EQ(countEntities(), 0u);
}

class RandomUndo : public RandomChanges, public testing::WithParamInterface<std::uint32_t>
{
};

// The drawing before and after each step is compared as the file it makes.
TEST_P(RandomUndo, GivesBackEachStateAndRedoTheNextOne)
{
    constexpr std::size_t steps = 60;
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    begin(GetParam());
    run(L"UNDO C C N\n"); // every zoom is a step
    std::vector<std::vector<std::string>> states{linesOf(*database())};
    std::vector<const char*> names;
    std::size_t changes = 0;
    while (names.size() < steps) {
        names.push_back(change());
        states.push_back(linesOf(*database()));
        if (states[states.size() - 2] != states.back()) ++changes;
    }
    ASSERT_GT(changes, steps / 2);
    for (std::size_t i = steps; i-- > 0;) {
        run(L"U\n");
        const std::string wrong = difference(states[i], linesOf(*database()));
        ASSERT_TRUE(wrong.empty()) << "undo of step " << i << ": " << names[i] << "\n" << wrong;
    }
    for (std::size_t i = 0; i < steps; ++i) {
        run(L"REDO\n");
        const std::string wrong = difference(states[i + 1], linesOf(*database()));
        ASSERT_TRUE(wrong.empty()) << "redo of step " << i << ": " << names[i] << "\n" << wrong;
    }
    run(L"UNDO 60\n");
    EXPECT_EQ(difference(states[0], linesOf(*database())), "");
}
INSTANTIATE_TEST_SUITE_P(Seeds, RandomUndo, testing::Range(9u, 17u));
