#pragma once

/// File version information: a VS_VERSIONINFO structure, in the resources of a PE file or in the section
/// ".rsrc.version" of a module of this machine (see cmake/ArxModule.cmake).

#include "windef.h"

struct VS_FIXEDFILEINFO {
    DWORD dwSignature;
    DWORD dwStrucVersion;
    DWORD dwFileVersionMS;
    DWORD dwFileVersionLS;
    DWORD dwProductVersionMS;
    DWORD dwProductVersionLS;
    DWORD dwFileFlagsMask;
    DWORD dwFileFlags;
    DWORD dwFileOS;
    DWORD dwFileType;
    DWORD dwFileSubtype;
    DWORD dwFileDateMS;
    DWORD dwFileDateLS;
};

#define VS_FFI_SIGNATURE 0xFEEF04BD
#define VS_FFI_STRUCVERSION 0x00010000
#define VS_FFI_FILEFLAGSMASK 0x0000003F
#define VS_FF_DEBUG 0x00000001
#define VOS_NT_WINDOWS32 0x00040004
#define VFT_APP 0x00000001
#define VFT_DLL 0x00000002

/// The size in bytes of the buffer that GetFileVersionInfoW fills. `ignored`, if not null, becomes 0.
/// 0 with ERROR_FILE_NOT_FOUND and its kin, ERROR_BAD_FORMAT (the file is neither a PE file nor a module of
/// this machine, or is damaged), ERROR_RESOURCE_DATA_NOT_FOUND (it has no resources),
/// ERROR_RESOURCE_TYPE_NOT_FOUND (none of them is version information), ERROR_INVALID_DATA (the version
/// information itself is damaged).
DWORD WINAPI GetFileVersionInfoSizeW(LPCWSTR file, LPDWORD ignored);

/// Fills a buffer for VerQueryValueW. The file keeps its texts in 16-bit units, so the buffer does not hold
/// its bytes but the same tree with texts of the platform's wchar_t. A buffer that is too small gets what
/// fits; the values that are cut off are not found later. ERROR_INSUFFICIENT_BUFFER when nothing fits.
BOOL WINAPI GetFileVersionInfoW(LPCWSTR file, DWORD ignored, DWORD size, LPVOID buffer);

/// Finds a value, names without regard to case: "\" (VS_FIXEDFILEINFO), "\VarFileInfo\Translation" (pairs of
/// language and code page), "\StringFileInfo\080404b0\FileVersion" ... The value lies in the buffer. `length`
/// is in characters with the terminator for texts, in bytes for others, 0 on failure.
/// ERROR_RESOURCE_TYPE_NOT_FOUND for an unknown name, ERROR_INVALID_DATA when the buffer holds no block.
BOOL WINAPI VerQueryValueW(LPCVOID block, LPCWSTR name, LPVOID* value, UINT* length);

#define GetFileVersionInfoSize GetFileVersionInfoSizeW
#define GetFileVersionInfo GetFileVersionInfoW
#define VerQueryValue VerQueryValueW
