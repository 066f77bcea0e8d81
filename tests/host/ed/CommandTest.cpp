#include "EditorFixture.h"

#include "CommandRunner.h"
#include "InputSource.h"

namespace
{
std::vector<std::wstring> got;

std::wstring textOf(const ed::Answer& answer)
{
    switch (answer.kind) {
    case ed::Answer::Kind::text: return answer.text;
    case ed::Answer::Kind::enter: return L"<enter>";
    case ed::Answer::Kind::cancel: return L"<cancel>";
    default: return L"<name>";
    }
}

/// Asks twice, and notes the answers.
void askTwice()
{
    for (int i = 0; i < 2; ++i) got.push_back(textOf(ed::currentInput().next(ed::Reading::token)));
}
void askOnce() { got.push_back(textOf(ed::currentInput().next(ed::Reading::token))); }
void noteNames()
{
    resbuf names{};
    acedGetVar(L"CMDNAMES", &names);
    got.push_back(names.resval.rstring);
    acutDelString(names.resval.rstring);
    resbuf active{};
    acedGetVar(L"CMDACTIVE", &active);
    got.push_back(std::to_wstring(active.resval.rint));
}
void nested()
{
    const ads_point corner = {1.5, 2.0, 0.0};
    got.push_back(std::to_wstring(acedCommandS(RTSTR, L"_.ASKTWICE", RT3DPOINT, corner, RTSTR, L"", RTNONE)));
    noteNames();
}
void throwing() { throw 7; }

class Commands : public headless::EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        got.clear();
        add(L"ASKTWICE", L"LOCALTWICE", ACRX_CMD_MODAL, askTwice);
        add(L"ASKONCE", L"ASKONCE", ACRX_CMD_MODAL, askOnce);
        add(L"NAMES", L"NAMES", ACRX_CMD_TRANSPARENT, noteNames);
        add(L"NESTED", L"NESTED", ACRX_CMD_MODAL, nested);
        add(L"THROWING", L"THROWING", ACRX_CMD_MODAL, throwing);
    }
    void TearDown() override
    {
        acedRegCmds->removeGroup(L"TESTS");
        EditorTest::TearDown();
    }
    void add(const wchar_t* global, const wchar_t* local, Adesk::Int32 flags, AcRxFunctionPtr function)
    {
        ASSERT_EQ(acedRegCmds->addCommand(L"TESTS", global, local, flags, function), Acad::eOk);
    }
    using Texts = std::vector<std::wstring>;
};
} // namespace

TEST_F(Commands, GlobalNamesNeedTheUnderscoreWhereLocalOnesDiffer)
{
    run(L"localtwice a b ");
    run(L"_asktwice c d ");
    run(L"ASKTWICE ");
    EXPECT_EQ(got, (Texts{L"a", L"b", L"c", L"d"}));
    EXPECT_NE(takeOutput().find(L"Unknown command \"ASKTWICE\""), std::wstring::npos);
}

TEST_F(Commands, EnterRepeatsTheLastCommandAndEscLeavesIt)
{
    run(L"ASKONCE 1\n");
    run(L"\n2 ");
    run(L"ASKONCE ^C");
    EXPECT_EQ(got, (Texts{L"1", L"2", L"<cancel>"}));
    EXPECT_EQ(takeCommands(), (Texts{L"ASKONCE", L"ASKONCE", L"*ASKONCE"}));
}

TEST_F(Commands, AQuestionWithoutAnswerIsACancel)
{
    run(L"_ASKTWICE only ");
    EXPECT_EQ(got, (Texts{L"only", L"<cancel>"}));
    EXPECT_EQ(takeCommands(), Texts{L"*ASKTWICE"});
}

TEST_F(Commands, TransparentOnesRunInTheMiddle)
{
    run(L"_ASKTWICE first 'NAMES second ");
    EXPECT_EQ(got, (Texts{L"first", L"ASKTWICE'NAMES", L"3", L"second"}));
    got.clear();
    run(L"_ASKTWICE 'ASKONCE a b ");
    EXPECT_EQ(got, (Texts{L"a", L"b"})); // the one that is not transparent was refused
}

