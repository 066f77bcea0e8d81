#pragma once

#include "windef.h"

#define INFINITE 0xFFFFFFFF

/// A lock that its owner may take again. Make it with InitializeCriticalSection, end it with
/// DeleteCriticalSection; between the two it may not be copied or moved.
struct CRITICAL_SECTION {
    LPVOID DebugInfo; // the lock itself
};
using LPCRITICAL_SECTION = CRITICAL_SECTION*;

void WINAPI InitializeCriticalSection(LPCRITICAL_SECTION section);
BOOL WINAPI InitializeCriticalSectionAndSpinCount(LPCRITICAL_SECTION section, DWORD spinCount);
void WINAPI DeleteCriticalSection(LPCRITICAL_SECTION section);
void WINAPI EnterCriticalSection(LPCRITICAL_SECTION section);
BOOL WINAPI TryEnterCriticalSection(LPCRITICAL_SECTION section);
void WINAPI LeaveCriticalSection(LPCRITICAL_SECTION section);

/// Lets the calling thread rest. 0 gives the processor to another thread; INFINITE never comes back.
void WINAPI Sleep(DWORD milliseconds);
