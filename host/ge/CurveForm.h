#pragma once

/// Curves as the numeric functions of this folder see them: plain values, three-dimensional (z = 0 for curves
/// of the plane). The entity classes describe themselves in this form and leave lengths, closest points and
/// intersections to the free functions on it, which are also what a stronger engine would replace.

#include "gemat3d.h"

#include <limits>
#include <vector>

namespace gecore
{
constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 2 * kPi;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Spline;
struct ChainLink;

enum class FormKind : char {
    kLine,   ///< origin + t u
    kConic,  ///< origin + cos t u + sin t v, with u and v perpendicular
    kSpline, ///< *spline at t
    kChain   ///< the links one after the other
};

/// One curve over the parameters lo..hi. Lines may be unbounded; lo <= hi otherwise.
/// It points into the entity it came from and is valid as long as that is unchanged.
struct CurveForm {
    FormKind kind = FormKind::kLine;
    AcGePoint3d origin;
    AcGeVector3d u, v;
    double lo = 0, hi = 0;
    const Spline* spline = nullptr;
    const std::vector<ChainLink>* chain = nullptr;

    bool isBounded() const { return lo > -kInfinity && hi < kInfinity; }
    double clamped(double t) const { return t < lo ? lo : t > hi ? hi : t; }
};

/// A piece of a chain: the parameters start..stop of the chain run over the whole piece.
struct ChainLink {
    CurveForm form;
    double start = 0, stop = 0;

    double scale() const { return stop > start ? (form.hi - form.lo) / (stop - start) : 0; }
    double inner(double t) const { return form.lo + (t - start) * scale(); }
    double outer(double s) const { return scale() > 0 ? start + (s - form.lo) / scale() : start; }
};

inline CurveForm lineForm(const AcGePoint3d& origin, const AcGeVector3d& u, double lo, double hi)
{
    return {FormKind::kLine, origin, u, {}, lo, hi, nullptr, nullptr};
}

inline CurveForm conicForm(const AcGePoint3d& center, const AcGeVector3d& u, const AcGeVector3d& v, double lo,
                           double hi)
{
    return {FormKind::kConic, center, u, v, lo, hi, nullptr, nullptr};
}

CurveForm splineForm(const Spline& spline);
CurveForm chainForm(const std::vector<ChainLink>& links);

/// True when every number of the form is finite, bounds of lines apart.
bool isFinite(const CurveForm& form);
/// A conic whose axes have one length, within rounding.
bool isCircle(const CurveForm& form);

/// The derivatives 0 to `order` (at most 3) at t; the first is the point seen as a vector.
void derivatives(const CurveForm& form, double t, int order, AcGeVector3d* out);

AcGePoint3d pointAt(const CurveForm& form, double t);
inline AcGePoint3d startOf(const CurveForm& form)
{
    return pointAt(form, form.lo);
}
inline AcGePoint3d endOf(const CurveForm& form)
{
    return pointAt(form, form.hi);
}

/// The link of a chain that holds parameter t.
const ChainLink& linkAt(const std::vector<ChainLink>& links, double t);

/// The same curve over other bounds.
inline CurveForm trimmed(CurveForm form, double lo, double hi)
{
    form.lo = lo;
    form.hi = hi;
    return form;
}

/// The parameters where the curve may fail to be smooth, from lo to hi, both included when finite.
std::vector<double> smoothBreaks(const CurveForm& form);

/// Ends that meet within the tolerance; false for unbounded curves and for points.
bool isClosed(const CurveForm& form, double tol);
} // namespace gecore
