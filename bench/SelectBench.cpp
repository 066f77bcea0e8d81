// Selection sets of a drawing with a million entities, beside the bare loop that a module would write over its model
// space; ours may take a few times as long, since they are sorted, seen in the view and judged exactly.
// ezdxf, measured by EzdxfPeer.py, stands beside them in the table.

#include "acdocman.h"
#include "acedads.h"
#include "arxHeaders.h"
#include "dbcircle.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <malloc.h>
#include <memory>

namespace
{
constexpr int entityCount = 1000000;

/// Lines and circles by turns on a square lattice a thousand wide; every tenth on the layer "Walls".
void fill(AcDbBlockTableRecord& space, AcDbObjectId walls)
{
    for (int i = 0; i < entityCount; ++i) {
        const AcGePoint3d at(i % 1000 * 10.0, i / 1000 * 10.0, 0.0);
        AcDbEntity* entity = i % 2 ? static_cast<AcDbEntity*>(new AcDbCircle(at, AcGeVector3d::kZAxis, 4.0))
                                   : new AcDbLine(at, at + AcGeVector3d(8.0, 3.0, 0.0));
        if (i % 10 == 0) entity->setLayer(walls);
        space.appendAcDbEntity(entity);
        entity->close();
    }
}

AcDbObjectId makeWalls(AcDbDatabase& database)
{
    AcDbLayerTable* table = nullptr;
    AcDbObjectId id;
    database.getLayerTable(table, AcDb::kForWrite);
    auto* record = new AcDbLayerTableRecord;
    record->setName(L"Walls");
    table->add(id, record);
    record->close();
    table->close();
    return id;
}

/// The document to select in, which stays open.
AcDbDatabase& drawing()
{
    static AcDbDatabase* const made = [] {
        acDocManager->appContextNewDocument(nullptr);
        AcApDocument* document = curDoc();
        acDocManager->lockDocument(document, AcAp::kWrite);
        AcDbDatabase* database = document->database();
        const AcDbObjectId walls = makeWalls(*database);
        AcDbBlockTableRecord* space = nullptr;
        acdbOpenObject(space, database->modelSpaceId(), AcDb::kForWrite);
        fill(*space, walls);
        space->close();
        return database;
    }();
    return *made;
}

using Filter = std::unique_ptr<resbuf, int (*)(resbuf*)>;

void select(benchmark::State& state, const wchar_t* mode, const void* pt1, const void* pt2, const Filter& filter,
            Adesk::Int32 expected, double goal)
{
    drawing();
    for (auto _ : state) {
        ads_name ss;
        Adesk::Int32 count = 0;
        if (acedSSGet(mode, pt1, pt2, filter.get(), ss) != RTNORM || acedSSLength(ss, &count) != RTNORM ||
            count != expected)
            state.SkipWithError("not what was to be selected");
        acedSSFree(ss);
    }
    state.counters["goal"] = goal;
}

void allOurs(benchmark::State& state)
{
    select(state, L"X", nullptr, nullptr, Filter(nullptr, acutRelRb), entityCount, 0.3);
}

void filteredOurs(benchmark::State& state)
{
    select(state, L"X", nullptr, nullptr, Filter(acutBuildList(RTDXF0, L"LINE", 8, L"walls", RTNONE), acutRelRb),
           entityCount / 10, 0.3);
}

/// By a group that has to be written out to be compared.
void measuredOurs(benchmark::State& state)
{
    select(state, L"X", nullptr, nullptr,
           Filter(acutBuildList(RTDXF0, L"CIRCLE", -4, L"<", 40, 5.0, RTNONE), acutRelRb), entityCount / 2, 0.1);
}

// The window holds 10 by 10 places of the lattice.
const ads_point low = {4995.0, 4995.0, 0.0}, high = {5094.5, 5094.5, 0.0};

void crossingOurs(benchmark::State& state)
{
    select(state, L"C", high, low, Filter(nullptr, acutRelRb), 100, 10);
}

/// Picks the i-th of a thousand lines all over the drawing. False when nothing is there.
bool pickOne(int i)
{
    const ads_point at = {(i * 7919 % 500 * 2) * 10.0 + 4.0, i * 104729 % 1000 * 10.0 + 1.5, 0.0};
    ads_name ss;
    Adesk::Int32 count = 0;
    const bool isPicked =
        acedSSGet(nullptr, at, nullptr, nullptr, ss) == RTNORM && acedSSLength(ss, &count) == RTNORM && count == 1;
    acedSSFree(ss);
    return isPicked;
}

double heapBytes() { return static_cast<double>(mallinfo2().uordblks + mallinfo2().hblkhd); }

struct FirstPicks {
    double milliseconds, bytesPerEntity;
};

FirstPicks measureFirstPicks()
{
    const double before = heapBytes();
    const auto start = std::chrono::steady_clock::now();
    pickOne(0);
    pickOne(1);
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    return {taken.count(), (heapBytes() - before) / entityCount};
}

/// A thousand picks may take a tenth of one look at all entities. The first two, which look at all entities and make an
/// index of them, are told by themselves.
void picksOurs(benchmark::State& state)
{
    drawing();
    static const FirstPicks first = measureFirstPicks();
    state.counters["firstTwoMs"] = first.milliseconds;
    state.counters["indexBytesPerEntity"] = first.bytesPerEntity;
    bool isPicked = true;
    for (auto _ : state) {
        for (int i = 0; i < 1000; ++i) isPicked = pickOne(i) && isPicked;
    }
    if (!isPicked) state.SkipWithError("nothing was picked");
    state.counters["goal"] = 10;
}

/// Opens every entity of model space in turn.
template <class Visit>
void forEach(AcDbDatabase& database, Visit visit)
{
    AcDbBlockTableRecord* space = nullptr;
    AcDbBlockTableRecordIterator* made = nullptr;
    acdbOpenObject(space, database.modelSpaceId());
    space->newIterator(made);
    for (const std::unique_ptr<AcDbBlockTableRecordIterator> at(made); !at->done(); at->step()) {
        AcDbEntity* entity = nullptr;
        if (at->getEntity(entity) != Acad::eOk) continue;
        visit(*entity);
        entity->close();
    }
    space->close();
}

void allLoop(benchmark::State& state)
{
    for (auto _ : state) {
        AcDbObjectIdArray ids;
        forEach(drawing(), [&](const AcDbEntity& entity) { ids.append(entity.objectId()); });
        benchmark::DoNotOptimize(ids.length());
    }
}

template <class Class>
void namedLoop(benchmark::State& state)
{
    for (auto _ : state) {
        AcDbObjectIdArray ids;
        forEach(drawing(), [&](const AcDbEntity& entity) {
            CString layer;
            if (!entity.isKindOf(Class::desc()) || entity.layer(layer) != Acad::eOk) return;
            if (layer.CompareNoCase(L"Walls") == 0 || Class::desc() == AcDbCircle::desc())
                ids.append(entity.objectId());
        });
        benchmark::DoNotOptimize(ids.length());
    }
}

void crossingLoop(benchmark::State& state)
{
    for (auto _ : state) {
        AcDbObjectIdArray ids;
        forEach(drawing(), [&](const AcDbEntity& entity) {
            AcDbExtents box;
            if (entity.getGeomExtents(box) != Acad::eOk) return;
            if (box.minPoint().x <= high[X] && box.maxPoint().x >= low[X] && box.minPoint().y <= high[Y] &&
                box.maxPoint().y >= low[Y])
                ids.append(entity.objectId());
        });
        benchmark::DoNotOptimize(ids.length());
    }
}
} // namespace

#define QM_REAL Unit(benchmark::kMillisecond)->UseRealTime()

BENCHMARK(allOurs)->Name("SelectAll/ours")->QM_REAL;
BENCHMARK(allLoop)->Name("SelectAll/loop")->QM_REAL;
BENCHMARK(filteredOurs)->Name("SelectFiltered/ours")->QM_REAL;
BENCHMARK(namedLoop<AcDbLine>)->Name("SelectFiltered/loop")->QM_REAL;
BENCHMARK(measuredOurs)->Name("SelectMeasured/ours")->QM_REAL;
BENCHMARK(namedLoop<AcDbCircle>)->Name("SelectMeasured/loop")->QM_REAL;
BENCHMARK(picksOurs)->Name("ThousandPicks/ours")->QM_REAL;
BENCHMARK(crossingLoop)->Name("ThousandPicks/one_loop")->QM_REAL;
BENCHMARK(crossingOurs)->Name("SelectCrossing/ours")->QM_REAL;
BENCHMARK(crossingLoop)->Name("SelectCrossing/loop")->QM_REAL;
