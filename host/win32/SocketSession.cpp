#include "errhandlingapi.h"
#include "winerror.h"
#include "winsock2.h"

#include <atomic>

namespace
{
std::atomic<int> starts{0};
constexpr WORD highest = MAKEWORD(2, 2);

// The low byte is the number before the point.
constexpr int ordered(WORD version)
{
    return LOBYTE(version) << 8 | HIBYTE(version);
}
} // namespace

int WINAPI WSAStartup(WORD version, LPWSADATA data)
{
    if (LOBYTE(version) < 1) return WSAVERNOTSUPPORTED;
    if (!data) return ERROR_INVALID_PARAMETER;
    *data = {};
    data->wVersion = ordered(version) < ordered(highest) ? version : highest;
    data->wHighVersion = highest;
    ++starts;
    return 0;
}

int WINAPI WSACleanup()
{
    int count = starts;
    while (count > 0 && !starts.compare_exchange_weak(count, count - 1)) {
    }
    if (count > 0) return 0;
    SetLastError(WSANOTINITIALISED);
    return SOCKET_ERROR;
}
