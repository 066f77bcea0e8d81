#pragma once

/// Code pages, and the mapping and comparison of text by locale.
///
/// The code pages are 936 (GBK), 950 (Big5), 932 (Shift JIS), 949 (Korean), the Windows pages 874 and
/// 1250 ... 1258, the usual DOS pages (437, 850, 852 ...), 10000 (Macintosh), 28591 ... 28599 and 28605
/// (ISO 8859) and 65001 (UTF-8). One of 936, 950, 1252 and 65001 is the ANSI code page: 936 unless the
/// environment variable QM_ACP names another of the four when the process starts.

#include "windef.h"

#define CP_ACP 0
#define CP_OEMCP 1
#define CP_THREAD_ACP 3
#define CP_UTF8 65001

#define MAX_DEFAULTCHAR 2
#define MAX_LEADBYTES 12

struct CPINFO {
    UINT MaxCharSize; ///< bytes of the longest character
    BYTE DefaultChar[MAX_DEFAULTCHAR];
    BYTE LeadByte[MAX_LEADBYTES]; ///< pairs (first, last) of lead byte ranges, then zeros
};
using LPCPINFO = CPINFO*;

/// The ANSI code page, that of CP_ACP and CP_THREAD_ACP.
UINT WINAPI GetACP();

/// The code page of CP_OEMCP. Here it is the ANSI code page, as on every system with an Asian one.
UINT WINAPI GetOEMCP();

/// True for the number of a code page that the conversions take.
BOOL WINAPI IsValidCodePage(UINT codePage);

/// Describes a code page; CP_ACP, CP_OEMCP and CP_THREAD_ACP are taken too.
/// FALSE with ERROR_INVALID_PARAMETER for an unknown page or a null result; nothing is written then.
BOOL WINAPI GetCPInfo(UINT codePage, LPCPINFO info);

/// True for a byte that can start a two-byte character of the ANSI code page, or of the one given.
BOOL WINAPI IsDBCSLeadByte(BYTE byte);
BOOL WINAPI IsDBCSLeadByteEx(UINT codePage, BYTE byte);

// Locales. Two languages matter here: Chinese in its simplified and traditional forms; every other locale
// sorts by the Unicode collation algorithm.

#define LANG_NEUTRAL 0x00
#define LANG_CHINESE 0x04
#define LANG_ENGLISH 0x09
#define SUBLANG_NEUTRAL 0x00
#define SUBLANG_DEFAULT 0x01
#define SUBLANG_CHINESE_TRADITIONAL 0x01
#define SUBLANG_CHINESE_SIMPLIFIED 0x02
#define SUBLANG_ENGLISH_US 0x01
#define SORT_DEFAULT 0x0
#define SORT_CHINESE_PRC 0x2

constexpr LANGID MAKELANGID(DWORD primary, DWORD sub)
{
    return static_cast<LANGID>(sub << 10 | primary);
}
constexpr LCID MAKELCID(DWORD language, DWORD sort)
{
    return sort << 16 | language;
}
constexpr WORD PRIMARYLANGID(DWORD language)
{
    return language & 0x3FF;
}
constexpr WORD SUBLANGID(DWORD language)
{
    return static_cast<WORD>((language & 0xFFFF) >> 10);
}
constexpr LANGID LANGIDFROMLCID(LCID locale)
{
    return static_cast<LANGID>(locale);
}

#define LANG_SYSTEM_DEFAULT MAKELANGID(LANG_NEUTRAL, 0x02)
#define LANG_USER_DEFAULT MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT)
#define LOCALE_SYSTEM_DEFAULT MAKELCID(LANG_SYSTEM_DEFAULT, SORT_DEFAULT)
#define LOCALE_USER_DEFAULT MAKELCID(LANG_USER_DEFAULT, SORT_DEFAULT)
#define LOCALE_INVARIANT 0x007F

