#pragma once

/// Windows, messages, the keyboard, message boxes, the clipboard and rectangles, without a display.
///
/// Windows are objects of this process. They have a place, a size, a text, styles, children and a window
/// procedure, and nothing is drawn. A window has no frame: its client area is the whole window. One
/// desktop is shared by all threads: focus, active and foreground window exist once.
///
/// Window handles are never used twice in one process, so a stale handle is always recognised. Functions
/// fail with ERROR_INVALID_WINDOW_HANDLE when given a handle that is no window (unless said otherwise).

#include "windef.h"

#include "winuser_constants.h"

DECLARE_HANDLE(HRGN);

using WNDPROC = LRESULT(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);
using WNDENUMPROC = BOOL(CALLBACK*)(HWND, LPARAM);

struct WNDCLASSW {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
};

struct WNDCLASSEXW {
    UINT cbSize;
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
    HICON hIconSm;
};

struct CREATESTRUCTW {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
};

struct WINDOWPOS {
    HWND hwnd;
    HWND hwndInsertAfter;
    int x;
    int y;
    int cx;
    int cy;
    UINT flags;
};

struct STYLESTRUCT {
    DWORD styleOld;
    DWORD styleNew;
};

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};

using LPWNDCLASSW = WNDCLASSW*;
using LPWNDCLASSEXW = WNDCLASSEXW*;
using LPCREATESTRUCTW = CREATESTRUCTW*;
using LPWINDOWPOS = WINDOWPOS*;
using LPSTYLESTRUCT = STYLESTRUCT*;
using LPMSG = MSG*;
using tagMSG = MSG;
using WNDCLASS = WNDCLASSW;
using WNDCLASSEX = WNDCLASSEXW;
using CREATESTRUCT = CREATESTRUCTW;
using LPCREATESTRUCT = LPCREATESTRUCTW;

// --- Window classes -----------------------------------------------------------------------------------

/// Registers a window class under its name, without regard to case, for the module hInstance (null: the
/// program). Returns its atom, or 0: ERROR_CLASS_ALREADY_EXISTS when that module has it,
/// ERROR_INVALID_PARAMETER for a null name or procedure or a negative extra size.
ATOM WINAPI RegisterClassW(const WNDCLASSW* windowClass);

/// The same; cbSize must be sizeof(WNDCLASSEXW), else ERROR_INVALID_PARAMETER.
ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* windowClass);

/// Forgets a class, named by text or MAKEINTATOM. Fails with ERROR_CLASS_DOES_NOT_EXIST, or
/// ERROR_CLASS_HAS_WINDOWS while a window of it exists.
BOOL WINAPI UnregisterClassW(LPCWSTR className, HINSTANCE instance);

/// Copies the class name of a window, cut to `size` characters with the terminator. Returns the number of
/// characters copied without it, 0 on failure.
int WINAPI GetClassNameW(HWND window, LPWSTR buffer, int size);

// --- Windows ------------------------------------------------------------------------------------------

/// Makes a window and sends it WM_NCCREATE, WM_CREATE, WM_SIZE and WM_MOVE, then shows it when its style
/// has WS_VISIBLE. `menu` is the control id of a WS_CHILD window. Coordinates are those of the parent's
/// client area for a child, of the screen otherwise; CW_USEDEFAULT is 0 for a child and the whole screen
/// for others. The classes "Static", "Button" and "Edit" exist and hold a text, no more.
/// Returns null when WM_NCCREATE answers FALSE or WM_CREATE -1, and for ERROR_CANNOT_FIND_WND_CLASS,
/// ERROR_TLW_WITH_WSCHILD (a child without parent), ERROR_INVALID_WINDOW_HANDLE (the parent).
HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, int x, int y,
                            int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                            LPVOID parameter);

#define CreateWindowW(className, windowName, style, x, y, width, height, parent, menu, instance, parameter)  \
    CreateWindowExW(0, className, windowName, style, x, y, width, height, parent, menu, instance, parameter)

