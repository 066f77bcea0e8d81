#include "../win32/TempFolder.h"

#include <QmBaseLib.h>

class BaseFiles : public TempFolder
{
};

TEST_F(BaseFiles, FilesAndFoldersAreToldApart)
{
    put("a.txt", "x");
    const CGTStringW file = path(L"a.txt").c_str(), folder = path(L"one\\two\\three\\").c_str();
    EXPECT_EQ(CFileShell::IsFileExist(file), 1);
    EXPECT_EQ(CFileShell::IsDirExist(file), 0);
    EXPECT_EQ(CFileShell::IsFileExist(L""), 0);
    EXPECT_EQ(CFileShell::CreateDir(folder), 1);
    EXPECT_EQ(CFileShell::CreateDir(folder), 1);
    EXPECT_EQ(CFileShell::IsDirExist(folder), 1);
    EXPECT_EQ(CFileShell::IsFileExist(folder), 0);
    EXPECT_EQ(CFileShell::CreateDir(file + L"\\below"), 0);
    EXPECT_EQ(CFileShell::CopyFile(file, folder + L"b.txt"), 1);
    EXPECT_EQ(CFileShell::CopyFile(file, folder + L"b.txt", false), 0);
    EXPECT_EQ(CFileShell::DelFile(file), 1);
    EXPECT_EQ(CFileShell::DelFile(file), 0);
    EXPECT_EQ(get("one/two/three/b.txt"), "x");
}

TEST(FileShell, PathFallsIntoItsParts)
{
    EXPECT_EQ(CFileShell::GetFileName(L"Z:\\std/line.v2.lin"), L"line.v2.lin");
    EXPECT_EQ(CFileShell::GetFileTitle(L"Z:\\std\\line.v2.lin"), L"line.v2");
    EXPECT_EQ(CFileShell::GetFileExt(L"Z:\\std.d\\line"), L"");
    EXPECT_EQ(CFileShell::GetFileTitle(L".profile"), L".profile");
    EXPECT_EQ(CFileShell::GetFilePath(L"Z:\\std\\line.lin"), L"Z:\\std\\");
    EXPECT_EQ(CFileShell::GetFilePath(L"line.lin"), L"");
}

TEST_F(BaseFiles, IniValuesComeBack)
{
    CIniFile ini(path(L"record.ini").c_str());
    EXPECT_EQ(ini.ReadString(L"s", L"k", L"fallback"), L"fallback");
    const CGTStringW longText(L'x', 5000);
    EXPECT_EQ(ini.WriteString(L"s", L"long", longText), 1);
    EXPECT_EQ(ini.WriteInt(L"s", L"int", -7), 1);
    EXPECT_EQ(ini.WriteDouble(L"t", L"real", 0.1), 1);
    EXPECT_EQ(ini.WriteString(L"t", L"word", L"abc"), 1);
    EXPECT_EQ(ini.ReadString(L"S", L"LONG"), longText);
    EXPECT_EQ(ini.ReadInt(L"s", L"int"), -7);
    EXPECT_EQ(ini.ReadDouble(L"t", L"real"), 0.1);
    EXPECT_EQ(ini.ReadDouble(L"t", L"word", 2.5), 2.5);
    CStringArray names;
    EXPECT_EQ(ini.GetSections(names), 2);
    EXPECT_EQ(names[1], L"t");
    EXPECT_EQ(ini.GetKeys(L"t", names), 2);
    EXPECT_EQ(names[0], L"real");
    EXPECT_EQ(ini.DeleteKey(L"t", L"real"), 1);
    EXPECT_EQ(ini.DeleteSection(L"s"), 1);
    EXPECT_EQ(ini.GetSections(names), 1);
    EXPECT_EQ(CIniFile(path(L"none\\x.ini").c_str()).WriteInt(L"s", L"k", 1), 0);
}

TEST(AppSoft, ProgramIsFoundByItsOwnPath)
{
    EXPECT_EQ(CAppSoft::GetName(), L"test_host_qmbase");
    EXPECT_EQ(CFileShell::IsFileExist(CAppSoft::GetPath()), 1);
    EXPECT_EQ(CAppSoft::GetInstallDir() + CAppSoft::GetName(), CAppSoft::GetPath());
}

TEST_F(BaseFiles, VersionIsTheOneOfTheFileOrEmpty)
{
    put("plain.txt", "no version");
    EXPECT_EQ(CAppSoft::GetVersion(CAppSoft::GetInstallDir() + L"QmCADLib.arx"), TEST_LIBRARY_VERSION);
    EXPECT_EQ(CAppSoft::GetVersion(path(L"plain.txt").c_str()), L"");
    EXPECT_EQ(CAppSoft::GetVersion(L""), L"");
}
