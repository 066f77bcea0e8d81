#include "afxassert.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

void AFX_CDECL AfxTrace(LPCWSTR format, ...)
{
    wchar_t text[1024];
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vswprintf(text, sizeof text / sizeof *text, format, arguments);
    va_end(arguments);
    OutputDebugStringW(length < 0 ? format : text);
}

void AFXAPI AfxAssertFailedLine(LPCSTR file, int line)
{
    std::fprintf(stderr, "Debug assertion failed: %s, line %d\n", file, line);
    std::abort();
}

BOOL AFXAPI AfxIsValidAddress(const void* address, UINT_PTR bytes, BOOL)
{
    return address != nullptr && bytes != 0;
}

BOOL AFXAPI AfxIsValidString(LPCWSTR text, int)
{
    return text != nullptr;
}

BOOL AFXAPI AfxIsValidString(LPCSTR text, int)
{
    return text != nullptr;
}
