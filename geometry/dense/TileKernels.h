#pragma once

/// The innermost loop of a product: one tile of the result, kept in registers.

#include "Places.h"
#include "Processor.h"

namespace dense
{
/// What a product does to the elements of its target.
enum class Update {
    assign,  ///< c = a b, each step fused into one rounding where the processor can
    add,     ///< c = c + a b, likewise
    subtract ///< c = c - a b, step by step in the order of the inner index, each product rounded before it is
             ///< taken off: bit for bit what the plain loop gives, on every processor
};

/// Updates a tile of `width` by `height` elements.
/// @param depth  the inner size
/// @param a      depth groups of `width` numbers, element (x, k) at a.at[x + k * a.stride]
/// @param b      depth groups of `height` numbers, element (k, y) at b[y + k * height]
using TileKernel = void (*)(std::size_t depth, Source a, const double* b, Target c);

/// The kernels for one kind of processor. They share the size of the tile.
struct TileKernels {
    std::size_t width;
    std::size_t height;
    TileKernel assign;
    TileKernel add;
    TileKernel subtract;

    TileKernel of(Update update) const
    {
        return update == Update::assign ? assign : update == Update::add ? add : subtract;
    }
};

/// No tile is larger.
constexpr std::size_t largestTile = 256;

extern const TileKernels baselineKernels;
extern const TileKernels avx2Kernels;   ///< for Instructions::avx2 and above
extern const TileKernels avx512Kernels; ///< for Instructions::avx512

/// The kernels made for these instructions.
const TileKernels& kernelsFor(Instructions instructions);

/// The fastest kernels that run here.
const TileKernels& kernelsHere();
} // namespace dense
