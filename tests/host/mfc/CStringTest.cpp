#include <afx.h>

#include <gtest/gtest.h>

TEST(CString, IsOnePointerWide)
{
    EXPECT_EQ(sizeof(CString), sizeof(void*));
}

TEST(CString, CopySharesCharactersUntilOneChanges)
{
    CString a(L"drawing");
    CString b(a);
    EXPECT_EQ(a.GetString(), b.GetString());
    b.SetAt(0, L'D');
    EXPECT_STREQ(a, L"drawing");
    EXPECT_STREQ(b, L"Drawing");
}

TEST(CString, NarrowTextIsInTheAnsiCodePage)
{
    const CString wide("\xd6\xd0\xce\xc4");
    EXPECT_STREQ(wide, L"中文");
    EXPECT_STREQ(CStringA(wide), "\xd6\xd0\xce\xc4");
}

TEST(CString, FormatTakesStringsOfEitherWidthAsTheyAre)
{
    const CString layer(L"墙");
    const CStringA path("a.dwg");
    CString text;
    text.Format(L"%s|%S|%5.2f|%ld|%I64d|%c", layer, path, 3.14159, 7L, 1LL << 40, L'x');
    EXPECT_STREQ(text, L"墙|a.dwg| 3.14|7|1099511627776|x");
    text.Format(L"<%s>", text);
    EXPECT_EQ(text.Left(3), L"<墙|");
}
