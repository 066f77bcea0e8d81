#pragma once

/// Boundaries of the faces of a subdivision.

#include "Arrangement.h"

namespace kernel
{
using Cycle = std::vector<HalfEdge>;

/// The half-edges along the face to the left of h, in their order, from h on.
Cycle walkFace(Arrangement& plane, const HalfEdge& h);

/// The cycles of a walk that pass no vertex twice. Edges that are walked to and fro (dangling ends, bridges
/// between cycles) fall away; a walk of nothing else has no cycles.
std::vector<Cycle> simpleCycles(Arrangement& plane, const Cycle& walk);

std::vector<Run> runsOf(Arrangement& plane, const Cycle& cycle);
Box2 flatBoxOf(Arrangement& plane, const Cycle& cycle);
} // namespace kernel
