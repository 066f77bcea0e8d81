#include "dbelipse.h"

#include "acgi.h"
#include "ClassRegistration.h"
#include "CurveSnaps.h"
#include "DxfFields.h"
#include "gearc3d.h"
#include "geell3d.h"
#include "PlanarCoords.h"

#include <cmath>
#include <vector>

ACDB_DXF_CLASS(AcDbEllipse, AcDbCurve, ELLIPSE)

const DxfClass AcDbEllipse::dxf("AcDbEllipse", &AcDbCurve::dxf,
                                {
                                    dxf::point<&AcDbEllipse::mCenter>(10),
                                    dxf::point<&AcDbEllipse::mMajor>(11),
                                    dxf::direction<&AcDbEllipse::mNormal>(210),
                                    dxf::real<&AcDbEllipse::mRatio>(40),
                                    dxf::real<&AcDbEllipse::mStart>(41),
                                    dxf::real<&AcDbEllipse::mEnd>(42),
                                });

namespace
{
/// Brings an angle into the turn of another one, from which it differs by less than a quarter.
double inTurnOf(double other, double angle)
{
    return angle + kTwoPi * std::round((other - angle) / kTwoPi);
}

double angleAt(double param, double ratio)
{
    return inTurnOf(param, std::atan2(ratio * std::sin(param), std::cos(param)));
}

double paramAt(double angle, double ratio)
{
    return inTurnOf(angle, std::atan2(std::sin(angle), ratio * std::cos(angle)));
}

bool isRatio(double ratio)
{
    return ratio > 0.0 && ratio <= 1.0;
}
} // namespace

AcDbEllipse::AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& unitNormal,
                         const AcGeVector3d& majorAxis, double radiusRatio, double startAngle,
                         double endAngle)
{
    set(center, unitNormal, majorAxis, radiusRatio, startAngle, endAngle);
}

Acad::ErrorStatus AcDbEllipse::set(const AcGePoint3d& center, const AcGeVector3d& unitNormal,
                                   const AcGeVector3d& majorAxis, double radiusRatio, double startAngle,
                                   double endAngle)
{
    constexpr double rightAngle = 1e-6;
    if (!isFinite(center) || !isDirection(unitNormal) || !isDirection(majorAxis) || !isRatio(radiusRatio) ||
        !std::isfinite(startAngle) || !std::isfinite(endAngle))
        return Acad::eInvalidInput;
    if (std::fabs(unitNormal.normal().dotProduct(majorAxis.normal())) > rightAngle)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mCenter = center;
    mNormal = unitNormal.normal();
    mMajor = majorAxis;
    mRatio = radiusRatio;
    mStart = paramAt(startAngle, radiusRatio);
    mEnd = paramAt(endAngle, radiusRatio);
    return status;
}

Acad::ErrorStatus AcDbEllipse::get(AcGePoint3d& center, AcGeVector3d& unitNormal, AcGeVector3d& majorAxis,
                                   double& radiusRatio, double& startAngle, double& endAngle) const
{
    center = mCenter;
    unitNormal = mNormal;
    majorAxis = mMajor;
    radiusRatio = mRatio;
    startAngle = this->startAngle();
    endAngle = this->endAngle();
    return Acad::eOk;
}

AcGeVector3d AcDbEllipse::minorAxis() const
{
    return mRatio * mNormal.crossProduct(mMajor);
}

