#include "MessageQueue.h"

#include "WindowTable.h"

#include "errhandlingapi.h"
#include "processthreadsapi.h"
#include "sysinfoapi.h"
#include "winerror.h"

#include <algorithm>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <unistd.h>

namespace
{
using win32::WindowLock;

constexpr std::size_t queueCapacity = 10000;
const HWND threadMessagesOnly = reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1));

struct Queue {
    std::deque<MSG> posted;
    std::optional<int> exitCode;
};

struct Queues {
    std::mutex mutex;
    std::map<DWORD, Queue> ofThread;
};

Queues& queues()
{
    static Queues& all = *new Queues;
    return all;
}

// A thread's number may be given to another thread later, which must not find the messages of this one.
struct QueueEnd {
    ~QueueEnd()
    {
        Queues& all = queues();
        const std::lock_guard lock(all.mutex);
        all.ofThread.erase(GetCurrentThreadId());
    }
};

void endWithThread()
{
    static thread_local QueueEnd end;
    (void)end;
}

BOOL failed(DWORD error)
{
    SetLastError(error);
    return FALSE;
}

MSG stamped(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    MSG made{handle, message, wParam, lParam, GetTickCount(), {}};
    GetCursorPos(&made.pt);
    return made;
}

BOOL put(DWORD thread, const MSG& message)
{
    if (thread == GetCurrentThreadId()) endWithThread();
    Queues& all = queues();
    const std::lock_guard lock(all.mutex);
    std::deque<MSG>& posted = all.ofThread[thread].posted;
    if (posted.size() >= queueCapacity) return failed(ERROR_NOT_ENOUGH_QUOTA);
    posted.push_back(message);
    return TRUE;
}

struct Filter {
    HWND window;
    UINT first;
    UINT last;

    bool takes(const MSG& message) const
    {
        if ((first || last) && (message.message < first || message.message > last)) return false;
        if (!window) return true;
        if (window == threadMessagesOnly) return !message.hwnd;
        return message.hwnd == window || IsChild(window, message.hwnd);
    }
};

// The order of locks is windows before queues; the filter asks for the parents of windows.
bool take(const Filter& filter, bool remove, MSG& message)
{
    const WindowLock windows;
    Queues& all = queues();
    const std::lock_guard lock(all.mutex);
    const auto mine = all.ofThread.find(GetCurrentThreadId());
    if (mine == all.ofThread.end()) return false;
    Queue& queue = mine->second;
    const auto found =
        std::find_if(queue.posted.begin(), queue.posted.end(), [&](const MSG& m) { return filter.takes(m); });
    if (found != queue.posted.end()) {
        message = *found;
        if (remove) queue.posted.erase(found);
        return true;
    }
    if (!queue.posted.empty() || !queue.exitCode) return false;
    message = stamped(nullptr, WM_QUIT, static_cast<WPARAM>(*queue.exitCode), 0);
    if (remove) queue.exitCode.reset();
    return true;
}

bool isFilterWindow(HWND handle)
{
    return !handle || handle == threadMessagesOnly || IsWindow(handle);
}

bool isThread(DWORD thread)
{
    return thread && access(("/proc/self/task/" + std::to_string(thread)).c_str(), F_OK) == 0;
}

std::vector<HWND> topLevelWindows()
{
    const WindowLock lock;
    return win32::childrenOf(GetDesktopWindow());
}

WNDPROC procedureOf(HWND handle)
{
    const WindowLock lock;
    const win32::Window* window = win32::requireWindow(handle);
    return window ? window->procedure : nullptr;
}

template <class Wanted>
std::vector<MSG> extract(std::deque<MSG>& from, Wanted wanted)
{
    std::vector<MSG> taken;
    std::copy_if(from.begin(), from.end(), std::back_inserter(taken), wanted);
    from.erase(std::remove_if(from.begin(), from.end(), wanted), from.end());
    return taken;
}
} // namespace

namespace win32
{
void dropMessagesOf(HWND handle)
{
    takePostedMessages(handle);
}

std::vector<MSG> takePostedMessages(HWND handle)
{
    std::vector<MSG> taken;
    Queues& all = queues();
    const std::lock_guard lock(all.mutex);
    for (auto& [thread, queue] : all.ofThread) {
        const auto some = extract(queue.posted, [=](const MSG& m) { return !handle || m.hwnd == handle; });
        taken.insert(taken.end(), some.begin(), some.end());
    }
    return taken;
}
} // namespace win32

LRESULT WINAPI SendMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (handle == HWND_BROADCAST) {
        for (HWND one : topLevelWindows())
            SendMessageW(one, message, wParam, lParam);
        return TRUE;
    }
    const WNDPROC procedure = procedureOf(handle);
    return procedure ? procedure(handle, message, wParam, lParam) : 0;
}

BOOL WINAPI PostMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!handle) return put(GetCurrentThreadId(), stamped(nullptr, message, wParam, lParam));
    if (handle == HWND_BROADCAST) {
        for (HWND one : topLevelWindows())
            PostMessageW(one, message, wParam, lParam);
        return TRUE;
    }
    const DWORD thread = GetWindowThreadProcessId(handle, nullptr);
    return IsWindow(handle) && put(thread, stamped(handle, message, wParam, lParam));
}

BOOL WINAPI PostThreadMessageW(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!isThread(thread)) return failed(ERROR_INVALID_THREAD_ID);
    return put(thread, stamped(nullptr, message, wParam, lParam));
}

BOOL WINAPI PeekMessageW(LPMSG message, HWND handle, UINT first, UINT last, UINT flags)
{
    if (!isFilterWindow(handle)) return failed(ERROR_INVALID_WINDOW_HANDLE);
    if (!message) return failed(ERROR_NOACCESS);
    endWithThread();
    return take({handle, first, last}, (flags & PM_REMOVE) != 0, *message);
}

BOOL WINAPI GetMessageW(LPMSG message, HWND handle, UINT first, UINT last)
{
    if (!isFilterWindow(handle)) return failed(ERROR_INVALID_WINDOW_HANDLE) - 1;
    if (!message) return failed(ERROR_NOACCESS) - 1;
    if (!PeekMessageW(message, handle, first, last, PM_REMOVE)) *message = stamped(nullptr, WM_QUIT, 0, 0);
    return message->message != WM_QUIT;
}

LRESULT WINAPI DispatchMessageW(const MSG* message)
{
    if (!message || !message->hwnd) return 0;
    return SendMessageW(message->hwnd, message->message, message->wParam, message->lParam);
}

void WINAPI PostQuitMessage(int exitCode)
{
    endWithThread();
    Queues& all = queues();
    const std::lock_guard lock(all.mutex);
    all.ofThread[GetCurrentThreadId()].exitCode = exitCode;
}
