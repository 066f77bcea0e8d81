#include "CFamStuGlobe.h"

#include "FileInfo.h"
#include "ModulePath.h"

#include <CFileShell.h>

int CFamStuGlobe::getFileVersion(CString file, CString& version)
{
    if (!CFileShell::IsFileExist(file)) file = folderOf(modulePath()) + file;
    return FileInfo::QueryFileVersion(file, version);
}

int CFamStuGlobe::SameFileVersion(CString a, CString b)
{
    CString versionOfA, versionOfB;
    getFileVersion(a, versionOfA);
    getFileVersion(b, versionOfB);
    if (versionOfA == versionOfB) return 1;
    CString message;
    message.Format(L"%s与%s加载公共文件不一致，请升级一致版本!", b.GetString(), a.GetString());
    AfxMessageBox(message);
    return 0;
}
