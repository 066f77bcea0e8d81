#include <QmBaseLib.h>

#include <gtest/gtest.h>

TEST(RegKey, ValuesComeBackByNameAndType)
{
    CGTRegKey key(HKEY_CURRENT_USER, L"Software\\QmBaseTest\\Deep");
    ASSERT_TRUE(key.IsOpen());
    EXPECT_EQ(key.WriteString(L"name", L"\u4e2d\u6587"), 1);
    EXPECT_EQ(key.WriteDword(L"count", 0xfffffff0), 1);
    CGTStringW text = L"unchanged";
    DWORD number = 5;
    EXPECT_EQ(key.ReadString(L"count", text), 0);
    EXPECT_EQ(key.ReadDword(L"name", number), 0);
    EXPECT_EQ(key.ReadDword(L"none", number), 0);
    EXPECT_EQ(key.GetError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(text, L"unchanged");
    EXPECT_EQ(number, 5u);
    EXPECT_EQ(key.ReadString(L"NAME", text), 1);
    EXPECT_EQ(text, L"\u4e2d\u6587");
    EXPECT_EQ(key.ReadDword(L"count", number), 1);
    EXPECT_EQ(number, 0xfffffff0);
    EXPECT_EQ(key.DeleteValue(L"count"), 1);
    EXPECT_EQ(key.DeleteValue(L"count"), 0);
    CStringArray names;
    EXPECT_EQ(key.GetValues(names), 1);
    ASSERT_EQ(names.GetSize(), 1);
    EXPECT_EQ(names[0], L"name");
}

TEST(RegKey, DeletedKeyTakesWhatIsBelowWithIt)
{
    CGTRegKey(HKEY_CURRENT_USER, L"Software\\QmBaseTest\\One\\Two").WriteDword(L"x", 1);
    CGTRegKey software;
    ASSERT_EQ(software.Open(HKEY_CURRENT_USER, L"Software\\QmBaseTest"), 1);
    CStringArray names;
    EXPECT_EQ(software.DeleteKey(L""), 0);
    EXPECT_EQ(software.GetKeys(names), 1);
    EXPECT_GE(names.GetSize(), 1);
    EXPECT_EQ(software.DeleteKey(L"One"), 1);
    CGTRegKey gone;
    EXPECT_EQ(gone.Open(HKEY_CURRENT_USER, L"Software\\QmBaseTest\\One\\Two"), 0);
    EXPECT_FALSE(gone.IsOpen());
    EXPECT_EQ(gone.WriteDword(L"x", 1), 0);
}
