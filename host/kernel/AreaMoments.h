#pragma once

/// Areas and their moments from the boundary.

#include "Winding.h"

namespace kernel
{
/// Integrals over an area, about an origin: of 1, x, y, x^2, y^2 and x y.
struct Moments {
    double area = 0, x = 0, y = 0, xx = 0, yy = 0, xy = 0;

    Moments& operator+=(const Moments& other);
    /// The same area seen from an origin that lies at (dx, dy) (parallel axes).
    Moments movedTo(double dx, double dy) const;
};

/// What closed runs enclose, counter-clockwise ones counted positive: Green's theorem, integrated by
/// Gauss-Legendre rules that are exact for lines and for splines to degree 8 without weights, and halved
/// until they settle to 1e-13 relative for others.
Moments momentsOf(const std::vector<Run>& runs, const AcGePoint2d& origin);

/// The part that one run has in momentsOf.
Moments momentsOf(const Run& run, const AcGePoint2d& origin);

inline double areaOf(const std::vector<Run>& runs)
{
    if (runs.empty()) return 0;
    const AcGePoint3d start = runs.front().start();
    return momentsOf(runs, {start.x, start.y}).area;
}
} // namespace kernel
