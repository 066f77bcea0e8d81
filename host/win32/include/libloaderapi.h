#pragma once

/// Modules: shared objects of this machine, loaded, counted and told of it as Windows does with a DLL.
///
/// A module may export `extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID)`. It is called with
/// DLL_PROCESS_ATTACH when the module is loaded, after those it depends on, and with DLL_PROCESS_DETACH
/// before it is unloaded or the program ends, before those it depends on; each once. That holds too for
/// modules that come in because another one is linked to them. Threads are not announced.
///
/// Functions fail with ERROR_MOD_NOT_FOUND when given a handle that is no module's.

#include "windef.h"

#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1
#define DLL_THREAD_ATTACH 2
#define DLL_THREAD_DETACH 3

#define DONT_RESOLVE_DLL_REFERENCES 0x00000001
#define LOAD_LIBRARY_AS_DATAFILE 0x00000002
#define LOAD_WITH_ALTERED_SEARCH_PATH 0x00000008
#define LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR 0x00000100
#define LOAD_LIBRARY_SEARCH_APPLICATION_DIR 0x00000200
#define LOAD_LIBRARY_SEARCH_USER_DIRS 0x00000400
#define LOAD_LIBRARY_SEARCH_SYSTEM32 0x00000800
#define LOAD_LIBRARY_SEARCH_DEFAULT_DIRS 0x00001000

#define GET_MODULE_HANDLE_EX_FLAG_PIN 0x00000001
#define GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT 0x00000002
#define GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS 0x00000004

/// Loads a module, or counts a reference more to a loaded one. A name without extension gets ".dll"; a dot
/// at its end means: no extension. A name without directory is that of a loaded module, or is looked for in
/// the program's directory, the one of SetDllDirectoryW, the current directory (unless SetDllDirectoryW was
/// given a text), the directories of PATH, and where the system keeps its libraries.
/// Null with ERROR_MOD_NOT_FOUND (the file or one it depends on), ERROR_BAD_EXE_FORMAT (no module of this
/// machine, or cut short), ERROR_PROC_NOT_FOUND (a function it needs is missing), ERROR_DLL_INIT_FAILED
/// (DllMain returned FALSE; it has been told of the detachment and the module is unloaded).
HMODULE WINAPI LoadLibraryW(LPCWSTR name);

/// The same with flags: DONT_RESOLVE_DLL_REFERENCES calls no DllMain; LOAD_LIBRARY_SEARCH_... look for a name
/// without directory only in the program's directory, that of SetDllDirectoryW, the system's. A module finds
/// what it is linked to by its own run path: LOAD_WITH_ALTERED_SEARCH_PATH and
/// LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR change nothing there. `file` must be null. ERROR_NOT_SUPPORTED for
/// loading as data, ERROR_INVALID_PARAMETER for other flags.
HMODULE WINAPI LoadLibraryExW(LPCWSTR name, HANDLE file, DWORD flags);

/// Gives a reference back; the last one unloads the module unless another module needs it. A module that was
/// there when the program started stays. ERROR_MOD_NOT_FOUND when no reference was counted.
BOOL WINAPI FreeLibrary(HMODULE module);

/// The address of what a module exports itself, under its exact name; null module: the program. Null with
/// ERROR_PROC_NOT_FOUND; ordinals are not known here.
FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name);

/// The module of a loaded file, by name (".dll" is added as above) or path, without regard to case; null: the
/// program itself. Counts no reference.
HMODULE WINAPI GetModuleHandleW(LPCWSTR name);

/// The same with flags: FROM_ADDRESS (`name` is an address in the module), UNCHANGED_REFCOUNT (else a
/// reference is counted), PIN (the module stays until the program ends).
BOOL WINAPI GetModuleHandleExW(DWORD flags, LPCWSTR name, HMODULE* module);

/// The path of a module's file (null: the program's) with drive and backslashes. Returns its length; when it
/// does not fit, `size` with ERROR_INSUFFICIENT_BUFFER and the path cut short with its terminator.
DWORD WINAPI GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD size);

/// The directory that LoadLibraryW looks into after the program's; "" only takes the current directory out
/// of the search, null brings it back and forgets the directory.
BOOL WINAPI SetDllDirectoryW(LPCWSTR path);

/// Copies that directory. Returns its length, or the size that is needed with the terminator.
DWORD WINAPI GetDllDirectoryW(DWORD size, LPWSTR buffer);

/// TRUE for a module: threads are never announced.
BOOL WINAPI DisableThreadLibraryCalls(HMODULE module);

#define LoadLibrary LoadLibraryW
#define LoadLibraryEx LoadLibraryExW
#define GetModuleHandle GetModuleHandleW
#define GetModuleHandleEx GetModuleHandleExW
#define GetModuleFileName GetModuleFileNameW
#define SetDllDirectory SetDllDirectoryW
#define GetDllDirectory GetDllDirectoryW
