#include "TextCodes.h"

#include <gtest/gtest.h>

using namespace lettering;

TEST(TextCodes, SignsAndNumbersBecomeCharacters)
{
    EXPECT_EQ(plainText(L"%%c20%%p0.1 90%%D"), L"\u2300"
                                               L"20\u00B1"
                                               L"0.1 90\u00B0");
    EXPECT_EQ(plainText(L"%%065%%127%%128%%129"), L"A\u00B0\u00B1\u2300");
    EXPECT_EQ(plainText(L"100%%%"), L"100%");
    EXPECT_EQ(plainText(L"\\U+4E2D\\U+6587"), L"中文");
    EXPECT_EQ(plainText(L"\\U+D840\\U+DC00"), L"\U00020000");
    EXPECT_EQ(plainText(L"\\M+5D6D0\\M+500412"), L"中A2"); // GBK D6 D0, one byte 41
}

TEST(TextCodes, WhatIsNoCodeStays)
{
    for (const wchar_t* text : {L"", L"%", L"%%", L"50%", L"%%z", L"%%25", L"%%999", L"%%000", L"\\U+12G4",
                                L"\\U+12", L"\\M+9D6D0", L"\\M+5FFFF", L"\\", L"a\\Pb"})
        EXPECT_EQ(plainText(text), text);
}

TEST(TextCodes, LinesSwitchOnAndOff)
{
    const std::vector<TextRun> runs = decodeTextCodes(L"a%%ub%%Oc%%ud%%o%%ke");
    ASSERT_EQ(runs.size(), 5u);
    const auto is = [&](std::size_t i, const wchar_t* text, bool under, bool over, bool through) {
        return runs[i].text == text && runs[i].lines == TextLines{under, over, through};
    };
    EXPECT_TRUE(is(0, L"a", false, false, false));
    EXPECT_TRUE(is(1, L"b", true, false, false));
    EXPECT_TRUE(is(2, L"c", true, true, false));
    EXPECT_TRUE(is(3, L"d", false, true, false));
    EXPECT_TRUE(is(4, L"e", false, false, true));
}

TEST(TextCodes, SwitchesWithoutTextLeaveNoRun)
{
    EXPECT_TRUE(decodeTextCodes(L"%%u%%o%%u").empty());
    EXPECT_EQ(decodeTextCodes(L"a%%u%%ub").size(), 1u);
}
