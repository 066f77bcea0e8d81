#include "Headless.h"

#include <afx.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <thread>
#include <unordered_set>
#include <vector>

namespace
{
/// The result that an operation throws; 0 when it throws nothing.
template <class Operation>
HRESULT thrownBy(Operation operation)
{
    try {
        operation();
        return 0;
    } catch (const CAtlException& failure) {
        return failure;
    }
}
} // namespace

TEST(CString, IsOnePointerWide)
{
    EXPECT_EQ(sizeof(CString), sizeof(void*));
}

TEST(CString, CopySharesCharactersUntilOneChanges)
{
    const CString original(L"drawing");
    CString copy(original);
    EXPECT_EQ(copy.GetString(), original.GetString());
    copy.SetAt(0, L'D');
    EXPECT_STREQ(original, L"drawing");
    EXPECT_STREQ(copy, L"Drawing");
}

TEST(CString, AppendingToASharedTextLeavesTheCopyAlone)
{
    CString grown(L"ab");
    grown.Preallocate(100);
    const CString copy(grown);
    grown += L'c';
    grown += L"de";
    EXPECT_STREQ(copy, L"ab");
    EXPECT_STREQ(grown, L"abcde");
}

TEST(CString, NullPointersAreEmptyTexts)
{
    const wchar_t* none = nullptr;
    const char* noBytes = nullptr;
    CString text(none);
    text = noBytes;
    text += none;
    text.Insert(0, none);
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_TRUE(text == none);
    EXPECT_EQ(text.Replace(none, L"x"), 0);
    EXPECT_GT(CString(L"a").Compare(none), 0);
    EXPECT_EQ(CString(L"a").Trim(none), L"a");
}

TEST(CString, NarrowTextIsInTheAnsiCodePage)
{
    const CString wide("\xd6\xd0\xce\xc4");
    EXPECT_STREQ(wide, L"中文");
    EXPECT_STREQ(CStringA(wide), "\xd6\xd0\xce\xc4");
    EXPECT_EQ(CStringA(L'中', 2), "\xd6\xd0\xd6\xd0");
    EXPECT_TRUE(wide == "\xd6\xd0\xce\xc4");
    EXPECT_EQ(wide + "\xd6\xd0", L"中文中");
    EXPECT_EQ(CStringA("x") + wide, "x\xd6\xd0\xce\xc4");
}

TEST(CString, SumsTakeEveryMixOfOperands)
{
    const CString a(L"a"), b(L"b");
    EXPECT_EQ(a + b, L"ab");
    EXPECT_EQ(L"x" + a + L"y", L"xay");
    EXPECT_EQ(L'x' + a + L'y' + 'z', L"xayz");
    EXPECT_EQ('x' + a + CStringA("n"), L"xan");
    EXPECT_STREQ(a, L"a");
}

TEST(CString, TextInsideItselfMayBePutIntoIt)
{
    CString text(L"abcdef");
    text = text.GetString() + 2;
    EXPECT_STREQ(text, L"cdef");
    text += text;
    EXPECT_STREQ(text, L"cdefcdef");
    text.FreeExtra();
    text.Append(text.GetString() + 1, 3);
    EXPECT_STREQ(text, L"cdefcdefdef");
    text.Insert(2, text.GetString() + 8);
    EXPECT_STREQ(text, L"cddefefcdefdef");
    EXPECT_EQ(text.Replace(text.GetString() + 8, text), 1);
    EXPECT_STREQ(text, L"cddefefccddefefcdefdef");
    EXPECT_EQ(text.Trim(text), L"");
}

TEST(CString, LargeGrowthKeepsTheText)
{
    CString text;
    for (int i = 0; i < 100000; ++i)
        text += static_cast<wchar_t>(L'a' + i % 26);
    EXPECT_EQ(text.GetLength(), 100000);
    int wrong = 0;
    for (int i = 0; i < 100000; ++i)
        wrong += text[i] != static_cast<wchar_t>(L'a' + i % 26);
    EXPECT_EQ(wrong, 0);
}

TEST(CString, PartsStopAtTheEndsOfTheText)
{
    const CString text(L"abcdef");
    EXPECT_EQ(text.Left(2), L"ab");
    EXPECT_EQ(text.Left(-1), L"");
    EXPECT_EQ(text.Left(99), text);
    EXPECT_EQ(text.Right(2), L"ef");
    EXPECT_EQ(text.Right(-3), L"");
    EXPECT_EQ(text.Right(99), text);
    EXPECT_EQ(text.Mid(2), L"cdef");
    EXPECT_EQ(text.Mid(-5, 2), L"ab");
    EXPECT_EQ(text.Mid(4, 99), L"ef");
    EXPECT_EQ(text.Mid(6), L"");
    EXPECT_EQ(text.Mid(99, 1), L"");
    EXPECT_EQ(text.Mid(1, INT_MAX), L"bcdef");
    EXPECT_EQ(text.SpanIncluding(L"cab"), L"abc");
    EXPECT_EQ(text.SpanExcluding(L"xed"), L"abc");
}

