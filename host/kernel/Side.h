#pragma once

namespace kernel
{
/// Where a point lies: inside or outside of an area, or on its boundary.
enum class Side : char { kOutside, kInside, kOn };
} // namespace kernel
