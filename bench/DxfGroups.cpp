// Groups of drawing files: tokenising a file and writing it, against libdime, which reads the same file into
// its model and writes it from there. Ours do less, so the goals are well above 1.

// In front of <windows.h>, behind which these would be taken for headers of a Windows program.
#include <dime/Input.h>
#include <dime/Model.h>
#include <dime/Output.h>

#include <filesystem>

#include "AsciiWriter.h"
#include "AtomicFile.h"
#include "BinaryWriter.h"
#include "OpenDrawing.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <random>
#include <vector>

namespace
{
namespace fs = std::filesystem;
using namespace dxf;

/// The number of entities: QM_BENCH_ENTITIES, or 200,000.
int entityCount()
{
    const char* const text = std::getenv("QM_BENCH_ENTITIES");
    return text ? std::atoi(text) : 200000;
}

class DrawingMaker
{
public:
    explicit DrawingMaker(GroupWriter& to) : _to(to) {}

    void make(int count)
    {
        _to.name(0, "SECTION");
        _to.name(2, "HEADER");
        _to.name(9, "$ACADVER");
        _to.name(1, "AC1015");
        _to.name(0, "ENDSEC");
        _to.name(0, "SECTION");
        _to.name(2, "ENTITIES");
        for (int i = 0; i < count; ++i)
            makeEntity(i);
        _to.name(0, "ENDSEC");
        _to.name(0, "EOF");
        _to.finish();
    }

private:
    double coordinate() { return std::uniform_real_distribution<double>(0, 1e5)(_random); }
    void point(int code) { _to.point(code, coordinate(), coordinate(), 0); }

    void start(const char* name, const char* marker, int i)
    {
        _to.name(0, name);
        _to.handle(5, 0x100u + static_cast<unsigned>(i));
        _to.name(100, "AcDbEntity");
        _to.name(8, i % 3 ? "0" : "Walls");
        _to.integer(62, i % 256);
        _to.name(100, marker);
    }

    void makeEntity(int i)
    {
        switch (i % 4) {
        case 0:
            start("LINE", "AcDbLine", i);
            point(10);
            point(11);
            break;
        case 1:
        case 2:
            start(i % 4 == 1 ? "CIRCLE" : "ARC", "AcDbCircle", i);
            point(10);
            _to.real(40, coordinate());
            if (i % 4 == 2) arcAngles();
            break;
        default:
            makePolyline(i);
        }
        if (i % 10 == 0) makeXdata();
    }

    void arcAngles()
    {
        _to.name(100, "AcDbArc");
        _to.real(50, 45);
        _to.real(51, 270.5);
    }

    void makePolyline(int i)
    {
        start("LWPOLYLINE", "AcDbPolyline", i);
        _to.integer(90, 8);
        _to.integer(70, 1);
        for (int k = 0; k < 8; ++k) {
            _to.real(10, coordinate());
            _to.real(20, coordinate());
        }
    }

    void makeXdata()
    {
        _to.name(1001, "MAKER");
        _to.name(1000, "a note on this entity");
        _to.integer(1070, 7);
        _to.real(1040, coordinate());
    }

    GroupWriter& _to;
    std::mt19937 _random{1};
};

/// The drawing that every benchmark reads, made once and removed at the end.
class DrawingFile
{
public:
    DrawingFile()
        : _path(fs::temp_directory_path() / ("groups-" + std::to_string(std::random_device()()) + ".dxf"))
    {
        AtomicFile file(_path.wstring());
        AsciiWriter writer(file, TextEncoding(1252));
        DrawingMaker(writer).make(entityCount());
        if (file.commit() != FileStatus::done) std::abort();
    }
    ~DrawingFile() { fs::remove(_path); }

    const fs::path& path() const { return _path; }
    fs::path copy() const { return fs::path(_path).concat(".out"); }
    std::int64_t size() const { return static_cast<std::int64_t>(fs::file_size(_path)); }

private:
    fs::path _path;
};

const DrawingFile& drawing()
{
    static const DrawingFile file;
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
