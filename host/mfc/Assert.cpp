#include "afxassert.h"
#include "atlstr.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

void AFX_CDECL AfxTrace(LPCWSTR format, ...)
{
    CString text;
    va_list arguments;
    va_start(arguments, format);
    text.FormatV(format, arguments);
    va_end(arguments);
    OutputDebugStringW(text);
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
