#include "winsock2.h"

#undef gethostbyname

#include <strings.h>
#include <unistd.h>

namespace
{
hostent* localHost()
{
    thread_local char name[] = "localhost";
    thread_local in_addr address;
    thread_local char* addresses[] = {reinterpret_cast<char*>(&address), nullptr};
    thread_local char* noAliases[] = {nullptr};
    thread_local hostent host;
    address.s_addr = htonl(INADDR_LOOPBACK);
    host = {name, noAliases, AF_INET, sizeof address, addresses};
    return &host;
}
} // namespace

hostent* WINAPI QmGetHostByName(const char* name)
{
    char own[256] = "";
    if (!name || !*name) name = gethostname(own, sizeof own) == 0 ? own : "localhost";
    return strcasecmp(name, "localhost") == 0 ? localHost() : gethostbyname(name);
}
