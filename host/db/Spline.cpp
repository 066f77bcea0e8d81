#include "dbspline.h"

#include "ClassRegistration.h"
#include "dbelipse.h"
#include "geell3d.h"
#include "PlanarCoords.h"

#include <algorithm>

ACDB_DXF_CLASS(AcDbSpline, AcDbCurve, SPLINE)

namespace
{
template <class T>
std::vector<T> listOf(const AcArray<T>& array)
{
    return {array.begin(), array.end()};
}

template <class T>
AcArray<T> arrayOf(const std::vector<T>& list)
{
    AcArray<T> array;
    for (const T& item : list)
        array.append(item);
    return array;
}

bool areFinite(const std::vector<AcGePoint3d>& points)
{
    return std::all_of(points.begin(), points.end(), [](const AcGePoint3d& p) { return isFinite(p); });
}

constexpr int cubicOrder = 4;
} // namespace

AcDbSpline::AcDbSpline(const AcGePoint3dArray& fitPoints, int order, double fitTolerance)
{
    mFitTolerance = fitTolerance;
    if (order == cubicOrder) refit(listOf(fitPoints), {});
}

AcDbSpline::AcDbSpline(const AcGePoint3dArray& fitPoints, const AcGeVector3d& startTangent,
                       const AcGeVector3d& endTangent, int order, double fitTolerance)
{
    setFitData(fitPoints, order - 1, fitTolerance, startTangent, endTangent);
}

AcDbSpline::AcDbSpline(const AcGePoint3dArray& fitPoints, bool tangentsExist,
                       const AcGeVector3d& startTangent, const AcGeVector3d& endTangent,
                       AcGe::KnotParameterization knotParam, int degree, double fitTolerance)
{
    setKnotParameterization(knotParam);
    if (tangentsExist) {
        setFitData(fitPoints, degree, fitTolerance, startTangent, endTangent);
    } else if (degree == cubicOrder - 1) {
        mFitTolerance = fitTolerance;
        refit(listOf(fitPoints), {});
    }
}

AcDbSpline::AcDbSpline(int degree, Adesk::Boolean rational, Adesk::Boolean closed, Adesk::Boolean periodic,
                       const AcGePoint3dArray& controlPoints, const AcGeDoubleArray& knots,
                       const AcGeDoubleArray& weights, double controlPtTol, double knotTol)
{
    setNurbsData(degree, rational, closed, periodic, controlPoints, knots, weights, controlPtTol, knotTol);
}

AcDbSpline::AcDbSpline(const AcGePoint3d& center, const AcGeVector3d& unitNormal,
                       const AcGeVector3d& majorAxis, double radiusRatio, double startAngle, double endAngle)
{
    const AcDbEllipse ellipse(center, unitNormal, majorAxis, radiusRatio, startAngle, endAngle);
    AcGeCurve3d* curve = nullptr;
    if (ellipse.getAcGeCurve(curve) != Acad::eOk) return;
    takeShape(AcGeNurbCurve3d(static_cast<const AcGeEllipArc3d&>(*curve)));
    delete curve;
}

bool AcDbSpline::isNull() const
{
    return mControlPoints.empty() && mFitPoints.size() < 2;
}

std::unique_ptr<AcGeNurbCurve3d> AcDbSpline::fitted() const
{
    const AcGePoint3dArray points = arrayOf(mFitPoints);
    const AcGe::KnotParameterization spacing = knotParameterization();
    const auto curve = mTangents ? std::make_unique<AcGeNurbCurve3d>(points, mTangents->start, mTangents->end,
                                                                     !mTangents->start.isZeroLength(),
                                                                     !mTangents->end.isZeroLength(),
                                                                     AcGeContext::gTol, spacing)
                                 : std::make_unique<AcGeNurbCurve3d>(points, AcGeContext::gTol, spacing);
    return curve->numControlPoints() > 0 ? std::make_unique<AcGeNurbCurve3d>(*curve) : nullptr;
}

