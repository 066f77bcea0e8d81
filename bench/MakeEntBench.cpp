/// Making lines through the library against the calls of the host alone, and tracing boundaries in drawings
/// that grow.

#include "QmCADLib.h"

#include "acdocman.h"
#include "acedads.h"
#include "dbline.h"
#include "dbobjptr.h"
#include "dbxutil.h"

#include <benchmark/benchmark.h>

#include <cmath>

namespace
{
constexpr int kLines = 1000000;

/// A drawing with a rotated user coordinate system and a layer, its document locked.
class Drawing
{
public:
    Drawing()
    {
        acDocManager->appContextNewDocument(nullptr);
        m_document = acDocManager->mdiActiveDocument();
        acDocManager->lockDocument(m_document);
        AcGeMatrix3d ucs;
        ucs.setToRotation(0.3, AcGeVector3d::kZAxis, AcGePoint3d(100.0, 50.0, 0.0));
        acedSetCurrentUCS(ucs);
        const AcDbLayerTablePointer layers(m_document->database(), AcDb::kForWrite);
        auto* const layer = new AcDbLayerTableRecord;
        layer->setName(L"WALL");
        layers->add(layer);
        layer->close();
    }
    ~Drawing()
    {
        acDocManager->unlockDocument(m_document);
        acDocManager->closeDocument(m_document);
    }
    AcDbDatabase* database() const { return m_document->database(); }

private:
    AcApDocument* m_document = nullptr;
};

AcGePoint3d startOf(int i)
{
    return {i * 0.5, i * 0.25, 0.0};
}

AcGePoint3d endOf(int i)
{
    return {i * 0.5 + 10.0, i * 0.25 + 3.0, 0.0};
}

void makeByLibrary()
{
    AcDbObjectId id;
    const CString layer = L"WALL";
    for (int i = 0; i < kLines; ++i)
        CArxEntity::CMakeEnt::MakeLine(startOf(i), endOf(i), layer, 3, id);
}

/// What the library does for a line, written out; a caller of the host has no less to say.
void makeByHost(AcDbDatabase* database)
{
    for (int i = 0; i < kLines; ++i) {
        auto* const line = new AcDbLine;
        line->setDatabaseDefaults(database);
        line->setStartPoint(startOf(i));
        line->setEndPoint(endOf(i));
        line->setColorIndex(3);
        line->setLayer(L"WALL");
        AcGeMatrix3d ucs;
        acdbUcsMatrix(ucs, database);
        line->transformBy(ucs);
        AcDbBlockTableRecord* space = nullptr;
        acdbOpenObject(space, database->currentSpaceId(), AcDb::kForWrite);
        space->appendAcDbEntity(line);
        space->close();
        line->close();
    }
}

/// The least that makes such lines, with all that stays the same fetched once: what a caller could save who
/// makes many. Shown without a goal.
void makeBare(AcDbDatabase* database)
{
    AcGeMatrix3d ucs;
    acdbUcsMatrix(ucs, database);
    AcDbObjectId layer;
    AcDbLayerTablePointer(database)->getAt(L"WALL", layer);
    const AcDbObjectPointer<AcDbBlockTableRecord> space(database->currentSpaceId(), AcDb::kForWrite);
    for (int i = 0; i < kLines; ++i) {
        auto* const line = new AcDbLine(ucs * startOf(i), ucs * endOf(i));
        line->setColorIndex(3);
        line->setLayer(layer);
        space->appendAcDbEntity(line);
        line->close();
    }
}

template <class Make>
void millionLines(benchmark::State& state, Make make)
{
    make(Drawing().database()); // the first memory of a process costs more than what comes again
    for (auto _ : state) {
        state.PauseTiming();
        auto drawing = std::make_unique<Drawing>();
        state.ResumeTiming();
        make(drawing->database());
        state.PauseTiming();
        drawing.reset();
        state.ResumeTiming();
    }
}

void MillionLines_ours(benchmark::State& state)
{
    millionLines(state, [](AcDbDatabase*) { makeByLibrary(); });
    state.counters["goal"] = 0.5; // at most twice the calls of the host
}

void MillionLines_host(benchmark::State& state)
{
    millionLines(state, makeByHost);
}

void MillionLines_bare(benchmark::State& state)
{
    millionLines(state, makeBare);
}
BENCHMARK(MillionLines_ours)->Name("MakeLineInUcs/ours")->Unit(benchmark::kMillisecond)->Iterations(3);
void MillionLines_asLeast(benchmark::State& state)
{
    millionLines(state, [](AcDbDatabase*) { makeByLibrary(); });
}
BENCHMARK(MillionLines_asLeast)
    ->Name("MakeLineAgainstLeast/ours")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK(MillionLines_bare)
    ->Name("MakeLineAgainstLeast/least")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK(MillionLines_host)->Name("MakeLineInUcs/host")->Unit(benchmark::kMillisecond)->Iterations(3);

// Growth is measured against itself: the peer traces among 1,000 lines fifteen times, so a ratio of 1 says
// that ten times as many lines take fifteen times as long.

/// Walls of rooms of one unit, about n segments; each wall reaches a bit into the next rooms.
void makeRooms(int n)
{
    const int side = static_cast<int>(std::sqrt(n / 2.0));
    AcDbObjectId id;
    for (int i = 0; i <= side; ++i)
        for (int k = 0; k < side; ++k) {
            const double bend = 0.05 * std::sin(7.0 * i + 3.0 * k);
            CArxEntity::CMakeEnt::MakeLine({k - 0.1, i + bend, 0.0}, {k + 1.1, i - bend, 0.0}, id);
            CArxEntity::CMakeEnt::MakeLine({i + bend, k - 0.1, 0.0}, {i - bend, k + 1.1, 0.0}, id);
        }
}

void boundaryAmong(benchmark::State& state, int n, int times)
{
    const Drawing drawing;
    makeRooms(n);
    const double middle = std::floor(std::sqrt(n / 2.0) / 2) + 0.52;
    for (auto _ : state)
        for (int i = 0; i < times; ++i) {
            AcDbObjectId id;
            if (!CArxEntity::CMakeEnt::MakeBoundary({middle, middle, 0.0}, id, 1, 0))
                return state.SkipWithError("no boundary");
            const AcDbEntityPointer outline(id, AcDb::kForWrite);
            outline->erase();
        }
    if (times == 1) state.counters["goal"] = 1;
}

void Boundary_ours(benchmark::State& state)
{
    boundaryAmong(state, 10000, 1);
}
void Boundary_fifteen(benchmark::State& state)
{
    boundaryAmong(state, 1000, 15);
}
BENCHMARK(Boundary_ours)->Name("MakeBoundaryAmong10000/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(Boundary_fifteen)->Name("MakeBoundaryAmong10000/15_x_1000")->Unit(benchmark::kMillisecond);
} // namespace
