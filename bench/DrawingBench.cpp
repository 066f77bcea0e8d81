// Drawings as databases: opening, saving and making objects, against libdime. ezdxf, measured by
// EzdxfPeer.py, stands beside them in the table.

// In front of <windows.h>, behind which these would be taken for headers of a Windows program.
#include <dime/Input.h>
#include <dime/Layer.h>
#include <dime/Model.h>
#include <dime/Output.h>
#include <dime/entities/Line.h>

#include <filesystem>

#include "DrawingFile.h"
#include "DrawingMaker.h"
#include "dbblock.h"
#include "dbdatabase.h"
#include "dbline.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <malloc.h>
#include <memory>

namespace
{
namespace fs = std::filesystem;

const bench::DrawingFile& usual()
{
    static const bench::DrawingFile file(bench::entityCount());
    return file;
}

const bench::DrawingFile& large()
{
    static const bench::DrawingFile file(bench::entityCount() * 5);
    return file;
}

/// A tenth of the large one.
const bench::DrawingFile& small()
{
    static const bench::DrawingFile file(bench::entityCount() / 2);
    return file;
}

using File = const bench::DrawingFile& (*)();

std::unique_ptr<AcDbDatabase> opened(const bench::DrawingFile& file)
{
    auto database = std::make_unique<AcDbDatabase>(false, true);
    dxf::RepairReport report;
    if (dxf::readDrawing(*database, file.path().wstring(), report) != Acad::eOk) std::abort();
    return database;
}

double secondsOf(const std::chrono::steady_clock::time_point& start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The time of opening alone; throwing the drawing away is not counted, nor is it for libdime.
void openOurs(benchmark::State& state, File file)
{
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        const std::unique_ptr<AcDbDatabase> database = opened(file());
        state.SetIterationTime(secondsOf(start));
    }
    state.counters["goal"] = 1;
}

void readLibdime(benchmark::State& state, File file, dimeInput& input, dimeModel& model)
{
    const std::string path = file().path().string();
    if (!input.setFile(path.c_str()) || !model.read(&input)) state.SkipWithError("libdime cannot read");
}

void openLibdime(benchmark::State& state, File file)
{
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        dimeInput input;
        dimeModel model;
        readLibdime(state, file, input, model);
        state.SetIterationTime(secondsOf(start));
    }
}

void saveOurs(benchmark::State& state, File file)
{
    const std::unique_ptr<AcDbDatabase> database = opened(file());
    dxf::WriteOptions options;
    options.version = dxf::FileVersion::r2000;
    for (auto _ : state) {
        const Acad::ErrorStatus status = dxf::writeDrawing(*database, file().copy().wstring(), options);
        if (status != Acad::eOk) state.SkipWithError("cannot save");
    }
    state.counters["goal"] = 1;
    fs::remove(file().copy());
}

void saveLibdime(benchmark::State& state, File file)
{
    dimeInput input;
    dimeModel model;
    readLibdime(state, file, input, model);
    for (auto _ : state) {
        dimeOutput output;
        const bool isOpen = output.setFilename(file().copy().string().c_str());
        if (!isOpen || !model.write(&output)) state.SkipWithError("libdime cannot write");
    }
    fs::remove(file().copy());
}

/// The time of opening 100,000 of the file's entities.
void openPart(benchmark::State& state, File file, double goal)
{
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        const std::unique_ptr<AcDbDatabase> database = opened(file());
        state.SetIterationTime(secondsOf(start) * 100000 / file().count());
    }
    if (goal > 0) state.counters["goal"] = goal;
}

constexpr int lineCount = 1000000;

void addLines(AcDbDatabase& database, int count)
{
    AcDbBlockTableRecord* space = nullptr;
    acdbOpenObject(space, database.modelSpaceId(), AcDb::kForWrite);
    for (int i = 0; i < count; ++i) {
        auto* line = new AcDbLine({i * 1.0, 0.0, 0.0}, {i * 1.0, 10.0, 0.0});
        space->appendAcDbEntity(line);
        line->close();
    }
    space->close();
}

