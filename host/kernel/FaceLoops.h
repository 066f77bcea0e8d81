#pragma once

/// Faces of a plane as loops of curves.

#include "CurvePart.h"

namespace kernel
{
/// Curves that follow each other, end to start, round an area.
using Loop = std::vector<CurvePtr>;

/// The first loop runs counter-clockwise around the face, the others clockwise around its holes.
struct Face {
    std::vector<Loop> loops;
};

/// The runs refer to the curves of the loop.
void addRuns(const Loop& loop, std::vector<Run>& runs);
std::vector<Run> runsOf(const Loop& loop);

/// Turns the loop round: the curves are copied.
Loop reversed(const Loop& loop);

/// True when the curves of the loops neither cross nor touch each other or themselves, end to start apart.
bool areSimple(const std::vector<Loop>& loops, double tol);

/// Faces of the loops: counter-clockwise ones go around, a clockwise one is a hole in the smallest that holds
/// it. A hole outside of all is left out.
std::vector<Face> facesOf(std::vector<Loop> loops);

/// Neighbours on one line or one circle become one curve.
Loop merged(const Loop& loop, double tol);

/// The curve along a cycle of a subdivision.
Loop loopOf(Arrangement& plane, const Cycle& cycle);
} // namespace kernel
