#include "Errno.h"

#include "errhandlingapi.h"
#include "winbase.h"
#include "winerror.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <unordered_map>

namespace
{
using namespace win32;

constexpr unsigned maxLocks = GMEM_LOCKCOUNT;

struct Block {
    void* memory;
    SIZE_T size;
    bool isMovable;
    unsigned locks;
};

/// The blocks by handle. A fixed block's handle is its memory; a movable one's is a byte of its own, so that
/// no handle can be the address of something else.
struct Registry {
    std::mutex mutex;
    std::unordered_map<HANDLE, Block> blocks;
};

Registry& registry()
{
    static Registry* const all = new Registry; // memory is given back by destructors of other files too
    return *all;
}

HGLOBAL outOfMemory()
{
    return failWith(ERROR_NOT_ENOUGH_MEMORY), nullptr;
}

/// Calls use(block) for an existing block; else sets the last error and gives `otherwise`.
template <class Result, class Use>
Result withBlock(HANDLE handle, Result otherwise, Use use)
{
    Registry& all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    const auto found = all.blocks.find(handle);
    if (found == all.blocks.end()) return failWith(ERROR_INVALID_HANDLE), otherwise;
    return use(found->second);
}

HGLOBAL allocate(UINT flags, SIZE_T bytes)
{
    const SIZE_T real = bytes ? bytes : 1;
    void* memory = flags & GMEM_ZEROINIT ? std::calloc(real, 1) : std::malloc(real);
    const bool isMovable = flags & GMEM_MOVEABLE;
    const HANDLE handle = memory && isMovable ? std::malloc(1) : memory;
    if (!handle) return std::free(memory), outOfMemory();
    Registry& all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    all.blocks[handle] = {memory, bytes, isMovable, 0};
    return handle;
}

/// Changes the size of a block in the table; its handle changes when it is a fixed one that moves.
HGLOBAL reallocate(Registry& all, HANDLE handle, SIZE_T bytes, UINT flags)
{
    Block block = all.blocks.at(handle);
    if (!block.isMovable && !(flags & GMEM_MOVEABLE)) { // stays where it is, so it can only shrink
        if (bytes > block.size) return outOfMemory();
        all.blocks.at(handle).size = bytes;
        return handle;
    }
    void* memory = std::realloc(block.memory, bytes ? bytes : 1);
    if (!memory) return outOfMemory();
    if ((flags & GMEM_ZEROINIT) && bytes > block.size)
        std::memset(static_cast<char*>(memory) + block.size, 0, bytes - block.size);
    block.memory = memory;
    block.size = bytes;
    all.blocks.erase(handle);
    const HANDLE now = block.isMovable ? handle : memory;
    all.blocks[now] = block;
    return now;
}
} // namespace

HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T bytes)
{
    return allocate(flags, bytes);
}

LPVOID WINAPI GlobalLock(HGLOBAL handle)
{
    return withBlock(handle, static_cast<LPVOID>(nullptr), [](Block& block) {
        if (block.isMovable && block.locks < maxLocks) ++block.locks;
        return block.memory;
    });
}

BOOL WINAPI GlobalUnlock(HGLOBAL handle)
{
    return withBlock(handle, FALSE, [](Block& block) {
        if (!block.isMovable) return TRUE;
        if (block.locks == 0) return failWith(ERROR_NOT_LOCKED);
        return --block.locks > 0 ? TRUE : failWith(NO_ERROR);
    });
}

SIZE_T WINAPI GlobalSize(HGLOBAL handle)
{
    return withBlock(handle, SIZE_T(0), [](Block& block) { return block.size; });
}

HGLOBAL WINAPI GlobalReAlloc(HGLOBAL handle, SIZE_T bytes, UINT flags)
{
    Registry& all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    if (!all.blocks.count(handle)) return failWith(ERROR_INVALID_HANDLE), nullptr;
    if (flags & GMEM_MODIFY) return failWith(ERROR_INVALID_PARAMETER), nullptr;
    return reallocate(all, handle, bytes, flags);
}

HGLOBAL WINAPI GlobalFree(HGLOBAL handle)
{
    if (!handle) return nullptr;
    Registry& all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    const auto found = all.blocks.find(handle);
    if (found == all.blocks.end()) return failWith(ERROR_INVALID_HANDLE), handle;
    if (found->second.isMovable) std::free(handle);
    std::free(found->second.memory);
    all.blocks.erase(found);
    return nullptr;
}

UINT WINAPI GlobalFlags(HGLOBAL handle)
{
    return withBlock(handle, UINT(GMEM_INVALID_HANDLE), [](Block& block) { return UINT(block.locks); });
}

HLOCAL WINAPI LocalAlloc(UINT flags, SIZE_T bytes)
{
    return GlobalAlloc(flags, bytes);
}
LPVOID WINAPI LocalLock(HLOCAL block)
{
    return GlobalLock(block);
}
BOOL WINAPI LocalUnlock(HLOCAL block)
{
    return GlobalUnlock(block);
}
SIZE_T WINAPI LocalSize(HLOCAL block)
{
    return GlobalSize(block);
}
HLOCAL WINAPI LocalReAlloc(HLOCAL block, SIZE_T bytes, UINT flags)
{
    return GlobalReAlloc(block, bytes, flags);
}
HLOCAL WINAPI LocalFree(HLOCAL block)
{
    return GlobalFree(block);
}