/// Destroys a window with its children and owned windows: WM_DESTROY goes to the window before its
/// children, WM_NCDESTROY after them. Its posted messages are dropped; focus and activation move on.
/// A window of another thread: ERROR_ACCESS_DENIED.
BOOL WINAPI DestroyWindow(HWND window);

/// What a window does with a message it does not treat itself: holds the text, closes on WM_CLOSE, turns
/// WM_WINDOWPOSCHANGED into WM_MOVE and WM_SIZE. 0 for every other message.
LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// Calls a window procedure, as a subclass does for what it leaves to the class.
LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);

BOOL WINAPI IsWindow(HWND window);

/// Reads or changes one value of a window: GWL_STYLE, GWL_EXSTYLE, GWLP_WNDPROC, GWLP_HINSTANCE,
/// GWLP_HWNDPARENT, GWLP_ID, GWLP_USERDATA, or at index >= 0 a value in the extra bytes of its class.
/// Both return the (previous) value; 0 with ERROR_INVALID_INDEX for any other index. As 0 can be a value,
/// callers clear the last error first. Style changes send WM_STYLECHANGING and WM_STYLECHANGED.
LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index);
LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
/// The same for 32-bit values; those wider than that (pointers) are refused with ERROR_INVALID_INDEX.
LONG WINAPI GetWindowLongW(HWND window, int index);
LONG WINAPI SetWindowLongW(HWND window, int index, LONG value);

/// The thread that made the window, and the process when asked. 0 for no window.
DWORD WINAPI GetWindowThreadProcessId(HWND window, LPDWORD process);

// --- The tree of windows ------------------------------------------------------------------------------

/// The window that all top-level windows lie in; it covers the screen.
HWND WINAPI GetDesktopWindow();

/// The parent of a child, the owner of a pop-up; null for other windows.
HWND WINAPI GetParent(HWND window);

/// Moves a window under another parent (null: the desktop); it keeps its coordinates. Returns the previous
/// parent, the desktop for a top-level window. Null with ERROR_INVALID_PARAMETER when the new parent is
/// the window or lies in it.
HWND WINAPI SetParent(HWND window, HWND newParent);

/// GA_PARENT (the desktop for a top-level window), GA_ROOT, GA_ROOTOWNER. Null for the desktop itself.
HWND WINAPI GetAncestor(HWND window, UINT flag);

/// True when `window` is a direct or indirect child of `parent`.
BOOL WINAPI IsChild(HWND parent, HWND window);

/// GW_CHILD, GW_OWNER, GW_HWNDFIRST, GW_HWNDLAST, GW_HWNDNEXT, GW_HWNDPREV in the order of depth, topmost
/// first. Null when there is none.
HWND WINAPI GetWindow(HWND window, UINT relation);

/// Calls `procedure` for every top-level window, or every direct and indirect child, until it returns
/// FALSE. Windows destroyed meanwhile are passed over. Returns FALSE when stopped.
BOOL WINAPI EnumWindows(WNDENUMPROC procedure, LPARAM parameter);
BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC procedure, LPARAM parameter);

/// The topmost top-level window with this class and this text, both without regard to case; null matches
/// any. Null with ERROR_FILE_NOT_FOUND when there is none.
HWND WINAPI FindWindowW(LPCWSTR className, LPCWSTR windowName);

/// The control id of a child window.
int WINAPI GetDlgCtrlID(HWND window);

/// The direct child with this control id, or null with ERROR_CONTROL_ID_NOT_FOUND.
HWND WINAPI GetDlgItem(HWND dialog, int id);

// --- Place and size -----------------------------------------------------------------------------------

/// The outer rectangle in screen coordinates.
BOOL WINAPI GetWindowRect(HWND window, LPRECT rect);

/// The client area in its own coordinates: left and top are 0. Empty for a minimised window.
BOOL WINAPI GetClientRect(HWND window, LPRECT rect);

