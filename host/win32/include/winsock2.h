#pragma once

/// Sockets, as far as names of hosts go: hostent, in_addr and inet_ntoa are those of the system's own
/// library, which have the shape that Winsock gives them.

#include "windef.h"

#include <arpa/inet.h>
#include <netdb.h>

struct WSADATA {
    WORD wVersion;
    WORD wHighVersion;
    unsigned short iMaxSockets;
    unsigned short iMaxUdpDg;
    char* lpVendorInfo;
    char szDescription[257];
    char szSystemStatus[129];
};
using LPWSADATA = WSADATA*;

#define WSAVERNOTSUPPORTED 10092
#define WSANOTINITIALISED 10093

/// Starts the sockets, which are always up here, and counts the call. `version` is the highest that the
/// caller can use (MAKEWORD(2, 2)); the data gets the version in use and the highest there is.
/// WSAVERNOTSUPPORTED below 1.0.
int WINAPI WSAStartup(WORD version, LPWSADATA data);
/// Takes one start back. SOCKET_ERROR (-1) without one, and the last error is WSANOTINITIALISED.
int WINAPI WSACleanup();

/// The host of a name or of an address in dotted form; null when it cannot be resolved. Null and the empty
/// name are this machine's. As in Windows, "localhost" in any case is 127.0.0.1 whatever list of hosts the
/// machine has. The result holds until the next call.
hostent* WINAPI QmGetHostByName(const char* name);
#define gethostbyname QmGetHostByName

#ifndef SOCKET_ERROR
#define SOCKET_ERROR (-1)
#endif
