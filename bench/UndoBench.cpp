// What recording for undo costs: the same calls in a drawing that records and in one that does not.

#include "dbents.h"
#include "dbmain.h"
#include "dbobjptr.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <memory>

namespace
{
constexpr int newLines = 1000000, changedLines = 100000;

std::size_t bytesInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

std::unique_ptr<AcDbDatabase> drawing(bool records)
{
    auto made = std::make_unique<AcDbDatabase>(true, true);
    if (records) made->disableUndoRecording(false);
    return made;
}

void addLines(AcDbDatabase& database, int count)
{
    for (int i = 0; i < count; ++i) {
        auto* line = new AcDbLine({i * 0.5, 0.0, 0.0}, {i * 0.5, 10.0, 0.0});
        const AcDbObjectPointer<AcDbBlockTableRecord> space(database.modelSpaceId(), AcDb::kForWrite);
        space->appendAcDbEntity(line);
        line->close();
    }
}

void moveAll(AcDbDatabase& database)
{
    const AcGeMatrix3d way = AcGeMatrix3d::translation({1.0, 2.0, 0.0});
    const AcDbObjectPointer<AcDbBlockTableRecord> space(database.modelSpaceId());
    for (const AcDbObjectId id : space->entityIds()) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        entity->transformBy(way);
    }
}

void newOnes(benchmark::State& state, bool records)
{
    addLines(*drawing(records), newLines); // the first memory of a process costs more than what comes again
    std::size_t bytes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const std::size_t before = bytesInUse();
        auto database = drawing(records);
        state.ResumeTiming();
        addLines(*database, newLines);
        state.PauseTiming();
        bytes = bytesInUse() - before;
        database.reset();
        state.ResumeTiming();
    }
    state.counters["bytes_per_line"] = static_cast<double>(bytes) / newLines;
    if (records) state.counters["goal"] = 0.95;
}

void changes(benchmark::State& state, bool records)
{
    auto database = drawing(records);
    addLines(*database, changedLines);
    moveAll(*database); // what a first change leaves with an object is no part of the measure
    std::size_t bytes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        database->startUndoRecord();
        const std::size_t before = bytesInUse();
        state.ResumeTiming();
        moveAll(*database);
        state.PauseTiming();
        bytes = bytesInUse() - before;
        state.ResumeTiming();
    }
    state.counters["bytes_per_line"] = static_cast<double>(bytes) / changedLines;
    if (records) state.counters["goal"] = 0.5;
}

void takenBack(benchmark::State& state)
{
    auto database = drawing(true);
    addLines(*database, changedLines);
    for (auto _ : state) {
        state.PauseTiming();
        database->startUndoRecord();
        moveAll(*database);
        state.ResumeTiming();
        database->undo();
    }
}

BENCHMARK_CAPTURE(newOnes, recorded, true)->Name("UndoOfNewLines/ours")->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(newOnes, unrecorded, false)
    ->Name("UndoOfNewLines/unrecorded")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(changes, recorded, true)->Name("UndoOfChanges/ours")->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK_CAPTURE(changes, unrecorded, false)
    ->Name("UndoOfChanges/unrecorded")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);
BENCHMARK(takenBack)->Name("UndoOfChanges/takenBack")->Unit(benchmark::kMillisecond)->Iterations(3);
} // namespace
