#pragma once

#include "LinkedObject.h"

#include <mutex>
#include <set>

namespace win32
{
/// One module of the process. Its address is its HMODULE.
struct Module {
    LinkedObject* object = nullptr;
    void* handle = nullptr; // holds the object in memory while the record lives
    std::string path;       // on this machine
    EntryPoint entryPoint = nullptr;
    unsigned references = 0; // as counted by LoadLibraryW
    bool permanent = false;  // was there at the start of the program, or is pinned
    bool attached = false;   // DllMain knows, or needs not know
    std::set<Module*> needs; // the modules it is linked to
};

/// Held while modules are loaded, unloaded and told of it; DllMain may load other modules itself.
std::unique_lock<std::recursive_mutex> lockModules();

/// The absolute Windows path of a module's file.
std::wstring windowsPathOf(const Module& module);

/// The record of a handle; null: the program. Null with ERROR_MOD_NOT_FOUND for any other value.
Module* findModule(HMODULE handle);
HMODULE handleOf(const Module* module);

/// The record of a loaded object, made now when it has none; such an object is permanent.
Module* moduleOf(LinkedObject* object);

/// The record of a loaded module by name or path, made now if it has none; null when it is not loaded.
Module* findLoaded(const std::wstring& name);

/// Loads a file and attaches all that came with it; one reference is counted. Null with the last error set.
Module* loadModule(const std::string& hostPath, bool callEntryPoints);

/// Unloads a module that nothing refers to, and then what only it needed.
void unloadIfUnused(Module* module);

/// Calls the DllMain of all modules that the program was linked with and that have not been told yet.
void attachLoadedModules();
} // namespace win32