#define LOCALE_USE_CP_ACP 0x40000000
#define LCMAP_LOWERCASE 0x00000100
#define LCMAP_UPPERCASE 0x00000200
#define LCMAP_SIMPLIFIED_CHINESE 0x02000000
#define LCMAP_TRADITIONAL_CHINESE 0x04000000

#define NORM_IGNORECASE 0x00000001
#define LINGUISTIC_IGNORECASE 0x00000010
#define NORM_IGNOREWIDTH 0x00020000
#define SORT_STRINGSORT 0x00001000
#define CSTR_LESS_THAN 1
#define CSTR_EQUAL 2
#define CSTR_GREATER_THAN 3

/// Maps each character of `text` for itself; the length stays. `flags` is one or both of a case
/// (LCMAP_LOWERCASE or LCMAP_UPPERCASE) and a form of Chinese (LCMAP_SIMPLIFIED_CHINESE or
/// LCMAP_TRADITIONAL_CHINESE, ICU's mapping where it is one character to one). The locale does not change
/// the mapping. `length` is negative for a text with a NUL, which is mapped too; `capacity` 0 measures.
///
/// Returns the number of characters written or needed, 0 on failure: ERROR_INVALID_PARAMETER (null text,
/// length 0, capacity without a buffer, text and buffer the same unless only the case is mapped),
/// ERROR_INVALID_FLAGS, ERROR_INSUFFICIENT_BUFFER (the contents of the buffer are then undefined).
int WINAPI LCMapStringW(LCID locale, DWORD flags, LPCWSTR text, int length, LPWSTR to, int capacity);

/// The same for bytes of the locale's ANSI code page: 936 for Chinese of the PRC and Singapore in any sort
/// order (0x0804, 0x20804, 0x1004), 950 for Chinese of Taiwan, Hong Kong and Macao (0x0404, 0x0C04, 0x1404),
/// that of CP_ACP for every other locale and with LOCALE_USE_CP_ACP. The result is in the same code page;
/// a character that it has not becomes '?'. Lengths count bytes.
int WINAPI LCMapStringA(LCID locale, DWORD flags, LPCSTR text, int length, LPSTR to, int capacity);

/// Compares by the order of the locale: Chinese of the PRC by pinyin (by stroke with the sort order
/// SORT_CHINESE_PRC), of Taiwan by stroke, all else by the Unicode collation algorithm. LOCALE_USER_DEFAULT
/// and LOCALE_SYSTEM_DEFAULT are the language of the ANSI code page. Negative lengths are texts with a NUL.
///
/// `flags`: NORM_IGNORECASE (or LINGUISTIC_IGNORECASE), NORM_IGNOREWIDTH; SORT_STRINGSORT is the order in any
/// case: hyphens and apostrophes count like other signs.
/// Returns CSTR_LESS_THAN, CSTR_EQUAL or CSTR_GREATER_THAN; 0 on failure with ERROR_INVALID_PARAMETER (null
/// text) or ERROR_INVALID_FLAGS.
int WINAPI CompareStringW(LCID locale, DWORD flags, LPCWSTR a, int aLength, LPCWSTR b, int bLength);

/// Compare in the order of the user's locale, with or without case: negative, 0 or positive. Null comes
/// before every text and equals null.
int WINAPI lstrcmpW(LPCWSTR a, LPCWSTR b);
int WINAPI lstrcmpiW(LPCWSTR a, LPCWSTR b);

/// The length without the NUL; 0 for null.
int WINAPI lstrlenW(LPCWSTR text);

/// The locale that goes with the ANSI code page: Chinese of the PRC, of Taiwan, or US English.
LCID WINAPI GetUserDefaultLCID();
LCID WINAPI GetSystemDefaultLCID();
LANGID WINAPI GetUserDefaultLangID();
LANGID WINAPI GetSystemDefaultLangID();

// The names of a Unicode program.
#define LCMapString LCMapStringW
#define CompareString CompareStringW
#define lstrcmp lstrcmpW
#define lstrcmpi lstrcmpiW
#define lstrlen lstrlenW
