#pragma once

/// The tile kernel, written once over a kind of vector. Each file that includes it is compiled for its own
/// processor, and the kinds of vector are local to those files, so that no instance is shared between them.
///
/// A Vector has the type `Value` of `lanes` numbers, and load, store, zero, spread (one number to all
/// lanes), fusedAdd(a, b, c) = c + a b in one rounding if it can, and roundedSubtract(a, b, c) = c - (a b)
/// with the product rounded first.

#include "TileKernels.h"

namespace dense
{
template <class Vector, std::size_t columns, std::size_t rows>
struct Tile {
    using Value = typename Vector::Value;
    static constexpr std::size_t width = columns * Vector::lanes;

    template <Update update>
    static void run(std::size_t depth, Source a, const double* b, Target c)
    {
        Value sums[rows][columns];
        for (std::size_t y = 0; y < rows; ++y)
            for (std::size_t x = 0; x < columns; ++x)
                sums[y][x] = update == Update::assign ? Vector::zero()
                                                      : Vector::load(c.at + y * c.stride + x * Vector::lanes);
        for (std::size_t k = 0; k < depth; ++k)
            step<update>(a.at + k * a.stride, b + k * rows, sums);
        for (std::size_t y = 0; y < rows; ++y)
            for (std::size_t x = 0; x < columns; ++x)
                Vector::store(c.at + y * c.stride + x * Vector::lanes, sums[y][x]);
    }

    template <Update update>
    static void step(const double* a, const double* b, Value (&sums)[rows][columns])
    {
        Value left[columns];
        for (std::size_t x = 0; x < columns; ++x)
            left[x] = Vector::load(a + x * Vector::lanes);
        for (std::size_t y = 0; y < rows; ++y) {
            const Value right = Vector::spread(b[y]);
            for (std::size_t x = 0; x < columns; ++x)
                sums[y][x] = update == Update::subtract ? Vector::roundedSubtract(left[x], right, sums[y][x])
                                                        : Vector::fusedAdd(left[x], right, sums[y][x]);
        }
    }

    static constexpr TileKernels kernels()
    {
        static_assert(width * rows <= largestTile, "callers keep a tile of their own");
        return {width, rows, run<Update::assign>, run<Update::add>, run<Update::subtract>};
    }
};
} // namespace dense
