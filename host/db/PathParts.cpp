/// Paths cut, lengthened and projected.

#include "BulgePath.h"
#include "dbpathcurve.h"
#include "dbpl.h"
#include "dbspline.h"
#include "FlatImage.h"
#include "gecomp3d.h"
#include "NurbsOf.h"
#include "PlanarCoords.h"

#include <algorithm>

namespace
{
/// The part of a path between two parameters; a closed path goes on over its end.
BulgePath partOf(const BulgePath& path, double from, double to)
{
    BulgePath part;
    part.elevation = path.elevation;
    part.normal = path.normal;
    const int segments = path.segments();
    constexpr double slack = 1e-12;
    for (int i = static_cast<int>(std::floor(from + slack)); i < to - slack; ++i) {
        const BulgeSegment segment = path.segment(i % segments);
        const double start = std::max(from - i, 0.0), end = std::min(to - i, 1.0);
        part.append(start > slack ? segment.pointAt(start) : segment.start(),
                    segment.bulgeBetween(start, end));
        if (i + 1 >= to - slack) part.append(end < 1.0 - slack ? segment.pointAt(end) : segment.end(), 0.0);
    }
    return part;
}

std::unique_ptr<AcGeCompositeCurve3d> chainOf(std::vector<std::unique_ptr<AcGeCurve3d>> pieces)
{
    AcGeVoidPointerArray list;
    AcGeIntArray owned;
    for (std::unique_ptr<AcGeCurve3d>& piece : pieces) {
        list.append(piece.release());
        owned.append(1);
    }
    return std::make_unique<AcGeCompositeCurve3d>(list, owned);
}
} // namespace

std::unique_ptr<AcDbCurve> DbPathCurve::makePiece(double from, double to) const
{
    const BulgePath part = partOf(path(), from, to);
    return part.count < 2 ? nullptr : makePath(part);
}

std::unique_ptr<AcDbCurve> DbPathCurve::makeLike(const AcGeCurve3d& curve, const AcGeVector3d& normal) const
{
    AcDbPolyline polyline;
    if (polyline.setFromAcGeCurve(curve, &normal) != Acad::eOk) return AcDbCurve::makeLike(curve, normal);
    return makePath(polyline.path());
}

// A straight end moves along its line; an arc keeps its circle and gets another angle.
Acad::ErrorStatus DbPathCurve::extend(double param)
{
    const BulgePath at = path();
    const int last = at.segments() - 1;
    if (at.isClosed || last < 0 || !std::isfinite(param)) return Acad::eInvalidInput;
    if (param >= 0.0 && param <= last + 1) return Acad::eInvalidInput;
    const bool start = param < 0.0;
    const BulgeSegment segment = at.segment(start ? 0 : last);
    const double t = start ? param : param - last;
    if (segment.isPoint()) return Acad::eDegenerateGeometry;
    const double length = start ? 1.0 - t : t;
    if (std::fabs(length * segment.sweep()) >= kTwoPi) return Acad::eInvalidInput;
    return setEndVertex(start, segment.pointAt(t), segment.isArc() ? segment.bulgeBetween(0.0, length) : 0.0);
}

Acad::ErrorStatus DbPathCurve::extend(bool extendStart, const AcGePoint3d& toPoint)
{
    const BulgePath at = path();
    const int last = at.segments() - 1;
    if (at.isClosed || last < 0 || !isFinite(toPoint)) return Acad::eInvalidInput;
    const AcGePoint3d local = worldToOcs(at.normal) * toPoint;
    const BulgeSegment segment = at.segment(extendStart ? 0 : last);
    double t = segment.closestParam({local.x, local.y}, extendStart, !extendStart);
    // On a circle what lies behind the start is also far beyond the end.
    if (extendStart && segment.isArc() && t > 1.0) t -= kTwoPi / std::fabs(segment.sweep());
    return extend(extendStart ? t : last + t);
}

Acad::ErrorStatus DbPathCurve::getProjectedCurve(const AcGePlane& plane, const AcGeVector3d& direction,
                                                 AcDbCurve*& projected) const
{
    projected = nullptr;
    const BulgePath at = path();
    const AcGeMatrix3d world = at.toWorld();
    if (!isDirection(direction) || direction.isPerpendicularTo(plane.normal())) return Acad::eInvalidInput;
    std::vector<std::unique_ptr<AcGeCurve3d>> images;
    for (int i = 0; i < at.segments(); ++i) {
        const std::unique_ptr<AcGeCurve3d> piece = at.geSegment(i, world);
        std::unique_ptr<AcGeCurve3d> image = piece ? flatImage(*piece, plane, direction) : nullptr;
        if (image) images.push_back(std::move(image));
    }
    if (images.empty()) return Acad::eDegenerateGeometry;
    const std::unique_ptr<AcGeCompositeCurve3d> chain = chainOf(std::move(images));
    const AcGeVector3d normal = plane.normal();
    AcDbCurve* made = nullptr;
    Acad::ErrorStatus status = createFromAcGeCurve(*chain, made, &normal);
    if (status != Acad::eOk) {
        // Arcs that became ellipses fit into a spline only.
        const std::unique_ptr<AcGeNurbCurve3d> nurbs = nurbsOf(*chain);
        status = nurbs ? createFromAcGeCurve(*nurbs, made, &normal) : Acad::eDegenerateGeometry;
    }
    if (status == Acad::eOk) made->setPropertiesFrom(this);
    projected = made;
    return status;
}
