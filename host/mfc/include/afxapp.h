#pragma once

/// The application object, message boxes, and where the program's instance and resources are.

#include "afxobject.h"
#include "atlstr.h"

#include <oleauto.h>

class CWnd;

/// Base of what takes commands. The host has no message maps: a window treats messages in WindowProc.
class CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)

public:
    /// The automation object of this one, with a reference more when `addRef`; null when it has none.
    virtual LPDISPATCH GetIDispatch(BOOL /*addRef*/) { return nullptr; }
};

class CWinThread : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinThread)

public:
    virtual BOOL InitInstance() { return FALSE; }
    virtual int ExitInstance() { return 0; }
    virtual CWnd* GetMainWnd() { return m_pMainWnd; }

    CWnd* m_pMainWnd = nullptr;
};

/// The application. A program has at most one; it is AfxGetApp() from construction to destruction.
class CWinApp : public CWinThread
{
    DECLARE_DYNAMIC(CWinApp)

public:
    explicit CWinApp(LPCTSTR appName = nullptr);
    ~CWinApp() override;

    /// Shows a message box for AfxMessageBox: the caption is the application's name, and a box of OK,
    /// OK/Cancel, Yes/No or Yes/No/Cancel without an icon gets the exclamation mark.
    virtual int DoMessageBox(LPCTSTR prompt, UINT type, UINT helpId);

    LPCTSTR m_pszAppName; ///< of the caller, who keeps it
    HINSTANCE m_hInstance;
};

/// What MFC knows of the running program.
struct AFX_MODULE_STATE {
    CWinApp* m_pCurrentWinApp;
    HINSTANCE m_hCurrentInstanceHandle;
    HINSTANCE m_hCurrentResourceHandle;
};
AFX_MODULE_STATE* AFXAPI AfxGetModuleState();

/// The application object; null in a program that has none.
CWinApp* AFXAPI AfxGetApp();
/// The application's main window, or null.
CWnd* AFXAPI AfxGetMainWnd();
/// The application's name. Without an application object it is "AutoCAD", whose modules these are.
LPCTSTR AFXAPI AfxGetAppName();
HINSTANCE AFXAPI AfxGetInstanceHandle();
/// Where resources are looked for first: the program, unless set otherwise.
HINSTANCE AFXAPI AfxGetResourceHandle();
void AFXAPI AfxSetResourceHandle(HINSTANCE instance);

/// Shows a message box over the main window, see CWinApp::DoMessageBox; returns the id of the button.
int AFXAPI AfxMessageBox(LPCTSTR text, UINT type = MB_OK, UINT helpId = 0);
/// The same for a string resource. The host has no resources: the box shows "#" and the number.
int AFXAPI AfxMessageBox(UINT promptId, UINT type = MB_OK, UINT helpId = static_cast<UINT>(-1));
