#pragma once

/// Points in time, to the second.

#include <windows.h>

#include <ctime>

/// A point in time as seconds since the start of 1970 in Coordinated Universal Time.
class CTime
{
public:
    constexpr CTime() noexcept = default;
    constexpr CTime(std::int64_t time) noexcept : m_time(time) {}
    /// Fractions of a second are dropped. The zero time stamp, "not known", is time 0.
    CTime(const FILETIME& fileTime) noexcept
    {
        const std::uint64_t ticks = (std::uint64_t(fileTime.dwHighDateTime) << 32) | fileTime.dwLowDateTime;
        if (ticks) m_time = static_cast<std::int64_t>(ticks / ticksPerSecond) - secondsFrom1601To1970;
    }

    static CTime WINAPI GetCurrentTime() noexcept { return CTime(std::int64_t(std::time(nullptr))); }
    constexpr std::int64_t GetTime() const noexcept { return m_time; }

    friend constexpr bool operator==(CTime a, CTime b) noexcept { return a.m_time == b.m_time; }
    friend constexpr bool operator!=(CTime a, CTime b) noexcept { return a.m_time != b.m_time; }
    friend constexpr bool operator<(CTime a, CTime b) noexcept { return a.m_time < b.m_time; }
    friend constexpr bool operator>(CTime a, CTime b) noexcept { return a.m_time > b.m_time; }
    friend constexpr bool operator<=(CTime a, CTime b) noexcept { return a.m_time <= b.m_time; }
    friend constexpr bool operator>=(CTime a, CTime b) noexcept { return a.m_time >= b.m_time; }

private:
    static constexpr std::uint64_t ticksPerSecond = 10'000'000; // of 100 ns
    static constexpr std::int64_t secondsFrom1601To1970 = 11'644'473'600;

    std::int64_t m_time = 0;
};
