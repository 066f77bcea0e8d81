#pragma once

#include "RegistryTree.h"

#include "winreg.h"

#include <mutex>

namespace win32
{
/// A key as someone opened it.
struct OpenRegistryKey {
    RegistryKeyPtr key;
    REGSAM access = 0;
};

/// Held while the registry is read or changed. Taking it for the first time reads the file.
std::unique_lock<std::mutex> lockRegistry();

/// The key of a handle that was opened for all of `access`: an error code, see winreg.h.
LSTATUS findOpenKey(HKEY handle, REGSAM access, RegistryKeyPtr& key);

HKEY addOpenKey(const RegistryKeyPtr& key, REGSAM access);
bool removeOpenKey(HKEY handle);
bool isPredefinedKey(HKEY handle);

/// Whether the registry may be changed, before it is; and saves it after.
LSTATUS registryIsWritable();
LSTATUS saveRegistry();

/// Closes all keys and forgets the tree; the next use reads the file that QM_REGISTRY names then.
void reloadRegistry();
} // namespace win32
