#pragma once

/// How the numeric kernels see a matrix: element (x, y) lies at `at[x + y * stride]`, so that the x run
/// along memory. Sizes are counts of elements.

#include <cstddef>

namespace dense
{
struct Source {
    const double* at;
    std::size_t stride;

    Source from(std::size_t x, std::size_t y) const { return {at + x + y * stride, stride}; }
};

struct Target {
    double* at;
    std::size_t stride;

    Target from(std::size_t x, std::size_t y) const { return {at + x + y * stride, stride}; }
};
} // namespace dense