/// Changes size, place, depth and visibility as the SWP_ flags allow. Sends WM_WINDOWPOSCHANGING, whose
/// receiver may change the values, and WM_WINDOWPOSCHANGED when anything changed or SWP_FRAMECHANGED is
/// given. Negative sizes count as 0. `after` is a sibling, HWND_TOP, HWND_BOTTOM, HWND_TOPMOST or
/// HWND_NOTOPMOST; another window is ERROR_INVALID_WINDOW_HANDLE and nothing changes.
BOOL WINAPI SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);

BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);

/// Changes visibility and the minimised or maximised state. Returns whether it was visible before.
BOOL WINAPI ShowWindow(HWND window, int command);

/// True when the window and all its parents are visible.
BOOL WINAPI IsWindowVisible(HWND window);
BOOL WINAPI IsIconic(HWND window);
BOOL WINAPI IsZoomed(HWND window);

BOOL WINAPI ScreenToClient(HWND window, LPPOINT point);
BOOL WINAPI ClientToScreen(HWND window, LPPOINT point);

/// Turns points from the client area of one window into that of another; null is the screen. Returns the
/// shift, x in the low word and y in the high one.
int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count);

/// Sizes of the screen and of icons and cursors in pixels. The screen is 1920 by 1080 unless a test
/// chooses otherwise. As windows have no frame here, the sizes of its parts are 0, as for an unknown index.
int WINAPI GetSystemMetrics(int index);

/// The place of the mouse, in screen coordinates; nothing but SetCursorPos moves it.
BOOL WINAPI GetCursorPos(LPPOINT point);
BOOL WINAPI SetCursorPos(int x, int y);

// --- State and text -----------------------------------------------------------------------------------

/// Lets a window take input or not; sends WM_CANCELMODE (before disabling) and WM_ENABLE on a change. A
/// window that is disabled loses the focus. Returns whether it was disabled before.
BOOL WINAPI EnableWindow(HWND window, BOOL enable);
BOOL WINAPI IsWindowEnabled(HWND window);

/// Gives the focus to a window (null: to none), activates its top-level window, sends WM_KILLFOCUS and
/// WM_SETFOCUS. Returns the window that had it. Null with ERROR_INVALID_PARAMETER for a disabled window.
HWND WINAPI SetFocus(HWND window);
HWND WINAPI GetFocus();

/// Makes a top-level window the active one: WM_ACTIVATE to both. Returns the one that was active.
HWND WINAPI SetActiveWindow(HWND window);
HWND WINAPI GetActiveWindow();

/// Activates a top-level window; FALSE when it is not a window or not visible.
BOOL WINAPI SetForegroundWindow(HWND window);
HWND WINAPI GetForegroundWindow();
BOOL WINAPI BringWindowToTop(HWND window);

/// The text of a window, by WM_SETTEXT, WM_GETTEXT and WM_GETTEXTLENGTH. GetWindowTextW cuts to `size`
/// characters with the terminator and returns the number of characters copied without it.
BOOL WINAPI SetWindowTextW(HWND window, LPCWSTR text);
int WINAPI GetWindowTextW(HWND window, LPWSTR buffer, int size);
int WINAPI GetWindowTextLengthW(HWND window);

// --- Messages -----------------------------------------------------------------------------------------

/// Calls the window procedure and returns its answer. HWND_BROADCAST sends to every top-level window and
/// returns TRUE. The procedure runs on the calling thread, also for a window of another one: no thread of
/// this host waits in a message loop.
LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// Puts a message into the queue of the thread that made the window and returns at once. A null window
/// posts to the calling thread; HWND_BROADCAST to every top-level window. A queue holds 10,000 messages:
/// ERROR_NOT_ENOUGH_QUOTA beyond that.
BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// Posts a message without a window to a thread of this process; ERROR_INVALID_THREAD_ID for no thread.
BOOL WINAPI PostThreadMessageW(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam);

/// Takes the first posted message of the calling thread that passes the filter. `window` null: any;
/// -1: only those without a window; else those of the window and its children. Both limits 0: any message.
/// PM_REMOVE takes it out. After all posted messages comes the WM_QUIT of PostQuitMessage, whatever the
/// filter. FALSE when there is none.
BOOL WINAPI PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT flags);

