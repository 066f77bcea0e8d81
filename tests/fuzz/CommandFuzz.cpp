// fuzz_commands LINES SEED: types random lines at the command prompt, each as a script of its own. Exit
// status 1 when one leaves an object open, a lock, waiting keys or result buffers; that of the crash when one
// crashes.

#include "accmd.h"
#include "CommandLine.h"
#include "CommandRunner.h"
#include "Documents.h"
#include "LiveCounts.h"
#include "ProgramEnd.h"
#include "Script.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <unistd.h>

namespace
{
namespace fs = std::filesystem;
using Random = std::mt19937;

std::vector<std::string> commandNames()
{
    std::vector<std::string> names;
    const std::unique_ptr<AcEdCommandIterator> walk(acedRegCmds->iterator());
    for (; !walk->done(); walk->next()) {
        const std::wstring name = walk->command()->globalName();
        if (name == L"DELAY" || name == L"PLOT") continue; // slow, and PLOT is among the pieces
        names.emplace_back(name.begin(), name.end());
    }
    return names;
}

const std::string& anyOf(Random& random, const std::vector<std::string>& all)
{
    return all[random() % all.size()];
}

std::string noise(Random& random)
{
    std::string text;
    for (auto count = 1 + random() % 12; count > 0; --count) {
        const auto c = static_cast<char>(random());
        // No other folder, no end of the line.
        if (c != '/' && c != '\\' && c != '\n' && c != ':') text += c;
    }
    return text;
}

std::string number(Random& random)
{
    static const std::vector<std::string> odd = {"0",   "-1",          "1e308", "-1e-308", "nan",
                                                 "inf", "99999999999", ".",     "1'6\""};
    return random() % 2 ? anyOf(random, odd) : std::to_string(static_cast<int>(random() % 2000) - 1000);
}

/// What commands ask for, and what none of them takes.
const std::vector<std::string> words = {"?",
                                        "Y",
                                        "N",
                                        "ALL",
                                        "L",
                                        "P",
                                        "W",
                                        "C",
                                        "E",
                                        "S",
                                        "M",
                                        "*",
                                        "\"",
                                        "\"a b",
                                        "(",
                                        ")",
                                        "(setq a",
                                        "(command",
                                        "!a",
                                        "'ZOOM",
                                        "@",
                                        "@1<45",
                                        "<90",
                                        ".xy",
                                        "^C",
                                        "\x1b",
                                        ",",
                                        "end",
                                        "a.dxf",
                                        "x.scr",
                                        "LTSCALE",
                                        "OSMODE",
                                        "0",
                                        "Layer1",
                                        "red",
                                        "_",
                                        ".",
                                        "-",
                                        "'",
                                        "(getvar \"OSMODE\")",
                                        "(/ 1 0)",
                                        "(car",
                                        "\xE5\x9B\xBE",
                                        "(command \"_.LINE\" \"0,0\" \"1,1\" \"\")",
                                        "\t",
                                        ""};

std::string piece(Random& random, const std::vector<std::string>& commands)
{
    switch (random() % 8) {
    case 0:
        return noise(random);
    case 1:
        return number(random) + "," + number(random) + (random() % 2 ? "," + number(random) : "");
    case 2:
        return number(random);
    case 3:
    case 4:
        return (random() % 4 ? "" : anyOf(random, {"_", ".", "'", "-", "_."})) + anyOf(random, commands);
    default:
        return random() % 300 ? anyOf(random, words) : "PLOT Model a.svg ";
    }
}

std::string randomLine(Random& random, const std::vector<std::string>& commands)
{
    std::string line;
    for (auto count = 1 + random() % 9; count > 0; --count)
        line += piece(random, commands) + (random() % 9 ? " " : "");
    return line;
}

void type(const std::string& line)
{
    scripts::start(L"line", [line, isTyped = false](std::string& next) mutable {
        next = line;
        return !std::exchange(isTyped, true);
    });
    ed::runPending(true);
    ed::forgetEnd();
    scripts::forget();
}

/// What a line left; null when it left nothing.
const char* leftBehind()
{
    for (const AcApDocument* document : documents::all()) {
        if (live::openObjects(*document->database()) > 0) return "objects are open";
        if (document->lockMode(true) != AcAp::kNotLocked) return "a lock is left";
    }
    return nullptr;
}

/// Lines open drawings; few of them are enough.
void keepFew()
{
    if (acDocManager->documentCount() > 8) documents::closeAll();
    if (acDocManager->documentCount() == 0) acDocManager->appContextNewDocument(nullptr);
}

int typeAll(int count, Random& random)
{
    const std::vector<std::string> commands = commandNames();
    for (int i = 0; i < count; ++i) {
        keepFew();
        const std::string line = randomLine(random, commands);
        type(line);
        if (const char* left = leftBehind()) {
            std::printf("line %d: %s: %s\n", i, left, line.c_str());
            return 1;
        }
    }
    documents::closeAll();
    return 0;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) return 1;
    const fs::path folder = fs::temp_directory_path() / ("fuzz-commands-" + std::to_string(getpid()));
    fs::create_directories(folder);
    fs::current_path(folder); // what lines save stays there
    std::size_t shown = 0;
    ed::setCommandLineListener([&](std::wstring_view text) { shown += text.size(); });
    ed::setTypist(scripts::nextLine);
    Random random(static_cast<unsigned>(std::atoi(argv[2])));
    const std::int64_t buffers = live::resbufs();
    int status = typeAll(std::atoi(argv[1]), random);
    if (live::resbufs() != buffers)
        status = 1, std::printf("%d result buffers are left\n", int(live::resbufs() - buffers));
    std::printf("%s lines, %zu characters shown\n", argv[1], shown);
    fs::current_path("/");
    fs::remove_all(folder);
    return status;
}
