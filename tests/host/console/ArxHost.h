#pragma once

/// The program arxhost, run as a user runs it, with a folder of its own for what it writes.

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace arxhost
{
namespace fs = std::filesystem;

struct Outcome {
    int status;
    std::string text; ///< standard output and error
};

class Program : public testing::Test
{
protected:
    void SetUp() override { fs::create_directories(mFolder); }
    void TearDown() override { fs::remove_all(mFolder); }

    /// Runs it with arguments of a shell; commands come from `input`.
    Outcome run(const std::string& arguments, const std::string& input = {}) const
    {
        const std::string typed = write("typed", input);
        const std::string command = std::string(TEST_ARXHOST) + " " + arguments + " 2>&1 <" + typed;
        FILE* pipe = popen(command.c_str(), "r");
        std::string text;
        char buffer[4096];
        while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe))
            text.append(buffer, count);
        const int status = pclose(pipe);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, text};
    }
    std::string out(const std::string& name) const { return (mFolder / name).string(); }
    std::string write(const std::string& name, const std::string& text) const
    {
        std::ofstream(mFolder / name, std::ios::binary) << text;
        return out(name);
    }
    static std::string read(const fs::path& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

    const std::string mSample = TEST_DRAWINGS "/rooms.dxf";
    const std::string mModule = TEST_MODULES "/Sample.arx";

private:
    const fs::path mFolder = fs::temp_directory_path() / ("arxhost-" + std::to_string(getpid()));
};
} // namespace arxhost
