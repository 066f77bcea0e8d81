#pragma once

/// The basic types, macros and handles of the Windows interface.
///
/// Integer types have the widths they have on 64-bit Windows (LONG and DWORD are 32 bits), whatever the
/// width of this platform's `long`. WCHAR is the platform's own wchar_t.

#include <cstddef>
#include <cstdint>

// Calling conventions and storage classes that have no meaning here, or another spelling.
#define WINAPI
#define APIENTRY
#define CALLBACK
#define PASCAL
#define STDAPICALLTYPE
#define __stdcall
#define __cdecl
#define _cdecl
#define __forceinline inline __attribute__((always_inline))
#define QM_DECLSPEC_dllexport __attribute__((visibility("default")))
#define QM_DECLSPEC_dllimport __attribute__((visibility("default")))
#define QM_DECLSPEC_noreturn __attribute__((noreturn))
#define QM_DECLSPEC_noinline __attribute__((noinline))
#define __declspec(attribute) QM_DECLSPEC_##attribute

// Parameter annotations of the SDK's declarations.
#define _In_
#define _In_opt_
#define _In_z_
#define _Out_
#define _Out_opt_
#define _Inout_
#define _Inout_opt_

#define TRUE 1
#define FALSE 0
#define MAX_PATH 260
#define UNREFERENCED_PARAMETER(parameter) ((void)(parameter))

using BOOL = int;
using BYTE = std::uint8_t;
using CHAR = char;
using UCHAR = unsigned char;
using WCHAR = wchar_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using WORD = std::uint16_t;
using INT = std::int32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using INT8 = std::int8_t;
using UINT8 = std::uint8_t;
using INT16 = std::int16_t;
using UINT16 = std::uint16_t;
using INT32 = std::int32_t;
using UINT32 = std::uint32_t;
using LONG32 = std::int32_t;
using ULONG32 = std::uint32_t;
using DWORD32 = std::uint32_t;
using INT64 = long long;
using UINT64 = unsigned long long;
using LONGLONG = long long;
using ULONGLONG = unsigned long long;
using DWORDLONG = unsigned long long;
using DWORD64 = unsigned long long;
using LONG64 = long long;
using ULONG64 = unsigned long long;
using FLOAT = float;
using DOUBLE = double;
using BOOLEAN = BYTE;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using SIZE_T = std::size_t;
using SSIZE_T = std::ptrdiff_t;
using HRESULT = LONG;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using ATOM = WORD;
using COLORREF = DWORD;
using LCID = DWORD;
using LANGID = WORD;
#define __int64 long long
#define __int32 int
#define __int16 short
#define __int8 char

using PVOID = void*;
using LPVOID = void*;
using LPCVOID = const void*;
using PBOOL = BOOL*;
using LPBOOL = BOOL*;
using PBYTE = BYTE*;
using LPBYTE = BYTE*;
using PWORD = WORD*;
using LPWORD = WORD*;
using PDWORD = DWORD*;
using LPDWORD = DWORD*;
using PLONG = LONG*;
using LPLONG = LONG*;
using PUINT = UINT*;
using LPINT = int*;
using PSTR = char*;
using LPSTR = char*;
using PCSTR = const char*;
using LPCSTR = const char*;
using PWSTR = wchar_t*;
using LPWSTR = wchar_t*;
using PCWSTR = const wchar_t*;
using LPCWSTR = const wchar_t*;
using LPWCH = wchar_t*;
using LPCWCH = const wchar_t*;
using LPCCH = const char*;
using PWCHAR = wchar_t*;

// The library and its modules are Unicode programs: TCHAR is the wide character.
using TCHAR = wchar_t;
using _TCHAR = wchar_t;
using PTSTR = TCHAR*;
using LPTSTR = TCHAR*;
using PCTSTR = const TCHAR*;
using LPCTSTR = const TCHAR*;
#define __TEXT(quote) L##quote
#define TEXT(quote) __TEXT(quote)