TEST(CString, EditsClipTheirPositions)
{
    CString text(L"bd");
    EXPECT_EQ(text.Insert(-3, L'a'), 3);
    EXPECT_EQ(text.Insert(2, L"c"), 4);
    EXPECT_EQ(text.Insert(99, L"ef"), 6);
    EXPECT_STREQ(text, L"abcdef");
    EXPECT_EQ(text.Delete(1, 2), 4);
    EXPECT_EQ(text.Delete(99), 4);
    EXPECT_EQ(text.Delete(3, 99), 3);
    EXPECT_EQ(text.Delete(-2, -2), 3);
    EXPECT_STREQ(text, L"ade");
}

TEST(CString, ReplaceAndRemoveCountWhatTheyChange)
{
    CString text(L"aXbXX");
    EXPECT_EQ(text.Replace(L"X", L"--"), 3);
    EXPECT_STREQ(text, L"a--b----");
    EXPECT_EQ(text.Replace(L"---", L"-"), 1);
    EXPECT_STREQ(text, L"a--b--");
    EXPECT_EQ(text.Replace(L"--", nullptr), 2);
    EXPECT_EQ(text.Replace(L"", L"x"), 0);
    EXPECT_EQ(text.Replace(L'a', L'b'), 1);
    EXPECT_EQ(text.Replace(L'b', L'b'), 0);
    EXPECT_EQ(text.Remove(L'b'), 2);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, SearchesReportMinusOneOutsideTheText)
{
    const CString text(L"abcabc");
    EXPECT_EQ(text.Find(L"bc"), 1);
    EXPECT_EQ(text.Find(L"bc", 2), 4);
    EXPECT_EQ(text.Find(L'c', 3), 5);
    EXPECT_EQ(text.Find(L'c', 6), -1);
    EXPECT_EQ(text.Find(L"a", -1), -1);
    EXPECT_EQ(text.Find(L"", 6), 6);
    EXPECT_EQ(text.Find(L"", 7), -1);
    EXPECT_EQ(text.ReverseFind(L'a'), 3);
    EXPECT_EQ(text.ReverseFind(L'x'), -1);
    EXPECT_EQ(text.FindOneOf(L"xcb"), 1);
    EXPECT_EQ(text.FindOneOf(L"xyz"), -1);
}

TEST(CString, TrimRemovesWideBlanksToo)
{
    EXPECT_EQ(CString(L"\t \x3000图 层\xa0\r\n").Trim(), L"图 层");
    EXPECT_EQ(CString(L"--a-").TrimLeft(L'-'), L"a-");
    EXPECT_EQ(CString(L"-a--").TrimRight(L'-'), L"-a");
    EXPECT_EQ(CString(L"{[a]}").Trim(L"[]{}"), L"a");
    EXPECT_EQ(CString(L"   ").Trim(), L"");
}

TEST(CString, TokenizeSkipsEmptyPieces)
{
    const CString text(L",,one, two,");
    int at = 0;
    EXPECT_EQ(text.Tokenize(L", ", at), L"one");
    EXPECT_EQ(at, 6);
    EXPECT_EQ(text.Tokenize(L", ", at), L"two");
    EXPECT_EQ(text.Tokenize(L", ", at), L"");
    EXPECT_EQ(at, -1);
    EXPECT_EQ(thrownBy([&] { text.Tokenize(L",", at); }), E_INVALIDARG);
    at = 5;
    EXPECT_EQ(text.Tokenize(nullptr, at), L", two,");
    EXPECT_EQ(text.Tokenize(nullptr, at), L"");
    EXPECT_EQ(at, -1);
}

TEST(CString, ComparisonsOrderAgainstTextsOnBothSides)
{
    const CString a(L"a"), b(L"b");
    EXPECT_TRUE(a < b && a <= L"a" && L"b" > a && b >= a && a != b && L"a" == a && b != L'a' && a == L'a');
    EXPECT_EQ(CString(L"墙Layer").CompareNoCase(L"墙LAYER"), 0);
    EXPECT_LT(CString(L"a").CompareNoCase(L"B"), 0);
    EXPECT_LT(CString(L"B").Compare(L"a"), 0);
    EXPECT_EQ(CString(L"straße").MakeUpper(), L"STRAßE");
    EXPECT_EQ(CString(L"ÄΩЖ").MakeLower(), L"äωж");
    EXPECT_EQ(CString(L"abc").MakeReverse(), L"cba");
}

