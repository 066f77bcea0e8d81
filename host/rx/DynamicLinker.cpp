#include "LoadedModule.h"
#include "ModuleEvents.h"

#include <algorithm>
#include <memory>
#include <vector>

using modules::LoadedModule;

namespace
{
/// Modules of AutoCAD itself whose classes are part of the host.
constexpr const wchar_t* builtIn[] = {L"acISMobj24.dbx"};

AcRxClass* linkerClass()
{
    static AcRxClass* const made = newAcRxClass(L"AcRxDynamicLinker", AcRxObject::desc());
    return made;
}

bool sameName(const std::wstring& a, const std::wstring& b) { return _wcsicmp(a.c_str(), b.c_str()) == 0; }

bool isBuiltIn(const std::wstring& name)
{
    return std::any_of(std::begin(builtIn), std::end(builtIn), [&](const wchar_t* one) { return sameName(one, name); });
}

class Linker : public AcRxDynamicLinker
{
public:
    void addReactor(AcRxDLinkerReactor* reactor) override
    {
        removeReactor(reactor);
        if (reactor) mReactors.push_back(reactor);
    }
    void removeReactor(AcRxDLinkerReactor* reactor) override
    {
        mReactors.erase(std::remove(mReactors.begin(), mReactors.end(), reactor), mReactors.end());
    }

    bool loadModule(const wchar_t* fileName, bool printit, bool) override;
    bool unloadModule(const wchar_t* fileName, bool) override;
    bool loadApp(const wchar_t* appName, AcadApp::LoadReasons, bool printit, bool asCmd) override
    {
        return appName && loadModule((std::wstring(appName) + L".arx").c_str(), printit, asCmd);
    }
    bool unloadApp(const wchar_t* appName, bool asCmd) override
    {
        return appName && unloadModule((std::wstring(appName) + L".arx").c_str(), asCmd);
    }

    bool unlockApplication(void* appId) const override { return setLocked(appId, false); }
    bool lockApplication(void* appId) const override { return setLocked(appId, true); }
    bool isApplicationLocked(const wchar_t* fileName) const override
    {
        const LoadedModule* module = find(fileName);
        return module && module->locked;
    }
    bool isApplicationLocked(void* appId) const override
    {
        const LoadedModule* module = ofId(appId);
        return module && module->locked;
    }
    bool registerAppMDIAware(void* appId) const override { return setMdi(appId, true); }
    bool registerAppNotMDIAware(void* appId) const override { return setMdi(appId, false); }
    bool isAppMDIAware(const wchar_t* fileName) const override
    {
        const LoadedModule* module = find(fileName);
        return module && module->knowsDocuments;
    }

    LoadedModule* find(const wchar_t* fileName) const
    {
        if (!fileName) return nullptr;
        const std::wstring name = modules::nameOf(fileName);
        for (const auto& module : mModules) {
            if (sameName(module->name, name)) return module.get();
        }
        return nullptr;
    }
    LoadedModule* ofId(void* appId) const
    {
        for (const auto& module : mModules) {
            if (module.get() == appId) return module.get();
        }
        return nullptr;
    }

    AcRx::AppRetCode send(LoadedModule& module, AcRx::AppMsgCode message, void* packet)
    {
        if (!module.entry) return AcRx::kRetOK;
        mCurrent.push_back(&module);
        const AcRx::AppRetCode result = module.entry(message, packet);
        mCurrent.pop_back();
        return result;
    }
    void sendInEachDocument(LoadedModule& module, AcRx::AppMsgCode message)
    {
        if (mSurroundings.inEachDocument)
            mSurroundings.inEachDocument([&] { send(module, message, nullptr); });
    }

    const std::vector<std::unique_ptr<LoadedModule>>& all() const { return mModules; }
    void* current() const { return mCurrent.empty() ? nullptr : mCurrent.back(); }
    void setSurroundings(modules::Surroundings surroundings) { mSurroundings = std::move(surroundings); }
    void unloadAll();

private:
    template <class Event>
    void tell(Event event, const std::wstring& name)
    {
        const std::vector<AcRxDLinkerReactor*> reactors = mReactors; // a reactor may remove itself
        for (AcRxDLinkerReactor* reactor : reactors) (reactor->*event)(name.c_str());
    }
    void say(bool printit, const std::wstring& text) const
    {
        if (mSurroundings.report) mSurroundings.report(text, printit);
    }
    bool setLocked(void* appId, bool locked) const
    {
        LoadedModule* module = ofId(appId);
        if (module) module->locked = locked;
        return module != nullptr;
    }
    bool setMdi(void* appId, bool aware) const
    {
        LoadedModule* module = ofId(appId);
        if (module) module->knowsDocuments = aware;
        return module != nullptr;
    }
    std::wstring pathOf(const std::wstring& fileName) const
    {
        const std::wstring found = mSurroundings.findFile ? mSurroundings.findFile(fileName) : std::wstring();
        return found.empty() ? fileName : found;
    }
    std::wstring start(const std::wstring& fileName);
    void drop(LoadedModule& module);

