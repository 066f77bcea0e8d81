#pragma once

/// Smooth stretches of curves with bounds that shrink quadratically when a stretch is halved. Searches that
/// must not miss anything halve spans until the bounds decide.

#include "CurveForm.h"
#include "Spline.h"

#include <array>

namespace gecore
{
/// A stretch of a bounded line, a conic or a spline between two neighbouring knots. It lies within `sag` of
/// the chord from `a` to `b`, and its tangents within the angle `cone` of the chord's direction.
struct Span {
    const CurveForm* form = nullptr;
    double lo = 0, hi = 0;
    AcGePoint3d a, b;
    double sag = 0, cone = 0;

    double middle() const { return lo + (hi - lo) / 2; }
    double chord() const { return (b - a).length(); }
    bool canSplit() const { return middle() > lo && middle() < hi; }
    void split(Span& left, Span& right) const;
    Span between(double from, double to) const;

private:
    friend std::vector<Span> spansOf(const CurveForm& form);

    static Span of(const CurveForm& form, double lo, double hi);
    void measure();
    void measureConic();
    void measureBezier();
    void splitBezierAt(double share, Span& left, Span& right) const;

    int degree = 0; // of the Bezier points below; 0 for lines and conics
    std::array<Weighted, kMaxDegree + 1> points;
};

/// The spans of a form that is bounded and no chain: conics in quarters at most, splines between their knots.
/// `form` must outlive them.
std::vector<Span> spansOf(const CurveForm& form);

double distanceToSegment(const AcGePoint3d& p, const AcGePoint3d& a, const AcGePoint3d& b);
/// Distance of two segments (C. Ericson, Real-Time Collision Detection, 5.1.9).
double segmentDistance(const AcGePoint3d& a0, const AcGePoint3d& a1, const AcGePoint3d& b0,
                       const AcGePoint3d& b1);
} // namespace gecore
