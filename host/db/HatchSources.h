#pragma once

/// The loops of hatches that follow entities.

#include "dbentity.h"
#include "HatchEdges.h"

namespace hatch
{
/// A loop of curves in any order and direction that make one closed chain; false when they do not.
bool loopOfCurves(Curves curves, std::int32_t type, Loop& loop);
/// Drops the last vertex when it repeats the first.
void dropRepeatedEnd(Loop& loop);

/// The loops that entities of a drawing make in a plane: one closed chain of all their curves, or the loops
/// of a single region. The outer ones have the type; the holes of regions have it without kExternal. `open`
/// is null, or one of the entities that its user has open already. eInvalidInput when they make none, or
/// leave the plane; else the status of opening them.
Acad::ErrorStatus loopsOf(const std::vector<AcDbObjectId>& ids, const AcDbEntity* open, const Plane& plane,
                          std::int32_t type, std::vector<Loop>& loops);

/// True for an entity all of whose curves lie in the plane.
bool isIn(const AcDbEntity& entity, const Plane& plane);
/// The plane of all the curves of some entities, that of the given one (by its value at the call) when they
/// lie in it. False, and it is unchanged, when they span none or one cannot be opened.
bool commonPlane(const std::vector<AcDbObjectId>& ids, const AcDbEntity* open, Plane& plane);
} // namespace hatch
