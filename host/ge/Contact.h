#pragma once

/// The places where two curves meet, made exact from places nearby.

#include "CurveMeet.h"

namespace gecore
{
/// Bounds of a parameter.
struct Stretch {
    double lo = 0, hi = 0;
};

class Contact
{
public:
    /// Both forms must be finite, and outlive this.
    Contact(const CurveForm& first, const CurveForm& second, double tol)
        : mFirst(first), mSecond(second), mTol(tol)
    {
    }

    /// Moves a meeting from the parameters s and t that it has, which lie within the bounds, to where the
    /// curves are closest within those. A touch moves to its middle, where the directions are parallel,
    /// bounds or not. False when the curves are further apart than the tolerance there.
    bool refine(const Stretch& first, const Stretch& second, Meeting& meeting) const;

    /// Whether the directions of the curves are parallel there, within a millionth.
    bool isTangential(double s, double t) const;

private:
    double gap(double s, double t) const;
    double sine(double s, double t) const;
    void step(const Stretch& first, const Stretch& second, double& s, double& t) const;
    void approach(const Stretch& first, const Stretch& second, double& s, double& t) const;
    bool parallelNear(double& s, double& t) const;
    bool sharpen(double& s, double& t) const;

    const CurveForm &mFirst, &mSecond;
    const double mTol;
};
} // namespace gecore
