/// Splines through points.

#include "acgi.h"
#include "CurveSnaps.h"
#include "dbpl.h"
#include "dbspline.h"
#include "PlanarCoords.h"

#include <algorithm>

AcGe::KnotParameterization AcDbSpline::knotParameterization() const
{
    if (mFlags & rootFlag) return AcGe::kSqrtChord;
    if (mFlags & evenFlag) return AcGe::kUniform;
    return mFlags & ownKnotsFlag ? AcGe::kCustomParameterization : AcGe::kChord;
}

Acad::ErrorStatus AcDbSpline::setKnotParameterization(AcGe::KnotParameterization knotParam)
{
    const int flag = knotParam == AcGe::kChord       ? chordFlag
                     : knotParam == AcGe::kSqrtChord ? rootFlag
                     : knotParam == AcGe::kUniform   ? evenFlag
                                                     : 0;
    if (flag == 0) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mFlags = static_cast<std::int16_t>((mFlags & ~(chordFlag | rootFlag | evenFlag | ownKnotsFlag)) | flag);
    return hasFitData() ? updateFitData() : status;
}

/// Takes other points and tangents and fits through them; nothing is changed when they make no spline.
Acad::ErrorStatus AcDbSpline::refit(std::vector<AcGePoint3d> points, const OwnedCopy<Tangents>& tangents)
{
    const auto isUsable = [](const AcGePoint3d& p) { return isFinite(p); };
    if (points.size() < 2 || !std::all_of(points.begin(), points.end(), isUsable)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    const OwnedCopy<Tangents> before = mTangents;
    mTangents = tangents;
    std::swap(mFitPoints, points);
    const std::unique_ptr<AcGeNurbCurve3d> curve = fitted();
    if (!curve) {
        mTangents = before;
        std::swap(mFitPoints, points);
        return Acad::eInvalidInput;
    }
    if (!(mFlags & (chordFlag | rootFlag | evenFlag))) mFlags |= chordFlag;
    mFlags = static_cast<std::int16_t>((mFlags | fitFlag) & ~ownKnotsFlag);
    takeShape(*curve);
    return status;
}

Acad::ErrorStatus AcDbSpline::updateFitData()
{
    return hasFitData() ? refit(mFitPoints, mTangents) : Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbSpline::purgeFitData()
{
    const std::unique_ptr<AcGeNurbCurve3d> curve = nurbs();
    if (!hasFitData() || !curve) return Acad::eNotApplicable;
    return changeShape(*curve);
}

Acad::ErrorStatus AcDbSpline::setType(SplineType type)
{
    if (type == this->type()) return Acad::eOk;
    return type == kControlPoints ? purgeFitData() : Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbSpline::getFitPointAt(int index, AcGePoint3d& point) const
{
    if (index < 0 || index >= numFitPoints()) return Acad::eInvalidIndex;
    point = mFitPoints[static_cast<std::size_t>(index)];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::setFitPointAt(int index, const AcGePoint3d& point)
{
    if (index < 0 || index >= numFitPoints()) return Acad::eInvalidIndex;
    std::vector<AcGePoint3d> points = mFitPoints;
    points[static_cast<std::size_t>(index)] = point;
    return refit(std::move(points), mTangents);
}

Acad::ErrorStatus AcDbSpline::insertFitPointAt(int index, const AcGePoint3d& point)
{
    if (!hasFitData()) return Acad::eNotApplicable;
    std::vector<AcGePoint3d> points = mFitPoints;
    points.insert(points.begin() + std::clamp(index, 0, numFitPoints()), point);
    return refit(std::move(points), mTangents);
}

Acad::ErrorStatus AcDbSpline::removeFitPointAt(int index)
{
    if (index < 0 || index >= numFitPoints()) return Acad::eInvalidIndex;
    if (numFitPoints() <= 2) return Acad::eDegenerateGeometry;
    std::vector<AcGePoint3d> points = mFitPoints;
    points.erase(points.begin() + index);
    return refit(std::move(points), mTangents);
}

Acad::ErrorStatus AcDbSpline::setFitTol(double tol)
{
    if (!(tol >= 0.0) || !std::isfinite(tol)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mFitTolerance = tol;
    return status;
}

Acad::ErrorStatus AcDbSpline::getFitTangents(AcGeVector3d& startTangent, AcGeVector3d& endTangent) const
{
    if (!hasFitData() || !mTangents) return Acad::eNotApplicable;
    startTangent = mTangents->start;
    endTangent = mTangents->end;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::setFitTangents(const AcGeVector3d& startTangent, const AcGeVector3d& endTangent)
{
    if (!hasFitData()) return Acad::eNotApplicable;
    OwnedCopy<Tangents> tangents;
    tangents.need() = {startTangent, endTangent};
    return refit(mFitPoints, tangents);
}

Acad::ErrorStatus AcDbSpline::getFitData(AcGePoint3dArray& fitPoints, int& degree, double& fitTolerance,
                                         Adesk::Boolean& tangentsExist, AcGeVector3d& startTangent,
                                         AcGeVector3d& endTangent) const
{
    if (!hasFitData()) return Acad::eNotApplicable;
    fitPoints.setLogicalLength(0);
    for (const AcGePoint3d& point : mFitPoints)
        fitPoints.append(point);
    degree = mDegree;
    fitTolerance = mFitTolerance;
    tangentsExist = static_cast<bool>(mTangents);
    startTangent = mTangents ? mTangents->start : AcGeVector3d();
    endTangent = mTangents ? mTangents->end : AcGeVector3d();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::setFitData(const AcGePoint3dArray& fitPoints, int degree, double fitTolerance,
                                         const AcGeVector3d& startTangent, const AcGeVector3d& endTangent)
{
    if (degree != 3 || !(fitTolerance >= 0.0)) return Acad::eInvalidInput;
    OwnedCopy<Tangents> tangents;
    if (!startTangent.isZeroLength() || !endTangent.isZeroLength())
        tangents.need() = {startTangent, endTangent};
    const Acad::ErrorStatus status = refit({fitPoints.begin(), fitPoints.end()}, tangents);
    if (status == Acad::eOk) mFitTolerance = fitTolerance;
    return status;
}

Acad::ErrorStatus AcDbSpline::toPoly(AcDbCurve*& curve, Adesk::UInt32 precision) const
{
    constexpr Adesk::UInt32 finest = 99;
    curve = nullptr;
    const std::unique_ptr<AcGeNurbCurve3d> shape = nurbs();
    AcGePlane plane;
    if (!shape || precision > finest) return Acad::eInvalidInput;
    if (!shape->isPlanar(plane)) return Acad::eNonPlanarEntity;
    AcDbExtents extents;
    getGeomExtents(extents);
    const double size = extents.minPoint().distanceTo(extents.maxPoint());
    AcGePoint3dArray points;
    AcGeDoubleArray params;
    shape->getSamplePoints(shape->startParam(), shape->endParam(),
                           1e-2 * size * std::pow(10.0, -0.1 * precision), points, params);
    if (isClosed()) points.removeLast();
    auto made = std::make_unique<AcDbPolyline>(static_cast<unsigned>(points.length()));
    const AcGeVector3d normal = plane.normal();
    const AcGeMatrix3d local = worldToOcs(normal);
    made->setNormal(normal);
    for (int i = 0; i < points.length(); ++i) {
        const AcGePoint3d p = local * points[i];
        made->addVertexAt(static_cast<unsigned>(i), {p.x, p.y});
        made->setElevation(p.z);
    }
    made->setClosed(isClosed());
    made->setPropertiesFrom(this);
    curve = made.release();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::subTransformBy(const AcGeMatrix3d& xform)
{
    for (AcGePoint3d& point : mControlPoints)
        point.transformBy(xform);
    for (AcGePoint3d& point : mFitPoints)
        point.transformBy(xform);
    if (mTangents) *mTangents = {xform * mTangents->start, xform * mTangents->end};
    if (const std::unique_ptr<AcGeNurbCurve3d> curve = nurbs()) setShapeFlags(*curve);
    return Acad::eOk;
}

bool AcDbSpline::subWorldDraw(AcGiWorldDraw* draw)
{
    if (const std::unique_ptr<AcGeNurbCurve3d> curve = nurbs()) draw->geometry().nurbs(*curve);
    return true;
}

Acad::ErrorStatus AcDbSpline::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&,
                                               AcDbIntArray&) const
{
    for (const AcGePoint3d& point : hasFitData() ? mFitPoints : mControlPoints)
        gripPoints.append(point);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    std::vector<AcGePoint3d> points = hasFitData() ? mFitPoints : mControlPoints;
    for (const int index : indices)
        points[static_cast<std::size_t>(index)] += offset;
    if (hasFitData()) return refit(std::move(points), mTangents);
    mControlPoints = std::move(points);
    if (const std::unique_ptr<AcGeNurbCurve3d> curve = nurbs()) setShapeFlags(*curve);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d& pick,
                                                const AcGePoint3d& last, AcGePoint3dArray& points) const
{
    if (const std::unique_ptr<AcGeNurbCurve3d> curve = nurbs()) appendSnaps(*curve, mode, pick, last, points);
    return Acad::eOk;
}