void makeLinesOurs(benchmark::State& state, double goal)
{
    double bytes = 0;
    for (auto _ : state) {
        AcDbDatabase database;
        const std::size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
        const auto start = std::chrono::steady_clock::now();
        addLines(database, lineCount);
        state.SetIterationTime(secondsOf(start));
        bytes = static_cast<double>(mallinfo2().uordblks + mallinfo2().hblkhd - before) / lineCount;
    }
    state.counters["goal"] = goal;
    state.counters["bytesPerLine"] = bytes;
    if (bytes > 400) state.SkipWithError("more than 400 bytes for each line");
}

void makeLinesLibdime(benchmark::State& state)
{
    for (auto _ : state) {
        dimeModel model;
        const auto* layer = model.addLayer("0", 7, 0);
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < lineCount; ++i) {
            auto* line = new dimeLine;
            line->setLayer(layer);
            line->setCoords(0, dimeVec3f(i, 0, 0));
            line->setCoords(1, dimeVec3f(i, 10, 0));
            model.addEntity(line);
        }
        state.SetIterationTime(secondsOf(start));
    }
}

/// The time of making 100,000 of `count` lines, each time in memory that comes fresh from the system.
void makePart(benchmark::State& state, int count, double goal)
{
    for (auto _ : state) {
        malloc_trim(0);
        AcDbDatabase database;
        const auto start = std::chrono::steady_clock::now();
        addLines(database, count);
        state.SetIterationTime(secondsOf(start) * 100000 / count);
    }
    if (goal > 0) state.counters["goal"] = goal;
}

// Ten times as many entities may take a fifth more each.
constexpr double growthGoal = 1 / 1.2;
} // namespace

#define QM_REAL Unit(benchmark::kMillisecond)->UseRealTime()
#define QM_MANUAL Unit(benchmark::kMillisecond)->UseManualTime()

BENCHMARK_CAPTURE(openOurs, usual, usual)->Name("DrawingOpen/ours")->QM_MANUAL;
BENCHMARK_CAPTURE(openLibdime, usual, usual)->Name("DrawingOpen/libdime")->QM_MANUAL;
BENCHMARK_CAPTURE(openOurs, large, large)->Name("DrawingOpenLarge/ours")->QM_MANUAL;
BENCHMARK_CAPTURE(openLibdime, large, large)->Name("DrawingOpenLarge/libdime")->QM_MANUAL;
BENCHMARK_CAPTURE(saveOurs, usual, usual)->Name("DrawingSave/ours")->QM_REAL;
BENCHMARK_CAPTURE(saveLibdime, usual, usual)->Name("DrawingSave/libdime")->QM_REAL;
BENCHMARK_CAPTURE(saveOurs, large, large)->Name("DrawingSaveLarge/ours")->QM_REAL;
BENCHMARK_CAPTURE(saveLibdime, large, large)->Name("DrawingSaveLarge/libdime")->QM_REAL;
BENCHMARK_CAPTURE(openPart, large, large, growthGoal)->Name("DrawingOpenGrowth/ours")->QM_MANUAL;
BENCHMARK_CAPTURE(openPart, small, small, 0)->Name("DrawingOpenGrowth/tenth")->QM_MANUAL;
BENCHMARK_CAPTURE(makeLinesOurs, libdime, 0.25)->Name("LinesMade/ours")->QM_MANUAL;
BENCHMARK(makeLinesLibdime)->Name("LinesMade/libdime")->QM_MANUAL;
BENCHMARK_CAPTURE(makeLinesOurs, ezdxf, 40)->Name("LinesMadeByScript/ours")->QM_MANUAL;
BENCHMARK_CAPTURE(makePart, large, lineCount, growthGoal)->Name("LinesMadeGrowth/ours")->QM_MANUAL;
BENCHMARK_CAPTURE(makePart, small, lineCount / 10, 0)->Name("LinesMadeGrowth/tenth")->QM_MANUAL;
