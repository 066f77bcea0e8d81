#include "CFamStuGlobe.h"

#include "acedads.h"
#include "AutomationObject.h"
#include "CtransStr.h"
#include "ModulePath.h"

#include <iterator>

namespace
{
constexpr int longestSetting = 2048;

constexpr const wchar_t* ownFolders[] = {L"common\\sys",
                                         L"common\\sys\\字库",
                                         L"common\\sys\\图库\\填充",
                                         L"common\\sys\\图库\\填充\\个人填充",
                                         L"common\\sys\\图库\\填充\\立面填充",
                                         L"common\\sys\\图库\\填充\\平面填充",
                                         L"common\\sys\\图库\\填充\\剖面填充",
                                         L"common\\sys\\系统\\menures",
                                         L"common\\sys\\系统\\用户文件夹"};

/// Adds a folder unless its text occurs; whether it did.
bool add(CString& setting, const CString& folder)
{
    if (setting.Find(folder) >= 0) return false;
    if (setting.Right(1) != L";") setting += L";";
    setting += folder;
    return true;
}

AutomationObject fileSettings()
{
    CWinApp* application = acedGetAcadWinApp();
    return AutomationObject(application ? application->GetIDispatch(TRUE) : nullptr)
        .object(L"Preferences")
        .object(L"Files");
}

CString withoutEndingSlash(CString folder)
{
    return folder.TrimRight(L'\\');
}

bool have(const CStringArray& folders, const CString& folder)
{
    for (INT_PTR i = 0; i < folders.GetSize(); ++i) {
        if (withoutEndingSlash(folders[i]).CompareNoCase(withoutEndingSlash(folder)) == 0) return true;
    }
    return false;
}

/// The folders of a path; what is empty between two ";" is none.
void split(const CString& path, CStringArray& folders)
{
    CStringArray parts;
    CtransStr::SplitStr(parts, path, L";");
    folders.RemoveAll();
    for (INT_PTR i = 0; i < parts.GetSize(); ++i) {
        if (!parts[i].IsEmpty()) folders.Add(parts[i]);
    }
}
} // namespace

void CFamStuGlobe::AddSupportPath()
{
    wchar_t buffer[longestSetting] = L"";
    const CString base = parentOfFolderOf(modulePath());
    if (base.IsEmpty() || acedGetEnv(L"ACAD", buffer, std::size(buffer)) != RTNORM) return;
    CString setting = buffer;
    bool changed = false;
    for (const wchar_t* folder : ownFolders) {
        CString path;
        path.Format(L"%s%s", base.GetString(), folder);
        changed = add(setting, path) || changed;
    }
    if (changed) acedSetEnv(L"ACAD", setting + L";");
}

int CFamStuGlobe::AddSupportPath(CStringArray& folders)
{
    CStringArray existing;
    const AutomationObject files = fileSettings();
    CString path;
    if (!files.getText(L"SupportPath", path)) return 0;
    split(path, existing);
    const INT_PTR before = existing.GetSize();
    for (INT_PTR i = 0; i < folders.GetSize(); ++i) {
        if (folders[i].IsEmpty() || have(existing, folders[i])) continue;
        existing.Add(folders[i]);
        if (!path.IsEmpty() && path.Right(1) != L";") path += L";";
        path += folders[i];
    }
    return existing.GetSize() == before || files.setText(L"SupportPath", path);
}

int CFamStuGlobe::GetSupportPath(CStringArray& folders)
{
    CString path;
    if (!fileSettings().getText(L"SupportPath", path)) return 0;
    split(path, folders);
    return 1;
}
