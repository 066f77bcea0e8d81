#pragma once

/// Object snaps: points of entities near a picked one.

#include "gepnt3d.h"

#include <optional>
#include <string_view>

namespace ed
{
/// The bits of OSMODE.
namespace snap
{
constexpr int endPoint = 1, midPoint = 2, center = 4, node = 8, quadrant = 16, intersection = 32,
              insertion = 64, perpendicular = 128, tangent = 256, nearest = 512, geometricCenter = 1024,
              apparent = 2048, extension = 4096, parallel = 8192, none = 16384;
}

/// The modes of names ("end,mid"), which may be cut to three letters; `none` for "non". Nothing when one is
/// no such name.
std::optional<int> snapModes(std::wstring_view names);

/// The point of the entities in the current space that one of the modes finds within the aperture around a
/// pick; the one that is closest to it, and points on curves (nearest) when there is no other. Perpendiculars
/// and tangents start at `from`. Points are in the world.
std::optional<AcGePoint3d> snapped(const AcGePoint3d& pick, int modes,
                                   const std::optional<AcGePoint3d>& from);
} // namespace ed
