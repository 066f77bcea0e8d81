#include "Keywords.h"

#include <gtest/gtest.h>

using ed::KeywordList;

namespace
{
std::wstring meant(const KeywordList& keywords, const wchar_t* typed)
{
    const std::optional<std::size_t> found = keywords.match(typed);
    return found ? keywords.name(*found) : L"<none>";
}
} // namespace

TEST(Keywords, CapitalsMustBeTypedAndMoreMay)
{
    const KeywordList keywords(L"LType LTScale eXit 3P");
    EXPECT_EQ(meant(keywords, L"lt"), L"LType");
    EXPECT_EQ(meant(keywords, L"LTYP"), L"LType");
    EXPECT_EQ(meant(keywords, L"l"), L"<none>");
    EXPECT_EQ(meant(keywords, L"ltypes"), L"<none>");
    EXPECT_EQ(meant(keywords, L"lts"), L"LTScale");
    EXPECT_EQ(meant(keywords, L"x"), L"eXit");
    EXPECT_EQ(meant(keywords, L"exi"), L"eXit");
    EXPECT_EQ(meant(keywords, L"e"), L"<none>");
    EXPECT_EQ(meant(keywords, L"3p"), L"3P");
    EXPECT_EQ(meant(keywords, L"3"), L"<none>");
}

TEST(Keywords, AbbreviationsMayStandBehindAComma)
{
    const KeywordList keywords(L"LTYPE,LT EXIT,X all");
    EXPECT_EQ(meant(keywords, L"ltyp"), L"LTYPE");
    EXPECT_EQ(meant(keywords, L"x"), L"EXIT");
    EXPECT_EQ(meant(keywords, L"al"), L"<none>"); // without capitals the whole word
    EXPECT_EQ(meant(keywords, L"ALL"), L"all");
}

TEST(Keywords, TheGlobalNameIsReturnedAndTypedWithAnUnderscore)
{
    const KeywordList keywords(L"是(Y) 否(N) _Yes No");
    EXPECT_EQ(meant(keywords, L"y"), L"Yes");
    EXPECT_EQ(meant(keywords, L"是(N)"), L"<none>");
    EXPECT_EQ(meant(keywords, L"否(N)"), L"No");
    EXPECT_EQ(meant(keywords, L"_n"), L"No");
    EXPECT_EQ(meant(keywords, L"no"), L"<none>");
    EXPECT_EQ(meant(keywords, L"_"), L"<none>");
    EXPECT_EQ(meant(KeywordList(L"Yes No"), L"_yes"), L"Yes");
}
