/// The program arxhost, run as a user runs it.

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/wait.h>

namespace
{
namespace fs = std::filesystem;

struct Outcome {
    int status;
    std::string text; ///< standard output and error
};

Outcome run(const std::string& arguments)
{
    const std::string command = std::string(TEST_ARXHOST) + " " + arguments + " 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    std::string text;
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe)) text.append(buffer, count);
    const int status = pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, text};
}

std::string beginOf(const fs::path& file, std::size_t count)
{
    std::string bytes(count, '\0');
    std::ifstream(file, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(count));
    return bytes;
}

class ArxHost : public testing::Test
{
protected:
    void SetUp() override { fs::create_directories(mFolder); }
    void TearDown() override { fs::remove_all(mFolder); }
    std::string out(const char* name) const { return (mFolder / name).string(); }

    const std::string mSample = TEST_DRAWINGS "/rooms.dxf";

private:
    const fs::path mFolder = fs::temp_directory_path() / ("arxhost-" + std::to_string(getpid()));
};
} // namespace

TEST_F(ArxHost, SavesAndPlotsADrawing)
{
    const Outcome outcome = run(mSample + " --save " + out("a.dxf") + " --as r2000 --plot " + out("a.png"));
    EXPECT_EQ(outcome.status, 0) << outcome.text;
    EXPECT_EQ(beginOf(out("a.png"), 8), "\x89PNG\r\n\x1a\n");
    EXPECT_NE(beginOf(out("a.dxf"), 400).find("AC1015"), std::string::npos);
    // What was saved opens again without a fault, and holds the same.
    const Outcome first = run(mSample + " --list");
    const Outcome second = run(out("a.dxf") + " --list");
    EXPECT_EQ(second.text, first.text);
    EXPECT_NE(first.text.find("AcDbLine"), std::string::npos);
}

TEST_F(ArxHost, SavesBinaryFilesToo)
{
    EXPECT_EQ(run(mSample + " --binary --save " + out("b.dxf")).status, 0);
    EXPECT_EQ(beginOf(out("b.dxf"), 18), "AutoCAD Binary DXF");
}

TEST_F(ArxHost, TellsWhatIsWrongAndLeavesNothing)
{
    struct Case {
        std::string arguments, word;
    };
    const Case cases[] = {
        {"/no/such/file.dxf", "no such file"},
        {TEST_ARXHOST, "no drawing file"},
        {mSample + " --save /no/such/folder/x.dxf", "no such file or folder"},
        {mSample + " --plot " + out("x.bmp"), "x.bmp"},
        {mSample + " --layout Nowhere --plot " + out("x.png"), "x.png"},
        {mSample + " --as R1 --save " + out("x.dxf"), "--as"},
        {mSample + " --nonsense", "--nonsense"},
    };
    for (const Case& test : cases) {
        const Outcome outcome = run(test.arguments);
        EXPECT_EQ(outcome.status, 1) << test.arguments;
        EXPECT_NE(outcome.text.find(test.word), std::string::npos) << test.arguments << "\n" << outcome.text;
    }
    EXPECT_FALSE(fs::exists(out("x.png")));
    EXPECT_FALSE(fs::exists(out("x.dxf")));
    EXPECT_EQ(run("--help").status, 0);
}
