#include "Headless.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{
// What the window under test was sent, in order; WM_CREATE answers what the test chooses.
std::vector<UINT> sent;
LRESULT answerToCreate = 0;
bool refuseNcCreate = false;

LRESULT CALLBACK recordingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    sent.push_back(message);
    if (message == WM_NCCREATE && refuseNcCreate) return FALSE;
    if (message == WM_CREATE) return answerToCreate;
    if (message == WM_USER) return static_cast<LRESULT>(wParam) * 2 + lParam;
    return DefWindowProcW(window, message, wParam, lParam);
}

std::vector<HWND> destroyed;
LRESULT CALLBACK destructionProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_DESTROY || message == WM_NCDESTROY) destroyed.push_back(window);
    return DefWindowProcW(window, message, wParam, lParam);
}

class Windows : public testing::Test
{
protected:
    Windows()
    {
        sent.clear();
        destroyed.clear();
        answerToCreate = 0;
        refuseNcCreate = false;
        registerClass(L"Recorder", recordingProcedure);
        registerClass(L"Destroyed", destructionProcedure);
    }

    ~Windows() override
    {
        for (HWND window : made_)
            if (IsWindow(window)) DestroyWindow(window);
        EXPECT_TRUE(UnregisterClassW(L"Recorder", nullptr));
        EXPECT_TRUE(UnregisterClassW(L"Destroyed", nullptr));
    }

    HWND make(const wchar_t* className = L"Recorder", DWORD style = 0, HWND parent = nullptr, int id = 0)
    {
        const HWND window =
            CreateWindowExW(0, className, L"text", style, 10, 20, 300, 200, parent,
                            reinterpret_cast<HMENU>(static_cast<LONG_PTR>(id)), nullptr, nullptr);
        made_.push_back(window);
        return window;
    }

    static ATOM registerClass(const wchar_t* name, WNDPROC procedure)
    {
        WNDCLASSW description{};
        description.lpszClassName = name;
        description.lpfnWndProc = procedure;
        description.cbWndExtra = sizeof(LONG_PTR);
        return RegisterClassW(&description);
    }

private:
    std::vector<HWND> made_;
};

std::vector<int> corners(HWND window)
{
    RECT rect{};
    EXPECT_TRUE(GetWindowRect(window, &rect));
    return {rect.left, rect.top, rect.right, rect.bottom};
}
} // namespace

TEST_F(Windows, CreationSendsItsMessagesInOrder)
{
    const HWND window = make();
    EXPECT_EQ(sent, (std::vector<UINT>{WM_NCCREATE, WM_CREATE, WM_SIZE, WM_MOVE}));
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_TRUE(IsWindowVisible(make(L"Recorder", WS_VISIBLE)));
}

TEST_F(Windows, CreationRefusedLeavesNoWindow)
{
    answerToCreate = -1;
    EXPECT_EQ(make(), nullptr);
    refuseNcCreate = true;
    EXPECT_EQ(make(), nullptr);
    EXPECT_EQ(FindWindowW(L"Recorder", nullptr), nullptr);
    EXPECT_EQ(make(L"No such class"), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CANNOT_FIND_WND_CLASS));
    EXPECT_EQ(make(L"Static", WS_CHILD), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_TLW_WITH_WSCHILD));
}

TEST_F(Windows, ClassInUseStaysAndIsNotRegisteredTwice)
{
    EXPECT_EQ(registerClass(L"RECORDER", recordingProcedure), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLASS_ALREADY_EXISTS));
    wchar_t name[5] = L"????";
    EXPECT_EQ(GetClassNameW(make(), name, 5), 4);
    EXPECT_STREQ(name, L"Reco");
    EXPECT_FALSE(UnregisterClassW(L"Recorder", nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLASS_HAS_WINDOWS));
}

TEST_F(Windows, DestructionTellsParentFirstAndFreesItLast)
{
    const HWND parent = make(L"Destroyed"), child = make(L"Destroyed", WS_CHILD, parent);
    const HWND owned = make(L"Destroyed", WS_POPUP, parent);
    PostMessageW(child, WM_USER, 1, 2);
    EXPECT_TRUE(DestroyWindow(parent));
    EXPECT_EQ(destroyed, (std::vector<HWND>{owned, owned, parent, child, child, parent}));
    EXPECT_FALSE(IsWindow(parent) || IsWindow(child) || IsWindow(owned));
    EXPECT_TRUE(headless::takePostedMessages(child).empty());
    EXPECT_FALSE(DestroyWindow(parent));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
}

