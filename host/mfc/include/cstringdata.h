#pragma once

/// The shared buffer behind CString and CStringA.

#include <windef.h>

#include <atomic>
#include <climits>
#if __has_include(<ext/atomicity.h>)
#include <ext/atomicity.h>
#endif

/// The header that lies directly in front of the characters of a string.
///
/// Strings that are copies of one another share one buffer and count themselves in it; one that is about to
/// change takes a buffer of its own first. A locked buffer is never shared, and the buffer of the empty
/// string is shared by all empty strings and not counted.
struct CStringData {
    static constexpr int locked = -1;
    static constexpr int immortal = INT_MIN;

    std::atomic<int> references; ///< How many strings share the buffer, or one of the two values above.
    int length;                  ///< Characters in use, the terminator not counted.
    int capacity;                ///< Characters that fit, the terminator not counted.

    /// Counts one more string; false when the buffer is locked and has to be copied instead.
    bool share() noexcept
    {
        const int count = references.load(std::memory_order_relaxed);
        if (count < 0) return count == immortal;
        if (isSingleThreaded())
            references.store(count + 1, std::memory_order_relaxed);
        else
            references.fetch_add(1, std::memory_order_relaxed);
        return true;
    }

    /// Counts one string less; true when it was the last one and the caller has to free the buffer.
    bool leave() noexcept
    {
        const int count = references.load(std::memory_order_acquire);
        if (count == 1 || count == locked) return true;
        if (count == immortal) return false;
        if (!isSingleThreaded()) return references.fetch_sub(1, std::memory_order_acq_rel) == 1;
        references.store(count - 1, std::memory_order_relaxed);
        return false;
    }

    /// Whether the one string that asks may write to the buffer.
    bool isUnshared() const noexcept
    {
        const int count = references.load(std::memory_order_acquire);
        return count == 1 || count == locked;
    }

private:
    /// Counting without a locked instruction makes copying a short string as cheap as copying its characters.
    static bool isSingleThreaded() noexcept
    {
#if __has_include(<ext/atomicity.h>)
        return __gnu_cxx::__is_single_threaded();
#else
        return false;
#endif
    }
};

/// The buffer of the empty string, for both widths of character.
struct CNilString {
    CStringData data;
    wchar_t terminator;
};
extern __declspec(dllimport) CNilString atlNilString;
