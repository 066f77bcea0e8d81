#include "CurveFactory.h"

#include "CurveMeasure.h"
#include "Dimension.h"
#include "gearc2d.h"
#include "gearc3d.h"
#include "gecomp2d.h"
#include "gecomp3d.h"
#include "geell2d.h"
#include "geell3d.h"
#include "geline2d.h"
#include "geline3d.h"
#include "gelnsg2d.h"
#include "gelnsg3d.h"
#include "genurb2d.h"
#include "genurb3d.h"
#include "geray2d.h"
#include "geray3d.h"
#include "Spline.h"

#include <memory>

namespace gecore
{
namespace
{
template <class Nurb, class Points, class ToPoint>
Nurb* splineOf(const CurveForm& form, const ToPoint& toPoint)
{
    const Spline& spline = *form.spline;
    const AcGeKnotVector knots(static_cast<int>(spline.knots.size()), spline.knots.data());
    Points points;
    for (const AcGePoint3d& p : spline.points)
        points.append(toPoint(p));
    AcGeDoubleArray weights;
    for (const double w : spline.weights)
        weights.append(w);
    auto* curve = new Nurb(spline.degree, knots, points, weights, spline.periodic);
    curve->setInterval(AcGeInterval(form.lo, form.hi));
    return curve;
}

template <class Composite, class CurveOf>
Composite* chainOf(const CurveForm& form, const CurveOf& curveOf)
{
    AcGeVoidPointerArray parts;
    AcGeIntArray owned;
    for (const ChainLink& link : *form.chain) {
        parts.append(curveOf(link.form));
        owned.append(1);
    }
    return new Composite(parts, owned);
}

/// A segment with bounds of its own.
template <class Seg, class Point, class Vector>
Seg* segmentOf(const CurveForm& form, const Point& origin, const Vector& u)
{
    Seg* segment = new Seg(origin, u);
    segment->setInterval(AcGeInterval(form.lo, form.hi));
    return segment;
}

AcGeCurve3d* conic3dOf(const CurveForm& f)
{
    const AcGeVector3d n = f.u.crossProduct(f.v);
    if (isCircle(f)) {
        auto* arc = new AcGeCircArc3d(f.origin, n, f.u, f.u.length(), 0, kTwoPi);
        arc->setInterval(AcGeInterval(f.lo, f.hi));
        return arc;
    }
    auto* arc = new AcGeEllipArc3d(f.origin, f.u, f.v, f.u.length(), f.v.length());
    arc->setInterval(AcGeInterval(f.lo, f.hi));
    return arc;
}

AcGeCurve2d* conic2dOf(const CurveForm& f)
{
    const AcGePoint2d centre = toPoint2d(f.origin);
    const AcGeVector2d u = toVector2d(f.u), v = toVector2d(f.v);
    AcGeCurve2d* arc;
    if (isCircle(f)) {
        arc = new AcGeCircArc2d(centre, u.length(), 0, kTwoPi, u, u.crossProduct(v) < 0);
    } else {
        arc = new AcGeEllipArc2d(centre, u, v, u.length(), v.length());
    }
    arc->setInterval(AcGeInterval(f.lo, f.hi));
    return arc;
}

AcGeCurve3d* line3dOf(const CurveForm& f)
{
    if (f.isBounded()) return segmentOf<AcGeLineSeg3d>(f, f.origin, f.u);
    if (f.lo > -kInfinity) return new AcGeRay3d(f.origin + f.u * f.lo, f.u);
    if (f.hi < kInfinity) return new AcGeRay3d(f.origin + f.u * f.hi, -f.u);
    return new AcGeLine3d(f.origin, f.u);
}

AcGeCurve2d* line2dOf(const CurveForm& f)
{
    const AcGePoint2d origin = toPoint2d(f.origin);
    const AcGeVector2d u = toVector2d(f.u);
    if (f.isBounded()) return segmentOf<AcGeLineSeg2d>(f, origin, u);
    if (f.lo > -kInfinity) return new AcGeRay2d(origin + u * f.lo, u);
    if (f.hi < kInfinity) return new AcGeRay2d(origin + u * f.hi, -u);
    return new AcGeLine2d(origin, u);
}

AcGeCurve3d* chain3dOf(const CurveForm& f)
{
    return chainOf<AcGeCompositeCurve3d>(f, curve3dOf);
}

AcGeCurve2d* chain2dOf(const CurveForm& f)
{
    return chainOf<AcGeCompositeCurve2d>(f, curve2dOf);
}

/// A line or circle moved to the left; false when there is none.
bool moveAside(CurveForm& form, double distance, const AcGeVector3d& normal)
{
    const double size = normal.length();
    if (!(size > 0)) return false;
    if (form.kind == FormKind::kLine) {
        const AcGeVector3d left = normal.crossProduct(form.u);
        if (!(left.length() > 0)) return false;
        form.origin += left * (distance / left.length());
        return true;
    }
    if (!isCircle(form)) return false;
    const double radius = form.u.length(), turn = form.u.crossProduct(form.v).dotProduct(normal);
    const double moved = turn > 0 ? radius - distance : radius + distance;
    if (!(moved > 0) || turn == 0) return false;
    form.u *= moved / radius;
    form.v *= moved / radius;
    return true;
}
} // namespace

AcGeCurve3d* curve3dOf(const CurveForm& form)
{
    switch (form.kind) {
    case FormKind::kLine:
        return line3dOf(form);
    case FormKind::kConic:
        return conic3dOf(form);
    case FormKind::kChain:
        return chain3dOf(form);
    case FormKind::kSpline:
        break;
    }
    return splineOf<AcGeNurbCurve3d, AcGePoint3dArray>(form, toPoint3d);
}

AcGeCurve2d* curve2dOf(const CurveForm& form)
{
    switch (form.kind) {
    case FormKind::kLine:
        return line2dOf(form);
    case FormKind::kConic:
        return conic2dOf(form);
    case FormKind::kChain:
        return chain2dOf(form);
    case FormKind::kSpline:
        break;
    }
    return splineOf<AcGeNurbCurve2d, AcGePoint2dArray>(form, toPoint2d);
}

AcGeCurve3d* imageOf(const AcGeCurve3d& curve, const AcGeMatrix3d& map, const AcGeTol& tol)
{
    const CurveForm form = curve.form();
    if (form.kind == FormKind::kConic) {
        AcGeEllipArc3d image(form.origin, form.u, form.v, form.u.length(), form.v.length());
        image.setInterval(AcGeInterval(form.lo, form.hi));
        image.transformBy(map);
        if (!(image.minorRadius() > tol.equalPoint()) || !(image.majorRadius() > tol.equalPoint()))
            return nullptr;
        return curve3dOf(image.form());
    }
    std::unique_ptr<AcGeCurve3d> image(static_cast<AcGeCurve3d*>(curve.copy()));
    if (form.kind == FormKind::kChain && !image->isKindOf(AcGe::kPolyline3d)) return nullptr;
    image->transformBy(map);
    AcGe::EntityId kind;
    return image->isDegenerate(kind, tol) ? nullptr : image.release();
}

AcGeCurve3d* offsetOf(const AcGeCurve3d& curve, double distance, const AcGeVector3d& planeNormal,
                      const AcGeTol&)
{
    CurveForm form = curve.form();
    return moveAside(form, distance, planeNormal) ? curve3dOf(form) : nullptr;
}

AcGeCurve2d* offsetOf(const AcGeCurve2d& curve, double distance, const AcGeTol&)
{
    CurveForm form = curve.form();
    return moveAside(form, distance, AcGeVector3d::kZAxis) ? curve2dOf(form) : nullptr;
}

bool isPeriodicSpline(const CurveForm& form)
{
    return form.spline->periodic;
}
} // namespace gecore
