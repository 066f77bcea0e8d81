#pragma once

#include "windef.h"

#include <link.h>
#include <string>
#include <vector>

namespace win32
{
using LinkedObject = struct link_map;

using EntryPoint = BOOL(WINAPI*)(HINSTANCE, DWORD, LPVOID);

/// All objects of the process; the program is the first.
std::vector<LinkedObject*> linkedObjects();

/// The object that an address lies in, or null.
LinkedObject* objectOf(const void* address);

/// An address that the object itself exports, not one of those it depends on; null when it does not.
void* ownSymbol(void* handle, const LinkedObject* object, const char* name);

/// The path of its file on this machine, as the loader found it.
std::string pathOf(const LinkedObject* object);

/// The objects that one is directly linked to.
std::vector<LinkedObject*> dependenciesOf(const LinkedObject* object, const std::vector<LinkedObject*>& all);

/// The object with all it depends on, itself last and every one after its own dependencies.
std::vector<LinkedObject*> withDependencies(LinkedObject* object);
} // namespace win32