/// Takes the next message out of the queue: 0 when it is WM_QUIT, -1 for an invalid window, else 1.
/// There is no display and nobody to wait for: on an empty queue it does not wait but gives WM_QUIT with
/// exit code 0, so that a message loop that has done its work ends.
BOOL WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last);

/// Posts WM_CHAR for a WM_KEYDOWN of a key with a character (letters, digits, space, Enter, Tab, Esc,
/// Backspace; Shift and Caps Lock count for letters). Returns whether the message was a key message.
BOOL WINAPI TranslateMessage(const MSG* message);

/// Calls the window procedure of the message's window; 0 without one.
LRESULT WINAPI DispatchMessageW(const MSG* message);

/// Makes the calling thread's queue end with WM_QUIT of this exit code.
void WINAPI PostQuitMessage(int exitCode);

/// A message number from 0xC000 up that is the same for the same name, without regard to case. 0 with
/// ERROR_INVALID_PARAMETER for no name, ERROR_NOT_ENOUGH_MEMORY when no number is left.
UINT WINAPI RegisterWindowMessageW(LPCWSTR name);

// --- Clipboard ----------------------------------------------------------------------------------------
// One clipboard for this process; nothing goes to or comes from other programs. CF_TEXT and CF_OEMTEXT are
// bytes in the ANSI code page, CF_UNICODETEXT is UTF-16 in uint16_t units (not the platform's wchar_t); each
// ends with a null. Where one of the three is there, the others are made from it when asked for.
// Functions that need the clipboard open fail with ERROR_CLIPBOARD_NOT_OPEN when this thread has not opened
// it.

/// Opens the clipboard for a window, or (null) for the thread. ERROR_ACCESS_DENIED while another window or
/// thread has it open.
BOOL WINAPI OpenClipboard(HWND owner);
BOOL WINAPI CloseClipboard();

/// Frees what the clipboard holds, sends WM_DESTROYCLIPBOARD to its owner, and makes the window that has it
/// open the owner. The clipboard must be open.
BOOL WINAPI EmptyClipboard();

/// Puts a memory block (GlobalAlloc) on the clipboard in place of older data of that format; the clipboard
/// owns it from then on. Null: the owner puts it there when WM_RENDERFORMAT asks for it. Returns the handle;
/// null on failure, and the caller still owns the block: ERROR_INVALID_HANDLE, ERROR_INVALID_PARAMETER for
/// format 0. The clipboard must be open, except while WM_RENDERFORMAT is answered.
HANDLE WINAPI SetClipboardData(UINT format, HANDLE data);

/// The block of a format, made from another text format if need be. It stays the clipboard's: it is valid
/// until the clipboard is emptied or the format replaced. Null when there is none.
HANDLE WINAPI GetClipboardData(UINT format);

/// Whether data of a format can be had; the clipboard need not be open.
BOOL WINAPI IsClipboardFormatAvailable(UINT format);

/// The format after `format` in the order of their setting, those that can be made last; 0 begins. 0 at the
/// end, with ERROR_SUCCESS, and on failure. The clipboard must be open.
UINT WINAPI EnumClipboardFormats(UINT format);
int WINAPI CountClipboardFormats();

/// The number of a format's name, from 0xC000 up, the same for the same name without regard to case.
UINT WINAPI RegisterClipboardFormatW(LPCWSTR name);
/// Copies the name of a registered format, cut to `size` with its terminator; returns its length. 0 with
/// ERROR_INVALID_PARAMETER for a format without name.
int WINAPI GetClipboardFormatNameW(UINT format, LPWSTR buffer, int size);

HWND WINAPI GetClipboardOwner();
HWND WINAPI GetOpenClipboardWindow();

/// Counts the changes of the clipboard.
DWORD WINAPI GetClipboardSequenceNumber();

// --- Keyboard -----------------------------------------------------------------------------------------

