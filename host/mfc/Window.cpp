#include "afxwin.h"
#include "WindowMap.h"

#include <utility>

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)
IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)
IMPLEMENT_DYNCREATE(CMDIFrameWnd, CFrameWnd)
IMPLEMENT_DYNCREATE(CMDIChildWnd, CFrameWnd)
IMPLEMENT_DYNCREATE(CView, CWnd)

namespace
{
constexpr LPCWSTR ownClass = L"AfxWnd";

/// The object whose window is being made: it gets the first message of MFC's own class.
thread_local CWnd* beingMade = nullptr;

bool registerOwnClass()
{
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = AfxWndProc;
    windowClass.hInstance = AfxGetInstanceHandle();
    windowClass.lpszClassName = ownClass;
    return RegisterClassW(&windowClass) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

WNDPROC procedureOf(HWND window)
{
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
}

void setProcedure(HWND window, WNDPROC procedure)
{
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}
} // namespace

CWnd::~CWnd()
{
    if (m_hWnd) CWnd::DestroyWindow();
}

CWnd* PASCAL CWnd::FromHandle(HWND window)
{
    if (!window) return nullptr;
    return mfc::anyObject(window, [](HWND handle) {
        CWnd* made = new CWnd;
        made->m_hWnd = handle;
        return made;
    });
}

CWnd* PASCAL CWnd::FromHandlePermanent(HWND window)
{
    return mfc::permanentObject(window);
}

void PASCAL CWnd::DeleteTempMap()
{
    mfc::deleteTemporaries();
}

BOOL CWnd::Attach(HWND window)
{
    if (!window || m_hWnd || !mfc::enterPermanent(window, this)) return FALSE;
    m_hWnd = window;
    return TRUE;
}

HWND CWnd::Detach()
{
    const HWND window = m_hWnd;
    if (window) mfc::removePermanent(window, this);
    m_hWnd = nullptr;
    m_superProcedure = nullptr;
    return window;
}

BOOL CWnd::SubclassWindow(HWND window)
{
    if (!IsWindow(window) || !Attach(window)) return FALSE;
    const WNDPROC procedure = procedureOf(window);
    if (procedure == AfxWndProc) return TRUE;
    m_superProcedure = procedure;
    setProcedure(window, AfxWndProc);
    return TRUE;
}

HWND CWnd::UnsubclassWindow()
{
    if (m_hWnd && m_superProcedure) setProcedure(m_hWnd, m_superProcedure);
    return Detach();
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT&)
{
    return TRUE;
}

BOOL CWnd::CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, int x, int y,
                    int width, int height, HWND parent, HMENU idOrMenu, LPVOID parameter)
{
    CREATESTRUCT asked{parameter, AfxGetInstanceHandle(),   idOrMenu,   parent,    height, width, y,
                       x,         static_cast<LONG>(style), windowName, className, exStyle};
    if (m_hWnd || !PreCreateWindow(asked)) {
        PostNcDestroy();
        return FALSE;
    }
    const bool isOwn = !asked.lpszClass;
    if (isOwn && !registerOwnClass()) return FALSE;
    CWnd* const outer = std::exchange(beingMade, isOwn ? this : nullptr);
    const HWND window = CreateWindowExW(asked.dwExStyle, isOwn ? ownClass : asked.lpszClass, asked.lpszName,
                                        static_cast<DWORD>(asked.style), asked.x, asked.y, asked.cx, asked.cy,
                                        asked.hwndParent, asked.hMenu, asked.hInstance, asked.lpCreateParams);
    beingMade = outer;
    return window && (isOwn || SubclassWindow(window));
}

BOOL CWnd::CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, const RECT& rect,
                    CWnd* parent, UINT id, LPVOID parameter)
{
    return CreateEx(exStyle, className, windowName, style, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, parent ? parent->m_hWnd : nullptr,
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), parameter);
}

BOOL CWnd::Create(LPCTSTR className, LPCTSTR windowName, DWORD style, const RECT& rect, CWnd* parent, UINT id,
                  void* context)
{
    return CreateEx(0, className, windowName, style | WS_CHILD, rect, parent, id, context);
}

BOOL CWnd::DestroyWindow()
{
    const HWND window = m_hWnd;
    if (!window) return FALSE;
    if (mfc::permanentObject(window) != this) return ::DestroyWindow(window);
    // Whether WM_NCDESTROY reaches this object, and with it the end of its life, is known beforehand.
    const bool isTold = procedureOf(window) == AfxWndProc;
    if (isTold) return ::DestroyWindow(window);
    const BOOL destroyed = ::DestroyWindow(window);
    Detach();
    return destroyed;
}

LRESULT CALLBACK AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    CWnd* object = CWnd::FromHandlePermanent(window);
    if (!object && beingMade) {
        object = std::exchange(beingMade, nullptr);
        object->Attach(window);
    }
    return object ? object->dispatch(message, wParam, lParam)
                  : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CWnd::dispatch(UINT message, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = WindowProc(message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        Detach();
        // The object may be gone after this.
        PostNcDestroy();
    }
    return result;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return m_superProcedure ? CallWindowProcW(m_superProcedure, m_hWnd, message, wParam, lParam)
                            : ::DefWindowProcW(m_hWnd, message, wParam, lParam);
}
