#pragma once

#include "acedads.h"

#include <string>

/// Takes the characters that the command line would get, as long as it lives; one at a time.
class CommandLineSpy
{
public:
    CommandLineSpy() : m_window(acedGetAcadTextCmdLine()->m_hWnd)
    {
        s_typed.clear();
        s_before = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
            m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CommandLineSpy::procedure)));
    }
    ~CommandLineSpy() { SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(s_before)); }
    CommandLineSpy(const CommandLineSpy&) = delete;
    CommandLineSpy& operator=(const CommandLineSpy&) = delete;

    /// What came since the last call.
    std::wstring take()
    {
        std::wstring typed;
        typed.swap(s_typed);
        return typed;
    }
    /// What WM_CHAR is answered with.
    static constexpr LRESULT answer = 77;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message != WM_CHAR) return CallWindowProcW(s_before, window, message, wParam, lParam);
        s_typed += static_cast<wchar_t>(wParam);
        return answer;
    }

    HWND m_window;
    static inline WNDPROC s_before = nullptr;
    static inline std::wstring s_typed;
};
