#include "BoundaryTrace.h"
#include "CurveOffset.h"
#include "gearc2d.h"
#include "gearc3d.h"
#include "gelnsg2d.h"
#include "gelnsg3d.h"
#include "Region.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <random>
#include <string>

// Growth is measured against itself: the peer traces among 1,000 curves fifteen times, so a ratio of 1 says
// that ten times as many curves take fifteen times as long.

namespace
{
using Curves = std::vector<std::unique_ptr<AcGeCurve2d>>;

/// Walls of rooms of one unit, slightly bent, in a square of about n segments; each tenth ends loose.
Curves rooms(int n)
{
    std::mt19937 engine(1);
    std::uniform_real_distribution<double> bend(-0.1, 0.1);
    const int side = static_cast<int>(std::sqrt(n / 2.0));
    Curves curves;
    for (int i = 0; i <= side; ++i)
        for (int k = 0; k < side; ++k) {
            const double reach = k % 10 == 9 ? 1.3 : 1.1;
            curves.push_back(std::make_unique<AcGeLineSeg2d>(AcGePoint2d(k - 0.1, i + bend(engine)),
                                                             AcGePoint2d(k + reach, i + bend(engine))));
            curves.push_back(std::make_unique<AcGeLineSeg2d>(AcGePoint2d(i + bend(engine), k - 0.1),
                                                             AcGePoint2d(i + bend(engine), k + reach)));
        }
    return curves;
}

/// Lines that all go through a square.
Curves lines(int n)
{
    std::mt19937 engine(1);
    std::uniform_real_distribution<double> at(-10, 10), angle(0, 6.28);
    Curves curves;
    for (int i = 0; i < n; ++i) {
        const AcGePoint2d p(at(engine), at(engine));
        const AcGeVector2d u = AcGeVector2d(40, 0).rotateBy(angle(engine));
        curves.push_back(std::make_unique<AcGeLineSeg2d>(p - u, p + u));
    }
    return curves;
}

void trace(benchmark::State& state, Curves (*make)(int), int n, int times)
{
    const Curves curves = make(n);
    std::vector<kernel::TraceCurve> input;
    for (const auto& curve : curves)
        input.push_back({curve.get(), static_cast<int>(input.size())});
    const double middle = make == &rooms ? std::floor(std::sqrt(n / 2.0) / 2) + 0.52 : 0.123;
    for (auto _ : state)
        for (int i = 0; i < times; ++i)
            if (kernel::traceBoundary(input, {middle, middle}).status != kernel::TraceStatus::kOk)
                return state.SkipWithError("no boundary");
    if (times == 1) state.counters["goal"] = 1;
}

void roomsOurs(benchmark::State& state)
{
    trace(state, &rooms, 10000, 1);
}
void roomsFifteen(benchmark::State& state)
{
    trace(state, &rooms, 1000, 15);
}
void linesOurs(benchmark::State& state)
{
    trace(state, &lines, 10000, 1);
}
void linesFifteen(benchmark::State& state)
{
    trace(state, &lines, 1000, 15);
}
BENCHMARK(roomsOurs)->Name("TraceRoomAmong10000/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(roomsFifteen)->Name("TraceRoomAmong10000/15_x_1000")->Unit(benchmark::kMillisecond);
BENCHMARK(linesOurs)->Name("TraceCellOf10000Lines/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(linesFifteen)->Name("TraceCellOf10000Lines/15_x_1000")->Unit(benchmark::kMillisecond);

/// A comb of n teeth.
kernel::Region comb(int n, double shift)
{
    std::vector<AcGePoint3d> p{{0, -1 + shift, 0}};
    for (int i = 0; i < n; ++i) {
        const double x = i + shift;
        p.insert(p.end(), {{x, 0, 0}, {x, 5, 0}, {x + 0.6, 5, 0}, {x + 0.6, 0, 0}});
    }
    p.emplace_back(n + 1, -1 + shift, 0);
    std::vector<AcGeLineSeg3d> sides;
    for (std::size_t i = 0; i < p.size(); ++i)
        sides.emplace_back(p[i], p[(i + 1) % p.size()]);
    std::vector<const AcGeCurve3d*> curves;
    for (const AcGeLineSeg3d& side : sides)
        curves.push_back(&side);
    kernel::RegionStatus status;
    const auto regions = kernel::Region::fromCurves(curves, status);
    return regions.empty() ? kernel::Region() : regions.front();
}

void uniteCombs(benchmark::State& state, int teeth, int times)
{
    const kernel::Region a = comb(teeth, 0), b = comb(teeth, 0.3);
    if (a.isEmpty() || b.isEmpty()) return state.SkipWithError("no region");
    for (auto _ : state)
        for (int i = 0; i < times; ++i) {
            kernel::Region result;
            a.combine(kernel::BooleanKind::kUnion, b, result);
            benchmark::DoNotOptimize(result);
        }
    state.counters["curves"] = 2 * (4 * teeth + 2);
}

void combOurs(benchmark::State& state)
{
    uniteCombs(state, 50, 1);
}
void combTimes(benchmark::State& state)
{
    uniteCombs(state, 25, 2);
}
BENCHMARK(combOurs)->Name("UniteCombs400/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(combTimes)->Name("UniteCombs400/2_x_200")->Unit(benchmark::kMillisecond);
} // namespace