/// Whether a key is down now (0x8000) and was pressed since the last call (0x0001). Only a test presses
/// keys: see headless::setKeyDown. VK_SHIFT, VK_CONTROL and VK_MENU stand for their left and right keys.
SHORT WINAPI GetAsyncKeyState(int key);

/// Whether a key is down (0x8000) and has been pressed an odd number of times (0x0001).
SHORT WINAPI GetKeyState(int key);

// --- Message boxes ------------------------------------------------------------------------------------

/// Prints the box to standard output, records it for tests, and returns the id of its default button
/// (MB_DEFBUTTONn; the first when there is no such button) or the answer a test has queued. Never waits.
/// 0 with ERROR_INVALID_MSGBOX_STYLE for an unknown set of buttons, and for an owner that is no window.
int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

/// Makes no sound here.
BOOL WINAPI MessageBeep(UINT type);

// --- Rectangles ---------------------------------------------------------------------------------------
// A rectangle holds its left and top edges and not its right and bottom ones; it is empty when its width
// or height is not positive. A null pointer is FALSE.

BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom);
BOOL WINAPI SetRectEmpty(LPRECT rect);
BOOL WINAPI CopyRect(LPRECT target, const RECT* source);
BOOL WINAPI IsRectEmpty(const RECT* rect);
BOOL WINAPI EqualRect(const RECT* first, const RECT* second);
BOOL WINAPI PtInRect(const RECT* rect, POINT point);
BOOL WINAPI OffsetRect(LPRECT rect, int dx, int dy);
BOOL WINAPI InflateRect(LPRECT rect, int dx, int dy);
/// The common part, empty (all 0) and FALSE when there is none.
BOOL WINAPI IntersectRect(LPRECT target, const RECT* first, const RECT* second);
/// The smallest rectangle around both, leaving empty ones out; FALSE when both are empty.
BOOL WINAPI UnionRect(LPRECT target, const RECT* first, const RECT* second);
/// The first less the second when what is left is a rectangle, else the first. FALSE when nothing is left.
BOOL WINAPI SubtractRect(LPRECT target, const RECT* first, const RECT* second);

// --- Characters ---------------------------------------------------------------------------------------

/// Changes the case of a terminated text in place and returns it. A "pointer" up to 0xFFFF is a single
/// character, and so is the result.
LPWSTR WINAPI CharUpperW(LPWSTR text);
LPWSTR WINAPI CharLowerW(LPWSTR text);
/// Changes the case of `length` characters in place and returns their number.
DWORD WINAPI CharUpperBuffW(LPWSTR text, DWORD length);
DWORD WINAPI CharLowerBuffW(LPWSTR text, DWORD length);

#define RegisterClass RegisterClassW
#define RegisterClassEx RegisterClassExW
#define UnregisterClass UnregisterClassW
#define GetClassName GetClassNameW
#define CreateWindowEx CreateWindowExW
#define CreateWindow CreateWindowW
#define DefWindowProc DefWindowProcW
#define CallWindowProc CallWindowProcW
#define GetWindowLongPtr GetWindowLongPtrW
#define SetWindowLongPtr SetWindowLongPtrW
#define GetWindowLong GetWindowLongW
#define SetWindowLong SetWindowLongW
#define FindWindow FindWindowW
#define SetWindowText SetWindowTextW
#define GetWindowText GetWindowTextW
#define GetWindowTextLength GetWindowTextLengthW
#define SendMessage SendMessageW
#define PostMessage PostMessageW
#define PostThreadMessage PostThreadMessageW
#define PeekMessage PeekMessageW
#define GetMessage GetMessageW
#define DispatchMessage DispatchMessageW
#define RegisterWindowMessage RegisterWindowMessageW
#define RegisterClipboardFormat RegisterClipboardFormatW
#define GetClipboardFormatName GetClipboardFormatNameW
#define MessageBox MessageBoxW
#define CharUpper CharUpperW
#define CharLower CharLowerW
#define CharUpperBuff CharUpperBuffW
#define CharLowerBuff CharLowerBuffW
