#pragma once

/// The shared buffer behind CString and CStringA.

#include <windef.h>

#include <climits>
#include <ext/atomicity.h>

/// The header that lies directly in front of the characters of a string.
///
/// Strings that are copies of one another share one buffer and count themselves in it; one that is about to
/// change takes a buffer of its own first. A locked buffer is never shared, and the buffer of the empty
/// string is shared by all empty strings and not counted.
///
/// While the process has one thread the count is an ordinary number: that makes copying a short string as
/// cheap as copying its characters.
struct CStringData {
    static constexpr int locked = -1;
    static constexpr int immortal = INT_MIN;

    int references; ///< How many strings share the buffer, or one of the two values above.
    int length;     ///< Characters in use, the terminator not counted.
    int capacity;   ///< Characters that fit, the terminator not counted.

    /// Counts one more string; false when the buffer is locked and has to be copied instead.
    bool share() noexcept
    {
        const int count = __atomic_load_n(&references, __ATOMIC_RELAXED);
        if (count < 0) return count == immortal;
        if (isSingleThreaded())
            references = count + 1;
        else
            __atomic_fetch_add(&references, 1, __ATOMIC_RELAXED);
        return true;
    }

    /// Counts one string less; true when it was the last one and the caller has to free the buffer.
    bool leave() noexcept
    {
        const int count = __atomic_load_n(&references, __ATOMIC_ACQUIRE);
        if (count == 1 || count == locked) return true;
        if (count == immortal) return false;
        if (!isSingleThreaded()) return __atomic_fetch_sub(&references, 1, __ATOMIC_ACQ_REL) == 1;
        references = count - 1;
        return false;
    }

    /// Whether the one string that asks may write to the buffer: what other threads read of it before they
    /// left is behind us then.
    bool isUnshared() const noexcept
    {
        const int count = __atomic_load_n(&references, __ATOMIC_ACQUIRE);
        return count == 1 || count == locked;
    }

    bool isLocked() const noexcept { return __atomic_load_n(&references, __ATOMIC_RELAXED) == locked; }

    /// The same without locked buffers, which are rare: for the quick ways to write.
    bool isSingle() const noexcept { return __atomic_load_n(&references, __ATOMIC_ACQUIRE) == 1; }

private:
    static bool isSingleThreaded() noexcept { return __gnu_cxx::__is_single_threaded(); }
};

/// The buffer of the empty string, for both widths of character.
struct CNilString {
    CStringData data;
    wchar_t terminator;
};
extern __declspec(dllimport) CNilString atlNilString;
