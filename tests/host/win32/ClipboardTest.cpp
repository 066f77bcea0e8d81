#include "Headless.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <thread>

namespace
{
class Clipboard : public testing::Test
{
protected:
    Clipboard()
    {
        headless::setAnsiCodePage(936);
        EXPECT_TRUE(OpenClipboard(nullptr) && EmptyClipboard());
    }
    ~Clipboard() override { EXPECT_TRUE(OpenClipboard(nullptr) && EmptyClipboard() && CloseClipboard()); }

    template <class Unit>
    static HANDLE block(const std::basic_string<Unit>& text)
    {
        const HANDLE made = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(Unit));
        std::memcpy(GlobalLock(made), text.c_str(), (text.size() + 1) * sizeof(Unit));
        GlobalUnlock(made);
        return made;
    }

    template <class Unit>
    static std::basic_string<Unit> textOf(UINT format)
    {
        const HANDLE data = GetClipboardData(format);
        if (!data) return {};
        const std::basic_string<Unit> text = static_cast<const Unit*>(GlobalLock(data));
        GlobalUnlock(data);
        return text;
    }
};
} // namespace

TEST_F(Clipboard, WideTextIsKeptInUnitsAndGivenInTheAnsiCodePage)
{
    SetClipboardData(CF_UNICODETEXT, block<char16_t>(u"图\xD83D\xDE00"));
    EXPECT_EQ(textOf<char16_t>(CF_UNICODETEXT), u"图\xD83D\xDE00");
    EXPECT_EQ(textOf<char>(CF_TEXT).substr(0, 2), "\xCD\xBC");
    SetClipboardData(CF_UNICODETEXT, block<char16_t>(u"层"));
    EXPECT_EQ(textOf<char>(CF_TEXT), "\xB2\xE3");
}

TEST_F(Clipboard, NarrowTextWithoutTerminatorIsReadToItsEnd)
{
    const HANDLE data = GlobalAlloc(GMEM_FIXED, 3);
    std::memcpy(data, "abc", 3);
    SetClipboardData(CF_TEXT, data);
    EXPECT_EQ(textOf<char16_t>(CF_UNICODETEXT), u"abc");
}

TEST_F(Clipboard, FormatsAreListedWithThoseThatCanBeMade)
{
    const UINT own = RegisterClipboardFormatW(L"Own.Format");
    SetClipboardData(own, block<char>("x"));
    SetClipboardData(CF_TEXT, block<char>("y"));
    EXPECT_EQ(CountClipboardFormats(), 4);
    EXPECT_EQ(EnumClipboardFormats(0), own);
    EXPECT_EQ(EnumClipboardFormats(own), static_cast<UINT>(CF_TEXT));
    EXPECT_EQ(EnumClipboardFormats(EnumClipboardFormats(EnumClipboardFormats(CF_TEXT))), 0u);
    EXPECT_EQ(GetLastError(), 0u);
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_UNICODETEXT));
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_DIB));
    EXPECT_EQ(GetClipboardData(CF_DIB), nullptr);
    wchar_t name[20];
    EXPECT_EQ(GetClipboardFormatNameW(own, name, 20), 10);
    EXPECT_STREQ(name, L"Own.Format");
}

TEST_F(Clipboard, NeedsToBeOpenInThisThread)
{
    DWORD error = 0;
    std::thread([&] { error = OpenClipboard(nullptr) ? 0 : GetLastError(); }).join();
    EXPECT_EQ(error, static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_TRUE(CloseClipboard());
    const HANDLE data = block<char>("x");
    EXPECT_EQ(SetClipboardData(CF_TEXT, data), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLIPBOARD_NOT_OPEN));
    EXPECT_EQ(GlobalFree(data), nullptr);
    EXPECT_FALSE(CloseClipboard() || EmptyClipboard() || GetClipboardData(CF_TEXT));
}

TEST_F(Clipboard, PromisedDataIsAskedForOnce)
{
    static int asked;
    asked = 0;
    WNDCLASSW description{};
    description.lpszClassName = L"Promise";
    description.lpfnWndProc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (message != WM_RENDERFORMAT) return DefWindowProcW(window, message, wParam, lParam);
        ++asked;
        SetClipboardData(static_cast<UINT>(wParam), block<char16_t>(u"late"));
        return 0;
    };
    RegisterClassW(&description);
    const HWND owner =
        CreateWindowExW(0, L"Promise", nullptr, 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    EXPECT_TRUE(CloseClipboard() && OpenClipboard(owner) && EmptyClipboard());
    SetClipboardData(CF_UNICODETEXT, nullptr);
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_TEXT));
    EXPECT_EQ(textOf<char>(CF_TEXT), "late");
    EXPECT_EQ(textOf<char16_t>(CF_UNICODETEXT), u"late");
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(CloseClipboard() && DestroyWindow(owner) && UnregisterClassW(L"Promise", nullptr));
}
