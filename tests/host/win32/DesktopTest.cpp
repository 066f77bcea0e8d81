#include "Headless.h"

#include <gtest/gtest.h>

TEST(MessageBox, AnswersWithItsDefaultButton)
{
    headless::takeMessageBoxes();
    EXPECT_EQ(MessageBoxW(nullptr, L"保存?", L"提示", MB_YESNOCANCEL | MB_DEFBUTTON2), IDNO);
    EXPECT_EQ(MessageBoxW(nullptr, L"a", nullptr, MB_OK | MB_DEFBUTTON4), IDOK);
    EXPECT_EQ(MessageBoxW(nullptr, L"a", nullptr, MB_CANCELTRYCONTINUE | MB_DEFBUTTON3), IDCONTINUE);
    const auto shown = headless::takeMessageBoxes();
    ASSERT_EQ(shown.size(), 3u);
    EXPECT_EQ(shown[0].text, L"保存?");
    EXPECT_EQ(shown[0].caption, L"提示");
    EXPECT_EQ(shown[0].answer, IDNO);
    EXPECT_EQ(shown[1].caption, L"Error");
    EXPECT_TRUE(headless::takeMessageBoxes().empty());
}

TEST(MessageBox, TakesQueuedAnswersThatItHasAButtonFor)
{
    headless::answerNextMessageBox(IDCANCEL);
    headless::answerNextMessageBox(IDRETRY);
    EXPECT_EQ(MessageBoxW(nullptr, L"a", L"b", MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(MessageBoxW(nullptr, L"a", L"b", MB_YESNO), IDYES);
    EXPECT_EQ(headless::dropMessageBoxAnswers(), 0u);
    headless::takeMessageBoxes();
}

TEST(MessageBox, UnknownButtonsOrOwnerShowNothing)
{
    EXPECT_EQ(MessageBoxW(nullptr, L"a", L"b", 9), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_MSGBOX_STYLE));
    EXPECT_EQ(MessageBoxW(reinterpret_cast<HWND>(1), L"a", L"b", MB_OK), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    EXPECT_TRUE(headless::takeMessageBoxes().empty());
}

TEST(KeyState, PressIsSeenOnceAndHeldUntilReleased)
{
    headless::releaseAllKeys();
    headless::setKeyDown(VK_RSHIFT, true);
    EXPECT_EQ(GetAsyncKeyState(VK_SHIFT), static_cast<SHORT>(0x8001));
    EXPECT_EQ(GetAsyncKeyState(VK_SHIFT), static_cast<SHORT>(0x8000));
    EXPECT_EQ(GetAsyncKeyState(VK_LSHIFT), 0);
    headless::setKeyDown(VK_RSHIFT, false);
    headless::setKeyDown(VK_ESCAPE, true);
    headless::setKeyDown(VK_ESCAPE, false);
    EXPECT_EQ(GetAsyncKeyState(VK_ESCAPE), 1);
    EXPECT_EQ(GetKeyState(VK_ESCAPE), 1);
    EXPECT_EQ(GetAsyncKeyState(-1), 0);
    EXPECT_EQ(GetAsyncKeyState(9999), 0);
    headless::releaseAllKeys();
}

TEST(TranslateMessage, KeyBecomesItsCharacter)
{
    headless::releaseAllKeys();
    headless::takePostedMessages(nullptr);
    const MSG down{nullptr, WM_KEYDOWN, 'A', 0, 0, {}}, arrow{nullptr, WM_KEYDOWN, VK_LEFT, 0, 0, {}};
    EXPECT_TRUE(TranslateMessage(&down));
    headless::setKeyDown(VK_LSHIFT, true);
    EXPECT_TRUE(TranslateMessage(&down));
    EXPECT_TRUE(TranslateMessage(&arrow));
    headless::releaseAllKeys();
    const auto posted = headless::takePostedMessages(nullptr);
    ASSERT_EQ(posted.size(), 2u);
    EXPECT_EQ(posted[0].wParam, static_cast<WPARAM>('a'));
    EXPECT_EQ(posted[1].wParam, static_cast<WPARAM>('A'));
}

TEST(SubtractRect, CutsOnlyWhatLeavesARectangle)
{
    const RECT all{0, 0, 10, 10}, left{-5, -5, 4, 20}, corner{5, 5, 20, 20}, apart{20, 20, 30, 30};
    RECT rest{};
    EXPECT_TRUE(SubtractRect(&rest, &all, &left));
    const RECT expected{4, 0, 10, 10};
    EXPECT_TRUE(EqualRect(&rest, &expected));
    EXPECT_TRUE(SubtractRect(&rest, &all, &corner) && EqualRect(&rest, &all));
    EXPECT_TRUE(SubtractRect(&rest, &all, &apart) && EqualRect(&rest, &all));
    EXPECT_FALSE(SubtractRect(&rest, &all, &all));
    EXPECT_TRUE(IsRectEmpty(&rest));
}

TEST(CharUpper, TakesATextOrOneCharacter)
{
    wchar_t text[] = L"aé层z";
    EXPECT_EQ(CharUpperW(text), text);
    EXPECT_STREQ(text, L"AÉ层Z");
    EXPECT_EQ(CharLowerW(reinterpret_cast<LPWSTR>(L'Q')), reinterpret_cast<LPWSTR>(L'q'));
    EXPECT_EQ(CharLowerBuffW(text, 2), 2u);
    EXPECT_STREQ(text, L"aé层Z");
}
