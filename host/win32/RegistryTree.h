#pragma once

#include "NoCase.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace win32
{
struct RegistryValue {
    DWORD type = 0;
    std::vector<BYTE> data; // texts in wchar_t
};

struct RegistryKey {
    std::wstring name;
    bool isVolatile = false;
    bool deleted = false;
    std::map<std::wstring, RegistryValue, LessNoCase> values; // "" is the default value
    std::map<std::wstring, std::shared_ptr<RegistryKey>, LessNoCase> keys;
};
using RegistryKeyPtr = std::shared_ptr<RegistryKey>;

/// The key at a path of names with backslashes, or null. Empty names are passed over.
RegistryKeyPtr findKey(const RegistryKeyPtr& from, std::wstring_view path);

/// The same; makes what is not there. `made` tells whether the last key was.
RegistryKeyPtr makeKey(const RegistryKeyPtr& from, std::wstring_view path, bool isVolatile, bool& made);

/// Marks a key and all below it as deleted, for those who have it open, and takes it out of its parent.
/// False when there is no such key.
bool deleteKey(const RegistryKeyPtr& from, std::wstring_view path);

/// The tree as ".reg" text: the keys of a root are those with the names of the predefined handles.
std::wstring registryText(const RegistryKey& root);

/// Reads ".reg" text into a tree, on top of what is there. False when it has no heading or a line was not
/// understood; the other lines are read all the same.
bool readRegistryText(std::wstring_view text, const RegistryKeyPtr& root);
} // namespace win32
