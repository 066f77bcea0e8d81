#include "CommandLine.h"
#include "InputSource.h"

#include <gtest/gtest.h>

using ed::Answer;
using ed::Reading;

namespace
{
class AnswersFromKeys : public testing::Test
{
protected:
    AnswersFromKeys()
        : mBefore(ed::setCommandLineListener([this](std::wstring_view text) { shown += text; }))
    {
    }
    ~AnswersFromKeys() override { ed::setCommandLineListener(mBefore); }

    std::wstring textOf(Reading reading)
    {
        const Answer answer = source.next(reading);
        return answer.kind == Answer::Kind::text     ? answer.text
               : answer.kind == Answer::Kind::enter  ? L"<enter>"
               : answer.kind == Answer::Kind::cancel ? L"<cancel>"
                                                     : L"<name>";
    }
    std::wstring token() { return textOf(Reading::token); }

    ed::InputSource source;
    std::wstring shown;

private:
    ed::CommandLineListener mBefore;
};
} // namespace

TEST_F(AnswersFromKeys, BlanksAndEnterEndTokens)
{
    source.type(L"LINE 0,0 10,10\r\n\n");
    EXPECT_EQ(token(), L"LINE");
    EXPECT_EQ(token(), L"0,0");
    EXPECT_EQ(token(), L"10,10");
    EXPECT_EQ(token(), L"<enter>");
    EXPECT_EQ(token(), L"<cancel>");
}

TEST_F(AnswersFromKeys, LinesKeepTheirBlanksAndQuotesKeepThoseOfTokens)
{
    source.type(L"two words\n\"a b\" c\n\"as is\"\n");
    EXPECT_EQ(textOf(Reading::line), L"two words");
    EXPECT_EQ(textOf(Reading::word), L"a b");
    EXPECT_EQ(textOf(Reading::word), L"c");
    EXPECT_EQ(textOf(Reading::line), L"\"as is\"");
}

TEST_F(AnswersFromKeys, EscDropsWhatStandsBeforeIt)
{
    source.type(L"half^Cwhole \x1b" L"last\n");
    EXPECT_EQ(token(), L"<cancel>");
    EXPECT_EQ(token(), L"whole");
    EXPECT_EQ(token(), L"<cancel>");
    EXPECT_EQ(token(), L"last");
}

TEST_F(AnswersFromKeys, HalfATokenWaitsForTheRestAtTheCommandPrompt)
{
    source.type(L"LI");
    EXPECT_FALSE(source.takeComplete(Reading::token));
    source.type(L"NE ");
    EXPECT_EQ(source.takeComplete(Reading::token)->text, L"LINE");
}

TEST_F(AnswersFromKeys, ParenthesesHoldATokenTogether)
{
    source.setInterpreter([](const std::wstring& text) -> std::optional<Answer> {
        if (text == L"(f \"a )\" 2)") return Answer::ofText(L"42");
        if (text == L"(f  \"a )\" 2)") return Answer::ofText(L"a comment before");
        if (text == L"(g \"\\\")\")") return Answer::ofText(L"a quote inside");
        if (text == L"'Z") return Answer::enter();
        return std::nullopt;
    });
    source.type(L"(f \"a )\" 2) 'Z (f ; no ) \"here\n\"a )\" 2) 7 ");
    EXPECT_EQ(token(), L"42");
    EXPECT_EQ(token(), L"a comment before");
    EXPECT_EQ(token(), L"7");
    source.type(L"(g \"\\\")\") ");
    EXPECT_EQ(token(), L"a quote inside");
}

TEST_F(AnswersFromKeys, ScopesEndWithACancelAndLeaveTheUsersKeysAlone)
{
    source.type(L"1 2 ");
    {
        const ed::InputSource::Scope scope(source);
        source.give(Answer::ofText(L"with blanks"));
        source.pauseForUser();
        EXPECT_EQ(token(), L"with blanks");
        EXPECT_EQ(token(), L"1");
        EXPECT_EQ(token(), L"<cancel>");
    }
    EXPECT_EQ(token(), L"2");
}

TEST_F(AnswersFromKeys, TheReaderIsAskedWhenNothingWaits)
{
    int asked = 0;
    source.setReader([&](std::wstring& keys) {
        keys = L"fresh\n";
        return ++asked == 1;
    });
    source.type(L"first ", false);
    EXPECT_EQ(token(), L"first");
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(token(), L"fresh");
    EXPECT_EQ(token(), L"<cancel>");
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(shown, L"");
}

TEST_F(AnswersFromKeys, TypedKeysAreShown)
{
    source.type(L"10,10 ");
    token();
    EXPECT_EQ(shown, L"10,10\n");
}
