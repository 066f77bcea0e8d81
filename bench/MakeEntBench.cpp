/// Making lines through the library against the calls of the host alone, and tracing boundaries in drawings
/// that grow.

#include "QmCADLib.h"

#include "acdocman.h"
#include "acedtrace.h"
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

template <class Make>
void millionLines(benchmark::State& state, Make make)
{
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
BENCHMARK(MillionLines_ours)->Name("MakeLineInUcs/ours")->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(MillionLines_host)->Name("MakeLineInUcs/host")->Unit(benchmark::kMillisecond)->Iterations(3);
} // namespace

BENCHMARK_MAIN();
