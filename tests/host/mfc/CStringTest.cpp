#include <afx.h>

#include <gtest/gtest.h>

TEST(CString, IsOnePointerWide) { EXPECT_EQ(sizeof(CString), sizeof(void*)); }

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