// Files may give the fit points alone.
std::unique_ptr<AcGeNurbCurve3d> AcDbSpline::nurbs() const
{
    if (mControlPoints.empty()) return mFitPoints.size() < 2 ? nullptr : fitted();
    const AcGeKnotVector knots(static_cast<int>(mKnots.size()), mKnots.data());
    const AcGePoint3dArray points = arrayOf(mControlPoints);
    auto curve = mWeights.size() == mControlPoints.size()
                     ? std::make_unique<AcGeNurbCurve3d>(mDegree, knots, points, arrayOf(mWeights))
                     : std::make_unique<AcGeNurbCurve3d>(mDegree, knots, points);
    return curve->numControlPoints() > 0 ? std::move(curve) : nullptr;
}

std::unique_ptr<AcGeCurve3d> AcDbSpline::makeGeCurve() const
{
    return nurbs();
}

void AcDbSpline::takeShape(const AcGeNurbCurve3d& curve)
{
    int degree = 0;
    bool rational = false, periodic = false;
    AcGeKnotVector knots;
    AcGePoint3dArray points;
    AcGeDoubleArray weights;
    curve.getDefinitionData(degree, rational, periodic, knots, points, weights);
    mDegree = static_cast<std::int16_t>(degree);
    mControlPoints = listOf(points);
    mKnots.assign(knots.asArrayPtr(), knots.asArrayPtr() + knots.length());
    mWeights = rational ? listOf(weights) : std::vector<double>();
    mFlags = static_cast<std::int16_t>((mFlags & ~periodicFlag) | (periodic ? periodicFlag : 0));
    setShapeFlags(curve);
}

void AcDbSpline::setShapeFlags(const AcGeNurbCurve3d& curve)
{
    AcGePlane plane;
    int flags = mFlags & ~(closedFlag | rationalFlag | planarFlag | linearFlag);
    if (curve.isClosed()) flags |= closedFlag;
    if (!mWeights.empty()) flags |= rationalFlag;
    if (curve.isPlanar(plane)) {
        flags |= planarFlag;
        mNormal = plane.normal();
    }
    mFlags = static_cast<std::int16_t>(flags);
}

void AcDbSpline::forgetFit()
{
    mFitPoints.clear();
    mTangents.reset();
    mFlags = static_cast<std::int16_t>(mFlags & ~(fitFlag | chordFlag | rootFlag | evenFlag | ownKnotsFlag));
}

Acad::ErrorStatus AcDbSpline::changeShape(const AcGeNurbCurve3d& curve)
{
    if (curve.numControlPoints() == 0) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    forgetFit();
    takeShape(curve);
    return status;
}

