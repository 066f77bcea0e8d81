#pragma once

/// The points of selections: from arguments and from answers, to the world and to the plane of the view.

#include "adsdef.h"
#include "PointReader.h"
#include "SelectionArea.h"
#include "SelectionSet.h"
#include "SelectionView.h"

#include <optional>
#include <string>

namespace ed
{
/// A point of the current UCS in the world; nothing for null and for numbers that are not finite.
std::optional<AcGePoint3d> worldPoint(const ads_real* point);
/// The points of a list of RTPOINT and RT3DPOINT; nothing for a list with others.
std::optional<std::vector<AcGePoint3d>> worldPoints(const resbuf* list);
/// An answer as a point of the world, which may relate to a base (also in the world). `message` says what is wrong with
/// one that is refused.
Verdict answeredPoint(const Answer& answer, const std::optional<AcGePoint3d>& base, AcGePoint3d& point,
                      std::wstring& message);

/// An area, and the cause that its selection has.
struct DrawnArea {
    SelectionArea area;
    SelectionCause cause;
};
/// The kind decides what the points make: two corners for a window or crossing, otherwise a polygon or a fence.
DrawnArea windowOf(const SelectionView& view, SelectionCause::Kind kind, const AcGePoint3d& one,
                   const AcGePoint3d& other);
/// Nothing for fewer points than a polygon (3) or a fence (2) has.
std::optional<DrawnArea> polygonOf(const SelectionView& view, SelectionCause::Kind kind,
                                   const std::vector<AcGePoint3d>& points);
SelectionCause pickAt(const SelectionView& view, const AcGePoint3d& point);
/// Window when the second corner is to the right of the first, crossing otherwise.
SelectionCause::Kind kindByDirection(const SelectionView& view, const AcGePoint3d& one, const AcGePoint3d& other);
} // namespace ed
