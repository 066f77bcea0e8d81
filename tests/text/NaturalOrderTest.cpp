#include "QmCADLib.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>
#include <vector>

namespace
{
int compare(const wchar_t* a, const wchar_t* b, int mode = 0)
{
    return CFamStuStr::CompareTowStr(a, b, mode);
}

std::vector<std::wstring> sorted(const std::vector<std::wstring>& texts)
{
    CStringArray array;
    for (const auto& text : texts)
        array.Add(text.c_str());
    CFamStuStr::SortStrArray(array);
    std::vector<std::wstring> result;
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        result.push_back(array[i].GetString());
    return result;
}

// The rules of the comparison, chunk by chunk.

int integerOf(const CString& chunk)
{
    long long value = 0;
    for (int i = 0; i < chunk.GetLength() && chunk[i] != L'.'; ++i)
        value = std::min<long long>(value * 10 + (chunk[i] - L'0'), INT_MAX);
    return static_cast<int>(value);
}

int compareCharacters(CString a, CString b, int mode)
{
    if (mode == 0) {
        a.MakeUpper();
        b.MakeUpper();
    }
    for (int i = 0; i < std::min(a.GetLength(), b.GetLength()); ++i) {
        if (a[i] == b[i]) continue;
        if ((a[i] > 127) != (b[i] > 127)) return a[i] > 127 ? -1 : 1;
        return a[i] < b[i] ? 1 : -1;
    }
    return a.GetLength() == b.GetLength() ? 0 : a.GetLength() < b.GetLength() ? 1 : -1;
}

int compareChunks(const CString& a, const CString& b, int mode)
{
    const int aIsDigit = CFamStuStr::IsDigit(a), bIsDigit = CFamStuStr::IsDigit(b);
    if (!aIsDigit && !bIsDigit) return compareCharacters(a, b, mode);
    if (!aIsDigit || !bIsDigit) return aIsDigit ? 1 : -1;
    const int first = integerOf(a), second = integerOf(b);
    return first == second ? 0 : first < second ? 1 : -1;
}

int comparePlainly(CString a, CString b, int mode)
{
    if (mode == 0 ? a.CompareNoCase(b) == 0 : a == b) return 0;
    if (a.IsEmpty() || b.IsEmpty()) return b.IsEmpty() ? 1 : -1;
    while (!a.IsEmpty() && !b.IsEmpty())
        if (const int order = compareChunks(CFamStuStr::SplitOne(a), CFamStuStr::SplitOne(b), mode))
            return order;
    return 0;
}

/// Short names of few characters, so that many share chunks: letters of several alphabets (U+212A and k are
/// equal in lower case only, U+017F and s in upper case only), digits and points.
std::vector<CString> someNames(std::size_t count, unsigned lengths = 7)
{
    static const wchar_t characters[] =
        L"aAbBkKsz-_1029..\x4e2d\x6587\xff21\xff41\x3a9\x3c9\x2126\x212a\x17f\U0001F600";
    std::mt19937 random(42);
    std::vector<CString> names(count);
    for (auto& name : names)
        for (unsigned length = random() % lengths; length > 0; --length)
            name += characters[random() % (std::size(characters) - 1)];
    return names;
}
} // namespace

TEST(CompareTowStr, ComparesNumbersByValue)
{
    EXPECT_EQ(compare(L"A10", L"A9"), -1);
    EXPECT_EQ(compare(L"A9", L"A10"), 1);
    EXPECT_EQ(compare(L"A09", L"A9"), 0);
    EXPECT_EQ(compare(L"2.5", L"2.7"), 0);                // both begin with 2
    EXPECT_EQ(compare(L"99999999999", L"2147483647"), 0); // the most that counts
    EXPECT_EQ(compare(L"99999999999", L"2147483646"), -1);
    EXPECT_EQ(compare(L"1", L"a"), 1);
    EXPECT_EQ(compare(L".", L"a"), 1);  // "." is no number; its code is less than that of a
    EXPECT_EQ(compare(L".", L"-"), -1); // and above that of -
    EXPECT_EQ(compare(L"..", L"-"), 1); // ".." is one
}

TEST(CompareTowStr, ModeOneRespectsCase)
{
    EXPECT_EQ(compare(L"a", L"A", 0), 0);
    EXPECT_EQ(compare(L"a", L"A", 1), -1);
    EXPECT_EQ(compare(L"a2", L"B1", 0), 1);
    EXPECT_EQ(compare(L"a2", L"B1", 1), -1);
}

TEST(CompareTowStr, ShorterChunkAndLatinComeFirst)
{
    EXPECT_EQ(compare(L"ab", L"abc"), 1);
    EXPECT_EQ(compare(L"z", L"\x4e00"), 1);
    EXPECT_EQ(compare(L"x", L""), 1);
    EXPECT_EQ(compare(L"", L"x"), -1);
    EXPECT_EQ(compare(L"", L""), 0);
}

TEST(CompareTowStr, IsUndecidedWhenATextRunsOut)
{
    EXPECT_EQ(compare(L"a1", L"a1b"), 0);
    EXPECT_EQ(compare(L"a1c", L"a1"), 0);
    EXPECT_EQ(compare(L"a1b", L"a1c"), 1);
}

