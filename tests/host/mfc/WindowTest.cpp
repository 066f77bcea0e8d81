#include "Headless.h"

#include <afxdllx.h>
#include <afxext.h>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace
{
/// Records its messages and doubles the answer to WM_USER.
class Recorder : public CWnd
{
public:
    std::vector<UINT> messages;
    int destroyed = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        messages.push_back(message);
        return message == WM_USER ? static_cast<LRESULT>(2 * wParam)
                                  : CWnd::WindowProc(message, wParam, lParam);
    }
    void PostNcDestroy() override { ++destroyed; }
};

constexpr CRect place(10, 20, 110, 70);
} // namespace

TEST(Window, OwnWindowSeesEveryMessageFromCreationToTheEnd)
{
    Recorder window;
    ASSERT_TRUE(window.CreateEx(0, nullptr, L"frame", WS_POPUP, place, nullptr, 0));
    EXPECT_EQ(window.messages.front(), static_cast<UINT>(WM_NCCREATE));
    EXPECT_EQ(CWnd::FromHandlePermanent(window), &window);
    EXPECT_EQ(window.SendMessage(WM_USER, 21), 42);
    const HWND handle = window;
    EXPECT_TRUE(window.DestroyWindow());
    EXPECT_EQ(window.messages.back(), static_cast<UINT>(WM_NCDESTROY));
    EXPECT_EQ(window.destroyed, 1);
    EXPECT_EQ(window.GetSafeHwnd(), nullptr);
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_FALSE(window.DestroyWindow());
}

TEST(Window, SubclassedControlKeepsWhatItsClassDoes)
{
    Recorder frame, edit;
    ASSERT_TRUE(frame.CreateEx(0, nullptr, L"", WS_POPUP | WS_VISIBLE, place, nullptr, 0));
    ASSERT_TRUE(edit.Create(L"Edit", L"old", WS_VISIBLE, CRect(1, 2, 31, 12), &frame, 7));
    edit.SetWindowText(L"\u4e2d\u6587");
    CString text;
    edit.GetWindowText(text);
    EXPECT_EQ(text, L"\u4e2d\u6587");
    EXPECT_EQ(frame.GetDlgItem(7), &edit);
    EXPECT_EQ(edit.SetDlgCtrlID(8), 7);
    EXPECT_EQ(edit.GetDlgCtrlID(), 8);
    EXPECT_EQ(edit.GetParent(), &frame);
    CRect rect;
    edit.GetWindowRect(rect);
    EXPECT_EQ(rect, CRect(11, 22, 41, 32));
    frame.ScreenToClient(&rect);
    EXPECT_EQ(rect, CRect(1, 2, 31, 12));
    frame.DestroyWindow();
    EXPECT_EQ(edit.m_hWnd, nullptr);
    EXPECT_EQ(edit.destroyed, 1);
}

TEST(Window, UnsubclassedWindowLivesOn)
{
    Recorder first;
    ASSERT_TRUE(first.CreateEx(0, L"Static", L"x", WS_POPUP, place, nullptr, 0));
    const HWND handle = first.UnsubclassWindow();
    EXPECT_TRUE(IsWindow(handle));
    first.messages.clear();
    SendMessage(handle, WM_USER, 1, 0);
    EXPECT_TRUE(first.messages.empty());
    CWnd second;
    EXPECT_TRUE(second.Attach(handle));
    EXPECT_FALSE(first.Attach(handle));
    EXPECT_EQ(first.m_hWnd, nullptr);
    second.DestroyWindow();
    EXPECT_EQ(second.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
}

TEST(Window, TemporaryObjectDoesNotOwnTheWindow)
{
    const HWND handle =
        CreateWindowExW(0, L"Static", L"t", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    CWnd* temporary = CWnd::FromHandle(handle);
    EXPECT_EQ(temporary->m_hWnd, handle);
    EXPECT_EQ(CWnd::FromHandle(handle), temporary);
    EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
    CWnd::DeleteTempMap();
    EXPECT_TRUE(IsWindow(handle));
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
    DestroyWindow(handle);
}

TEST(Window, DestructorDestroysTheWindow)
{
    HWND handle;
    {
        CFrameWnd frame;
        ASSERT_TRUE(frame.CreateEx(0, nullptr, L"", WS_POPUP, place, nullptr, 0));
        handle = frame;
        EXPECT_TRUE(IsWindow(handle));
    }
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
}

TEST(Window, CallsWithoutAWindowFail)
{
    CWnd window;
    EXPECT_FALSE(window.Attach(nullptr));
    EXPECT_FALSE(window.PostMessage(WM_USER));
    EXPECT_FALSE(window.CreateEx(0, L"NoSuchClass", L"", WS_POPUP, place, nullptr, 0));
    CString text = L"x";
    window.GetWindowText(text);
    EXPECT_EQ(text, L"");
}

TEST(MessageBoxes, GoOverTheMainWindowUnderTheApplicationsName)
{
    headless::takeMessageBoxes();
    EXPECT_EQ(AfxMessageBox(L"no application"), IDOK);
    CWinApp app(L"Drafting");
    CWnd frame;
    ASSERT_TRUE(frame.CreateEx(0, nullptr, L"", WS_POPUP, place, nullptr, 0));
    app.m_pMainWnd = &frame;
    headless::answerNextMessageBox(IDNO);
    EXPECT_EQ(AfxMessageBox(L"sure?", MB_YESNO | MB_ICONQUESTION), IDNO);
    AfxMessageBox(130u, MB_RETRYCANCEL);
    CFileException(CFileException::fileNotFound, 2, L"a.lin").ReportError();
    const auto boxes = headless::takeMessageBoxes();
    ASSERT_EQ(boxes.size(), 4u);
    EXPECT_EQ(boxes[0].caption, L"AutoCAD");
    EXPECT_EQ(boxes[0].owner, nullptr);
    EXPECT_EQ(boxes[0].type, static_cast<UINT>(MB_OK | MB_ICONEXCLAMATION));
    EXPECT_EQ(boxes[1].caption, L"Drafting");
    EXPECT_EQ(boxes[1].owner, frame.m_hWnd);
    EXPECT_EQ(boxes[1].type, static_cast<UINT>(MB_YESNO | MB_ICONQUESTION));
    EXPECT_EQ(boxes[2].text, L"#130");
    EXPECT_EQ(boxes[2].type, static_cast<UINT>(MB_RETRYCANCEL));
    EXPECT_EQ(boxes[3].text, L"a.lin was not found.");
}

TEST(ExtensionModule, JoinsTheChainOnceAndLeavesWithItsModule)
{
    static AFX_EXTENSION_MODULE module, none;
    const HMODULE handle = GetModuleHandleW(nullptr);
    EXPECT_FALSE(AfxInitExtensionModule(none, nullptr));
    EXPECT_FALSE(none.bInitialized);
    EXPECT_TRUE(AfxInitExtensionModule(module, handle));
    EXPECT_TRUE(AfxInitExtensionModule(module, handle));
    CDynLinkLibrary* const library = new CDynLinkLibrary(module);
    EXPECT_EQ(AfxNextDynLinkLibrary(nullptr), library);
    EXPECT_EQ(library->m_hResource, handle);
    AfxTermExtensionModule(module);
    EXPECT_EQ(AfxNextDynLinkLibrary(nullptr), nullptr);
    EXPECT_FALSE(module.bInitialized);
}
