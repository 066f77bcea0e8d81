#include "afxwin.h"

// Members of CWnd that hand on to the Windows function of the same name.

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return ::SendMessageW(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const
{
    // A null window would post to the thread: no window, no message.
    if (m_hWnd) return ::PostMessageW(m_hWnd, message, wParam, lParam);
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
}

void CWnd::SetWindowText(LPCTSTR text)
{
    ::SetWindowTextW(m_hWnd, text);
}

int CWnd::GetWindowText(LPTSTR text, int maximum) const
{
    return ::GetWindowTextW(m_hWnd, text, maximum);
}

void CWnd::GetWindowText(CString& text) const
{
    const int length = GetWindowTextLength();
    const int copied = ::GetWindowTextW(m_hWnd, text.GetBuffer(length + 1), length + 1);
    text.ReleaseBuffer(copied);
}

int CWnd::GetWindowTextLength() const
{
    return ::GetWindowTextLengthW(m_hWnd);
}

void CWnd::GetWindowRect(LPRECT rect) const
{
    ::GetWindowRect(m_hWnd, rect);
}

void CWnd::GetClientRect(LPRECT rect) const
{
    ::GetClientRect(m_hWnd, rect);
}

BOOL CWnd::SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags)
{
    return ::SetWindowPos(m_hWnd, after ? after->m_hWnd : nullptr, x, y, width, height, flags);
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint)
{
    ::MoveWindow(m_hWnd, x, y, width, height, repaint);
}

void CWnd::MoveWindow(LPCRECT rect, BOOL repaint)
{
    MoveWindow(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, repaint);
}

void CWnd::ScreenToClient(LPPOINT point) const
{
    ::ScreenToClient(m_hWnd, point);
}

void CWnd::ScreenToClient(LPRECT rect) const
{
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<LPPOINT>(rect), 2);
}

void CWnd::ClientToScreen(LPPOINT point) const
{
    ::ClientToScreen(m_hWnd, point);
}

void CWnd::ClientToScreen(LPRECT rect) const
{
    ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<LPPOINT>(rect), 2);
}

BOOL CWnd::ShowWindow(int command)
{
    return ::ShowWindow(m_hWnd, command);
}

BOOL CWnd::IsWindowVisible() const
{
    return ::IsWindowVisible(m_hWnd);
}

BOOL CWnd::EnableWindow(BOOL enable)
{
    return ::EnableWindow(m_hWnd, enable);
}

BOOL CWnd::IsWindowEnabled() const
{
    return ::IsWindowEnabled(m_hWnd);
}

BOOL CWnd::IsIconic() const
{
    return ::IsIconic(m_hWnd);
}

BOOL CWnd::IsZoomed() const
{
    return ::IsZoomed(m_hWnd);
}

CWnd* CWnd::SetFocus()
{
    return m_hWnd ? FromHandle(::SetFocus(m_hWnd)) : nullptr;
}

CWnd* CWnd::SetActiveWindow()
{
    return FromHandle(::SetActiveWindow(m_hWnd));
}

CWnd* PASCAL CWnd::GetFocus()
{
    return FromHandle(::GetFocus());
}

CWnd* PASCAL CWnd::GetActiveWindow()
{
    return FromHandle(::GetActiveWindow());
}

CWnd* PASCAL CWnd::GetForegroundWindow()
{
    return FromHandle(::GetForegroundWindow());
}

CWnd* PASCAL CWnd::GetDesktopWindow()
{
    return FromHandle(::GetDesktopWindow());
}

CWnd* PASCAL CWnd::FindWindow(LPCTSTR className, LPCTSTR windowName)
{
    return FromHandle(::FindWindowW(className, windowName));
}

BOOL CWnd::SetForegroundWindow()
{
    return ::SetForegroundWindow(m_hWnd);
}

void CWnd::BringWindowToTop()
{
    ::BringWindowToTop(m_hWnd);
}

CWnd* CWnd::GetParent() const
{
    return FromHandle(::GetParent(m_hWnd));
}

CWnd* CWnd::SetParent(CWnd* newParent)
{
    return FromHandle(::SetParent(m_hWnd, newParent ? newParent->m_hWnd : nullptr));
}

CWnd* CWnd::GetWindow(UINT relation) const
{
    return FromHandle(::GetWindow(m_hWnd, relation));
}

BOOL CWnd::IsChild(const CWnd* window) const
{
    return window && ::IsChild(m_hWnd, window->m_hWnd);
}

CWnd* CWnd::GetDlgItem(int id) const
{
    return FromHandle(::GetDlgItem(m_hWnd, id));
}

void CWnd::GetDlgItem(int id, HWND* window) const
{
    *window = ::GetDlgItem(m_hWnd, id);
}

int CWnd::GetDlgCtrlID() const
{
    return ::GetDlgCtrlID(m_hWnd);
}

int CWnd::SetDlgCtrlID(int id)
{
    return static_cast<int>(::SetWindowLongW(m_hWnd, GWL_ID, id));
}

DWORD CWnd::GetStyle() const
{
    return static_cast<DWORD>(::GetWindowLongW(m_hWnd, GWL_STYLE));
}

DWORD CWnd::GetExStyle() const
{
    return static_cast<DWORD>(::GetWindowLongW(m_hWnd, GWL_EXSTYLE));
}

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT flags)
{
    const DWORD old = GetStyle();
    const DWORD changed = (old & ~remove) | add;
    if (old == changed) return FALSE;
    ::SetWindowLongW(m_hWnd, GWL_STYLE, static_cast<LONG>(changed));
    if (flags)
        ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0,
                       SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | flags);
    return TRUE;
}

int CWnd::MessageBox(LPCTSTR text, LPCTSTR caption, UINT type)
{
    return ::MessageBoxW(m_hWnd, text, caption ? caption : AfxGetAppName(), type);
}