TEST_F(Windows, WindowOfAnotherThreadIsNotDestroyed)
{
    const HWND window = make();
    DWORD error = 0;
    std::thread([&] { error = DestroyWindow(window) ? 0 : GetLastError(); }).join();
    EXPECT_EQ(error, static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_TRUE(IsWindow(window));
}

TEST_F(Windows, ChildMovesWithItsParent)
{
    const HWND parent = make(), child = make(L"Static", WS_CHILD, parent, 7);
    EXPECT_EQ(corners(child), (std::vector<int>{20, 40, 320, 240}));
    EXPECT_TRUE(MoveWindow(parent, 100, 100, 50, 50, TRUE));
    EXPECT_EQ(corners(child), (std::vector<int>{110, 120, 410, 320}));
    POINT point{111, 122};
    EXPECT_TRUE(ScreenToClient(child, &point));
    EXPECT_EQ(point.x, 1);
    EXPECT_EQ(point.y, 2);
    EXPECT_EQ(GetDlgCtrlID(child), 7);
    EXPECT_EQ(GetDlgItem(parent, 7), child);
    EXPECT_EQ(GetDlgItem(parent, 8), nullptr);
    EXPECT_EQ(GetParent(child), parent);
    EXPECT_EQ(SetParent(parent, child), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST_F(Windows, PositionChangesAsTheFlagsAllow)
{
    const HWND window = make();
    sent.clear();
    EXPECT_TRUE(SetWindowPos(window, nullptr, 1, 2, 30, 40, SWP_NOSIZE | SWP_NOZORDER));
    EXPECT_EQ(corners(window), (std::vector<int>{1, 2, 301, 202}));
    EXPECT_EQ(sent, (std::vector<UINT>{WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED, WM_MOVE}));
    EXPECT_TRUE(SetWindowPos(window, nullptr, 9, 9, -5, 40, SWP_NOMOVE | SWP_NOZORDER));
    EXPECT_EQ(corners(window), (std::vector<int>{1, 2, 1, 42}));
    sent.clear();
    EXPECT_TRUE(SetWindowPos(window, nullptr, 1, 2, 0, 40, SWP_NOSENDCHANGING | SWP_NOZORDER));
    EXPECT_TRUE(sent.empty());
    EXPECT_FALSE(SetWindowPos(window, reinterpret_cast<HWND>(&sent), 5, 5, 5, 5, 0));
    EXPECT_EQ(corners(window), (std::vector<int>{1, 2, 1, 42}));
}

TEST_F(Windows, DepthFollowsTheRequests)
{
    const HWND parent = make(), a = make(L"Static", WS_CHILD, parent), b = make(L"Static", WS_CHILD, parent),
               c = make(L"Static", WS_CHILD, parent);
    constexpr UINT depthOnly = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    EXPECT_EQ(GetWindow(parent, GW_CHILD), c);
    SetWindowPos(a, HWND_TOP, 0, 0, 0, 0, depthOnly);
    SetWindowPos(c, b, 0, 0, 0, 0, depthOnly);
    EXPECT_EQ(GetWindow(a, GW_HWNDNEXT), b);
    EXPECT_EQ(GetWindow(b, GW_HWNDNEXT), c);
    EXPECT_EQ(GetWindow(c, GW_HWNDNEXT), nullptr);
}

TEST_F(Windows, MaximisedWindowComesBackToItsPlace)
{
    headless::setScreenSize(800, 600);
    const HWND window = make();
    EXPECT_FALSE(ShowWindow(window, SW_SHOWMAXIMIZED));
    EXPECT_EQ(corners(window), (std::vector<int>{0, 0, 800, 600}));
    EXPECT_TRUE(IsZoomed(window));
    EXPECT_TRUE(ShowWindow(window, SW_MINIMIZE));
    RECT client{1, 1, 1, 1};
    EXPECT_TRUE(GetClientRect(window, &client) && IsRectEmpty(&client));
    EXPECT_TRUE(ShowWindow(window, SW_RESTORE));
    EXPECT_EQ(corners(window), (std::vector<int>{10, 20, 310, 220}));
    headless::setScreenSize(1920, 1080);
    EXPECT_EQ(GetSystemMetrics(SM_CXSCREEN), 1920);
}

TEST_F(Windows, HiddenParentHidesItsChildren)
{
    const HWND parent = make(L"Static", WS_VISIBLE), child = make(L"Static", WS_CHILD | WS_VISIBLE, parent);
    EXPECT_TRUE(IsWindowVisible(child));
    EXPECT_TRUE(ShowWindow(parent, SW_HIDE));
    EXPECT_FALSE(IsWindowVisible(child));
    EXPECT_TRUE(GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE);
}

TEST_F(Windows, FocusGoesToEnabledWindowsAndActivatesTheirFrame)
{
    const HWND frame = make(L"Static", WS_VISIBLE), child = make(L"Recorder", WS_CHILD | WS_VISIBLE, frame);
    SetFocus(nullptr);
    SetFocus(child);
    EXPECT_EQ(GetFocus(), child);
    EXPECT_EQ(GetActiveWindow(), frame);
    EXPECT_FALSE(EnableWindow(child, FALSE));
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_EQ(SetFocus(child), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_TRUE(EnableWindow(child, TRUE));
    SetFocus(child);
    const HWND other = make(L"Static", WS_VISIBLE);
    EXPECT_TRUE(SetForegroundWindow(frame));
    EXPECT_TRUE(DestroyWindow(frame));
    EXPECT_EQ(GetActiveWindow(), other);
    EXPECT_NE(GetFocus(), child);
}

TEST_F(Windows, TextIsCutToTheBuffer)
{
    const HWND window = make();
    EXPECT_TRUE(SetWindowTextW(window, L"图层管理器"));
    EXPECT_EQ(GetWindowTextLengthW(window), 5);
    wchar_t buffer[4] = L"???";
    EXPECT_EQ(GetWindowTextW(window, buffer, 4), 3);
    EXPECT_STREQ(buffer, L"图层管");
    EXPECT_EQ(FindWindowW(L"RECORDER", L"图层管理器"), window);
    EXPECT_FALSE(SetWindowTextW(nullptr, L""));
}

TEST_F(Windows, ValuesAreExchangedAndUnknownIndexesRefused)
{
    const HWND window = make();
    EXPECT_EQ(SetWindowLongPtrW(window, GWLP_USERDATA, 0x123456789), 0);
    EXPECT_EQ(GetWindowLongPtrW(window, GWLP_USERDATA), 0x123456789);
    EXPECT_EQ(SetWindowLongPtrW(window, 0, -3), 0);
    EXPECT_EQ(GetWindowLongPtrW(window, 0), -3);
    for (int index : {1, 8, -1, -99}) {
        SetLastError(0);
        EXPECT_EQ(SetWindowLongPtrW(window, index, 5), 0);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_INDEX)) << index;
    }
}

TEST_F(Windows, SubclassPassesOnToTheFormerProcedure)
{
    const HWND window = make();
    static WNDPROC former;
    const WNDPROC subclass = [](HWND w, UINT m, WPARAM wp, LPARAM lp) -> LRESULT {
        return CallWindowProcW(former, w, m, wp, lp) + (m == WM_USER ? 100 : 0);
    };
    former = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(subclass)));
    EXPECT_EQ(former, recordingProcedure);
    EXPECT_EQ(SendMessageW(window, WM_USER, 3, 4), 110);
}

