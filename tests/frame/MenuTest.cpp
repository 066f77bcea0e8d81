#include "QmCADLib.h"

#include "acedads.h"
#include "EditorFixture.h"

#include <CFileShell.h>

namespace
{
/// The folder of the application's menus, with files that the test puts there.
class Menus : public headless::EditorTest
{
protected:
    ~Menus() override
    {
        for (const CString& path : m_files)
            DeleteFileW(path);
        for (CString folder = m_folder; folder.GetLength() > m_base.GetLength();
             folder = folder.Left(folder.ReverseFind(L'\\')))
            RemoveDirectoryW(folder); // stays when others have files there
    }
    void SetUp() override
    {
        EditorTest::SetUp();
        wchar_t path[MAX_PATH];
        GetModuleFileNameW(GetModuleHandleW(L"QmCADLib.arx"), path, MAX_PATH);
        m_base = path;
        for (int i = 0; i < 2; ++i)
            m_base = m_base.Left(m_base.ReverseFind(L'\\'));
        m_folder = m_base + L"\\common\\sys\\系统\\menures";
        ASSERT_EQ(CFileShell::CreateDir(m_folder), 1);
    }
    void put(const wchar_t* name)
    {
        CFile file;
        m_files.push_back(m_folder + L"\\" + name);
        EXPECT_TRUE(file.Open(m_files.back(), CFile::modeCreate | CFile::modeWrite));
    }

    CString m_base, m_folder;
    std::vector<CString> m_files;
};

TEST_F(Menus, EveryMenuFileIsUnloadedAsAGroupWithoutDialogs)
{
    for (const wchar_t* name : {L"QmDraw.CUIX", L"QmEdit.mnu", L"readme.txt"})
        put(name);
    takeOutput();
    CFamStuGlobe::deletePorfiles();
    const std::wstring output = takeOutput();
    EXPECT_NE(output.find(L"\"QmDraw\""), std::wstring::npos);
    EXPECT_NE(output.find(L"\"QmEdit\""), std::wstring::npos);
    EXPECT_EQ(output.find(L"readme"), std::wstring::npos);
    EXPECT_EQ(takeCommands(), (std::vector<std::wstring>{L"MENUUNLOAD", L"MENUUNLOAD"}));
    int dialogs = 0;
    CFamStuSysVar::Get(L"FILEDIA", dialogs);
    EXPECT_EQ(dialogs, 1);
}
} // namespace
