#include "Text.h"
#include "Utf16Units.h"

#include "errhandlingapi.h"
#include "processthreadsapi.h"
#include "winbase.h"
#include "winerror.h"
#include "winnls.h"
#include "winuser.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <vector>

namespace
{
struct Entry {
    UINT format;
    HANDLE data; // null: the owner is asked for it
    bool made;   // from another format
};

struct Clipboard {
    std::recursive_mutex mutex;
    std::vector<Entry> entries;
    HWND owner = nullptr;
    HWND window = nullptr; // that has it open
    DWORD thread = 0;      // that has it open, 0: none
    UINT asked = 0;        // what WM_RENDERFORMAT asks for now
    DWORD sequence = 0;
};

Clipboard& clipboard()
{
    static Clipboard& only = *new Clipboard;
    return only;
}

using Lock = std::lock_guard<std::recursive_mutex>;

BOOL failed(DWORD error)
{
    SetLastError(error);
    return FALSE;
}

bool isOpenHere()
{
    return clipboard().thread == GetCurrentThreadId();
}

bool requireOpen()
{
    return isOpenHere() || failed(ERROR_CLIPBOARD_NOT_OPEN);
}

std::vector<Entry>::iterator find(UINT format)
{
    auto& entries = clipboard().entries;
    return std::find_if(entries.begin(), entries.end(),
                        [=](const Entry& one) { return one.format == format; });
}

bool isThere(UINT format)
{
    return find(format) != clipboard().entries.end();
}

constexpr UINT textFormats[] = {CF_UNICODETEXT, CF_TEXT, CF_OEMTEXT};

bool isText(UINT format)
{
    return std::find(std::begin(textFormats), std::end(textFormats), format) != std::end(textFormats);
}

// The format that a text format is made from: one that was set, Unicode before others. 0 when there is none.
UINT sourceOf(UINT format)
{
    if (!isText(format)) return 0;
    for (UINT one : textFormats)
        if (isThere(one) && !find(one)->made) return one;
    return 0;
}

bool isAvailable(UINT format)
{
    return isThere(format) || sourceOf(format) != 0;
}

void release(Entry& entry)
{
    if (entry.data) GlobalFree(entry.data);
    entry.data = nullptr;
}

void remove(UINT format)
{
    const auto found = find(format);
    if (found == clipboard().entries.end()) return;
    release(*found);
    clipboard().entries.erase(found);
}

void clear()
{
    for (Entry& entry : clipboard().entries)
        release(entry);
    clipboard().entries.clear();
}

// New text makes what was derived from the old one wrong.
void dropMade()
{
    for (UINT format : textFormats)
        if (isThere(format) && find(format)->made) remove(format);
}

void put(const Entry& entry)
{
    if (isText(entry.format) && !entry.made) dropMade();
    const auto found = find(entry.format);
    if (found == clipboard().entries.end()) {
        clipboard().entries.push_back(entry);
    } else {
        if (found->data != entry.data) release(*found);
        *found = entry;
    }
    if (!entry.made) ++clipboard().sequence;
}

// The text of a block, which ends at its null or with the block.
std::wstring wideText(HANDLE block, bool wide)
{
    const void* data = GlobalLock(block);
    if (!data) return {};
    std::wstring text;
    if (wide) {
        std::vector<std::uint16_t> units(GlobalSize(block) / sizeof(std::uint16_t));
        if (!units.empty()) std::memcpy(units.data(), data, units.size() * sizeof units[0]);
        const auto end = std::find(units.begin(), units.end(), 0);
        text = win32::fromUnits(units.data(), static_cast<std::size_t>(end - units.begin()));
    } else {
        const auto* bytes = static_cast<const char*>(data);
        const std::size_t size = GlobalSize(block);
        text = win32::widen(CP_ACP,
                            {bytes, static_cast<std::size_t>(std::find(bytes, bytes + size, '\0') - bytes)});
    }
    GlobalUnlock(block);
    return text;
}

HANDLE blockOf(const void* data, std::size_t size, std::size_t terminator)
{
    const HANDLE block = GlobalAlloc(GHND, size + terminator);
    if (!block) return nullptr;
    void* target = GlobalLock(block);
    if (size > 0) std::memcpy(target, data, size);
    GlobalUnlock(block);
    return block;
}

HANDLE textBlock(const std::wstring& text, bool wide)
{
    if (!wide) {
        const std::string bytes = win32::narrow(CP_ACP, text);
        return blockOf(bytes.data(), bytes.size(), 1);
    }
    const std::vector<std::uint16_t> units = win32::toUnits(text);
    return blockOf(units.data(), units.size() * sizeof(std::uint16_t), sizeof(std::uint16_t));
}

// Asks the owner for data that it has promised; it answers with SetClipboardData.
void render(UINT format)
{
    HWND owner = nullptr;
    {
        const Lock lock(clipboard().mutex);
        if (!isThere(format) || find(format)->data || clipboard().asked) return;
        clipboard().asked = format;
        owner = clipboard().owner;
    }
    SendMessageW(owner, WM_RENDERFORMAT, format, 0);
    const Lock lock(clipboard().mutex);
    clipboard().asked = 0;
}

HANDLE dataOf(UINT format)
{
    const auto found = find(format);
    return found == clipboard().entries.end() ? nullptr : found->data;
}

HANDLE makeFrom(UINT source, UINT format)
{
    const HANDLE from = dataOf(source);
    const HANDLE made =
        from ? textBlock(wideText(from, source == CF_UNICODETEXT), format == CF_UNICODETEXT) : nullptr;
    if (made) put({format, made, true});
    return made;
}

// All formats, those that can be made behind those that were set.
std::vector<UINT> available()
{
    std::vector<UINT> formats;
    for (const Entry& entry : clipboard().entries)
        if (!entry.made) formats.push_back(entry.format);
    for (UINT format : textFormats)
        if (isAvailable(format) && std::find(formats.begin(), formats.end(), format) == formats.end())
            formats.push_back(format);
    return formats;
}

DWORD faultOf(UINT format, HANDLE data)
{
    if (!isOpenHere() && (!clipboard().asked || clipboard().asked != format)) return ERROR_CLIPBOARD_NOT_OPEN;
    if (format == 0) return ERROR_INVALID_PARAMETER;
    return data && GlobalFlags(data) == GMEM_INVALID_HANDLE ? ERROR_INVALID_HANDLE : ERROR_SUCCESS;
}
} // namespace

