#include "RegistryTree.h"

#include <algorithm>

namespace
{
using win32::RegistryKey;
using win32::RegistryKeyPtr;

// The next name of a path, which loses it; empty at its end.
std::wstring_view takeName(std::wstring_view& path)
{
    while (!path.empty() && path.front() == L'\\')
        path.remove_prefix(1);
    const std::wstring_view name = path.substr(0, path.find(L'\\'));
    path.remove_prefix(name.size());
    return name;
}

void markDeleted(RegistryKey& key)
{
    key.deleted = true;
    for (const auto& [name, below] : key.keys)
        markDeleted(*below);
}
} // namespace

namespace win32
{
RegistryKeyPtr findKey(const RegistryKeyPtr& from, std::wstring_view path)
{
    RegistryKeyPtr key = from;
    for (std::wstring_view name = takeName(path); key && !name.empty(); name = takeName(path)) {
        const auto found = key->keys.find(name);
        key = found == key->keys.end() ? nullptr : found->second;
    }
    return key;
}

RegistryKeyPtr makeKey(const RegistryKeyPtr& from, std::wstring_view path, bool isVolatile, bool& made)
{
    RegistryKeyPtr key = from;
    made = false;
    for (std::wstring_view name = takeName(path); !name.empty(); name = takeName(path)) {
        const auto found = key->keys.find(name);
        made = found == key->keys.end();
        if (!made) {
            key = found->second;
            continue;
        }
        auto added = std::make_shared<RegistryKey>();
        added->name = name;
        added->isVolatile = isVolatile || key->isVolatile;
        key = key->keys.emplace(std::wstring(name), added).first->second;
    }
    return key;
}

bool deleteKey(const RegistryKeyPtr& from, std::wstring_view path)
{
    while (!path.empty() && path.back() == L'\\')
        path.remove_suffix(1);
    const std::size_t last = path.rfind(L'\\');
    const RegistryKeyPtr parent = last == path.npos ? from : findKey(from, path.substr(0, last));
    const auto found = parent ? parent->keys.find(path.substr(last == path.npos ? 0 : last + 1))
                              : decltype(from->keys.end())();
    if (!parent || found == parent->keys.end()) return false;
    markDeleted(*found->second);
    parent->keys.erase(found);
    return true;
}
} // namespace win32