TEST(CString, WorksAsKeyAndAsRange)
{
    const std::set<CString> ordered{L"b", L"a", L"b"};
    EXPECT_EQ(*ordered.begin(), L"a");
    EXPECT_EQ(ordered.size(), 2u);
    const std::unordered_set<CString> hashed{L"x", L"x", L"y"};
    EXPECT_EQ(hashed.count(CString(L"y")), 1u);
    EXPECT_EQ(hashed.size(), 2u);
    std::wstring visited;
    for (const wchar_t c : CString(L"abc"))
        visited.push_back(c);
    EXPECT_EQ(visited, L"abc");
}

TEST(CString, BufferIsMeasuredWhenItIsReleased)
{
    CString text(L"abc");
    const CString copy(text);
    wchar_t* buffer = text.GetBuffer(10);
    EXPECT_STREQ(buffer, L"abc");
    std::wcscpy(buffer, L"longer");
    text.ReleaseBuffer();
    EXPECT_EQ(text.GetLength(), 6);
    EXPECT_STREQ(copy, L"abc");
    text.GetBuffer();
    text.ReleaseBuffer(2);
    EXPECT_STREQ(text, L"lo");
    std::fill_n(text.GetBufferSetLength(4), 4, L'x');
    EXPECT_STREQ(text, L"xxxx");
    wchar_t* full = text.GetBuffer(20);
    std::fill_n(full, text.GetAllocLength() + 1, L'y');
    text.ReleaseBuffer();
    EXPECT_EQ(text.GetLength(), text.GetAllocLength()) << "a buffer without a terminator ends with its room";
}

TEST(CString, LockedBufferIsNotShared)
{
    CString text(L"abc");
    const wchar_t* locked = text.LockBuffer();
    const CString copy(text);
    EXPECT_NE(copy.GetString(), locked);
    text = CString(L"ab");
    EXPECT_EQ(text.GetString(), locked);
    text.Empty();
    EXPECT_EQ(text.GetString(), locked);
    text.UnlockBuffer();
    text += L"z";
    EXPECT_EQ(CString(text).GetString(), text.GetString());
    EXPECT_STREQ(copy, L"abc");
}

TEST(CString, ArgumentsOutOfRangeChangeNothing)
{
    CString text(L"abc");
    EXPECT_EQ(thrownBy([&] { text.SetAt(3, L'x'); }), E_INVALIDARG);
    EXPECT_EQ(thrownBy([&] { text.GetAt(4); }), E_INVALIDARG);
    EXPECT_EQ(thrownBy([&] { text.GetBuffer(-1); }), E_INVALIDARG);
    EXPECT_EQ(thrownBy([&] { text.Truncate(4); }), E_INVALIDARG);
    EXPECT_EQ(thrownBy([&] { text.ReleaseBuffer(text.GetAllocLength() + 1); }), E_INVALIDARG);
    EXPECT_EQ(thrownBy([&] { text.Append(L"x", -1); }), E_INVALIDARG);
    EXPECT_EQ(thrownBy([&] { text.Append(nullptr, 1); }), E_INVALIDARG);
    EXPECT_EQ(thrownBy([&] { CString(L"x", -1); }), E_INVALIDARG);
    EXPECT_EQ(thrownBy([&] { text.GetBuffer(INT_MAX); }), E_OUTOFMEMORY);
    EXPECT_STREQ(text, L"abc");
    EXPECT_EQ(text[3], L'\0');
}

TEST(CString, ZerosInsideAreKeptByEdits)
{
    CString text(L"a\0b", 3);
    text += CString(L"\0c", 2);
    EXPECT_EQ(text.GetLength(), 5);
    EXPECT_EQ(text.Find(L'c'), 4);
    EXPECT_EQ(text.Remove(L'\0'), 2);
    EXPECT_STREQ(text, L"abc");
}

TEST(CString, FormatsIntoItselfAndAppends)
{
    CString text(L"墙");
    text.Format(L"<%s>%d", text, 7);
    text.AppendFormat(L" %s|%S", CStringA("n"), CString(L"w"));
    EXPECT_STREQ(text, L"<墙>7 n|w");
    text.FormatMessage(L"%2!03d! %1%n%%", L"x", 5);
    EXPECT_STREQ(text, L"005 x\r\n%");
    CStringA narrow;
    narrow.Format("%s/%S/%.2f", CString(L"中"), L"文", 1.005);
    EXPECT_STREQ(narrow, "\xd6\xd0/\xce\xc4/1.00");
}

