#pragma once

#include <CGTStringW.h>

/// Where AutoCAD keeps its profiles: a key of the registry with one key for each, below HKEY_CURRENT_USER.
/// Its unnamed value is the name of the profile that AutoCAD starts with.
namespace profiles
{
/// AutoCAD's own profile.
extern const wchar_t* const unnamed;

/// The path of the key.
CGTStringW path();
/// The name of the profile that AutoCAD starts with; that of the current one when the registry does not say.
CString nameAtStart();
void setNameAtStart(const CString& name);
/// Removes a profile. 0 when there is none of that name.
int remove(const CString& name);
} // namespace profiles
