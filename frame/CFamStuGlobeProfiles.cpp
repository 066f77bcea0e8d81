#include "CFamStuGlobe.h"

#include "acedads.h"
#include "CFamStuSysVar.h"
#include "ModulePath.h"
#include "ProfileRegistry.h"

#include <CFileShell.h>
#include <CGTRegKey.h>
#include <pugixml.hpp>

#include <cwchar>
#include <limits>

namespace
{
CString textOf(const pugi::char_t* text)
{
    return CString(pugi::as_wide(text).c_str());
}

CString nameOf(const pugi::xml_node& node)
{
    return textOf(node.attribute("name").value());
}

/// One level of the registry: a backslash would make two.
bool isKeyName(const CString& name)
{
    return !name.IsEmpty() && name.Find(L'\\') < 0;
}

bool readNumber(const CString& text, DWORD& number)
{
    wchar_t* end = nullptr;
    const unsigned long long value = std::wcstoull(text, &end, 0);
    if (text.IsEmpty() || text[0] == L'-' || *end || value > std::numeric_limits<DWORD>::max()) return false;
    number = static_cast<DWORD>(value);
    return true;
}

void writeValue(CGTRegKey& key, const pugi::xml_node& value)
{
    const CString type = textOf(value.attribute("type").value()), text = textOf(value.text().get());
    DWORD number = 0;
    if (type.IsEmpty()) key.WriteString(nameOf(value), text);
    if (type == L"dword" && readNumber(text, number)) key.WriteDword(nameOf(value), number);
}

/// The values and keys of a node below a key of the registry, down to the depth that the registry has.
void writeKey(const CString& path, const pugi::xml_node& node, int depth = 0)
{
    constexpr int deepest = 64;
    CGTRegKey key;
    if (depth > deepest || !key.Create(HKEY_CURRENT_USER, path)) return;
    for (const pugi::xml_node& value : node.children("value"))
        writeValue(key, value);
    for (const pugi::xml_node& below : node.children("key")) {
        if (isKeyName(nameOf(below))) writeKey(path + L"\\" + nameOf(below), below, depth + 1);
    }
}

bool isMenuFile(const CString& name)
{
    const CString extension = CString(CFileShell::GetFileExt(name)).MakeLower();
    return extension == L"cuix" || extension == L"cui" || extension == L"mns" || extension == L"mnu";
}

/// The menu groups of the application, which are named as their files are.
void findMenuGroups(CStringArray& groups)
{
    const CString folder = parentOfFolderOf(modulePath()) + L"common\\sys\\系统\\menures\\";
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(folder + L"*", &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        if (isMenuFile(found.cFileName)) groups.Add(CFileShell::GetFileTitle(found.cFileName));
    } while (FindNextFileW(search, &found));
    FindClose(search);
}

void unloadMenus()
{
    CStringArray groups;
    findMenuGroups(groups);
    const CFamStuSysVar withoutDialogs(L"FILEDIA", 0, TRUE);
    for (INT_PTR i = 0; i < groups.GetSize(); ++i)
        acedCommandS(RTSTR, L"menuunload", RTSTR, groups[i].GetString(), RTNONE);
}
} // namespace

CString CFamStuGlobe::getMoRenProfiles()
{
    return profiles::nameAtStart();
}

void CFamStuGlobe::setMoRenProfiles(CString name)
{
    if (isKeyName(name)) profiles::setNameAtStart(name);
}

void CFamStuGlobe::writePorfiles(pugi::xml_document& document)
{
    for (const pugi::xml_node& profile : document.child("profiles").children("profile")) {
        if (isKeyName(nameOf(profile))) writeKey(profiles::path() + L"\\" + nameOf(profile), profile);
    }
}

void CFamStuGlobe::deletePorfiles()
{
    unloadMenus();
    const CString name = profiles::nameAtStart();
    if (name.CompareNoCase(profiles::unnamed) == 0) return;
    profiles::setNameAtStart(profiles::unnamed);
    CString current;
    CFamStuSysVar::Get(L"CPROFILE", current);
    if (name.CompareNoCase(current) != 0) profiles::remove(name);
}
