#include "WindowHooks.h"

#include <algorithm>
#include <vector>

namespace
{
bool isIn(HMODULE module, LPCWSTR address)
{
    HMODULE of = nullptr;
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    return GetModuleHandleExW(flags, address, &of) && of == module;
}

/// The hooks of one kind, in the order of registration.
template <class Hook>
struct Hooks {
    std::vector<Hook> all;

    BOOL add(Hook hook)
    {
        if (!hook || std::find(all.begin(), all.end(), hook) != all.end()) return FALSE;
        all.push_back(hook);
        return TRUE;
    }
    BOOL remove(Hook hook)
    {
        const auto found = std::find(all.begin(), all.end(), hook);
        if (found == all.end()) return FALSE;
        all.erase(found);
        return TRUE;
    }
    void forget(HMODULE module)
    {
        all.erase(std::remove_if(all.begin(), all.end(),
                                 [=](Hook hook) { return isIn(module, reinterpret_cast<LPCWSTR>(hook)); }),
                  all.end());
    }
};

struct AllHooks {
    Hooks<AcedWatchWinMsgFn> watches;
    Hooks<AcedFilterWinMsgFn> filters;
    Hooks<AcedOnIdleMsgFn> idlers;
};

AllHooks& hooks()
{
    static AllHooks all;
    return all;
}

bool swallowed(MSG& message)
{
    const auto filters = hooks().filters.all; // a hook may remove itself
    return std::any_of(filters.begin(), filters.end(), [&](AcedFilterWinMsgFn filter) { return filter(&message); });
}

void show(const MSG& message)
{
    const auto watches = hooks().watches.all;
    for (AcedWatchWinMsgFn watch : watches) watch(&message);
}

void idle()
{
    const auto idlers = hooks().idlers.all;
    for (AcedOnIdleMsgFn idler : idlers) idler();
}
} // namespace

namespace ed
{
int pumpMessages()
{
    int count = 0;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) && message.message != WM_QUIT) {
        ++count;
        if (swallowed(message)) continue;
        show(message);
        DispatchMessageW(&message);
    }
    idle();
    return count;
}

void forgetHooks(HMODULE module)
{
    hooks().watches.forget(module);
    hooks().filters.forget(module);
    hooks().idlers.forget(module);
}

void forgetAllHooks() { hooks() = {}; }
} // namespace ed

BOOL acedRegisterWatchWinMsg(AcedWatchWinMsgFn hook) { return hooks().watches.add(hook); }
BOOL acedRemoveWatchWinMsg(AcedWatchWinMsgFn hook) { return hooks().watches.remove(hook); }
BOOL acedRegisterFilterWinMsg(AcedFilterWinMsgFn hook) { return hooks().filters.add(hook); }
BOOL acedRemoveFilterWinMsg(AcedFilterWinMsgFn hook) { return hooks().filters.remove(hook); }
BOOL acedRegisterOnIdleWinMsg(AcedOnIdleMsgFn hook) { return hooks().idlers.add(hook); }
BOOL acedRemoveOnIdleWinMsg(AcedOnIdleMsgFn hook) { return hooks().idlers.remove(hook); }
