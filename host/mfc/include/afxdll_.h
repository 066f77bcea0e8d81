#pragma once

/// Extension modules: modules that share the MFC of the program that loads them.

#include "afxobject.h"

/// The record of an extension module; static and zero at load.
struct AFX_EXTENSION_MODULE {
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource; ///< where its resources are: the module
    CRuntimeClass* pFirstSharedClass;
};

/// Fills in the record when the module is attached; a second call changes nothing. FALSE without a module
/// handle.
BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module);
/// Ends the module's part in MFC when it is detached: deletes its CDynLinkLibrary objects.
void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all = FALSE);

/// A module in the chain in which MFC looks for resources. Made with new after AfxInitExtensionModule and
/// deleted by AfxTermExtensionModule.
class CDynLinkLibrary : public CObject
{
    DECLARE_DYNAMIC(CDynLinkLibrary)

public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system = FALSE);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;
    HMODULE m_hResource;
    BOOL m_bSystem;
};

/// The modules of the chain, the one that joined last first; null behind the last.
/// @param after  the module whose successor is wanted, null for the first
CDynLinkLibrary* AFXAPI AfxNextDynLinkLibrary(const CDynLinkLibrary* after);
