/// The application object: what the module does with AutoCAD's messages.

#include "arxEntryPoint.h"
#include "AsdkBlockOrderFilter.h"
#include "AsdkBlockOrderIndex.h"
#include "MessageHooks.h"

namespace
{
struct RuntimeClass {
    void (*rxInit)();
    AcRxClass* (*desc)();
};

// Not in the framework's table, which would register them before the hooks.
const RuntimeClass drawOrderClasses[] = {{&AsdkBlockOrderFilter::rxInit, &AsdkBlockOrderFilter::desc},
                                         {&AsdkBlockOrderIndex::rxInit, &AsdkBlockOrderIndex::desc}};

void registerDrawOrderClasses()
{
    for (const RuntimeClass& one : drawOrderClasses)
        one.rxInit();
    acrxBuildClassHierarchy();
}

void deleteDrawOrderClasses()
{
    for (const RuntimeClass& one : drawOrderClasses)
        deleteAcRxClass(one.desc());
    // Other modules that are linked to this one keep it in memory, and the next load registers anew.
    AsdkBlockOrderFilter::gpDesc = nullptr;
    AsdkBlockOrderIndex::gpDesc = nullptr;
}

class CArxComLibNewApp : public AcRxArxApp
{
public:
    void RegisterServerComponents() override {}

    AcRx::AppRetCode On_kInitAppMsg(void* packet) override
    {
        const AcRx::AppRetCode result = AcRxArxApp::On_kInitAppMsg(packet);
        registerMessageHooks();
        registerDrawOrderClasses();
        // Raster images are objects of this module.
        acrxDynamicLinker->loadModule(L"acISMobj24.dbx", true, false);
        return result;
    }

    AcRx::AppRetCode On_kUnloadAppMsg(void* packet) override
    {
        AcRxArxApp::On_kUnloadAppMsg(packet);
        deleteDrawOrderClasses();
        return AcRx::kRetOK; // the hooks stay
    }
};
} // namespace

IMPLEMENT_ARX_ENTRYPOINT(CArxComLibNewApp)