Acad::ErrorStatus AcDbSpline::getControlPointAt(int index, AcGePoint3d& point) const
{
    if (index < 0 || index >= numControlPoints()) return Acad::eInvalidIndex;
    point = mControlPoints[static_cast<std::size_t>(index)];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::setControlPointAt(int index, const AcGePoint3d& point)
{
    if (index < 0 || index >= numControlPoints()) return Acad::eInvalidIndex;
    std::unique_ptr<AcGeNurbCurve3d> curve = nurbs();
    if (!curve || !isFinite(point)) return Acad::eInvalidInput;
    curve->setControlPointAt(index, point);
    return changeShape(*curve);
}

double AcDbSpline::weightAt(int index) const
{
    if (index < 0 || index >= numControlPoints()) return -1.0;
    return mWeights.empty() ? 1.0 : mWeights[static_cast<std::size_t>(index)];
}

Acad::ErrorStatus AcDbSpline::setWeightAt(int index, double weight)
{
    if (index < 0 || index >= numControlPoints()) return Acad::eInvalidIndex;
    std::unique_ptr<AcGeNurbCurve3d> curve = nurbs();
    if (!curve || !(weight > 0.0) || !std::isfinite(weight)) return Acad::eInvalidInput;
    curve->makeRational();
    return curve->setWeightAt(index, weight) ? changeShape(*curve) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbSpline::elevateDegree(int newDegree)
{
    constexpr int highest = 25;
    std::unique_ptr<AcGeNurbCurve3d> curve = nurbs();
    if (!curve || newDegree <= mDegree || newDegree > highest) return Acad::eInvalidInput;
    curve->elevateDegree(newDegree - mDegree);
    return changeShape(*curve);
}

Acad::ErrorStatus AcDbSpline::insertKnot(double param)
{
    std::unique_ptr<AcGeNurbCurve3d> curve = nurbs();
    if (!curve || !(param > curve->startParam() && param < curve->endParam())) return Acad::eInvalidInput;
    curve->insertKnot(param);
    return changeShape(*curve);
}

Acad::ErrorStatus AcDbSpline::getNurbsData(int& degree, Adesk::Boolean& rational, Adesk::Boolean& closed,
                                           Adesk::Boolean& periodic, AcGePoint3dArray& controlPoints,
                                           AcGeDoubleArray& knots, AcGeDoubleArray& weights,
                                           double& controlPtTol, double& knotTol) const
{
    const std::unique_ptr<AcGeNurbCurve3d> curve = nurbs();
    if (!curve) return Acad::eDegenerateGeometry;
    AcGeKnotVector found;
    bool hasWeights = false, wraps = false;
    curve->getDefinitionData(degree, hasWeights, wraps, found, controlPoints, weights);
    rational = hasWeights;
    closed = curve->isClosed();
    periodic = isPeriodic();
    knots.setLogicalLength(0);
    for (int i = 0; i < found.length(); ++i)
        knots.append(found[i]);
    controlPtTol = mControlTolerance;
    knotTol = mKnotTolerance;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::setNurbsData(int degree, Adesk::Boolean rational, Adesk::Boolean,
                                           Adesk::Boolean periodic, const AcGePoint3dArray& controlPoints,
                                           const AcGeDoubleArray& knots, const AcGeDoubleArray& weights,
                                           double controlPtTol, double knotTol)
{
    if (!areFinite(listOf(controlPoints)) || (rational && weights.length() != controlPoints.length()))
        return Acad::eInvalidInput;
    const AcGeKnotVector vector(knots);
    const bool wraps = periodic && knots.length() == controlPoints.length() + 1;
    const AcGeNurbCurve3d curve = rational ? AcGeNurbCurve3d(degree, vector, controlPoints, weights, wraps)
                                           : AcGeNurbCurve3d(degree, vector, controlPoints, wraps);
    const Acad::ErrorStatus status = changeShape(curve);
    if (status != Acad::eOk) return status;
    if (periodic) mFlags |= periodicFlag;
    if (controlPtTol > 0.0) mControlTolerance = controlPtTol;
    if (knotTol > 0.0) mKnotTolerance = knotTol;
    return status;
}

bool AcDbSpline::isPlanar() const
{
    const std::unique_ptr<AcGeNurbCurve3d> curve = nurbs();
    AcGePlane plane;
    return curve && curve->isPlanar(plane);
}

Acad::ErrorStatus AcDbSpline::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    const std::unique_ptr<AcGeNurbCurve3d> curve = nurbs();
    AcGePlane found;
    planarity = AcDb::kNonPlanar;
    if (!curve || !curve->isPlanar(found)) return Acad::eNonPlanarEntity;
    plane = found;
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::reverseCurve()
{
    std::unique_ptr<AcGeNurbCurve3d> curve = nurbs();
    if (!curve) return Acad::eDegenerateGeometry;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    curve->reverseParam();
    takeShape(*curve);
    std::reverse(mFitPoints.begin(), mFitPoints.end());
    if (mTangents) *mTangents = {-mTangents->end, -mTangents->start};
    return status;
}

Acad::ErrorStatus AcDbSpline::setFromAcGeCurve(const AcGeCurve3d& curve, const AcGeVector3d*, const AcGeTol&)
{
    if (!curve.isKindOf(AcGe::kNurbCurve3d)) return Acad::eInvalidInput;
    // Of a cut spline the part within its interval.
    AcGeNurbCurve3d part(static_cast<const AcGeNurbCurve3d&>(curve));
    AcGeInterval interval;
    part.getInterval(interval);
    const bool isWhole =
        interval.lowerBound() <= part.startParam() && interval.upperBound() >= part.endParam();
    if (!isWhole && !part.hardTrimByParams(interval.lowerBound(), interval.upperBound()))
        return Acad::eInvalidInput;
    return changeShape(part);
}
