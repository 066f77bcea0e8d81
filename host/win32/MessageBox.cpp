#include "ShownMessageBoxes.h"

#include "Text.h"

#include "errhandlingapi.h"
#include "winerror.h"
#include "winuser.h"

#include <algorithm>
#include <cstdio>
#include <deque>
#include <mutex>
#include <utility>

namespace
{
struct Boxes {
    std::mutex mutex;
    std::vector<win32::ShownMessageBox> shown;
    std::deque<int> answers;
};

Boxes& boxes()
{
    static Boxes& all = *new Boxes;
    return all;
}

// The most boxes kept for a test that does not ask for them.
constexpr std::size_t shownCapacity = 1000;

std::vector<int> buttonsOf(UINT type)
{
    switch (type & MB_TYPEMASK) {
    case MB_OK:
        return {IDOK};
    case MB_OKCANCEL:
        return {IDOK, IDCANCEL};
    case MB_ABORTRETRYIGNORE:
        return {IDABORT, IDRETRY, IDIGNORE};
    case MB_YESNOCANCEL:
        return {IDYES, IDNO, IDCANCEL};
    case MB_YESNO:
        return {IDYES, IDNO};
    case MB_RETRYCANCEL:
        return {IDRETRY, IDCANCEL};
    case MB_CANCELTRYCONTINUE:
        return {IDCANCEL, IDTRYAGAIN, IDCONTINUE};
    default:
        return {};
    }
}

int defaultButton(const std::vector<int>& buttons, UINT type)
{
    const std::size_t place = (type & MB_DEFMASK) / MB_DEFBUTTON2;
    return place < buttons.size() ? buttons[place] : buttons.front();
}

int failed(DWORD error)
{
    SetLastError(error);
    return 0;
}

int nextAnswer(const std::vector<int>& buttons, UINT type)
{
    Boxes& all = boxes();
    const std::lock_guard lock(all.mutex);
    if (all.answers.empty()) return defaultButton(buttons, type);
    const int wanted = all.answers.front();
    all.answers.pop_front();
    if (std::find(buttons.begin(), buttons.end(), wanted) != buttons.end()) return wanted;
    std::printf("message box: it has no button %d\n", wanted);
    return defaultButton(buttons, type);
}

void record(win32::ShownMessageBox box)
{
    Boxes& all = boxes();
    const std::lock_guard lock(all.mutex);
    if (all.shown.size() == shownCapacity) all.shown.erase(all.shown.begin());
    all.shown.push_back(std::move(box));
}

void print(const win32::ShownMessageBox& box)
{
    std::printf("message box [%s]: %s\n", win32::toUtf8(box.caption).c_str(),
                win32::toUtf8(box.text).c_str());
    std::fflush(stdout);
}
} // namespace

namespace win32
{
std::vector<ShownMessageBox> takeMessageBoxes()
{
    Boxes& all = boxes();
    const std::lock_guard lock(all.mutex);
    return std::exchange(all.shown, {});
}

void answerNextMessageBox(int id)
{
    Boxes& all = boxes();
    const std::lock_guard lock(all.mutex);
    all.answers.push_back(id);
}

std::size_t dropMessageBoxAnswers()
{
    Boxes& all = boxes();
    const std::lock_guard lock(all.mutex);
    return std::exchange(all.answers, {}).size();
}
} // namespace win32

int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    const std::vector<int> buttons = buttonsOf(type);
    if (buttons.empty()) return failed(ERROR_INVALID_MSGBOX_STYLE);
    if (owner && !IsWindow(owner)) return failed(ERROR_INVALID_WINDOW_HANDLE);
    // Windows gives a box without a caption this one.
    const win32::ShownMessageBox box{owner, text ? text : L"", caption ? caption : L"Error", type,
                                     nextAnswer(buttons, type)};
    print(box);
    record(box);
    return box.answer;
}

BOOL WINAPI MessageBeep(UINT)
{
    return TRUE;
}
