#include <winsock2.h>

#include <gtest/gtest.h>

#include <string>
#include <sys/resource.h>

namespace
{
/// While it lives the process can open no file, the list of hosts included, and no socket.
class NoFiles
{
public:
    NoFiles()
    {
        getrlimit(RLIMIT_NOFILE, &mBefore);
        const rlimit none{0, mBefore.rlim_max};
        setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoFiles() { setrlimit(RLIMIT_NOFILE, &mBefore); }

private:
    rlimit mBefore{};
};

std::string addressOf(const char* name)
{
    const hostent* host = gethostbyname(name);
    return host ? inet_ntoa(*reinterpret_cast<const in_addr*>(host->h_addr_list[0])) : "none";
}
} // namespace

TEST(HostByName, LocalhostNeedsNoListOfHosts)
{
    const NoFiles none;
    addrinfo* found = nullptr;
    ASSERT_NE(getaddrinfo("localhost", nullptr, nullptr, &found), 0)
        << "the system finds it without its files";
    EXPECT_EQ(addressOf("localhost"), "127.0.0.1");
    EXPECT_EQ(addressOf("LocalHost"), "127.0.0.1");
    EXPECT_EQ(addressOf("localhost.example"), "none");
    const hostent* host = gethostbyname("localhost");
    EXPECT_STREQ(host->h_name, "localhost");
    EXPECT_EQ(host->h_addrtype, AF_INET);
    EXPECT_EQ(host->h_length, 4);
    EXPECT_EQ(host->h_aliases[0], nullptr);
    EXPECT_EQ(host->h_addr_list[1], nullptr);
}

TEST(HostByName, AddressesAreTheirOwnHosts)
{
    EXPECT_EQ(addressOf("10.1.2.3"), "10.1.2.3");
}

TEST(HostByName, NoNameIsThisMachine)
{
    char own[256] = "";
    ASSERT_EQ(gethostname(own, sizeof own), 0);
    const std::string expected = addressOf(own);
    EXPECT_EQ(addressOf(nullptr), expected);
    EXPECT_EQ(addressOf(""), expected);
}
