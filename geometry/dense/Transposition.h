#pragma once

#include "Places.h"

namespace dense
{
/// to(y, x) = from(x, y) for x below `width` and y below `height`. The two do not overlap.
void transpose(Source from, std::size_t width, std::size_t height, Target to);
} // namespace dense
