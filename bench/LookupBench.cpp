// Finding objects: by handle, by name and by id, in a small and a large drawing.
//
// Each search takes the same number of steps in both. What grows are the distances to memory, since the
// objects of the large drawing and the tables that find them do not fit into the nearer caches. A handle is
// found in one read of a table of 8 bytes a handle, and one of the stub, which tells whether its object is
// there; the peer finds ids by the system's own hash table and asks them the same. An id is opened by two
// reads, of 200 bytes a line. A name is read at six places (bucket, entry, its letters, the entry behind, stub
// and the stub's state): a thousand layers lie in the nearest cache, a hundred thousand behind all of them,
// which takes three to six times as long.

#include "dbdatabase.h"
#include "dbents.h"
#include "dbsymtb.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <random>
#include <unordered_map>
#include <vector>

namespace
{
constexpr int largeCount = 1000000, smallCount = 100000;
constexpr int searches = 10000; ///< of one iteration

/// Lines, and some of them in no order.
struct LineDrawing {
    explicit LineDrawing(int count)
    {
        AcDbBlockTableRecord* space = nullptr;
        acdbOpenObject(space, database.modelSpaceId(), AcDb::kForWrite);
        for (int i = 0; i < count; ++i) {
            auto* line = new AcDbLine({i * 1.0, 0, 0}, {i * 1.0, 10, 0});
            space->appendAcDbEntity(line);
            line->close();
        }
        std::vector<AcDbObjectId> ids = space->entityIds();
        space->close();
        std::shuffle(ids.begin(), ids.end(), std::mt19937(1));
        chosen.assign(ids.begin(), ids.begin() + searches);
        for (const AcDbObjectId id : chosen)
            handles.push_back(id.handle());
    }

    AcDbDatabase database;
    std::vector<AcDbObjectId> chosen;
    std::vector<AcDbHandle> handles;
};

const LineDrawing& drawingOf(int count)
{
    static const LineDrawing large(largeCount), small(smallCount);
    return count == largeCount ? large : small;
}

void setGoal(benchmark::State& state, double goal)
{
    state.SetItemsProcessed(state.iterations() * searches);
    if (goal > 0) state.counters["goal"] = goal;
}

void byHandle(benchmark::State& state, int count, double goal)
{
    const LineDrawing& drawing = drawingOf(count);
    for (auto _ : state) {
        for (const AcDbHandle handle : drawing.handles) {
            AcDbObjectId id;
            if (drawing.database.getAcDbObjectId(id, false, handle) != Acad::eOk)
                state.SkipWithError("not found");
            benchmark::DoNotOptimize(id);
        }
    }
    setGoal(state, goal);
}

void byHandleHashed(benchmark::State& state)
{
    const LineDrawing& drawing = drawingOf(largeCount);
    std::unordered_map<std::uint64_t, AcDbObjectId> table;
    AcDbObjectId id;
    for (std::uint64_t handle = drawing.database.handseed(); handle; --handle) {
        if (drawing.database.getAcDbObjectId(id, false, AcDbHandle(handle)) == Acad::eOk)
            table.emplace(handle, id);
    }
    for (auto _ : state) {
        for (const AcDbHandle handle : drawing.handles)
            benchmark::DoNotOptimize(table.find(handle)->second.isValid());
    }
    setGoal(state, 0);
}

void byId(benchmark::State& state, int count, double goal)
{
    for (auto _ : state) {
        for (const AcDbObjectId id : drawingOf(count).chosen) {
            AcDbLine* line = nullptr;
            if (acdbOpenObject(line, id, AcDb::kForRead) != Acad::eOk)
                return state.SkipWithError("cannot open");
            benchmark::DoNotOptimize(line->startPoint());
            line->close();
        }
    }
    setGoal(state, goal);
}

CString layerName(int index)
{
    CString name;
    name.Format(L"A-Wall-%06d", index);
    return name;
}

void addLayers(AcDbDatabase& database, int count)
{
    AcDbLayerTable* table = nullptr;
    database.getLayerTable(table, AcDb::kForWrite);
    for (int i = 0; i < count; ++i) {
        auto* layer = new AcDbLayerTableRecord;
        layer->setName(layerName(i));
        table->add(layer);
        layer->close();
    }
    table->close();
}

/// Names in another case than they were given in.
std::vector<CString> someNames(int count)
{
    std::mt19937 random(1);
    std::vector<CString> names;
    for (int i = 0; i < searches; ++i)
        names.push_back(layerName(std::uniform_int_distribution<int>(0, count - 1)(random)).MakeUpper());
    return names;
}

void byName(benchmark::State& state, int count, double goal)
{
    AcDbDatabase database;
    addLayers(database, count);
    const std::vector<CString> names = someNames(count);
    AcDbLayerTable* table = nullptr;
    database.getLayerTable(table, AcDb::kForRead);
    for (auto _ : state) {
        for (const CString& name : names) {
            AcDbObjectId id;
            if (table->getAt(name, id) != Acad::eOk) state.SkipWithError("not found");
            benchmark::DoNotOptimize(id);
        }
    }
    table->close();
    setGoal(state, goal);
}
} // namespace

BENCHMARK_CAPTURE(byHandle, large, largeCount, 1)->Name("FindByHandle/ours");
BENCHMARK(byHandleHashed)->Name("FindByHandle/unordered_map");
BENCHMARK_CAPTURE(byHandle, growth, largeCount, 0.3)->Name("FindByHandleGrowth/ours");
BENCHMARK_CAPTURE(byHandle, small, smallCount, 0)->Name("FindByHandleGrowth/tenth");
BENCHMARK_CAPTURE(byId, large, largeCount, 0.4)->Name("OpenByIdGrowth/ours");
BENCHMARK_CAPTURE(byId, small, smallCount, 0)->Name("OpenByIdGrowth/tenth");
BENCHMARK_CAPTURE(byName, large, 100000, 0.15)->Name("FindByNameGrowth/ours");
BENCHMARK_CAPTURE(byName, small, 1000, 0)->Name("FindByNameGrowth/hundredth");
