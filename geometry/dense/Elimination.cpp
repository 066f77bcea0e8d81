#include "Elimination.h"

#include <algorithm>

namespace
{
using std::size_t;

constexpr size_t stepsInBlock = 128; // gathered for the elements outside the block's rows and lines
constexpr size_t stepsInStrip = 8;   // gathered inside a block

void subtractScaled(const double* factors, double scale, double* from, size_t count)
{
    for (size_t i = 0; i < count; ++i)
        from[i] -= factors[i] * scale;
}
} // namespace

namespace dense
{
Elimination::Elimination(Target a, size_t size, const TileKernels& kernels)
    : m_a(a), m_size(size), m_depth(std::min(size, stepsInBlock)), m_factors(m_depth * size),
      m_pivots(m_depth), m_divided(m_depth * size), m_multiplier(kernels)
{
    if (size > stepsInStrip) m_multiplier.reserve({size, size, m_depth});
}

size_t Elimination::run()
{
    for (m_first = 0; m_first < m_size; m_first += m_depth) {
        const Range block{m_first, std::min(m_first + m_depth, m_size)};
        const Range done{block.from, eliminatePanel(block)};
        repeatBlock(done, {0, block.from});
        repeatBlock(done, {block.to, m_size});
        if (done.to < block.to) return done.to;
    }
    return m_size;
}

/// The steps of a block on its own lines. Returns the first step that was not done.
size_t Elimination::eliminatePanel(Range block)
{
    for (size_t from = block.from; from < block.to; from += stepsInStrip) {
        const Range strip{from, std::min(from + stepsInStrip, block.to)};
        const Range done{from, eliminatePlainly(strip)};
        repeatSteps(done, {0, m_size}, {block.from, strip.from});
        repeatSteps(done, {0, m_size}, {strip.to, block.to});
        if (done.to < strip.to) return done.to;
    }
    return block.to;
}

/// The steps of a strip on its own lines, keeping what the other lines need to repeat them.
size_t Elimination::eliminatePlainly(Range steps)
{
    for (size_t k = steps.from; k < steps.to; ++k) {
        const double pivot = element(k, k);
        element(k, k) = 1.0;
        if (pivot == 0.0) return k;
        m_pivots[k - m_first] = pivot;
        divideLine(k, steps);
        double* const line = &element(0, k);
        std::copy_n(line, m_size, factors(k));
        std::fill_n(line, k, 0.0);
        std::fill(line + k + 1, line + m_size, 0.0);
        takeOff(k, steps);
    }
    return steps.to;
}

void Elimination::divideLine(size_t k, Range lines)
{
    for (size_t j = lines.from; j < lines.to; ++j)
        element(k, j) /= m_pivots[k - m_first];
}

void Elimination::takeOff(size_t k, Range lines)
{
    for (size_t j = lines.from; j < lines.to; ++j) {
        const double scale = element(k, j);
        subtractScaled(factors(k), scale, &element(0, j), k);
        subtractScaled(factors(k) + k + 1, scale, &element(0, j) + k + 1, m_size - k - 1);
    }
}

/// Repeats steps on other lines, for the rows given, which include those of the steps.
void Elimination::repeatSteps(Range steps, Range rows, Range lines)
{
    repeatInside(steps, lines);
    repeatOutside(steps, rows, lines);
}

/// The rows of the steps themselves: each depends on the one before.
void Elimination::repeatInside(Range steps, Range lines)
{
    for (size_t j = lines.from; j < lines.to; ++j) {
        double* const line = &element(0, j);
        for (size_t k = steps.from; k < steps.to; ++k) {
            const double scale = line[k] /= m_pivots[k - m_first];
            divided(j)[k - m_first] = scale;
            subtractScaled(factors(k) + steps.from, scale, line + steps.from, k - steps.from);
            subtractScaled(factors(k) + k + 1, scale, line + k + 1, steps.to - k - 1);
        }
    }
}

/// The rows before and behind those of the steps: a product.
void Elimination::repeatOutside(Range steps, Range rows, Range lines)
{
    const Source divisions{divided(lines.from) + (steps.from - m_first), m_depth};
    for (const Range part : {Range{rows.from, steps.from}, Range{steps.to, rows.to}})
        m_multiplier.run({part.count(), lines.count(), steps.count()},
                         {factors(steps.from) + part.from, m_size}, divisions,
                         m_a.from(part.from, lines.from), Update::subtract);
}

/// All steps of a block on lines outside it.
void Elimination::repeatBlock(Range steps, Range lines)
{
    for (size_t from = steps.from; from < steps.to; from += stepsInStrip)
        repeatSteps({from, std::min(from + stepsInStrip, steps.to)}, steps, lines);
    repeatOutside(steps, {0, m_size}, lines);
}
} // namespace dense
