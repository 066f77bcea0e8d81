#include "afxwin.h"

#include <string>

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)
IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)
IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

namespace
{
constexpr UINT iconMask = 0xf0;
constexpr UINT buttonsMask = 0x0f;

UINT withIcon(UINT type)
{
    if (type & iconMask) return type;
    switch (type & buttonsMask) {
    case MB_OK:
    case MB_OKCANCEL:
    case MB_YESNO:
    case MB_YESNOCANCEL:
        return type | MB_ICONEXCLAMATION;
    default:
        return type;
    }
}

int showBox(LPCTSTR prompt, UINT type)
{
    const CWnd* owner = AfxGetMainWnd();
    return MessageBoxW(owner ? owner->m_hWnd : nullptr, prompt, AfxGetAppName(), withIcon(type));
}
} // namespace

CWinApp::CWinApp(LPCTSTR appName) : m_pszAppName(appName), m_hInstance(AfxGetInstanceHandle())
{
    ASSERT(AfxGetModuleState()->m_pCurrentWinApp == nullptr);
    AfxGetModuleState()->m_pCurrentWinApp = this;
}

CWinApp::~CWinApp()
{
    if (AfxGetModuleState()->m_pCurrentWinApp == this) AfxGetModuleState()->m_pCurrentWinApp = nullptr;
}

int CWinApp::DoMessageBox(LPCTSTR prompt, UINT type, UINT)
{
    return showBox(prompt, type);
}

AFX_MODULE_STATE* AFXAPI AfxGetModuleState()
{
    static AFX_MODULE_STATE state{nullptr, GetModuleHandleW(nullptr), nullptr};
    return &state;
}

CWinApp* AFXAPI AfxGetApp()
{
    return AfxGetModuleState()->m_pCurrentWinApp;
}

CWnd* AFXAPI AfxGetMainWnd()
{
    return AfxGetApp() ? AfxGetApp()->GetMainWnd() : nullptr;
}

LPCTSTR AFXAPI AfxGetAppName()
{
    const CWinApp* app = AfxGetApp();
    return app && app->m_pszAppName ? app->m_pszAppName : L"AutoCAD";
}

HINSTANCE AFXAPI AfxGetInstanceHandle()
{
    return AfxGetModuleState()->m_hCurrentInstanceHandle;
}

HINSTANCE AFXAPI AfxGetResourceHandle()
{
    const HINSTANCE set = AfxGetModuleState()->m_hCurrentResourceHandle;
    return set ? set : AfxGetInstanceHandle();
}

void AFXAPI AfxSetResourceHandle(HINSTANCE instance)
{
    AfxGetModuleState()->m_hCurrentResourceHandle = instance;
}

int AFXAPI AfxMessageBox(LPCTSTR text, UINT type, UINT helpId)
{
    CWinApp* app = AfxGetApp();
    return app ? app->DoMessageBox(text, type, helpId) : showBox(text, type);
}

int AFXAPI AfxMessageBox(UINT promptId, UINT type, UINT helpId)
{
    const std::wstring text = L"#" + std::to_wstring(promptId);
    return AfxMessageBox(text.c_str(), type, helpId);
}
