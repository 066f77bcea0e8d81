#pragma once

/// Boundaries around a point.

#include "dbentity.h"

/// The outlines around a point of the current user coordinate system: the smallest closed one that the curves
/// of the current space make in its XY plane, and with `detectIslands` those of what lies inside. Appends new
/// entities that the caller owns and adds or deletes: closed polylines where lines and circular arcs bound
/// the area, regions elsewhere. eOk also when nothing is appended because there is a gap or the point lies on
/// a curve. eInvalidInput for a point that is not finite, eNoDatabase without a drawing.
Acad::ErrorStatus acedTraceBoundary(const AcGePoint3d& seedPoint, bool detectIslands,
                                    AcDbVoidPtrArray& resultingBoundarySet);
