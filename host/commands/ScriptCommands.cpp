/// SCRIPT, RSCRIPT, RESUME and DELAY.

#include "acedinput.h"
#include "Ask.h"
#include "CommandTable.h"
#include "Faults.h"
#include "Script.h"
#include "SupportFiles.h"

#include <windows.h>

#include <algorithm>

namespace
{
std::wstring withExtension(const std::wstring& name)
{
    const std::size_t base = name.find_last_of(L"\\/");
    const bool has = name.find(L'.', base == std::wstring::npos ? 0 : base) != std::wstring::npos;
    return has ? name : name + L".scr";
}

void script()
{
    const std::optional<std::wstring> name = commands::askFile(L"Enter script file name: ");
    if (!name || name->empty()) return;
    const std::wstring path = ed::findSupportFile(withExtension(*name));
    if (path.empty() || !scripts::start(path)) ed::fail(L"Cannot find the script \"" + *name + L"\".");
}

void resume()
{
    if (!scripts::isRunning() && !scripts::resume()) ed::fail(L"There is no script to go on with.");
}

void repeat()
{
    if (!scripts::repeat()) ed::fail(L"There is no script to repeat.");
}

/// In short steps, since Esc ends it.
void wait(unsigned long milliseconds)
{
    constexpr ULONGLONG step = 50;
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (ULONGLONG now = GetTickCount64(); now < end && !acedUsrBrk(); now = GetTickCount64())
        Sleep(static_cast<DWORD>(std::min(step, end - now)));
}

void delay()
{
    constexpr unsigned long longest = 32767;
    const std::optional<std::wstring> answer = commands::ask(L"Enter delay time in milliseconds: ");
    if (!answer || answer->empty()) return;
    wchar_t* end = nullptr;
    const unsigned long time = std::wcstoul(answer->c_str(), &end, 10);
    if (*end || time > longest) return ed::fail(L"Requires an integer between 0 and 32767.");
    wait(time);
}

[[maybe_unused]] const bool added = commands::add({
    {L"SCRIPT", L"SCR", ACRX_CMD_TRANSPARENT | ACRX_CMD_NOINTERNALLOCK, script,
     L"Types the lines of a script file (.scr)"},
    {L"RSCRIPT", L"", ACRX_CMD_TRANSPARENT | ACRX_CMD_NOINTERNALLOCK, repeat,
     L"Types the last script again from its beginning"},
    {L"RESUME", L"", ACRX_CMD_TRANSPARENT | ACRX_CMD_NOINTERNALLOCK, resume,
     L"Goes on with a script that stopped"},
    {L"DELAY", L"", ACRX_CMD_TRANSPARENT | ACRX_CMD_NOINTERNALLOCK, delay,
     L"Waits for a number of milliseconds (0 to 32767)"},
});
} // namespace
