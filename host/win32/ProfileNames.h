#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace win32
{
/// A hash of a name that is made character by character from its upper-case values.
class NameHash
{
public:
    void add(std::uint32_t upper) { _value = (_value ^ upper) * 0x9E3779B97F4A7C15u, _value ^= _value >> 29; }
    std::size_t value() const { return _value; }

private:
    std::size_t _value = 0xCBF29CE484222325u;
};

/// Finds items by the hashes of their names, which it does not keep: the caller compares names. Of items with
/// one name it holds the first.
class NameIndex
{
public:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    /// Forgets all and makes room for that many items.
    void reset(std::size_t items)
    {
        std::size_t size = 8;
        while (size < 2 * items)
            size *= 2;
        _slots.assign(size, {0, none});
    }

    /// The item of that hash for which isNamed(item) holds, or `none`.
    template <class IsNamed>
    std::size_t find(std::size_t hash, IsNamed isNamed) const
    {
        return _slots.empty() ? none : _slots[slot(hash, isNamed)].item;
    }

    /// Adds an item unless one of its name, for which isNamed(other) holds, is there.
    template <class IsNamed>
    void add(std::size_t hash, std::size_t item, IsNamed isNamed)
    {
        Slot& free = _slots[slot(hash, isNamed)];
        if (free.item == none) free = {hash, item};
    }

private:
    struct Slot {
        std::size_t hash;
        std::size_t item;
    };

    template <class IsNamed>
    std::size_t slot(std::size_t hash, IsNamed isNamed) const
    {
        std::size_t at = hash & (_slots.size() - 1);
        while (_slots[at].item != none && !(_slots[at].hash == hash && isNamed(_slots[at].item)))
            at = (at + 1) & (_slots.size() - 1);
        return at;
    }

    std::vector<Slot> _slots; ///< a power of two, never full
};
} // namespace win32
