#include "CaseMap.h"

#include "winuser.h"

#include <cwchar>

namespace
{
using Mapping = wchar_t (*)(wchar_t);

DWORD mapAll(LPWSTR text, std::size_t length, Mapping map)
{
    for (std::size_t i = 0; text && i < length; ++i)
        text[i] = map(text[i]);
    return text ? static_cast<DWORD>(length) : 0;
}

LPWSTR mapTextOrCharacter(LPWSTR text, Mapping map)
{
    const auto value = reinterpret_cast<ULONG_PTR>(text);
    if (value <= 0xffff)
        return reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(map(static_cast<wchar_t>(value))));
    mapAll(text, std::wcslen(text), map);
    return text;
}
} // namespace

LPWSTR WINAPI CharUpperW(LPWSTR text)
{
    return mapTextOrCharacter(text, win32::toUpper);
}

LPWSTR WINAPI CharLowerW(LPWSTR text)
{
    return mapTextOrCharacter(text, win32::toLower);
}

DWORD WINAPI CharUpperBuffW(LPWSTR text, DWORD length)
{
    return mapAll(text, length, win32::toUpper);
}

DWORD WINAPI CharLowerBuffW(LPWSTR text, DWORD length)
{
    return mapAll(text, length, win32::toLower);
}