TEST(CString, ThreadsCountTheirCopies)
{
    CString text(L"shared by all of them");
    const wchar_t* before = text.GetString();
    const auto use = [&text] {
        for (int i = 0; i < 20000; ++i) {
            CString copy(text);
            CString other(copy);
            other += L'!';
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(use);
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(text.GetBuffer(), before) << "somebody still counts";
    EXPECT_STREQ(text, L"shared by all of them");
}

TEST(CString, BecomesAStringOfAutomation)
{
    BSTR string = CStringA("\xd6\xd0").AllocSysString();
    EXPECT_STREQ(string, L"中");
    CString(L"longer text").SetSysString(&string);
    EXPECT_STREQ(string, L"longer text");
    EXPECT_EQ(SysStringLen(string), 11u);
    SysFreeString(string);
}

// 81 5C is one character of code page 936; its second byte is a backslash's.
TEST(CStringA, SecondByteOfACharacterIsNoCharacter)
{
    CStringA text("\x81\x5c"
                  "a\\b");
    EXPECT_EQ(text.Find('\\'), 3);
    EXPECT_EQ(text.Find("\\"), 3);
    EXPECT_EQ(CStringA("\x81\x5c").ReverseFind('\\'), -1);
    EXPECT_EQ(text.FindOneOf("\\"), 3);
    EXPECT_EQ(text.Replace('\\', '/'), 1);
    EXPECT_EQ(CStringA("\x81\x5c").TrimRight('\\'), "\x81\x5c");
    EXPECT_EQ(CStringA("\x81\x5c").Remove('\\'), 0);
    EXPECT_EQ(CStringA("\x81\x61 a").MakeUpper(), "\x81\x61 A");
    EXPECT_EQ(text.MakeReverse(), "b/a\x81\x5c");
    EXPECT_EQ(CStringA("\x81\x61").CompareNoCase("\x81\x41"), 1);
    EXPECT_EQ(CStringA("x\x81").Trim("\x81"), "x") << "a lead byte at the end is a character";
}

TEST(CStringA, TextOf64MiBIsSearchedAndChanged)
{
    constexpr int size = 64 << 20;
    CStringA text('a', size);
    text.SetAt(size - 1, 'b');
    EXPECT_EQ(text.Find("ab"), size - 2);
    EXPECT_EQ(text.Replace("b", "bc"), 1);
    EXPECT_EQ(text.MakeUpper().Right(3), "ABC");
    EXPECT_EQ(CString(text).GetLength(), size + 1);
    EXPECT_EQ(text.Remove('A'), size - 1);
    EXPECT_STREQ(text, "BC");
}

TEST(AtlConv, ConvertsForAStatement)
{
    EXPECT_STREQ(static_cast<const wchar_t*>(CA2W("\xd6\xd0")), L"中");
    EXPECT_STREQ(CW2A(L"中", CP_UTF8), "\xe4\xb8\xad");
    EXPECT_STREQ(CW2A(CString(L'x', 1000)), CStringA('x', 1000));
    EXPECT_EQ(static_cast<wchar_t*>(CA2T(nullptr)), nullptr);
    EXPECT_EQ(thrownBy([] { CA2W("a", 12345); }), E_INVALIDARG);
}

TEST(AtlConv, MacrosKeepTheirTextsUntilTheFunctionEnds)
{
    USES_CONVERSION;
    const wchar_t* first = A2W("first");
    for (int i = 0; i < 100; ++i)
        A2W("another");
    EXPECT_STREQ(first, L"first");
    EXPECT_STREQ(T2A(L"中"), "\xd6\xd0");
}

TEST(CString, CollateFollowsTheLanguageAndCompareTheCodes)
{
    EXPECT_LT(CString(L"a").Collate(L"B"), 0);
    EXPECT_GT(CString(L"a").Compare(L"B"), 0);
    EXPECT_EQ(CString(L"Ab").CollateNoCase(L"aB"), 0);
    EXPECT_LT(CStringA("a").Collate("B"), 0);
}

TEST(CString, BrokenLeadByteDoesNotHideWhatFollows)
{
    headless::setAnsiCodePage(65001);
    EXPECT_EQ(CStringA("\xE4"
                       "bc")
                  .Find('b'),
              1);
    headless::setAnsiCodePage(936);
}
