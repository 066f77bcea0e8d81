#include <winsock2.h>

#include "CFamStuGlobe.h"

#include <atlconv.h>

namespace
{
// Keeps the sockets of the system up, for a program that has not started them itself.
class SocketSession
{
public:
    SocketSession() : m_started(WSAStartup(MAKEWORD(2, 2), &m_data) == 0) {}
    ~SocketSession()
    {
        if (m_started) WSACleanup();
    }
    SocketSession(const SocketSession&) = delete;
    SocketSession& operator=(const SocketSession&) = delete;

private:
    WSADATA m_data = {};
    bool m_started;
};
} // namespace

CString CFamStuGlobe::getIpAddr(CString hostName)
{
    const SocketSession session;
    const hostent* host = gethostbyname(CStringA(hostName));
    if (!host || host->h_addrtype != AF_INET || !host->h_addr_list[0]) return CString();
    return CString(inet_ntoa(*reinterpret_cast<const in_addr*>(host->h_addr_list[0])));
}
