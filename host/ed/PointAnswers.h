#pragma once

/// Points, lengths and angles as functions and jigs ask for them. Everything is in the current UCS.

#include "PointReader.h"

namespace ed
{
struct PointWish {
    std::wstring prompt;
    InputRules rules;
    PointContext context;
    bool seesMoves = false;
    bool promptShown = false;    ///< the prompt stands there already
    bool keepsLastPoint = false; ///< a point that shows a number does not become LASTPOINT
};

/// An answer; `moved` says that the cursor only passed there.
struct PointReply : Reply {
    AcGePoint3d point;
    bool moved = false;
};
PointReply askPoint(const PointWish& wish);

struct NumberReply : Reply {
    double value = 0.0;
    bool moved = false;
};
/// A length: typed, from the base to a point, or between two points where there is no base.
NumberReply askDistance(const PointWish& wish);
/// A direction from the X axis in [0, 2 pi): typed, from the base to a point, or from one point to another.
NumberReply askDirection(const PointWish& wish);

double withinTurn(double angle);
} // namespace ed
