/// Variables that are computed, or kept by the database and the editor.

#include "CommandLine.h"
#include "CommandRunner.h"
#include "Documents.h"
#include "SupportFiles.h"
#include "VariableStore.h"

#include <cmath>

namespace
{
using ed::bindVariable;
using ed::VariableValue;

void readOnly(const wchar_t* name, short type, std::function<VariableValue()> read)
{
    bindVariable(name, type, {std::move(read), nullptr});
}

std::wstring folderOf(const std::wstring& path)
{
    return path.substr(0, path.find_last_of(L"\\/") + 1);
}

std::wstring currentFolder()
{
    wchar_t folder[MAX_PATH] = L"";
    GetCurrentDirectoryW(MAX_PATH, folder);
    return std::wstring(folder) + L"\\";
}

/// Days since noon of 1 January 4713 BC, local time.
double julianDay(const SYSTEMTIME& now)
{
    const int a = (14 - now.wMonth) / 12, y = now.wYear + 4800 - a, m = now.wMonth + 12 * a - 3;
    const int day = now.wDay + (153 * m + 2) / 5 + 365 * y + y / 4 - y / 100 + y / 400 - 32045;
    const double seconds = now.wHour * 3600.0 + now.wMinute * 60.0 + now.wSecond + now.wMilliseconds / 1000.0;
    return day + seconds / 86400.0;
}

/// YYYYMMDD.hhmmssmsec as a number.
double calendarDate(const SYSTEMTIME& now)
{
    const double time = now.wHour * 1e7 + now.wMinute * 1e5 + now.wSecond * 1e3 + now.wMilliseconds;
    return now.wYear * 1e4 + now.wMonth * 1e2 + now.wDay + time / 1e9;
}

SYSTEMTIME localTime()
{
    SYSTEMTIME now;
    GetLocalTime(&now);
    return now;
}

/// The support path, each folder with its backslash.
std::wstring supportPrefixes()
{
    std::wstring all;
    for (const std::wstring& folder : ed::supportFolders()) {
        if (!all.empty()) all += L';';
        all += folder.back() == L'\\' ? folder : folder + L'\\';
    }
    return all;
}

void bindNames()
{
    readOnly(L"ACADPREFIX", RTSTR, [] { return VariableValue::ofText(supportPrefixes()); });
    readOnly(L"DWGNAME", RTSTR, [] {
        const DocumentState* state = documents::current();
        return VariableValue::ofText(state ? state->title : L"");
    });
    readOnly(L"DWGPREFIX", RTSTR, [] {
        const DocumentState* state = documents::current();
        return VariableValue::ofText(state && !state->fileName.empty() ? folderOf(state->fileName)
                                                                       : currentFolder());
    });
    readOnly(L"DWGTITLED", RTSHORT, [] {
        const DocumentState* state = documents::current();
        return VariableValue::ofInteger(state && !state->fileName.empty());
    });
    readOnly(L"WRITESTAT", RTSHORT, [] {
        const DocumentState* state = documents::current();
        return VariableValue::ofInteger(!state || !state->readOnly);
    });
    readOnly(L"DBMOD", RTSHORT, [] {
        const DocumentState* state = documents::current();
        return VariableValue::ofInteger(state ? state->dbmod : 0);
    });
    readOnly(L"LOGINNAME", RTSTR, [] {
        wchar_t name[256] = L"";
        DWORD size = 256;
        GetUserNameW(name, &size);
        return VariableValue::ofText(name);
    });
    readOnly(L"TEMPPREFIX", RTSTR, [] {
        wchar_t folder[MAX_PATH] = L"";
        GetTempPathW(MAX_PATH, folder);
        return VariableValue::ofText(folder);
    });
}

void bindActivity()
{
    readOnly(L"CMDNAMES", RTSTR, [] { return VariableValue::ofText(ed::commandNames()); });
    readOnly(L"CMDACTIVE", RTSHORT, [] { return VariableValue::ofInteger(ed::commandActivity()); });
    readOnly(L"LASTPROMPT", RTSTR, [] { return VariableValue::ofText(ed::lastPrompt()); });
}

void bindClocks()
{
    readOnly(L"DATE", RTREAL, [] { return VariableValue::ofReal(julianDay(localTime())); });
    readOnly(L"CDATE", RTREAL, [] { return VariableValue::ofReal(calendarDate(localTime())); });
    readOnly(L"MILLISECS", RTSHORT,
             [] { return VariableValue::ofInteger(static_cast<long>(GetTickCount() & 0x7fffffff)); });
}

[[maybe_unused]] const bool allBound = (bindNames(), bindActivity(), bindClocks(), true);
} // namespace