TEST_F(Commands, CommandSAnswersWithValuesAndLeavesTheUsersKeysAlone)
{
    run(L"NESTED ASKONCE mine ");
    EXPECT_EQ(got, (Texts{L"1.5,2,0", L"<enter>", std::to_wstring(RTNORM), L"NESTED", L"1", L"mine"}));
    EXPECT_EQ(acedCommandS(RTSTR, L"NOSUCHCOMMAND", RTNONE), RTERROR);
    EXPECT_EQ(acedCommandS(RTSTR, L"_ASKTWICE", RTSTR, L"one", RTNONE), RTCAN);
}

TEST_F(Commands, SentStringsWaitForTheCommandLine)
{
    ASSERT_EQ(acDocManager->sendStringToExecute(document(), L"ASKONCE "), Acad::eOk);
    EXPECT_TRUE(got.empty());
    EXPECT_EQ(acDocManager->inputPending(document()), 1);
    ASSERT_EQ(acDocManager->sendStringToExecute(document(), L"later "), Acad::eOk);
    EXPECT_EQ(ed::runPending(), 1);
    EXPECT_EQ(got, Texts{L"later"});
    EXPECT_EQ(acDocManager->sendStringToExecute(nullptr, L"x"), Acad::eNoDocument);
    EXPECT_EQ(acDocManager->sendStringToExecute(document(), nullptr), Acad::eInvalidInput);
}

TEST_F(Commands, AnExceptionEndsTheCommandOnly)
{
    run(L"THROWING ASKONCE still ");
    EXPECT_EQ(got, Texts{L"still"});
}

TEST_F(Commands, GroupsAreSearchedFromTheLastAndRefuseDoubles)
{
    EXPECT_EQ(acedRegCmds->addCommand(L"tests", L"askonce", nullptr, 0, askTwice), Acad::eDuplicateKey);
    EXPECT_EQ(acedRegCmds->addCommand(L"TESTS", L"", nullptr, 0, askTwice), Acad::eInvalidInput);
    EXPECT_EQ(acedRegCmds->addCommand(L"TESTS", L"NEW", nullptr, 0, nullptr), Acad::eInvalidInput);
    ASSERT_EQ(acedRegCmds->addCommand(L"ABOVE", L"ASKONCE", nullptr, 0, askTwice), Acad::eOk);
    run(L"ASKONCE 1 2 ");
    EXPECT_EQ(acedRegCmds->popGroupToTop(L"TESTS"), Acad::eOk);
    run(L"ASKONCE 3 ");
    EXPECT_EQ(got, (Texts{L"1", L"2", L"3"}));
    EXPECT_EQ(acedRegCmds->removeCmd(L"ABOVE", L"askonce"), Acad::eOk);
    EXPECT_EQ(acedRegCmds->removeGroup(L"ABOVE"), Acad::eKeyNotFound);
    acedRegCmds->lookupGlobalCmd(L"ASKONCE")->commandUndef(true);
    run(L"ASKONCE ");
    run(L".ASKONCE 4 ");
    EXPECT_EQ(got.back(), L"4");
}

TEST_F(Commands, ExpressionsAnswerAndSetVariables)
{
    run(L"_ASKTWICE (+ 1 2) (list 1.5 2 3) ");
    EXPECT_EQ(got, (Texts{L"3", L"1.5,2,3"}));
    run(L"(setq a (* 6 7)) ");
    run(L"ASKONCE !a ");
    EXPECT_EQ(got.back(), L"42");
    run(L"(setvar \"PICKBOX\" 8) ");
    resbuf value{};
    ASSERT_EQ(acedGetVar(L"pickbox", &value), RTNORM);
    EXPECT_EQ(value.resval.rint, 8);
    run(L"(nosuch 1) ");
    EXPECT_NE(takeOutput().find(L"no function definition: nosuch"), std::wstring::npos);
}
