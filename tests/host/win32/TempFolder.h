#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

/// A fixture with an empty directory of its own, known by both kinds of path.
class TempFolder : public testing::Test
{
protected:
    TempFolder()
    {
        char pattern[] = "/tmp/win32-test-XXXXXX";
        _host = mkdtemp(pattern);
    }
    ~TempFolder() override { EXPECT_EQ(std::system(("rm -rf '" + _host + "'").c_str()), 0); }

    std::string host(const std::string& name) const { return _host + "/" + name; }
    std::wstring path(const std::wstring& name) const
    {
        return L"Z:\\tmp\\" + std::wstring(_host.begin() + 5, _host.end()) + L"\\" + name;
    }
    void put(const std::string& name, const std::string& contents) const
    {
        std::ofstream(host(name), std::ios::binary) << contents;
    }
    std::string get(const std::string& name) const
    {
        std::ifstream in(host(name), std::ios::binary);
        return in ? std::string(std::istreambuf_iterator<char>(in), {}) : "(missing)";
    }

private:
    std::string _host;
};
