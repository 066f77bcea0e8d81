#include "dbline.h"

#include "acgi.h"
#include "ClassRegistration.h"
#include "DxfFields.h"
#include "geline3d.h"
#include "gelnsg3d.h"
#include "PlanarCoords.h"

#include <cmath>

ACDB_DXF_CLASS(AcDbLine, AcDbCurve, LINE)

const DxfClass AcDbLine::dxf("AcDbLine", &AcDbCurve::dxf,
                             {
                                 dxf::real<&AcDbLine::mThickness>(39).unless(0.0),
                                 dxf::point<&AcDbLine::mStart>(10),
                                 dxf::point<&AcDbLine::mEnd>(11),
                                 dxf::direction<&AcDbLine::mNormal>(210).unlessZAxis(),
                             });

Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d& point)
{
    if (!isFinite(point)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mStart = point;
    return status;
}

Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d& point)
{
    if (!isFinite(point)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mEnd = point;
    return status;
}

Acad::ErrorStatus AcDbLine::setThickness(double thickness)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mThickness = thickness;
    return status;
}

Acad::ErrorStatus AcDbLine::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength()) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mNormal = normal.normal();
    return status;
}

Acad::ErrorStatus AcDbLine::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    const AcGeVector3d direction = mEnd - mStart;
    AcGeVector3d normal = mNormal - mNormal.dotProduct(direction) / direction.lengthSqrd() * direction;
    if (direction.isZeroLength()) normal = mNormal;
    if (normal.isZeroLength()) normal = direction.perpVector();
    plane.set(mStart, normal);
    planarity = AcDb::kLinear;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getStartPoint(AcGePoint3d& point) const
{
    point = mStart;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getEndPoint(AcGePoint3d& point) const
{
    point = mEnd;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getArea(double& area) const
{
    area = 0.0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::reverseCurve()
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) std::swap(mStart, mEnd);
    return status;
}

Acad::ErrorStatus AcDbLine::setFromAcGeCurve(const AcGeCurve3d& curve, const AcGeVector3d* normal,
                                             const AcGeTol&)
{
    if (!curve.isKindOf(AcGe::kLineSeg3d)) return Acad::eInvalidInput;
    const auto& segment = static_cast<const AcGeLineSeg3d&>(curve);
    const Acad::ErrorStatus status = normal ? setNormal(*normal) : beginChange();
    if (status != Acad::eOk) return status;
    mStart = segment.startPoint();
    mEnd = segment.endPoint();
    return status;
}

Acad::ErrorStatus AcDbLine::extend(double param)
{
    const double length = mStart.distanceTo(mEnd);
    if (!std::isfinite(param) || length == 0.0 || (param >= 0.0 && param <= length))
        return Acad::eInvalidInput;
    const AcGePoint3d point = mStart + param / length * (mEnd - mStart);
    return param < 0.0 ? setStartPoint(point) : setEndPoint(point);
}

Acad::ErrorStatus AcDbLine::extend(bool extendStart, const AcGePoint3d& toPoint)
{
    AcGePoint3d point;
    const Acad::ErrorStatus status = getClosestPointTo(toPoint, point, true);
    if (status != Acad::eOk) return status;
    return extendStart ? setStartPoint(point) : setEndPoint(point);
}

std::unique_ptr<AcDbCurve> AcDbLine::makePiece(double from, double to) const
{
    AcGePoint3d start, end;
    if (getPointAtParam(from, start) != Acad::eOk || getPointAtParam(to, end) != Acad::eOk) return nullptr;
    std::unique_ptr<AcDbLine> piece(AcDbLine::cast(clone()));
    piece->mStart = start;
    piece->mEnd = end;
    return piece;
}

std::unique_ptr<AcGeCurve3d> AcDbLine::makeGeCurve() const
{
    return std::make_unique<AcGeLineSeg3d>(mStart, mEnd);
}

std::unique_ptr<AcGeCurve3d> AcDbLine::makeExtendedGeCurve() const
{
    if (mStart.isEqualTo(mEnd)) return nullptr;
    return std::make_unique<AcGeLine3d>(mStart, mEnd);
}

// A free segment runs from 0 to 1.
double AcDbLine::geParam(double param) const
{
    const double length = mStart.distanceTo(mEnd);
    return length > 0.0 ? param / length : param;
}

double AcDbLine::dbParam(double geParam) const
{
    return geParam * mStart.distanceTo(mEnd);
}

Acad::ErrorStatus AcDbLine::subTransformBy(const AcGeMatrix3d& xform)
{
    mStart.transformBy(xform);
    mEnd.transformBy(xform);
    const AcGeVector3d thick = xform * (mThickness * mNormal);
    const AcGeVector3d normal = xform * mNormal;
    if (mThickness != 0.0) mThickness = mThickness < 0.0 ? -thick.length() : thick.length();
    if (!normal.isZeroLength()) mNormal = normal.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::subGetGeomExtents(AcDbExtents& extents) const
{
    if (!isFinite(mStart) || !isFinite(mEnd)) return Acad::eInvalidExtents;
    extents.addPoint(mStart);
    extents.addPoint(mEnd);
    if (mThickness != 0.0) extents.expandBy(mThickness * mNormal);
    return Acad::eOk;
}

bool AcDbLine::subWorldDraw(AcGiWorldDraw* draw)
{
    const AcGePoint3d ends[] = {mStart, mEnd};
    draw->geometry().polyline(2, ends);
    return true;
}

Acad::ErrorStatus AcDbLine::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    gripPoints.append(mStart);
    gripPoints.append(mEnd);
    gripPoints.append(mStart + 0.5 * (mEnd - mStart));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    const bool whole = indices.contains(2);
    if (whole || indices.contains(0)) mStart += offset;
    if (whole || indices.contains(1)) mEnd += offset;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick,
                                              const AcGePoint3d& last, AcGePoint3dArray& points) const
{
    const std::unique_ptr<AcGeCurve3d> line = makeGeCurve();
    switch (mode) {
    case AcDb::kOsModeEnd:
        points.append(pick.distanceTo(mStart) <= pick.distanceTo(mEnd) ? mStart : mEnd);
        break;
    case AcDb::kOsModeMid:
        points.append(mStart + 0.5 * (mEnd - mStart));
        break;
    case AcDb::kOsModeNear:
        points.append(line->closestPointTo(pick));
        break;
    case AcDb::kOsModePerp:
        points.append(AcGeLine3d(mStart, mEnd).closestPointTo(last));
        break;
    default:
        break;
    }
    return Acad::eOk;
}
