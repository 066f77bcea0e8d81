#pragma once

/// Non-uniform rational B-splines. Algorithms are named after L. Piegl and W. Tiller, The NURBS Book, 2nd ed.

#include "gepnt3d.h"

#include <vector>

namespace gecore
{
/// The highest degree that is accepted.
constexpr int kMaxDegree = 25;

/// A point times its weight, and the weight.
struct Weighted {
    AcGeVector3d p;
    double w = 1;
};

/// A B-spline: knots.size() == points.size() + degree + 1, knots do not fall, weights are positive or absent.
/// An empty one (no points) stands for input that is none of that.
struct Spline {
    int degree = 0;
    bool periodic = false;
    std::vector<double> knots;
    std::vector<AcGePoint3d> points;
    std::vector<double> weights;

    bool isEmpty() const { return points.empty(); }
    bool isRational() const { return !weights.empty(); }
    double weight(std::size_t i) const { return weights.empty() ? 1 : weights[i]; }
    double lower() const { return isEmpty() ? 0 : knots[static_cast<std::size_t>(degree)]; }
    double upper() const { return isEmpty() ? 0 : knots[points.size()]; }
    bool isValid() const;

    /// Derivatives 0 to `order` at t (A2.1, A2.3, A3.2 and A4.2); outside of the range the end pieces go on.
    /// `order` is 3 at most.
    void derivatives(double t, int order, AcGeVector3d* out) const;
    /// The index of the knot span that holds t (A2.1).
    std::size_t spanAt(double t) const;
    /// How often a knot equal to t occurs.
    int multiplicity(double t) const;

    /// Inserts a knot of the range without changing the curve, up to `degree` times in all (Boehm; A5.1).
    void insertKnot(double t);
    /// Turns the direction round; the parameters lo and hi exchange their places.
    void reverse();
    /// Cuts to lo..hi, inside of the range; the ends become clamped.
    void trim(double lo, double hi);
    /// Raises the degree by one without changing the curve.
    void elevate();
    /// The control points of the Bezier pieces between neighbouring different knots.
    struct Bezier {
        double lo, hi;
        std::vector<Weighted> points;
    };
    std::vector<Bezier> beziers() const;

private:
    Weighted weighted(std::size_t i) const;
    void setWeighted(std::size_t i, const Weighted& value);
};

/// Interpolates cubically through points with these parameters (one for each point, rising), with first
/// derivatives at the ends where given, else with the natural condition of a vanishing second derivative.
/// `closed`: first and second derivatives agree at the ends, which must be equal points.
Spline interpolate(const std::vector<AcGePoint3d>& points, const std::vector<double>& params,
                   const AcGeVector3d* startDerivative, const AcGeVector3d* endDerivative, bool closed);
/// The cubic through points with the given first derivatives at all of them (Hermite form).
Spline hermite(const std::vector<AcGePoint3d>& points, const std::vector<double>& params,
               const std::vector<AcGeVector3d>& derivatives);
} // namespace gecore
