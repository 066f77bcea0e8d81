#pragma once

/// Assertions and trace output. They are active in builds without NDEBUG; otherwise only VERIFY evaluates
/// its expression.

#include <windows.h>

#define AFXAPI __stdcall
#define AFX_CDECL __cdecl

/// Writes formatted text to the debugger's output. The format is that of CString::Format.
void AFX_CDECL AfxTrace(LPCWSTR format, ...);
/// Reports a failed assertion with its place in the source and ends the process.
[[noreturn]] void AFXAPI AfxAssertFailedLine(LPCSTR file, int line);
/// Whether a pointer is fit to be read: it is not null and the size is not 0.
BOOL AFXAPI AfxIsValidAddress(const void* address, UINT_PTR bytes, BOOL readWrite = TRUE);
/// Whether a text pointer is fit to be read.
BOOL AFXAPI AfxIsValidString(LPCWSTR text, int length = -1);
BOOL AFXAPI AfxIsValidString(LPCSTR text, int length = -1);

#define THIS_FILE __FILE__

#ifdef NDEBUG
#define ASSERT(expression) ((void)0)
#define VERIFY(expression) ((void)(expression))
#define ASSERT_VALID(object) ((void)0)
#define TRACE(...) ((void)0)
#else
#define ASSERT(expression) ((expression) ? (void)0 : AfxAssertFailedLine(THIS_FILE, __LINE__))
#define VERIFY(expression) ASSERT(expression)
#define ASSERT_VALID(object) (ASSERT((object) != nullptr), (object)->AssertValid())
#define TRACE(...) AfxTrace(__VA_ARGS__)
#endif

#define ASSERT_KINDOF(class_name, object) ASSERT((object)->IsKindOf(RUNTIME_CLASS(class_name)))
#define TRACE0(text) TRACE(TEXT("%ls"), TEXT(text))
#define TRACE1(text, p1) TRACE(TEXT(text), p1)
#define TRACE2(text, p1, p2) TRACE(TEXT(text), p1, p2)
#define TRACE3(text, p1, p2, p3) TRACE(TEXT(text), p1, p2, p3)

/// Throws CInvalidArgException, in every build, when the condition does not hold.
#define ENSURE(condition) ((condition) ? (void)0 : AfxThrowInvalidArgException())
#define ENSURE_ARG(condition) ENSURE(condition)
#define ENSURE_VALID(object) ENSURE((object) != nullptr)