BOOL WINAPI OpenClipboard(HWND window)
{
    if (window && !IsWindow(window)) return failed(ERROR_INVALID_WINDOW_HANDLE);
    const Lock lock(clipboard().mutex);
    const DWORD thread = GetCurrentThreadId();
    const bool taken = clipboard().thread && (clipboard().thread != thread || clipboard().window != window);
    if (taken) return failed(ERROR_ACCESS_DENIED);
    clipboard().thread = thread;
    clipboard().window = window;
    return TRUE;
}

BOOL WINAPI CloseClipboard()
{
    const Lock lock(clipboard().mutex);
    if (!requireOpen()) return FALSE;
    clipboard().thread = 0;
    clipboard().window = nullptr;
    return TRUE;
}

BOOL WINAPI EmptyClipboard()
{
    HWND owner = nullptr;
    {
        const Lock lock(clipboard().mutex);
        if (!requireOpen()) return FALSE;
        owner = clipboard().owner;
    }
    if (owner && IsWindow(owner)) SendMessageW(owner, WM_DESTROYCLIPBOARD, 0, 0);
    const Lock lock(clipboard().mutex);
    clear();
    clipboard().owner = clipboard().window;
    ++clipboard().sequence;
    return TRUE;
}

HANDLE WINAPI SetClipboardData(UINT format, HANDLE data)
{
    const Lock lock(clipboard().mutex);
    if (const DWORD fault = faultOf(format, data)) {
        failed(fault);
        return nullptr;
    }
    put({format, data, false});
    return data;
}

HANDLE WINAPI GetClipboardData(UINT format)
{
    UINT source = 0;
    {
        const Lock lock(clipboard().mutex);
        if (!requireOpen()) return nullptr;
        source = isThere(format) ? format : sourceOf(format);
        if (!source) {
            failed(ERROR_NOT_FOUND);
            return nullptr;
        }
    }
    render(source);
    const Lock lock(clipboard().mutex);
    return source == format ? dataOf(format) : makeFrom(source, format);
}

BOOL WINAPI IsClipboardFormatAvailable(UINT format)
{
    const Lock lock(clipboard().mutex);
    return isAvailable(format);
}

UINT WINAPI EnumClipboardFormats(UINT format)
{
    const Lock lock(clipboard().mutex);
    if (!requireOpen()) return 0;
    const std::vector<UINT> formats = available();
    SetLastError(ERROR_SUCCESS);
    if (format == 0) return formats.empty() ? 0 : formats.front();
    const auto found = std::find(formats.begin(), formats.end(), format);
    return found == formats.end() || std::next(found) == formats.end() ? 0 : *std::next(found);
}

int WINAPI CountClipboardFormats()
{
    const Lock lock(clipboard().mutex);
    return static_cast<int>(available().size());
}

HWND WINAPI GetClipboardOwner()
{
    const Lock lock(clipboard().mutex);
    return IsWindow(clipboard().owner) ? clipboard().owner : nullptr;
}

HWND WINAPI GetOpenClipboardWindow()
{
    const Lock lock(clipboard().mutex);
    return clipboard().window;
}

DWORD WINAPI GetClipboardSequenceNumber()
{
    const Lock lock(clipboard().mutex);
    return clipboard().sequence;
}
