// A plot of 100,000 entities into a picture, beside a program that strokes the same lines with cairo one by one.

#include "PlotDrawing.h"
#include "dbents.h"
#include "dbarc.h"
#include "dbobjptr.h"

#include <benchmark/benchmark.h>
#include <cairo.h>

#include <cmath>
#include <cstdio>
#include <memory>
#include <vector>

namespace
{
constexpr int entityCount = 100000;
constexpr int side = 1754; ///< pixels: A4 at 150 dots per inch
const wchar_t* const pictureName = L"/tmp/bench-plot.png";

struct Segment {
    double x0, y0, x1, y1;
};

/// Short lines all over the page, as the walls and hatches of a plan.
std::vector<Segment> segments()
{
    std::vector<Segment> lines;
    for (std::int64_t i = 0; i < entityCount; ++i) {
        const double x = static_cast<double>(i * 7919 % 10000) / 10;
        const double y = static_cast<double>(i * 104729 % 7000) / 10;
        const double angle = static_cast<double>(i) * 0.1;
        lines.push_back({x, y, x + 8 * std::cos(angle), y + 8 * std::sin(angle)});
    }
    return lines;
}

template <class Make>
std::unique_ptr<AcDbDatabase> drawingOf(Make make)
{
    auto drawing = std::make_unique<AcDbDatabase>();
    AcDbObjectPointer<AcDbBlockTableRecord> space(drawing->modelSpaceId(), AcDb::kForWrite);
    int index = 0;
    for (const Segment& line : segments()) {
        AcDbEntity* entity = make(line, index++);
        space->appendAcDbEntity(entity);
        entity->close();
    }
    return drawing;
}

AcDbEntity* makeLine(const Segment& line, int)
{
    return new AcDbLine(AcGePoint3d(line.x0, line.y0, 0), AcGePoint3d(line.x1, line.y1, 0));
}

/// Lines, arcs and texts in several colours.
AcDbEntity* makeMixed(const Segment& line, int index)
{
    const AcGePoint3d start(line.x0, line.y0, 0);
    AcDbEntity* entity = nullptr;
    if (index % 4 == 0)
        entity = new AcDbArc(start, 4.0, 0.0, 2.0);
    else if (index % 4 == 1)
        entity = new AcDbText(start, L"A-12 房间", AcDbObjectId(), 2.5, 0.0);
    else
        entity = makeLine(line, index);
    entity->setColorIndex(static_cast<std::uint16_t>(1 + index / 1000 % 7));
    return entity;
}

void plotOf(benchmark::State& state, const AcDbDatabase& drawing)
{
    plot::PlotRequest request;
    request.file = pictureName;
    request.pixels = side;
    for (auto _ : state)
        if (plotDrawing(drawing, request) != plot::PlotStatus::done) state.SkipWithError("the plot failed");
    state.SetItemsProcessed(state.iterations() * entityCount);
}

void oursLines(benchmark::State& state)
{
    plotOf(state, *drawingOf(makeLine));
    state.counters["goal"] = 1;
}

void oursMixed(benchmark::State& state)
{
    plotOf(state, *drawingOf(makeMixed));
}

void cairoLines(benchmark::State& state)
{
    const std::vector<Segment> lines = segments();
    for (auto _ : state) {
        cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, side, side * 7 / 10);
        cairo_t* context = cairo_create(surface);
        cairo_set_source_rgb(context, 1, 1, 1);
        cairo_paint(context);
        cairo_set_source_rgb(context, 0, 0, 0);
        cairo_set_line_width(context, 1.5);
        cairo_scale(context, side / 1010.0, side / 1010.0);
        for (const Segment& line : lines) {
            cairo_move_to(context, line.x0, line.y0);
            cairo_line_to(context, line.x1, line.y1);
            cairo_stroke(context);
        }
        cairo_surface_write_to_png(surface, "/tmp/bench-plot-cairo.png");
        cairo_destroy(context);
        cairo_surface_destroy(surface);
    }
    state.SetItemsProcessed(state.iterations() * entityCount);
    std::remove("/tmp/bench-plot-cairo.png");
}
} // namespace

BENCHMARK(oursLines)->Name("PlotOfLines/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(cairoLines)->Name("PlotOfLines/cairo")->Unit(benchmark::kMillisecond);
BENCHMARK(oursMixed)->Name("PlotOfMixedEntities/ours")->Unit(benchmark::kMillisecond);
