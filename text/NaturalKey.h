#pragma once

/// Keys that sort names in the order of naturalorder::sortsBefore without going back to their characters.

#include <cstdint>
#include <string_view>

namespace naturalorder
{
/// The first bytes of a text's key, as numbers whose order is that of the bytes. Of two texts with different
/// keys the one with the smaller key sorts first; equal keys decide nothing.
struct Key {
    std::uint64_t words[3] = {};
};

Key keyOf(std::wstring_view text);

inline bool operator==(const Key& a, const Key& b)
{
    return a.words[0] == b.words[0] && a.words[1] == b.words[1] && a.words[2] == b.words[2];
}

inline bool operator<(const Key& a, const Key& b)
{
    if (a.words[0] != b.words[0]) return a.words[0] < b.words[0];
    return a.words[1] != b.words[1] ? a.words[1] < b.words[1] : a.words[2] < b.words[2];
}
} // namespace naturalorder
