#include "Spline.h"

#include <algorithm>

namespace gecore
{
namespace
{
/// Solves a system with three diagonals by elimination without pivots; the diagonal must dominate.
std::vector<AcGeVector3d> solve(const std::vector<double>& below, std::vector<double> diagonal,
                                const std::vector<double>& above, std::vector<AcGeVector3d> right)
{
    const std::size_t n = diagonal.size();
    for (std::size_t i = 1; i < n; ++i) {
        const double factor = below[i] / diagonal[i - 1];
        diagonal[i] -= factor * above[i - 1];
        right[i] -= right[i - 1] * factor;
    }
    right[n - 1] /= diagonal[n - 1];
    for (std::size_t i = n - 1; i-- > 0;)
        right[i] = (right[i] - right[i + 1] * above[i]) / diagonal[i];
    return right;
}

/// The unknowns are the first derivatives at the points; each row states that second derivatives agree there.
struct System {
    std::vector<double> below, diagonal, above;
    std::vector<AcGeVector3d> right;

    explicit System(std::size_t n) : below(n), diagonal(n, 1), above(n), right(n) {}

    void agreeAt(std::size_t row, double hBefore, double hAfter, const AcGeVector3d& slopeBefore,
                 const AcGeVector3d& slopeAfter)
    {
        below[row] = hAfter;
        diagonal[row] = 2 * (hBefore + hAfter);
        above[row] = hBefore;
        right[row] = (slopeBefore * hAfter + slopeAfter * hBefore) * 3;
    }
};

struct Chords {
    std::vector<double> h;
    std::vector<AcGeVector3d> slope;
};

Chords chordsOf(const std::vector<AcGePoint3d>& points, const std::vector<double>& params)
{
    Chords chords;
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        chords.h.push_back(params[i + 1] - params[i]);
        chords.slope.push_back((points[i + 1] - points[i]) / chords.h.back());
    }
    return chords;
}

/// One end of an open spline: the derivative itself, or a vanishing second derivative.
void setEnd(System& system, std::size_t row, const AcGeVector3d* derivative, const AcGeVector3d& slope)
{
    if (derivative) {
        system.right[row] = *derivative;
        return;
    }
    system.diagonal[row] = 2;
    (row == 0 ? system.above : system.below)[row] = 1;
    system.right[row] = slope * 3;
}

std::vector<AcGeVector3d> openDerivatives(const Chords& c, const AcGeVector3d* start, const AcGeVector3d* end)
{
    const std::size_t n = c.h.size() + 1;
    System system(n);
    for (std::size_t i = 1; i + 1 < n; ++i)
        system.agreeAt(i, c.h[i - 1], c.h[i], c.slope[i - 1], c.slope[i]);
    setEnd(system, 0, start, c.slope.front());
    setEnd(system, n - 1, end, c.slope.back());
    return solve(system.below, system.diagonal, system.above, system.right);
}

// A cyclic system of three diagonals: the corner entries are put aside by the Sherman-Morrison formula.
std::vector<AcGeVector3d> closedDerivatives(const Chords& c)
{
    const std::size_t n = c.h.size();
    System system(n);
    for (std::size_t i = 0; i < n; ++i) {
        const std::size_t before = (i + n - 1) % n;
        system.agreeAt(i, c.h[before], c.h[i], c.slope[before], c.slope[i]);
    }
    const double first = system.below[0], last = system.above[n - 1], gamma = -system.diagonal[0];
    system.diagonal[0] -= gamma;
    system.diagonal[n - 1] -= first * last / gamma;
    std::vector<AcGeVector3d> corner(n);
    corner[0] = {gamma, 0, 0};
    corner[n - 1] = {last, 0, 0};
    std::vector<AcGeVector3d> m = solve(system.below, system.diagonal, system.above, system.right);
    const std::vector<AcGeVector3d> z = solve(system.below, system.diagonal, system.above, corner);
    const AcGeVector3d share =
        (m[0] + m[n - 1] * (first / gamma)) / (1 + z[0].x + z[n - 1].x * first / gamma);
    for (std::size_t i = 0; i < n; ++i)
        m[i] -= share * z[i].x;
    m.push_back(m.front());
    return m;
}

/// The C2 form with simple inner knots, out of the pieces with double knots: control point i + 1 of the C2
/// spline is the blossom at three successive knots, which the piece around the middle one gives.
Spline simpleKnots(const Spline& pieces, const std::vector<double>& params)
{
    Spline result;
    result.degree = 3;
    result.knots.assign(3, params.front());
    result.knots.insert(result.knots.end(), params.begin(), params.end());
    result.knots.insert(result.knots.end(), 3, params.back());
    const std::size_t count = params.size() + 2;
    for (std::size_t i = 0; i < count; ++i) {
        // The piece is p0 + d (t - a) + ..., and its blossom at (x, y, z) follows from its Taylor
        // coefficients.
        const double x = result.knots[i + 1], y = result.knots[i + 2], z = result.knots[i + 3];
        const double a = y;
        AcGeVector3d d[4];
        pieces.derivatives(a, 3, d);
        const double u = x - a, w = z - a;
        const AcGeVector3d sum = d[0] + d[1] * ((u + w) / 3) + d[2] * (u * w / 6);
        result.points.push_back(AcGePoint3d::kOrigin + sum);
    }
    return result;
}
} // namespace

Spline hermite(const std::vector<AcGePoint3d>& points, const std::vector<double>& params,
               const std::vector<AcGeVector3d>& derivatives)
{
    Spline spline;
    spline.degree = 3;
    spline.knots.assign(4, params.front());
    spline.points.push_back(points.front());
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const double third = (params[i + 1] - params[i]) / 3;
        spline.points.push_back(points[i] + derivatives[i] * third);
        spline.points.push_back(points[i + 1] - derivatives[i + 1] * third);
        if (i + 2 < points.size()) spline.knots.insert(spline.knots.end(), 2, params[i + 1]);
    }
    spline.points.push_back(points.back());
    spline.knots.insert(spline.knots.end(), 4, params.back());
    return spline;
}

Spline interpolate(const std::vector<AcGePoint3d>& points, const std::vector<double>& params,
                   const AcGeVector3d* startDerivative, const AcGeVector3d* endDerivative, bool closed)
{
    const Chords chords = chordsOf(points, params);
    const bool cyclic = closed && chords.h.size() >= 3;
    const std::vector<AcGeVector3d> m =
        cyclic ? closedDerivatives(chords) : openDerivatives(chords, startDerivative, endDerivative);
    Spline spline = simpleKnots(hermite(points, params, m), params);
    spline.points.front() = points.front();
    spline.points.back() = points.back();
    return spline;
}
} // namespace gecore
