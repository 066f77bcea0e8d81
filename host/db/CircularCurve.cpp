#include "dbcircular.h"

#include "dbarc.h"
#include "dbelipse.h"
#include "DxfFields.h"
#include "gearc3d.h"
#include "geell3d.h"
#include "PlanarCoords.h"

const DxfClass DbCircularCurve::dxf("AcDbCircle", &AcDbCurve::dxf,
                                    {
                                        dxf::real<&DbCircularCurve::mThickness>(39).unless(0.0),
                                        dxf::point<&DbCircularCurve::mCenter>(10),
                                        dxf::real<&DbCircularCurve::mRadius>(40),
                                        dxf::direction<&DbCircularCurve::mNormal>(210).unlessZAxis(),
                                    });

DbCircularCurve::DbCircularCurve(const AcGePoint3d& center, const AcGeVector3d& normal, double radius)
    : mRadius(std::isfinite(radius) && radius > 0.0 ? radius : 0.0),
      mNormal(isDirection(normal) ? normal.normal() : AcGeVector3d::kZAxis)
{
    mCenter = worldToOcs(mNormal) * center;
}

AcGePoint3d DbCircularCurve::center() const
{
    return ocsToWorld(mNormal) * mCenter;
}

Acad::ErrorStatus DbCircularCurve::setCenter(const AcGePoint3d& center)
{
    if (!isFinite(center)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mCenter = worldToOcs(mNormal) * center;
    return status;
}

Acad::ErrorStatus DbCircularCurve::setRadius(double radius)
{
    if (!(radius >= 0.0) || !std::isfinite(radius)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mRadius = radius;
    return status;
}

Acad::ErrorStatus DbCircularCurve::setThickness(double thickness)
{
    if (!std::isfinite(thickness)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mThickness = thickness;
    return status;
}

Acad::ErrorStatus DbCircularCurve::setNormal(const AcGeVector3d& normal)
{
    return setCircle(center(), normal, mRadius);
}

Acad::ErrorStatus DbCircularCurve::setCircle(const AcGePoint3d& center, const AcGeVector3d& normal,
                                             double radius)
{
    if (!isFinite(center) || !isDirection(normal)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mNormal = normal.normal();
    mCenter = worldToOcs(mNormal) * center;
    mRadius = radius;
    return status;
}

Acad::ErrorStatus DbCircularCurve::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    const AcGeVector3d normal = isDirection(mNormal) ? mNormal : AcGeVector3d::kZAxis;
    plane.set(center(), normal);
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

void DbCircularCurve::getEcs(AcGeMatrix3d& matrix) const
{
    matrix = ocsToWorld(mNormal);
}

AcGePoint3d DbCircularCurve::pointAtAngle(double angle) const
{
    const AcGePoint3d local(mCenter.x + mRadius * std::cos(angle), mCenter.y + mRadius * std::sin(angle),
                            mCenter.z);
    return ocsToWorld(mNormal) * local;
}

double DbCircularCurve::angleOf(const AcGePoint3d& point) const
{
    const AcGeVector3d from = worldToOcs(mNormal) * point - mCenter;
    const double angle = std::atan2(from.y, from.x);
    return angle < 0.0 ? angle + kTwoPi : angle;
}

bool DbCircularCurve::holdsAngle(double angle) const
{
    constexpr double slack = 1e-12;
    double start = 0.0, end = 0.0;
    angleRange(start, end);
    const double turned = std::fmod(std::fmod(angle - start, kTwoPi) + kTwoPi, kTwoPi);
    return turned <= end - start + slack || turned >= kTwoPi - slack;
}

std::unique_ptr<AcGeCurve3d> DbCircularCurve::makeGeCurve() const
{
    double start = 0.0, end = 0.0;
    angleRange(start, end);
    const AcGeMatrix3d ecs = ocsToWorld(mNormal);
    return std::make_unique<AcGeCircArc3d>(ecs * mCenter, ecs * AcGeVector3d::kZAxis,
                                           ecs * AcGeVector3d::kXAxis, mRadius, start, end);
}

Acad::ErrorStatus DbCircularCurve::getOffsetCurves(double offset, AcDbVoidPtrArray& curves) const
{
    if (!std::isfinite(offset) || offset == 0.0) return Acad::eInvalidInput;
    if (mRadius + offset <= AcGeContext::gTol.equalPoint()) return Acad::eInvalidOffset;
    auto* moved = static_cast<DbCircularCurve*>(clone());
    moved->mRadius += offset;
    curves.append(moved);
    return Acad::eOk;
}

std::unique_ptr<AcDbCurve> DbCircularCurve::makePiece(double from, double to) const
{
    auto arc = std::make_unique<AcDbArc>(center(), mNormal, mRadius, from, to);
    arc->setThickness(mThickness);
    arc->setPropertiesFrom(this);
    return arc;
}

std::unique_ptr<AcGeCurve3d> DbCircularCurve::makeExtendedGeCurve() const
{
    std::unique_ptr<AcGeCurve3d> circle = makeGeCurve();
    circle->setInterval();
    return circle;
}

Acad::ErrorStatus DbCircularCurve::subTransformBy(const AcGeMatrix3d& xform)
{
    if (!xform.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    double startAngle = 0.0, endAngle = 0.0;
    angleRange(startAngle, endAngle);
    const AcGePoint3d start = xform * pointAtAngle(startAngle), end = xform * pointAtAngle(endAngle);
    const AcGePoint3d newCenter = xform * center();
    mThickness = mappedThickness(xform, mNormal, mThickness);
    mRadius *= xform.scale();
    mNormal = (xform * mNormal).normal();
    mCenter = worldToOcs(mNormal) * newCenter;
    turnOver(xform, start, end);
    return Acad::eOk;
}

Acad::ErrorStatus DbCircularCurve::subGetTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& copy) const
{
    if (xform.isUniScaledOrtho()) return AcDbCurve::subGetTransformedCopy(xform, copy);
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    AcGeEllipArc3d ellipse(static_cast<const AcGeCircArc3d&>(*curve));
    ellipse.transformBy(xform);
    auto made = std::make_unique<AcDbEllipse>();
    const AcGeVector3d side = xform * mNormal;
    const Acad::ErrorStatus status = made->setFromAcGeCurve(ellipse, &side);
    if (status != Acad::eOk) return status;
    made->setPropertiesFrom(this);
    copy = made.release();
    return status;
}

Acad::ErrorStatus DbCircularCurve::subGetGeomExtents(AcDbExtents& extents) const
{
    const Acad::ErrorStatus status = AcDbCurve::subGetGeomExtents(extents);
    if (status == Acad::eOk && mThickness != 0.0) extents.expandBy(mThickness * mNormal);
    return status;
}

void DbCircularCurve::appendQuadrants(const AcGePoint3d& pick, AcGePoint3dArray& points) const
{
    double best = std::numeric_limits<double>::infinity();
    AcGePoint3d nearest;
    for (int i = 0; i < 4; ++i) {
        const double angle = i * kTwoPi / 4;
        const AcGePoint3d quadrant = pointAtAngle(angle);
        const double distance = quadrant.distanceTo(pick);
        if (!holdsAngle(angle) || distance >= best) continue;
        best = distance;
        nearest = quadrant;
    }
    if (std::isfinite(best)) points.append(nearest);
}

void DbCircularCurve::appendPerpendiculars(const AcGePoint3d& last, AcGePoint3dArray& points) const
{
    const double angle = angleOf(last);
    for (const double at : {angle, angle + kTwoPi / 2}) {
        if (holdsAngle(at)) points.append(pointAtAngle(at));
    }
}

// Seen in the plane, a tangent point, the centre and `last` form a right-angled triangle.
void DbCircularCurve::appendTangents(const AcGePoint3d& last, AcGePoint3dArray& points) const
{
    const AcGeVector3d from = worldToOcs(mNormal) * last - mCenter;
    const double distance = std::hypot(from.x, from.y);
    if (distance < mRadius || distance == 0.0) return;
    const double middle = angleOf(last), half = std::acos(mRadius / distance);
    for (const double at : {middle - half, middle + half}) {
        if (holdsAngle(at)) points.append(pointAtAngle(at));
    }
}

Acad::ErrorStatus DbCircularCurve::pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick,
                                                     const AcGePoint3d& last, AcGePoint3dArray& points) const
{
    switch (mode) {
    case AcDb::kOsModeCen:
        points.append(center());
        break;
    case AcDb::kOsModeQuad:
        appendQuadrants(pick, points);
        break;
    case AcDb::kOsModeNear:
        points.append(makeGeCurve()->closestPointTo(pick));
        break;
    case AcDb::kOsModePerp:
        appendPerpendiculars(last, points);
        break;
    case AcDb::kOsModeTan:
        appendTangents(last, points);
        break;
    default:
        break;
    }
    return Acad::eOk;
}