using HANDLE = void*;
using PHANDLE = HANDLE*;
using HGLOBAL = HANDLE;
using HLOCAL = HANDLE;
#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)))

#define DECLARE_HANDLE(name)                                                                                 \
    struct name##__ {                                                                                        \
        int unused;                                                                                          \
    };                                                                                                       \
    using name = name##__*

DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HKEY);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HRSRC);
using HMODULE = HINSTANCE;
using HCURSOR = HICON;
using FARPROC = INT_PTR(WINAPI*)();
using PROC = FARPROC;

struct POINT {
    LONG x;
    LONG y;
};
using LPPOINT = POINT*;
using tagPOINT = POINT;

struct SIZE {
    LONG cx;
    LONG cy;
};
using LPSIZE = SIZE*;
using tagSIZE = SIZE;

struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
using LPRECT = RECT*;
using LPCRECT = const RECT*;
using tagRECT = RECT;

struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};
using LPFILETIME = FILETIME*;

struct SYSTEMTIME {
    WORD wYear;
    WORD wMonth;
    WORD wDayOfWeek;
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
};
using LPSYSTEMTIME = SYSTEMTIME*;

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic" // unnamed structures are part of the interface
union LARGE_INTEGER {
    struct {
        DWORD LowPart;
        LONG HighPart;
    };
    struct {
        DWORD LowPart;
        LONG HighPart;
    } u;
    LONGLONG QuadPart;
};
using PLARGE_INTEGER = LARGE_INTEGER*;

union ULARGE_INTEGER {
    struct {
        DWORD LowPart;
        DWORD HighPart;
    };
    struct {
        DWORD LowPart;
        DWORD HighPart;
    } u;
    ULONGLONG QuadPart;
};
using PULARGE_INTEGER = ULARGE_INTEGER*;
#pragma GCC diagnostic pop

struct SECURITY_ATTRIBUTES {
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
};
using LPSECURITY_ATTRIBUTES = SECURITY_ATTRIBUTES*;

struct GUID {
    UINT32 Data1;
    UINT16 Data2;
    UINT16 Data3;
    BYTE Data4[8];
};
using IID = GUID;
using CLSID = GUID;

constexpr BYTE LOBYTE(DWORD_PTR word) { return static_cast<BYTE>(word & 0xff); }
constexpr BYTE HIBYTE(DWORD_PTR word) { return static_cast<BYTE>((word >> 8) & 0xff); }
constexpr WORD LOWORD(DWORD_PTR value) { return static_cast<WORD>(value & 0xffff); }
constexpr WORD HIWORD(DWORD_PTR value) { return static_cast<WORD>((value >> 16) & 0xffff); }
constexpr WORD MAKEWORD(DWORD_PTR low, DWORD_PTR high)
{
    return static_cast<WORD>((low & 0xff) | ((high & 0xff) << 8));
}
constexpr LONG MAKELONG(DWORD_PTR low, DWORD_PTR high)
{
    return static_cast<LONG>((low & 0xffff) | ((high & 0xffff) << 16));
}
constexpr LPARAM MAKELPARAM(DWORD_PTR low, DWORD_PTR high)
{
    return static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(low, high)));
}
constexpr WPARAM MAKEWPARAM(DWORD_PTR low, DWORD_PTR high)
{
    return static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(low, high)));
}

constexpr COLORREF RGB(DWORD red, DWORD green, DWORD blue)
{
    return (red & 0xff) | ((green & 0xff) << 8) | ((blue & 0xff) << 16);
}
constexpr BYTE GetRValue(COLORREF colour) { return static_cast<BYTE>(colour & 0xff); }
constexpr BYTE GetGValue(COLORREF colour) { return static_cast<BYTE>((colour >> 8) & 0xff); }
constexpr BYTE GetBValue(COLORREF colour) { return static_cast<BYTE>((colour >> 16) & 0xff); }
