#include "processthreadsapi.h"

#include <sys/syscall.h>
#include <unistd.h>

DWORD WINAPI GetCurrentProcessId()
{
    return static_cast<DWORD>(getpid());
}

DWORD WINAPI GetCurrentThreadId()
{
    return static_cast<DWORD>(syscall(SYS_gettid));
}
