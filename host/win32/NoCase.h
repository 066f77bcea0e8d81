#pragma once

#include "CaseMap.h"

#include <string_view>

namespace win32
{
inline bool equalNoCase(std::wstring_view a, std::wstring_view b)
{
    return compareNoCase(a.data(), a.size(), b.data(), b.size()) == 0;
}

/// Orders the keys of a map without regard to case; texts are looked up without a copy.
struct LessNoCase {
    using is_transparent = void;
    bool operator()(std::wstring_view a, std::wstring_view b) const
    {
        return compareNoCase(a.data(), a.size(), b.data(), b.size()) < 0;
    }
};
} // namespace win32