TEST(CompareTowStr, AgreesWithTheComparisonChunkByChunk)
{
    const auto names = someNames(400);
    for (const auto& a : names)
        for (const auto& b : names)
            for (const int mode : {0, 1})
                ASSERT_EQ(CFamStuStr::CompareTowStr(a, b, mode), comparePlainly(a, b, mode))
                    << CEncoding::UTF8ToGBK(a) << " and " << CEncoding::UTF8ToGBK(b) << " mode " << mode;
}

TEST(CompareTowStr, HasNoCircles)
{
    const auto names = someNames(120);
    const auto before = [](const CString& a, const CString& b) {
        return CFamStuStr::CompareTowStr(a, b, 0) == 1;
    };
    for (const auto& a : names)
        for (const auto& b : names) {
            ASSERT_FALSE(before(a, b) && before(b, a));
            for (const auto& c : names)
                ASSERT_FALSE(before(a, b) && before(b, c) && before(c, a));
        }
}

TEST(SortStrArray, PutsTheTextThatRanOutFirstAndEmptyTextsLast)
{
    EXPECT_EQ(sorted({L"a1c", L"", L"A10", L"a1", L"\x4e2d", L"a1b", L"2", L"A9"}),
              (std::vector<std::wstring>{L"2", L"a1", L"a1b", L"a1c", L"A9", L"A10", L"\x4e2d", L""}));
}

TEST(SortStrArray, KeepsTheOrderOfTextsWithoutADifference)
{
    EXPECT_EQ(sorted({L"x2.7", L"X02", L"x2.5", L"x1"}),
              (std::vector<std::wstring>{L"x1", L"x2.7", L"X02", L"x2.5"}));
}

TEST(SortStrArray, NeverPutsATextBehindOneItComesBefore)
{
    std::vector<CString> names = someNames(400);
    // These share a beginning that is longer than the key by which most are told apart.
    for (const CString& tail : someNames(300, 60))
        names.push_back(L"KL-12F-2147483647.KL-12F-" + tail);
    CStringArray array;
    for (const CString& name : names)
        array.Add(name);
    CFamStuStr::SortStrArray(array);
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        for (INT_PTR later = i; later < array.GetSize(); ++later)
            ASSERT_NE(CFamStuStr::CompareTowStr(array[i], array[later], 0), -1);
}

TEST(SortStrArray, IsAStrictWeakOrder)
{
    // A text is in front of another when a sort brings it there from behind; being tied is transitive too.
    const auto names = someNames(60);
    const auto inFront = [](const CString& a, const CString& b) {
        CStringArray pair;
        pair.Add(b);
        pair.Add(a);
        CFamStuStr::SortStrArray(pair);
        return pair[0] == a && a != b;
    };
    std::vector<std::vector<bool>> before(names.size(), std::vector<bool>(names.size()));
    for (std::size_t i = 0; i < names.size(); ++i)
        for (std::size_t k = 0; k < names.size(); ++k)
            before[i][k] = inFront(names[i], names[k]);
    for (std::size_t i = 0; i < names.size(); ++i)
        for (std::size_t k = 0; k < names.size(); ++k)
            for (std::size_t m = 0; m < names.size(); ++m) {
                ASSERT_FALSE(before[i][k] && before[k][m] && !before[i][m]);
                const bool tied = !before[i][k] && !before[k][i] && !before[k][m] && !before[m][k];
                ASSERT_FALSE(tied && (before[i][m] || before[m][i]));
            }
}

TEST(SortStrArrayByEndDigit, ComparesDigitsOfAnyLength)
{
    CStringArray array;
    for (const wchar_t* text : {L"b10", L"none", L"a9", L"c009", L"", L"x100000000000000000000", L"1.2"})
        array.Add(text);
    const auto joined = [&] {
        CString all;
        for (INT_PTR i = 0; i < array.GetSize(); ++i)
            all += array[i] + L"|";
        return std::wstring(all);
    };
    CFamStuStr::SortStrArrByEndDigit(array, 0);
    EXPECT_EQ(joined(), L"1.2|a9|c009|b10|x100000000000000000000|none||");
    CFamStuStr::SortStrArrByEndDigit(array, 1);
    EXPECT_EQ(joined(), L"x100000000000000000000|b10|a9|c009|1.2|none||");
}

TEST(SplitOne, CutsTheLeadingRunOfOneKind)
{
    CString text = L"A-1.2.b\x4e2d"
                   L"3";
    EXPECT_STREQ(CFamStuStr::SplitOne(text), L"A-");
    EXPECT_STREQ(CFamStuStr::SplitOne(text), L"1.2.");
    EXPECT_STREQ(CFamStuStr::SplitOne(text), L"b\x4e2d");
    EXPECT_STREQ(CFamStuStr::SplitOne(text), L"3");
    EXPECT_STREQ(CFamStuStr::SplitOne(text), L"");
    EXPECT_TRUE(text.IsEmpty());
}
