#include "DrawingStamps.h"

#include "DatabaseState.h"

namespace
{
/// A Julian date as system variables have it: whole days begin at midnight.
double julianDate(const SYSTEMTIME& time)
{
    constexpr double dayOfFileTimes = 2305814.0; // 1 January 1601
    constexpr double unitsOfDay = 864e9;         // of 100 ns
    FILETIME file{};
    SystemTimeToFileTime(&time, &file);
    const auto units = static_cast<std::uint64_t>(file.dwHighDateTime) << 32 | file.dwLowDateTime;
    return dayOfFileTimes + static_cast<double>(units) / unitsOfDay;
}

double localNow()
{
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return julianDate(time);
}

double universalNow()
{
    SYSTEMTIME time{};
    GetSystemTime(&time);
    return julianDate(time);
}

CString newGuid()
{
    constexpr int size = 39; // 38 characters and the end
    GUID guid{};
    wchar_t text[size] = {};
    if (FAILED(CoCreateGuid(&guid))) return CString();
    StringFromGUID2(guid, text, size);
    return text;
}

void setUpdated(HeaderVariables& header)
{
    header.setReal("$TDUPDATE", localNow());
    header.setReal("$TDUUPDATE", universalNow());
    header.setText("$VERSIONGUID", newGuid());
}
} // namespace

void stamps::create(AcDbDatabase& database)
{
    HeaderVariables& header = DatabaseAccess::of(database).header;
    header.setReal("$TDCREATE", localNow());
    header.setReal("$TDUCREATE", universalNow());
    header.setReal("$TDINDWG", 0.0);
    header.setReal("$TDUSRTIMER", 0.0);
    header.setText("$FINGERPRINTGUID", newGuid());
    setUpdated(header);
    open(database);
}

void stamps::open(AcDbDatabase& database) { DatabaseAccess::of(database).openedAt = universalNow(); }

void stamps::save(AcDbDatabase& database)
{
    DatabaseState& state = DatabaseAccess::of(database);
    const double now = universalNow();
    if (state.openedAt > 0.0) {
        const double spent = now - state.openedAt;
        state.header.setReal("$TDINDWG", state.header.real("$TDINDWG") + spent);
        state.header.setReal("$TDUSRTIMER", state.header.real("$TDUSRTIMER") + spent);
        state.openedAt = now;
    }
    setUpdated(state.header);
}