    std::vector<std::unique_ptr<LoadedModule>> mModules;
    std::vector<AcRxDLinkerReactor*> mReactors;
    std::vector<LoadedModule*> mCurrent;
    modules::Surroundings mSurroundings;
};

/// Loads and initialises a module that is not loaded; empty, or the reason why it is not loaded now either.
std::wstring Linker::start(const std::wstring& fileName)
{
    auto made = std::make_unique<LoadedModule>();
    made->name = modules::nameOf(fileName);
    if (!isBuiltIn(made->name)) {
        std::wstring fault = modules::openModule(pathOf(fileName), *made);
        if (!fault.empty()) return fault;
    }
    LoadedModule& module = *made;
    mModules.push_back(std::move(made));
    if (send(module, AcRx::kInitAppMsg, &module) == AcRx::kRetError) {
        drop(module);
        return L"it refused to be initialised.";
    }
    sendInEachDocument(module, AcRx::kLoadDwgMsg);
    return {};
}

void Linker::drop(LoadedModule& module)
{
    const HMODULE handle = module.handle;
    if (handle && mSurroundings.forget) mSurroundings.forget(handle, &module);
    mModules.erase(std::find_if(mModules.begin(), mModules.end(), [&](const auto& m) { return m.get() == &module; }));
    if (handle) FreeLibrary(handle);
}

bool Linker::loadModule(const wchar_t* fileName, bool printit, bool)
{
    if (!fileName || !*fileName) return false;
    if (find(fileName)) return true;
    const std::wstring name = modules::nameOf(fileName);
    tell(&AcRxDLinkerReactor::rxAppWillBeLoaded, name);
    const std::wstring fault = start(fileName);
    if (!fault.empty()) say(printit, name + L" cannot be loaded: " + fault);
    tell(fault.empty() ? &AcRxDLinkerReactor::rxAppLoaded : &AcRxDLinkerReactor::rxAppLoadAborted, name);
    return fault.empty();
}

bool Linker::unloadModule(const wchar_t* fileName, bool)
{
    LoadedModule* module = find(fileName);
    if (!module) return false;
    const std::wstring name = module->name;
    if (module->locked) {
        say(true, name + L" cannot be unloaded: it is locked.");
        return false;
    }
    tell(&AcRxDLinkerReactor::rxAppWillBeUnloaded, name);
    sendInEachDocument(*module, AcRx::kUnloadDwgMsg);
    if (send(*module, AcRx::kUnloadAppMsg, nullptr) == AcRx::kRetError) {
        say(true, name + L" cannot be unloaded: it refused.");
        tell(&AcRxDLinkerReactor::rxAppUnloadAborted, name);
        return false;
    }
    drop(*module);
    tell(&AcRxDLinkerReactor::rxAppUnloaded, name);
    return true;
}

void Linker::unloadAll()
{
    while (!mModules.empty()) {
        LoadedModule& last = *mModules.back();
        send(last, AcRx::kUnloadAppMsg, nullptr);
        drop(last);
    }
}

Linker& linker()
{
    static Linker& one = *new Linker;
    static const bool registered = [] {
        std::uint32_t id = 0;
        acrxSysRegistry()->atPut(ACRX_DYNAMIC_LINKER, &one, id);
        return true;
    }();
    (void)registered;
    return one;
}

// The registry holds the linker from the start of the program.
[[maybe_unused]] const Linker& fromTheStart = linker();
} // namespace

AcRxClass* AcRxDynamicLinker::desc() { return linkerClass(); }
AcRxClass* AcRxDynamicLinker::isA() const { return linkerClass(); }

AcRxDynamicLinker* AcRxDynamicLinker::cast(const AcRxObject* object)
{
    const bool fits = object && object->isKindOf(desc());
    return fits ? const_cast<AcRxDynamicLinker*>(static_cast<const AcRxDynamicLinker*>(object)) : nullptr;
}

namespace modules
{
void setSurroundings(Surroundings surroundings) { linker().setSurroundings(std::move(surroundings)); }

void sendToAll(AcRx::AppMsgCode message, void* packet)
{
    std::vector<LoadedModule*> some; // a module may load another one meanwhile
    for (const auto& module : linker().all()) some.push_back(module.get());
    for (LoadedModule* module : some) sendTo(module, message, packet);
}

AcRx::AppRetCode sendTo(void* appId, AcRx::AppMsgCode message, void* packet)
{
    LoadedModule* module = linker().ofId(appId);
    return module ? linker().send(*module, message, packet) : AcRx::kRetError;
}

void* current() { return linker().current(); }

std::vector<std::wstring> loadedNames()
{
    std::vector<std::wstring> names;
    for (const auto& module : linker().all()) names.push_back(module->name);
    return names;
}

void quit(const std::function<void()>& closeDocuments)
{
    sendToAll(AcRx::kPreQuitMsg);
    sendToAll(AcRx::kQuitMsg);
    if (closeDocuments) closeDocuments();
    linker().unloadAll();
}
} // namespace modules

bool acrxLoadModule(const wchar_t* name, bool printit, bool asCmd) { return linker().loadModule(name, printit, asCmd); }
bool acrxUnloadModule(const wchar_t* name, bool asCmd) { return linker().unloadModule(name, asCmd); }
bool acrxLoadApp(const wchar_t* name, bool asCmd)
{
    return linker().loadApp(name, AcadApp::kOnLoadRequest, true, asCmd);
}
bool acrxUnloadApp(const wchar_t* name, bool asCmd) { return linker().unloadApp(name, asCmd); }
bool acrxAppIsLoaded(const wchar_t* name) { return linker().find(name) != nullptr; }
