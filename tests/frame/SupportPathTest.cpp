#include "QmCADLib.h"

#include "acedads.h"
#include "EditorFixture.h"

namespace
{
/// The support path of the profile, put back at the end.
class SupportPath : public headless::EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        m_before = setting();
        set(L"");
    }
    void TearDown() override
    {
        set(m_before);
        EditorTest::TearDown();
    }
    static CString setting()
    {
        wchar_t path[8192] = L"";
        acedGetEnv(L"ACAD", path);
        return path;
    }
    static void set(const CString& path) { acedSetEnv(L"ACAD", path); }
    static CString base()
    {
        wchar_t path[MAX_PATH];
        GetModuleFileNameW(GetModuleHandleW(L"QmCADLib.arx"), path, MAX_PATH);
        CString folder(path);
        for (int i = 0; i < 2; ++i)
            folder = folder.Left(folder.ReverseFind(L'\\'));
        return folder + L"\\";
    }

private:
    CString m_before;
};

TEST_F(SupportPath, OwnFoldersAreAddedOnceInTheirOrder)
{
    set(L"C:\\fonts");
    CFamStuGlobe::AddSupportPath();
    CString expected = L"C:\\fonts";
    for (const wchar_t* folder :
         {L"", L"\\字库", L"\\图库\\填充", L"\\图库\\填充\\个人填充", L"\\图库\\填充\\立面填充",
          L"\\图库\\填充\\平面填充", L"\\图库\\填充\\剖面填充", L"\\系统\\menures", L"\\系统\\用户文件夹"})
        expected += L";" + base() + L"common\\sys" + folder;
    EXPECT_EQ(setting(), expected + L";");
    CFamStuGlobe::AddSupportPath();
    EXPECT_EQ(setting(), expected + L";");
}

// "common\sys" occurs in every longer path, so it is taken as there.
TEST_F(SupportPath, OnlyTheMissingAreAdded)
{
    const CString there = base() + L"common\\sys\\系统\\menures;";
    set(there);
    CFamStuGlobe::AddSupportPath();
    EXPECT_EQ(setting().Find(there + base() + L"common\\sys\\字库;"), 0);
    EXPECT_EQ(setting().Find(L";;"), -1);
    EXPECT_EQ(setting().Find(L"menures", there.GetLength()), -1);
}

TEST_F(SupportPath, SettingThatIsTooLongStays)
{
    const CString tooLong = CString(L'x', 2048);
    set(tooLong);
    CFamStuGlobe::AddSupportPath();
    EXPECT_EQ(setting(), tooLong);
}

TEST_F(SupportPath, FoldersOfACallerAreAddedWithoutRegardToCase)
{
    set(L"C:\\Fonts\\;D:\\hatches;");
    CStringArray folders;
    for (const wchar_t* folder : {L"c:\\fonts", L"E:\\new", L"", L"e:\\NEW\\"})
        folders.Add(folder);
    EXPECT_EQ(CFamStuGlobe::AddSupportPath(folders), 1);
    EXPECT_EQ(setting(), L"C:\\Fonts\\;D:\\hatches;E:\\new");
    EXPECT_EQ(CFamStuGlobe::AddSupportPath(folders), 1);
    EXPECT_EQ(setting(), L"C:\\Fonts\\;D:\\hatches;E:\\new");
}

TEST_F(SupportPath, FoldersAreReadWithoutTheEmptyOnes)
{
    set(L"C:\\a;;D:\\b;");
    CStringArray folders;
    folders.Add(L"before");
    EXPECT_EQ(CFamStuGlobe::GetSupportPath(folders), 1);
    ASSERT_EQ(folders.GetSize(), 2);
    EXPECT_EQ(folders[0] + L" " + folders[1], L"C:\\a D:\\b");
}
} // namespace
