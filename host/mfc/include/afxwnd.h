#pragma once

/// CWnd: a window and the object that treats its messages.

#include "afxapp.h"
#include "atltypes.h"

/// A window. An object is attached to at most one window and a window to at most one permanent object.
///
/// A function that gives a CWnd for a handle makes a temporary object when there is no permanent one. It
/// lives until DeleteTempMap, or until a permanent object takes the window.
///
/// Calls on an object without a window do what Windows does with a null handle: they fail.
class CWnd : public CCmdTarget
{
    DECLARE_DYNCREATE(CWnd)

public:
    CWnd() = default;
    /// Destroys the window.
    ~CWnd() override;

    HWND m_hWnd = nullptr;

    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }
    BOOL operator==(const CWnd& other) const { return m_hWnd == other.m_hWnd; }
    BOOL operator!=(const CWnd& other) const { return m_hWnd != other.m_hWnd; }
    /// The object of a window, made for the purpose if need be; null for null.
    static CWnd* PASCAL FromHandle(HWND window);
    /// The permanent object of a window, or null.
    static CWnd* PASCAL FromHandlePermanent(HWND window);
    /// Deletes the temporary objects.
    static void PASCAL DeleteTempMap();

    /// Becomes the object of a window, whose messages it does not see. FALSE, and no change, for null, and
    /// when either of them is attached already.
    BOOL Attach(HWND window);
    /// Lets go of the window, which lives on, and returns it.
    HWND Detach();
    /// As Attach, and the messages go through WindowProc from now on.
    BOOL SubclassWindow(HWND window);
    HWND UnsubclassWindow();

    /// Makes a window and attaches to it. With a null class name the window is of MFC's own class, and
    /// WindowProc sees every message; else it sees those that come after creation. FALSE when there is no
    /// such class, PreCreateWindow says no, or creation fails.
    virtual BOOL CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, int x, int y,
                          int width, int height, HWND parent, HMENU idOrMenu, LPVOID parameter = nullptr);
    BOOL CreateEx(DWORD exStyle, LPCTSTR className, LPCTSTR windowName, DWORD style, const RECT& rect,
                  CWnd* parent, UINT id, LPVOID parameter = nullptr);
    /// Makes a child window.
    virtual BOOL Create(LPCTSTR className, LPCTSTR windowName, DWORD style, const RECT& rect, CWnd* parent,
                        UINT id, void* context = nullptr);
    virtual BOOL DestroyWindow();

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    void SetWindowText(LPCTSTR text);
    int GetWindowText(LPTSTR text, int maximum) const;
    void GetWindowText(CString& text) const;
    int GetWindowTextLength() const;

    void GetWindowRect(LPRECT rect) const;
    void GetClientRect(LPRECT rect) const;
    BOOL SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags);
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(LPCRECT rect, BOOL repaint = TRUE);
    void ScreenToClient(LPPOINT point) const;
    void ScreenToClient(LPRECT rect) const;
    void ClientToScreen(LPPOINT point) const;
    void ClientToScreen(LPRECT rect) const;

    BOOL ShowWindow(int command);
    BOOL IsWindowVisible() const;
    BOOL EnableWindow(BOOL enable = TRUE);
    BOOL IsWindowEnabled() const;
    BOOL IsIconic() const;
    BOOL IsZoomed() const;
    /// These give the window that had the focus or was active before.
    CWnd* SetFocus();
    CWnd* SetActiveWindow();
    static CWnd* PASCAL GetFocus();
    static CWnd* PASCAL GetActiveWindow();
    static CWnd* PASCAL GetForegroundWindow();
    static CWnd* PASCAL GetDesktopWindow();
    static CWnd* PASCAL FindWindow(LPCTSTR className, LPCTSTR windowName);
    BOOL SetForegroundWindow();
    void BringWindowToTop();

    CWnd* GetParent() const;
    CWnd* SetParent(CWnd* newParent);
    CWnd* GetWindow(UINT relation) const;
    BOOL IsChild(const CWnd* window) const;
    CWnd* GetDlgItem(int id) const;
    void GetDlgItem(int id, HWND* window) const;
    int GetDlgCtrlID() const;
    int SetDlgCtrlID(int id);
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT flags = 0);

    /// The caption is the application's name when it is null.
    int MessageBox(LPCTSTR text, LPCTSTR caption = nullptr, UINT type = MB_OK);

protected:
    /// May change what CreateEx passes on. FALSE stops the creation.
    virtual BOOL PreCreateWindow(CREATESTRUCT& createStruct);
    /// Treats a message; what it does not treat goes to DefWindowProc, as this base does with all.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// What the window's class does with the message.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// Comes after the window is gone; an object made with new may delete itself here.
    virtual void PostNcDestroy() {}

private:
    friend LRESULT CALLBACK AfxWndProc(HWND, UINT, WPARAM, LPARAM);
    LRESULT dispatch(UINT message, WPARAM wParam, LPARAM lParam);

    WNDPROC m_superProcedure = nullptr; ///< of the window's class, when it is not MFC's
};

/// The window procedure of MFC's windows.
LRESULT CALLBACK AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// The names of the windows of a multiple-document program; to the host they are plain windows.
class CFrameWnd : public CWnd
{
    DECLARE_DYNCREATE(CFrameWnd)
};
class CMDIFrameWnd : public CFrameWnd
{
    DECLARE_DYNCREATE(CMDIFrameWnd)
};
class CMDIChildWnd : public CFrameWnd
{
    DECLARE_DYNCREATE(CMDIChildWnd)
};
class CView : public CWnd
{
    DECLARE_DYNCREATE(CView)
};
