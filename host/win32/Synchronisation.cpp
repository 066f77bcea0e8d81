#include "synchapi.h"

#include <chrono>
#include <mutex>
#include <thread>

namespace
{
std::recursive_mutex& lockOf(LPCRITICAL_SECTION section)
{
    return *static_cast<std::recursive_mutex*>(section->DebugInfo);
}
} // namespace

void WINAPI InitializeCriticalSection(LPCRITICAL_SECTION section)
{
    section->DebugInfo = new std::recursive_mutex;
}

BOOL WINAPI InitializeCriticalSectionAndSpinCount(LPCRITICAL_SECTION section, DWORD)
{
    InitializeCriticalSection(section);
    return TRUE;
}

void WINAPI DeleteCriticalSection(LPCRITICAL_SECTION section)
{
    delete &lockOf(section);
    section->DebugInfo = nullptr;
}

void WINAPI EnterCriticalSection(LPCRITICAL_SECTION section)
{
    lockOf(section).lock();
}

BOOL WINAPI TryEnterCriticalSection(LPCRITICAL_SECTION section)
{
    return lockOf(section).try_lock();
}

void WINAPI LeaveCriticalSection(LPCRITICAL_SECTION section)
{
    lockOf(section).unlock();
}

void WINAPI Sleep(DWORD milliseconds)
{
    if (milliseconds == 0) return std::this_thread::yield();
    do {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    } while (milliseconds == INFINITE);
}
