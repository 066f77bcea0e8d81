#include "QmCADLib.h"

#include <gtest/gtest.h>

#include <random>

// With the sanitizers on, GCC 12 takes a union inside <regex> for uninitialised where it is not read.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#include <regex>

namespace
{
std::wstring marked(const std::wstring& text, const std::wstring& pattern)
{
    return CRegexString::regexReplace(text, pattern, L"<$&>");
}

/// Makes patterns of the constructs on which the standard library keeps to the grammar: its empty iterations,
/// its anchors in look-aheads and its word boundaries behind empty matches do not.
class PatternMaker
{
public:
    explicit PatternMaker(unsigned seed) : m_random(seed) {}

    std::wstring text()
    {
        std::wstring result;
        for (int i = below(10); i > 0; --i)
            result += pick({L"a", L"b", L"c", L" ", L"\n"});
        return result;
    }
    std::wstring pattern(int depth)
    {
        std::wstring result;
        for (int i = below(4); i > 0; --i)
            result += depth > 0 && below(3) == 0 ? group(depth) : character() + quantifier();
        return result;
    }

private:
    std::wstring group(int depth)
    {
        if (below(4) == 0) return pick({L"(?=a)", L"(?!b+)", L"(?=.*c)", L"^", L"$"});
        return pick({L"(", L"(?:"}) + character() + pattern(depth - 1) + L"|" + character() +
               pattern(depth - 1) + L")" + quantifier();
    }
    std::wstring character() { return pick({L"a", L"b", L".", L"[ab]", L"[^a]", L"\\w", L"\\s", L"[\\W-]"}); }
    std::wstring quantifier()
    {
        return pick(
            {L"", L"", L"", L"*", L"+", L"?", L"*?", L"+?", L"??", L"{2}", L"{1,2}", L"{2,}", L"{0,3}?"});
    }
    int below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }
    std::wstring pick(std::initializer_list<const wchar_t*> choices)
    {
        return choices.begin()[below(static_cast<int>(choices.size()))];
    }

    std::mt19937 m_random;
};
} // namespace

TEST(CRegexString, AgreesWithStandardLibrary)
{
    const unsigned seed = std::random_device{}();
    PatternMaker make(seed);
    int different = 0;
    for (int i = 0; i < 5000; ++i) {
        const std::wstring pattern = make.pattern(2);
        const std::wstring text = make.text();
        const std::wstring expected =
            std::regex_replace(text, std::wregex(pattern), std::wstring(L"<$&|$`>"));
        if (CRegexString::regexReplace(text, pattern, L"<$&|$`>") == expected) continue;
        ADD_FAILURE() << "seed " << seed << ", pattern " << testing::PrintToString(pattern) << ", text "
                      << testing::PrintToString(text);
        if (++different == 5) break;
    }
}

