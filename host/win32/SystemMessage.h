#pragma once

#include "windef.h"

namespace win32
{
/// The English text of an error code or HRESULT, without a line break; null when there is none.
const wchar_t* systemMessage(DWORD code);
} // namespace win32
