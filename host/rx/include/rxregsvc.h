#pragma once

/// What a module tells the linker of itself, and services that modules offer each other.

#include "rxdlinkr.h"

/// `appId` is the packet of kInitAppMsg. False for an unknown one.
bool acrxUnlockApplication(void* appId);
bool acrxLockApplication(void* appId);
bool acrxApplicationIsLocked(const wchar_t* modulename);
bool acrxRegisterAppMDIAware(void* appId);
bool acrxRegisterAppNotMDIAware(void* appId);
bool acrxIsAppMDIAware(const wchar_t* moduleName);

/// AutoCAD's key of the registry, below HKEY_CURRENT_USER and HKEY_LOCAL_MACHINE: that of its release, product and language.
const wchar_t* acrxProductKey();

/// A service that a module offers: the module gets kDependencyMsg when the first other one depends on it, and
/// kNoDependencyMsg when the last has left.
class AcRxService : public AcRxObject
{
public:
    static AcRxClass* desc();
    static AcRxService* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    AcRxService();
    void addDependency();
    void removeDependency();

private:
    void* mOwner; ///< the module that was being called when the service was made
    int mDependents = 0;
};

/// Offers a service of the module that is being called; the one already there when the name is taken.
AcRxService* acrxRegisterService(const wchar_t* serviceId);
/// Whether a service of that name is offered.
bool acrxServiceIsRegistered(const wchar_t* serviceId);
