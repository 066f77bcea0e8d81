#pragma once

/// The syntax of points, lengths and directions at the command line.

#include "gemat3d.h"
#include "UnitsRead.h"

namespace ed
{
/// How the drawing wants numbers typed.
struct InputUnits {
    units::Linear linear = units::Linear::decimal;
    units::Angular angular = units::Angular::degrees;
    double angleBase = 0.0; ///< radians
    bool clockwise = false;
};
InputUnits currentUnits();

/// Coordinates as typed; their meaning depends on `kind`.
struct TypedPoint {
    enum class Kind {
        cartesian, ///< x, y and, with `hasHeight`, z
        polar,     ///< length and direction; with `hasHeight` z
        spherical, ///< length, direction in the XY plane and from it
        distance,  ///< length alone
        direction, ///< direction alone
        last,      ///< "@"
    };
    Kind kind = Kind::cartesian;
    bool relative = false;
    bool world = false;
    bool hasHeight = false;
    double first = 0.0, second = 0.0, third = 0.0;
};

std::optional<double> readLength(std::wstring_view text, const InputUnits& units);
/// A direction in radians from the X axis; one or two < in front take it from east.
std::optional<double> readDirection(std::wstring_view text, const InputUnits& units);
std::optional<TypedPoint> parsePoint(std::wstring_view text, const InputUnits& units);

/// What typed coordinates relate to.
struct PointFrame {
    AcGePoint3d origin; ///< of relative ones, in the UCS
    AcGeMatrix3d ucsToWorld;
    double elevation = 0.0;
};
/// The point in the UCS; for all kinds but distance and direction.
AcGePoint3d placed(const TypedPoint& typed, const PointFrame& frame);
} // namespace ed
