#include "ProfileRegistry.h"

#include "CFamStuSysVar.h"
#include "rxregsvc.h"

#include <CGTRegKey.h>

const wchar_t* const profiles::unnamed = L"<<Unnamed Profile>>";

CGTStringW profiles::path()
{
    return CString(acrxProductKey()) + L"\\Profiles";
}

CString profiles::nameAtStart()
{
    CGTRegKey key;
    CGTStringW name;
    if (key.Open(HKEY_CURRENT_USER, path(), true)) key.ReadString(L"", name);
    CString current = name;
    if (current.IsEmpty()) CFamStuSysVar::Get(L"CPROFILE", current);
    return current;
}

void profiles::setNameAtStart(const CString& name)
{
    CGTRegKey key;
    if (key.Create(HKEY_CURRENT_USER, path())) key.WriteString(L"", name);
}

int profiles::remove(const CString& name)
{
    CGTRegKey key;
    return key.Open(HKEY_CURRENT_USER, path()) && key.DeleteKey(name);
}
