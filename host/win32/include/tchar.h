#pragma once

/// The generic-text names, in their wide meaning.

#include "windef.h"

#include "mscrt.h"

#include <cwctype>

#define _T(quote) __TEXT(quote)
#define _TEXT(quote) __TEXT(quote)
#define _tmain wmain

#define _tcslen wcslen
#define _tcsnlen wcsnlen
#define _tcscpy wcscpy
#define _tcsncpy wcsncpy
#define _tcscat wcscat
#define _tcsncat wcsncat
#define _tcscmp wcscmp
#define _tcsncmp wcsncmp
#define _tcsicmp _wcsicmp
#define _tcsnicmp _wcsnicmp
#define _tcschr wcschr
#define _tcsrchr wcsrchr
#define _tcsstr wcsstr
#define _tcspbrk wcspbrk
#define _tcsspn wcsspn
#define _tcscspn wcscspn
#define _tcsdup _wcsdup
#define _tcsupr _wcsupr
#define _tcslwr _wcslwr
#define _tcsrev _wcsrev
#define _tcscpy_s wcscpy_s
#define _tcsncpy_s wcsncpy_s
#define _tcscat_s wcscat_s
#define _tcsncat_s wcsncat_s
#define _tcsupr_s _wcsupr_s
#define _tcslwr_s _wcslwr_s
#define _tcstok_s wcstok_s
#define _tcstol wcstol
#define _tcstoul wcstoul
#define _tcstod wcstod

#define _stprintf swprintf
#define _stprintf_s swprintf_s
#define _sntprintf _snwprintf
#define _sntprintf_s _snwprintf_s
#define _sctprintf _scwprintf
#define _vstprintf_s vswprintf_s
#define _vsntprintf _vsnwprintf
#define _vsntprintf_s _vsnwprintf_s
#define _vsctprintf _vscwprintf

#define _ttoi _wtoi
#define _ttol _wtol
#define _ttoi64 _wtoi64
#define _tstoi _wtoi
#define _tstol _wtol
#define _tstof _wtof
#define _ttof _wtof
#define _itot _itow
#define _itot_s _itow_s
#define _ltot _ltow
#define _ltot_s _ltow_s
#define _ultot _ultow
#define _ultot_s _ultow_s
#define _i64tot _i64tow
#define _i64tot_s _i64tow_s

#define _istalpha iswalpha
#define _istdigit iswdigit
#define _istalnum iswalnum
#define _istspace iswspace
#define _istupper iswupper
#define _istlower iswlower
#define _istpunct iswpunct
#define _istxdigit iswxdigit
#define _totupper crt::toUpper
#define _totlower crt::toLower

#define _tfopen _wfopen
#define _tfopen_s _wfopen_s
#define _taccess _waccess
#define _taccess_s _waccess_s
#define _tremove _wremove
#define _tsplitpath _wsplitpath
#define _tsplitpath_s _wsplitpath_s
#define _tmakepath _wmakepath
#define _tmakepath_s _wmakepath_s
