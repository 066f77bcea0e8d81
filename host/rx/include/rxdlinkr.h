#pragma once

/// The dynamic linker: loads modules (.arx, .dbx) and tells them of what happens.

#include "rxdict.h"

namespace AcRx
{
/// Messages to acrxEntryPoint.
enum AppMsgCode {
    kNullMsg = 0,
    kInitAppMsg = 1,   ///< the packet identifies the module, for acrxUnlockApplication and its like
    kUnloadAppMsg = 2,
    kLoadDwgMsg = 3,   ///< once for each document; it is the current one
    kUnloadDwgMsg = 4,
    kInvkSubrMsg = 5,  ///< a LISP function of the module is called: acedGetFunCode
    kCfgMsg = 6,
    kEndMsg = 7,
    kQuitMsg = 8,
    kSaveMsg = 9,
    kDependencyMsg = 10,
    kNoDependencyMsg = 11,
    kOleUnloadAppMsg = 12,
    kPreQuitMsg = 13,
    kInitDialogMsg = 14,
    kEndDialogMsg = 15,
};
enum AppRetCode { kRetOK = 0, kRetError = 3 };
} // namespace AcRx

namespace AcadApp
{
/// Why an application is loaded.
enum LoadReasons {
    kOnProxyDetection = 0x01,
    kOnAutoCADStartup = 0x02,
    kOnCommandInvocation = 0x04,
    kOnLoadRequest = 0x08,
    kLoadDisabled = 0x10,
    kTransparentlyLoadable = 0x20,
    kOnIdleLoad = 0x40,
};
} // namespace AcadApp

/// Is told of loads. Names are those of the module's file, without folder.
class AcRxDLinkerReactor : public AcRxObject
{
public:
    virtual void rxAppWillBeLoaded(const wchar_t* /*moduleName*/) {}
    virtual void rxAppLoaded(const wchar_t* /*moduleName*/) {}
    virtual void rxAppLoadAborted(const wchar_t* /*moduleName*/) {}
    virtual void rxAppWillBeUnloaded(const wchar_t* /*moduleName*/) {}
    virtual void rxAppUnloaded(const wchar_t* /*moduleName*/) {}
    virtual void rxAppUnloadAborted(const wchar_t* /*moduleName*/) {}
};

/// Modules are known by their file's name, without regard to case or folder. What fails is said on the command line when
/// `printit` (unloading: always), and nothing stays behind.
class AcRxDynamicLinker : public AcRxObject
{
public:
    static AcRxClass* desc();
    static AcRxDynamicLinker* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    virtual void addReactor(AcRxDLinkerReactor* reactor) = 0;
    virtual void removeReactor(AcRxDLinkerReactor* reactor) = 0;

    /// Loads a module from a path, the folders of the support path, or where the system's loader looks. The loader runs
    /// DllMain of the module and of those it is linked to; its acrxGetApiVersion must be 0x180000; acrxEntryPoint gets
    /// kInitAppMsg, then kLoadDwgMsg in each open document. True also for a module that is loaded already. False when it
    /// cannot be loaded, has another version or no entry point, or answers kInitAppMsg with kRetError.
    virtual bool loadModule(const wchar_t* fileName, bool printit, bool asCmd = false) = 0;
    /// Sends kUnloadDwgMsg in each open document, then kUnloadAppMsg, and gives the module back to the loader. False for
    /// a module that is not loaded, is locked (all are until they call acrxUnlockApplication), or that answers
    /// kUnloadAppMsg with kRetError.
    virtual bool unloadModule(const wchar_t* fileName, bool asCmd = false) = 0;
    /// The same for a registered application, whose name is that of its module without extension.
    virtual bool loadApp(const wchar_t* appName, AcadApp::LoadReasons reason, bool printit, bool asCmd = false) = 0;
    virtual bool unloadApp(const wchar_t* appName, bool asCmd = false) = 0;

    /// `appId` is the packet of kInitAppMsg. False for an unknown one.
    virtual bool unlockApplication(void* appId) const = 0;
    virtual bool lockApplication(void* appId) const = 0;
    virtual bool isApplicationLocked(const wchar_t* fileName) const = 0;
    virtual bool isApplicationLocked(void* appId) const = 0;
    virtual bool registerAppMDIAware(void* appId) const = 0;
    virtual bool registerAppNotMDIAware(void* appId) const = 0;
    virtual bool isAppMDIAware(const wchar_t* fileName) const = 0;
};

#define acrxDynamicLinker AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER))

bool acrxLoadModule(const wchar_t* moduleName, bool printit, bool asCmd = false);
bool acrxUnloadModule(const wchar_t* moduleName, bool asCmd = false);
bool acrxLoadApp(const wchar_t* appName, bool asCmd = false);
bool acrxUnloadApp(const wchar_t* appName, bool asCmd = false);
/// The names of the loaded modules, as an AcDbVoidPtrArray of ACHAR*: the caller releases each name with acutDelString
/// and deletes the array.
void* acrxLoadedApps();
/// Whether a module of that file name is loaded.
bool acrxAppIsLoaded(const wchar_t* moduleName);