Acad::ErrorStatus AcDbEllipse::setCenter(const AcGePoint3d& center)
{
    if (!isFinite(center)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mCenter = center;
    return status;
}

Acad::ErrorStatus AcDbEllipse::setRadii(double major, double minor)
{
    if (!std::isfinite(major) || !(major > 0.0) || !isRatio(minor / major) || isNull())
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mMajor *= major / mMajor.length();
    mRatio = minor / major;
    return status;
}

Acad::ErrorStatus AcDbEllipse::setMajorRadius(double radius)
{
    return setRadii(radius, minorRadius());
}
Acad::ErrorStatus AcDbEllipse::setMinorRadius(double radius)
{
    return setRadii(majorRadius(), radius);
}
Acad::ErrorStatus AcDbEllipse::setRadiusRatio(double ratio)
{
    return setRadii(majorRadius(), ratio * majorRadius());
}

double AcDbEllipse::startAngle() const
{
    return angleAt(mStart, mRatio);
}
double AcDbEllipse::endAngle() const
{
    return angleAt(mEnd, mRatio);
}
Acad::ErrorStatus AcDbEllipse::setStartAngle(double angle)
{
    return setStartParam(paramAt(angle, mRatio));
}
Acad::ErrorStatus AcDbEllipse::setEndAngle(double angle)
{
    return setEndParam(paramAt(angle, mRatio));
}

Acad::ErrorStatus AcDbEllipse::setStartParam(double param)
{
    if (!std::isfinite(param)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mStart = withinTurn(param);
    return status;
}

Acad::ErrorStatus AcDbEllipse::setEndParam(double param)
{
    if (!std::isfinite(param)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mEnd = withinTurn(param);
    return status;
}

Acad::ErrorStatus AcDbEllipse::paramAtAngle(double angle, double& param) const
{
    if (!std::isfinite(angle) || isNull()) return Acad::eInvalidInput;
    param = paramAt(angle, mRatio);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::angleAtParam(double param, double& angle) const
{
    if (!std::isfinite(param) || isNull()) return Acad::eInvalidInput;
    angle = angleAt(param, mRatio);
    return Acad::eOk;
}

void AcDbEllipse::paramRange(double& start, double& end) const
{
    start = mStart;
    end = mEnd;
    if (end <= start) end += kTwoPi * (std::floor((start - end) / kTwoPi) + 1.0);
    if (end - start > kTwoPi) end = start + kTwoPi;
}

AcGePoint3d AcDbEllipse::pointAt(double param) const
{
    return mCenter + std::cos(param) * mMajor + std::sin(param) * minorAxis();
}

double AcDbEllipse::paramOf(const AcGePoint3d& point) const
{
    const AcGeVector3d from = point - mCenter;
    const AcGeVector3d minor = mNormal.crossProduct(mMajor);
    return withinTurn(std::atan2(from.dotProduct(minor), mRatio * from.dotProduct(mMajor)));
}

Acad::ErrorStatus AcDbEllipse::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    if (isNull()) return Acad::eDegenerateGeometry;
    plane.set(mCenter, mNormal);
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

bool AcDbEllipse::isClosed() const
{
    double start = 0.0, end = 0.0;
    paramRange(start, end);
    return kTwoPi - (end - start) <= AcGeContext::gTol.equalVector();
}

Acad::ErrorStatus AcDbEllipse::extend(double param)
{
    double start = 0.0, end = 0.0;
    paramRange(start, end);
    const double gap = kTwoPi - (end - start);
    if (!std::isfinite(param) || (param >= start && param <= end)) return Acad::eInvalidInput;
    if (param - end >= gap || start - param >= gap) return Acad::eInvalidInput;
    return param < start ? setStartParam(param) : setEndParam(param);
}

Acad::ErrorStatus AcDbEllipse::extend(bool extendStart, const AcGePoint3d& toPoint)
{
    if (!isFinite(toPoint) || isNull()) return Acad::eInvalidInput;
    return extendStart ? setStartParam(paramOf(toPoint)) : setEndParam(paramOf(toPoint));
}

Acad::ErrorStatus AcDbEllipse::setFromAcGeCurve(const AcGeCurve3d& curve, const AcGeVector3d* normal,
                                                const AcGeTol&)
{
    AcGeEllipArc3d arc;
    if (curve.isKindOf(AcGe::kEllipArc3d)) {
        arc = static_cast<const AcGeEllipArc3d&>(curve);
    } else if (curve.isKindOf(AcGe::kCircArc3d)) {
        arc.set(static_cast<const AcGeCircArc3d&>(curve));
    } else {
        return Acad::eInvalidInput;
    }
    // Where the minor radius is the larger one the axes change their roles, a quarter turn on.
    const bool swapped = arc.minorRadius() > arc.majorRadius();
    const double quarter = swapped ? kTwoPi / 4 : 0.0;
    const AcGeVector3d major =
        swapped ? arc.minorRadius() * arc.minorAxis() : arc.majorRadius() * arc.majorAxis();
    const double ratio =
        swapped ? arc.majorRadius() / arc.minorRadius() : arc.minorRadius() / arc.majorRadius();
    const bool turned = normal && normal->dotProduct(arc.normal()) < 0.0;
    const double start = arc.startAng() - quarter, total = arc.endAng() - arc.startAng();
    const Acad::ErrorStatus status = set(arc.center(), turned ? -arc.normal() : arc.normal(), major, ratio);
    if (status != Acad::eOk) return status;
    mStart = withinTurn(turned ? -(start + total) : start);
    mEnd = total < kTwoPi ? withinTurn(mStart + total) : mStart + kTwoPi;
    return status;
}

std::unique_ptr<AcGeCurve3d> AcDbEllipse::makeGeCurve() const
{
    if (isNull()) return nullptr;
    double start = 0.0, end = 0.0;
    paramRange(start, end);
    const double radius = majorRadius();
    return std::make_unique<AcGeEllipArc3d>(mCenter, mMajor, mNormal.crossProduct(mMajor), radius,
                                            mRatio * radius, start, end);
}

std::unique_ptr<AcDbCurve> AcDbEllipse::makePiece(double from, double to) const
{
    std::unique_ptr<AcDbEllipse> piece(AcDbEllipse::cast(clone()));
    piece->setStartParam(from);
    piece->setEndParam(to);
    return piece;
}

std::unique_ptr<AcGeCurve3d> AcDbEllipse::makeExtendedGeCurve() const
{
    std::unique_ptr<AcGeCurve3d> ellipse = makeGeCurve();
    if (ellipse) ellipse->setInterval();
    return ellipse;
}

Acad::ErrorStatus AcDbEllipse::subTransformBy(const AcGeMatrix3d& xform)
{
    std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    if (!curve) return Acad::eDegenerateGeometry;
    curve->transformBy(xform);
    const AcGeVector3d u = xform * mMajor, v = xform * minorAxis();
    AcGeVector3d side = u.crossProduct(v);
    // The normal goes with the map; a mirroring one makes the ellipse run backwards about it.
    if (side.dotProduct(xform * mNormal) < 0.0) side.negate();
    return setFromAcGeCurve(*curve, &side);
}

bool AcDbEllipse::subWorldDraw(AcGiWorldDraw* draw)
{
    if (const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve())
        draw->geometry().ellipArc(static_cast<const AcGeEllipArc3d&>(*curve));
    return true;
}

Acad::ErrorStatus AcDbEllipse::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&,
                                                AcDbIntArray&) const
{
    gripPoints.append(mCenter);
    for (int i = 0; i < 4; ++i)
        gripPoints.append(pointAt(i * kTwoPi / 4));
    if (isClosed()) return Acad::eOk;
    gripPoints.append(pointAt(mStart));
    gripPoints.append(pointAt(mEnd));
    return Acad::eOk;
}

// The quadrants set a radius; moved ends slide along the ellipse.
Acad::ErrorStatus AcDbEllipse::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    const int grip = indices.first();
    if (indices.contains(0)) return setCenter(mCenter + offset);
    if (grip >= 5) return extend(grip == 5, pointAt(grip == 5 ? mStart : mEnd) + offset);
    const AcGeVector3d radius = pointAt((grip - 1) * kTwoPi / 4) + offset - mCenter;
    const double length = radius.orthoProject(mNormal).length();
    return grip % 2 == 1 ? setMajorRadius(length) : setMinorRadius(length);
}

namespace
{
bool holds(double start, double end, double param)
{
    const double turns = std::ceil((start - param) / kTwoPi - 1e-12);
    return param + turns * kTwoPi <= end + 1e-12;
}

void keepNearest(const AcGePoint3d& point, const AcGePoint3d& pick, AcGePoint3dArray& points)
{
    if (points.isEmpty()) {
        points.append(point);
    } else if (point.distanceTo(pick) < points.first().distanceTo(pick)) {
        points.first() = point;
    }
}

/// The params at which an ellipse is touched by lines from a point, given in units of the axes: a map that
/// makes a circle of the ellipse leaves tangents tangents.
std::vector<double> tangentParams(double x, double y)
{
    const double distance = std::hypot(x, y);
    if (!(distance > 1.0)) return {};
    const double middle = std::atan2(y, x), half = std::acos(1.0 / distance);
    return {middle - half, middle + half};
}
} // namespace

Acad::ErrorStatus AcDbEllipse::pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick,
                                                 const AcGePoint3d& last, AcGePoint3dArray& points) const
{
    const std::unique_ptr<AcGeCurve3d> curve = makeGeCurve();
    if (!curve) return Acad::eOk;
    double start = 0.0, end = 0.0;
    paramRange(start, end);
    AcGePoint3dArray quadrants;
    if (mode == AcDb::kOsModeCen) points.append(mCenter);
    for (int i = 0; mode == AcDb::kOsModeQuad && i < 4; ++i) {
        if (holds(start, end, i * kTwoPi / 4)) keepNearest(pointAt(i * kTwoPi / 4), pick, quadrants);
    }
    points.append(quadrants);
    const AcGeVector3d from = last - mCenter, minor = minorAxis();
    const double x = from.dotProduct(mMajor) / mMajor.lengthSqrd(),
                 y = from.dotProduct(minor) / minor.lengthSqrd();
    for (const double param : tangentParams(x, y)) {
        if (mode == AcDb::kOsModeTan && holds(start, end, param)) points.append(pointAt(param));
    }
    const bool isDone = mode == AcDb::kOsModeTan || (mode == AcDb::kOsModeEnd && isClosed());
    if (!isDone) appendSnaps(*curve, mode, pick, last, points);
    return Acad::eOk;
}
