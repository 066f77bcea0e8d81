#pragma once

/// Answers that are points.

#include "Question.h"
#include "TypedPoint.h"

namespace ed
{
/// What the point relates to; all in the current UCS.
struct PointContext {
    std::optional<AcGePoint3d> base;
    bool directDistance = true; ///< a number alone is a point
    bool followsOrtho = true;   ///< where ORTHOMODE asks for it
    bool checkLimits = true;    ///< where LIMCHECK asks for it
};

/// Reads an answer as a point of the current UCS, asking for what it leads to (the point of an object snap,
/// the rest of a filter). Cursor moves are points too, along the axes where ORTHOMODE asks for it.
Verdict readPoint(const Answer& answer, const PointContext& context, AcGePoint3d& point,
                  std::wstring& message);

AcGePoint3d lastPoint();
void setLastPoint(const AcGePoint3d& point);
double elevation();
} // namespace ed
