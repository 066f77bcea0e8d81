#include "WindowMap.h"

#include <mutex>
#include <unordered_map>
#include <vector>

namespace
{
struct Map {
    std::mutex mutex;
    std::unordered_map<HWND, CWnd*> permanent;
    std::unordered_map<HWND, CWnd*> temporary;
};

// Windows are destroyed by static objects too, so the map must outlive them: it is never deleted.
Map& map()
{
    static Map& instance = *new Map;
    return instance;
}

/// A temporary object does not own its window: deleting it must not destroy the window.
void deleteTemporary(CWnd* object)
{
    object->m_hWnd = nullptr;
    delete object;
}

CWnd* find(const std::unordered_map<HWND, CWnd*>& objects, HWND window)
{
    const auto found = objects.find(window);
    return found == objects.end() ? nullptr : found->second;
}
} // namespace

namespace mfc
{
CWnd* permanentObject(HWND window)
{
    const std::lock_guard<std::mutex> lock(map().mutex);
    return find(map().permanent, window);
}

CWnd* anyObject(HWND window, CWnd* (*make)(HWND window))
{
    const std::lock_guard<std::mutex> lock(map().mutex);
    if (CWnd* permanent = find(map().permanent, window)) return permanent;
    CWnd*& temporary = map().temporary[window];
    if (!temporary) temporary = make(window);
    return temporary;
}

bool enterPermanent(HWND window, CWnd* object)
{
    CWnd* replaced = nullptr;
    {
        const std::lock_guard<std::mutex> lock(map().mutex);
        if (!map().permanent.emplace(window, object).second) return false;
        replaced = find(map().temporary, window);
        map().temporary.erase(window);
    }
    if (replaced) deleteTemporary(replaced);
    return true;
}

void removePermanent(HWND window, const CWnd* object)
{
    const std::lock_guard<std::mutex> lock(map().mutex);
    if (find(map().permanent, window) == object) map().permanent.erase(window);
}

void deleteTemporaries()
{
    std::unordered_map<HWND, CWnd*> old;
    {
        const std::lock_guard<std::mutex> lock(map().mutex);
        old.swap(map().temporary);
    }
    for (const auto& entry : old)
        deleteTemporary(entry.second);
}
} // namespace mfc
