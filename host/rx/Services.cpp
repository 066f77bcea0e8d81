#include "ModuleEvents.h"
#include "rxregsvc.h"

namespace
{
AcRxDynamicLinker& theLinker() { return *acrxDynamicLinker; }

AcRxClass* serviceClass()
{
    static AcRxClass* const made = newAcRxClass(L"AcRxService", AcRxObject::desc());
    return made;
}
} // namespace

bool acrxUnlockApplication(void* appId) { return theLinker().unlockApplication(appId); }
bool acrxLockApplication(void* appId) { return theLinker().lockApplication(appId); }
bool acrxApplicationIsLocked(const wchar_t* name) { return theLinker().isApplicationLocked(name); }
bool acrxRegisterAppMDIAware(void* appId) { return theLinker().registerAppMDIAware(appId); }
bool acrxRegisterAppNotMDIAware(void* appId) { return theLinker().registerAppNotMDIAware(appId); }
bool acrxIsAppMDIAware(const wchar_t* name) { return theLinker().isAppMDIAware(name); }

AcRxClass* AcRxService::desc() { return serviceClass(); }
AcRxClass* AcRxService::isA() const { return serviceClass(); }

AcRxService* AcRxService::cast(const AcRxObject* object)
{
    const bool fits = object && object->isKindOf(desc());
    return fits ? const_cast<AcRxService*>(static_cast<const AcRxService*>(object)) : nullptr;
}

AcRxService::AcRxService() : mOwner(modules::current()) {}

void AcRxService::addDependency()
{
    if (++mDependents == 1) modules::sendTo(mOwner, AcRx::kDependencyMsg);
}

void AcRxService::removeDependency()
{
    if (mDependents == 0) return;
    if (--mDependents == 0) modules::sendTo(mOwner, AcRx::kNoDependencyMsg);
}

AcRxService* acrxRegisterService(const wchar_t* serviceId)
{
    if (!serviceId) return nullptr;
    AcRxDictionary* services = acrxServiceDictionary;
    if (AcRxService* there = AcRxService::cast(services->at(serviceId))) return there;
    auto* made = new AcRxService;
    std::uint32_t id = 0;
    services->atPut(serviceId, made, id);
    return made;
}

bool acrxServiceIsRegistered(const wchar_t* serviceId)
{
    return acrxServiceDictionary->has(serviceId);
}
