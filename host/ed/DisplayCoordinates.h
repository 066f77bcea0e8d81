#pragma once

/// The coordinate systems of the active viewport.

#include "gemat3d.h"

#include <optional>

namespace ed
{
/// The codes of acedTrans.
enum class CoordinateSystem { wcs = 0, ucs = 1, dcs = 2, paperDcs = 3 };

/// The map between two systems; with `isVector` that of displacements. Nothing when there is no document, for
/// a number that is none, and for the paper's system outside of a layout's window or together with another
/// than the DCS.
std::optional<AcGeMatrix3d> mapBetween(CoordinateSystem from, CoordinateSystem to, bool isVector = false);
/// The map to the world of one system but the paper's.
std::optional<AcGeMatrix3d> mapToWorld(CoordinateSystem from, bool isVector = false);
} // namespace ed
