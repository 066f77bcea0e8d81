#include "SelectionFixture.h"

namespace
{
class SelectObjects : public SelectionTest
{
protected:
    void SetUp() override
    {
        SelectionTest::SetUp();
        low = addLine(0, 0, 10, 0);
        middle = addLine(0, 20, 10, 20);
        high = addLine(0, 40, 10, 40);
    }
    AcDbObjectId low, middle, high;
};

resbuf* namedEntity = nullptr;
std::wstring wordSeen;
resbuf* answerWords(const ACHAR* word)
{
    wordSeen = word;
    resbuf* list = namedEntity;
    namedEntity = nullptr;
    return list;
}
} // namespace

TEST_F(SelectObjects, PointsPickWithinThePickBox)
{
    // The box reaches 3 * 297 / 1080 = 0.825 far.
    EXPECT_EQ(ask(L"5,0.8 5,20 \n"), (Ids{low, middle}));
    EXPECT_EQ(takeOutput(), L"\nSelect objects: 1 found\n\nSelect objects: 1 found, 2 total\n\nSelect objects: ");
    EXPECT_EQ(ask(L"5,20.9 ^C"), Ids{});
    EXPECT_EQ(status(), RTCAN);
}

TEST_F(SelectObjects, PointsBesideEntitiesDrawWindows)
{
    EXPECT_EQ(ask(L"-5,-5 8,45 \n"), Ids{});
    EXPECT_EQ(status(), RTERROR);
    EXPECT_NE(takeOutput().find(L"Specify opposite corner: 0 found\n"), std::wstring::npos);
    EXPECT_EQ(ask(L"8,45 -5,-5 \n"), (Ids{high, middle, low}));
    EXPECT_EQ(ask(L"-5,-5 @20,30 \n"), (Ids{middle, low}));
    setVariable(L"PICKAUTO", 0);
    EXPECT_EQ(ask(L"8,45 5,20 \n"), Ids{middle});
}

TEST_F(SelectObjects, KeywordsChooseTheMethod)
{
    EXPECT_EQ(ask(L"W -5,-5 20,25 \n"), (Ids{middle, low}));
    EXPECT_EQ(ask(L"_Crossing 5,-5 6,25 \n"), (Ids{middle, low}));
    EXPECT_EQ(ask(L"BOX 6,25 5,-5 \n"), (Ids{middle, low}));
    EXPECT_EQ(ask(L"F 5,-5 5,5 U 5,30  \n"), (Ids{middle, low}));
    EXPECT_EQ(ask(L"P \n"), (Ids{middle, low}));
    EXPECT_EQ(ask(L"WP -5,-5 20,-5 20,25 -5,25  \n"), (Ids{middle, low}));
    EXPECT_EQ(ask(L"CP 4,-5 6,-5 6,5  \n"), Ids{low});
    EXPECT_EQ(ask(L"L \n"), Ids{high});
    EXPECT_EQ(ask(L"ALL \n"), (Ids{high, middle, low}));
    EXPECT_EQ(ask(L"M 5,0 5,40  \n"), (Ids{low, high}));
    EXPECT_EQ(ask(L"SI 5,0 "), Ids{low});
    EXPECT_EQ(ask(L"5,0 ", L":S"), Ids{low});
}

TEST_F(SelectObjects, RemovingAndUndoingTakeEntitiesOut)
{
    EXPECT_EQ(ask(L"ALL R 5,20 A 5,20 \n"), (Ids{high, low, middle}));
    EXPECT_NE(takeOutput().find(L"Remove objects: 1 found, 1 removed, 2 total\n"), std::wstring::npos);
    EXPECT_EQ(ask(L"5,0 ALL U \n"), Ids{low});
    EXPECT_EQ(ask(L"5,0 ALL \n"), (Ids{low, high, middle}));
    EXPECT_NE(takeOutput().find(L"3 found (1 duplicate), 3 total\n"), std::wstring::npos);
    setVariable(L"PICKADD", 0);
    EXPECT_EQ(ask(L"5,0 5,20 \n"), Ids{middle});
}

TEST_F(SelectObjects, WhatIsLeftOutIsSaid)
{
    addLine(0, 60, 10, 60, L"Locked");
    changeLayer(L"Locked", [](AcDbLayerTableRecord& layer) { layer.setIsLocked(true); });
    addCircle(5, 60, 2);
    answer(L"ALL \n");
    resbuf* lines = acutBuildList(RTDXF0, L"LINE", RTNONE);
    takeOutput();
    EXPECT_EQ(get(L"_:L", nullptr, nullptr, lines), (Ids{high, middle, low}));
    acutRelRb(lines);
    EXPECT_EQ(takeOutput(),
              L"\nSelect objects: 5 found\n1 was filtered out.\n1 was on a locked layer.\n\nSelect objects: ");
}

TEST_F(SelectObjects, PromptsAreTheCallersWhenItGivesThem)
{
    const wchar_t* prompts[] = {L"\nWhich? ", L"\nNot which? "};
    answer(L"5,0 5,20 R 5,0 \n");
    takeOutput();
    EXPECT_EQ(get(L":$", prompts), Ids{middle});
    const std::wstring shown = takeOutput();
    EXPECT_EQ(shown.find(L"\nWhich? 1 found"), 0u);
    EXPECT_NE(shown.find(L"\nNot which? 1 found, 1 removed"), std::wstring::npos);
}

TEST_F(SelectObjects, OtherWordsAreRefusedOrGoToTheCallback)
{
    EXPECT_EQ(ask(L"FOO 5,0 \n"), Ids{low});
    EXPECT_NE(takeOutput().find(L"*Invalid selection*\n"), std::wstring::npos);
    ASSERT_EQ(acedSSSetOtherCallbackPtr(answerWords), RTNORM);
    ads_name name;
    nameOf(high, name);
    namedEntity = acutBuildList(RTENAME, name, RTNONE);
    EXPECT_EQ(ask(L"FOO \n", L":?"), Ids{high});
    EXPECT_EQ(wordSeen, L"FOO");
    namedEntity = acutBuildList(RTSTR, L"Not that.\n", RTNONE);
    EXPECT_EQ(ask(L"BAR 5,0 \n", L":?"), Ids{low});
    EXPECT_NE(takeOutput().find(L"Not that.\n"), std::wstring::npos);
}

TEST_F(SelectObjects, AnswersEndWithTheInput)
{
    EXPECT_EQ(ask(L"5,0 FOO BAR "), Ids{});
    EXPECT_EQ(status(), RTCAN);
}
