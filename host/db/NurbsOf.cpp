#include "NurbsOf.h"

#include "gearc3d.h"
#include "gecomp3d.h"
#include "geell3d.h"
#include "gelnsg3d.h"
#include "geplin3d.h"

namespace
{
/// Moves the start of a piece onto a point that it misses by rounding: ends of arcs are computed from their
/// centres.
void snapStart(AcGeNurbCurve3d& piece, const AcGePoint3d& to)
{
    constexpr double rounding = 1e-8;
    const AcGePoint3d start = piece.controlPointAt(0);
    const double size = start.distanceTo(piece.controlPointAt(piece.numControlPoints() - 1));
    if (start.distanceTo(to) <= rounding * (1.0 + size)) piece.setControlPointAt(0, to);
}

/// Goes on with a piece that starts where the spline ends. Pieces of one degree can be joined.
bool join(std::unique_ptr<AcGeNurbCurve3d>& whole, std::unique_ptr<AcGeNurbCurve3d> piece)
{
    if (!piece) return false;
    if (!whole) {
        whole = std::move(piece);
        return true;
    }
    if (piece->degree() < whole->degree()) piece->elevateDegree(whole->degree() - piece->degree());
    if (whole->degree() < piece->degree()) whole->elevateDegree(piece->degree() - whole->degree());
    snapStart(*piece, whole->controlPointAt(whole->numControlPoints() - 1));
    AcGeError error = AcGe::kOk;
    whole->joinWith(*piece, error);
    return error == AcGe::kOk;
}

std::unique_ptr<AcGeNurbCurve3d> nurbsOfPoints(const AcGePolyline3d& polyline)
{
    std::unique_ptr<AcGeNurbCurve3d> whole;
    for (int i = 0; i + 1 < polyline.numControlPoints(); ++i) {
        const AcGePoint3d from = polyline.controlPointAt(i), to = polyline.controlPointAt(i + 1);
        if (from.isEqualTo(to)) continue;
        if (!join(whole, std::make_unique<AcGeNurbCurve3d>(AcGeLineSeg3d(from, to)))) return nullptr;
    }
    return whole;
}

std::unique_ptr<AcGeNurbCurve3d> nurbsOfChain(const AcGeCompositeCurve3d& chain)
{
    AcGeVoidPointerArray parts;
    chain.getCurveList(parts);
    std::unique_ptr<AcGeNurbCurve3d> whole;
    for (int i = 0; i < parts.length(); ++i) {
        if (!join(whole, nurbsOf(*static_cast<const AcGeCurve3d*>(parts[i])))) return nullptr;
    }
    return whole;
}
} // namespace

std::unique_ptr<AcGeNurbCurve3d> nurbsOf(const AcGeCurve3d& curve)
{
    switch (curve.type()) {
    case AcGe::kNurbCurve3d:
        return std::make_unique<AcGeNurbCurve3d>(static_cast<const AcGeNurbCurve3d&>(curve));
    case AcGe::kLineSeg3d:
        return std::make_unique<AcGeNurbCurve3d>(static_cast<const AcGeLineSeg3d&>(curve));
    case AcGe::kCircArc3d: {
        const AcGeEllipArc3d arc(static_cast<const AcGeCircArc3d&>(curve));
        return std::make_unique<AcGeNurbCurve3d>(arc);
    }
    case AcGe::kEllipArc3d:
        return std::make_unique<AcGeNurbCurve3d>(static_cast<const AcGeEllipArc3d&>(curve));
    case AcGe::kPolyline3d:
        return nurbsOfPoints(static_cast<const AcGePolyline3d&>(curve));
    case AcGe::kCompositeCrv3d:
        return nurbsOfChain(static_cast<const AcGeCompositeCurve3d&>(curve));
    default:
        return nullptr;
    }
}
