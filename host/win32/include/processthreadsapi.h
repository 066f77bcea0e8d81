#pragma once

#include "windef.h"

/// The number of this process, and of the calling thread. A thread's number is unique in the process while
/// the thread lives.
DWORD WINAPI GetCurrentProcessId();
DWORD WINAPI GetCurrentThreadId();
