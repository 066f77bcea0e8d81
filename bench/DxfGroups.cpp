// Groups of drawing files: tokenising a file and writing it, against libdime, which reads the same file into
// its model and writes it from there. Ours do less, so the goals are well above 1.

// In front of <windows.h>, behind which these would be taken for headers of a Windows program.
#include <dime/Input.h>
#include <dime/Model.h>
#include <dime/Output.h>

#include <filesystem>

#include "DrawingMaker.h"
#include "OpenDrawing.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace
{
namespace fs = std::filesystem;
using namespace dxf;

const bench::DrawingFile& drawing()
{
    static const bench::DrawingFile file(bench::entityCount());
    return file;
}

void setRate(benchmark::State& state, double goal)
{
    state.SetBytesProcessed(state.iterations() * drawing().size());
    if (goal > 0) state.counters["goal"] = goal;
}

void readOurs(benchmark::State& state)
{
    const std::wstring path = drawing().path().wstring();
    for (auto _ : state) {
        const OpenedDrawing opened = openDrawing(path);
        double sum = 0;
        while (opened.reader->next())
            sum += opened.reader->group().real();
        benchmark::DoNotOptimize(sum);
    }
    setRate(state, 5);
}

void readLibdime(benchmark::State& state)
{
    const std::string path = drawing().path().string();
    for (auto _ : state) {
        dimeInput input;
        dimeModel model;
        if (!input.setFile(path.c_str()) || !model.read(&input)) state.SkipWithError("libdime cannot read");
    }
    setRate(state, 0);
}

std::vector<Group> allGroups(GroupReader& reader)
{
    std::vector<Group> groups;
    while (reader.next())
        groups.push_back(reader.group());
    return groups;
}

/// As a save: flushed to the disk and renamed.
void writeOurs(benchmark::State& state)
{
    const OpenedDrawing opened = openDrawing(drawing().path().wstring());
    const std::vector<Group> groups = allGroups(*opened.reader);
    const std::wstring copy = drawing().copy().wstring();
    for (auto _ : state) {
        AtomicFile file(copy);
        AsciiWriter writer(file, opened.reader->encoding());
        for (const Group& group : groups)
            writer.group(group, opened.reader->encoding());
        if (!writer.finish() || file.commit() != FileStatus::done) state.SkipWithError("cannot save");
    }
    setRate(state, 2);
    fs::remove(copy);
}

/// The bytes alone, without a disk.
void encodeOurs(benchmark::State& state)
{
    class Nowhere final : public ByteSink
    {
    public:
        bool append(std::string_view bytes) override
        {
            benchmark::DoNotOptimize(bytes.data());
            return true;
        }
    };
    const OpenedDrawing opened = openDrawing(drawing().path().wstring());
    const std::vector<Group> groups = allGroups(*opened.reader);
    for (auto _ : state) {
        Nowhere nowhere;
        AsciiWriter writer(nowhere, opened.reader->encoding());
        for (const Group& group : groups)
            writer.group(group, opened.reader->encoding());
        writer.finish();
    }
    setRate(state, 0);
}

void writeLibdime(benchmark::State& state)
{
    dimeInput input;
    dimeModel model;
    if (!input.setFile(drawing().path().c_str()) || !model.read(&input))
        state.SkipWithError("libdime cannot read");
    const fs::path copy = drawing().copy();
    for (auto _ : state) {
        dimeOutput output;
        if (!output.setFilename(copy.c_str()) || !model.write(&output))
            state.SkipWithError("libdime cannot write");
    }
    setRate(state, 0);
    fs::remove(copy);
}
} // namespace

BENCHMARK(readOurs)->Name("DxfReadGroups/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(readLibdime)->Name("DxfReadGroups/libdime")->Unit(benchmark::kMillisecond);
BENCHMARK(writeOurs)->Name("DxfWriteGroups/ours")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(writeLibdime)->Name("DxfWriteGroups/libdime")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(encodeOurs)->Name("DxfEncodeGroups/ours")->Unit(benchmark::kMillisecond);
