#pragma once

/// Copies of parts of a matrix in the order in which the tile kernels read them: in panels as wide as a
/// tile, the last one filled up with zeros.

#include "Places.h"

namespace dense
{
/// Panels of `width` along x: element (x, k) of the part goes to position
/// (x / width) * width * depth + k * width + x % width.
void packAlong(Source part, std::size_t count, std::size_t depth, std::size_t width, double* panels);

/// Panels of `height` along y: element (k, y) of the part goes to position
/// (y / height) * height * depth + k * height + y % height.
void packAcross(Source part, std::size_t depth, std::size_t count, std::size_t height, double* panels);
} // namespace dense
