#pragma once

#include "windef.h"

#include <string_view>

namespace win32
{
/// The result of the functions that give the length when the text fits and the size that is needed, with the
/// NUL, when it does not. Nothing is written in the second case.
inline DWORD copyOut(std::wstring_view text, LPWSTR buffer, DWORD size)
{
    if (!buffer || size <= text.size()) return static_cast<DWORD>(text.size() + 1);
    text.copy(buffer, text.size());
    buffer[text.size()] = L'\0';
    return static_cast<DWORD>(text.size());
}
} // namespace win32
