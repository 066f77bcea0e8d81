#pragma once

#include "windef.h"

using LPHANDLE = HANDLE*;

#define DUPLICATE_CLOSE_SOURCE 0x00000001
#define DUPLICATE_SAME_ACCESS 0x00000002

/// Closes a handle of any kind but those of FindFirstFileW. The object goes with its last handle.
/// FALSE with ERROR_INVALID_HANDLE when the handle is not open.
BOOL WINAPI CloseHandle(HANDLE handle);

/// Makes another handle of the same object, within this process: both process arguments are
/// GetCurrentProcess(), `options` holds DUPLICATE_SAME_ACCESS, `access` is not used. A file has one
/// position for all its handles.
/// FALSE with ERROR_INVALID_HANDLE (source or process) or ERROR_INVALID_PARAMETER.
BOOL WINAPI DuplicateHandle(HANDLE sourceProcess, HANDLE source, HANDLE targetProcess, LPHANDLE target,
                            DWORD access, BOOL inherit, DWORD options);