TEST_F(Windows, PostedMessagesComeInOrderAndByFilter)
{
    const HWND window = make(), other = make(L"Static");
    PostMessageW(window, WM_USER, 1, 0);
    PostMessageW(other, WM_USER + 1, 2, 0);
    PostMessageW(window, WM_USER + 2, 3, 0);
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, other, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(message.wParam, 2u);
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_USER + 2, WM_USER + 2, PM_REMOVE));
    EXPECT_EQ(message.wParam, 3u);
    EXPECT_EQ(GetMessageW(&message, nullptr, 0, 0), TRUE);
    EXPECT_EQ(message.hwnd, window);
    EXPECT_EQ(DispatchMessageW(&message), 2);
    EXPECT_EQ(GetMessageW(&message, nullptr, 0, 0), TRUE);
    EXPECT_FALSE(PostMessageW(reinterpret_cast<HWND>(&message), WM_USER, 0, 0));
}

TEST_F(Windows, QuitComesAfterPostedMessagesAndAnEmptyQueueEndsTheLoop)
{
    PostQuitMessage(5);
    PostMessageW(make(), WM_USER, 0, 0);
    MSG message{};
    EXPECT_EQ(GetMessageW(&message, nullptr, 0, 0), TRUE);
    EXPECT_EQ(GetMessageW(&message, nullptr, 0, 0), FALSE);
    EXPECT_EQ(message.wParam, 5u);
    EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(GetMessageW(&message, nullptr, 0, 0), FALSE);
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 0u);
    EXPECT_EQ(GetMessageW(&message, reinterpret_cast<HWND>(&message), 0, 0), -1);
}

TEST_F(Windows, MessageGoesToTheThreadOfItsWindow)
{
    const HWND window = make();
    std::thread([&] {
        PostMessageW(window, WM_USER, 9, 0);
        MSG message{};
        EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    }).join();
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, window, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.wParam, 9u);
    EXPECT_FALSE(PostThreadMessageW(0, WM_USER, 0, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_THREAD_ID));
}

TEST(RegisterWindowMessage, NameHasOneNumberInAnyCase)
{
    const UINT number = RegisterWindowMessageW(L"Drawing.Saved");
    EXPECT_GE(number, 0xC000u);
    EXPECT_EQ(RegisterWindowMessageW(L"DRAWING.saved"), number);
    EXPECT_NE(RegisterWindowMessageW(L"Drawing.Closed"), number);
    EXPECT_EQ(RegisterWindowMessageW(L""), 0u);
}
