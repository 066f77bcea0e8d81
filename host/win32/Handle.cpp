#include "Handle.h"

#include "errhandlingapi.h"
#include "handleapi.h"
#include "winbase.h"
#include "winerror.h"

#include <map>
#include <mutex>

namespace
{
struct Table {
    std::mutex mutex;
    std::map<HANDLE, std::shared_ptr<win32::Object>> objects;
    ULONG_PTR last = 0x100;
};

/// Never destroyed: handles are closed by destructors of other files too.
Table& table()
{
    static Table* const all = new Table;
    return *all;
}
} // namespace

namespace win32
{
HANDLE openHandle(std::shared_ptr<Object> object)
{
    Table& all = table();
    const std::lock_guard<std::mutex> lock(all.mutex);
    const HANDLE handle = reinterpret_cast<HANDLE>(all.last += 4);
    all.objects.emplace(handle, std::move(object));
    return handle;
}

std::shared_ptr<Object> objectOf(HANDLE handle)
{
    Table& all = table();
    const std::lock_guard<std::mutex> lock(all.mutex);
    const auto found = all.objects.find(handle);
    return found == all.objects.end() ? nullptr : found->second;
}

bool closeHandle(HANDLE handle)
{
    std::shared_ptr<Object> closed; // outlives the lock: its destructor may need the table
    Table& all = table();
    const std::lock_guard<std::mutex> lock(all.mutex);
    const auto found = all.objects.find(handle);
    if (found == all.objects.end()) return false;
    closed = std::move(found->second);
    all.objects.erase(found);
    return true;
}
} // namespace win32

BOOL WINAPI CloseHandle(HANDLE handle)
{
    if (win32::closeHandle(handle)) return TRUE;
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}

HANDLE WINAPI GetCurrentProcess()
{
    return INVALID_HANDLE_VALUE;
}

BOOL WINAPI DuplicateHandle(HANDLE sourceProcess, HANDLE source, HANDLE targetProcess, LPHANDLE target, DWORD,
                            BOOL, DWORD options)
{
    const auto object = win32::objectOf(source);
    const HANDLE here = GetCurrentProcess();
    if (!object || sourceProcess != here || targetProcess != here) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    if (!target || !(options & DUPLICATE_SAME_ACCESS)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    *target = win32::openHandle(object);
    if (options & DUPLICATE_CLOSE_SOURCE) win32::closeHandle(source);
    return TRUE;
}
