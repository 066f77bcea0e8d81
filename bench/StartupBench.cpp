// The start of arxhost with the library loaded, to the end of an empty script, against that of the
// interpreter with which people write programs on drawings otherwise.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace
{
namespace fs = std::filesystem;

/// A script without lines.
class EmptyScript
{
public:
    EmptyScript() { std::ofstream file(mPath); }
    ~EmptyScript() { fs::remove(mPath); }
    EmptyScript(const EmptyScript&) = delete;
    EmptyScript& operator=(const EmptyScript&) = delete;
    std::string path() const { return mPath.string(); }

private:
    const fs::path mPath = fs::temp_directory_path() / "qm-empty.scr";
};

void run(benchmark::State& state, const std::string& command)
{
    for (auto _ : state) {
        if (std::system((command + " >/dev/null").c_str()) != 0) state.SkipWithError("the program fails");
    }
}

void startOurs(benchmark::State& state)
{
    const EmptyScript script;
    run(state, BENCH_ARXHOST " --load " BENCH_LIBRARY " --script " + script.path());
    state.counters["goal"] = 4;
}

void startEzdxf(benchmark::State& state)
{
    run(state, "/usr/bin/python3 -c 'import ezdxf'");
}

BENCHMARK(startOurs)->Name("StartUp/ours")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(startEzdxf)->Name("StartUp/ezdxf")->Unit(benchmark::kMillisecond)->UseRealTime();
} // namespace
