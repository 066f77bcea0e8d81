// The time that a line of a script takes: that of a million lines may take a tenth more than that of a
// hundred thousand.

#include "CommandLine.h"
#include "CommandRunner.h"
#include "Documents.h"
#include "Script.h"

#include <benchmark/benchmark.h>

#include <ctime>
#include <string>

namespace
{
constexpr std::size_t many = 1000000, few = many / 10;

/// Commands, answers on lines of their own, expressions, comments and Enters.
scripts::LineReader lines(std::size_t count)
{
    static const char* const some[] = {"SETVAR LUPREC 4", "LTSCALE", "2.5", "; a comment", "(setq a (+ 1 2))",
                                       "REGEN",           "",        "(*",  "a 2)",        "'_.REDRAW"};
    return [count, at = std::size_t(0)](std::string& line) mutable {
        if (at == count) return false;
        line = some[at++ % std::size(some)];
        return true;
    };
}

/// Of the processor, without what the drawing and the program need: a tenth more or less says nothing on a busy machine else.
double secondsOf(std::size_t count)
{
    const std::clock_t start = std::clock();
    scripts::start(L"bench", lines(count));
    ed::runPending(true);
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void eachLine(benchmark::State& state, std::size_t count, double goal)
{
    acDocManager->appContextNewDocument(nullptr);
    const ed::CommandLineListener before = ed::setCommandLineListener([](std::wstring_view) {});
    const ed::Typist nobody = ed::setTypist(scripts::nextLine);
    for (auto _ : state) {
        state.SetIterationTime(secondsOf(count) / static_cast<double>(count));
        if (scripts::takeFault()) state.SkipWithError("the script stopped");
    }
    ed::setTypist(nobody);
    ed::setCommandLineListener(before);
    documents::closeAll();
    if (goal > 0) state.counters["goal"] = goal;
}

BENCHMARK_CAPTURE(eachLine, many, many, 10.0 / 11.0)
    ->Name("LineOfScript/ours")
    ->UseManualTime()
    ->Iterations(3);
BENCHMARK_CAPTURE(eachLine, few, few, 0.0)->Name("LineOfScript/short")->UseManualTime()->Iterations(3);
} // namespace