// Each expectation follows from the grammar's definition of the construct.
TEST(CRegexString, ReadsTheWholeGrammar)
{
    const struct {
        const wchar_t *text, *pattern, *expected;
    } cases[] = {
        {L"x=10, y=20", L"\\d+", L"x=<10>, y=<20>"},
        {L"图层-1 图层-12", L"层-\\d\\b", L"图<层-1> 图层-12"},
        {L"a.b*c", L"\\.|\\*", L"a<.>b<*>c"},
        {L"abcabd", L"ab(?=d)", L"abc<ab>d"},
        {L"abcabd", L"ab(?!c)", L"abc<ab>d"},
        {L"aab abb", L"(a|b)\\1", L"<aa>b a<bb>"},
        {L"<<a>>", L"<(?:[^<>]|\\x3c)*>", L"<<<a>>>"},
        {L"a\tb\nc", L"[\\t\\n]|\\u0063", L"a<\t>b<\n><c>"},
        {L"a-b]c^", L"[\\]^-]", L"a<->b<]>c<^>"},
        {L"Ab1_", L"[[:upper:][:digit:]]", L"<A>b<1>_"},
        {L"Ab1_", L"[[:w:]]+|[[.-.]]", L"<Ab1_>"},
        {L"a\nb", L"^.|.$", L"<a>\n<b>"},
        {L"a\nb", L"a$|^b|[^]", L"<a><\n><b>"},
        {L"aaa", L"a{2}?", L"<aa>a"},
        {L"aaaa", L"^(a{1,2}){2}$", L"<aaaa>"},
        {L"ab", L"x*", L"<>a<>b<>"},
        {L"ab", L"|a", L"<><a><>b<>"},
        {L"ab", L"\\B", L"a<>b"},
        {L"ab", L"[]", L"ab"},
        {L"", L"^$", L"<>"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(marked(each.text, each.pattern), each.expected) << testing::PrintToString(each.pattern);
}

TEST(CRegexString, ForgetsGroupsOfEarlierIterationsAndFailedLookAheads)
{
    // (z)((a+)?(b+)?(c))* is the example of the language's definition: in the last round only c takes part.
    EXPECT_EQ(CRegexString::regexReplace(L"zaacbbbcac", L"(z)((a+)?(b+)?(c))*", L"[$1,$2,$3,$4,$5]"),
              L"[z,ac,a,,c]");
    EXPECT_EQ(CRegexString::regexReplace(L"ab", L"(?!(a)c)(?=(a))ab", L"[$1,$2]"), L"[,a]");
    EXPECT_EQ(CRegexString::regexReplace(L"ac", L"(?!(a)b)\\1ac", L"[$1]"), L"[]");
}

TEST(CRegexString, ReplacementRefersToMatchAndGroups)
{
    EXPECT_EQ(CRegexString::regexReplace(L"2024-02-29", L"(\\d+)-(\\d+)-(\\d+)", L"$3/$02/$1 $$ $9 $x $"),
              L"29/02/2024 $  $x $");
    EXPECT_EQ(CRegexString::regexReplace(L"1a2b3", L"[ab]", L"($`|$&|$')"), L"1(1|a|2b3)2(2|b|3)3");
    EXPECT_EQ(CRegexString::regexReplace1(L"a1a2", L"a(\\d)", L"$1b"), L"1ba2");
    EXPECT_EQ(CRegexString::regexReplace2(L"a1a2", L"a(\\d)", L"$1"), L"$1$1");
}

TEST(CRegexString, CollectsMatchesInAnsiCodePage)
{
    std::vector<std::string> found{"from before"};
    EXPECT_TRUE(CRegexString::regexSearch(L"轴1中轴22", L"[中轴]\\d*", found));
    // GBK: 轴 is D6 E1, 中 is D6 D0.
    EXPECT_EQ(found, (std::vector<std::string>{"\xd6\xe1"
                                               "1",
                                               "\xd6\xd0",
                                               "\xd6\xe1"
                                               "22"}));
    EXPECT_EQ(CRegexString::regexReplace(L"a1b2", L"\\d", L"-", found), L"a-b-");
    EXPECT_EQ(found, (std::vector<std::string>{"1", "2"}));
    EXPECT_FALSE(CRegexString::regexSearch(L"abc", L"x", found));
    EXPECT_TRUE(found.empty());
}

TEST(CRegexString, MalformedPatternChangesNothing)
{
    for (const wchar_t* pattern : {L"(",
                                   L")",
                                   L"a)",
                                   L"[",
                                   L"[a",
                                   L"[b-a]",
                                   L"[[:nothing:]]",
                                   L"[[:alpha",
                                   L"[[.ab.]]",
                                   L"*",
                                   L"a**",
                                   L"+a",
                                   L"a|*",
                                   L"^*",
                                   L"{1}",
                                   L"a{",
                                   L"a{1",
                                   L"a{2,1}",
                                   L"a{x}",
                                   L"a{99999999999}",
                                   L"(a){100000}",
                                   L"\\",
                                   L"\\1",
                                   L"(a\\1)",
                                   L"\\x1",
                                   L"\\u12g4",
                                   L"\\c1",
                                   L"\\q",
                                   L"(?<a>b)",
                                   L"(?"}) {
        std::vector<std::string> found{"from before"};
        EXPECT_EQ(marked(L"aab", pattern), L"aab") << testing::PrintToString(std::wstring(pattern));
        EXPECT_FALSE(CRegexString::regexSearch(L"aab", pattern, found));
        EXPECT_TRUE(found.empty());
    }
    EXPECT_EQ(marked(L"a", std::wstring(100000, L'(') + L"a" + std::wstring(100000, L')')), L"a");
}

TEST(CRegexString, LongTextsNeedNoStack)
{
    const std::wstring same(1 << 20, L'a');
    EXPECT_EQ(CRegexString::regexReplace(same, L"a+", L"b"), L"b");
    EXPECT_EQ(CRegexString::regexReplace1(same, L".*?$", L"b"), L"b");
    EXPECT_EQ(CRegexString::regexReplace(same, L"(?:a|b)*", L"c"), L"cc"); // all of it, then the empty end
    EXPECT_EQ(CRegexString::regexReplace(same, L"^(a)*$", L"$1"), L"a");
    EXPECT_EQ(CRegexString::regexReplace(same, L"a", L"bb"), std::wstring(2 << 20, L'b'));
    std::wstring lines;
    while (lines.size() < 1 << 20)
        lines += L"LINE 12.5 圆\n";
    std::vector<std::string> found;
    EXPECT_TRUE(CRegexString::regexSearch(lines, L"\\d+\\.\\d+", found));
    EXPECT_EQ(found.size(), lines.size() / 12);
    std::wstring veryLong(16 << 20, L'a'); // 64 MiB where a character has 4 bytes
    veryLong.back() = L'b';
    EXPECT_EQ(CRegexString::regexReplace(veryLong, L"a*b", L"c"), L"c");
}

TEST(CRegexString, GivesUpBeyondItsEffort)
{
    const std::wstring many(1 << 16, L'1');
    std::vector<std::string> found;
    EXPECT_FALSE(CRegexString::regexSearch(L"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaac", L"(a+)+b", found));
    EXPECT_EQ(marked(many + L"a", L"a|\\d+x"), many + L"a");          // tries every digit up to the end
    EXPECT_EQ(CRegexString::regexReplace(many, L"\\d", L"$'"), many); // 2^31 characters
}
