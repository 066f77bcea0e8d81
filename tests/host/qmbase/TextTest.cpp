#include <QmBaseLib.h>

#include <gtest/gtest.h>

namespace
{
CGTStringW byValue(CGTStringW text)
{
    return text;
}

CGTStringW joined(const wchar_t* text, const wchar_t* separator)
{
    CStringArray pieces;
    CStringShell::Split(text, separator, pieces);
    return CStringShell::Join(pieces, L"|");
}
} // namespace

TEST(GtString, IsMadeFromAndBecomesEveryOtherText)
{
    EXPECT_EQ(byValue(L"wide"), L"wide");
    EXPECT_EQ(byValue("narrow"), L"narrow");
    const CString plain = byValue(CString(L"plain"));
    EXPECT_EQ(plain, L"plain");
    CGTStringW text = L"a" + byValue(L"b") + L"c";
    text.Format(L"%s-%d", text.GetString(), 5);
    EXPECT_EQ(text.Left(3).MakeUpper(), L"ABC");
    EXPECT_EQ(std::wstring(static_cast<const wchar_t*>(text)), L"abc-5");
    EXPECT_TRUE(text != L"ABC-5" && text.CompareNoCase(L"ABC-5") == 0);
}

TEST(GtString, IsElementKeyAndArchived)
{
    CArray<CGTStringW> array, back;
    array.Add(L"one");
    array.Add(L"\u4e2d");
    CMap<CGTStringW, const CGTStringW&, int, int> map;
    map[L"one"] = 1;
    EXPECT_NE(map.PLookup(array[0]), nullptr);
    CMemFile file;
    CArchive store(&file, CArchive::store);
    array.Serialize(store);
    store.Close();
    file.SeekToBegin();
    CArchive load(&file, CArchive::load);
    back.Serialize(load);
    ASSERT_EQ(back.GetSize(), 2);
    EXPECT_EQ(back[1], L"\u4e2d");
}

TEST(StringShell, SplitKeepsEmptyPieces)
{
    EXPECT_EQ(joined(L"a;;b;", L";"), L"a||b|");
    EXPECT_EQ(joined(L";", L";"), L"|");
    EXPECT_EQ(joined(L"", L";"), L"");
    EXPECT_EQ(joined(L"a--b-c", L"--"), L"a|b-c");
    EXPECT_EQ(joined(L"a;b", L""), L"a;b");
}

TEST(StringShell, SplitGoesIntoTheArrayThatHoldsTheText)
{
    CStringArray pieces;
    pieces.Add(L"a;b");
    EXPECT_EQ(CStringShell::Split(pieces[0], L";", pieces), 2);
    EXPECT_EQ(pieces[1], L"b");
}

TEST(StringShell, WidthsConvertThroughTheCodePage)
{
    EXPECT_EQ(CStringShell::ToWide("\xd6\xd0", 936), L"\u4e2d");
    EXPECT_EQ(CStringShell::ToWide("\xe4\xb8\xad", CP_UTF8), L"\u4e2d");
    EXPECT_EQ(CStringShell::ToWide(nullptr), L"");
    EXPECT_EQ(CStringShell::ToNarrow(L"\u4e2dx", CP_UTF8), "\xe4\xb8\xadx");
    EXPECT_EQ(CStringShell::ToNarrow(L"", 936), "");
}

TEST(StringShell, OnlyWholeNumbersInRangeAreNumbers)
{
    int value = 99;
    double real = 0.25;
    EXPECT_EQ(CStringShell::ToInt(L" -12 ", value), 1);
    EXPECT_EQ(value, -12);
    for (const wchar_t* text : {L"", L"12x", L"2147483648", L"+-1", L"\uff11", L"1 2"})
        EXPECT_EQ(CStringShell::ToInt(text, value), 0) << text;
    EXPECT_EQ(value, -12);
    EXPECT_EQ(CStringShell::ToDouble(L"+1.5e3", real), 1);
    EXPECT_EQ(real, 1500.0);
    EXPECT_EQ(CStringShell::ToDouble(L"1,5", real), 0);
    EXPECT_EQ(CStringShell::ToDouble(L"nan", real), 0);
    EXPECT_EQ(CStringShell::ToDouble(L"inf", real), 0);
    EXPECT_EQ(CStringShell::FromDouble(2.0 / 3, 2), L"0.67");
    EXPECT_EQ(CStringShell::FromDouble(0.1), L"0.1");
    EXPECT_EQ(CStringShell::FromDouble(1e300, 60).GetLength(), 301 + 1 + 60);
    EXPECT_EQ(CStringShell::FromInt(-3), L"-3");
}

TEST(XmlUtil, EscapedTextComesBack)
{
    const CGTStringW text = L"<a b=\"1\" c='2'>&amp;\u4e2d</a>\n";
    const CGTStringW escaped = CXMLUtil::Escape(text);
    EXPECT_EQ(escaped, L"&lt;a b=&quot;1&quot; c=&apos;2&apos;&gt;&amp;amp;\u4e2d&lt;/a&gt;\n");
    EXPECT_EQ(CXMLUtil::Unescape(escaped), text);
    EXPECT_EQ(CXMLUtil::Escape(L"a\x01\x1f"
                               L"b"),
              L"ab");
}

TEST(XmlUtil, WhatIsNoReferenceStays)
{
    EXPECT_EQ(CXMLUtil::Unescape(L"&#65;&#x4E2d;&#x1f600;"), L"A\u4e2d\U0001f600");
    for (const wchar_t* text : {L"&", L"a & b;", L"&nbsp;", L"&#;", L"&#x;", L"&#xD800;", L"&#1114112;",
                                L"&#0;", L"&amp", L"&#99999999999;"})
        EXPECT_EQ(CXMLUtil::Unescape(text), text);
}
