#pragma once

/// Code pages, and the mapping and comparison of text by locale.
///
/// The code pages are 936 (GBK), 950 (Big5), 1252 (Western) and 65001 (UTF-8). The ANSI code page is 936
/// unless the environment variable QM_ACP names another of the four when the process starts.

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

/// True for the number of a code page that the conversions below take: 936, 950, 1252 and 65001.
BOOL WINAPI IsValidCodePage(UINT codePage);

/// Describes a code page; CP_ACP, CP_OEMCP and CP_THREAD_ACP are taken too.
/// FALSE with ERROR_INVALID_PARAMETER for an unknown page or a null result; nothing is written then.
BOOL WINAPI GetCPInfo(UINT codePage, LPCPINFO info);

/// True for a byte that can start a two-byte character of the ANSI code page, or of the one given.
BOOL WINAPI IsDBCSLeadByte(BYTE byte);
BOOL WINAPI IsDBCSLeadByteEx(UINT codePage, BYTE byte);
