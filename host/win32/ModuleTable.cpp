#include "ModuleTable.h"

#include "ImageFile.h"
#include "ModuleSearch.h"
#include "NoCase.h"
#include "Path.h"

#include "errhandlingapi.h"
#include "libloaderapi.h"
#include "winerror.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <memory>
#include <utility>

namespace
{
using win32::LinkedObject;
using win32::Module;

struct Table {
    std::recursive_mutex mutex;
    std::vector<std::unique_ptr<Module>> modules; // in the order in which they were attached
    bool startRecorded = false;
    bool startAttached = false;
};

Table& table()
{
    static Table& only = *new Table;
    return only;
}

// As Windows passes it: a module that comes with the program, or goes with it, is told so.
void* const withProgram = reinterpret_cast<void*>(1);

Module* recordOf(const LinkedObject* object)
{
    for (const auto& module : table().modules)
        if (module->object == object) return module.get();
    return nullptr;
}

Module* addRecord(LinkedObject* object)
{
    auto made = std::make_unique<Module>();
    made->object = object;
    made->handle = dlopen(*object->l_name ? object->l_name : nullptr, RTLD_LAZY | RTLD_NOLOAD);
    made->path = win32::pathOf(object);
    if (made->handle)
        made->entryPoint =
            reinterpret_cast<win32::EntryPoint>(win32::ownSymbol(made->handle, object, "DllMain"));
    table().modules.push_back(std::move(made));
    return table().modules.back().get();
}

void dropRecord(Module* module)
{
    for (const auto& other : table().modules)
        other->needs.erase(module);
    if (module->handle) dlclose(module->handle);
    auto& modules = table().modules;
    modules.erase(
        std::find_if(modules.begin(), modules.end(), [=](const auto& one) { return one.get() == module; }));
}

bool isNeeded(const Module* module)
{
    const auto& modules = table().modules;
    return std::any_of(modules.begin(), modules.end(), [=](const auto& other) {
        return other.get() != module && other->needs.count(const_cast<Module*>(module)) > 0;
    });
}

void detach(Module* module, void* reserved)
{
    if (!std::exchange(module->attached, false) || !module->entryPoint) return;
    module->entryPoint(win32::handleOf(module), DLL_PROCESS_DETACH, reserved);
}

void detachAllAtExit()
{
    const auto lock = win32::lockModules();
    for (std::size_t i = table().modules.size(); i > 0; --i)
        if (i <= table().modules.size()) detach(table().modules[i - 1].get(), withProgram);
}

bool attach(Module* module, void* reserved)
{
    if (module->attached) return true;
    // Registered after the module's own destructors, for each module: so it runs before them.
    if (module->entryPoint) std::atexit(detachAllAtExit);
    module->attached = true;
    const bool accepted =
        !module->entryPoint || module->entryPoint(win32::handleOf(module), DLL_PROCESS_ATTACH, reserved);
    if (!accepted) detach(module, nullptr);
    return accepted;
}

// What was loaded by the program's own start is there for good. An object that turns up later without a
// record may be one that the loader could not unload: it is as good as not loaded.
void recordObjectsOfStart()
{
    if (std::exchange(table().startRecorded, true)) return;
    for (LinkedObject* object : win32::linkedObjects())
        win32::moduleOf(object);
}

void recordNeeds(Module* module)
{
    for (LinkedObject* needed : win32::dependenciesOf(module->object, win32::linkedObjects()))
        if (Module* record = recordOf(needed)) module->needs.insert(record);
}

// Records the objects that came with one, those it needs first.
std::vector<Module*> recordArrivals(LinkedObject* object)
{
    std::vector<Module*> arrived;
    for (LinkedObject* one : win32::withDependencies(object)) {
        if (recordOf(one)) continue;
        arrived.push_back(addRecord(one));
        recordNeeds(arrived.back());
    }
    return arrived;
}

bool attachAll(const std::vector<Module*>& modules)
{
    return std::all_of(modules.begin(), modules.end(), [](Module* one) { return attach(one, nullptr); });
}

// What the loader says when an object or what it depends on cannot be loaded.
DWORD errorOfLoader(const char* text)
{
    if (text && std::strstr(text, "undefined symbol")) return ERROR_PROC_NOT_FOUND;
    return text && std::strstr(text, "cannot open shared object file") ? ERROR_MOD_NOT_FOUND
                                                                       : ERROR_BAD_EXE_FORMAT;
}

Module* failed(DWORD error)
{
    SetLastError(error);
    return nullptr;
}

bool isCalled(const Module& module, const std::wstring& name)
{
    const std::wstring path = win32::windowsPathOf(module);
    if (win32::namesDirectory(name)) return win32::equalNoCase(path, win32::fullPath(name));
    return win32::equalNoCase(path.substr(win32::nameStart(path)), name);
}

Module* finishLoading(void* handle, bool callEntryPoints)
{
    LinkedObject* object = nullptr;
    dlinfo(handle, RTLD_DI_LINKMAP, &object);
    const std::vector<Module*> arrived = recordArrivals(object);
    dlclose(handle); // the record holds it now
    Module* module = recordOf(object);
    if (!callEntryPoints) return module;
    ++module->references; // no DllMain may unload it meanwhile
    const bool attached = attachAll(arrived) && attach(module, nullptr);
    --module->references;
    if (attached) return module;
    win32::unloadIfUnused(module);
    return failed(ERROR_DLL_INIT_FAILED);
}
} // namespace

namespace win32
{
std::unique_lock<std::recursive_mutex> lockModules()
{
    return std::unique_lock(table().mutex);
}

std::wstring windowsPathOf(const Module& module)
{
    return fullPath(toWindowsPath(module.path));
}

Module* findModule(HMODULE handle)
{
    if (!handle) return moduleOf(linkedObjects().front());
    for (const auto& module : table().modules)
        if (handleOf(module.get()) == handle) return module.get();
    return failed(ERROR_MOD_NOT_FOUND);
}

HMODULE handleOf(const Module* module)
{
    return reinterpret_cast<HMODULE>(const_cast<Module*>(module));
}

Module* moduleOf(LinkedObject* object)
{
    if (Module* known = recordOf(object)) return known;
    Module* module = addRecord(object);
    module->permanent = true;
    return module;
}

Module* findLoaded(const std::wstring& name)
{
    recordObjectsOfStart();
    for (const auto& module : table().modules)
        if (isCalled(*module, name)) return module.get();
    return nullptr;
}

Module* loadModule(const std::string& hostPath, bool callEntryPoints)
{
    const bool path = hostPath.find('/') != hostPath.npos;
    if (path && !isLoadableModule(ImageFile(hostPath))) return failed(ERROR_BAD_EXE_FORMAT);
    void* handle = dlopen(hostPath.c_str(), RTLD_LOCAL | (callEntryPoints ? RTLD_NOW : RTLD_LAZY));
    if (!handle) return failed(errorOfLoader(dlerror()));
    Module* module = finishLoading(handle, callEntryPoints);
    if (module) ++module->references;
    return module;
}

void unloadIfUnused(Module* module)
{
    if (module->permanent || module->references > 0 || isNeeded(module)) return;
    detach(module, nullptr);
    const std::set<Module*> needed = module->needs;
    dropRecord(module);
    for (Module* one : needed)
        unloadIfUnused(one);
}

void attachLoadedModules()
{
    const auto lock = lockModules();
    recordObjectsOfStart();
    if (std::exchange(table().startAttached, true)) return;
    for (LinkedObject* object : withDependencies(linkedObjects().front()))
        attach(moduleOf(object), withProgram);
}
} // namespace win32
