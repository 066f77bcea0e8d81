/// Curves cut into pieces, lengthened, and made of free curves.

#include "dbarc.h"
#include "dbcircle.h"
#include "dbelipse.h"
#include "dbline.h"
#include "dbpl.h"
#include "dbspline.h"
#include "FlatImage.h"
#include "NurbsOf.h"
#include "PlanarCoords.h"

#include <algorithm>

namespace
{
template <class T>
std::unique_ptr<AcDbCurve> make()
{
    return std::make_unique<T>();
}

std::unique_ptr<AcDbCurve> entityFor(const AcGeCurve3d& curve, const AcGeTol& tol)
{
    switch (curve.type()) {
    case AcGe::kLineSeg3d:
        return make<AcDbLine>();
    case AcGe::kCircArc3d:
        return curve.isClosed(tol) ? make<AcDbCircle>() : make<AcDbArc>();
    case AcGe::kEllipArc3d:
        return make<AcDbEllipse>();
    case AcGe::kNurbCurve3d:
        return make<AcDbSpline>();
    case AcGe::kPolyline3d:
    case AcGe::kCompositeCrv3d:
        return make<AcDbPolyline>();
    default:
        return nullptr;
    }
}
} // namespace

Acad::ErrorStatus AcDbCurve::createFromAcGeCurve(const AcGeCurve3d& curve, AcDbCurve*& made,
                                                 const AcGeVector3d* normal, const AcGeTol& tol)
{
    made = nullptr;
    std::unique_ptr<AcDbCurve> entity = entityFor(curve, tol);
    if (!entity) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = entity->setFromAcGeCurve(curve, normal, tol);
    if (status == Acad::eOk) made = entity.release();
    return status;
}

std::unique_ptr<AcDbCurve> AcDbCurve::makePiece(double from, double to) const
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    if (!curve || !curve->setInterval(AcGeInterval(geParam(from), geParam(to)))) return nullptr;
    AcDbCurve* made = nullptr;
    createFromAcGeCurve(*curve, made);
    if (made) made->setPropertiesFrom(this);
    return std::unique_ptr<AcDbCurve>(made);
}

Acad::ErrorStatus AcDbCurve::getSplitCurves(const AcGeDoubleArray& params, AcDbVoidPtrArray& curves) const
{
    double start = 0.0, end = 0.0;
    if (params.isEmpty() || getStartParam(start) != Acad::eOk || getEndParam(end) != Acad::eOk)
        return Acad::eInvalidInput;
    const double slack = 1e-10 * (1.0 + end - start);
    std::vector<double> cuts;
    for (const double param : params) {
        if (!(param >= start - slack && param <= end + slack)) return Acad::eInvalidInput;
        cuts.push_back(param);
    }
    if (!std::is_sorted(cuts.begin(), cuts.end())) return Acad::eInvalidInput;
    if (isClosed()) {
        cuts.push_back(cuts.front() + end - start);
    } else {
        cuts.insert(cuts.begin(), start);
        cuts.push_back(end);
    }
    std::vector<std::unique_ptr<AcDbCurve>> made;
    for (std::size_t i = 1; i < cuts.size(); ++i) {
        if (cuts[i] - cuts[i - 1] <= slack) continue;
        made.push_back(makePiece(cuts[i - 1], cuts[i]));
        if (!made.back()) return Acad::eDegenerateGeometry;
    }
    for (std::unique_ptr<AcDbCurve>& piece : made)
        curves.append(piece.release());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getSplitCurves(const AcGePoint3dArray& points, AcDbVoidPtrArray& curves) const
{
    AcGeDoubleArray params;
    for (const AcGePoint3d& point : points) {
        double param = 0.0;
        const Acad::ErrorStatus status = getParamAtPoint(point, param);
        if (status != Acad::eOk) return status;
        params.append(param);
    }
    std::sort(params.begin(), params.end());
    return getSplitCurves(params, curves);
}

// What has no natural way on beyond its ends.
Acad::ErrorStatus AcDbCurve::extend(double)
{
    return Acad::eNotApplicable;
}
Acad::ErrorStatus AcDbCurve::extend(bool, const AcGePoint3d&)
{
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbCurve::getOrthoProjectedCurve(const AcGePlane& plane, AcDbCurve*& projected) const
{
    return getProjectedCurve(plane, plane.normal(), projected);
}

Acad::ErrorStatus AcDbCurve::getProjectedCurve(const AcGePlane& plane, const AcGeVector3d& direction,
                                               AcDbCurve*& projected) const
{
    projected = nullptr;
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    if (!curve || !isDirection(direction) || direction.isPerpendicularTo(plane.normal()))
        return Acad::eInvalidInput;
    const std::unique_ptr<AcGeCurve3d> image = flatImage(*curve, plane, direction);
    if (!image) return Acad::eDegenerateGeometry;
    const AcGeVector3d normal = plane.normal();
    AcDbCurve* made = nullptr;
    const Acad::ErrorStatus status = createFromAcGeCurve(*image, made, &normal);
    if (status != Acad::eOk) return status;
    made->setPropertiesFrom(this);
    projected = made;
    return status;
}

Acad::ErrorStatus AcDbCurve::getSpline(AcDbSpline*& spline) const
{
    spline = nullptr;
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    const std::unique_ptr<AcGeNurbCurve3d> nurbs = curve ? nurbsOf(*curve) : nullptr;
    if (!nurbs) return Acad::eDegenerateGeometry;
    auto made = std::make_unique<AcDbSpline>();
    const Acad::ErrorStatus status = made->setFromAcGeCurve(*nurbs);
    if (status != Acad::eOk) return status;
    made->setPropertiesFrom(this);
    spline = made.release();
    return status;
}
