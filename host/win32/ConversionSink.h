#pragma once

#include "windef.h"

#include <cstring>

namespace win32
{
enum class Outcome {
    done,
    invalid, ///< text without a counterpart, where that was asked to be an error
    full,    ///< the destination has no room for the next character
};

/// How a conversion ended. `length` counts units of the destination: all when done, those before the
/// fault otherwise.
struct Converted {
    std::size_t length;
    Outcome outcome;
    bool usedDefault = false; ///< a character was replaced by the default character
};

/// The destination of a measuring pass.
template <class Unit>
class CountingSink
{
public:
    bool put(Unit) { return ++_length, true; }
    bool put(Unit, Unit) { return _length += 2, true; }
    bool put(Unit, Unit, Unit) { return _length += 3, true; }
    bool put(Unit, Unit, Unit, Unit) { return _length += 4, true; }
    template <class Source>
    bool putRun(const Source*, std::size_t count)
    {
        _length += count;
        return true;
    }
    void took(std::size_t count) { _length += count; }
    std::size_t length() const { return _length; }

private:
    std::size_t _length = 0;
};

/// A buffer of fixed size: a put that does not fit whole writes nothing and reports false.
template <class Unit>
class BufferSink
{
public:
    BufferSink(Unit* start, std::size_t capacity) : _start(start), _at(start), _end(start + capacity) {}

    bool put(Unit a) { return room() >= 1 && (*_at++ = a, true); }
    bool put(Unit a, Unit b)
    {
        if (room() < 2) return false;
        _at[0] = a, _at[1] = b;
        _at += 2;
        return true;
    }
    bool put(Unit a, Unit b, Unit c)
    {
        if (room() < 3) return false;
        _at[0] = a, _at[1] = b, _at[2] = c;
        _at += 3;
        return true;
    }
    bool put(Unit a, Unit b, Unit c, Unit d) { return room() >= 4 && put(a, b) && put(c, d); }
    /// Copies a run of characters that are one unit on both sides; as many as fit.
    template <class Source>
    bool putRun(const Source* run, std::size_t count)
    {
        const std::size_t fitting = count < room() ? count : room();
        for (std::size_t i = 0; i < fitting; ++i)
            _at[i] = static_cast<Unit>(run[i]);
        _at += fitting;
        return fitting == count;
    }
    /// The place of the next `count` units, null when there is no room; took() tells how many were used.
    Unit* reserve(std::size_t count) { return room() < count ? nullptr : _at; }
    void took(std::size_t count) { _at += count; }
    std::size_t length() const { return static_cast<std::size_t>(_at - _start); }

private:
    std::size_t room() const { return static_cast<std::size_t>(_end - _at); }

    Unit* _start;
    Unit* _at;
    Unit* _end;
};

/// The length of the run of ASCII bytes at the start of [at, end).
inline std::size_t asciiRun(const unsigned char* at, const unsigned char* end)
{
    const unsigned char* const start = at;
    for (; end - at >= 8; at += 8) {
        std::uint64_t eight;
        std::memcpy(&eight, at, 8);
        if (eight & 0x8080808080808080u) break;
    }
    while (at != end && *at < 0x80)
        ++at;
    return static_cast<std::size_t>(at - start);
}

/// The length of the run of ASCII characters at the start of [at, end).
inline std::size_t asciiRun(const wchar_t* at, const wchar_t* end)
{
    const wchar_t* const start = at;
    for (; end - at >= 4; at += 4)
        if (static_cast<std::uint32_t>(at[0] | at[1] | at[2] | at[3]) >= 0x80) break;
    while (at != end && static_cast<std::uint32_t>(*at) < 0x80)
        ++at;
    return static_cast<std::size_t>(at - start);
}
} // namespace win32
