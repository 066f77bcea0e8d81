#include "afxdll_.h"

#include <algorithm>
#include <mutex>
#include <vector>

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CObject)

namespace
{
struct Chain {
    std::mutex mutex;
    std::vector<CDynLinkLibrary*> modules; // the one that joined last is at the end
};

/// Never destroyed: modules that are still loaded leave it at the very end of the program.
Chain& chain()
{
    static Chain& instance = *new Chain;
    return instance;
}

CDynLinkLibrary* lastOfModule(HMODULE module)
{
    const std::lock_guard<std::mutex> lock(chain().mutex);
    const auto& modules = chain().modules;
    const auto found = std::find_if(modules.rbegin(), modules.rend(),
                                    [=](const CDynLinkLibrary* m) { return m->m_hModule == module; });
    return found == modules.rend() ? nullptr : *found;
}
} // namespace

BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module)
{
    if (state.bInitialized) return TRUE;
    if (!module) return FALSE;
    state.bInitialized = TRUE;
    state.hModule = module;
    state.hResource = module;
    return TRUE;
}

void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL)
{
    if (!state.bInitialized) return;
    while (CDynLinkLibrary* library = lastOfModule(state.hModule))
        delete library;
    state = AFX_EXTENSION_MODULE{};
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_bSystem(system)
{
    const std::lock_guard<std::mutex> lock(chain().mutex);
    chain().modules.push_back(this);
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    const std::lock_guard<std::mutex> lock(chain().mutex);
    auto& modules = chain().modules;
    modules.erase(std::remove(modules.begin(), modules.end(), this), modules.end());
}

CDynLinkLibrary* AFXAPI AfxNextDynLinkLibrary(const CDynLinkLibrary* after)
{
    const std::lock_guard<std::mutex> lock(chain().mutex);
    const auto& modules = chain().modules;
    auto next = modules.rbegin();
    if (after) {
        next = std::find(modules.rbegin(), modules.rend(), after);
        if (next != modules.rend()) ++next;
    }
    return next == modules.rend() ? nullptr : *next;
}
