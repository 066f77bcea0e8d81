// Copying entities from one drawing to another. The peer does what programs do that have no such call: the drawing
// is saved and opened again, which copies it as well. Twice the entities take twice the time.

#include "dbdatabase.h"
#include "dbents.h"
#include "dbidmap.h"
#include "dbpl.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>
#include <string>

namespace
{
constexpr int count = 200000;

/// Lines, circles and polylines on a hundred layers.
class CopiedDrawing
{
public:
    explicit CopiedDrawing(int entities)
    {
        addLayers();
        AcDbBlockTableRecord* space = nullptr;
        acdbOpenObject(space, mDatabase.modelSpaceId(), AcDb::kForWrite);
        for (int i = 0; i < entities; ++i) {
            AcDbEntity* entity = make(i);
            AcDbObjectId id;
            space->appendAcDbEntity(id, entity);
            entity->setLayer(mLayers[static_cast<std::size_t>(i) % mLayers.size()]);
            entity->close();
            mIds.append(id);
        }
        space->close();
    }

    AcDbDatabase& database() { return mDatabase; }

    Acad::ErrorStatus copyTo(AcDbDatabase& to) const
    {
        AcDbIdMapping map;
        AcDbObjectId space = to.modelSpaceId();
        return const_cast<AcDbDatabase&>(mDatabase).wblockCloneObjects(mIds, space, map, AcDb::kDrcIgnore);
    }

private:
    void addLayers()
    {
        AcDbLayerTable* table = nullptr;
        mDatabase.getLayerTable(table, AcDb::kForWrite);
        for (int i = 0; i < 100; ++i) {
            auto* layer = new AcDbLayerTableRecord;
            AcDbObjectId id;
            layer->setName((L"layer " + std::to_wstring(i)).c_str());
            table->add(id, layer);
            layer->close();
            mLayers.push_back(id);
        }
        table->close();
    }

    static AcDbEntity* make(int i)
    {
        const double x = i * 1.5;
        if (i % 3 == 0) return new AcDbLine({x, 0, 0}, {x, 10, 0});
        if (i % 3 == 1) return new AcDbCircle({x, 0, 0}, AcGeVector3d::kZAxis, 2.0);
        auto* outline = new AcDbPolyline(4);
        for (unsigned corner = 0; corner < 4; ++corner)
            outline->addVertexAt(corner, {x + corner, corner * 2.0});
        return outline;
    }

    AcDbDatabase mDatabase;
    std::vector<AcDbObjectId> mLayers;
    AcDbObjectIdArray mIds;
};

CopiedDrawing& drawingOf(int entities)
{
    static CopiedDrawing whole(count), half(count / 2);
    return entities == count ? whole : half;
}

void copy(benchmark::State& state, int entities)
{
    const CopiedDrawing& drawing = drawingOf(entities);
    drawing.copyTo(*std::make_unique<AcDbDatabase>()); // the first memory of a process costs more than what comes again
    for (auto _ : state) {
        state.PauseTiming();
        auto target = std::make_unique<AcDbDatabase>();
        state.ResumeTiming();
        if (drawing.copyTo(*target) != Acad::eOk) state.SkipWithError("not copied");
        state.PauseTiming();
        target.reset();
        state.ResumeTiming();
    }
}

void copyBetweenDrawings(benchmark::State& state)
{
    copy(state, count);
    state.counters["goal"] = 1.0;
}

void saveAndOpen(benchmark::State& state)
{
    const std::wstring path = L"/tmp/copy_bench.dxf";
    for (auto _ : state) {
        AcDbDatabase target(false, true);
        const bool isDone = drawingOf(count).database().dxfOut(path.c_str()) == Acad::eOk &&
                            target.dxfIn(path.c_str()) == Acad::eOk;
        if (!isDone) state.SkipWithError("not saved");
    }
    std::remove("/tmp/copy_bench.dxf");
}

/// Twice the time of half the entities: a copy that is not linear falls below.
void copyWhole(benchmark::State& state)
{
    copy(state, count);
    state.counters["goal"] = 0.9;
}

void copyHalfTwice(benchmark::State& state)
{
    const CopiedDrawing& drawing = drawingOf(count / 2);
    for (auto _ : state) {
        for (int half = 0; half < 2; ++half) {
            state.PauseTiming();
            auto target = std::make_unique<AcDbDatabase>();
            state.ResumeTiming();
            if (drawing.copyTo(*target) != Acad::eOk) state.SkipWithError("not copied");
            state.PauseTiming();
            target.reset();
            state.ResumeTiming();
        }
    }
}

BENCHMARK(copyBetweenDrawings)->Name("CopyBetweenDrawings/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(saveAndOpen)->Name("CopyBetweenDrawings/save_and_open")->Unit(benchmark::kMillisecond);
BENCHMARK(copyWhole)->Name("CopyIsLinear/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(copyHalfTwice)->Name("CopyIsLinear/half_twice")->Unit(benchmark::kMillisecond);
} // namespace
